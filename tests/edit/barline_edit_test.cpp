#include <array>
#include <random>
#include <set>

#include "centre/names_file.h"
#include "edit/barline_checks.h"
#include "edit/barline_overlaps.h"
#include "edit/barline_reports.h"
#include "edit/barline_update.h"
#include "edit/edit_run.h"
#include "music/bar_file.h"
#include "music/items.h"
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
        if (const Parameters& bar = parsOf(item); isBarline(bar))
            text += plain(bar[2]) + "@" + plain(bar[3]) + " " + plain(bar[4]) + "/" + plain(bar[5]) + ", ";
    return text;
}

class BarlineEdit : public PanelTest {
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
    /// The table as a page in the selection.
    void select() {
        std::string items;
        for (int item = 1; item <= musItemTable.itemCount; ++item)
            for (int par = 0; par <= 9; ++par) items += words({par == 0 ? 9 : parsOf(item)[par]});
        host.write("a.mus", pageOf(items));
        writeNames({"a.mus"});
        ReadNamesFile();
    }
    /// The report of a button that leaves the page alone.
    std::string reportOf(void (*button)()) {
        const auto writtenAt = [this] { return fs::last_write_time(host.nativeFolder() / "a.mus"); };
        const auto before = writtenAt();
        button();
        EXPECT_TRUE(writtenAt() == before && !host.exists("A.BKU") && !host.exists("TULEDIT.PRN"));
        return host.shown.back();
    }
};

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
    for (const float staff : {1.0F, 1e9F}) addStaff(staff, 2);
    for (const float staff : {1.0F, 1e9F}) addBarline(staff, 20);
    update();
    EXPECT_EQ(barlines(), "1@20 2/0, ");
}

TEST_F(BarlineEdit, StopsWhereTheControllingInstrumentIsMissing) {
    EXPECT_EQ(update(), "No staves in this file\r\n");
    addStaff(2, 3);
    EXPECT_EQ(update(), "Control instrument 2 not in this file\r\n");
    for (const float staff : {3.0F, 0.8F, 1.0F, 4.0F}) addStaff(staff, staff == 1 ? 3.0F : 2.0F);
    for (const float staff : {3.0F, 4.0F}) addBarline(staff, 20, 1);
    barlineUpdate.chkEditBarSystemBarlines = true;
    EXPECT_EQ(update(), lines(" Instrument 1 not found on this page|"
                              "Lowest staff is not the controlling instrument staff"));
    EXPECT_EQ(barlines(), "3@20 2/0, 4@20 1/0, ");
}

TEST_F(BarlineEdit, SetsSystemBarlines) {
    barlineUpdate.chkEditBarSystemBarlines = true;
    barlineUpdate.targets[1] = {};
    for (const float staff : {1.0F, 5.5F, 3.0F}) addStaff(staff, 2, 10);
    for (const float position : {10.0F, 9.95F, 10.1F}) addBarline(1, position);
    for (const float form : {0.0F, 1.0F}) addBarline(3, 10, 1, form);
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
    onlyItem({8, 1, 0, 0, 0, 0, 0, 0, 2});
    addStaff(2, 1);
    while (musItemTable.itemCount <= 1000) addBarline(1, 20);
    EXPECT_EQ(host.fatal([&] { update(); }), "MUS file too big for operation. Hit OK to terminate.");
}

TEST_F(BarlineEdit, FieldsAreCheckedAndTheFirstRowStaysTheControllingInstrument) {
    expectKept(keepBarInstrument, {{" 21.5 ", "22"}, {"0", ""}, {"", ""}, {"-.4", ""}, {"9999.4", "9999"}});
    expectKept(keepBarInstrument, {{"-1", "9999"}, {"10000", "9999"}}, {"Value not in range. Assumed 9999."});
    expectKept(keepBarStavesUp, {{"33", "1"}, {"-1", "1"}}, {"Value not in range. Assumed 1."});
    EXPECT_TRUE(barlineUpdateFamily.mayRun());
    barlineUpdate.targets[5] = {"1", "3"};
    EXPECT_FALSE(barlineUpdateFamily.mayRun());
    EXPECT_EQ(host.messages.back(), "Duplicate instrument definition(s).");
    open("edit");
    panel.set("txtEditBarInstr1", "21");
    EXPECT_EQ(shown("txtEditBarInstr_2"), "21");
    panel.set("txtEditBarInstr_2", "4");
    EXPECT_EQ(shown("txtEditBarInstr1"), "4");
}

