#pragma once

#include <string_view>

class QMainWindow;

namespace tul::desktop {

/// Builds the form of this name, which every panel has, into an empty window.
void setUpForm(std::string_view name, QMainWindow& window);

}  // namespace tul::desktop
