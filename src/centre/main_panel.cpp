#include "centre/main_panel.h"

namespace tul {

MainPanel mainPanel;
NotepadPanel notepadPanel;

bool MainPanel::isEnabled(std::string_view control) const {
    const auto found = enabled.find(control);
    return found == enabled.end() || found->second;
}

void resetCentreRecords() {
    mainPanel = {};
    notepadPanel = {};
}

}  // namespace tul
