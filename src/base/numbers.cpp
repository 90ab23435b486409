#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/text.h"

namespace tul {
namespace {

constexpr std::size_t GeneralDigits = 7;
constexpr int LowestFixedExponent = -4;
constexpr int LowestLargeExponent = 7;

/// A magnitude in decimal digits, of which `whole` stand before the point. A negative `whole` is a number of
/// zeros between the point and the first digit.
struct Decimal {
    std::string digits;
    int whole = 0;
};

/// How many binary places the fraction of a finite value has. Its decimal fraction has just as many.
int fractionPlaces(double value) {
    constexpr int Precision = std::numeric_limits<double>::digits;
    if (value == 0.0) return 0;
    int exponent = 0;
    const double mantissa = std::frexp(std::fabs(value), &exponent);
    const auto bits = static_cast<std::uint64_t>(std::ldexp(mantissa, Precision));
    return std::max(0, Precision - std::countr_zero(bits) - exponent);
}

/// All the digits of the binary value, so that what is rounded later is rounded once.
Decimal exactDecimal(double magnitude) {
    const int places = fractionPlaces(magnitude);
    constexpr int MostWholeDigits = std::numeric_limits<double>::max_exponent10 + 1;
    std::string text(static_cast<std::size_t>(MostWholeDigits + 1 + places), '\0');
    char* const begin = text.data();
    char* const end =
        std::to_chars(begin, begin + text.size(), magnitude, std::chars_format::fixed, places).ptr;
    text.resize(static_cast<std::size_t>(end - begin));
    const std::size_t point = std::min(text.find('.'), text.size());
    text.erase(point, 1);
    return {text, static_cast<int>(point)};
}

/// Keeps that many digits; half away from zero, which needs a look at the first dropped digit only.
void roundTo(Decimal& number, std::size_t kept) {
    std::string& digits = number.digits;
    if (kept >= digits.size()) return;
    const bool up = digits[kept] >= '5';
    digits.resize(kept);
    if (!up) return;
    const std::size_t lastBelowNine = digits.find_last_not_of('9');
    const std::size_t firstNine = lastBelowNine + 1;  // 0 when there are nines only
    std::fill(digits.begin() + static_cast<std::ptrdiff_t>(firstNine), digits.end(), '0');
    if (firstNine > 0) {
        ++digits[lastBelowNine];
    } else {
        digits.insert(0, 1, '1');
        ++number.whole;
    }
}

void dropLeadingZeros(Decimal& number) {
    const std::size_t zeros = std::min(number.digits.find_first_not_of('0'), number.digits.size());
    number.digits.erase(0, zeros);
    number.whole -= static_cast<int>(zeros);
}

void dropTrailingZeros(std::string& digits, std::size_t kept) {
    digits.resize(std::max(digits.find_last_not_of('0') + 1, std::min(kept, digits.size())));
}

std::string exponentForm(const std::string& digits, int exponent) {
    std::string text = digits.substr(0, 1);
    if (digits.size() > 1) text += '.' + digits.substr(1);
    const std::string power = std::to_string(std::abs(exponent));
    text += exponent < 0 ? "E-" : "E+";
    if (power.size() < 2) text += '0';
    return text + power;
}

std::string fixedForm(Decimal number) {
    if (number.whole <= 0) {
        return "0." + std::string(static_cast<std::size_t>(-number.whole), '0') + number.digits;
    }
    const auto whole = static_cast<std::size_t>(number.whole);
    if (number.digits.size() > whole) return number.digits.insert(whole, 1, '.');
    return padRight(number.digits, whole, '0');
}

std::string generalForm(double magnitude) {
    Decimal number = exactDecimal(magnitude);
    dropLeadingZeros(number);
    roundTo(number, GeneralDigits);
    dropTrailingZeros(number.digits, 0);
    const int exponent = number.whole - 1;
    if (exponent < LowestFixedExponent || exponent >= LowestLargeExponent) {
        return exponentForm(number.digits, exponent);
    }
    return fixedForm(number);
}

std::string notFinite(double value) {
    if (std::isnan(value)) return "NAN";
    return value < 0.0 ? "-INF" : "INF";
}

std::string signedOrBlank(const std::string& number) { return number[0] == '-' ? number : ' ' + number; }

std::string joinedTo(std::string_view before, const std::string& number) {
    const bool spaced =
        before.empty() || std::string_view(" ([{").find(before.back()) != std::string_view::npos;
    return std::string(before) + (spaced ? number : signedOrBlank(number));
}

/// One section of a pattern, taken apart.
struct Section {
    std::string_view before;
    std::string_view behind;
    std::size_t leastWhole = 0;
    std::size_t leastFraction = 0;
    std::size_t mostFraction = 0;
    bool hasPoint = false;
};

/// Takes the places at the start of `rest` away from it.
std::string_view takePlaces(std::string_view& rest) {
    const std::string_view places = rest.substr(0, rest.find_first_not_of("#0"));
    rest.remove_prefix(places.size());
    return places;
}

/// The digits end at the first character that is none of theirs; a second point is such a one.
Section sectionOf(std::string_view pattern) {
    Section section;
    const std::size_t start = std::min(pattern.find_first_of("#0."), pattern.size());
    section.before = pattern.substr(0, start);
    section.behind = pattern.substr(start);
    const std::string_view whole = takePlaces(section.behind);
    section.leastWhole = whole.size() - std::min(whole.find('0'), whole.size());
    section.hasPoint = section.behind.starts_with('.');
    if (section.hasPoint) {
        section.behind.remove_prefix(1);
        const std::string_view fraction = takePlaces(section.behind);
        section.leastFraction = fraction.rfind('0') + 1;  // npos + 1 is 0
        section.mostFraction = fraction.size();
    }
    return section;
}

Decimal roundedFor(const Section& section, double magnitude) {
    Decimal number = exactDecimal(magnitude);
    roundTo(number, static_cast<std::size_t>(number.whole) + section.mostFraction);
    return number;
}

bool isZero(const Decimal& number) { return number.digits.find_first_not_of('0') == std::string::npos; }

std::string written(const Section& section, const Decimal& number) {
    const auto point = static_cast<std::size_t>(number.whole);
    std::string whole = number.digits.substr(0, point);
    whole.erase(0, whole.find_first_not_of('0'));
    if (whole.size() < section.leastWhole) whole.insert(0, section.leastWhole - whole.size(), '0');
    std::string fraction = padRight(number.digits.substr(point), section.leastFraction, '0');
    dropTrailingZeros(fraction, section.leastFraction);

    std::string text(section.before);
    text += whole;
    if (section.hasPoint) text += '.';
    text += fraction;
    text += section.behind;
    return text;
}

std::size_t digitsAtStart(std::string_view text) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isDigit) - text.begin());
}

