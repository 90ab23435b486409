#include "command/open_panels.h"

#include <functional>

namespace tul::command {

void OpenPanels::open(const PanelEntry& entry) {
    panels_.push_back(entry.make());
    if (panels_.back().load) panels_.back().load();
}

void OpenPanels::dropClosed() {
    while (count() > 1 && front().closed()) {
        const std::function<void()> unload = front().unload;
        panels_.pop_back();
        if (unload) unload();
    }
}

}  // namespace tul::command
