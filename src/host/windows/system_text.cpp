#include "host/windows/system_text.h"

#include <array>

namespace tul {

std::string errorText(DWORD error) {
    std::array<char, 512> text{};
    const DWORD length = ::FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                          error, 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
    std::string words(text.data(), length);
    words.resize(words.find_last_not_of("\r\n ") + 1);
    return words.empty() ? "Error " + std::to_string(error) + "." : words;
}

}  // namespace tul
