#include "companions/recovery.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/numbers.h"
#include "companions/sound_runs.h"
#include "music/items.h"
#include "music/mus_writer.h"

namespace tul::recovery {

namespace {

constexpr int mostWords = std::numeric_limits<std::int16_t>::max();
constexpr std::size_t parameterBytes = textItemPars * wordBytes;  // of a text item, before its text
constexpr std::size_t shortestGap = 2 * wordBytes;  // no item has left less than a length and a code

using Items = std::vector<ItemPlace>;

/// Words of text that the tools give an item of this code at least.
int leastTextWords(float code) {
    const float whole = integerPart(code);
    return whole == code::fileName ? 6 : whole == code::shortText ? 2 : 1;
}

class PageRecovery {
  public:
    explicit PageRecovery(std::string_view bytes) : bytes_(bytes), end_(findEnd(bytes)), runs_(bytes, end_) {}

    Recovery recover(int promised) {
        const Items walked = walk(headerBytes, promised);
        const std::size_t kept = keepable(walked);
        Items items(walked.begin(), walked.begin() + static_cast<std::ptrdiff_t>(kept));
        const Items runs = runs_.from(endOf(items));
        for (const ItemPlace& item : runs) {
            bridge(items, item.begin);
            items.push_back(item);
        }
        if (end_.trailerWords > 0) bridge(items, end_.at);
        write(items, kept);
        return result_;
    }

  private:
    /// The item that begins here as validation counts it; nothing where validation stops.
    std::optional<ItemPlace> itemAt(std::size_t at) const {
        if (at + 2 * wordBytes > end_.at) return std::nullopt;
        const auto parameters = toInt16(wordAt(bytes_, at));
        const float code = wordAt(bytes_, at + wordBytes);
        if (!parameters || *parameters < shortestItem || code < lowestItemCode || code > highestItemCode)
            return std::nullopt;
        if ((code == code::shortText || code == code::text) && *parameters < shortestTextItem)
            return std::nullopt;
        return ItemPlace{at, at + lengthOf(*parameters)};
    }

    Items walk(std::size_t at, int count) const {
        Items items;
        while (static_cast<int>(items.size()) < count) {
            const auto item = itemAt(at);
            if (!item) break;
            items.push_back(*item);
            at = item->end;
        }
        return items;
    }

    static std::size_t endOf(const Items& items) { return items.empty() ? headerBytes : items.back().end; }

    /// What is found from here on, with an item here that only needs another length.
    Cover coverFrom(std::size_t at) const {
        Cover cover = runs_.coverFrom(at);
        const auto next = runs_.beginOfNext(at);
        if (next && fillsAsOne(at, *next)) {
            cover.bytes += static_cast<std::int32_t>(*next - at);
            ++cover.items;
        }
        return cover;
    }

    /// A wrong length word leads validation through items that are none, over the heads of those that are.
    /// What is kept ends before such an item where that leaves more bytes of sense and no fewer items. An
    /// item that makes sense may have the wrong length when what follows it does not: it goes only for more
    /// items.
    std::size_t keepable(const Items& walked) const {
        std::vector<std::size_t> sense = {0};
        for (const ItemPlace& item : walked)
            sense.push_back(sense.back() + (runs_.isSound(item) ? item.end - item.begin : 0));
        const auto coverOf = [&](std::size_t kept) {
            Cover cover = coverFrom(kept == 0 ? headerBytes : walked[kept - 1].end);
            cover.bytes += static_cast<std::int32_t>(sense[kept]);
            cover.items += static_cast<std::int32_t>(kept);
            return cover;
        };
        std::size_t best = walked.size();
        Cover bestCover = coverOf(best);
        bool nextMakesSense = false;  // validation stopped behind the last one
        for (std::size_t kept = walked.size(); kept-- > 0;) {
            const bool makesSense = runs_.isSound(walked[kept]);
            const Cover cover = coverOf(kept);
            const bool may = makesSense ? !nextMakesSense && cover.items > bestCover.items
                                        : cover.items >= bestCover.items;
            nextMakesSense = makesSense;
            if (!may || cover.bytes <= bestCover.bytes) continue;
            best = kept;
            bestCover = cover;
        }
        return best;
    }

    bool tooLongForTools(const ItemPlace& item) const {
        return !readsAsText(wordAt(bytes_, item.begin + wordBytes)) &&
               item.end - item.begin > lengthOf(Parameters::count);
    }

