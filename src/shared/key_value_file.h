#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tul {

/// One "key=value" line of a settings file. The value is everything behind the first "=".
struct KeyValue {
    std::string key;  // upper case
    std::string value;
    std::string line;  // as it stands in the file
};

/// The settings in a file's text, in its order. Lines that are empty, that begin with a blank or "*", or with
/// one of `commentMarks`, and lines without "=" are left out.
std::vector<KeyValue> keyValuesOf(std::string_view text, std::string_view commentMarks = "");

/// The same from a file; nothing when it cannot be opened.
[[nodiscard]] std::optional<std::vector<KeyValue>> readKeyValues(const std::string& path,
                                                                 std::string_view commentMarks = "");

}  // namespace tul
