#include "shared/key_value_file.h"

#include "base/text.h"
#include "host/host.h"

namespace tul {

std::vector<KeyValue> keyValuesOf(std::string_view text, std::string_view commentMarks) {
    std::vector<KeyValue> settings;
    for (const std::string_view line : linesOf(text)) {
        if (line.empty() || line.front() == ' ' || line.front() == '*') continue;
        if (commentMarks.find(line.front()) != std::string_view::npos) continue;
        const SplitText split = splitAtFirst(line, '=');
        if (!split.found) continue;
        settings.push_back({upperCase(split.before), std::string(split.behind), std::string(line)});
    }
    return settings;
}

std::optional<std::vector<KeyValue>> readKeyValues(const std::string& path, std::string_view commentMarks) {
    std::string text;
    if (files().read(path, text) != FileError::none) return std::nullopt;
    return keyValuesOf(text, commentMarks);
}

}  // namespace tul
