#pragma once

/// Which buttons of the main panel stand enabled, by what is found on disk.
namespace tul {

/// The two moments of start-up at which buttons are enabled.
enum class ToolGroup { first, second };

void EnableTools(ToolGroup group);

/// The versions of the split tool that are installed.
struct SplitVersions {
    bool dos = false;
    bool windows = false;
};
[[nodiscard]] SplitVersions findSplitVersions();

// What the two buttons that depend on settings go by is looked at again where a command has changed those.

/// The version of the split tool: the one that is there, or of both the one that the options file wants.
void chooseSplitVersion();
/// SCORE's help is shown by a program of its own; a linked help text that is none cannot be launched.
void enableScoreHelp();

}  // namespace tul
