#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <utility>

namespace tul {

/// An open handle of the system, closed at the end.
class Handle {
  public:
    explicit Handle(HANDLE handle = nullptr) : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
    ~Handle() { close(); }
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }

    HANDLE get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }
    void close() {
        if (handle_ != nullptr) ::CloseHandle(std::exchange(handle_, nullptr));
    }

  private:
    HANDLE handle_;
};

/// What a query gives that fills a buffer (text and its size) and returns the length of the text, or the size
/// that it needs; empty when it fails.
template <class Query>
std::string textFrom(Query query) {
    std::string text(MAX_PATH, '\0');
    for (;;) {
        const DWORD length = query(text.data(), static_cast<DWORD>(text.size()));
        const bool fits = length < text.size();
        text.resize(length);
        if (fits) return text;
    }
}

/// A text of the system's single-byte calls as its wide ones take it, and back; nothing when a character has
/// no single byte.
std::wstring wideText(const std::string& text);
std::optional<std::string> singleBytes(const std::wstring& text);

/// The system's own words for an error, without a line end.
std::string errorText(DWORD error);

}  // namespace tul
