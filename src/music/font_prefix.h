#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/text.h"

/// Fonts stand in the texts of items as prefixes: "_" and the two digits of the font, or one "_" more.
namespace tul {

/// Characters of a prefix with one "_".
inline constexpr std::size_t fontPrefixLength = 3;

/// True when the text begins with a font: "_" and two digits.
inline bool beginsWithFont(std::string_view text) {
    return text.size() >= fontPrefixLength && text.starts_with('_') && isDigit(text[1]) && isDigit(text[2]);
}

/// What stands where a text that begins with "_" has its prefix, digits or not; empty in any other text.
inline std::string_view prefixPlace(std::string_view text) {
    if (!text.starts_with('_')) return {};
    return text.substr(0, text.starts_with("__") ? fontPrefixLength + 1 : fontPrefixLength);
}

/// The prefix that the text begins with, of one "_" or two; empty without one.
inline std::string_view fontPrefixOf(std::string_view text) {
    const std::string_view prefix = prefixPlace(text);
    return beginsWithFont(prefix.substr(prefix.starts_with("__") ? 1 : 0)) ? prefix : std::string_view();
}

/// True when the text begins with this font, behind one "_" or two.
inline bool hasFont(std::string_view text, const std::string& font) {
    return text.starts_with("_" + font) || text.starts_with("__" + font);
}

}  // namespace tul
