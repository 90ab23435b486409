#pragma once

#include <cstddef>
#include <string>

namespace tul::samples {

constexpr std::size_t mostPageBytes = 32767 * 4 + 2;

// A sound, dense page of roughly that many bytes for measurements; the same number gives the same page.
// Throws std::length_error above mostPageBytes.
std::string manyPage(int number, std::size_t bytes);

}  // namespace tul::samples
