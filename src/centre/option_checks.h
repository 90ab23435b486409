#pragma once

#include <string>
#include <string_view>

/// What the fields of the options panel take.
namespace tul {

/// A font number of SCORE: whole, 0 to 199 or 1000 to 1199. Leaves the bare number in `text`; anything else
/// becomes "0", and the result is false.
[[nodiscard]] bool CheckFontNumber(std::string& text);

/// The prefix that chooses a font within a text: "_", then two digits. What is none becomes "_00".
[[nodiscard]] std::string CheckFontPrefix(std::string_view text);

/// A size above 0 and below 10. Keeps `text`, with a "0" before a leading point; anything else becomes "1",
/// and the result is false.
[[nodiscard]] bool CheckSize(std::string& text);

// What a field keeps of what was typed into it. Each tells the user when that is something else.
std::string keepFontNumber(const std::string& typed);
std::string keepSize(const std::string& typed);
/// A size, with the 200 added that marks page and bar numbers.
std::string keepMarkedSize(const std::string& typed);
/// A size, or a point size as a negative number, which has no limit.
std::string keepLyricsSize(const std::string& typed);
/// Digits of a number in a file name, 1 to 7.
std::string keepPageLength(const std::string& typed);
/// Up to three letters and digits in upper case; `present` where there is another character among them.
std::string keepSuffix(const std::string& typed, const std::string& present);

/// The text that a font or symbol code stands for: a text with a font prefix is its own, a symbol number from
/// 3000 on has its line in the library's CODE9.DAT. Empty for any other code, and without such a line.
[[nodiscard]] std::string FontCodeText(const std::string& code);

}  // namespace tul
