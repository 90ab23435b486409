#include "edit/fingers.h"
#include "support/edit_test.h"

namespace tul::edit {
namespace {

using NumbersEdit = EditTest;

TEST_F(NumbersEdit, ThirdAndFourthFingersLeaveTheLine) {
    EXPECT_EQ(refusal(tabNumbers), Texts()) << "nothing is chosen: no run, and no word";
    fingers.optEditFinger4 = true;
    EXPECT_EQ(changed(fingersFamily, "10 1 9 12 3 0.75|10 1 9 -2.4 4 0.759|10 1 9 11.6 3 0.75"),
              "10 1 9 11.8 3 0.75|10 1 9 -2.2 4 0.759|10 1 9 11.4 3 0.75");
    const std::string others =
        "10 1 9 11 3 0.75|10 1 9 12 2 0.75|10 1 9 12 3 0.77|10 1 9 12 3 0.75 1|"
        "10 1 9 INF 3 0.75|10 1 9 NAN 3 0.75";
    EXPECT_EQ(changed(fingersFamily, others), others);
    EXPECT_EQ(reportOf(fingersFamily), lines("Number of fingers moved: 0"));
}

TEST_F(NumbersEdit, FingersMoveAwayFromTheirNotes) {
    fingers.optEditFingerDispl = true;
    const auto moves = [&](const std::string& notes, const std::string& number = "2") {
        return changed(fingersFamily, notes + "|10 1 9 12 " + number + " 0.75 0 0 0 0 0 0 0 0 -2")
            .ends_with(" -2.3");
    };
    EXPECT_TRUE(moves("1 1 4 11|1 1 9 3|1 1 9.009 11|1 1 9.1 11"));
    EXPECT_TRUE(moves("1 1 8.991 11|1 1 NAN 11|1 1 10 11"));
    for (const char* note : {"1 2 9 11", "1 1 9.02 11", "1 1 9 12", "2 1 9 11"})
        EXPECT_FALSE(moves(note)) << note;
    EXPECT_FALSE(moves("1 1 9 11", "1")) << "the first finger";
}

}  // namespace
}  // namespace tul::edit
