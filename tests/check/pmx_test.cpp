
#include <bit>
#include <cmath>
#include <random>

#include "base/numbers.h"
#include "centre/names_file.h"
#include "check/pmx_export.h"
#include "check/pmx_numbers.h"
#include "shared/run_result.h"
#include "support/test.h"

namespace tul::pmx {
namespace {

using Append = void (*)(std::string&, float);

std::string number(Append append, float value) {
    std::string text = "before";
    append(text, value);
    return text.substr(6);
}

void expectAsTheGeneralForms(float value) {
    const bool below = value < 10.0F;
    ASSERT_EQ(number(appendTabNumber, value), formatted(value, " 000#.#000;-000#.#000"));
    ASSERT_EQ(number(appendTabCode, value), formatted(value, below ? " #" : "0#"));
    ASSERT_EQ(number(appendTabTextStaff, value), formatted(value, below ? "  #" : " 0#"));
    ASSERT_EQ(number(appendGeneral, value), plain(value));
    std::string condensed = plain(value);
    if (condensed.find('E') != std::string::npos)
        condensed = plain(static_cast<float>(std::floor(value * 1000000.0) / 1000000.0));
    ASSERT_EQ(number(appendCondensedNumber, value), condensed);
}

TEST(PmxNumbers, AreThoseOfTheGeneralFormsForEveryBitPattern) {
    std::mt19937 random(7);
    for (int i = 0; i < 20000; ++i) {
        const auto bits = static_cast<std::uint32_t>(random());
        expectAsTheGeneralForms(std::bit_cast<float>(bits));
        // As pages have them, and ties: a few places behind the point, binary and decimal.
        const auto whole = static_cast<float>(static_cast<std::int32_t>(bits) >> (bits % 24));
        expectAsTheGeneralForms(whole / static_cast<float>(1 << (i % 20)));
        expectAsTheGeneralForms(whole / 10000.0F);
    }
    for (int exponent = -10; exponent <= 12; ++exponent) {
        for (const double digits : {1.0, 9.99995, 9.9999995, 5.0, 4.9999995}) {
            const auto value = static_cast<float>(digits * std::pow(10.0, exponent));
            for (const float near :
                 {value, std::nextafter(value, 0.0F), std::nextafter(value, infinity), -value})
                expectAsTheGeneralForms(near);
        }
    }
    for (const float value : {0.0F, -0.0F, infinity, -infinity, notANumber}) expectAsTheGeneralForms(value);
}

class Exporting : public HostTest {
  protected:
    void run(const Texts& names) {
        writeNames(names);
        host.forget();
        cmdPmxRun();
    }
    /// The PMX form of these bytes.
    std::string exported(const std::string& bytes, const std::string& name = "PAGE.MUS") {
        host.write(name, bytes);
        run({name});
        return host.read("PAGE.PMX");
    }
    void setFormat(bool condensed, bool comment) {
        pmxRun.options.optPMXformatTab = !condensed;
        pmxRun.options.optPMXformatCondensed = condensed;
        pmxRun.options.chkPMXcomment = comment;
    }
};

// A staff; a clef with a zero within; an item with Par 1 only; texts of all three codes.
const std::string page =
    pageOf(words({6, 8, 12, 0, -1.25F, 0.75F, 200}) + words({4, 3, 1, 0.00001F, -0.0F}) + words({2, 17, 0}) +
               words({15, 16, 2, 20, 0, 0, 1, 0, 0, 0, 0, 0, 5, 0}) + "_00\tAd. " +
               words({14, 16, 10, 0, 0, 0, 0, 0, 0, 0, 0, 0, 4, 0}) + "solo" +
               words({15, 11, 3, 1.5F, 0, 0, 0, 0, 0, 0, 0, 0.5F, 0, 0}) + "mf      " +
               words({14, 15, 11, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 9}) + "A.B ",
           trailer(true));

TEST_F(Exporting, WritesAlignedColumns) {
    EXPECT_EQ(exported(page),
              crlf({" 8 12  0000.0000 -0001.2500  0000.7500  0200.0000", " 3  1  0000.0000", "17  ",
                    "t   2  0020.0000  0000.0000  0000.0000  0001.0000", "_00\tAd. ", "t  10 ", "solo",
                    "11  3  0001.5000  0000.0000  0000.0000  0000.0000  0000.0000  0000.0000  "
                    "0000.0000  0000.0000  0000.5000",
                    "mf", "15 11 ", "A.B "}));
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(Exporting, WritesCondensedNumbersAndComments) {
    setFormat(true, false);
    const Texts lines = {
        "8 12 0 -1.25 0.75 200",      "3 1 9E-06", "17 0",   "t 2 20 0 0 1", "_00\tAd. ", "t 10 ", "solo",
        "11 3 1.5 0 0 0 0 0 0 0 0.5", "mf",        "15 11 ", "A.B "};
    EXPECT_EQ(exported(page), crlf(lines)) << "0.00001 lies a little below, in single precision";

    setFormat(true, true);
    const auto items = [](const Texts& text, std::size_t from, const std::string& comment) {
        return crlf({comment, text[from], text[from + 1]});
    };
    EXPECT_EQ(exported(page),
              crlf({"* Input file is " + upper("PAGE.MUS"), "* WordCount is 83",
                    "* Item 1, Number of parameters is 6", lines[0], "* Item 2, Number of parameters is 4",
                    lines[1], "* Item 3, Number of parameters is 2", lines[2]}) +
                  items(lines, 3, "* Item 4, Number of parameters is 15") +
                  items(lines, 5, "* Item 5, Number of parameters is 14") +
                  items(lines, 7, "* Item 6, Number of parameters is 15") +
                  items(lines, 9, "* Item 7, Number of parameters is 14") +
                  crlf({"* Trailer length 6, Version/licence= 80200 ", "* Inches/metrics=(Metric) 1"}));
}

TEST_F(Exporting, TakesTheShortTrailerForALongOne) {
    setFormat(false, true);
    const std::string lines = exported(pageOf(words({2, 14, 1}), words({0, 0, 3, 0, -9999})));
    EXPECT_TRUE(lines.ends_with(
        crlf({"14  1", "* Trailer length 6, Version/licence= 0 ", "* Inches/metrics=(Inches) 0"})));
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(Exporting, ReadsAFileListToItsEnd) {
    setFormat(true, true);
    const std::string staff = words({6, 8, 1, 0, 0, 1, 200});
    host.write("FILES.TMP", staff + staff);
    run({"FILES.TMP"});
    EXPECT_EQ(host.read("FILES.PMX"), crlf({"* Input file is " + upper("FILES.TMP"), "* WordCount is 14",
                                            "* Item 1, Number of parameters is 6", "8 1 0 0 1 200",
                                            "* Item 2, Number of parameters is 6", "8 1 0 0 1 200"}));
    EXPECT_TRUE(host.messages.empty());
    // Six words before its end would be the trailer of a page, and are left alone here, too.
    host.write("FILES.TMP", staff + words({2, 14, 1}) + words({2, 14, 1}));
    run({"FILES.TMP"});
    EXPECT_TRUE(host.read("FILES.PMX").ends_with("8 1 0 0 1 200\r\n"));
}

TEST_F(Exporting, KeepsWhatStandsBeforeAFailure) {
    setFormat(true, true);
    const std::string good = words({2, 14, 1});
    const std::string comment = "* Item 2, Number of parameters is ";
    const std::vector<std::pair<std::string, Texts>> failures = {
        {words({1, 14, 1}), {comment + "1"}},
        {words({40000, 14, 1}), {}},
        {words({notANumber, 14, 1}), {}},
        {words({3, 0.5F, 1, 1}), {comment + "3"}},
        {words({3, 18.5F, 1, 1}), {comment + "3"}},
        {words({13, 15, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}), {comment + "13"}},
        {words({21, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}), {comment + "21"}},
        {words({14, 16.5F, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2}) + words({0}),
         {comment + "14", "16.5 1 0 0 0 0 0 0 0 0 0 0 0 2", "* Item 3, Number of parameters is 0"}},
    };
    for (const auto& [bytes, behind] : failures) {
        const std::string lines = exported(pageOf(good + bytes));
        const std::string before = "* Item 1, Number of parameters is 2\r\n14 1\r\n";
        const std::size_t start = lines.find(before);
        ASSERT_NE(start, std::string::npos);
        EXPECT_EQ(lines.substr(start + before.size()), crlf(behind));
        EXPECT_EQ(host.messages, Texts{structuralError});
    }
    EXPECT_EQ(exported(header(-5) + "rest"),
              crlf({"* Input file is " + upper("PAGE.MUS"), "* WordCount is -5"}));
    EXPECT_EQ(host.messages, Texts{structuralError});
}

TEST_F(Exporting, ReportsPathsAndOutputNames) {
    host.write("a.mus", pageOf(words({2, 14, 1})));
    host.write("long name", pageOf(words({2, 14, 1})));
    host.write("two.stops.mus", pageOf(words({2, 14, 1})));
    host.write("old.pmx", "14 1");
    pmxRun.options.chkPMXshow = true;
    run({"a.mus", "old.pmx", "long name", "two.stops.mus"});
    EXPECT_EQ(host.messages, Texts{"Input file to create PMX may not have .PMX suffix"});
    const std::size_t width = upper("two.stops.mus").size();
    ASSERT_EQ(host.shown.size(), 4U) << "three files and the report";
    EXPECT_EQ(host.shown[0], "14  1\r\n");
    EXPECT_EQ(
        host.shown[3],
        crlf({"PMX File creation 11-21-2026 09:05:07", " ", padRight("Input Path", width) + "  Output Path",
              std::string(width, '-') + "  -----------", padRight(upper("a.mus"), width) + " A.PMX       ",
              padRight(upper("long name"), width) + " LONG NAME.PMX",
              upper("two.stops.mus") + " TWO.PMX     ", " ", "Number of files processed: 4",
              "Not done: OLD.PMX (its suffix is .PMX)"}));
    EXPECT_FALSE(host.exists("TULPMX.PRN"));
    EXPECT_EQ(host.read("LONG NAME.PMX"), "14  1\r\n");
    EXPECT_EQ(host.read("old.pmx"), "14 1");

    pmxRun.options.chkPMXshow = false;
    pmxRun.options.chkPMXreport = false;
    run({"a.mus"});
    EXPECT_TRUE(host.shown.empty());
    EXPECT_FALSE(host.exists("TULPMX.PRN"));
    EXPECT_EQ(pmxPathOf("Z:\\V1.0\\PAGE"), "Z:\\V1.0\\PAGE.PMX") << "the full stops of folders do not count";
}

TEST_F(Exporting, RefusesTwoPagesOfOneOutput) {
    for (const char* name : {"A.MUS", "A.OLD.MUS"}) host.write(name, pageOf(words({2, 14, 1})));
    run({"A.MUS", "A.OLD.MUS"});
    EXPECT_EQ(host.messages, Texts{"These two files have the same output file " + upper("A.PMX") + ":\r\n" +
                                   upper("A.MUS") + "\r\n" + upper("A.OLD.MUS")});
    EXPECT_EQ(runResults.back().exitStatus(), ExitStatus::refused);
    EXPECT_FALSE(host.exists("A.PMX"));
}

TEST_F(Exporting, EndsTheRunWhereItCannotWrite) {
    host.write("A.MUS", pageOf(words({2, 14, 1})));
    host.write("B.MUS", pageOf(words({1, 14, 1})));  // damaged, but the refusal is what is told
    host.write("C.MUS", pageOf(words({2, 14, 1})));
    host.faultyFiles().refusals["B.PMX"] = FileError::readOnly;
    run({"A.MUS", "B.MUS", "C.MUS"});
    EXPECT_EQ(host.messages, Texts{"Open error on file " + upper("B.PMX") + ", Error code= 75"});
    EXPECT_TRUE(host.exists("A.PMX"));
    EXPECT_FALSE(host.exists("C.PMX"));
    EXPECT_TRUE(host.shown.empty());
    EXPECT_TRUE(host.read("TULPMX.PRN")
                    .ends_with(" B.PMX       \r\nNot done: B.MUS (B.PMX could not be written)\r\n"))
        << "the report so far stays";
    EXPECT_FALSE(pmxRun.view.control.isBusy());
}

TEST_F(Exporting, StopsWhenItIsCancelled) {
    std::string items;
    for (int i = 0; i < 500; ++i) items += words({2, 14, 1});
    for (const char* name : {"A.MUS", "B.MUS", "C.MUS"}) host.write(name, pageOf(items));
    host.onYield = [&] {
        const bool inSecond = pmxRun.view.status == "File being processed: 2 of 3";
        if (inSecond && pmxRun.view.inFile.percent > 40) pmxRun.view.control.press();
    };
    pmxRun.options.chkPMXshow = true;
    run({"A.MUS", "B.MUS", "C.MUS"});
    EXPECT_EQ(host.read("A.PMX").size(), 500U * 7);
    const std::size_t cut = host.read("B.PMX").size();
    EXPECT_TRUE(cut > 200U * 7 && cut < 500U * 7) << cut;
    EXPECT_FALSE(host.exists("C.PMX"));
    ASSERT_EQ(host.shown.size(), 2U) << "the first file and the report";
    EXPECT_TRUE(host.shown[1].ends_with(
        lines(" B.PMX       | |Number of files processed: 3|(Processing interrupted by user)|"
              "Stopped by the user in B.MUS, file 2 of 3.")));
}

TEST_F(Exporting, TakesDroppedFileListsOverItself) {
    host.install();
    Panel panel = findPanel("pmx")->make();
    panel.load();
    EXPECT_EQ(panel.press("cmdPmxRun"), PanelAnswer::disabled);
    EXPECT_EQ(panel.set("optPMXformatCondensed", "1"), PanelAnswer::done);
    EXPECT_FALSE(pmxRun.options.optPMXformatTab);

    host.write("FILES.TMP", words({2, 14, 1}));
    host.write("A.MUS", pageOf(words({2, 14, 1})));
    panel.drop({host.path("A.MUS"), host.path("FILES.TMP")});
    EXPECT_EQ(host.read("NAMES.TUL"), crlf({host.path("A.MUS") + " 1", host.path("FILES.TMP") + " 1"}));
    EXPECT_EQ(selection.SelectionCount, 2);
    EXPECT_TRUE(panel.command("cmdPmxView")->toolTip().ends_with(upper("A.MUS")));
    EXPECT_EQ(panel.press("cmdPmxRun"), PanelAnswer::done);
    EXPECT_EQ(host.read("FILES.PMX"), "14 1\r\n");

    host.faultyFiles().refusals["NAMES.TUL"] = FileError::diskFull;
    panel.drop({host.path("FILES.TMP")});
    EXPECT_EQ(host.messages, Texts{"Drop error or open error of: " + host.path("NAMES.TUL")});
    host.mayRun("TULOLE.EXE");
    panel.drop({host.path("A.MUS")});
    EXPECT_TRUE(host.launches.back().starts_with("TULOLE.EXE ")) << "which other drops go through";
}

}  // namespace
}  // namespace tul::pmx
