#pragma once

#include <string>

/// What the fields of the resize tool keep of what was typed into them. Each tells the user when that is
/// something else.
namespace tul::resize {

std::string keepNoteSize(const std::string& typed);
std::string keepSlurThickness(const std::string& typed);
std::string keepStaffSize(const std::string& typed);
std::string keepBarNumberSize(const std::string& typed);
std::string keepPageNumberSize(const std::string& typed);
/// Only warns.
std::string keepNumberFont(const std::string& typed);
/// Sizes of lyrics and of texts.
std::string keepTextSize(const std::string& typed);
std::string keepSymbolNumber(const std::string& typed);
std::string keepSymbolSize(const std::string& typed);

std::string keepInstrumentId(const std::string& typed);
/// First staff and increment, "first,increment". Without an increment it is 1.
std::string keepPart(const std::string& typed);

/// A text that begins with a font prefix, "_NN" or "__NN"; anything else leaves the present one.
std::string keepTextWithFont(const std::string& typed, const std::string& present);

}  // namespace tul::resize
