#include "shared/letter_case.h"

#include <unordered_map>

#include "base/text.h"
#include "host/host.h"

namespace tul {

std::optional<std::string> findLetterCaseClash(const std::vector<std::string>& paths) {
    const auto tell = [](const std::string& one, const std::string& other) {
        return "These two names differ in letter case only: " + one + " and " + other;
    };
    std::unordered_map<std::string, std::string> byUpperCase;
    for (const std::string& path : paths) {
        const std::string upper = upperCase(path);
        const std::string native = files().toNative(path);
        const auto [known, isNew] = byUpperCase.emplace(upper, native);
        if (!isNew && known->second != native) return tell(known->second, native);
        const std::string found = files().toNative(upper);
        if (found != native && files().canRead(path)) return tell(native, found);
    }
    return std::nullopt;
}

}  // namespace tul
