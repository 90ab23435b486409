#pragma once

#include <cfloat>
#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Numbers as reports, fields and messages write and read them. The decimal symbol is always a full stop.
namespace tul {

template <class T>
concept WholeNumber = std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char>;

/// General form: at most 7 significant digits of the single-precision value, no trailing zeros, exponent form
/// (1.5E-05, 1.234568E+07) below 1E-4 and from 1E7; NAN, INF, -INF. -0.0 is "0".
std::string plain(float value);
std::string plain(std::int64_t value);

/// The general form without an exponent: what a field keeps, since a text's numeric value has none.
std::string plainFixed(float value);

/// A sign or one blank, then the general form.
std::string str(float value);
std::string str(std::int64_t value);

/// `str`, then one blank: a number printed straight into a line.
std::string printed(float value);
std::string printed(std::int64_t value);

/// A number behind a text in a message: with a leading blank or sign, but plain where the text already ends
/// in a blank or an opening bracket, or is empty.
std::string joined(std::string_view before, float value);
std::string joined(std::string_view before, std::int64_t value);

// Whole numbers of every width go through the 64-bit forms, so that no caller has to cast.
std::string plain(WholeNumber auto value) { return plain(static_cast<std::int64_t>(value)); }
std::string str(WholeNumber auto value) { return str(static_cast<std::int64_t>(value)); }
std::string printed(WholeNumber auto value) { return printed(static_cast<std::int64_t>(value)); }
std::string joined(std::string_view before, WholeNumber auto value) {
    return joined(before, static_cast<std::int64_t>(value));
}

/// A value by a pattern: '#' stands for a digit only where there is one, '0' for a digit always, the point is
/// always there: "###0.####" of 16 is "16.". A '#' between a '0' and the point prints like a '0'. The exact
/// binary value is rounded, half away from zero. Characters other than # 0 . stand for themselves, before or
/// behind the digits. A second section behind ';' is for negative values, without their sign; with one
/// section only, the minus sign stands before the whole pattern. A negative value that rounds to zero is a
/// zero: no sign, the first section. NaN and infinities print as in the general form.
std::string formatted(double value, std::string_view pattern);

/// The numeric value of a text: leading blanks, a sign, digits, one point; 0 if there is no number.
double numericValue(std::string_view text);
/// The same in the precision of a parameter.
inline float numberOf(std::string_view text) { return static_cast<float>(numericValue(text)); }

/// True when the whole trimmed text is one number, an exponent allowed.
bool isNumeric(std::string_view text);

/// The same without an exponent, so that the numeric value is the whole of it.
bool isPlainNumber(std::string_view text);

/// The same, and a parameter can hold it.
bool isParameterValue(std::string_view text);

/// True when the text is a plain number without a fraction.
bool isWholeNumber(std::string_view text);

/// A text as a boolean: TRUE in any case, or a number other than 0.
bool isTrue(std::string_view text);

/// To nearest, ties to even. NaN and infinities stay as they are.
double roundToEven(double value);
/// The same of a parameter.
inline float rounded(float value) { return static_cast<float>(roundToEven(value)); }

/// Rounded to nearest, ties to even; nothing for NaN, infinities and values beyond signed 16 or 32 bits.
[[nodiscard]] std::optional<std::int32_t> toInt32(double value);
[[nodiscard]] inline std::optional<std::int16_t> toInt16(double value) {
    // Every item has a length word that goes through here: adding and taking away a number whose last place
    // is 1 rounds as the processor does, without a call.
    static_assert(FLT_EVAL_METHOD == 0);
    constexpr double lastPlaceIsOne = 6755399441055744.0;  // 1.5 times 2 to the 52nd
    if (!(value >= -40000.0 && value <= 40000.0)) return std::nullopt;
    const double rounded = (value + lastPlaceIsOne) - lastPlaceIsOne;
    if (rounded < -32768.0 || rounded > 32767.0) return std::nullopt;
    return static_cast<std::int16_t>(rounded);
}

/// A 16-bit counter wraps in silence.
constexpr std::int16_t wrap16(std::int64_t value) {
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(value & 0xFFFF));
}

/// How far apart two values may be and still count as the same: less than so much, or as much.
struct Margin {
    float width;
    bool holdsWidth;
};
constexpr Margin lessThan(float width) { return {.width = width, .holdsWidth = false}; }
constexpr Margin atMost(float width) { return {.width = width, .holdsWidth = true}; }

/// The difference is rounded to single precision first. NaN is near nothing, and an infinity not even itself.
constexpr bool isNear(float a, float b, Margin margin) {
    const float difference = a - b;
    const float distance = difference < 0.0F ? -difference : difference;
    return distance < margin.width || (margin.holdsWidth && distance == margin.width);
}

/// Integer part, toward minus infinity.
float integerPart(float value);

/// True when the value has no fraction. NaN has one, infinities have none.
inline bool isInteger(float value) {
    constexpr float allAreIntegers = 8388608.0F;  // 2 to the 23rd
    if (value > -allAreIntegers && value < allAreIntegers)
        return static_cast<float>(static_cast<std::int32_t>(value)) == value;
    return value == value;
}

}  // namespace tul
