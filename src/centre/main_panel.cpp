#include "centre/main_panel.h"

#include "shared/records.h"

namespace tul {

MainPanel mainPanel;
NotepadPanel notepadPanel;

bool MainPanel::isEnabled(std::string_view control) const {
    const auto found = enabled.find(control);
    return found == enabled.end() || found->second;
}

void showPreferredTab() {
    if (projectSettings.PanelPreference < 0 || projectSettings.PanelPreference >= preferableTabs)
        projectSettings.PanelPreference = 0;
    mainPanel.tabLogo = projectSettings.PanelPreference;
}

void resetCentreRecords() {
    mainPanel = {};
    notepadPanel = {};
}

}  // namespace tul
