#pragma once

#include <string>
#include <vector>

/// Which button of the main panel launches what.
namespace tul {

/// What happens on the screen around a launch.
enum class LaunchKind {
    plain,         // nothing
    guarded,       // the panel's place is saved, and the panel is hidden under the waiting pointer
    repositioned,  // the same, and the panel is placed anew when it is shown again
};

struct ToolLaunch {
    const char* button;
    const char* caption;
    const char* toolTip;
    const char* command;  // program and arguments; with a backslash before it in the program's folder
    LaunchKind kind;
    /// For a launch that is more than its command: all that is done between hiding and showing.
    void (*launch)() = nullptr;
};

/// The separate utilities, and the outside programs that are linked.
const std::vector<ToolLaunch>& toolLaunches();

/// A press of the button.
void LaunchTool(const ToolLaunch& tool);

/// Analyses SCORE's libraries, where one is defined.
void cmdAnlib();
/// Converts Sibelius EPS files, where a library is defined.
void cmdTulSib();
/// Part extraction by the Windows program.
void launchSplit();

}  // namespace tul
