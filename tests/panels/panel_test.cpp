#include "shared/panel.h"

#include "base/numbers.h"
#include "check/validation.h"
#include "support/test.h"

namespace tul {
namespace {

/// A record as a tool has it.
struct Options {
    bool optFirst = true;
    bool optSecond = false;
    bool optOther = true;
    bool chkBackup = false;
    std::string txtSize = "1.0";
    std::string lblState = "idle";
    int tabPages = 0;
    ListBox lstFonts{.title = {}, .entries = {"_00", "_01"}};
};

Panel makePanel(Options& options, std::string& chosen) {
    Panel panel;
    panel.name = "frmTest";
    panel.fields = {
        optionField("fraOne", "optFirst", options.optFirst),
        optionField("fraOne", "optSecond", options.optSecond),
        optionField("fraTwo", "optOther", options.optOther),
        checkField("chkBackup", options.chkBackup),
        onlyIf(textField("txtSize", options.txtSize, "New size",
                         [](const std::string& text) { return isNumeric(text) ? text : "1.0"; }),
               [&options] { return options.chkBackup; }),
        labelField("lblState", options.lblState),
        tabField("tabPages", options.tabPages, {"first", "second", "third"}),
        listField("lstFonts", options.lstFonts, [&chosen](const std::string& entry) { chosen = entry; }),
    };
    return panel;
}

TEST(PanelFields, TakeWhatAWindowWouldLetAUserDo) {
    Options options;
    std::string chosen;
    Panel panel = makePanel(options, chosen);
    EXPECT_EQ(panel.set("optSecond", "1"), PanelAnswer::done);
    EXPECT_FALSE(options.optFirst) << "one option of a frame excludes the others";
    EXPECT_TRUE(options.optOther) << "the options of another frame stay";

    EXPECT_EQ(panel.set("optSecond", "0"), PanelAnswer::invalid) << "one of them is always on";
    EXPECT_TRUE(options.optSecond);

    EXPECT_EQ(panel.set("txtSize", "2"), PanelAnswer::disabled);
    EXPECT_EQ(panel.set("CHKBACKUP", "True"), PanelAnswer::done);
    EXPECT_EQ(panel.set("txtSize", "2"), PanelAnswer::done);
    EXPECT_EQ(options.txtSize, "2");
    EXPECT_EQ(panel.set("txtSize", "wide"), PanelAnswer::done);
    EXPECT_EQ(options.txtSize, "1.0") << "a refused value falls back";

    EXPECT_EQ(panel.set("chkBackup", "maybe"), PanelAnswer::invalid);
    EXPECT_EQ(panel.set("tabPages", "2"), PanelAnswer::done);
    EXPECT_EQ(options.tabPages, 2);
    EXPECT_EQ(panel.set("tabPages", " SECOND "), PanelAnswer::done);
    EXPECT_EQ(options.tabPages, 1);
    EXPECT_EQ(panel.set("tabPages", "3"), PanelAnswer::invalid);
    EXPECT_EQ(panel.set("tabPages", "99999999999"), PanelAnswer::invalid);
    EXPECT_EQ(panel.set("lblState", "busy"), PanelAnswer::disabled);
    EXPECT_EQ(panel.set("lstFonts", "_99"), PanelAnswer::invalid);
    EXPECT_EQ(panel.set("lstFonts", "_01"), PanelAnswer::done);
    EXPECT_EQ(chosen, "_01");
    EXPECT_EQ(panel.set("txtUnknown", "1"), PanelAnswer::unknown);
    EXPECT_EQ(panel.field("lstFonts")->text(), "_00\r\n_01");
}

TEST(PanelList, FindsPanelsByEachOfTheirNames) {
    for (const char* name : {"valid", "VALIDATE", "frmValid"}) {
        const PanelEntry* const entry = findPanel(name);
        ASSERT_NE(entry, nullptr) << name;
        EXPECT_STREQ(entry->form, "frmValid");
    }
    EXPECT_EQ(findPanel(""), nullptr);
    EXPECT_EQ(findPanel("frm"), nullptr);
}

TEST(PanelList, NamesEveryControlOnce) {
    ScriptedHost host;
    for (const PanelEntry& entry : panelList()) {
        const Panel panel = entry.make();
        EXPECT_EQ(panel.name, entry.form);
        Texts names;
        for (const Field& field : panel.fields) names.push_back(field.name);
        for (const Command& command : panel.commands) names.push_back(command.name);
        std::sort(names.begin(), names.end());
        EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end()) << entry.form;
    }
}

/// Where the value of a field lies.
const void* placeOf(const Field& field) {
    return std::visit([](const auto& kind) { return static_cast<const void*>(kind.value); }, field.kind);
}

TEST(PanelList, GivesEachFieldAValueOfItsOwn) {
    ScriptedHost host;
    std::map<const void*, std::string> owners;
    for (const PanelEntry& entry : panelList()) {
        const Panel panel = entry.describe();
        for (const Field& field : panel.fields) {
            const auto [owner, isNew] = owners.emplace(placeOf(field), field.name);
            EXPECT_TRUE(isNew) << field.name << " and " << owner->second;
        }
    }
}

/// What the records of all panels hold, looked at through their fields.
std::map<std::string, std::string> fieldsOfAllPanels() {
    std::map<std::string, std::string> texts;
    for (const PanelEntry& entry : panelList()) {
        const Panel panel = entry.describe();
        for (const Field& field : panel.fields)
            texts[panel.name + '.' + field.name] = field.text() + (panel.isEnabled(field) ? "" : " grey");
    }
    return texts;
}

/// Changes whatever a user can switch.
void use(Panel panel) {
    for (const Field& field : panel.fields)
        for (const char* value : {"1", "0", "1"}) panel.set(field.name, value);
}

TEST(PanelList, APanelStartsAnewHoweverOftenAndBehindWhichever) {
    ScriptedHost host;
    host.install();
    const auto fresh = fieldsOfAllPanels();
    EXPECT_EQ(fieldsOfAllPanels(), fresh) << "a look changes nothing";
    std::vector<PanelEntry> panels = panelList();
    std::erase_if(panels, [](const PanelEntry& entry) { return !entry.reset; });
    for (std::size_t turn = 0; turn < 2 * panels.size(); ++turn) {
        for (const PanelEntry& entry : panels) use(entry.make());
        EXPECT_NE(fieldsOfAllPanels(), fresh);
        for (const PanelEntry& entry : panels) static_cast<void>(entry.make());
        for (const auto& [name, text] : fieldsOfAllPanels()) EXPECT_EQ(text, fresh.at(name)) << name;
        std::rotate(panels.begin(), panels.begin() + 1, panels.end());
        if (turn == panels.size()) std::reverse(panels.begin(), panels.end());
    }
}

TEST_F(PanelTest, AToolReturnsOrCancels) {
    open("valid");
    EXPECT_EQ(panel.command("cmdValidateReturn")->caption(), "Return");
    valid::validation.view.control.begin();
    EXPECT_EQ(panel.command("cmdValidateReturn")->caption(), "Cancel");
    EXPECT_FALSE(isEnabled("cmdValidateSelect"));
    panel.press("cmdValidateReturn");
    EXPECT_TRUE(valid::validation.view.control.isStopped());
    EXPECT_EQ(panel.command("cmdValidateReturn")->caption(), "Return");
    panel.press("cmdValidateReturn");
    EXPECT_FALSE(panel.closed()) << "a second click does not close a panel that still runs";
    valid::validation.view.control.end();
    panel.press("cmdValidateReturn");
    EXPECT_TRUE(panel.closed());
    EXPECT_EQ(panel.press("cmdValidateReturn"), PanelAnswer::disabled);
}

}  // namespace
}  // namespace tul
