#include "edit/voice_offsets.h"
#include "support/edit_test.h"

namespace tul::edit {
namespace {

class VoiceOffsetsTest : public EditTest {
  protected:
    /// How far the page's last item is moved.
    float shiftOfLast(const std::string& page) {
        reportOn(page, voiceOffsetsFamily);
        return parsOf(musItemTable.itemCount)[par::noteShift];
    }
    /// How far a note of the lower voice is moved that stands at one place with others, each from Par 4 on.
    float shiftAt(const Texts& upper, const std::string& lower) {
        std::string page = "14 1";
        for (const std::string& note : upper) page += "|1 1 10 " + note;
        return shiftOfLast(page + "|1 1 10 " + lower);
    }
};

TEST_F(VoiceOffsetsTest, MovesANoteByWhatStandsAtItsPlace) {
    const std::vector<std::pair<std::string, float>> shifts = {
        {"7 10 7=1", 0},       {"6 10 7=1", 10},     {"6 10 7=1 9=10", 20}, {"5 10 7=1", 4},
        {"5 10 7=2", 0},       {"5 10 10 1", 0},     {"3 10 7=2", 4},       {"3 10 7=1 9=11", 8},
        {"3 10 7=1 9=10", 6},  {"3 10 7=1 9=20", 8}, {"3 10 7=1 9=15", 8},  {"106 10 7=1", 10},
        {"5.5 10 7=1", 10},    {"4.5 10 7=1", 4},    {"NAN 10 7=1", 0},     {"INF 10 7=1", 0},
        {"3 10 7=1 9=INF", 4}, {"5 10 7=NAN", 0}};
    for (const auto& [upper, shift] : shifts) EXPECT_EQ(shiftAt({upper}, "5 20 7=1"), shift) << upper;
    EXPECT_EQ(shiftAt({"6 10 7=1"}, "5 24 7=1"), 10);
    EXPECT_EQ(shiftAt({"3 10 7=1 9=10"}, "5 21 7=1"), 7);
    EXPECT_EQ(shiftAt({"3 10 7=1 9=11"}, "5 21 7=1"), 8);
    EXPECT_EQ(shiftAt({"3 10 7=1"}, "5 24 7=1"), 9);
    EXPECT_EQ(shiftAt({"3 10 7=1"}, "5 20 7=1 10=-1"), -1) << "it has an offset already";

    voiceOffsets.chkOverlap = true;
    EXPECT_EQ(shiftAt({"5 10 7=1"}, "5 20 7=1"), 0);
    voiceOffsets.Text1 = {"none", "-1", "0.5", "", "0", "x"};
    EXPECT_EQ(shiftAt({"3 10 7=1 9=11"}, "5 21 7=1"), 0);
    EXPECT_EQ(shiftAt({"3 10 7=1 9=20"}, "5 21 7=1"), 0.5F);
    const std::string twenty = "6 10 7=1 9=10";
    const std::string half = "3 10 7=1 9=20";
    EXPECT_EQ(shiftAt({"9 10 7=1", "3 10 7=1", twenty, "6 10 7=1", half}, "5 20 7=1"), 20)
        << "the first in the table that moves it";
    EXPECT_EQ(shiftAt({"9 10 7=1", "3 10 7=1", half, twenty}, "5 20 7=1"), 0.5F);
}

TEST_F(VoiceOffsetsTest, LooksForTwoEventsAtOnePlaceOfTheBar) {
    const auto moves = [&](const std::string& items, const std::string& staff = "1") {
        return shiftOfLast(items + "|1 " + staff + " 10 5 10 7=1|1 " + staff + " 10 6 20 7=1") != 0;
    };
    EXPECT_TRUE(moves("14 1 11")) << "the bar begins at 0 then";
    EXPECT_FALSE(moves("14 1 10")) << "a barline at the place is on neither side";
    EXPECT_FALSE(moves("14 1 -999|14 1 999|14 1 NAN|14 2 9"));
    // A staff without barlines.
    EXPECT_TRUE(moves("14 1 9", "3"));
    EXPECT_TRUE(moves("14 7 9|14 1 NAN", "3")) << "staff 1, the first item, staff 7";
    EXPECT_FALSE(moves("8 5|14 1 9", "3"));
    EXPECT_TRUE(moves("14 1 9", "1.5"));
    EXPECT_FALSE(moves("14 1 9", "1.4"));
    EXPECT_FALSE(moves("14 1.5 9|14 0 9|14 -1 9", "3"));
    EXPECT_TRUE(moves("14 0 9|14 33 9", "40000")) << "no such item: staff 0";
    // The notes stand beside the bar and in it, so that others make it one of two voices.
    const auto movesWith = [&](const std::string& others) {
        return shiftOfLast("14 1 10|14 1 20|1 1 10 5 10 7=1|" + others + "|1 1 10.004 6 20") != 0;
    };
    EXPECT_FALSE(movesWith("1 1 12 5 20|1 1 12 5")) << "a chord is one event";
    EXPECT_TRUE(movesWith("1 1 12 5 20|2 1 12.09")) << "a rest is one";
    EXPECT_FALSE(movesWith("1 1 20 5 20|2 1 20|2 1 21|2 1 21"));
}

TEST_F(VoiceOffsetsTest, BeamsAndChordsFollowANoteOneStepApart) {
    const std::string upper = "|1 1 10 8 10 7=1 9=10|1 1 10 6 10 7=1";
    const std::string upperBeam = "|6 1 10 6=10 10";
    const std::string apart = "|1 1 10 7 5|1 1 10.001 4 5";
    fill("14 1|1 1 10 5 20 7=1|1 1 10 7 20 7=1" + upper + "|6 1 10.005 6=20 20|6 1 5 6=9.995 121 14=3" +
         upperBeam + "|1 1 10 4 5|1 1 10 6 5" + apart);
    EXPECT_EQ(reportOf(voiceOffsetsFamily), "        Offsets applied: 2\r\n");
    // The first beam as the first note has it.
    EXPECT_TRUE(becomes("14 1|1 1 10 5 20 7=1 10=10|1 1 10 7 20 7=1 10=20" + upper +
                        "|6 1 10.005 6=20 20 14=10|6 1 5 6=9.995 121 14=3 10" + upperBeam +
                        "|1 1 10 4 5 10=10|1 1 10 6 5 10=20" + apart));
    EXPECT_EQ(changes(), 4);
    // Nothing follows where the voices stand on one note.
    const std::string followers = "|6 1 10 6=10 20|1 1 10 4 5";
    expectChanged(voiceOffsetsFamily, "14 1|1 1 10 5 10 7=1|1 1 10 5 20 7=1" + followers,
                  "14 1|1 1 10 5 10 7=1|1 1 10 5 20 7=1 10=4" + followers, 1);
    EXPECT_EQ(refusal(tabOffset), Texts{"No action. Set the option to run Offset"});
}

}  // namespace
}  // namespace tul::edit