TEST_F(BarlineEdit, VerifiesWithoutChangingAnything) {
    for (const float staff : {1.0F, 2.0F, 3.0F}) addStaff(staff, staff);
    addBarline(1, 0, 2);  // of the system
    addBarline(1, 50, 2);
    addBarline(1, 50.4F, 1);  // the same again
    addBarline(1, 80);        // does not go as far
    addBarline(2, 50, 2);     // over the first, and beyond the top
    addBarline(32, 60, 4, 2);
    addBarline(1, 90, 2, 9);
    select();
    const std::string findings =
        "|     Duplicate barline at staff 1 Horizontal position= 50.4 |"
        "     No barline(s) on bottom staff of system. Staff= 3 |"
        "     Barline protruding staff 32. Staff= 32 Horizontal position= 60 Staves Up= 4 |"
        "     Barlines overlap at staff 2 Horizontal position= 50 |"
        "     Barline protruding highest staff. Horizontal position= 60 |"
        "     Barline configuration error on system with bottom staff 1 Horizontal position= 50 and 80 |"
        " | Number of errors:  6 ";
    EXPECT_TRUE(contains(reportOf(cmdEditBarVerify), lines(upper("a.mus") + findings)));
    host.write("a.mus", pageOf(words({9, 8, 1, 0, 0, 0, 0, 0, 0, 1, 1})));
    EXPECT_TRUE(reportOf(cmdEditBarVerify).ends_with("Not done: A.MUS (read only in part)\r\n"));
    EXPECT_EQ(runResults.back().exitStatus(), ExitStatus::damaged);
}

TEST_F(BarlineEdit, ABarlineCoversStavesFromTheOneThatItsOwnRoundsTo) {
    for (const float staff : {1.0F, 2.0F, 2.5F, 3.0F, 4.0F, 4.4F}) addStaff(staff, 1);
    addBarline(1.5F, 50, 2);
    EXPECT_EQ(written(VerifyBarlines), lines("     Staff which is not bottom of system has no barlines: 1 |"
                                             "     Staff which is not bottom of system has no barlines: 4 "));
}

TEST_F(BarlineEdit, FindsDuplicatesAsAComparisonOfAllWithAllDoes) {
    std::mt19937 random(13);
    const std::array odd = {notANumber, infinity, -infinity};
    const auto below = [&](unsigned end) {
        return random() % 9 == 0 ? odd[random() % 3] : static_cast<float>(random() % end);
    };
    for (int page = 0; page < 200; ++page) {
        musItemTable.itemCount = 0;
        while (musItemTable.itemCount < 30)  // on staves without findings of another kind
            addBarline(40 + below(2), below(40) / 8, 1, below(2));
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
        EXPECT_EQ(written(VerifyBarlines), expected);
    }
}

TEST_F(BarlineEdit, DiscoversTheFirstPage) {
    addStaff(1, 0, 10.5F);
    addStaff(12, 3, -0.5F);
    addStaff(33, 3);
    for (const float position : {10.2F, 100.9F, 7.5F})
        addBarline(1, position, position > 100 ? 0.0F : 2.5F, 2);
    for (const float position : {0.7F, -1.2F}) addBarline(12, position, -3);
    select();
    EXPECT_TRUE(contains(reportOf(cmdDiscover),
                         lines(" |Staff 12  Instr = 3|                     -1 /0(-3)  |"
                               "Staff 1   |                     100/2(1)  7  /2(2.5)  | end of report ")));
}

TEST_F(BarlineEdit, RemovesBarlinesWithinOthersOfTheirForm) {
    addBarline(2, 20, 0);     // would be in the next: the first of a pair stays
    addBarline(1, 20.4F, 3);  // holds the next two
    addBarline(1, 20.1F, 2);
    addBarline(2, 20, 1);        // in all three: counted with each
    addBarline(2, 20, 1, 1);     // of another form
    addBarline(2, 20, 3);        // beyond it
    addBarline(2, 20.9F, 1);     // elsewhere: as far as 0.5 from the second
    addBarline(notANumber, 20);  // on no staff
    select();
    cmdRemoveOverlaps();
    EXPECT_TRUE(contains(host.shown.back(), std::string(64, ' ') + "Overlapping barlines removed: 4\r\n"));
    EXPECT_EQ(barlines(), "2@20 0/0, 1@20.4 3/0, 2@20 1/1, 2@20 3/0, 2@20.9 1/0, NAN@20 1/0, ");
}

}  // namespace
}  // namespace tul::edit