    /// Adds what lies between the last item and `target` where it is whole: odd items that lead there
    /// exactly, or one that would if its length word were right.
    void bridge(Items& items, std::size_t target) {
        const std::size_t begin = endOf(items);
        Items between;
        for (std::size_t at = begin; at < target; at = between.back().end) {
            const auto item = itemAt(at);
            if (!item || item->end > target || tooLongForTools(*item)) {
                if (!fillsAsOne(begin, target)) return;
                between = {{begin, target}};
                ++result_.mended;
                break;
            }
            between.push_back(*item);
        }
        items.insert(items.end(), between.begin(), between.end());
    }

    bool fillsAsOne(std::size_t begin, std::size_t end) const {
        const std::size_t words = (end - begin) / wordBytes;
        return (end - begin) % wordBytes == 0 && words <= static_cast<std::size_t>(mostWords) &&
               runs_.isSoundWith(begin, static_cast<int>(words) - 1);
    }

    void write(const Items& items, std::size_t kept) {
        PageBytes page;
        page.begin();
        std::size_t at = headerBytes;
        for (std::size_t i = 0; i < items.size(); ++i) {
            lose(at, items[i].begin);
            at = items[i].end;
            if (!append(page, items[i])) {
                lose(items[i].begin, at);
            } else if (i < kept) {
                ++result_.kept;
                result_.lastIsCut = at > end_.at && !end_.hasTrailer();
                if (tooLongForTools(items[i])) ++result_.tooLong;
            } else {
                ++result_.found;
            }
        }
        lose(at, expectedEnd());
        const std::string_view body = std::string_view(page.bytes).substr(headerBytes);
        result_.sound = end_.trailerWords > 0 && body == bytes_.substr(headerBytes, body.size()) &&
                        headerBytes + body.size() == end_.at && page.words + end_.trailerWords == wordCount();
        page.end(end_.metric);
        result_.page = std::move(page.bytes);
    }

    /// False when the page is full.
    bool append(PageBytes& page, const ItemPlace& item) const {
        const std::string words = wordsOf(item);
        const int count = static_cast<int>(words.size() / wordBytes);
        if (page.words + 1 + count + trailerWords > mostWords) return false;
        if (toInt16(wordAt(bytes_, item.begin)) == count) {
            page.bytes += bytes_.substr(item.begin, wordBytes);
        } else {
            appendWord(page.bytes, static_cast<float>(count));
        }
        page.bytes += words;
        page.words = wrap16(page.words + 1 + count);
        return true;
    }

    /// Par 1 and all behind it, completed to what the reader takes for an item where words are missing. An
    /// item that runs into the trailer has a wrong length; without a trailer the file is cut.
    std::string wordsOf(const ItemPlace& item) const {
        const std::size_t begin = item.begin + wordBytes;
        std::string words(bytes_.substr(begin, std::min(item.end, end_.at) - begin));
        const bool isCut = item.end > end_.at;
        const float code = wordAt(bytes_, begin);
        if (!readsAsText(code)) {
            if (isCut) words.resize(std::max(words.size() / wordBytes, std::size_t{2}) * wordBytes);
            return words;
        }
        std::size_t length = item.end - begin;
        if (isCut && end_.hasTrailer()) length = words.size();
        if (isCut) length = std::min(length, std::max(words.size(), lengthOf(longestTextItem) - wordBytes));
        if (length < lengthOf(shortestTextItem) - wordBytes)
            length = parameterBytes + wordBytes * static_cast<std::size_t>(leastTextWords(code));
        if (words.size() < parameterBytes) {
            words.resize(words.size() / wordBytes * wordBytes);
            words.resize(parameterBytes);
        }
        words.resize((length + wordBytes - 1) / wordBytes * wordBytes, ' ');
        return words;
    }

    void lose(std::size_t from, std::size_t to) {
        if (from + shortestGap > to) return;
        ++result_.lost;
        result_.lostBytes += to - from;
    }

    int wordCount() const {
        return bytes_.size() < headerBytes
                   ? 0
                   : static_cast<unsigned char>(bytes_[0]) + 256 * static_cast<unsigned char>(bytes_[1]);
    }

    /// Where the music ended before a cut, by the header; a page with a trailer ends there.
    std::size_t expectedEnd() const {
        if (end_.hasTrailer() || wordCount() < trailerWords || wordCount() > mostWords) return end_.at;
        return std::max(end_.at,
                        headerBytes + wordBytes * static_cast<std::size_t>(wordCount() - trailerWords));
    }

    std::string_view bytes_;
    PageEnd end_;
    SoundRuns runs_;
    Recovery result_;
};

}  // namespace

Recovery recover(std::string_view bytes, int items) {
    return PageRecovery(bytes.substr(0, mostBytes)).recover(items);
}

}  // namespace tul::recovery
