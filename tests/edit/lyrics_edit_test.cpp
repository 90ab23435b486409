#include "edit/button_test.h"

namespace tul::edit {
namespace {

using LyricsEdit = ButtonTest;

TEST_F(LyricsEdit, SetsPar9OfTextsInTheLyricsFont) {
    projectSettings.LyricsFont = "_05";
    projectSettings.LyricsSize = "1";
    const std::string others = "1=16 2=1 6=1.5 9=3'_05a|1=16 2=1 6=1 9=3'__05|1=16 2=1 6=1 9=3'_0";
    for (const auto& [option, par9] : {std::pair{"", ""}, {"optLyricsZero", ""}, {"optLJ360", "9=-360"}}) {
        select("1=16 2=1 6=1 9=3'_05a|1=16 2=1'_05|1=16 2=1'_06|" + others);
        panel.set("tabEdit", "lyrics");
        panel.set(option, "1");
        panel.press("cmdEditRun");
        const std::string lyric = std::string("1=16 2=1 6=1 ") + par9;
        EXPECT_TRUE(holds(lyric + "'_05a|" + lyric + "'_05|1=16 2=1 6=1'_06|" + others)) << option;
        EXPECT_TRUE(contains(host.shown.back(), "Number of lyrics Par9 updated . . . . . 2\r\n"));
    }
}

}  // namespace
}  // namespace tul::edit
