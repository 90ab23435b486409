#include "centre/option_checks.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/numbers.h"
#include "base/text.h"
#include "host/host.h"
#include "music/font_prefix.h"
#include "shared/records.h"

namespace tul {

namespace {

struct Range {
    int lowest;
    int highest;
};
constexpr std::array<Range, 4> fontNumbers = {{{0, 99}, {100, 199}, {1000, 1099}, {1100, 1199}}};

constexpr int highestPrefixFont = 99;
constexpr float numberMark = 200;
constexpr int mostDigits = 7;
constexpr std::size_t suffixLength = 3;
constexpr std::size_t codeLength = 4;

bool isSuffixCharacter(char character) {
    return isDigit(character) || (character >= 'A' && character <= 'Z');
}

void tellCorrection(const char* text) { MsgBox(text, Buttons::ok, Icon::exclamation); }

std::string codeLine(const std::string& code) {
    std::string text;
    files().readIfThere(projectSettings.Code9Path, text);
    for (const std::string_view line : linesOf(text))
        if (line.starts_with(code)) return std::string(trimRight(line));
    return {};
}

}  // namespace

bool CheckFontNumber(std::string& text) {
    const double number = numericValue(text);
    const bool fits =
        isWholeNumber(text) && std::any_of(fontNumbers.begin(), fontNumbers.end(), [=](Range range) {
            return number >= range.lowest && number <= range.highest;
        });
    text = fits ? plain(static_cast<int>(number)) : "0";
    return fits;
}

std::string CheckFontPrefix(std::string_view text) {
    if (text.find(',') != std::string_view::npos) return "_00";
    if (text.starts_with('_')) text.remove_prefix(1);
    const double number = isWholeNumber(text) ? numericValue(text) : 0;
    const int font = number >= 0 && number <= highestPrefixFont ? static_cast<int>(number) : 0;
    return (font < 10 ? "_0" : "_") + plain(font);
}

bool CheckSize(std::string& text) {
    if (text.starts_with('.')) text.insert(0, 1, '0');
    const double size = numericValue(text);
    const bool fits = isPlainNumber(text) && size > 0 && size < 10;
    if (!fits) text = "1";
    return fits;
}

std::string keepFontNumber(const std::string& typed) {
    std::string kept = typed;
    if (!CheckFontNumber(kept)) tellCorrection("Value not 00-99, 100-199, 1000-1099, 1100-1199. Assumed 0.");
    return kept;
}

std::string keepSize(const std::string& typed) {
    std::string kept = typed;
    if (!CheckSize(kept)) tellCorrection("Value not numeric or out of range. Assumed 1.");
    return kept;
}

std::string keepMarkedSize(const std::string& typed) { return plain(numberMark + numberOf(keepSize(typed))); }

std::string keepLyricsSize(const std::string& typed) {
    const bool isPointSize = isPlainNumber(typed) && numericValue(typed) < 0;
    return isPointSize ? typed : keepSize(typed);
}

std::string keepPageLength(const std::string& typed) {
    const double digits = std::floor(numericValue(typed));
    if (digits >= 1 && digits <= mostDigits) return plain(static_cast<int>(digits));
    tellCorrection("Invalid number of digits specified. Assumed 2.");
    return "2";
}

std::string keepSuffix(const std::string& typed, const std::string& present) {
    const std::string suffix = upperCase(trim(typed).substr(0, suffixLength));
    if (std::all_of(suffix.begin(), suffix.end(), isSuffixCharacter)) return suffix;
    tellCorrection("Invalid character in suffix. Only letters and digits are allowed.");
    return present;
}

std::string FontCodeText(const std::string& code) {
    if (code.size() == codeLength && code.starts_with('3')) return codeLine(code);
    return beginsWithFont(code) ? code : std::string();
}

}  // namespace tul
