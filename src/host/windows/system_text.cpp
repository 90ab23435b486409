#include "host/windows/system_text.h"

#include <array>

namespace tul {

std::wstring wideText(const std::string& text) {
    const int length = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(
        ::MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()))));
    return wide;
}

std::optional<std::string> singleBytes(const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    std::string bytes(2 * text.size(), '\0');  // a page of East Asia has two bytes for some
    BOOL replaced = FALSE;
    bytes.resize(static_cast<std::size_t>(
        ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.data(), length, bytes.data(),
                              static_cast<int>(bytes.size()), nullptr, &replaced)));
    return replaced != FALSE ? std::nullopt : std::optional(bytes);
}

std::string errorText(DWORD error) {
    std::array<char, 512> text{};
    const DWORD length = ::FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                          error, 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
    std::string words(text.data(), length);
    words.resize(words.find_last_not_of("\r\n ") + 1);
    return words.empty() ? "Error " + std::to_string(error) + "." : words;
}

}  // namespace tul
