#pragma once

#include <string_view>
#include <vector>

class QMainWindow;

namespace tul::desktop {

std::vector<std::string_view> formNames();
bool hasForm(std::string_view name);

/// Builds the form of this name into an empty window.
void setUpForm(std::string_view name, QMainWindow& window);

}  // namespace tul::desktop
