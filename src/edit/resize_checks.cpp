#include "edit/resize_checks.h"

#include <cmath>
#include <limits>

#include "base/numbers.h"
#include "base/text.h"
#include "host/host.h"
#include "music/font_prefix.h"

namespace tul::resize {

namespace {

constexpr int staffLimit = 33;  // the first number that is no staff
constexpr int incrementLimit = 32;

void tell(const char* text) { MsgBox(text, Buttons::ok, Icon::exclamation); }

/// The value where it fits, or else the assumed one, which is told.
std::string keep(float value, bool fits, const char* message, float assumed) {
    if (fits) return plainFixed(value);
    tell(message);
    return plainFixed(assumed);
}

/// A thickness or size above 0, up to 10.
std::string keepUpToTen(const std::string& typed, const char* message, float assumed) {
    const float value = numberOf(typed);
    return keep(value, value > 0.0F && value <= 10.0F, message, assumed);
}

/// Without its sign; a number that is too large for an integer stays too large.
int absoluteInteger(std::string_view text) {
    return toInt32(std::fabs(numberOf(text))).value_or(std::numeric_limits<int>::max());
}

}  // namespace

std::string keepNoteSize(const std::string& typed) {
    const float value = numberOf(typed);
    return keep(value, value > 0.7F && value <= 2.0F, "Invalid note size value. Assumed 1.1", 1.1F);
}

std::string keepSlurThickness(const std::string& typed) {
    return keepUpToTen(typed, "Invalid slur thickness value. Assumed 1.0", 1.0F);
}

std::string keepStaffSize(const std::string& typed) {
    const float value = numberOf(typed);
    return keep(value, value > 0.3F && value <= 2.0F, "Invalid staff size value. Assumed 1.0", 1.0F);
}

std::string keepBarNumberSize(const std::string& typed) {
    return keepUpToTen(typed, "Invalid bar size value. Assumed 1.0", 1.0F);
}

std::string keepPageNumberSize(const std::string& typed) {
    return keepUpToTen(typed, "Invalid page number size value. Assumed 1.1", 1.1F);
}

std::string keepNumberFont(const std::string& typed) {
    const float font = numberOf(typed);
    const bool fits = (font >= 0.0F && font <= 11.0F) || (font >= 1000.0F && font <= 1089.0F);
    return keep(font, fits, "Warning. Probably not a valid font number.", font);
}

std::string keepTextSize(const std::string& typed) {
    return keepUpToTen(typed, "Invalid lyrics size value. Assumed 1.0", 1.0F);
}

std::string keepSymbolNumber(const std::string& typed) {
    const float number = numberOf(typed);
    return keep(number, number >= 0.0F && number <= 3999.0F, "Symbol not isn range 0 - 3999. Assumed 0",
                0.0F);
}

std::string keepSymbolSize(const std::string& typed) {
    const float size = numberOf(typed);
    return keep(size, size > 0.0F && size < 100.0F, "Invalid size. Assumed 1", 1.0F);
}

std::string keepInstrumentId(const std::string& typed) {
    const float id = std::fabs(numberOf(typed));
    return keep(id, id != 0.0F, "Invalid Instrument Id. Assumed 1", 1.0F);
}

std::string keepPart(const std::string& typed) {
    const std::string completed = typed + ",1";
    const SplitText numbers = splitAtFirst(completed, ',');
    int first = absoluteInteger(numbers.before);
    if (first == 0 || first >= staffLimit) {
        tell("Invalid staff number. Assumed 1.");
        first = 1;
    }
    int increment = absoluteInteger(numbers.behind);
    if (increment == 0 || increment >= incrementLimit || first + increment >= staffLimit) {
        tell("Invalid increment. Assumed 1.");
        increment = 1;
    }
    return plain(first) + "," + plain(increment);
}

std::string keepTextWithFont(const std::string& typed, const std::string& present) {
    if (!typed.starts_with('_')) {
        tell("String not starting with one or two underscores. Input discarded");
        return present;
    }
    if (fontPrefixOf(typed).empty()) {
        tell("Non-numeric font prefix. Expecting _NN or __NN.");
        return present;
    }
    return typed;
}

}  // namespace tul::resize
