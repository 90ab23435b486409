#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "host/files.h"

/// Columns of a report that tell about a file as a whole.
namespace tul {

/// "Finale" when the file was written by that program, judged by its first 96 bytes; otherwise empty.
std::string IsFinale(const std::string& path);

/// The file's date and time, brought to 10 and 11 characters where the separators of the date settings stand
/// so that a figure is missing.
std::string EditDateTime(const std::optional<FileInfo>& info);
/// The same for the text of a date and time.
std::string editedStamp(const std::string& stamp);

/// A file's length in bytes in 7 columns; more than seven digits are not shown.
std::string sizeField(std::uint64_t length);

}  // namespace tul
