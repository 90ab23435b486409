#include "panels/edit_panel.h"

#include <utility>

#include "base/append.h"
#include "base/numbers.h"
#include "centre/installation.h"
#include "centre/launching.h"
#include "centre/names_file.h"
#include "edit/edit_profile.h"
#include "edit/edit_run.h"
#include "panels/edit_later_fields.h"
#include "panels/tool_panel.h"
#include "shared/records.h"

namespace tul {

namespace {

using edit::editing;

ToolPanelState state;

/// The current file's place says so as long as nothing is selected.
void showSelection() {
    RefreshViewTip(state.viewTip);
    editing.view.file = selection.SelectionValid ? std::string()
                                                 : "Names file " + paths.NamesFileName + " has" +
                                                       str(selection.SelectionCount) + " filenames";
}

std::vector<Field> fields() {
    std::vector<Field> all = {
        tabField("tabEdit", editing.tabEdit, edit::tabNames()),
        checkField("chkEditBackup", editing.chkEditBackup),
        shownField("txtEditFile", editing.view.file),
    };
    for (const edit::Family* family : edit::families()) append(all, family->fields());
    append(all, editlater::laterFields());
    return all;
}

std::vector<Command> commands() {
    std::vector<Command> all = {
        {.name = "cmdEdit2",
         .caption = "TulEdit2",
         .run = [] { ShellAndWait(inProgramFolder("TULEDIT2.EXE")); },
         .visible = [] { return identity.DeveloperMode; }},
        {.name = "lblViewTulEditProfileClick", .caption = "View profile", .run = edit::viewTulEditProfile},
    };
    for (const edit::Family* family : edit::families())
        if (family->commands) append(all, family->commands());
    append(all, editlater::laterCommands());
    return all;
}

}  // namespace

void resetEditPanel() {
    edit::resetEdit();
    editlater::resetLaterFields();
    state = {};
}

Panel describeEditPanel() {
    return toolPanel({
        .form = "frmEdit",
        .caption = "TulEdit ",
        .controls = {.buttons = "Edit",
                     .status = "lblEditStatus",
                     .activity = "lblEditAct",
                     .overFiles = "panEditFloodRun",
                     .inFile = "panEditFlood"},
        .selectPrompt = "Select Score music file(s)",
        .view = editing.view,
        .state = state,
        .run = edit::cmdEditRun,
        .fields = fields(),
        .commands = commands(),
        .load =
            [] {
                edit::loadTulEditProfile();
                editlater::showProjectSettings();
            },
        .selectionChanged = showSelection,
        .leave = edit::saveTulEditProfile,
    });
}

}  // namespace tul
