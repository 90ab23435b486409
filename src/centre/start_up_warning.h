#pragma once

#include <string>

namespace tul {

/// A message that start-up shows and goes on after.
void startUpWarning(const std::string& text);

}  // namespace tul
