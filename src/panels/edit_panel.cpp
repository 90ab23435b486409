#include "panels/edit_panel.h"

#include "base/append.h"
#include "base/numbers.h"
#include "centre/installation.h"
#include "centre/launching.h"
#include "centre/names_file.h"
#include "edit/edit_profile.h"
#include "edit/edit_run.h"
#include "panels/tool_panel.h"
#include "shared/records.h"

namespace tul {

namespace {

using edit::editing;

ToolPanelState state;
const std::string editSecond = "Edits of another program:";

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
        shownIf(labelField("lblTulEdit2", editSecond), [] { return identity.DeveloperMode; }),
    };
    for (const edit::Family* family : edit::families())
        if (family->fields) append(all, family->fields());
    return all;
}

std::vector<Command> commands() {
    std::vector<Command> all = {
        edit::forDevelopers({.name = "cmdEdit2",
                             .caption = "TulEdit2",
                             .run = [] { ShellAndWait(inProgramFolder("TULEDIT2.EXE")); }}),
        edit::forDevelopers({.name = "frmEditClick",
                             .caption = "Click on the background: hide the developer's buttons",
                             .run = [] { editing.hidesButtons = true; }}),
        {.name = "lblViewTulEditProfileClick", .caption = "View profile", .run = edit::viewTulEditProfile},
    };
    for (const edit::Family* family : edit::families())
        if (family->commands) append(all, family->commands());
    return all;
}

}  // namespace

void resetEditPanel() {
    edit::resetEdit();
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
                editing.hidesButtons = false;
                edit::loadTulEditProfile();
                for (const edit::Family* family : edit::families())
                    if (family->load) family->load();
            },
        .selectionChanged = showSelection,
        .leave = edit::saveTulEditProfile,
    });
}

}  // namespace tul
