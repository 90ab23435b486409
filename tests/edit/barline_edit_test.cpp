#include <array>
#include <random>
#include <set>

#include "edit/barline_checks.h"
#include "edit/barline_update.h"
#include "music/bar_file.h"
#include "support/edit_test.h"

namespace tul::edit {
namespace {

class BarlineEdit : public EditTest {
  protected:
    BarlineEdit() {
        cmdDuoB();
        barlineUpdate.targets[1] = {"1", "1"};
    }
    std::string update(const std::string& page) { return reportOn(page, barlineUpdateFamily); }
    static void expectBarlines(const std::string& barlines) {
        std::vector<ItemRow> rows;
        for (int item = 1; item <= musItemTable.itemCount; ++item)
            if (isBarline(musItemTable[item])) rows.push_back(musItemTable[item]);
        EXPECT_EQ(textOf(rows), textOf(itemsOf(barlines)));
    }
    std::string findings() {
        Report report(host.path("REPORT.PRN"));
        VerifyBarlines(report);
        EXPECT_TRUE(report.close());
        return host.read("REPORT.PRN");
    }
    /// The report of a button that leaves the page alone.
    std::string lookAt(const std::string& page, const char* button) {
        select(page);
        panel.set("chkEditBackup", "1");
        const fs::path path = host.nativeFolder() / "page.mus";
        const auto time = fs::last_write_time(path);
        panel.press(button);
        EXPECT_EQ(fs::last_write_time(path), time);
        EXPECT_FALSE(host.exists("PAGE.BKU") || host.exists("TULEDIT.PRN"));
        return host.shown.back();
    }
};

// --- Update

TEST_F(BarlineEdit, CopiesFromEachControllingStaffUpToTheNext) {
    barlineUpdate.targets[3] = {"77", "5"};
    EXPECT_EQ(
        update("8 3 9=2|8 4 9=1|8 1 9=2|8 2 9=1|14 1 50 7 2|14 1 50 7 9|14 2 20 1 9|14 3 20 1|14 4 20 1|"
               "14 4.6 20 1"),
        " Instrument 77 not found on this page\r\n");
    expectBarlines("14 1 50 2 2|14 1 50 7 9|14 3 20 2|14 4.6 20 1|14 4 20 1|14 2 50 1 2");
    EXPECT_EQ(changes(), 6);
    barlineUpdate.targets[3] = {};
    barlineUpdate.chkEditBarAcc = true;
    EXPECT_EQ(reportOf(barlineUpdateFamily), "");
    expectBarlines("14 1 50 2 2|14 1 50 2 9|14 3 20 2|14 4.6 20 1|14 4 20 1|14 2 50 1 2|14 2 50 1 9");
    // A span that is copied twice loses what was appended the first time.
    addItem({8, 1, 0, 0, 0, 0, 0, 0, 2});
    reportOf(barlineUpdateFamily);
    EXPECT_EQ(changes(), 3 + 6 + 6);
    // This number is so high that the staff below it is itself.
    update("8 1 9=2|8 1e9 9=2|14 1 20 1|14 1e9 20 1");
    expectBarlines("14 1 20 2");
}

TEST_F(BarlineEdit, StopsWhereTheControllingInstrumentIsMissing) {
    EXPECT_EQ(update(""), "No staves in this file\r\n");
    EXPECT_EQ(update("8 2 9=3"), "Control instrument 2 not in this file\r\n");
    barlineUpdate.chkEditBarSystemBarlines = true;
    EXPECT_EQ(update("8 2 9=3|8 3 9=2|8 .8 9=2|8 1 9=3|8 4 9=2|14 3 20 1|14 4 20 1"),
              lines(" Instrument 1 not found on this page|"
                    "Lowest staff is not the controlling instrument staff"));
    expectBarlines("14 3 20 2|14 4 20 1");
}

TEST_F(BarlineEdit, SetsSystemBarlines) {
    barlineUpdate.chkEditBarSystemBarlines = true;
    barlineUpdate.targets = {};
    barlineUpdate.targets[0] = {"2", "2"};
    EXPECT_EQ(update("8 1 10 9=2|8 5.5 10 9=2|8 3 10 9=2|14 1 10 1|14 1 9.95 1|14 1 10.1 1|14 3 10 1|"
                     "14 3 10 2 1"),
              "Removed more than one system barline prior to generating a new one on staff 1\r\n");
    // The staff that comes first, not the nearest; above the last span there is none; 4.5 less 3, and 1.
    expectBarlines("14 1 10.1 2|14 3 10 2 1|14 1 10 4.5|14 5.5 10|14 3 10 2.5");
}

TEST_F(BarlineEdit, NumbersThatAreNoneBelongToNoStaff) {
    barlineUpdate.chkEditBarSystemBarlines = true;
    EXPECT_EQ(update("8 NAN NAN 9=NAN|8 NAN NAN 9=1|8 NAN NAN 9=2|8 INF INF 9=NAN|8 INF INF 9=1|"
                     "8 INF INF 9=2|8 1 1 9=NAN|8 1 1 9=1|8 1 1 9=2|8 -INF -INF 9=2|8 -40000 -40000 9=2|"
                     "14 NAN NAN NAN NAN|14 INF INF INF INF|14 1 1 1 1"),
              " Instrument 1 not found on this page\r\n");
    expectBarlines(
        "14 NAN NAN NAN NAN|14 1 1 2 1|14 INF 1 1 1|14 NAN NAN NAN|14 INF INF -INF|14 1 1 INF|"
        "14 -INF -INF INF|14 -40000 -40000 INF");
    std::string full = "8 1 9=2|8 2 9=1|8 3 9=2";
    for (int item = 4; item <= 1002; ++item) full += "|14 1 20 1";
    EXPECT_EQ(host.fatal([&] { update(full); }), "MUS file too big for operation. Hit OK to terminate.");
}

TEST_F(BarlineEdit, FieldsAreKeptAndChecked) {
    expectKept(keepBarInstrument, {{" 21.5 ", "22"}, {"0", ""}, {"", ""}, {"-.4", ""}, {"9999.4", "9999"}});
    expectKept(keepBarInstrument, {{"-1", "9999"}, {"10000", "9999"}}, {"Value not in range. Assumed 9999."});
    expectKept(keepBarStavesUp, {{"33", "1"}, {"-1", "1"}}, {"Value not in range. Assumed 1."});

    barlineUpdate.targets[5] = {"1", "3"};
    EXPECT_EQ(refusal(tabBarline), Texts{"Duplicate instrument definition(s)."});
    barlineUpdate.targets[5].stavesUp = "";
    EXPECT_EQ(refusal(tabBarline), Texts{"No up value defined for instrument(s)."});
    barlineUpdate.targets[4].stavesUp = "2";
    EXPECT_EQ(refusal(tabBarline), Texts{"Up value defined for undefined instrument(s)."});
    barlineUpdate.targets = {};
    EXPECT_EQ(refusal(tabBarline), Texts{"No target barline instruments specified."});
    barlineUpdate.txtEditBarInstr1 = "";
    EXPECT_EQ(refusal(tabBarline), Texts{"Controlling instrument must be specified."});
    // The first row stays the controlling instrument.
    open("edit");
    panel.set("txtEditBarInstr1", "21");
    EXPECT_EQ(shown("txtEditBarInstr_2"), "21");
    panel.set("txtEditBarInstr_2", "4");
    EXPECT_EQ(shown("txtEditBarInstr1"), "4");
}

// --- Reports

TEST_F(BarlineEdit, VerifiesWithoutChangingAnything) {
    const std::string file = upper("page.mus");
    EXPECT_EQ(lookAt("8 1 9=1|14 1 0 2|14 1 50 2|14 1 50.4 1|14 1 80 1|8 2 9=2|14 2 50 2|8 3 9=3|"
                     "14 32 60 4 2|14 1 90 2 9",
                     "cmdEditBarVerify"),
              lines("Barline verification report 11-21-2026 09:05:07| |" + padRight("File", file.size()) +
                    "|" + std::string(file.size(), '-') + "|" + file +
                    "|     Duplicate barline at staff 1 Horizontal position= 50.4 |"
                    "     No barline(s) on bottom staff of system. Staff= 3 |"
                    "     Barline protruding staff 32. Staff= 32 Horizontal position= 60 Staves Up= 4 |"
                    "     Barlines overlap at staff 2 Horizontal position= 50 |"
                    "     Barline protruding highest staff. Horizontal position= 60 |"
                    "     Barline configuration error on system with bottom staff 1 Horizontal "
                    "position= 50 and 80 |"
                    " | Number of errors:  6 "));
    EXPECT_EQ(runResults.back().exitStatus(), ExitStatus::done);
    host.write("page.mus", pageOf(words({9, 8, 1, 0, 0, 0, 0, 0, 0, 1, 1})));
    panel.press("cmdEditBarVerify");
    EXPECT_TRUE(host.shown.back().ends_with("Not done: PAGE.MUS (read only in part)\r\n"));
    EXPECT_EQ(runResults.back().exitStatus(), ExitStatus::damaged);
}

TEST_F(BarlineEdit, ABarlineCoversStavesFromTheOneThatItsOwnRoundsTo) {
    fill("8 1|8 2|8 2.5|8 3|8 4|8 4.4|14 1.5 50 2");
    EXPECT_EQ(findings(), lines("     Staff which is not bottom of system has no barlines: 1 |"
                                "     Staff which is not bottom of system has no barlines: 4 "));
}

TEST_F(BarlineEdit, FindsDuplicatesAsAComparisonOfAllWithAllDoes) {
    std::mt19937 random(13);
    const std::array odd = {notANumber, infinity, -infinity};
    const auto anyOf = [&](unsigned count) {
        return random() % 9 == 0 ? odd[random() % 3] : static_cast<float>(random() % count);
    };
    for (int page = 0; page < 200; ++page) {
        musItemTable.itemCount = 0;
        while (musItemTable.itemCount < 30)  // on staves without findings of another kind
            addItem({14, 40 + anyOf(2), anyOf(40) / 8, 1, anyOf(2)});
        if (page % 2 == 0) SortItemTable();
        std::string expected;
        std::set<int> told;
        for (int a = 30; a >= 1; --a)
            for (int b = a + 1; b <= 30; ++b) {
                const Parameters& pars = parsOf(b);
                if (!told.contains(a) && samePlace(parsOf(a), pars, lessThan(0.5F)) &&
                    parsOf(a)[5] == pars[5] && told.insert(b).second)
                    expected += "     Duplicate barline at staff" + printed(pars[2]) +
                                "Horizontal position=" + printed(pars[3]) + "\r\n";
            }
        EXPECT_EQ(findings(), expected);
    }
}

TEST_F(BarlineEdit, DiscoversTheFirstPage) {
    const std::string report = lookAt(
        "8 1 10.5|8 12 -.5 9=3|14 1 10.2 2.5 2|14 1 100.9 0 2|14 1 7.5 2.5 2|14 12 .7 -3|14 12 -1.2 -3|"
        "8 33 9=3",
        "cmdDiscover");
    EXPECT_TRUE(report.starts_with("Barline discovery report 11-21-2026 09:05:07  File: " +
                                   upper("page.mus") + "\r\n \r\nSystem barlines are not shown. "));
    EXPECT_TRUE(
        report.ends_with(lines("graphical representation.| |Staff 12  Instr = 3|                     "
                               "-1 /0(-3)  |Staff 1   |                     100/2(1)  7  /2(2.5)  | "
                               "end of report ")))
        << report;
}

// --- Overlaps

TEST_F(BarlineEdit, RemovesBarlinesWithinOthersOfTheirForm) {
    const std::string others =
        "14 2 20 1 1|"  // of another form
        "14 2 20 3|"    // beyond it
        "14 2 20.9 1|"  // elsewhere: as far as 0.5 from the second
        "14 NAN 20 1";  // on no staff
    expectPressed("cmdRemoveOverlaps",
                  "14 2 20|"      // would be in the next: the first of a pair stays
                  "14 1 20.4 3|"  // holds all that are named
                  "14 1 20.1 2|"  // in it
                  "14 2 20 1|" +  // in all three: counted with each
                      others,
                  "14 2 20|14 1 20.4 3|" + others, "");
    const std::string& report = host.shown.back();
    EXPECT_TRUE(contains(report, "TUL Edit run (Removing smaller overlapping barlines) 11-21-2026"));
    EXPECT_TRUE(contains(report, upper("page.mus") + "\r\n" + std::string(64, ' ') +
                                     "Overlapping barlines removed: 4\r\n \r\n \r\nNumber of"));
}

}  // namespace
}  // namespace tul::edit
