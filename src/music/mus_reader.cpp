#include "music/mus_reader.h"

#include <algorithm>
#include <cstring>

#include "base/numbers.h"
#include "base/text.h"
#include "host/host.h"
#include "music/item_names.h"

namespace tul {

MusItem musItem;
MusReader musReader;

namespace {

constexpr double shortTextLength = 5;  // characters
// An item may begin at the last word that the count allows and has at most 32767 words of its own: what lies
// behind can never be read, however long the file is.
constexpr std::size_t reachableBytes = headerBytes + wordBytes * (2 * 32768 + trailerWords);

std::uint32_t littleEndian(const char* bytes, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    return value;
}

float floatFrom(std::uint32_t bits) {
    float value = 0.0F;
    static_assert(sizeof value == sizeof bits);
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

/// Copies `count` bytes from the position, zero bytes for what the end of the file cuts, and moves on.
void takeBytes(char* target, std::size_t count) {
    const auto start = static_cast<std::size_t>(musReader.MusBytePos - 1);
    const std::size_t available =
        start < musReader.bytes.size() ? std::min(count, musReader.bytes.size() - start) : 0;
    if (available > 0) std::memcpy(target, musReader.bytes.data() + start, available);
    std::memset(target + available, 0, count - available);
    musReader.MusBytePos += static_cast<std::int32_t>(count);
}

/// The next `count` words where they lie wholly in the open file, counted as read; null otherwise.
const char* takeWordsAtOnce(int count) {
    const std::size_t length = wordBytes * static_cast<std::size_t>(count);
    const auto start = static_cast<std::size_t>(musReader.MusBytePos - 1);
    if (!musReader.isOpen || count < 1 || start + length > musReader.bytes.size()) return nullptr;
    musReader.MusWordIndex += count;
    musReader.MusBytePos += static_cast<std::int32_t>(length);
    return musReader.bytes.data() + start;
}

/// The difference wraps to 16 bits as the word count itself does.
bool atWordsBeforeEnd(int words) { return musReader.MusWordIndex == wrap16(musReader.MusWordCount - words); }

void fail() { musReader.MusReadState = musStructuralError; }

}  // namespace

void resetMusReader() {
    musItem = {};
    musReader = {};
}

void MusOpen(const std::string& path, std::int16_t& wordCount) {
    musReader.MusWordIndex = 0;
    musItem.MusItemNumber = 0;
    musReader.MusVersionStamp = 0;
    musReader.MusVersionText.clear();
    wordCount = -1;
    const bool isFileList = path.ends_with(fileListName);
    if (isFileList) {
        if (const auto info = files().info(path))
            wordCount = wrap16(static_cast<std::int64_t>(info->length / wordBytes));
    }
    musReader.isOpen = files().read(path, musReader.bytes, reachableBytes) == FileError::none;
    if (!musReader.isOpen) return;
    musReader.MusBytePos = 1;
    if (isFileList) return;
    char header[headerBytes];
    takeBytes(header, headerBytes);
    wordCount = wrap16(littleEndian(header, headerBytes));
}

void MusClose() { musReader.isOpen = false; }

void MusReadWord() {
    ++musReader.MusWordIndex;
    if (!musReader.isOpen) return;
    char word[wordBytes];
    takeBytes(word, wordBytes);
    musItem.MusWord = floatFrom(littleEndian(word, wordBytes));
}

void MusReadChars() {
    ++musReader.MusWordIndex;
    if (musReader.isOpen) takeBytes(musReader.chars.data(), musReader.chars.size());
}

void MusReadByte() {
    if (!musReader.isOpen) return;
    char byte = 0;
    takeBytes(&byte, 1);
    musReader.byte = static_cast<unsigned char>(byte);
}

void MusReadTrailer() {
    MusReadChars();
    musReader.MusVersionStamp = 0;
    for (const int weight : {1, 256, 65536}) {
        MusReadByte();
        musReader.MusVersionStamp += musReader.byte * weight;
    }
    musReader.MusVersionText = plain(musReader.MusVersionStamp) + " ";
    MusReadByte();
    MusReadChars();
    MusReadWord();
    musReader.MusUnitText = musItem.MusWord == 0.0F ? "(Inches)" : "(Metric)";
}

void MusReadPars(int first, int last) {
    const int stored = std::min(last, Parameters::count);
    if (const char* words = takeWordsAtOnce(stored - first + 1)) {
        for (int par = first; par <= stored; ++par, words += wordBytes)
            musItem.MusPar[par] = floatFrom(littleEndian(words, wordBytes));
        musItem.MusWord = musItem.MusPar[stored];
        first = stored + 1;
    }
    for (int par = first; par <= last; ++par) {
        MusReadWord();
        musItem.MusPar[par] = musItem.MusWord;
    }
}

void MusReadText(int count) {
    if (const char* words = takeWordsAtOnce(count)) {
        const std::size_t length = wordBytes * static_cast<std::size_t>(count);
        musItem.MusText.append(words, length);
        std::memcpy(musReader.chars.data(), words + length - wordBytes, wordBytes);
        return;
    }
    for (int word = 0; word < count; ++word) {
        MusReadChars();
        musItem.MusText.append(musReader.chars.data(), musReader.chars.size());
    }
}

void MusSkipWords(int count) {
    for (int word = 0; word < count; ++word) MusReadWord();
}

int musProgress() {
    if (musReader.MusWordCount == 0) return 0;
    return musReader.MusWordIndex * 100 / musReader.MusWordCount;
}

bool atTrailer() { return atWordsBeforeEnd(trailerWords); }
bool atShortTrailer() { return atWordsBeforeEnd(shortTrailerWords); }

void cutMusText() {
    // A count below 0, or none at all, says nothing of the text: it stays.
    const double characters = musItem.MusPar[par::code] == code::text
                                  ? roundToEven(musItem.MusPar[par::textLength])
                                  : shortTextLength;
    if (characters >= 0.0 && characters < static_cast<double>(musItem.MusText.size()))
        musItem.MusText.resize(static_cast<std::size_t>(characters));
}

bool MusReadLength() {
    musItem.MusItemNumber = wrap16(musItem.MusItemNumber + 1);
    MusReadWord();
    const auto parameters = toInt16(musItem.MusWord);
    if (!parameters) return false;
    musItem.MusParCount = *parameters;
    return true;
}

bool MusReadCode() {
    musItem.MusPar.clear();
    musItem.MusText.clear();
    MusReadWord();
    musItem.MusPar[par::code] = musItem.MusWord;
    return !(musItem.MusWord < lowestItemCode || musItem.MusWord > highestItemCode);
}

bool MusReadHead() { return MusReadLength() && musItem.MusParCount >= shortestItem && MusReadCode(); }

void MusReadTextItem(bool withPar13) {
    MusReadPars(2, withPar13 ? textItemPars : textItemPars - 1);
    if (!withPar13) MusReadChars();
    MusReadText(musItem.MusParCount - textItemPars);
    if (!withPar13) cutMusText();
}

void tellStructuralError() {
    MsgBox("Structural error in MUS file. Try to recover with TulValid/TulRecover.", Buttons::ok,
           Icon::information);
}

void MusNextItem() {
    musReader.MusReadState = musItemReady;
    if (musReader.MusWordIndex > musReader.MusWordCount) return fail();
    if (atTrailer()) {
        MusReadTrailer();
        musReader.MusReadState = musEndOfItems;
        return;
    }
    if (atShortTrailer()) {
        musReader.MusReadState = musEndOfItems;
        return;
    }

    if (!MusReadHead()) return fail();
    const float code = musItem.MusPar[par::code];
    if (!isInteger(code)) {
        MsgBox("Par1 is not an integer value: " + plain(code) + "\r\n" +
                   joined("Item=", musItem.MusItemNumber) + "\r\nValue assumed to be integer.",
               Buttons::ok, Icon::information);
    }
    if (readsAsText(code)) {
        if (musItem.MusParCount < shortestTextItem) return fail();
        MusReadTextItem(integerPart(code) == code::fileName);
    } else {
        MusReadPars(2, musItem.MusParCount);
    }
}

}  // namespace tul
