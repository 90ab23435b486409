
#include <set>

#include "centre/project_options.h"
#include "edit/edit_run.h"
#include "edit/general_edit.h"
#include "edit/text_search.h"
#include "support/test.h"

namespace tul {
namespace {

class EditPanelTest : public PanelTest {
  protected:
    EditPanelTest() {
        projectSettings.PlateNumber = " 1234";
        projectSettings.PlateNumberFont = "_00";
        projectSettings.PlateNumberSize = ".8";
        projectSettings.LyricsFont = "_05";
        host.write("page.mus", pageOf(words({2, 8, 1})));
        writeNames({"page.mus"});
        open("edit");
    }
};

TEST_F(EditPanelTest, StartsAsItsTabsDo) {
    for (const auto& [field, text] : {std::pair{"lstl2", "--------"},
                                      {"lstr1", "=\r\n<>\r\n<\r\n<=\r\n>\r\n>="},
                                      {"txtCurrentPlateNr", "Current plate number=_00 1234, Size=.8"},
                                      {"txtLJfont", "_05"},
                                      {"lblEditStatus", "File being processed"},
                                      {"txtEditFile", ""}})
        EXPECT_EQ(shown(field), text) << field;
    EXPECT_TRUE(host.exists("TULEDIT.PRO"));
    EXPECT_EQ(panel.set("tabEdit", "13"), PanelAnswer::done);
    EXPECT_EQ(panel.set("tabEdit", "14"), PanelAnswer::invalid);
    EXPECT_EQ(panel.set("tabEdit", "general"), PanelAnswer::done);
    EXPECT_EQ(edit::editing.tabEdit, edit::tabGeneral);
}

TEST_F(EditPanelTest, FieldsExcludeOneAnother) {
    panel.set("chkEditSearchFont", "1");
    EXPECT_FALSE(isEnabled("chkSearchReplaceIncludeFont"));
    panel.set("chkEditSearchFont", "0");
    for (const char* box : {"chkReplaceWholeWord", "chkEditVerify"}) panel.set(box, "1");
    panel.set("chkSearchReplaceIncludeFont", "1");
    for (const char* box :
         {"chkReplaceWholeWord", "chkEditVerify", "chkEditSearchFont", "chkEditSearchSize"}) {
        EXPECT_EQ(shown(box), "0") << box;
        EXPECT_FALSE(isEnabled(box)) << box;
    }
    EXPECT_EQ(panel.set("txtEditFontOutput", "07"), PanelAnswer::done);
    EXPECT_FALSE(panel.isOffered(*panel.field("txtEditFontOutput")));
    panel.set("optEditModifyText", "1");
    panel.set("optEditDeleteModify", "1");
    EXPECT_TRUE(panel.isOffered(*panel.field("txtEditFontOutput")));
    EXPECT_EQ(shown("optEditSearch"), "0");
    EXPECT_EQ(panel.set("txtEditFontOutput", "7"), PanelAnswer::done);
    EXPECT_EQ(shown("txtEditFontOutput"), "07") << "a refused font leaves the present one";
}

TEST_F(EditPanelTest, ConditionsAreFilledFromFieldsAndLists) {
    panel.set("optEditGeneralLocate", "1");
    EXPECT_EQ(shown("chkEditBackup"), "0");
    EXPECT_EQ(panel.set("txtp4", "9"), PanelAnswer::disabled) << "hidden with the report";
    panel.set("optOptionChange", "1");
    EXPECT_EQ(shown("chkEditBackup"), "0");
    const Texts given = {"txtp1", "txtv1", "txtp2", "txtv2", "txtp3", "txtv3", "txtp4", "txtv4"};
    for (const std::string& field : given) EXPECT_EQ(panel.set(field, field), PanelAnswer::done) << field;
    EXPECT_EQ(edit::generalEdit.txtp[2] + edit::generalEdit.txtv[1], "txtp3txtv2");
    EXPECT_EQ(edit::generalEdit.txtp4 + edit::generalEdit.txtv4, "txtp4txtv4");
    EXPECT_EQ(panel.set("lstr3", ">="), PanelAnswer::done);
    EXPECT_EQ(panel.set("lstr3", "=>"), PanelAnswer::invalid);
    EXPECT_EQ(shown("lstr3"), ">=");
    EXPECT_EQ(edit::generalEdit.lstr[2].text, ">=");
    panel.set("lstl2", "&not");
    EXPECT_EQ(shown("lstl2"), "&not");
    panel.set("lstl2", "");
    EXPECT_EQ(shown("lstl2"), "--------");
    EXPECT_EQ(edit::generalEdit.lstl[0].text, "");
    host.inputs = {"12"};
    panel.click("txtp1");
    EXPECT_EQ(shown("txtp1"), "12");
}

TEST_F(EditPanelTest, ADeveloperSeesMoreAndHidesSomeOfItByAClickOnTheBackground) {
    const std::map<bool, Texts> hiddenByTheClick = {
        {false, {"cmdTessler", "cmdHalve", "cmdMidiPrep", "cmdEdit2", "optEditFingerDispl"}},
        {true, {"cmdMarlo", "cmdDorvel", "cmdNewMeters", "cmdQuintal", "cmdLHfingers", "txtLHfingerPar16"}}};
    const auto isVisible = [&](const std::string& name) {
        const Field* const field = panel.field(name);
        return field ? field->visible() : panel.command(name)->visible();
    };
    const auto expectVisible = [&](bool others, bool hideable) {
        for (const auto& [isHideable, names] : hiddenByTheClick)
            for (const std::string& name : names)
                EXPECT_EQ(isVisible(name), isHideable ? hideable : others) << name;
    };
    expectVisible(false, false);
    EXPECT_EQ(panel.press("frmEditClick"), PanelAnswer::disabled);
    identity.DeveloperMode = true;
    expectVisible(true, true);
    panel.press("frmEditClick");
    expectVisible(true, false);
    storeProjectOption("FingerSizeLH", ".8");
    panel.load();
    expectVisible(true, true);
    EXPECT_EQ(panel.command("cmdLHfingers")->toolTip(),
              "RH finger alignment for Score4 (finger size taken from global setting: .8).");
    host.mayRun("TULEDIT2.EXE");
    panel.press("cmdEdit2");
    EXPECT_TRUE(contains(host.launches.back(), "TULEDIT2.EXE"));
}

TEST_F(EditPanelTest, ReturningKeepsTheProfile) {
    host.remove("TULEDIT.PRO");
    panel.press("cmdEditReturn");
    EXPECT_TRUE(host.exists("TULEDIT.PRO"));
    EXPECT_TRUE(panel.closed());
}

}  // namespace
}  // namespace tul
