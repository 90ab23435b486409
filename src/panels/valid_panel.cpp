#include "panels/valid_panel.h"

#include "base/numbers.h"
#include "centre/panel_place.h"
#include "check/validation.h"
#include "panels/tool_panel.h"
#include "shared/records.h"

namespace tul {

namespace {

constexpr int damagedFileFound = 3;

struct ValidPanel {
    PanelPlace place;
    std::string viewTip;
};
ValidPanel validPanel;

void showFirstName() {
    valid::validation.panValidFileName = selection.SelectionCount > 0 ? selection.SelectionNames[1] : "";
}

/// A command, and the first name shown anew behind it.
Command withFirstName(Command command) {
    command.run = [run = std::move(command.run)] {
        run();
        showFirstName();
    };
    if (command.drop) {
        command.drop = [drop = std::move(command.drop)](const std::vector<std::string>& dropped) {
            drop(dropped);
            showFirstName();
        };
    }
    return command;
}

}  // namespace

Panel makeValidPanel() {
    using valid::validation;
    valid::resetValidation();
    validPanel = {};
    const Live<bool> idle = [] { return !validation.control.running; };

    Panel panel;
    panel.name = "frmValid";
    panel.caption = "TulValid - MUS file validation and recovery";
    panel.runCommand = "cmdValidateRun";
    panel.fields = {
        {.name = "panValidFileName", .kind = FieldKind::label, .value = &validation.panValidFileName},
        {.name = "lblValidStatus", .kind = FieldKind::label, .value = &validation.lblValidStatus},
        {.name = "txtValidRange", .kind = FieldKind::text, .value = &validation.txtValidRange},
        {.name = "panValidFloodRun", .kind = FieldKind::progress, .value = &validation.panValidFloodRun},
        {.name = "panValidFloodFile", .kind = FieldKind::progress, .value = &validation.panValidFloodFile},
    };
    panel.commands = {
        withFirstName(selectCommand("cmdValidateSelect", "", validPanel.viewTip, idle)),
        withFirstName(viewCommand("cmdValidateView", validPanel.viewTip, idle)),
        {.name = "cmdValidateRun",
         .caption = "Run",
         .run = valid::cmdValidateRun,
         .enabled = [] { return selection.SelectionValid && !validation.control.running; }},
        {.name = "cmdValidateReturn",
         .caption = [] { return validation.control.returnCaption; },
         .run = [] { validation.control.press(); }},
    };
    panel.place = &validPanel.place;
    panel.load = [] {
        validation.txtValidRange = plain(projectSettings.StaffRange);
        loadToolPanel(validPanel.place);
        showFirstName();
    };
    panel.closed = [] { return validation.control.closed; };
    panel.exitStatus = [] { return validation.damagedFiles > 0 ? damagedFileFound : 0; };
    return panel;
}

}  // namespace tul
