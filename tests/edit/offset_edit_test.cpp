#include "edit/voice_offsets.h"
#include "music/items.h"
#include "music/pipeline.h"
#include "support/test.h"

namespace tul::edit {
namespace {

using Item = std::vector<float>;
using Items = std::vector<Item>;

Item up(float height, float flags = 0, float duration = 1, float head = 0) {
    return {1, 1, 10, height, 10, head, duration, 0, flags};
}
Item down(float height, float accidental = 0, float shift = 0) {
    return {1, 1, 10, height, 20 + accidental, 0, 1, 0, 0, shift};
}
const Item barline = {14, 1, 0};

class VoiceOffsetsTest : public HostTest {
  protected:
    /// The notes that the report counts, and all changes.
    std::string run(const Items& items) {
        musItemTable.itemCount = 0;
        for (const Item& item : items) addItem(item);
        Report report(host.path("REPORT.PRN"));
        pipeline.page = {.path = "C:\\PAGE.MUS"};
        voiceOffsetsFamily.begin()->updateFile({1, pipeline.page, report});
        EXPECT_TRUE(report.close());
        return host.read("REPORT.PRN") + plain(pipeline.page.changes);
    }
    static float shiftOf(int item, int par = 10) { return parsOf(item)[par]; }
    float shiftOfLast(const Items& items) { return run(items), shiftOf(musItemTable.itemCount); }
};

TEST_F(VoiceOffsetsTest, MovesANoteByWhatStandsAtItsPlace) {
    const std::vector<std::pair<Item, float>> shifts = {
        {up(7), 0},        {up(6), 10},          {up(6, 10), 20},
        {up(5), 4},        {up(5, 0, 2), 0},     {up(5, 0, 1, 10), 0},
        {up(3, 0, 2), 4},  {up(3, 11), 8},       {up(3, 10), 6},
        {up(3, 20), 8},    {up(3, 15), 8},       {up(106), 10},
        {up(5.5F), 10},    {up(4.5F), 4},        {up(notANumber), 0},
        {up(infinity), 0}, {up(3, infinity), 4}, {up(5, 0, notANumber), 0}};
    for (const auto& [upper, shift] : shifts)
        EXPECT_EQ(shiftOfLast({barline, upper, down(5)}), shift) << ::testing::PrintToString(upper);
    EXPECT_EQ(shiftOfLast({barline, up(6), down(5, 4)}), 10);
    EXPECT_EQ(shiftOfLast({barline, up(3, 10), down(5, 1)}), 7);
    EXPECT_EQ(shiftOfLast({barline, up(3, 11), down(5, 1)}), 8);
    EXPECT_EQ(shiftOfLast({barline, up(3), down(5, 4)}), 9);
    EXPECT_EQ(shiftOfLast({barline, up(3), down(5, 0, -1)}), -1) << "it has an offset already";
    voiceOffsets.chkOverlap = true;
    EXPECT_EQ(shiftOfLast({barline, up(5), down(5)}), 0);
    voiceOffsets.Text1 = {"none", "-1", "0.5", "", "0", "x"};
    EXPECT_EQ(shiftOfLast({barline, up(3, 11), down(5, 1)}), 0);
    EXPECT_EQ(shiftOfLast({barline, up(3, 20), down(5, 1)}), 0.5F);
    EXPECT_EQ(shiftOfLast({barline, up(9), up(3), up(6, 10), up(6), up(3, 20), down(5)}), 20);
    EXPECT_EQ(shiftOfLast({barline, up(9), up(3), up(3, 20), up(6, 10), down(5)}), 0.5F) << "the first";
}

TEST_F(VoiceOffsetsTest, LooksForTwoEventsAtOnePlaceOfTheBar) {
    const auto moves = [&](Items items, float staff = 1) {
        items.insert(items.end(), {{1, staff, 10, 5, 10}, {1, staff, 10, 6, 20}});
        return shiftOfLast(items) != 0;
    };
    EXPECT_TRUE(moves({{14, 1, 11}})) << "the bar begins at 0 then";
    EXPECT_FALSE(moves({{14, 1, 10}})) << "a barline at the place is on neither side";
    EXPECT_FALSE(moves({{14, 1, -999}, {14, 1, 999}, {14, 1, notANumber}, {14, 2, 9}}));
    // A staff without barlines.
    EXPECT_TRUE(moves({{14, 1, 9}}, 3));
    EXPECT_TRUE(moves({{14, 7, 9}, {14, 1, notANumber}}, 3)) << "staff 1, the first item, staff 7";
    EXPECT_FALSE(moves({{8, 5, 0}, {14, 1, 9}}, 3));
    EXPECT_TRUE(moves({{14, 1, 9}}, 1.5F) && !moves({{14, 1, 9}}, 1.4F)) << "2 and 1";
    EXPECT_FALSE(moves({{14, 1.5F, 9}, {14, 0, 9}, {14, -1, 9}}, 3));
    EXPECT_TRUE(moves({{14, 0, 9}, {14, 33, 9}}, 40000)) << "no such item: staff 0";
    // The notes stand beside the bar and in it, so that others make it one of two voices.
    const auto movesWith = [&](Items others) {
        others.insert(others.end(), {{14, 1, 10}, {14, 1, 20}, up(5), {1, 1, 10.004F, 6, 20}});
        return shiftOfLast(others) != 0;
    };
    EXPECT_FALSE(movesWith({{1, 1, 12, 5, 20}, {1, 1, 12, 5, 0}})) << "a chord is one event";
    EXPECT_TRUE(movesWith({{1, 1, 12, 5, 20}, {2, 1, 12.09F}})) << "a rest is one";
    EXPECT_FALSE(movesWith({{1, 1, 20, 5, 20}, {2, 1, 20}, {2, 1, 21}, {2, 1, 21}}));
}

TEST_F(VoiceOffsetsTest, BeamsAndChordsFollowANoteOneStepApart) {
    const auto beam = [](float left, float right, float stem, float shift = 0) {
        return Item{6, 1, left, 0, 0, right, stem, 0, 0, 0, 0, 0, 0, shift};
    };
    const auto chord = [](float height, float position = 10) { return Item{1, 1, position, height, 5}; };
    EXPECT_EQ(
        run({barline, down(5), down(7), up(8, 10), up(6), beam(10.005F, 20, 20), beam(5, 9.995F, 121, 3),
             beam(10, 10, 10), chord(4), chord(6), chord(7), chord(4, 10.001F)}),
        "        Offsets applied: 2\r\n4");
    const std::vector shifts = {shiftOf(6, 14), shiftOf(7, 14), shiftOf(7, 15), shiftOf(8, 14),
                                shiftOf(9),     shiftOf(10),    shiftOf(11),    shiftOf(12)};
    EXPECT_EQ(shifts, (Item{10, 3, 10, 0, 10, 20, 0, 0})) << "as the first note has it";
    EXPECT_EQ(run({barline, up(5), down(5), beam(10, 10, 20), chord(4)}), "        Offsets applied: 0\r\n1");
    EXPECT_EQ(shiftOf(5), 0) << "nothing follows where the voices stand on one note";
    EXPECT_FALSE(voiceOffsetsFamily.mayRun()) << "before it is chosen";
}

}  // namespace
}  // namespace tul::edit
