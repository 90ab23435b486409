#include "edit/edit_run.h"
#include "edit/voice_offsets.h"
#include "support/test.h"

namespace tul::edit {
namespace {

using Items = std::vector<std::vector<float>>;

std::vector<float> up(float height, float flags = 0, float duration = 1, float head = 0) {
    return {1, 1, 10, height, 10, head, duration, 0, flags};
}
std::vector<float> down(float height, float accidental = 0, float shift = 0) {
    return {1, 1, 10, height, 20 + accidental, 0, 1, 0, 0, shift};
}
const std::vector<float> barline = {14, 1, 0};

class VoiceOffsetsTest : public HostTest {
  protected:
    /// The notes that the report counts, and all changes.
    std::string run(const Items& items) {
        musItemTable.itemCount = 0;
        for (const std::vector<float>& item : items) addItem(item);
        Report report(host.path("REPORT.PRN"));
        pipeline.page = {.path = "C:\\PAGE.MUS"};
        voiceOffsetsFamily.begin()->updateFile({1, pipeline.page, report});
        EXPECT_TRUE(report.close());
        return host.read("REPORT.PRN") + plain(pipeline.page.changes);
    }
    static float shiftOf(int item) { return musItemTable[item].pars[10]; }
    float shiftIn(const Items& items, int item) { return run(items), shiftOf(item); }
};

TEST_F(VoiceOffsetsTest, MovesANoteByWhatStandsAtItsPlace) {
    const auto moved = [&](const std::vector<float>& upper, const std::vector<float>& lower) {
        return shiftIn({barline, upper, lower}, 3);
    };
    const Items uppers = {
        up(7),       up(6),     up(6, 10),      up(5),        up(5, 0, 2),     up(5, 0, 1, 10),
        up(3, 0, 2), up(3, 11), up(3, 10),      up(3, 20),    up(3, 15),       up(106),
        up(5.5F),    up(4.5F),  up(notANumber), up(infinity), up(3, infinity), up(5, 0, notANumber)};
    const std::vector<float> shifts = {0, 10, 20, 4, 0, 0, 4, 8, 6, 8, 8, 10, 10, 4, 0, 0, 4, 0};
    for (std::size_t i = 0; i < shifts.size(); ++i) EXPECT_EQ(moved(uppers[i], down(5)), shifts[i]) << i;
    EXPECT_EQ(moved(up(6), down(5, 4)), 10);
    EXPECT_EQ(moved(up(3, 10), down(5, 1)), 7);
    EXPECT_EQ(moved(up(3, 11), down(5, 1)), 8);
    EXPECT_EQ(moved(up(3), down(5, 4)), 9);
    EXPECT_EQ(moved(up(3), down(5, 0, -1)), -1) << "it has an offset already";

    voiceOffsets.chkOverlap = true;
    EXPECT_EQ(moved(up(5), down(5)), 0);
    voiceOffsets.Text1 = {"none", "-1", "0.5", "", "0", "x"};
    EXPECT_EQ(moved(up(3, 11), down(5, 1)), 0);
    EXPECT_EQ(moved(up(3, 20), down(5, 1)), 0.5F);
    EXPECT_EQ(shiftIn({barline, up(9), up(3), up(6, 10), up(6), up(3, 20), down(5)}, 7), 20)
        << "the first in the table that moves it";
    EXPECT_EQ(shiftIn({barline, up(9), up(3), up(3, 20), up(6, 10), down(5)}, 6), 0.5F);
}

TEST_F(VoiceOffsetsTest, LooksForTwoEventsAtOnePlaceOfTheBar) {
    const auto moves = [&](Items items, float staff = 1) {
        for (std::vector<float> note : {up(5), down(6)}) {
            note[1] = staff;
            items.push_back(note);
        }
        return shiftIn(items, static_cast<int>(items.size())) != 0;
    };
    EXPECT_TRUE(moves({{14, 1, 11}})) << "the bar begins at 0 then";
    EXPECT_FALSE(moves({{14, 1, 10}})) << "a barline at the place is on neither side";
    EXPECT_FALSE(moves({{14, 1, -999}, {14, 1, 999}, {14, 1, notANumber}, {14, 2, 9}}));
    // A staff without barlines.
    EXPECT_TRUE(moves({{14, 1, 9}}, 3));
    EXPECT_TRUE(moves({{14, 7, 9}, {14, 1, notANumber}}, 3)) << "staff 1, the first item, staff 7";
    EXPECT_FALSE(moves({{8, 5, 0}, {14, 1, 9}}, 3));
    EXPECT_TRUE(moves({{14, 1, 9}}, 1.5F));
    EXPECT_FALSE(moves({{14, 1, 9}}, 1.4F));
    EXPECT_FALSE(moves({{14, 1.5F, 9}, {14, 0, 9}, {14, -1, 9}}, 3));
    EXPECT_TRUE(moves({{14, 0, 9}, {14, 33, 9}}, 40000)) << "no such item: staff 0";
    // The notes stand beside the bar and in it, so that others make it one of two voices.
    const auto movesWith = [&](Items others) {
        others.insert(others.begin(), {{14, 1, 10}, {14, 1, 20}, up(5), {1, 1, 10.004F, 6, 20}});
        return shiftIn(others, 4) != 0;
    };
    EXPECT_FALSE(movesWith({{1, 1, 12, 5, 20}, {1, 1, 12, 5, 0}})) << "a chord is one event";
    EXPECT_TRUE(movesWith({{1, 1, 12, 5, 20}, {2, 1, 12.09F}})) << "a rest is one";
    EXPECT_FALSE(movesWith({{1, 1, 20, 5, 20}, {2, 1, 20}, {2, 1, 21}, {2, 1, 21}}));
}

TEST_F(VoiceOffsetsTest, BeamsAndChordsFollowANoteOneStepApart) {
    const auto beam = [](float left, float right, float stem, float shift = 0) {
        return std::vector<float>{6, 1, left, 0, 0, right, stem, 0, 0, 0, 0, 0, 0, shift};
    };
    const auto chord = [](float height, float position = 10) {
        return std::vector<float>{1, 1, position, height, 5};
    };
    EXPECT_EQ(
        run({barline, down(5), down(7), up(8, 10), up(6), beam(10.005F, 20, 20), beam(5, 9.995F, 121, 3),
             beam(10, 10, 10), chord(4), chord(6), chord(7), chord(4, 10.001F)}),
        "        Offsets applied: 2\r\n4");
    EXPECT_EQ(musItemTable[6].pars[14], 10) << "as the first note has it";
    EXPECT_EQ(musItemTable[7].pars[14] + musItemTable[7].pars[15], 3 + 10);
    EXPECT_EQ(musItemTable[8].pars[14], 0) << "of the upper voice";
    EXPECT_EQ(shiftOf(9), 10);
    EXPECT_EQ(shiftOf(10), 20);
    EXPECT_EQ(shiftOf(11) + shiftOf(12), 0);
    EXPECT_EQ(run({barline, up(5), down(5), beam(10, 10, 20), chord(4)}), "        Offsets applied: 0\r\n1");
    EXPECT_EQ(shiftOf(5), 0) << "nothing follows where the voices stand on one note";

    editing.tabEdit = tabOffset;
    cmdEditRun();
    EXPECT_EQ(host.messages, Texts{"No action. Set the option to run Offset"});
}

}  // namespace
}  // namespace tul::edit
