#include <cmath>
#include <random>

#include "base/numbers.h"
#include "centre/names_file.h"
#include "edit/barline_checks.h"
#include "edit/barline_overlaps.h"
#include "edit/barline_reports.h"
#include "edit/barline_update.h"
#include "edit/edit_run.h"
#include "support/test.h"

namespace tul::edit {
namespace {

void addStaff(float staff, float instrument, float left = 0) {
    addItem({8, staff, left, 0, 0, 0, 0, 0, instrument});
}
void addBarline(float staff, float position, float up = 1, float form = 0) {
    addItem({14, staff, position, up, form});
}

/// Barlines of the table: staff@position up/form.
std::string barlines() {
    std::string text;
    for (int item = 1; item <= musItemTable.itemCount; ++item)
        if (const Parameters& pars = musItemTable[item].pars; pars[1] == 14)
            text +=
                plain(pars[2]) + "@" + plain(pars[3]) + " " + plain(pars[4]) + "/" + plain(pars[5]) + ", ";
    return text;
}

class BarlineEdit : public HostTest {
  protected:
    BarlineEdit() {
        cmdDuoB();
        barlineUpdate.targets[1] = {"1", "1"};
    }
    std::string written(const std::function<void(Report&)>& write) {
        Report report(host.path("REPORT.PRN"));
        write(report);
        EXPECT_TRUE(report.close());
        return host.read("REPORT.PRN");
    }
    /// Changes the table; the report.
    std::string update() {
        pipeline.page = {};
        return written([](Report& report) {
            barlineUpdateFamily.begin()->updateFile({1, pipeline.page, report});
        });
    }
    /// A page of the table in the selection.
    void select(const std::string& name) {
        std::string items;
        for (int item = 1; item <= musItemTable.itemCount; ++item) {
            items += words({9});
            for (int par = 1; par <= 9; ++par) items += words({musItemTable[item].pars[par]});
        }
        host.write(name, pageOf(items));
        writeNames({name});
        ReadNamesFile();
    }
    /// The report of a button that leaves the page alone.
    std::string reportOf(void (*button)()) {
        const std::string bytes = host.read("a.mus");
        const fs::path path = host.nativeFolder() / "a.mus";
        const auto time = fs::last_write_time(path);
        host.forget();
        button();
        EXPECT_EQ(host.read("a.mus"), bytes);
        EXPECT_EQ(fs::last_write_time(path), time);
        EXPECT_FALSE(host.exists("A.BKU") || host.exists("TULEDIT.PRN"));
        return host.shown.empty() ? "" : host.shown.front();
    }
};

// --- Update

TEST_F(BarlineEdit, CopiesFromEachControllingStaffUpToTheNext) {
    for (const float staff : {3.0F, 4.0F, 1.0F, 2.0F})
        addStaff(staff, staff == 1 || staff == 3 ? 2.0F : 1.0F);
    for (const float form : {2.0F, 9.0F}) addBarline(1, 50, 7, form);
    for (const float staff : {2.0F, 3.0F, 4.0F, 4.6F}) addBarline(staff, 20, 1, staff == 2 ? 9.0F : 0.0F);
    barlineUpdate.targets[3] = {"77", "5"};
    EXPECT_EQ(update(), " Instrument 77 not found on this page\r\n");
    EXPECT_EQ(barlines(), "1@50 2/2, 1@50 7/9, 3@20 2/0, 4.6@20 1/0, 4@20 1/0, 2@50 1/2, ");
    EXPECT_EQ(pipeline.page.changes, 6);
    barlineUpdate.targets[3] = {};
    barlineUpdate.chkEditBarAcc = true;
    EXPECT_EQ(update(), "");
    EXPECT_TRUE(barlines().ends_with("4@20 1/0, 2@50 1/2, 2@50 1/9, ")) << barlines();
    // A span that is copied twice loses what was appended the first time.
    addStaff(1, 2);
    update();
    EXPECT_EQ(pipeline.page.changes, 3 + 6 + 6) << barlines();
    // This number is so high that the staff below it is itself.
    musItemTable.itemCount = 0;
    addStaff(1, 2);
    addStaff(1e9F, 2);
    for (const float staff : {1.0F, 1e9F}) addBarline(staff, 20);
    update();
    EXPECT_EQ(barlines(), "1@20 2/0, ");
}

TEST_F(BarlineEdit, StopsWhereTheControllingInstrumentIsMissing) {
    EXPECT_EQ(update(), "No staves in this file\r\n");
    addStaff(2, 3);
    EXPECT_EQ(update(), "Control instrument 2 not in this file\r\n");
    addStaff(3, 2);
    addStaff(0.8F, 2);
    addStaff(1, 3);
    addStaff(4, 2);
    for (const float staff : {3.0F, 4.0F}) addBarline(staff, 20, 1);
    barlineUpdate.chkEditBarSystemBarlines = true;
    EXPECT_EQ(update(), lines(" Instrument 1 not found on this page|"
                              "Lowest staff is not the controlling instrument staff"));
    EXPECT_EQ(barlines(), "3@20 2/0, 4@20 1/0, ");
}

TEST_F(BarlineEdit, SetsSystemBarlines) {
    barlineUpdate.chkEditBarSystemBarlines = true;
    barlineUpdate.targets = {};
    barlineUpdate.targets[0] = {"2", "2"};
    for (const float staff : {1.0F, 5.5F, 3.0F}) addStaff(staff, 2, 10);
    for (const float position : {10.0F, 9.95F, 10.1F}) addBarline(1, position);
    addBarline(3, 10);
    addBarline(3, 10, 2, 1);
    EXPECT_EQ(update(), "Removed more than one system barline prior to generating a new one on staff 1\r\n");
    // The staff that comes first, not the nearest; above the last span there is none; 4.5 less 3, and 1.
    EXPECT_EQ(barlines(), "1@10.1 2/0, 3@10 2/1, 1@10 4.5/0, 5.5@10 0/0, 3@10 2.5/0, ");
}

TEST_F(BarlineEdit, NumbersThatAreNoneBelongToNoStaff) {
    barlineUpdate.chkEditBarSystemBarlines = true;
    for (const float staff : {notANumber, infinity, 1.0F})
        for (const float instrument : {notANumber, 1.0F, 2.0F}) addStaff(staff, instrument, staff);
    for (const float staff : {-infinity, -40000.0F}) addStaff(staff, 2, staff);
    for (const float value : {notANumber, infinity, 1.0F}) addBarline(value, value, value, value);
    EXPECT_EQ(update(), " Instrument 1 not found on this page\r\n");
    EXPECT_EQ(barlines(),
              "NAN@NAN NAN/NAN, 1@1 2/1, INF@1 1/1, NAN@NAN NAN/0, INF@INF -INF/0, 1@1 INF/0, "
              "-INF@-INF INF/0, -40000@-40000 INF/0, ");
    musItemTable.itemCount = 0;
    addStaff(1, 2);
    addStaff(2, 1);
    for (int item = 3; item <= 1001; ++item) addBarline(1, 20);
    addStaff(3, 2);
    EXPECT_EQ(host.fatal([&] { update(); }), "MUS file too big for operation. Hit OK to terminate.");
}

TEST_F(BarlineEdit, FieldsAreKeptAndChecked) {
    expectKept(keepBarInstrument, {{" 21.5 ", "22"}, {"0", ""}, {"", ""}, {"-.4", ""}, {"9999.4", "9999"}});
    expectKept(keepBarInstrument, {{"-1", "9999"}, {"10000", "9999"}}, {"Value not in range. Assumed 9999."});
    expectKept(keepBarStavesUp, {{"32", "32"}, {"0", ""}});
    expectKept(keepBarStavesUp, {{"33", "1"}, {"-1", "1"}}, {"Value not in range. Assumed 1."});

    const auto refusal = [&] {
        host.messages.clear();
        const bool runs = barlineUpdateFamily.mayRun();
        EXPECT_EQ(runs, host.messages.empty());
        return host.messages.empty() ? "" : host.messages.front();
    };
    EXPECT_EQ(refusal(), "");
    barlineUpdate.targets[5] = {"1", "3"};
    EXPECT_EQ(refusal(), "Duplicate instrument definition(s).");
    barlineUpdate.targets[5].stavesUp = "";
    EXPECT_EQ(refusal(), "No up value defined for instrument(s).");
    barlineUpdate.targets[4].stavesUp = "2";
    EXPECT_EQ(refusal(), "Up value defined for undefined instrument(s).");
    barlineUpdate.targets = {};
    EXPECT_EQ(refusal(), "No target barline instruments specified.");
    barlineUpdate.txtEditBarInstr1 = "";
    EXPECT_EQ(refusal(), "Controlling instrument must be specified.");
}

using BarlinePanel = PanelTest;

TEST_F(BarlinePanel, TheFirstRowStaysTheControllingInstrument) {
    open("edit");
    panel.set("txtEditBarInstr1", "21");
    EXPECT_EQ(shown("txtEditBarInstr_2"), "21");
    panel.set("txtEditBarInstr_2", "4");
    EXPECT_EQ(shown("txtEditBarInstr1"), "4");
}

// --- Reports

TEST_F(BarlineEdit, VerifiesWithoutChangingAnything) {
    addStaff(1, 1);
    addBarline(1, 0, 2);  // of the system
    addBarline(1, 50, 2);
    addBarline(1, 50.4F, 1);  // the same again
    addBarline(1, 80);        // does not go as far
    addStaff(2, 2);
    addBarline(2, 50, 2);  // over the first, and beyond the top
    addStaff(3, 3);        // without
    addBarline(31, 60, 4, 2);
    addBarline(1, 90, 2, 9);
    select("a.mus");
    const std::string report = reportOf(cmdEditBarVerify);
    const std::string head = "Barline verification report 11-21-2026 09:05:07| |File" +
                             std::string(upper("a.mus").size() - 4, ' ') + "|" +
                             std::string(upper("a.mus").size(), '-') + "|" + upper("a.mus") + "|";
    EXPECT_EQ(
        report,
        lines(head + "     Duplicate barline at staff 1 Horizontal position= 50.4 |"
                     "     No barline(s) on bottom staff of system. Staff= 3 |"
                     "     Barline protruding staff 32. Staff= 31 Horizontal position= 60 Staves Up= 4 |"
                     "     Barlines overlap at staff 2 Horizontal position= 50 |"
                     "     Barline protruding highest staff. Horizontal position= 60 |"
                     "     Barline protruding highest staff. Horizontal position= 60 |"
                     "     Barline configuration error on system with bottom staff 1 Horizontal "
                     "position= 50 and 80 |"
                     " | Number of errors:  7 "));
    EXPECT_EQ(runResults.back().exitStatus(), ExitStatus::done);
    host.write("a.mus", pageOf(words({9, 8, 1, 0, 0, 0, 0, 0, 0, 1, 1})));
    EXPECT_TRUE(reportOf(cmdEditBarVerify).ends_with("Not done: A.MUS (read only in part)\r\n"));
    EXPECT_EQ(runResults.back().exitStatus(), ExitStatus::damaged);
}

TEST_F(BarlineEdit, FindsDuplicatesAsAComparisonOfAllWithAllDoes) {
    std::mt19937 random(13);
    for (int page = 0; page < 200; ++page) {
        musItemTable.itemCount = 0;
        std::vector<std::pair<float, float>> rows;  // on staves without findings of another kind
        for (int i = 0; i < 30; ++i) {
            rows.emplace_back(random() % 9 == 0 ? notANumber : static_cast<float>(random() % 2 + 40),
                              random() % 9 == 0 ? notANumber : static_cast<float>(random() % 40) / 8);
            addBarline(rows.back().first, rows.back().second);
        }
        std::string expected;
        for (std::size_t a = rows.size(); a-- > 0;)
            for (std::size_t b = a + 1; b < rows.size(); ++b) {
                auto& [staff, position] = rows[b];
                if (staff != rows[a].first || !(std::fabs(rows[a].second - position) < 0.5F)) continue;
                expected += "     Duplicate barline at staff" + printed(staff) +
                            "Horizontal position=" + printed(position) + "\r\n";
                staff = notANumber;
            }
        EXPECT_EQ(written(VerifyBarlines), expected);
    }
}

TEST_F(BarlineEdit, DiscoversTheFirstPage) {
    addStaff(1, 0, 10.5F);
    addStaff(12, 3, -0.5F);
    for (const float position : {10.2F, 100.9F, 7.5F})
        addBarline(1, position, position > 100 ? 0.0F : 2.5F, 2);
    for (const float position : {0.7F, -1.2F}) addBarline(12, position, -3);
    addStaff(33, 3);
    select("a.mus");
    const std::string report = reportOf(cmdDiscover);
    EXPECT_TRUE(report.starts_with("Barline discovery report 11-21-2026 09:05:07  File: " + upper("a.mus") +
                                   "\r\n \r\nSystem barlines are not shown. "));
    EXPECT_TRUE(
        report.ends_with(lines("graphical representation.| |Staff 12  Instr = 3|                     "
                               "-1 /0(-3)  |Staff 1   |                     100/2(1)  7  /2(2.5)  | "
                               "end of report ")))
        << report;
}

// --- Overlaps

TEST_F(BarlineEdit, RemovesBarlinesWithinOthersOfTheirForm) {
    addBarline(2, 20, 0);        // would be in the next: the first of a pair stays
    addBarline(1, 20.4F, 3);     // holds all that are named
    addBarline(1, 20.1F, 2);     // in it
    addBarline(2, 20, 1);        // in all three: counted with each
    addBarline(2, 20, 1, 1);     // of another form
    addBarline(2, 20, 3);        // beyond it
    addBarline(2, 20.9F, 1);     // elsewhere: as far as 0.5 from the second
    addBarline(notANumber, 20);  // on no staff
    select("a.mus");
    editing.chkEditBackup = false;
    cmdRemoveOverlaps();
    EXPECT_TRUE(
        contains(host.shown.back(), "TUL Edit run (Removing smaller overlapping barlines) 11-21-2026"));
    EXPECT_TRUE(contains(host.shown.back(), upper("a.mus") + "\r\n" + std::string(64, ' ') +
                                                "Overlapping barlines removed: 4\r\n \r\n \r\nNumber of"));
    EXPECT_EQ(barlines(), "2@20 0/0, 1@20.4 3/0, 2@20 1/1, 2@20 3/0, 2@20.9 1/0, NAN@20 1/0, ");
}

}  // namespace
}  // namespace tul::edit
