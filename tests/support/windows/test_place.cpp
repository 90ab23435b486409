#include "support/test_place.h"

#include <windows.h>

#include <string>

namespace tul::testing {

std::filesystem::path makeTestPlace() {
    static int number = 0;
    const std::string process = "tul-test-" + std::to_string(::GetCurrentProcessId()) + '-';
    std::filesystem::path folder;
    do folder = std::filesystem::temp_directory_path() / (process + std::to_string(++number));
    while (!std::filesystem::create_directory(folder));
    return folder;
}

bool takeAsDriveC(const std::filesystem::path&) { return false; }

}  // namespace tul::testing
