#pragma once

#include <string_view>

/// The program's version record.
namespace tul::version {

inline constexpr int major = 8;
inline constexpr int minor = 0;
inline constexpr int revision = 200;
inline constexpr std::string_view buildDate = "November 21, 2026";

/// What the menu entry for the website opens: an address, or a file in the program's folder. The installation
/// brings its user guide along.
inline constexpr std::string_view website = "docs\\guide.md";

}  // namespace tul::version
