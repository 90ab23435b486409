#include "edit/button_test.h"

namespace tul::edit {
namespace {

using FontEdit = ButtonTest;

TEST_F(FontEdit, FontNumbersBecomePrefixes) {
    std::string others = "|1=8 2=1 8=1026";
    for (const char* number : {"89", "100", "1226", "10.5", "95.5", "-90", "10260"})
        others += std::string("|1=16 2=1 8=") + number + "'_00a";
    expectChange("cmdReplacePar8",
                 "1=16 8=1026'_00a|1=16 8=1126'_00a|1=16 8=90'__00a_01b__02_3c|1=16 8=99'abc|1=16 8=1000'_0|"
                 "1=16 8=1000'a_|1=16 8=1026'_26|1=16 8=1026'a_05" +
                     others,
                 "1=16'_26a|1=16'__26a|1=16'_90a_90b_90_3c|1=16'_99abc|1=16'_00_0|1=16'_00a_|1=16'_26|"
                 "1=16'_26a_26" +
                     others,
                 "Total number of Par8 replacements: 8");
}

}  // namespace
}  // namespace tul::edit
