#include "command/open_panels.h"

#include <algorithm>
#include <functional>

namespace tul::command {

void OpenPanels::open(const PanelEntry& entry) {
    panels_.push_back(entry.make());
    if (panels_.back().load) panels_.back().load();
}

void OpenPanels::dropClosed() {
    while (count() > 1 && front().closed()) {
        statusOfClosed_ = std::max(statusOfClosed_, front().exitStatus());
        const std::function<void()> unload = front().unload;
        panels_.pop_back();
        if (unload) unload();
    }
}

int OpenPanels::exitStatus() const {
    int status = statusOfClosed_;
    for (const Panel& panel : panels_) status = std::max(status, panel.exitStatus());
    return status;
}

}  // namespace tul::command