bool startsWithSign(std::string_view text) { return text.starts_with('-') || text.starts_with('+'); }

/// The number that a text starts with, without its sign: digits and at most one point; empty without a digit.
std::string_view unsignedNumber(std::string_view text) {
    std::size_t length = digitsAtStart(text);
    std::size_t digits = length;
    if (text.substr(length).starts_with('.')) {
        const std::size_t behind = digitsAtStart(text.substr(length + 1));
        digits += behind;
        length += 1 + behind;
    }
    return text.substr(0, digits > 0 ? length : 0);
}

double magnitudeOf(std::string_view number) {
    double value = 0.0;
    const auto [end, error] =
        std::from_chars(number.data(), number.data() + number.size(), value, std::chars_format::fixed);
    if (error == std::errc::result_out_of_range) {
        // Too large or too small: only a number that has a whole part can be too large.
        const bool large = number.find_first_not_of('0') < number.find('.');
        return large ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return value;
}

bool isExponent(std::string_view text) {
    if (!text.starts_with('E') && !text.starts_with('e')) return false;
    text.remove_prefix(1);
    if (startsWithSign(text)) text.remove_prefix(1);
    return !text.empty() && digitsAtStart(text) == text.size();
}

}  // namespace

std::string plain(float value) {
    if (!std::isfinite(value)) return notFinite(value);
    if (value == 0.0F) return "0";
    return (value < 0.0F ? "-" : "") + generalForm(std::fabs(value));
}

