#pragma once

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Single-byte text as music files and settings hold it (Windows-1252). Nothing here looks at a locale.
namespace tul {

/// Joins the lines of messages and ends the lines of reports.
inline constexpr std::string_view CrLf = "\r\n";

/// A to Z only; every other byte stays.
std::string upperCase(std::string_view text);
char upperCase(char character);

/// 0 to 9.
constexpr bool isDigit(char character) { return character >= '0' && character <= '9'; }
/// At least one character, and digits only.
bool isDigitsOnly(std::string_view text);

/// Equal but for the case of A to Z.
bool equalIgnoringCase(std::string_view a, std::string_view b);

/// True when `part` stands anywhere in `text`, whatever the case of A to Z.
bool containsIgnoringCase(std::string_view text, std::string_view part);

/// Blanks only: tabs and line ends are text to these.
std::string_view trimLeft(std::string_view text);
std::string_view trimRight(std::string_view text);
std::string_view trim(std::string_view text);

/// Appends blanks (or `fill`) up to `width` characters; a longer text stays as it is.
std::string padRight(std::string_view text, std::size_t width, char fill = ' ');

/// What stands before and behind the first `separator`; the second is empty and `found` false without one.
struct SplitText {
    std::string_view before;
    std::string_view behind;
    bool found = false;
};
SplitText splitAtFirst(std::string_view text, char separator);

/// The lines of a text: ended by LF, CR LF or a lone CR; a last line without an end counts.
std::vector<std::string_view> linesOf(std::string_view text);
template <std::same_as<std::string> Temporary>
std::vector<std::string_view> linesOf(Temporary&&) = delete;  // the lines would outlive it

/// Path parts, by the last backslash. `folderOf` keeps it at its end ("" without one), `fileNameOf` is what
/// follows it (the whole text without one).
std::string_view folderOf(std::string_view path);
std::string_view fileNameOf(std::string_view path);

/// Text that a terminal or a window gave, for music and settings: valid UTF-8 becomes Windows-1252; anything
/// else, and what Windows-1252 does not have, stays as it is.
std::string toSingleBytes(std::string_view text);

/// Text for a terminal or a window: valid UTF-8 stays, anything else is taken as Windows-1252.
std::string toUtf8(std::string_view text);

}  // namespace tul
