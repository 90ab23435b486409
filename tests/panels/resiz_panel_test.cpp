
#include "edit/resize.h"
#include "support/test.h"

namespace tul {
namespace {

class ResizPanelTest : public PanelTest {
  protected:
    ResizPanelTest() {
        projectSettings.PageNumberSize = "201.1";
        projectSettings.PageNumberFont = "00";
        projectSettings.BarNumberSize = "201.25";
        projectSettings.BarNumberFont = "1005";
        projectSettings.LyricsSize = "-12";
        host.write("page.mus", pageOf(words({6, 8, 1, 0, 0, 1, 200})));
        writeNames({"page.mus"});
        open("resize");
    }
};

TEST_F(ResizPanelTest, StartsWithTheSizesOfTheProject) {
    for (const auto& [field, text] : {std::pair{"txtResizeBarNumberSize", "1.25"},
                                      {"txtResizePageNumberSize", "1.1"},
                                      {"txtResizeBarNumberFont", "1005"},
                                      {"txtResizePageNumberFont", "0"},
                                      {"txtResizeLyrics", "1"},
                                      {"txtResizeNoteSize", "1.1"},
                                      {"tabResiz", "0"}})
        EXPECT_EQ(shown(field), text) << field;
    EXPECT_EQ(panel.set("tabResiz", "6"), PanelAnswer::done);
    EXPECT_EQ(panel.set("tabResiz", "7"), PanelAnswer::invalid);
    EXPECT_EQ(panel.set("optResizeStem", "1"), PanelAnswer::disabled);
    EXPECT_EQ(panel.field("optResizeStem")->toolTip(), "compensation not yet supported");
    EXPECT_FALSE(isEnabled("txtResizeNoteSize"));
    panel.set("chkResizeWhiteDiamond", "1");
    EXPECT_TRUE(isEnabled("txtResizeNoteSize"));
}

TEST_F(ResizPanelTest, AsksForAnInstrumentOrAPart) {
    host.inputs = {"-12.5", "2,4"};
    EXPECT_EQ(panel.click("txtResizeStaffInstrPart"), PanelAnswer::done);
    EXPECT_EQ(shown("txtResizeStaffInstrPart"), "12.5");
    panel.set("optResizeStaffPart", "1");
    panel.click("txtResizeStaffInstrPart");
    EXPECT_EQ(shown("txtResizeStaffInstrPart"), "2,4");
    EXPECT_EQ(host.messages, (Texts{"Instrument Id.",
                                    "Part[,increment]. If no increment is given, 1 is assumed\r\n"
                                    "Examples: 1,2 means staff 1, 3, 5, 7, etc.\r\n"
                                    "2,4 means staff 2, 6, 10, etc."}));
    host.forget();
    panel.click("txtResizeStaffInstrPart");
    EXPECT_EQ(shown("txtResizeStaffInstrPart"), "2,4") << "the box was cancelled";
    EXPECT_EQ(host.messages.size(), 1U) << "and nothing is said but its prompt";
}

}  // namespace
}  // namespace tul
