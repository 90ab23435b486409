#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shared/run_result.h"

namespace tul::command {

/// What the text below begins with: a page may begin with any byte, but not with these.
inline constexpr std::string_view startOfResults = "{\n \"exitStatus\":";

/// What became of the runs of a call as JSON text in UTF-8; paths as the platform writes them. The page of
/// the user guide on large archives tells its keys.
/// `reason` says what was wrong with the call, where something was.
std::string jsonOf(const std::vector<RunResult>& runs, ExitStatus status, const std::string& reason = {});

}  // namespace tul::command
