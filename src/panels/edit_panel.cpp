#include "panels/edit_panel.h"

#include <utility>

#include "base/numbers.h"
#include "centre/launching.h"
#include "centre/names_file.h"
#include "centre/panel_place.h"
#include "edit/edit_fields.h"
#include "edit/edit_profile.h"
#include "edit/edit_run.h"
#include "music/pipeline.h"
#include "panels/edit_later_fields.h"
#include "panels/tool_panel.h"
#include "shared/records.h"

namespace tul {

namespace {

using edit::editing;
using edit::isIdle;

struct EditPanel {
    PanelPlace place;
    std::string viewTip;
};
EditPanel editPanel;

/// The current file's place says so as long as nothing is selected.
void showSelection() {
    editing.txtEditFile = selection.SelectionValid ? std::string()
                                                   : "Names file " + paths.NamesFileName + " has" +
                                                         str(selection.SelectionCount) + " filenames";
}

Command showingSelection(Command command) {
    command.run = [run = std::move(command.run)] {
        run();
        showSelection();
    };
    if (command.drop)
        command.drop = [drop = std::move(command.drop)](const std::vector<std::string>& dropped) {
            drop(dropped);
            showSelection();
        };
    return command;
}

std::vector<Field> runFields() {
    return {
        {.name = "tabEdit",
         .kind = FieldKind::tab,
         .value = &editing.tabEdit,
         .enabled = isIdle,
         .choices = edit::tabCount},
        edit::checkField("chkEditBackup", editing.chkEditBackup),
        {.name = "lblEditStatus", .kind = FieldKind::label, .value = &editing.lblEditStatus},
        {.name = "txtEditFile", .kind = FieldKind::text, .value = &editing.txtEditFile},
        {.name = "lblEditAct", .kind = FieldKind::label, .value = &pipeline.activity},
        {.name = "panEditFlood", .kind = FieldKind::progress, .value = &pipeline.progress},
    };
}

std::vector<Command> commands() {
    return {
        showingSelection(
            selectCommand("cmdEditSelect", "Select Score music file(s)", editPanel.viewTip, isIdle)),
        showingSelection(viewCommand("cmdEditView", editPanel.viewTip, isIdle)),
        {.name = "cmdEditRun",
         .caption = std::string("Run"),
         .run = edit::cmdEditRun,
         .enabled = [] { return selection.SelectionValid && isIdle(); }},
        {.name = "cmdEditReturn",
         .caption = std::string("Return"),
         .run =
             [] {
                 edit::saveTulEditProfile();
                 editing.control.press();
             },
         .enabled = isIdle},
        {.name = "cmdEdit2",
         .caption = std::string("TulEdit2"),
         .run = [] { ShellAndWait(paths.ProgramFolder + "\\TULEDIT2.EXE"); },
         .enabled = isIdle,
         .visible = [] { return identity.DeveloperMode; }},
        {.name = "lblViewTulEditProfileClick",
         .caption = std::string("View profile"),
         .run = edit::viewTulEditProfile,
         .enabled = isIdle},
    };
}

template <class Entry>
void append(std::vector<Entry>& all, const std::vector<Entry>& more) {
    all.insert(all.end(), more.begin(), more.end());
}

}  // namespace

Panel makeEditPanel() {
    edit::resetEdit();
    editPanel = {};
    Panel panel;
    panel.name = "frmEdit";
    panel.caption = "TulEdit ";
    panel.runCommand = "cmdEditRun";
    panel.fields = runFields();
    for (const edit::Family* family : edit::families()) append(panel.fields, family->fields());
    append(panel.fields, editlater::laterFields());
    panel.commands = commands();
    append(panel.commands, editlater::laterCommands());
    panel.place = &editPanel.place;
    panel.load = [] {
        loadToolPanel(editPanel.place);
        edit::loadTulEditProfile();
        editlater::showProjectSettings();
        RefreshViewTip(editPanel.viewTip);
        showSelection();
    };
    panel.closed = [] { return editing.control.closed; };
    return panel;
}

}  // namespace tul
