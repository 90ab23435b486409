#pragma once

#include <filesystem>

namespace tul::testing {

/// Makes a folder of a test's own, which is the home of this process's user from now on where the drives of
/// the installation depend on that.
std::filesystem::path makeTestPlace();

/// Makes this folder in the test's own the drive C of the installation. False where that drive is the
/// machine's.
bool takeAsDriveC(const std::filesystem::path& folder);

}  // namespace tul::testing
