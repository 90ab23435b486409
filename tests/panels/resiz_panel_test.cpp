
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
}

TEST_F(ResizPanelTest, EachControlHasTheValueOfItsName) {
    using Options = resize::ResizeOptions;
    const Options& options = resize::resizing.options;
#define MEMBER(name) \
    { #name, &Options::name }
    const std::map<const char*, bool Options::*> flags = {
        MEMBER(chkResizBackup),           MEMBER(chkResizeMini),         MEMBER(chkResizeSmall),
        MEMBER(chkResizeBlack),           MEMBER(chkResizeHalf),         MEMBER(chkResizeWhole),
        MEMBER(chkResizeBlackDiamond),    MEMBER(chkResizeWhiteDiamond), MEMBER(chkResizeSome),
        MEMBER(chkSymbolResize),          MEMBER(chkSymbolIntegerPar4),  MEMBER(chkPlaceholderSet),
        MEMBER(chkPlaceholderDescenders), MEMBER(chkPlaceholderReset)};
    const std::map<const char*, std::string Options::*> texts = {
        MEMBER(txtResizeNoteSize),       MEMBER(txtResizeSlur),           MEMBER(txtResizeStaffSize),
        MEMBER(txtResizeStaffInstrPart), MEMBER(txtSymbolResize),         MEMBER(txtSymbolNewSize),
        MEMBER(txtResizePageNumberSize), MEMBER(txtResizePageNumberFont), MEMBER(txtResizeBarNumberSize),
        MEMBER(txtResizeBarNumberFont),  MEMBER(txtResizeLyrics),         MEMBER(txtResizeTextCurrent),
        MEMBER(txtResizeTextNew)};
#undef MEMBER
    for (const auto& [name, flag] : flags) {
        const bool before = options.*flag;
        panel.set(name, before ? "0" : "1");
        EXPECT_NE(options.*flag, before) << name;
        panel.set(name, before ? "1" : "0");
        EXPECT_EQ(options.*flag, before) << name;
    }
    panel.set("chkResizeBlack", "1");
    for (const auto& [name, text] : texts) {
        EXPECT_EQ(panel.set(name, "1.51"), PanelAnswer::done);
        EXPECT_EQ(options.*text, "1.51") << name;
    }
    for (const auto& [first, second] : {std::pair{"optResizeStaffInstrId", "optResizeStaffPart"},
                                        {"optResizePageNumber", "optResizeBarNumber"},
                                        {"optResizeLyrics", "optTextResizeTextSize"}}) {
        panel.set(second, "1");
        EXPECT_EQ(shown(first) + shown(second), "01");
        panel.set(first, "1");
        EXPECT_EQ(shown(first) + shown(second), "10");
    }
    host.messages.clear();
    for (const char* name : {"txtResizePageNumberSize", "txtSymbolNewSize"}) panel.set(name, "0");
    EXPECT_EQ(host.messages,
              (Texts{"Invalid page number size value. Assumed 1.1", "Invalid size. Assumed 1"}));
}

TEST_F(ResizPanelTest, TakesTheNoteSizeWithAtLeastOneKindOfNote) {
    const Texts kinds = {"chkResizeMini",  "chkResizeSmall",        "chkResizeBlack",       "chkResizeHalf",
                         "chkResizeWhole", "chkResizeBlackDiamond", "chkResizeWhiteDiamond"};
    EXPECT_EQ(panel.set("txtResizeNoteSize", "1.5"), PanelAnswer::disabled);
    for (const std::string& kind : kinds) {
        panel.set(kind, "1");
        EXPECT_TRUE(isEnabled("txtResizeNoteSize")) << kind;
        panel.set(kind, "0");
        EXPECT_FALSE(isEnabled("txtResizeNoteSize")) << kind;
    }
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
    panel.set("txtResizeTextResize", "_00Fine");
    panel.click("txtResizeTextResize");
    EXPECT_EQ(shown("txtResizeTextResize"), "_00Fine") << "the box was cancelled";
    EXPECT_EQ(host.messages.back(), "String not starting with one or two underscores. Input discarded");
}

TEST_F(ResizPanelTest, ShowsARunAndTakesNothingMeanwhile) {
    panel.set("tabResiz", "2");
    panel.set("txtResizeStaffSize", "0.5");
    std::string page;
    for (int item = 0; item < 500; ++item) page += words({6, 8, 1, 0, 0, 1, 200});
    host.write("page.mus", pageOf(page));
    int percent = 0;
    host.onYield = [&] {
        if (shown("lblResizeActivity") == "Reading") percent = std::stoi(shown("panResizeFlood"));
        EXPECT_EQ(shown("lblResizeStatus"), "File being processed: 1 of 1");
        EXPECT_EQ(panel.command("cmdResizeReturn")->caption(), "Cancel");
        EXPECT_EQ(panel.press("cmdResizeRun"), PanelAnswer::disabled);
        EXPECT_EQ(panel.press("cmdResizeSelect"), PanelAnswer::disabled);
        EXPECT_EQ(panel.set("txtResizeStaffSize", "2"), PanelAnswer::disabled);
    };
    EXPECT_EQ(panel.press("cmdResizeRun"), PanelAnswer::done);
    EXPECT_GT(percent, 0) << "progress within the file is shown";
    EXPECT_TRUE(host.read("page.mus").ends_with(pageOf(words({6, 8, 1, 0, 0, 0.5F, 200})).substr(2)));
    EXPECT_EQ(shown("lblResizeStatus") + shown("lblResizeActivity"), "");
    EXPECT_EQ(panel.press("cmdResizeReturn"), PanelAnswer::done);
    EXPECT_TRUE(panel.closed());
}

TEST_F(ResizPanelTest, SelectsFiles) {
    host.programs["TULNAMES.EXE"] = [this](const std::string& arguments) {
        EXPECT_TRUE(arguments.ends_with(",MSG=Select Score music file(s)")) << arguments;
        host.write("NAMES.TUL", "");
        return 0;
    };
    panel.press("cmdResizeSelect");
    EXPECT_EQ(panel.press("cmdResizeRun"), PanelAnswer::disabled) << "nothing is selected now";
    EXPECT_EQ(panel.press("cmdResizeView"), PanelAnswer::disabled);
}

}  // namespace
}  // namespace tul
