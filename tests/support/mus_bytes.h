#pragma once

#include <bit>
#include <cstdint>
#include <initializer_list>
#include <string>

namespace tul::testing {

/// A file's bytes by hand, little-endian, apart from any builder.
inline std::string bytesOf(std::uint32_t value, int count) {
    std::string bytes;
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(static_cast<unsigned char>(value >> (8 * i)));
    return bytes;
}

inline std::string header(int wordCount) { return bytesOf(static_cast<std::uint32_t>(wordCount), 2); }

inline std::string words(std::initializer_list<float> values) {
    std::string bytes;
    for (const float value : values) bytes += bytesOf(std::bit_cast<std::uint32_t>(value), 4);
    return bytes;
}

/// Six words with the stamp 80200.
inline std::string trailer(bool metric = false) {
    return std::string("\x20\x20\x00\x00\x48\x39\x01\x00", 8) +
           words({3.0F, metric ? 1.0F : 0.0F, 5.0F, -9999.0F});
}

/// A whole page: header, items, trailer. `extra` is added to the word count.
inline std::string pageOf(const std::string& items, const std::string& end = trailer(), int extra = 0) {
    return header(static_cast<int>((items.size() + end.size()) / 4) + extra) + items + end;
}

}  // namespace tul::testing