std::string plainFixed(float value) {
    const std::string general = plain(value);
    if (general.find('E') == std::string::npos) return general;
    constexpr std::size_t mostCharacters = 64;  // the smallest value has 45 places, 8 of them with digits
    std::array<char, mostCharacters> text;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr;
    return {text.data(), end};
}

std::string plain(std::int64_t value) { return std::to_string(value); }

std::string str(float value) { return signedOrBlank(plain(value)); }
std::string str(std::int64_t value) { return signedOrBlank(plain(value)); }

std::string printed(float value) { return str(value) + ' '; }
std::string printed(std::int64_t value) { return str(value) + ' '; }

std::string joined(std::string_view before, float value) { return joinedTo(before, plain(value)); }
std::string joined(std::string_view before, std::int64_t value) { return joinedTo(before, plain(value)); }

std::string formatted(double value, std::string_view pattern) {
    if (!std::isfinite(value)) return notFinite(value);
    const SplitText sections = splitAtFirst(pattern, ';');
    const Section first = sectionOf(sections.before);
    if (value < 0.0) {
        const bool ownSection = !sections.behind.empty();
        const Section section = ownSection ? sectionOf(sections.behind) : first;
        const Decimal number = roundedFor(section, -value);
        if (!isZero(number)) return (ownSection ? "" : "-") + written(section, number);
        // What rounds to zero is a zero: it has no sign, and of two sections it takes the first.
        value = 0.0;
    }
    return written(first, roundedFor(first, std::fabs(value)));
}

double numericValue(std::string_view text) {
    text = trimLeft(text);
    const bool negative = text.starts_with('-');
    if (startsWithSign(text)) text.remove_prefix(1);
    const std::string_view number = unsignedNumber(text);
    if (number.empty()) return 0.0;
    const double magnitude = magnitudeOf(number);
    // "-0" is 0, lest a typed zero is stored with a sign.
    return negative && magnitude != 0.0 ? -magnitude : magnitude;
}

bool isNumeric(std::string_view text) {
    text = trim(text);
    if (startsWithSign(text)) text.remove_prefix(1);
    const std::string_view number = unsignedNumber(text);
    if (number.empty()) return false;
    text.remove_prefix(number.size());
    return text.empty() || isExponent(text);
}

bool isPlainNumber(std::string_view text) {
    return isNumeric(text) && text.find_first_of("eE") == std::string_view::npos;
}

bool isParameterValue(std::string_view text) { return isPlainNumber(text) && std::isfinite(numberOf(text)); }

bool isWholeNumber(std::string_view text) {
    const double value = numericValue(text);
    return isPlainNumber(text) && std::floor(value) == value;
}

bool isTrue(std::string_view text) {
    return equalIgnoringCase(trim(text), "TRUE") || numericValue(text) != 0.0;
}

double roundToEven(double value) {
    // Adding 0 turns -0.0, which -0.3 is rounded to, into 0.
    return std::nearbyint(value) + 0.0;
}

std::optional<std::int32_t> toInt32(double value) {
    const double rounded = roundToEven(value);
    const bool fits = rounded >= std::numeric_limits<std::int32_t>::min() &&
                      rounded <= std::numeric_limits<std::int32_t>::max();  // false for NaN
    return fits ? std::optional(static_cast<std::int32_t>(rounded)) : std::nullopt;
}

float integerPart(float value) { return std::floor(value); }

}  // namespace tul
