#include "support/test_place.h"

#include <cstdlib>
#include <string>

namespace tul::testing {

std::filesystem::path makeTestPlace() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tul-test-XXXXXX").string();
    const std::filesystem::path folder = ::mkdtemp(pattern.data());
    ::setenv("HOME", folder.c_str(), 1);
    return folder;
}

bool takeAsDriveC(const std::filesystem::path& folder) {
    const std::filesystem::path drives = std::filesystem::path(std::getenv("HOME")) / ".wine/dosdevices";
    std::filesystem::create_directories(drives);
    std::filesystem::create_directory_symlink(folder, drives / "c:");
    return true;
}

}  // namespace tul::testing
