#include "companions/sound_runs.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <tuple>

#include "base/numbers.h"
#include "music/items.h"

namespace tul::recovery {

namespace {

constexpr int leastRun = 3;
constexpr float highestStaff = 200.0F;
constexpr float largestValue = 1e6F;
constexpr float smallestValue = 1e-12F;  // what remains where a sum should have been 0
constexpr Cover noRun = {.bytes = -1, .items = 0};

/// Parameters below which an item of the code says nothing: lines, slurs and beams have two ends, a symbol
/// has a number. Others may stand at the origin with everything else 0.
int leastParameters(float code) {
    if (code == code::line || code == code::slur || code == code::beam) return par::endPosition;
    if (code == code::symbol) return par::symbolNumber;
    if (code == code::note || code == code::rest || code == code::number) return par::position;
    return carriesText(code) ? shortestTextItem : shortestItem;
}

/// Bytes read at a wrong offset are mostly tiny or huge numbers.
bool isOrdinary(float value) {
    const float size = std::fabs(value);
    return size == 0.0F || (size >= smallestValue && size <= largestValue);
}

bool isWholeWithin(float value, float low, float high) {
    return value >= low && value <= high && isInteger(value);
}

bool isPrintable(char character) { return static_cast<unsigned char>(character) >= ' '; }

bool coversMore(const Cover& a, const Cover& b) {
    return std::tie(a.bytes, a.items) > std::tie(b.bytes, b.items);
}

bool isTrailerAt(std::string_view bytes, std::size_t at, std::size_t words) {
    return at + words * wordBytes <= bytes.size() && wordAt(bytes, at + 2 * wordBytes) == 3.0F &&
           wordAt(bytes, at + (words - 2) * wordBytes) == 5.0F &&
           wordAt(bytes, at + (words - 1) * wordBytes) == -9999.0F;
}

bool isFlag(float word) { return word == 0.0F || word == 1.0F; }

/// The trailer's first words, by their marker and the stamp's fourth byte.
bool isTrailerHead(std::string_view rest) {
    using namespace std::string_view_literals;
    return rest.starts_with("\x20\x20\x00\x00"sv) && rest[7] == '\0' &&
           "\x00\x00\x40\x40"sv.starts_with(rest.substr(2 * wordBytes, wordBytes));
}

}  // namespace

float wordAt(std::string_view bytes, std::size_t at) {
    std::uint32_t bits = 0;
    for (std::size_t i = wordBytes; i-- > 0;) bits = bits << 8 | static_cast<unsigned char>(bytes[at + i]);
    return std::bit_cast<float>(bits);
}

PageEnd findEnd(std::string_view bytes) {
    constexpr std::size_t longest = trailerWords * wordBytes;
    for (std::size_t at = bytes.size(); at-- > headerBytes;) {
        if (isTrailerAt(bytes, at, shortTrailerWords)) return {.at = at, .trailerWords = shortTrailerWords};
        if (!isTrailerAt(bytes, at, trailerWords)) continue;
        const float unit = wordAt(bytes, at + 3 * wordBytes);
        if (isFlag(unit)) return {.at = at, .trailerWords = trailerWords, .metric = unit == 1.0F};
    }
    const std::size_t first = bytes.size() < headerBytes + longest ? headerBytes : bytes.size() - longest;
    for (std::size_t at = first; at + 2 * wordBytes <= bytes.size(); ++at) {
        if (!isTrailerHead(bytes.substr(at))) continue;
        const bool hasUnit = at + 4 * wordBytes <= bytes.size();
        return {.at = at, .cutTrailer = true, .metric = hasUnit && wordAt(bytes, at + 3 * wordBytes) == 1.0F};
    }
    return {.at = bytes.size()};
}

SoundRuns::SoundRuns(std::string_view bytes, const PageEnd& end)
    : bytes_(bytes), end_(end), lengths_(end.at + 1), outside_(end.at + 1), inside_(end.at + 1) {
    for (std::size_t at = end_.at; at-- > headerBytes;) {
        lengths_[at] = soundLength(at);
        outside_[at] = outside_[at + 1];
        inside_[at] = outside_[at];
        if (lengths_[at] == 0) continue;
        outside_[at] = std::max(outside_[at], with(at, 0), [](auto& a, auto& b) { return coversMore(b, a); });
        inside_[at] =
            std::max(outside_[at], with(at, leastRun), [](auto& a, auto& b) { return coversMore(b, a); });
    }
}

bool SoundRuns::isSound(const ItemPlace& item) const {
    return item.begin < lengths_.size() && lengths_[item.begin] == item.end - item.begin;
}

Cover SoundRuns::coverFrom(std::size_t at) const { return outside_[std::min(at, end_.at)]; }

/// The bytes of the item that begins here, when it makes sense by itself.
std::uint16_t SoundRuns::soundLength(std::size_t at) const {
    if (at + lengthOf(2) > end_.at) return 0;
    const float length = wordAt(bytes_, at);
    if (!isWholeWithin(length, 2.0F, static_cast<float>(longestTextItem))) return 0;
    const int parameters = static_cast<int>(length);
    return isSoundWith(at, parameters) ? static_cast<std::uint16_t>(lengthOf(parameters)) : std::uint16_t{0};
}

/// The text is looked at last: it cannot hold a length word, so that no byte is looked at often.
bool SoundRuns::isSoundWith(std::size_t at, int parameters) const {
    if (parameters < 2 || parameters > longestTextItem || at + lengthOf(parameters) > end_.at) return false;
    const float code = wordAt(bytes_, at + wordBytes);
    if (!isWholeWithin(code, lowestItemCode, highestItemCode) ||
        !isWholeWithin(wordAt(bytes_, at + 2 * wordBytes), 1.0F, highestStaff))
        return false;
    const bool text = readsAsText(code);
    if (parameters < leastParameters(code) || (!text && parameters > Parameters::count)) return false;
    const int values = !text ? parameters : code == code::fileName ? textItemPars : textItemPars - 1;
    for (int par = 3; par <= values; ++par)
        if (!isOrdinary(wordAt(bytes_, at + static_cast<std::size_t>(par) * wordBytes))) return false;
    if (!text) return true;
    const std::string_view characters =
        bytes_.substr(at + lengthOf(textItemPars), lengthOf(parameters - shortestTextItem));
    return std::all_of(characters.begin(), characters.end(), isPrintable);
}

/// The best from here on when a run of so many items ends here; it may go on, and must while it is short.
Cover SoundRuns::inRun(std::size_t at, int itemsBefore) const {
    if (itemsBefore >= leastRun) return inside_[at];
    if (at == end_.at) return end_.hasTrailer() ? Cover{} : noRun;
    return lengths_[at] == 0 ? noRun : with(at, itemsBefore);
}

Cover SoundRuns::with(std::size_t at, int itemsBefore) const {
    const Cover rest = inRun(at + lengths_[at], itemsBefore + 1);
    if (rest.bytes < 0) return noRun;
    return {rest.bytes + lengths_[at], rest.items + 1};
}

std::optional<std::size_t> SoundRuns::beginOfNext(std::size_t at) const {
    const std::size_t last = std::min(end_.at, at + lengthOf(longestTextItem));
    for (; at < last; ++at)
        if (lengths_[at] > 0 && coversMore(with(at, 0), outside_[at + 1])) return at;
    if (at == end_.at && end_.trailerWords > 0) return at;
    return std::nullopt;
}

std::vector<ItemPlace> SoundRuns::from(std::size_t at) const {
    std::vector<ItemPlace> items;
    int inRunNow = 0;
    while (at < end_.at) {
        const bool mustGoOn = inRunNow > 0 && inRunNow < leastRun;
        const Cover skipped = inRunNow >= leastRun ? outside_[at] : outside_[at + 1];
        if (mustGoOn || (lengths_[at] > 0 && coversMore(with(at, inRunNow), skipped))) {
            const std::size_t end = at + lengths_[at];
            items.push_back({at, end});
            at = end;
            ++inRunNow;
        } else if (inRunNow > 0) {
            inRunNow = 0;
        } else {
            ++at;
        }
    }
    return items;
}

}  // namespace tul::recovery
