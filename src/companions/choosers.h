#pragma once

#include <optional>
#include <string>
#include <vector>

/// Choosing in a window. Paths are in the installation's form.
namespace tul::companion {

/// True when there is a screen to show a window on.
bool hasScreen();

/// Files of one folder; none when the user cancelled. `suffix` is what the files end in; empty: any.
std::vector<std::string> chooseFiles(const std::string& title, const std::string& folder,
                                     const std::string& suffix);
/// Nothing when the user cancelled.
std::optional<std::string> chooseFolder(const std::string& title);

}  // namespace tul::companion
