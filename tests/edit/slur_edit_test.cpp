#include "edit/slurs.h"
#include "support/edit_test.h"

namespace tul::edit {
namespace {

using SlurEdit = EditTest;

TEST_F(SlurEdit, EndsGoToWholeHeights) {
    const std::string page = "5 1 9 2.5 -0.4|5 1 9 3.5 3.5|5 1 9 1.2 NAN|4 1 9 2.5|5 1 9 1.2 2 0 0 -3";
    slurs.optSlurVertAlignHite = true;
    EXPECT_EQ(changed(slursFamily, page), page);
    slurs.chkSlurVertAlign = true;
    EXPECT_EQ(changed(slursFamily, page), "5 1 9 2|5 1 9 3.5 3.5|5 1 9 1 NAN|4 1 9 2.5|5 1 9 1 2 0 0 -3");
    EXPECT_FALSE(std::signbit(musItemTable[1].pars[5]));
    slurs.optSlurVertAlignHite = false;
    EXPECT_EQ(changed(slursFamily, page), "5 1 9 2|5 1 9 4 4|5 1 9 1 NAN|4 1 9 2.5|5 1 9 1.2 2 0 0 -3");
    EXPECT_EQ(reportOf(slursFamily), lines("Number of slurs vert aligned  . . . . . 3"));
}

}  // namespace
}  // namespace tul::edit
