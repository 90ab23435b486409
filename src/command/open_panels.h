#pragma once

#include <cstddef>
#include <deque>

#include "panels/panel_list.h"
#include "shared/panel.h"

namespace tul::command {

/// The panels of a run, one over the other as windows would stand; the last one takes what is set and
/// pressed.
class OpenPanels {
  public:
    /// Opens a panel over the others and runs its load step.
    void open(const PanelEntry& entry);
    /// Takes away the panels in front that have closed. The first panel stays.
    void dropClosed();

    std::size_t count() const { return panels_.size(); }
    Panel& front() { return panels_.back(); }
    const Panel& front() const { return panels_.back(); }

  private:
    std::deque<Panel> panels_;
};

}  // namespace tul::command
