#pragma once

/// Which buttons of the main panel stand enabled, by what is found on disk.
namespace tul {

/// The two moments of start-up at which buttons are enabled.
enum class ToolGroup { first, second };

void EnableTools(ToolGroup group);

}  // namespace tul
