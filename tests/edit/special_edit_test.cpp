#include "edit/button_test.h"
#include "edit/left_hand_fingers.h"
#include "music/notation.h"

namespace tul::edit {
namespace {

using SpecialEdit = ButtonTest;

// --- Removal of an item

class ItemRemoval : public ButtonTest {
  protected:
    std::string remove(const std::string& file, const std::string& item) {
        panel.set("txtDeleteItemFile", file);
        panel.set("txtDeleteSingleItem", item);
        host.forget();
        EXPECT_EQ(panel.press("cmdRunDeleteItem"), PanelAnswer::done);
        return host.messages.empty() ? "" : host.messages.back();
    }
};

TEST_F(ItemRemoval, RemovesTheItemOfTheNumber) {
    const std::string page = "1=8 2=1|1=1 2=1 3=5|1=1 2=1 3=7";
    select(page);
    const std::string path = (host.nativeFolder() / "page.mus").string();
    EXPECT_EQ(remove(path, ""), "Missing item number");
    EXPECT_EQ(remove("", "2"), "Missing filename");
    EXPECT_EQ(runResults.back().end, RunEnd::refused);
    for (const char* item : {"4", "-1", "1.5", "40000"})
        EXPECT_EQ(remove(path, item), "Removal unsuccessful - item not encountered.") << item;
    panel.set("chkEditBackup", "1");
    EXPECT_EQ(remove(path, "4"), "Removal unsuccessful - item not encountered.");
    EXPECT_TRUE(holds(page));
    EXPECT_EQ(remove(path, "2"), "Removed item 2\r\nOld file had 3 items,\r\nNew file has 2 items.");
    EXPECT_TRUE(holds("1=8 2=1|1=1 2=1 3=7"));
    EXPECT_EQ(host.read("PAGE.BKV"), bytesOf(page));
    EXPECT_EQ(runResults.back().exitStatus(), ExitStatus::done);
}

TEST_F(ItemRemoval, FilesThatCannotBeChangedStayAsTheyAre) {
    const std::string page = "1=8 2=1|1=1 2=1 3=5";
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
    EXPECT_TRUE(holds(page));
}

// --- Halving

TEST_F(SpecialEdit, HalvesNotesRestsAndBeams) {
    expectChange("cmdHalve",
                 "1=1 2=1 3=10 7=1|1=1 2=1 3=20.5 9=11|1=1 2=1 3=20.6 9=10|1=1 2=2 3=15|1=1 2=1 6=1 7=2|"
                 "1=1 2=1 6=4 7=2|1=2 2=1 7=1|1=2 2=1 5=-1|1=2 2=1 5=-4 7=16|1=6 2=1 3=11 6=19.5 7=21",
                 "1=1 2=1 3=10 7=.5|1=1 2=1 3=20.5 9=11|1=1 2=1 3=20.6 9=11|1=1 2=2 3=15 9=1|1=1 2=1 7=1|"
                 "1=1 2=1 6=4 7=1|1=2 2=1 5=1 7=.5|1=2 2=1|1=2 2=1 5=-4 7=8|1=6 2=1 3=11 6=19.5 7=22",
                 "Total number of notes, rest, and beams modified:10");
}

TEST_F(SpecialEdit, BeamsThatAreNoNumbersCoverNothing) {
    musItemTable.itemCount = 0;
    for (const float left : {notANumber, 5.0F, -infinity}) addItem({6, 1, left, 0, 0, left > 0 ? 9.0F : 2});
    const BeamIndex beams;
    for (const float position : {-infinity, 0.0F, 3.0F, 4.0F, 10.0F, 3.5F, 10.5F, infinity, notANumber})
        EXPECT_EQ(beams.isBeamed(itemRow({1, 1, position})),
                  position <= 3.0F || (position >= 4.0F && position <= 10.0F));
}

// --- MIDI preparation

TEST_F(SpecialEdit, LongerNotesReplaceTheOthersOfTheirPlace) {
    const auto prepare = [&](const std::string& notes, const std::string& prepared, int count) {
        host.answers = {Answer::ok};
        expectChange("cmdMidiPrep", notes, prepared, "Total number of notes removed: " + plain(count));
    };
    const std::string full = " 5=10 6=1 7=2 8=3 9=11";
    const std::string left = "1=1 2=1 3=5";
    const std::string middle = "|1=1 2=1 3=5.25 7=2";
    const std::string right = "|1=1 2=1 3=5.5 7=1";
    prepare(left + full + middle, left + full + "|1=2 2=1 3=5.25 5=1 7=2", 1);
    prepare(middle.substr(1) + "|" + left + full, middle.substr(1) + "|1=2 2=1 3=5 5=1 7=2", 1);
    prepare(left + " 7=1" + middle + right, "1=2 2=1 3=5 5=1 7=1" + middle + "|1=2 2=1 3=5.5 5=1 7=1", 2);
    prepare(left + " 7=3" + middle + right, left + " 7=3|1=2 2=1 3=5.25 5=1 7=2" + right, 1);
    const std::string apart = left + right + "|1=1 2=2 3=5|1=2 2=1 3=5";
    prepare(apart, apart, 0);
    EXPECT_TRUE(press("cmdMidiPrep", apart).ends_with("of that duration.\r\nContinue?"));
    EXPECT_EQ(runResults.back().end, RunEnd::refused);
}

// --- Fingers

class Fingers : public ButtonTest {
  protected:
    void SetUp() override { leftHandFingers.txtLHfingerPar16 = "2"; }
    void expectAligned(const std::string& items, const std::string& aligned, int count) {
        host.answers = {Answer::yes};
        expectChange("cmdLHfingers", items, aligned, "Total number of finger offsets set:" + plain(count));
    }

