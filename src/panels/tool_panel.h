#pragma once

#include <functional>
#include <string>
#include <vector>

#include "shared/panel.h"
#include "shared/run_view.h"

/// What all tool panels have in common: place, selection, run, return, and what is shown of a run.
namespace tul {

/// What a tool's panel keeps while it is loaded, beside its tool's record.
struct ToolPanelState {
    PanelPlace place;
    std::string viewTip;  // of the view button: how many files are selected
};

/// The names of the common controls; null for one that the panel does not have.
struct ToolControls {
    const char* buttons;  // what stands between "cmd" and Select, View, Run, Return
    const char* status = nullptr;
    const char* file = nullptr;
    const char* activity = nullptr;
    const char* overFiles = nullptr;
    const char* inFile = nullptr;
};

/// What one tool brings.
struct ToolPanelParts {
    const char* form;
    const char* caption;
    ToolControls controls;
    const char* selectPrompt;  // of the selection program; empty: none
    RunView& view;
    ToolPanelState& state;
    void (*run)();
    std::vector<Field> fields = {};
    std::vector<Command> commands = {};
    std::function<void()> load = {};              // its part of the load step, before the selection is read
    std::function<void()> selectionChanged = {};  // shows what hangs on the selection, at load as well
    std::function<void()> leave = {};             // before the return button closes the panel
    /// Takes dropped files where that is more than to select them.
    std::function<void(const std::vector<std::string>&)> takeFiles = {};
};

Panel toolPanel(ToolPanelParts parts);

}  // namespace tul
