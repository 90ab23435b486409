#include "edit/left_hand_fingers.h"
#include "support/edit_test.h"

namespace tul::edit {
namespace {

class SpecialEdit : public EditTest {
  protected:
    std::string remove(const std::string& file, const std::string& item) {
        panel.set("txtDeleteItemFile", file);
        panel.set("txtDeleteSingleItem", item);
        host.forget();
        EXPECT_EQ(panel.press("cmdRunDeleteItem"), PanelAnswer::done);
        return host.messages.empty() ? "" : host.messages.back();
    }
    void expectAligned(const std::string& page, const std::string& aligned, int count) {
        leftHandFingers.txtLHfingerPar16 = "2";
        host.answers = {Answer::yes};
        expectPressed("cmdLHfingers", page, aligned, "Total number of finger offsets set:" + plain(count));
    }
};

// --- Removal of an item

TEST_F(SpecialEdit, RemovesTheItemOfTheNumber) {
    const std::string page = "8 1|1 1 5|1 1 7";
    select(page);
    const std::string path = (host.nativeFolder() / "page.mus").string();
    EXPECT_EQ(remove(path, ""), "Missing item number");
    EXPECT_EQ(remove("", "2"), "Missing filename");
    EXPECT_EQ(runResults.back().end, RunEnd::refused);
    panel.set("chkEditBackup", "1");
    for (const char* item : {"4", "-1", "1.5", "40000"})
        EXPECT_EQ(remove(path, item), "Removal unsuccessful - item not encountered.") << item;
    EXPECT_TRUE(isWritten(page));
    EXPECT_EQ(host.read("PAGE.BKU"), bytesOf(page));
    EXPECT_EQ(remove(path, "2"), "Removed item 2\r\nOld file had 3 items,\r\nNew file has 2 items.");
    EXPECT_TRUE(isWritten("8 1|1 1 7"));
    EXPECT_EQ(runResults.back().exitStatus(), ExitStatus::done);
}

TEST_F(SpecialEdit, FilesThatCannotBeChangedStayAsTheyAre) {
    const std::string page = "8 1|1 1 5";
    select(page);
    host.makeFolder("folder.mus");
    for (const char* name : {"none.mus", "folder.mus"}) {
        EXPECT_EQ(remove(host.path(name), "1"), "Removal unsuccessful - item not encountered.\r\nNot done: " +
                                                    std::string(name) + " (could not be read)");
        EXPECT_EQ(runResults.back().exitStatus(), ExitStatus::damaged);
    }
    host.makeReadOnly("page.mus");
    EXPECT_TRUE(contains(host.fatal([&] { remove(host.path("page.mus"), "1"); }),
                         "Attempt to rewrite Read-only file\r\n"));
    EXPECT_TRUE(isWritten(page));
}

// --- Halving

TEST_F(SpecialEdit, HalvesNotesRestsAndBeams) {
    // Beams without ends reach nowhere, or to the left without an end.
    const std::string underBeams = "|1 3 3|1 3 4|1 3 10|1 3 -INF";
    expectPressed("cmdHalve",
                  "1 1 10 7=1|1 1 20.5 9=11|1 1 20.6 9=10|1 2 15|1 1 6=1 2|1 1 6=4 2|2 1 7=1|2 1 5=-1|"
                  "2 1 5=-4 7=16|6 1 11 6=19.5 21|6 3 NAN 6=2|6 3 5 6=9|6 3 -INF 6=2|1 3 3.5|1 3 10.5|"
                  "1 3 INF|1 3 NAN" +
                      underBeams,
                  "1 1 10 7=.5|1 1 20.5 9=11|1 1 20.6 9=11|1 2 15 9=1|1 1 7=1|1 1 6=4 1|2 1 5=1 7=.5|2 1|"
                  "2 1 5=-4 7=8|6 1 11 6=19.5 22|6 3 NAN 6=2 1|6 3 5 6=9 1|6 3 -INF 6=2 1|1 3 3.5 9=1|"
                  "1 3 10.5 9=1|1 3 INF 9=1|1 3 NAN 9=1" +
                      underBeams,
                  "Total number of notes, rest, and beams modified:21");
}

// --- MIDI preparation

TEST_F(SpecialEdit, LongerNotesReplaceTheOthersOfTheirPlace) {
    const auto prepare = [&](const std::string& notes, const std::string& prepared, int count) {
        host.answers = {Answer::ok};
        expectPressed("cmdMidiPrep", notes, prepared, "Total number of notes removed: " + plain(count));
    };
    const std::string left = "1 1 5";
    const std::string full = " 5=10 1 2 3 11";
    const std::string middle = "1 1 5.25 7=2";
    const std::string right = "|1 1 5.5 7=1";
    prepare(left + full + "|" + middle, left + full + "|2 1 5.25 5=1 7=2", 1);
    prepare(middle + "|" + left + full, middle + "|2 1 5 5=1 7=2", 1);
    prepare(left + " 7=1|" + middle + right, "2 1 5 5=1 7=1|" + middle + "|2 1 5.5 5=1 7=1", 2);
    prepare(left + " 7=3|" + middle + right, left + " 7=3|2 1 5.25 5=1 7=2" + right, 1);
    const std::string apart = left + right + "|1 2 5|2 1 5|1 1 NAN|1 1 NAN";
    prepare(apart, apart, 0);
    EXPECT_TRUE(press("cmdMidiPrep", apart).ends_with("of that duration.\r\nContinue?"));
    EXPECT_EQ(runResults.back().end, RunEnd::refused);
}

// --- Fingers

TEST_F(SpecialEdit, FingersStandBesideTheNearestNote) {
    // What a note has, its finger, and what becomes of that, each on a staff of their own.
    const std::vector<Texts> cases = {{"", "3=7 2", "3=10 2 15=-2 1"},
                                      {"5=14 10=3", "3=4 1", "3=10 1 15=-2 1"},
                                      {"5=12", "3=4.5", "3=10 15=-3.6 1"},
                                      {"10=2", "3=9 102 15=7", "3=10 102 16=1"},
                                      {"", "3=10.5 0 4", "3=10 0 4 15=-2 1"},
                                      {"", "3=10.6", "3=10.6"},
                                      {"", "3=5.9 -1", "3=5.9 -1"},
                                      {"", "3=9 3", "3=9 3"},
                                      {"", "3=9 1 5", "3=9 1 5"},
                                      {"", "3=9 1 8=1", "3=9 1 8=1"}};
    std::string page;
    std::string aligned;
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const std::string staff = " " + plain(i + 1);
        for (std::string* const all : {&page, &aligned})
            *all += "1" + staff + " 10 " + cases[i][0] + "|10" + staff + " 6=.75 " +
                    cases[i][all == &page ? 1 : 2] + "|";
    }
    expectAligned(page, aligned, 5);
    expectKept([](const std::string& typed) { return keepFingerPar16(typed, "1"); },
               {{"", "1"}, {"3", "1"}, {"0.5", "1"}}, {"Set 0, 1, or 2"});
}

TEST_F(SpecialEdit, FingersSpreadInChordsAndGoOnToTheNextNote) {
    const std::string chord = "1 1 10 1|1 1 10 3|";
    const std::string high = "|10 1 10 5 0 .75 16=1";
    expectAligned(chord + "10 1 10 1 0 .75|10 1 10 3 0 .75" + high,
                  chord + "10 1 10 1 0 .75 15=-3.7 1|10 1 10 3 0 .75 15=-2 1" + high, 3);
    const std::string notes = "1 1 10 5|1 1 12 5 11|";
    const std::string low = "|10 1 7 .5 0 .75 8=1";
    expectAligned(notes + "10 1 8 1 0 .75 8=1|10 1 10 1 0 .75 8=1" + low,
                  notes + "10 1 10 1 0 .75 8=1 15=-2 1|10 1 12 1 0 .75 8=1 15=-4 1" + low, 2);
}

// --- The customer's pages

TEST_F(SpecialEdit, RepeatedClefsGoAndStavesGrow) {
    const std::string barline = "14 1 .5|";
    expectPressed("cmdTessler",
                  barline +
                      "3 1 50|3 1 1|3 1 70 5=1|3 1 90|3 2 60|8 1 6=10|8 1 12 6=150|8 2 1 6=3|"
                      "8 3 6=14 20=1|8 4 6=7 20=2|2 1 6=-2 -1",
                  barline +
                      "3 1 1|3 1 70 5=1|3 1 90|3 2 60|8 1 6=10|8 1 6=150 20=1|8 2 1 6=200|8 4 6=7|"
                      "2 1 6=2 1",
                  "Total number of Tessler changes: 4");
    EXPECT_EQ(host.messages.size(), 1U);
    press("cmdTessler", "8 1|14 1 5=8|14 1 1.1|14 2");
    EXPECT_EQ(host.messages.front(), "No system barline found on staff 1.\r\n" + upper("page.mus"));
}

}  // namespace
}  // namespace tul::edit
