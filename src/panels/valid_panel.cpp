#include "panels/valid_panel.h"

#include "base/numbers.h"
#include "check/validation.h"
#include "panels/tool_panel.h"
#include "shared/records.h"

namespace tul {

namespace {

ToolPanelState state;

void showFirstName() {
    valid::validation.view.file = selection.SelectionCount > 0 ? selection.SelectionNames[1] : "";
}

}  // namespace

void resetValidPanel() {
    valid::resetValidation();
    state = {};
}

Panel describeValidPanel() {
    using valid::validation;
    return toolPanel({
        .form = "frmValid",
        .caption = "TulValid - MUS file validation and recovery",
        .controls = {.buttons = "Validate",
                     .status = "lblValidStatus",
                     .file = "panValidFileName",
                     .overFiles = "panValidFloodRun",
                     .inFile = "panValidFloodFile"},
        .selectPrompt = "",
        .view = validation.view,
        .state = state,
        .run = valid::cmdValidateRun,
        .fields = {shownField("txtValidRange", validation.txtValidRange)},
        .load = [] { validation.txtValidRange = plain(projectSettings.StaffRange); },
        .selectionChanged = showFirstName,
    });
}

}  // namespace tul
