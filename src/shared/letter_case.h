#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tul {

/// What to tell about two names that differ in letter case only. The selection is kept in upper case: on a
/// disk that tells such names apart it would lead to the wrong one of them. Nothing when each of `paths` is
/// found by its upper case, and no two of them share it.
std::optional<std::string> findLetterCaseClash(const std::vector<std::string>& paths);

}  // namespace tul
