#include "edit/rests.h"
#include "support/edit_test.h"

namespace tul::edit {
namespace {

using RestEdit = EditTest;

TEST_F(RestEdit, SetsOrTakesTheOneOfWholeRests) {
    rests.chkEditRestOne = true;
    fill("2 1 9 0 -2|2 1 9 0 -2 0 0 1|2 1 9 1 -2|2 1 9 0 -5|1 1 9 0 -2");
    EXPECT_EQ(reportOf(restsFamily), lines("Number of Whole rest 1's set  . . . . . . . 1|"
                                           "Number of Whole rest 1's reset  . . . . . . 0"));
    EXPECT_EQ(table(), "2 1 9 0 -2 0 0 1|2 1 9 0 -2 0 0 1|2 1 9 1 -2|2 1 9 0 -5|1 1 9 0 -2");
    rests.optEditRestOneSet = false;
    rests.optEditRestOneReset = true;
    EXPECT_TRUE(contains(reportOf(restsFamily), "reset  . . . . . . 2"));
    EXPECT_EQ(table(), "2 1 9 0 -2|2 1 9 0 -2|2 1 9 1 -2|2 1 9 0 -5|1 1 9 0 -2");
}

TEST_F(RestEdit, MultirestsBecomeEuropeanUpToNineBars) {
    EXPECT_EQ(refusal(tabRest),
              Texts{"Both rest options are set or both are reset. Select one option only."});
    rests.chkToEuropeanRest = true;
    EXPECT_EQ(
        changed(restsFamily, "2 1 9 4 -5 0 0 1 40|2 1 9 4 -5 0 0 2.5|2 1 9 4 -5 0 0 9|2 1 9 4 -2 0 0 300"),
        "2 1 9 4 -11|2 1 9 4 -12.5|2 1 9 4 -19|2 1 9 4 -11");
    const std::string others = "2 1 9 4 -5 0 0 0 40|2 1 9 4 -5 0 0 9.5|2 1 9 4 -5 0 0 NAN|2 1 9 4 -3 0 0 2";
    EXPECT_EQ(changed(restsFamily, others), others);
    EXPECT_EQ(reportOf(restsFamily), lines("Number of multiRests converted  . . . . . . 0"));
}

}  // namespace
}  // namespace tul::edit
