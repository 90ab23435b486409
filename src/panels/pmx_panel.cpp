#include "panels/pmx_panel.h"

#include <algorithm>

#include "centre/names_file.h"
#include "centre/panel_place.h"
#include "check/pmx_export.h"
#include "host/host.h"
#include "music/mus_reader.h"
#include "panels/tool_panel.h"
#include "shared/records.h"

namespace tul {

namespace {

struct PmxPanel {
    PanelPlace place;
    std::string viewTip;
};
PmxPanel pmxPanel;

bool holdsFileList(const std::string& path) { return path.find(fileListName) != std::string::npos; }

/// A list of items is no music file to the selection programs, so its drop goes into the names file directly.
void dropPmxFiles(const std::vector<std::string>& dropped) {
    if (std::none_of(dropped.begin(), dropped.end(), holdsFileList))
        return DropFiles(dropped, pmxPanel.viewTip);
    std::string text;
    for (const std::string& path : dropped) text += namesFileLine(path);
    if (files().replace(paths.NamesFilePath, text) != FileError::none) {
        MsgBox("Drop error or open error of: " + paths.NamesFilePath, Buttons::ok, Icon::exclamation);
        return;
    }
    ReadNamesFile();
    RefreshViewTip(pmxPanel.viewTip);
}

}  // namespace

Panel makePmxPanel() {
    using pmx::pmxRun;
    pmx::resetPmxRun();
    pmxPanel = {};
    const Live<bool> idle = [] { return !pmxRun.control.running; };
    pmx::PmxOptions& options = pmxRun.options;
    const auto option = [&](const char* name, bool& value) {
        return Field{.name = name,
                     .kind = FieldKind::option,
                     .value = &value,
                     .group = "fraPMXformat",
                     .enabled = idle};
    };
    const auto check = [&](const char* name, bool& value) {
        return Field{.name = name, .kind = FieldKind::check, .value = &value, .enabled = idle};
    };

    Panel panel;
    panel.name = "frmPmx";
    panel.caption = "TulPmx - PMX file creation";
    panel.runCommand = "cmdPmxRun";
    panel.fields = {
        option("optPMXformatTab", options.optPMXformatTab),
        option("optPMXformatCondensed", options.optPMXformatCondensed),
        check("chkPMXcomment", options.chkPMXcomment),
        check("chkPMXshow", options.chkPMXshow),
        check("chkPMXreport", options.chkPMXreport),
        {.name = "panPmxFileName", .kind = FieldKind::label, .value = &pmxRun.panPmxFileName},
        {.name = "lblPmxStatus", .kind = FieldKind::label, .value = &pmxRun.lblPmxStatus},
        {.name = "panPmxFloodRun", .kind = FieldKind::progress, .value = &pmxRun.panPmxFloodRun},
        {.name = "panPmxFloodFile", .kind = FieldKind::progress, .value = &pmxRun.panPmxFloodFile},
    };
    Command select = selectCommand("cmdPmxSelect", "Select PMX file(s)", pmxPanel.viewTip, idle);
    select.drop = dropPmxFiles;
    panel.commands = {
        std::move(select),
        viewCommand("cmdPmxView", pmxPanel.viewTip, idle),
        {.name = "cmdPmxRun",
         .caption = std::string("Run"),
         .run = pmx::cmdPmxRun,
         .enabled = [] { return selection.SelectionValid && !pmxRun.control.running; }},
        {.name = "cmdPmxReturn",
         .caption = [] { return pmxRun.control.returnCaption; },
         .run = [] { pmxRun.control.press(); }},
    };
    panel.load = [] { loadToolPanel(pmxPanel.place); };
    panel.place = &pmxPanel.place;
    panel.closed = [] { return pmxRun.control.closed; };
    return panel;
}

}  // namespace tul
