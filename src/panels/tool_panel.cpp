#include "panels/tool_panel.h"

#include "base/numbers.h"
#include "centre/names_file.h"
#include "centre/panel_place.h"
#include "shared/records.h"

namespace tul {

namespace {

/// Tells how many files the tool will work on.
std::string viewCaption() {
    if (!selection.SelectionValid) return "View";
    return "View " + plain(selection.SelectionCount) + (selection.SelectionCount == 1 ? " file" : " files");
}

}  // namespace

void loadToolPanel(PanelPlace& place) {
    place.height = heightOfPanels();
    positionPanel(place);
    ReadNamesFile();
}

Command selectCommand(const std::string& name, const std::string& message, std::string& viewTip,
                      Live<bool> enabled) {
    return {.name = name,
            .caption = "Select",
            .run = [message, &viewTip] { SelectFiles(message, viewTip); },
            .enabled = std::move(enabled),
            .toolTip = "Select music files, or drop them here",
            .drop = [&viewTip](const std::vector<std::string>& dropped) { DropFiles(dropped, viewTip); }};
}

Command viewCommand(const std::string& name, std::string& viewTip, const Live<bool>& enabled) {
    return {.name = name,
            .caption = viewCaption,
            .run = [&viewTip] { ViewNamesFile(viewTip); },
            .enabled = [enabled] { return selection.SelectionValid && enabled(); },
            .toolTip = [&viewTip] { return viewTip; }};
}

}  // namespace tul
