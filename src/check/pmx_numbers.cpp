#include "check/pmx_numbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "base/numbers.h"

// Both short ways multiply by a power of ten that keeps the product exact: a float32 has 24 binary digits,
// the largest power used here (5 to the 10th, apart from its twos) another 24, and a double holds 53. Adding
// a half and cutting off then rounds the exact value, half away from zero, as the general forms do.
namespace tul::pmx {

namespace {

constexpr std::size_t mostPlaces = 10;
constexpr std::array<double, mostPlaces + 1> powersOfTen = {1E0, 1E1, 1E2, 1E3, 1E4, 1E5,
                                                            1E6, 1E7, 1E8, 1E9, 1E10};

char digit(std::uint32_t value) { return static_cast<char>('0' + value % 10); }

void putFourDigits(char* target, std::uint32_t value) {
    target[0] = digit(value / 1000);
    target[1] = digit(value / 100);
    target[2] = digit(value / 10);
    target[3] = digit(value);
}

/// Whole numbers of one or two digits, which nearly all codes and staves are; 0 for any other value.
std::uint32_t smallWhole(float value) {
    if (!(value >= 1.0F && value < 100.0F)) return 0;
    const auto whole = static_cast<std::uint32_t>(value);
    return static_cast<float>(whole) == value ? whole : 0;
}

void appendColumns(std::string& line, float value, const char* oneDigit, const char* moreDigits) {
    line += formatted(value, value < 10.0F ? oneDigit : moreDigits);
}

}  // namespace

void appendTabCode(std::string& line, float value) {
    const std::uint32_t whole = smallWhole(value);
    if (whole == 0) return appendColumns(line, value, " #", "0#");
    const char columns[] = {whole < 10 ? ' ' : digit(whole / 10), digit(whole)};
    line.append(columns, sizeof columns);
}

void appendTabTextStaff(std::string& line, float value) {
    if (smallWhole(value) == 0) return appendColumns(line, value, "  #", " 0#");
    line += ' ';
    appendTabCode(line, value);
}

void appendTabNumber(std::string& line, float value) {
    constexpr double tooLarge = 99999999.5;  // rounds to five digits before the point
    const double scaled = std::fabs(static_cast<double>(value)) * 10000.0;
    if (!(scaled < tooLarge)) {
        line += formatted(value, " 000#.#000;-000#.#000");
        return;
    }
    // A scaled single has room for a half: nothing is rounded twice.
    const auto tenThousandths =
        static_cast<std::uint32_t>(scaled + 0.5);  // NOLINT(bugprone-incorrect-roundings)
    char columns[10];
    columns[0] = value < 0.0F && tenThousandths > 0 ? '-' : ' ';
    putFourDigits(columns + 1, tenThousandths / 10000);
    columns[5] = '.';
    putFourDigits(columns + 6, tenThousandths % 10000);
    line.append(columns, sizeof columns);
}

void appendGeneral(std::string& line, float value) {
    constexpr double sevenDigits = 1E6;  // the least number of seven digits
    const double magnitude = std::fabs(static_cast<double>(value));
    if (!(magnitude >= 1E-4 && magnitude < 1E7)) {
        line += plain(value);
        return;
    }
    std::size_t places = 0;
    while (magnitude * powersOfTen[places] < sevenDigits) ++places;
    const double scaled = magnitude * powersOfTen[places];
    auto digits = static_cast<std::uint32_t>(scaled + 0.5);  // NOLINT(bugprone-incorrect-roundings)
    for (; places > 0 && digits % 10 == 0; digits /= 10) --places;

    std::array<char, 16> text;
    const char* const end = std::to_chars(text.data(), text.data() + text.size(), digits).ptr;
    const auto length = static_cast<std::size_t>(end - text.data());
    if (value < 0.0F) line += '-';
    if (length > places) {
        line.append(text.data(), length - places);
        if (places > 0) line += '.';
        line.append(end - places, places);
    } else {
        line += "0.";
        line.append(places - length, '0');
        line.append(text.data(), length);
    }
}

void appendCondensedNumber(std::string& line, float value) {
    const std::size_t start = line.size();
    appendGeneral(line, value);
    if (line.find('E', start) == std::string::npos) return;
    line.resize(start);
    const double cut = std::floor(static_cast<double>(value) * 1000000.0) / 1000000.0;
    appendGeneral(line, static_cast<float>(cut));
}

}  // namespace tul::pmx
