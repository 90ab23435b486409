#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/index_fault.h"

/// Reading of MUS files: a 16-bit word count, items of 4-byte words, a trailer. There is one reader with one
/// current item; nothing else may read while a tool's loop is at work.
namespace tul {

/// Par 1 to Par 20 of an item, single precision. An index outside them throws `IndexFault`.
class Parameters {
  public:
    static constexpr int count = 20;

    float operator[](int par) const { return values_[position(par)]; }
    float& operator[](int par) { return values_[position(par)]; }
    void clear() { values_.fill(0.0F); }
    bool operator==(const Parameters&) const = default;

  private:
    static std::size_t position(int par) {
        if (par < 1 || par > count) throw IndexFault();
        return static_cast<std::size_t>(par - 1);
    }

    std::array<float, count> values_{};
};

/// The one current item; each `MusNextItem` overwrites it.
struct MusItem {
    Parameters MusPar;
    std::string MusText;             // single bytes, empty for items without text
    std::int16_t MusParCount = 0;    // the length word: Par 1 and everything behind it
    std::int16_t MusItemNumber = 0;  // ordinal in the file, from 1
    float MusWord = 0.0F;            // the word that `MusReadWord` read last
};

/// Outcome of the last `MusNextItem`.
inline constexpr std::int16_t musItemReady = 0;
inline constexpr std::int16_t musStructuralError = 1;
inline constexpr std::int16_t musEndOfItems = 2;

/// State of the reader beside the item.
struct MusReader {
    std::int16_t MusReadState = musItemReady;
    std::int16_t MusWordCount = 0;     // of the header: items and trailer; -1 while unknown
    std::int32_t MusWordIndex = 0;     // words read so far
    std::int32_t MusBytePos = 1;       // position of the next read, from 1
    std::int32_t MusVersionStamp = 0;  // 24 bits of trailer word 2, 0 until the trailer is read
    std::string MusVersionText;        // the stamp in digits and one blank, empty until the trailer is read
    std::string MusUnitText;           // "(Inches)" or "(Metric)"; kept until the next six-word trailer
    std::array<char, 4> chars{};       // what `MusReadChars` read last
    unsigned char byte = 0;            // what `MusReadByte` read last

    bool isOpen = false;
    std::string bytes;  // the open file's, as far as items can reach
};

extern MusItem musItem;
extern MusReader musReader;

/// Back to the state before the first file of a process.
void resetMusReader();

/// The end of the path of a file list: items without header and trailer.
inline constexpr std::string_view fileListName = "\\FILES.TMP";

/// The range of item codes, and lengths; in words where nothing else is said.
inline constexpr float lowestItemCode = 1.0F;
inline constexpr float highestItemCode = 18.0F;
inline constexpr std::size_t headerBytes = 2;  // the word count
inline constexpr std::size_t wordBytes = 4;
inline constexpr int shortestItem = 2;   // parameters
inline constexpr int textItemPars = 13;  // of a text item, before its text
inline constexpr int shortestTextItem = textItemPars + 1;
inline constexpr int trailerWords = 6;
inline constexpr int shortTrailerWords = 5;

/// Opens the file, reads it at once, and fills `wordCount` from its header: -1 when it cannot be opened,
/// which is not reported. A path that ends in "\FILES.TMP" has neither header nor trailer; its word count is
/// its length in words.
void MusOpen(const std::string& path, std::int16_t& wordCount);
/// Reads the next item and sets `MusReadState`. An item without text and more than 20 parameters throws
/// `IndexFault` at the store into Par 21.
void MusNextItem();
/// Closes the file; harmless when it is closed already.
void MusClose();

/// The lower operations, for tools with an item loop of their own. Beyond the end of the file zero bytes are
/// read; from a closed file nothing, and the last word, characters or byte stay, as does the position.
void MusReadWord();
void MusReadChars();
void MusReadByte();
void MusReadTrailer();
/// `MusReadWord` for Par `first` to Par `last`.
void MusReadPars(int first, int last);
/// `MusReadWord`, `count` times, with the words dropped.
void MusSkipWords(int count);
/// `MusReadChars`, `count` times, appended to `MusText`.
void MusReadText(int count);

/// `MusWordIndex` in percent of the word count, which damage can exceed; 0 when that is 0.
int musProgress();

/// True where the index stands at the trailer of six words, or of five.
bool atTrailer();
bool atShortTrailer();

/// The steps of `MusNextItem` one by one, for an item loop of its own. `MusReadHead` counts the item and
/// reads its length word and Par 1: false where they are no item's. It consists of `MusReadLength`, false for
/// a length beyond 16 bits, and behind a look at the least length of `MusReadCode`, which clears the last
/// item: false for a code beyond the range, which is then in Par 1 all the same. `MusReadTextItem` reads the
/// rest of a text item of at least `shortestTextItem` parameters, with Par 13 (code 15) or without.
[[nodiscard]] bool MusReadHead();
[[nodiscard]] bool MusReadLength();
[[nodiscard]] bool MusReadCode();
void MusReadTextItem(bool withPar13);

/// What the tools say of a state 1.
void tellStructuralError();

/// Cuts `MusText` as a text item asks: to its first Par 12 characters (rounded) for code 16 exactly, to 5
/// otherwise.
void cutMusText();

}  // namespace tul
