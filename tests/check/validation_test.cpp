#include "check/validation.h"

#include "centre/names_file.h"
#include "check/file_columns.h"
#include "music/mus_reader.h"
#include "samples/damaged.h"
#include "samples/scores.h"
#include "shared/run_result.h"
#include "support/test.h"

namespace tul::valid {
namespace {

class Validating : public HostTest {
  protected:
    void select(const Texts& names) {
        writeNames(names);
        ReadNamesFile();
        ASSERT_EQ(selection.SelectionCount, static_cast<int>(names.size()));
    }
    /// Validates one page of these bytes; the report's lines.
    Texts validate(const std::string& bytes, const std::vector<Answer>& answers = {}) {
        host.forget();
        host.answers.assign(answers.begin(), answers.end());
        host.write("PAGE.MUS", bytes);
        select({"PAGE.MUS"});
        cmdValidateRun();
        EXPECT_FALSE(musReader.isOpen);
        return linesIn(host.shown.at(0));
    }
    /// Of the last run.
    static std::ptrdiff_t damagedPages() {
        const std::vector<PageResult>& pages = runResults.back().pages;
        return std::count_if(pages.begin(), pages.end(),
                             [](const auto& page) { return page.reading == Reading::broken; });
    }
    std::string file() const { return upper("PAGE.MUS"); }
    std::string structure(const std::string& failure, int item) const {
        return "MUS file structure error. " + failure + "\r\nItem number: " + std::to_string(item) +
               "\r\nFile: " + file();
    }
    std::string offer(int percent, int items) const {
        return "At least " + std::to_string(percent) + "% (the first " + std::to_string(items) +
               " items), and may be more can be recovered from file " + file() + "\r\nAttempt recovery?";
    }
    std::string noMusFile() const { return "File " + file() + " may not be a MUS file."; }
    std::string question(const std::string& finding, int item) const {
        return finding + " in file " + file() + "\r\nItem = " + std::to_string(item) + "\r\n\r\nContinue?";
    }
};

const std::string staff = words({6, 8, 1, 0, 0, 1, 200});

TEST_F(Validating, WritesTheReport) {
    host.write("A.MUS", pageOf(staff + words({2, 14, 1})));
    host.write("LONGER NAME.MUS", pageOf(staff, words({0, 0, 3, 1, -9999})));
    host.write("F.MUS", padRight("ENIGMA BINARY FILE", 32) + "Finale(R)");
    select({"A.MUS", "LONGER NAME.MUS", "F.MUS"});
    cmdValidateRun();
    EXPECT_TRUE(host.messages.empty());
    const std::string longest = upper("LONGER NAME.MUS");
    const std::size_t width = longest.size();
    const auto row = [&](const std::string& name, const std::string& behindDate) {
        return padRight(name, 12) + " " + stamp(name) + "   " + behindDate;
    };
    EXPECT_EQ(
        host.shown,
        Texts{crlf({"MUS File validation 11-21-2026 09:05:07", " ",
                    "Filename       Date       Time        Size Itms " + padRight("Path", width) + " Creator",
                    "------------ --/--/---- --:--:-----  ----- ---- " + std::string(width, '-') + " -------",
                    row("A.MUS", "66     2     " + padRight(upper("A.MUS"), width) + " 80200 "),
                    row("LONGER NAME.MUS", "50     1     " + longest + " "),
                    row("F.MUS", "41      ---- " + padRight(upper("F.MUS"), width) + " is a Finale file"),
                    std::string(43, ' ') + "----", std::string(42, ' ') + "3    , 3 file(s)"})});
    EXPECT_FALSE(host.exists("TULVALID.PRN"));
    EXPECT_EQ(damagedPages(), 0);
}

TEST_F(Validating, PassesAllSampleScores) {
    for (const samples::Sample& score : samples::scores()) {
        validate(score.bytes);
        EXPECT_EQ(host.messages, Texts{}) << score.name;
        EXPECT_EQ(damagedPages(), 0) << score.name;
    }
}

TEST_F(Validating, FindsTheFaultOfEveryDamagedSample) {
    for (const samples::Sample& page : samples::damaged()) {
        const Texts report = validate(page.bytes);
        // One passes for a page with the short trailer.
        const bool isSilent = page.name == "ASSHORT.MUS" || page.name == "FINALE.MUS";
        EXPECT_EQ(host.messages.empty(), isSilent) << page.name;
        EXPECT_EQ(report[4].ends_with("is a Finale file"), page.name == "FINALE.MUS");
        const bool isQuestion = isSilent || host.messages[0].starts_with("Found");
        EXPECT_EQ(damagedPages(), isQuestion ? 0 : 1) << page.name;
    }
}

TEST_F(Validating, TellsEachStructuralFailureInItsOrder) {
    const std::string tooShort = words({13, 16, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    for (const auto& [bytes, told] : std::vector<std::pair<std::string, Texts>>{
             {header(-5) + "rest", {noMusFile() + " ", "Wordcount found to be:-5", offer(0, 0)}},
             {pageOf(staff + words({40000, 1, 1})),
              {structure("Conversion error2.", 2), offer(8 * 100 / 16, 1)}},
             {pageOf(words({notANumber, 1, 1})), {structure("Conversion error2.", 1), offer(11, 0)}},
             {pageOf(words({-3, 1, 1})),
              {structure("Invalid number of parameters (-3) in item.", 1), noMusFile(), offer(11, 0)}},
             {pageOf(staff + words({0.5F, 1})),
              {structure("Invalid number of parameters (0) in item.", 2), offer(53, 1)}},
             {pageOf(staff + tooShort), {structure("Text length error (13).", 2), offer(33, 1)}},
             {pageOf(tooShort),
              {structure("Text length error (13).", 1), noMusFile(), offer(2 * 100 / 20, 0)}},
             {header(9) + words({15, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}),
              {"Attempt to read beyond end of file.\r\nItem number: 1\r\nFile: " + file(), offer(177, 1)}}}) {
        validate(bytes);
        EXPECT_EQ(host.messages, told);
        EXPECT_EQ(damagedPages(), 1);
    }
}

TEST_F(Validating, TellsTooManyParametersAndGoesOn) {
    std::string item = words({21, 5, 1});
    for (int i = 0; i < 19; ++i) item += words({0});
    validate(pageOf(staff + item));
    EXPECT_EQ(
        host.messages,
        (Texts{
            "MUS file structure error. Invalid number of parms: 21\r\nItem number: 1\r\nPar1= 5\r\nFile: " +
                file(),
            "Too many parameters in an item. SCORE sometimes does not reject this."}));
    EXPECT_EQ(damagedPages(), 1);

    item.replace(4, 4, words({15}));
    const Texts lines = validate(pageOf(staff + item));
    EXPECT_EQ(host.messages.size(), 2U);
    EXPECT_EQ(damagedPages(), 0) << "a long file name in a code 15 item is no damage";
    EXPECT_TRUE(lines[4].ends_with(" 80200 "));
}

TEST_F(Validating, CountsWhatOtherToolsRefuseAsDamaged) {
    for (const float code : {15.0F, 11.5F, 16.5F}) {
        validate(pageOf(words({3, code, 1, 2})), {Answer::yes});
        EXPECT_EQ(host.messages.size(), code == 15.0F ? 0U : 1U) << "no structural message";
        EXPECT_EQ(damagedPages(), 1) << code;
    }
}

TEST_F(Validating, HandlesAnInvalidItemTypeOnWhatAClosedFileLeaves) {
    const std::string type = structure("Invalid item type: 19.5", 2);
    const std::string outOfRange = "Found an item code <1 or >18";
    const auto codeAt = [&](int item) { return question(outOfRange, item); };
    const auto fractionAt = [&](int item) {
        return question("Found a non-integer item code (19.5) number", item);
    };
    const auto staffAt = [&](int item) { return question("Found a non-integer staff (19.5) number", item); };

    const std::string page = pageOf(staff + words({2, 19.5F, 1}) + words({2, 14, 1}) + words({2, 14, 1}));
    const Texts refused = validate(page);
    EXPECT_EQ(host.messages, (Texts{type, codeAt(2), fractionAt(2), staffAt(2)}));
    EXPECT_EQ(refused[4], "(Processing discontinued by user)");
    EXPECT_TRUE(refused[5].starts_with("PAGE.MUS ")) << "its row follows";
    EXPECT_TRUE(refused[7].ends_with(" 2    , 1 file(s)")) << "and its items count";

    // Agreed to, the stale word is length and code of the next item: 20 words of 19.5 lead beyond the end.
    validate(page, std::vector<Answer>(6, Answer::yes));
    EXPECT_EQ(
        host.messages,
        (Texts{type, codeAt(2), fractionAt(2), staffAt(2), structure("Invalid item type: 19.5", 3), codeAt(3),
               fractionAt(3), staffAt(3),
               "Attempt to read beyond end of file.\r\nItem number: 3\r\nFile: " + file(), offer(140, 3)}));
}

TEST_F(Validating, EndsAnInvalidItemTypeWhereItsIndexMeetsTheTrailer) {
    // The stale length of 19 leads 20 words on from the 9 or 10 that were read: to 29, the marks of a
    // trailer.
    std::string items = staff + words({2, 19, 1});
    for (int i = 0; i < 6; ++i) items += words({2, 14, 1});
    Texts lines = validate(pageOf(items + words({1, 1})), std::vector<Answer>(4, Answer::yes));
    EXPECT_EQ(damagedPages(), 1);
    EXPECT_EQ(host.messages.size(), 4U) << "neither an end of the file nor a recovery";
    EXPECT_TRUE(lines[4].ends_with(" 0 ")) << "a stamp of stale bytes";
    lines = validate(pageOf(items + words({1})), std::vector<Answer>(4, Answer::yes));
    EXPECT_EQ(host.messages.size(), 4U);
    EXPECT_TRUE(lines[4].ends_with("PAGE.MUS ")) << "the mark of a short trailer";
}

TEST_F(Validating, EndsAnInvalidItemTypeAtAStaleLengthBelowTwo) {
    validate(pageOf(words({2, 0.5F, 1}) + staff), std::vector<Answer>(4, Answer::yes));
    ASSERT_EQ(host.messages.size(), 8U);
    EXPECT_EQ(host.messages[0], structure("Invalid item type: 0.5", 1));
    EXPECT_EQ(host.messages[1], noMusFile());
    EXPECT_EQ(host.messages[6], structure("Invalid number of parameters (0) in item.", 2));
    EXPECT_EQ(host.messages[7], offer(4 * 100 / 16, 1));
}

TEST_F(Validating, AsksAboutWhatItemsHold) {
    validate(pageOf(words({2, 13, 1})), {Answer::yes});
    EXPECT_EQ(host.messages, Texts{question("Found an item code 13", 1)});
    validate(pageOf(words({2, 12.5F, 0.5F})), std::vector<Answer>(3, Answer::yes));
    EXPECT_EQ(host.messages, (Texts{question("Found a non-integer item code (12.5) number", 1),
                                    question("Found a staff number less <1 or > 32", 1),
                                    question("Found a non-integer staff (0.5) number", 1)}));
    projectSettings.StaffRange = 200;
    validate(pageOf(words({2, 14, 200}) + words({2, 14, 201})));
    EXPECT_EQ(host.messages, Texts{question("Found a staff number less <1 or > 200", 2)});
    validate(pageOf(words({2, notANumber, notANumber})), std::vector<Answer>(2, Answer::yes));
    EXPECT_EQ(host.messages, (Texts{question("Found a non-integer item code (NAN) number", 1),
                                    question("Found a non-integer staff (NAN) number", 1)}));
}

TEST_F(Validating, TheLastAnswerOfAnItemCounts) {
    const std::string page = pageOf(words({2, 12.5F, 0.5F}) + words({2, 14, 99}));
    Texts lines = validate(page, {Answer::no, Answer::no, Answer::yes, Answer::no});
    EXPECT_EQ(host.messages.size(), 4U) << "a No is taken back by a later Yes";
    EXPECT_EQ(lines[4], "(Processing discontinued by user)");
    validate(pageOf(words({2, 12.5F, 99})), {Answer::no, Answer::yes});
    EXPECT_EQ(host.messages.size(), 2U);
    lines = validate(page, {Answer::yes, Answer::yes, Answer::no});
    EXPECT_EQ(host.messages.size(), 3U);
    EXPECT_EQ(lines[4], "(Processing discontinued by user)");
    EXPECT_EQ(damagedPages(), 0);
}

TEST_F(Validating, RunsTheRecoveryOrSaysThatItCannot) {
    const std::string command = host.path("TULRECOV.EXE") + " " + file() + " 1";
    validate(pageOf(staff + words({0, 1})), {Answer::ok});
    EXPECT_EQ(host.messages.back(),
              "Program " + host.path("TULRECOV.EXE") +
                  " not located.\r\nRecovery cannot be done.\r\nThe command string is:\r\n" + command);
    host.write("TULRECOV.EXE", "x");
    host.mayRun("TULRECOV.EXE");
    validate(pageOf(staff + words({0, 1})), {Answer::ok});
    EXPECT_EQ(host.launches, Texts{"TULRECOV.EXE " + file() + " 1"});
    validate(pageOf(staff + words({0, 1})), {Answer::cancel});
    EXPECT_TRUE(host.launches.empty());
}

TEST_F(Validating, TakesTheRecognisedFinaleFilesOnly) {
    const auto creatorOf = [this](std::string head, const char* behind) {
        head.resize(32, '\0');
        host.write("f.mus", head + behind);
        return IsFinale(host.path("f.mus"));
    };
    EXPECT_EQ(creatorOf("ENIGMA BINARY FILE", "Finale(R) and more"), "Finale");
    EXPECT_EQ(creatorOf("ENIGMA BINARY FILE", " Finale(R)"), "");
    EXPECT_EQ(creatorOf("ENIGMA BINARY FILE", ""), "");
    EXPECT_EQ(creatorOf("", "Finale(R)"), "");
    EXPECT_EQ(IsFinale(host.path("none.mus")), "");
}

TEST_F(Validating, CompletesDatesAndTimesBySeparatorAndCutsSizesAtSevenDigits) {
    EXPECT_EQ(editedStamp("11-21-2026 09:05:07"), "11-21-2026 09:05:07   ");
    EXPECT_EQ(editedStamp("1-2-2003 9:5:07 PM"), " 1-02-2003  9:05:07 PM");
    EXPECT_EQ(editedStamp("1-12-2003 19:5:07"), " 1-12-2003 19:05:07   ");
    EXPECT_EQ(editedStamp("2003-1-2 9.05.07"), "2003-1-2 9.05.07") << "other separators are left alone";
    EXPECT_EQ(editedStamp(" 01-02-2003 "), "01-02-2003");
    dateSettings.dateSeparator = "/";
    dateSettings.timeSeparator = ".";
    EXPECT_EQ(editedStamp("1/2/2003 9.5.07"), " 1/02/2003  9.05.07   ");
    EXPECT_EQ(editedStamp(""), "");
    EXPECT_EQ(sizeField(0), "0      ");
    EXPECT_EQ(sizeField(9999999), "9999999");
    EXPECT_EQ(sizeField(10000000), "XXXXXXX");
}

}  // namespace
}  // namespace tul::valid
