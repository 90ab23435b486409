#include "bars/bar_settings.h"
#include "renumber/bar_numbers.h"
#include "renumber/page_numbers.h"
#include "renumber/renumber_run.h"
#include "shared/run_result.h"
#include "support/page_text.h"

namespace tul::renumber {
namespace {

using Fields = std::map<std::string, std::string>;

/// Runs of the three tabs that change pages.
class NumberRuns : public PanelTest {
  protected:
    NumberRuns() { takeDefaultOptions(); }
    void begin(const std::map<std::string, std::string>& pages, const Fields& fields) {
        Texts names;
        for (const auto& [name, page] : pages) {
            host.write(name, bytesOf(page));
            names.push_back(name);
        }
        writeNames(names);
        open("renum");
        panel.set("chkRenumBackup", "0");
        for (const auto& [field, value] : fields)
            EXPECT_EQ(panel.set(field, value), PanelAnswer::done) << field;
        host.forget();
    }
    ::testing::AssertionResult becomes(const std::string& name, const std::string& page) const {
        if (host.read(name) == bytesOf(page)) return ::testing::AssertionSuccess();
        std::vector<ItemRow> rows;
        for (int item = 1; item <= musItemTable.itemCount; ++item) rows.push_back(musItemTable[item]);
        return ::testing::AssertionFailure() << "the table: " << textOf(rows) << "\nnot " << page;
    }
    /// One page of this name, and what is said first.
    void expectRun(const std::string& page, const std::string& changed, const Fields& fields,
                   const std::string& said = {}, const std::string& name = "a17.mus") {
        begin({{name, page}}, fields);
        host.answers = {Answer::ok, Answer::ok};
        EXPECT_EQ(panel.press("cmdRenumRun"), PanelAnswer::done);
        EXPECT_TRUE(becomes(name, changed)) << page;
        std::string first = host.messages.empty() ? "" : host.messages.front();
        EXPECT_EQ(first, said) << page;
    }
};

const std::string staves = "8 3 0 0 1 200|8 7 0 0 1 200|8 2 0 0 1 200";

std::string onPage(const std::string& number) { return staves + "|" + number + " 201.1"; }

TEST_F(NumberRuns, APageNumberComesFromTheCountOrTheName) {
    const Fields pages = {{"tabRenum", "pages"}};
    const auto with = [&pages](Fields fields) {
        fields.merge(Fields(pages));
        return fields;
    };
    const std::string old = "|10 4 5 9 3 201.1";
    const std::string others = "|10 4 5 9 3 201.1 1|10 4 5 9 3 201|9 4 5 9 3 201.1";
    expectRun(staves + old + others, staves + others + "|10 7 197 15 1 201.1", with({}));
    const std::string many =
        "Counted more digits in filename [4] than specified by global option [2].\r\nOK assumes "
        "length of global option.";
    const std::string unreal = "Warning. The top/bottom displacement may not be a realistic value.";
    struct Case {
        Fields fields;
        std::string number;
        std::string said = {};
        std::string name = "a17.mus";
    };
    for (const Case& row : std::vector<Case>{
             {{{"txtRenumBeginPage", "10"}}, "10 7 4 15 10"},
             {{{"txtRenumBeginPage", "99"}, {"txtRenumModified", "+1"}}, "10 7 195 15 100"},
             {{{"txtRenumBeginPage", "999"}, {"chkStaff1", "1"}}, "10 2 195 15 999"},
             {{{"optRenumBottom", "1"}, {"txtRenumPageDisplacement", "-7.5"}}, "10 2 197 -7.5 1"},
             {{{"optRenumBottom", "1"}, {"txtRenumPageDisplacement", "7"}}, "10 2 197 7 1", unreal},
             {{{"txtRenumPageDisplacement", "-.5"}}, "10 7 197 -.5 1", unreal},
             {{{"optRenumCenter", "1"}, {"txtRenumHorzCenter", "99.5"}}, "10 7 99.5 15 1"},
             {{{"txtRenumHorzRite", "180"}}, "10 7 180 15 1"},
             {{{"txtRenumHorzLeft", "6"}, {"txtRenumBeginPage", "2"}}, "10 7 6 15 2"},
             {{{"optRenumFromFile", "1"}}, "10 7 196 15 17"},
             {{{"optRenumFromFile", "1"}}, "10 7 197 15 1", "", "a1.b16.mus"},
             {{{"optRenumFromFile", "1"}, {"txtRenumModified", "-16"}}, "10 7 4 15 0", many, "a0116.mus"}})
        expectRun(staves, onPage(row.number), with(row.fields), row.said, row.name);
    expectRun(staves + old, staves, with({{"optRenumFromFile", "1"}}),
              "No numeric part found at right end of filename prefix in file " + upper("suite.mus") +
                  "\r\nNo pagenumber generated.",
              "suite.mus");
    expectRun("1 1 5" + old, "1 1 5", with({}),
              "No staff found in file " + upper("a17.mus") + "\r\nNo page number generated in this file.");
    expectRun(staves + old + old + "|13 1 5", staves, with({{"optRenumPageNone", "1"}}),
              "Found more than one page number in file " + upper("a17.mus") + "\r\n(Cancel will abort TUL)");
}

TEST_F(NumberRuns, CountsOnFromPageToPageAndReports) {
    begin({{"a.mus", staves + "|10 4 5 9 3 201.1"}, {"b.mus", "1 1 5"}, {"c.mus", staves}},
          {{"tabRenum", "pages"}, {"txtRenumBeginPage", "9"}});
    panel.press("cmdRenumPreview");
    EXPECT_EQ(renumbering.lstRenumPreview.entries,
              Texts({"A.MUS         9 at 197, staff 7; 1 removed",
                     "B.MUS         no new number: there is no staff", "C.MUS         10 at 4, staff 7"}));
    panel.press("cmdRenumRun");
    const std::size_t width = upper("a.mus").size();
    const std::string made = padRight("", width) + " page number generated:";
    EXPECT_EQ(
        host.shown,
        Texts({crlf({"TUL Renumber run 11-21-2026 09:05:07", " ", padRight("File", width),
                     std::string(width, '-'), upper("a.mus"), made + " 9", upper("b.mus"), upper("c.mus"),
                     made + " 10", " ", "Total number of page numbers removed . . . 1",
                     "Total number of page numbers generated . . 2", " ", "Number of files processed: 3"})}));
    EXPECT_TRUE(becomes("c.mus", staves + "|10 7 4 15 10 201.1"));
}

TEST_F(NumberRuns, ACancelledQuestionEndsTheProgramBeforeThePage) {
    const std::string two = staves + "|10 4 5 9 3 201.1|10 4 5 9 3 201.1";
    begin({{"a.mus", two}}, {{"tabRenum", "pages"}});
    EXPECT_EQ(endOf([this] { panel.press("cmdRenumRun"); }), 1);
    EXPECT_TRUE(becomes("a.mus", two));
    begin({{"a.mus", two}}, {{"tabRenum", "pages"}, {"txtRenumPageDisplacement", "-3"}});
    panel.press("cmdRenumRun");
    EXPECT_EQ(runResults.back().exitStatus(), ExitStatus::refused);
}

TEST_F(NumberRuns, BarNumbersGoOrTheWorkbenchIsTold) {
    expectRun("10 1 5 9 4 201 1|10 1 5 9 4 201|10 1 5 9 4 201.1 1|14 1 5",
              "10 1 5 9 4 201|10 1 5 9 4 201.1 1|14 1 5", {{"tabRenum", "bars"}, {"optRenumBarNone", "1"}});
    EXPECT_TRUE(contains(host.shown.back(), "Total number of bar numbers removed . . . 1\r\n"));
    expectRun(staves, staves,
              {{"tabRenum", "bars"},
               {"optRenumBarEvery", "1"},
               {"txtRenumBarEvery", "5"},
               {"txtRenumBarVertDispl", "b"},
               {"chkRenumBarContour", "1"},
               {"optBarBox", "1"}},
              "The bar numbering workbench is not part of this version yet, so no bar numbers are "
              "generated.\r\nBar "
              "numbers can be removed: choose that at the top of the tab.");
    const bars::BarSettings& settings = bars::barSettings;
    EXPECT_TRUE(settings.mode == bars::NumberMode::every && settings.every == 5 &&
                settings.vertical == bars::betweenPianoStaves && settings.contour == bars::Contour::box &&
                !settings.backup);
}

TEST_F(NumberRuns, StavesCloseUp) {
    const std::string done = "Number of files processed: 1";
    const std::string passed = "\r\nItems on no staff from 1 to 256, left as they are: A17.MUS (";
    struct Case {
        std::string page;
        std::string changed;
        std::string said = {};
    };
    for (const Case& row : std::vector<Case>{{"8 9 0 4|8 2 0 -3|8 5|1 5 7 1|1 3 7 1|16 9 1 1 0 1'_00a",
                                              "8 3|8 1|8 2|1 2 7 1|16 3 1 1 0 1'_00a"},
                                             {"8 2.5 3 1|1 1.6 7|1 3 7", "8 1 3|1 1 7"},
                                             {"8 256 1|8 257 1 5|1 0 7|1 -1 7|1 256.4 7",
                                              "8 1 1|8 257 1 5|1 0 7|1 -1 7|1 1 7", passed + "3)"}})
        expectRun(row.page, row.changed, {{"tabRenum", "staves"}}, done + row.said);
    expectRun(
        "1 1 5", "1 1 5", {{"tabRenum", "staves"}},
        "Number of files processed: 0\r\nNot done: A17.MUS (it has no staff, and would lose all its items)");
    EXPECT_EQ(runResults.back().exitStatus(), ExitStatus::notAllDone);
    begin({{"a17.mus", "8 3|1 3 5 9=7|8 300 9=4|8 2 9=8|8 1 9=8"}}, {});
    panel.press("cmdRenumberParts");
    EXPECT_TRUE(becomes("a17.mus", "8 3 9=3|1 3 5 9=7|8 300 9=4|8 2 9=2|8 1 9=1"));
    EXPECT_EQ(host.messages.back(), done + passed + "1)");
}

TEST_F(NumberRuns, FieldsKeepWhatFits) {
    open("renum");
    const Texts noPage = {"Invalid first page number. Assumed 1."};
    expectKept(keepBeginPage, {{"1", "1"}, {" 17 ", "17"}, {"999", "999"}});
    expectKept(keepBeginPage,
               {{"0", "1"}, {"-4", "1"}, {"1000", "1"}, {"99999999999999999999", "1"}, {"x", "1"}}, noPage);
    expectKept(keepCenter, {{"0", "0"}, {"200", "200"}, {"99.25", "99.25"}});
    expectKept(keepCenter, {{"200.1", "100"}, {"-1", "100"}},
               {"Value less than 0 or higher than 200. Assumed 100."});
    expectKept(keepLeft, {{"200", "200"}});
    expectKept(keepRight, {{"hs", "HS"}, {"HS", "HS"}, {"4", "4"}});
    expectKept(keepRight, {{"3.9", "3.9"}}, {"Warning. Left position higher than right position."});
    pageOptions.txtRenumHorzRite = "50";
    expectKept(keepLeft, {{"51", "51"}}, {"Warning. Left position higher than right position."});
    expectKept(keepStep, {{"1", "1"}, {"32", "32"}});
    expectKept(keepStep, {{"0", "10"}, {"0.99", "10"}, {"x", "10"}, {"", "10"}, {"-5", "10"}},
               {"Invalid step number. Assumed 10."});
    const auto start = [](const std::string& typed) { return keepStart(typed, "7"); };
    expectKept(start, {{"0", "0"}, {"999", "999"}});
    expectKept(start, {{"1000", "7"}}, {"Input exceeding 999 discarded."});
    expectKept(start, {{"-1", "7"}}, {"Negative input discarded."});
    expectKept(start, {{"a", "7"}, {"", "7"}}, {"Non-numeric input discarded."});
    const auto vertical = [](const std::string& typed) { return keepVertical(typed, "12"); };
    expectKept(vertical, {{"B", "B"}, {"-5.5", "-5.5"}});
    expectKept(vertical, {{"up", "12"}}, {"This does not seem to be a valid vertical displacement..."});
}

}  // namespace
}  // namespace tul::renumber
