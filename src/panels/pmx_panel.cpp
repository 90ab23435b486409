#include "panels/pmx_panel.h"

#include <algorithm>

#include "centre/names_file.h"
#include "check/pmx_export.h"
#include "host/host.h"
#include "music/mus_reader.h"
#include "panels/tool_panel.h"
#include "shared/records.h"

namespace tul {

namespace {

ToolPanelState state;

bool holdsFileList(const std::string& path) { return path.find(fileListName) != std::string::npos; }

/// A list of items is no music file to the selection programs, so its drop goes into the names file directly.
void dropPmxFiles(const std::vector<std::string>& dropped) {
    if (std::none_of(dropped.begin(), dropped.end(), holdsFileList)) return DropFiles(dropped, state.viewTip);
    std::string text;
    for (const std::string& path : dropped) text += namesFileLine(path);
    if (files().replace(paths.NamesFilePath, text) != FileError::none) {
        MsgBox("Drop error or open error of: " + paths.NamesFilePath, Buttons::ok, Icon::exclamation);
        return;
    }
    ReadNamesFile();
    RefreshViewTip(state.viewTip);
}

}  // namespace

void resetPmxPanel() {
    pmx::resetPmxRun();
    state = {};
}

Panel describePmxPanel() {
    pmx::PmxOptions& options = pmx::pmxRun.options;
    return toolPanel({
        .form = "frmPmx",
        .caption = "TulPmx - PMX file creation",
        .controls = {.buttons = "Pmx",
                     .status = "lblPmxStatus",
                     .file = "panPmxFileName",
                     .overFiles = "panPmxFloodRun",
                     .inFile = "panPmxFloodFile"},
        .selectPrompt = "Select PMX file(s)",
        .view = pmx::pmxRun.view,
        .state = state,
        .run = pmx::cmdPmxRun,
        .fields = {optionField("fraPMXformat", "optPMXformatTab", options.optPMXformatTab),
                   optionField("fraPMXformat", "optPMXformatCondensed", options.optPMXformatCondensed),
                   checkField("chkPMXcomment", options.chkPMXcomment),
                   checkField("chkPMXshow", options.chkPMXshow),
                   checkField("chkPMXreport", options.chkPMXreport)},
        .takeFiles = dropPmxFiles,
    });
}

}  // namespace tul
