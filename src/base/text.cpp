#include "base/text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tul {
namespace {

/// The bytes 0x80 to 0x9F of Windows-1252. The five that it leaves open are the control characters of the
/// same value, so that no byte is lost.
constexpr std::array<char16_t, 32> UpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

bool sameLetter(char a, char b) { return upperCase(a) == upperCase(b); }

unsigned char byteAt(std::string_view text, std::size_t index) {
    return static_cast<unsigned char>(text[index]);
}

bool inRange(unsigned char byte, unsigned char low, unsigned char high) {
    return low <= byte && byte <= high;
}

std::size_t lengthByLead(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (inRange(lead, 0xC2, 0xDF)) return 2;
    if (inRange(lead, 0xE0, 0xEF)) return 3;
    if (inRange(lead, 0xF0, 0xF4)) return 4;
    return 0;
}

/// The second byte alone tells overlong forms, surrogates and values beyond 0x10FFFF.
bool secondByteFits(unsigned char lead, unsigned char second) {
    switch (lead) {
        case 0xE0:
            return inRange(second, 0xA0, 0xBF);
        case 0xED:
            return inRange(second, 0x80, 0x9F);
        case 0xF0:
            return inRange(second, 0x90, 0xBF);
        case 0xF4:
            return inRange(second, 0x80, 0x8F);
        default:
            return inRange(second, 0x80, 0xBF);
    }
}

/// Length of the UTF-8 character that starts at `at`, 0 where there is none.
std::size_t utf8LengthAt(std::string_view text, std::size_t at) {
    const unsigned char lead = byteAt(text, at);
    const std::size_t length = lengthByLead(lead);
    if (length > text.size() - at) return 0;
    if (length > 1 && !secondByteFits(lead, byteAt(text, at + 1))) return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if (!inRange(byteAt(text, at + i), 0x80, 0xBF)) return 0;
    }
    return length;
}

bool isUtf8(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t length = utf8LengthAt(text, at);
        if (length == 0) return false;
        at += length;
    }
    return true;
}

/// Of valid UTF-8.
std::uint32_t utf8CodeAt(std::string_view text, std::size_t at) {
    const std::size_t length = utf8LengthAt(text, at);
    if (length == 1) return byteAt(text, at);
    std::uint32_t code = byteAt(text, at) & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) code = (code << 6) | (byteAt(text, at + i) & 0x3FU);
    return code;
}

std::optional<char> singleByteOf(std::uint32_t code) {
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
    const auto found = std::find(std::begin(UpperControls), std::end(UpperControls), code);
    if (found == std::end(UpperControls)) return std::nullopt;
    return static_cast<char>(0x80 + (found - std::begin(UpperControls)));
}

void appendUtf8(std::string& out, char16_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
        return;
    }
    if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
    } else {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    }
    out += static_cast<char>(0x80 | (code & 0x3F));
}

/// Where the file name begins.
std::size_t fileNameStart(std::string_view path) {
    const std::size_t backslash = path.rfind('\\');
    return backslash == std::string_view::npos ? 0 : backslash + 1;
}

}  // namespace

char upperCase(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

std::string upperCase(std::string_view text) {
    std::string result(text);
    for (char& character : result) character = upperCase(character);
    return result;
}

bool isDigitsOnly(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), sameLetter);
}

bool containsIgnoringCase(std::string_view text, std::string_view part) {
    return part.empty() ||
           std::search(text.begin(), text.end(), part.begin(), part.end(), sameLetter) != text.end();
}

std::string_view trimLeft(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

std::string_view trimRight(std::string_view text) {
    // npos + 1 is 0: a text of blanks only becomes empty.
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view trim(std::string_view text) { return trimLeft(trimRight(text)); }

std::string padRight(std::string_view text, std::size_t width, char fill) {
    std::string result(text);
    if (result.size() < width) result.resize(width, fill);
    return result;
}

SplitText splitAtFirst(std::string_view text, char separator) {
    const std::size_t at = text.find(separator);
    if (at == std::string_view::npos) return {text, {}, false};
    return {text.substr(0, at), text.substr(at + 1), true};
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find_first_of(CrLf, start), text.size());
        lines.push_back(text.substr(start, end - start));
        start = end + (text.substr(end, CrLf.size()) == CrLf ? 2 : 1);
    }
    return lines;
}

std::string_view folderOf(std::string_view path) { return path.substr(0, fileNameStart(path)); }

std::string_view fileNameOf(std::string_view path) { return path.substr(fileNameStart(path)); }

std::string toSingleBytes(std::string_view text) {
    if (!isUtf8(text)) return std::string(text);
    std::string result;
    for (std::size_t at = 0; at < text.size(); at += utf8LengthAt(text, at)) {
        const auto byte = singleByteOf(utf8CodeAt(text, at));
        if (!byte) return std::string(text);
        result += *byte;
    }
    return result;
}

std::string toUtf8(std::string_view text) {
    if (isUtf8(text)) return std::string(text);
    std::string result;
    result.reserve(text.size() * 2);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned char byte = byteAt(text, i);
        appendUtf8(result, inRange(byte, 0x80, 0x9F) ? UpperControls[byte - 0x80u] : char16_t{byte});
    }
    return result;
}

}  // namespace tul