    const std::string finger = "|1=10 2=1 6=.75 ";
};

TEST_F(Fingers, StandBesideTheNearestNote) {
    const Texts notes = {"", " 5=14 10=3", " 5=12", " 10=2", "", "", "", "", "", ""};
    const auto page = [&](const Texts& fingers) {
        std::string items;
        for (std::size_t i = 0; i < notes.size(); ++i)
            items +=
                "1=1 3=10 2=" + plain(i + 1) + notes[i] + "|1=10 6=.75 2=" + plain(i + 1) + fingers[i] + "|";
        return items;
    };
    expectAligned(
        page({" 3=7 4=2", " 3=4 4=1", " 3=4.5", " 3=9 4=102 15=7", " 3=10.5 5=4", " 3=10.6", " 3=5.9 4=-1",
              " 3=9 4=3", " 3=9 4=1 5=5", " 3=9 4=1 8=1"}),
        page({" 3=10 4=2 15=-2 16=1", " 3=10 4=1 15=-2 16=1", " 3=10 15=-3.6 16=1", " 3=10 4=102 16=1",
              " 3=10 5=4 15=-2 16=1", " 3=10.6", " 3=5.9 4=-1", " 3=9 4=3", " 3=9 4=1 5=5", " 3=9 4=1 8=1"}),
        5);
    ;
    expectKept([](const std::string& typed) { return keepFingerPar16(typed, "1"); },
               {{"", "1"}, {"3", "1"}, {"0.5", "1"}}, {"Set 0, 1, or 2"});
}

TEST_F(Fingers, SpreadInChordsAndGoOnToTheNextNote) {
    const std::string chord = "1=1 2=1 3=10 4=1|1=1 2=1 3=10 4=3" + finger;
    const std::string high = finger + "3=10 4=5 16=1";
    expectAligned(chord + "3=10 4=1" + finger + "3=10 4=3" + high,
                  chord + "3=10 4=1 15=-3.7 16=1" + finger + "3=10 4=3 15=-2 16=1" + high, 3);
    const std::string notes = "1=1 2=1 3=10 4=5|1=1 2=1 3=12 4=5 5=11" + finger;
    const std::string low = finger + "3=7 4=.5 8=1";
    expectAligned(notes + "3=8 4=1 8=1" + finger + "3=10 4=1 8=1" + low,
                  notes + "3=10 4=1 8=1 15=-2 16=1" + finger + "3=12 4=1 8=1 15=-4 16=1" + low, 2);
}

// --- The customer's pages

TEST_F(SpecialEdit, RepeatedClefsGoAndStavesGrow) {
    const std::string barline = "1=14 2=1 3=.5|";
    expectChange("cmdTessler",
                 barline +
                     "1=3 2=1 3=50|1=3 2=1 3=1|1=3 2=1 3=70 5=1|1=3 2=1 3=90|1=3 2=2 3=60|1=8 2=1 6=10|"
                     "1=8 2=1 3=12 6=150|1=8 2=2 3=1 6=3|1=8 2=3 6=14 20=1|1=8 2=4 6=7 20=2|"
                     "1=2 2=1 6=-2 7=-1",
                 barline +
                     "1=3 2=1 3=1|1=3 2=1 3=70 5=1|1=3 2=1 3=90|1=3 2=2 3=60|1=8 2=1 6=10|"
                     "1=8 2=1 6=150 20=1|1=8 2=2 3=1 6=200|1=8 2=4 6=7|1=2 2=1 6=2 7=1",
                 "Total number of Tessler changes: 4");
    EXPECT_EQ(host.messages.size(), 1U);
    press("cmdTessler", "1=8 2=1|1=14 2=1 3=0 5=8|1=14 2=1 3=1.1|1=14 2=2");
    EXPECT_EQ(host.messages.front(), "No system barline found on staff 1.\r\n" + upper("page.mus"));
}

TEST_F(SpecialEdit, ToolsForStemsSayThatTheyAreNone) {
    for (const char* button : {"cmdad99", "cmdSTM"})
        EXPECT_EQ(press(button, "1=8 2=1"), "Function not yet supported");
}

}  // namespace
}  // namespace tul::edit
