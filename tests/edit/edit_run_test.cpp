#include "edit/edit_run.h"

#include "edit/edit_profile.h"
#include "edit/general_edit.h"
#include "edit/plate_numbers.h"
#include "edit/text_fonts.h"
#include "edit/text_search.h"
#include "support/test.h"

namespace tul::edit {
namespace {

const std::string staff = words({2, 8, 1});

/// A text of 8 characters, with a count that is written anew whenever the page is.
std::string text8(const std::string& text, float count = 8) {
    return words({15, 16, 1, 0, 0, 0, 1, 0, 0, 0, 0, 0, count, 0}) + text;
}

std::string replaces(const std::string& count) {
    return "Number of replaces . . . . . . " + count + " (Find string: bc Replace string: BC)";
}

class EditRun : public HostTest {
  protected:
    /// Pages by name, which become the selection.
    void select(const std::vector<std::pair<std::string, std::string>>& pages) {
        Texts names;
        for (const auto& [name, bytes] : pages) {
            host.write(name, bytes);
            names.push_back(name);
        }
        writeNames(names);
    }
    /// The report of a run.
    std::string run(int tab) {
        editing.tabEdit = tab;
        host.forget();
        cmdEditRun();
        EXPECT_FALSE(host.exists("TULEDIT.PRN"));
        EXPECT_FALSE(editing.view.control.isBusy());
        return host.shown.empty() ? "" : host.shown.front();
    }
    /// The report of pages without lines of their own.
    std::string reportOf(const Texts& names, const Texts& counters, const char* count) {
        std::size_t longest = 4;
        Texts paths;
        for (const std::string& name : names) {
            paths.push_back(upper(name));
            longest = std::max(longest, paths.back().size());
        }
        Texts lines = {"TUL Edit run 11-21-2026 09:05:07", " ", padRight("File", longest),
                       std::string(longest, '-')};
        lines.insert(lines.end(), paths.begin(), paths.end());
        lines.push_back(" ");
        lines.insert(lines.end(), counters.begin(), counters.end());
        lines.push_back(" ");
        lines.push_back(std::string("Number of files processed: ") + count);
        return crlf(lines);
    }
    void searchFor(const char* string1, const char* string2) {
        textSearch.txtEditSearchString1 = string1;
        textSearch.txtEditSearchString2 = string2;
    }
};

TEST_F(EditRun, RewritesOnlyWhatChangedWithoutTheBackupBox) {
    const std::string with = pageOf(staff + text8("_00abcde", 9));
    const std::string without = pageOf(staff + text8("_00xyzxy", 9));
    select({{"a.mus", with}, {"long.mus", without}});
    searchFor("bc", "BC");
    editing.chkEditBackup = false;
    EXPECT_EQ(run(tabText), reportOf({"a.mus", "long.mus"}, {replaces("1")}, "2"));
    EXPECT_EQ(host.read("a.mus"), pageOf(staff + text8("_00aBCde")));
    EXPECT_EQ(host.read("long.mus"), without);
    EXPECT_FALSE(host.exists("A.BKU"));

    editing.chkEditBackup = true;
    EXPECT_EQ(run(tabText), reportOf({"a.mus", "long.mus"}, {replaces("0")}, "2"));
    EXPECT_EQ(host.read("long.mus"), pageOf(staff + text8("_00xyzxy"))) << "rewritten in any case";
    EXPECT_EQ(host.read("LONG.BKU"), without);
}

TEST_F(EditRun, ACancelKeepsTheFilesBeforeIt) {
    const std::string page = pageOf(staff + text8("_00abcde") + text8("_00abcde"));
    select({{"a.mus", page}, {"b.mus", page}, {"c.mus", page}});
    searchFor("bc", "BC");
    textSearch.chkEditVerify = true;
    host.answers = {Answer::yes, Answer::no, Answer::yes, Answer::cancel};
    EXPECT_EQ(run(tabText), reportOf({"a.mus", "b.mus"}, {replaces("2")}, "3") +
                                "Stopped by the user in B.MUS, file 2 of 3.\r\n");
    EXPECT_EQ(host.read("a.mus"), pageOf(staff + text8("_00aBCde") + text8("_00abcde")));
    EXPECT_EQ(host.read("b.mus"), page);
    EXPECT_EQ(host.read("c.mus"), page);
    EXPECT_EQ(editing.view.status, "File being processed");
    EXPECT_EQ(runResults.back().changes(), 1) << "that of the page which was written";
    EXPECT_EQ(runResults.back().exitStatus(), ExitStatus::stopped);
}

TEST_F(EditRun, CountsFontsInTheirOwnWords) {
    const std::string page = pageOf(staff + text8("_05abcde"));
    textSearch.optEditSearch = false;
    textFonts.optEditDeleteModify = true;
    textFonts.txtEditFontInput = "05";
    textFonts.txtEditFontOutput = "07";
    const auto expectLine = [&](const char* line) {
        select({{"a.mus", page}});
        EXPECT_EQ(run(tabText), reportOf({"a.mus"}, {line}, "1"));
    };
    expectLine("Number of Code16 items deleted  . . . . . . 1 (Font 05)");
    textFonts.optEditDeleteText = false;
    textFonts.optEditModifyText = true;
    expectLine("Number of Code16 fonts modified . . . . . . 1 (Font 05 to 07)");
    textFonts.chkEditModifyInclude = true;
    expectLine("Number of Code16/Code10 fonts modified  . . 1 (Font 05 to 07)");
    EXPECT_EQ(host.read("a.mus"), pageOf(staff + text8("_07abcde")));
}

TEST_F(EditRun, TextOptionsThatDoNotFitAreTold) {
    select({{"a.mus", "untouched"}});
    const auto told = [&] {
        EXPECT_EQ(run(tabText), "");
        return host.messages;
    };
    for (const char* empty : {"", "''", "\"\""}) {
        searchFor(empty, "x");
        EXPECT_EQ(told(), Texts{"No search string defined."});
    }
    searchFor("x", "x");
    EXPECT_EQ(told(), Texts{"No use running search/replace with equal strings."});
    textSearch.optEditSearch = false;
    textFonts.optEditDeleteModify = true;
    EXPECT_EQ(told(), Texts{"The input font must be defined for Code16 deletion."});
    textFonts.optEditDeleteText = false;
    textFonts.optEditModifyText = true;
    textFonts.txtEditFontInput = "05";
    EXPECT_EQ(told(), Texts{"The input and output fonts must be defined for Code16 font modification."});
    textFonts.txtEditFontOutput = "05";
    EXPECT_EQ(told(), Texts{"Input and output font are equal. Run canceled."});
    EXPECT_EQ(host.read("a.mus"), "untouched");
}

TEST_F(EditRun, TheGeneralHeadStandsUnderTheFirstFile) {
    select({{"a.mus", pageOf(staff)}, {"b.mus", pageOf(staff)}});
    generalEdit.txtp[0] = "1";
    generalEdit.lstr[0].choose("=");
    generalEdit.txtv[0] = "8";
    generalEdit.txtp4 = "9";
    generalEdit.txtv4 = "12";
    editing.chkEditBackup = false;
    const std::string report = run(tabGeneral);
    const std::string item = "              Item=1         Par1=8        Par2=1        Par3=0\r\n";
    EXPECT_TRUE(contains(report, upper("a.mus") + "\r\nTulEdit General for CHANGE\r\n"));
    EXPECT_TRUE(contains(report, "First 3 params of changed item\r\n" + item + upper("b.mus") + "\r\n" +
                                     item + " \r\nNumber general updates. . . . . . . . . 2\r\n \r\n"));
    EXPECT_EQ(host.read("b.mus"), pageOf(words({9, 8, 1, 0, 0, 0, 0, 0, 0, 12})));

    generalEdit.txtp4 = "21";
    const std::string before = host.read("a.mus");
    EXPECT_EQ(endOf([&] { cmdEditRun(); }), 1);
    EXPECT_EQ(host.read("a.mus"), before);
}

TEST_F(EditRun, TabsOfButtonsRewriteOrDoNothing) {
    const std::string page = pageOf(staff + text8("_00abcde", 9));
    select({{"a.mus", page}});
    EXPECT_EQ(run(tabStems), "");
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(host.read("a.mus"), page);
    for (const int tab : {tabFont, tabSpecial}) EXPECT_EQ(run(tab), reportOf({"a.mus"}, {}, "1"));
    EXPECT_EQ(host.read("a.mus"), pageOf(staff + text8("_00abcde"))) << "read and rewritten";
    select({});
    EXPECT_EQ(run(tabFont), reportOf({}, {}, "0"));
}

TEST_F(EditRun, APlateNumberDoesNotReplaceAPageThatCannotBeRead) {
    std::string page = pageOf(staff);
    page.replace(0, 2, 2, '\0');  // the word count
    select({{"a.mus", page}});
    projectSettings.PlateNumber = "1234";
    textSearch.optEditSearch = false;
    plateNumbers.optEditGeneratePlate = true;
    plateNumbers.txtEditGeneratePlateMid = "92";
    const std::string report = run(tabText);
    EXPECT_EQ(host.read("a.mus"), page);
    EXPECT_TRUE(contains(report, "plate numbers generated . . . . . 0 "));
    EXPECT_TRUE(contains(report, "Not read whole, and left as they are: A.MUS"));
}

TEST_F(EditRun, ADamagedFileIsRewrittenOnlyWithAChange) {
    const std::string damaged = pageOf(staff + text8("_00abcde") + words({1}));
    select({{"a.mus", damaged}});
    editing.chkEditBackup = false;
    searchFor("zz", "y");
    run(tabText);
    EXPECT_EQ(host.messages, Texts{structuralError});
    EXPECT_EQ(host.read("a.mus"), damaged);
    searchFor("bc", "y");
    EXPECT_TRUE(contains(run(tabText), "Rewritten from an incomplete reading"));
    EXPECT_EQ(host.read("a.mus"), pageOf(staff + text8("_00ayde ", 7)));
}

TEST_F(EditRun, TheProfileKeepsTheBracketSettings) {
    loadTulEditProfile();
    EXPECT_EQ(host.read("TULEDIT.PRO"),
              crlf({"* TulEdit profile created 11-21-2026 at 09:05:07", "RVBheightLine=14.0",
                    "RVBheight=-1.0", "RVBdotCorr=0.6", "RVBwidth=1.0", "RVBhalfOffsetLeft=-2.0",
                    "RVBhalfOffsetRite=4.0", "RVBwholeOffsetLeft=-.5", "RVBwholeOffsetRite=2.5"}));
    host.write("TULEDIT.PRO", "rvbwidth=a=b\r\n RVBheight=1\r\n*RVBheight=2\r\nRVBheight\r\nOther=3\r\n");
    loadTulEditProfile();
    EXPECT_EQ(bracketSettings.txtRVBwidth, "a=b");
    EXPECT_EQ(bracketSettings.txtRVBheight, "-1.0");
    host.faultyFiles().refusals["TULEDIT.PRO"] = FileError::diskFull;
    EXPECT_EQ(endOf(saveTulEditProfile), 1);
    EXPECT_EQ(host.messages, Texts{"Failed to create TulEdit profile"});
}

}  // namespace
}  // namespace tul::edit
