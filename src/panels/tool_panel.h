#pragma once

#include <string>

#include "shared/panel.h"

/// What all tool panels have in common.
namespace tul {

/// The load step of a tool panel: its place, and the selection that it will work on.
void loadToolPanel(PanelPlace& place);

/// The select button: a click runs the selection program with `message` as its prompt (empty: none), a drop
/// takes the files over.
Command selectCommand(const std::string& name, const std::string& message, std::string& viewTip,
                      Live<bool> enabled);
/// The view button, enabled with a selection.
Command viewCommand(const std::string& name, std::string& viewTip, const Live<bool>& enabled);

}  // namespace tul
