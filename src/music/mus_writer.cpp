#include "music/mus_writer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string_view>

#include "base/numbers.h"
#include "music/items.h"

namespace tul {

namespace {

constexpr std::size_t leastShortText = 8;  // characters
constexpr std::size_t leastFileName = 24;

using namespace std::string_view_literals;
constexpr std::string_view markerWord = "\x20\x20\x00\x00"sv;
constexpr std::string_view wordThree = "\x00\x00\x40\x40"sv;  // 3.0
constexpr std::string_view inchesWord = "\x00\x00\x00\x00"sv;
constexpr std::string_view metricWord = "\x00\x00\x80\x3F"sv;    // 1.0
constexpr std::string_view wordFive = "\x00\x00\xA0\x40"sv;      // 5.0
constexpr std::string_view sentinelWord = "\x00\x3C\x1C\xC6"sv;  // -9999.0

char byteOf(std::uint32_t value, int position) {
    return static_cast<char>(static_cast<unsigned char>(value >> (8 * position)));
}

void appendPars(std::string& bytes, const Parameters& pars, int last) {
    for (int par = 1; par <= last; ++par) appendWord(bytes, pars[par]);
}

/// Characters that the text has in the file, padding included.
std::size_t storedLength(float code, std::size_t length) {
    if (code == code::shortText) return std::max(length, leastShortText);
    if (code == code::fileName) return std::max(length, leastFileName);
    return (length + wordBytes - 1) / wordBytes * wordBytes;
}

constexpr std::array<char, 4> stampBytes = {static_cast<char>(MusWriterStamp % 256),
                                            static_cast<char>(MusWriterStamp / 256 % 256),
                                            static_cast<char>(MusWriterStamp / 65536), '\0'};
constexpr std::string_view stampWord(stampBytes.data(), stampBytes.size());

}  // namespace

void appendWord(std::string& bytes, float value) {
    const auto bits = std::bit_cast<std::uint32_t>(value);
    const std::array<char, 4> word = {byteOf(bits, 0), byteOf(bits, 1), byteOf(bits, 2), byteOf(bits, 3)};
    bytes.append(word.data(), word.size());
}

void PageBytes::begin() {
    bytes.assign(headerBytes, '\0');
    words = 0;
}

void PageBytes::item(const ItemRow& row) {
    const float code = row.pars[par::code];
    if (!carriesText(code)) {
        const int last = lastUsedPar(row);
        appendWord(bytes, static_cast<float>(last));
        appendPars(bytes, row.pars, last);
        words = wrap16(words + last + 1);
        return;
    }
    const std::size_t length = storedLength(code, row.text.size());
    const float textWords = static_cast<float>(length) / static_cast<float>(wordBytes);
    appendWord(bytes, textWords + static_cast<float>(textItemPars));
    appendPars(bytes, row.pars, textItemPars);
    bytes += row.text;
    bytes.append(length - row.text.size(), ' ');
    words = wrap16(words + textItemPars + 1 + static_cast<std::int64_t>(roundToEven(textWords)));
}

void PageBytes::end(bool metric) {
    for (const std::string_view word :
         {markerWord, stampWord, wordThree, metric ? metricWord : inchesWord, wordFive, sentinelWord})
        bytes += word;
    words = wrap16(words + trailerWords);
    const auto count = static_cast<std::uint16_t>(words);
    bytes[0] = byteOf(count, 0);
    bytes[1] = byteOf(count, 1);
}

bool canBeReadAgain(const ItemRow& row) {
    const float code = row.pars[par::code];
    if (code < lowestItemCode || code > highestItemCode) return false;
    if (!carriesText(code)) return lastUsedPar(row) >= shortestItem && !readsAsText(code);
    const std::size_t length = storedLength(code, row.text.size());
    return length > 0 && length % wordBytes == 0;
}

}  // namespace tul
