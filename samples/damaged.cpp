#include "samples/damaged.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

#include "samples/page_builder.h"

namespace tul::samples {

namespace {

constexpr std::size_t headerSize = 2;
constexpr std::size_t wordSize = 4;
constexpr std::size_t longTrailer = 6;

int wordCount(const std::string& page) {
    return static_cast<unsigned char>(page[0]) + 256 * static_cast<unsigned char>(page[1]);
}

std::string withWordCount(std::string page, int count) {
    const auto bits = static_cast<std::uint32_t>(count);
    page[0] = static_cast<char>(bits & 0xFFU);
    page[1] = static_cast<char>((bits >> 8) & 0xFFU);
    return page;
}

float floatAt(const std::string& page, std::size_t at) {
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < wordSize; ++i)
        bits |= static_cast<std::uint32_t>(static_cast<unsigned char>(page[at + i])) << (8 * i);
    return std::bit_cast<float>(bits);
}

std::string withFloat(std::string page, std::size_t at, double value) {
    const std::string word = PageBuilder().trailer(Trailer::none).word(value).bytes().substr(headerSize);
    return page.replace(at, wordSize, word);
}

// Where each item of a sound page with the long trailer begins.
std::vector<std::size_t> itemPlaces(const std::string& page) {
    std::vector<std::size_t> places;
    const std::size_t end = page.size() - longTrailer * wordSize;
    for (std::size_t at = headerSize; at < end;) {
        places.push_back(at);
        at += (static_cast<std::size_t>(std::lround(floatAt(page, at))) + 1) * wordSize;
    }
    return places;
}

// The page with one more item, whose words are all accounted for.
std::string withItem(std::string page, std::size_t at, PageBuilder item) {
    const std::string bytes = item.trailer(Trailer::none).bytes().substr(headerSize);
    const int words = static_cast<int>(bytes.size() / wordSize);
    return withWordCount(page.insert(at, bytes), wordCount(page) + words);
}

std::string finaleFile() {
    std::string file = "ENIGMA BINARY FILE";
    file.resize(32, ' ');
    file += "Finale(R) ";
    file.resize(512, '\0');
    return file;
}

void addWrongItems(std::vector<Sample>& list, const std::string& page) {
    const std::vector<std::size_t> places = itemPlaces(page);
    const std::size_t first = places.front();
    const std::size_t later = places[places.size() / 2];
    const std::size_t last = places.back();
    const auto add = [&](const char* name, const char* what, std::string bytes) {
        list.push_back({name, what, std::move(bytes)});
    };
    const auto length = [&](std::size_t at, double value) { return withFloat(page, at, value); };
    const auto code = [&](std::size_t at, double value) { return withFloat(page, at + wordSize, value); };
    add("BIGLEN.MUS", "a length word of 70000", length(later, 70000));
    add("NANLEN.MUS", "a length word that is no number",
        length(later, std::numeric_limits<double>::quiet_NaN()));
    add("SHORT1.MUS", "the first item has one parameter", length(first, 1));
    add("SHORTN.MUS", "a later item has one parameter", length(later, 1));
    add("TYPE1.MUS", "the first item has the code 0.5", code(first, 0.5));
    add("TYPEN.MUS", "a later item has the code 19", code(later, 19));
    add("PASTEND.MUS", "the last item claims more words than are left",
        length(last, floatAt(page, last) + 12.0));
    add("PARMS24.MUS", "an item without text has 24 parameters",
        withItem(page, later, PageBuilder().itemAsGiven({1, 1, 50, 7, 10, 0, 1, 0, 0,  0,  0,  0,
                                                         0, 0, 0,  0, 0,  0, 0, 0, 21, 22, 23, 24})));
    add("TEXTLEN.MUS", "a text item has 13 words, and so no text",
        withItem(page, later, PageBuilder().itemAsGiven({16, 1, 50, 7, 0, 1, 0, 0, 0, 0, 0, 4, 0})));
}

void addWrongFiles(std::vector<Sample>& list, const std::string& page, const std::string& shortPage) {
    const auto add = [&](const char* name, const char* what, std::string bytes) {
        list.push_back({name, what, std::move(bytes)});
    };
    const int count = wordCount(page);
    add("NEGCOUNT.MUS", "the word count is negative", withWordCount(page, -count));
    add("NOTRAIL.MUS", "the trailer is missing",
        withWordCount(page.substr(0, page.size() - longTrailer * wordSize),
                      count - static_cast<int>(longTrailer)));
    add("ONEMORE.MUS", "the word count is one too high", withWordCount(page, count + 1));
    add("TWOLESS.MUS", "the word count is two too low", withWordCount(page, count - 2));
    add("ONELESS.MUS", "the word count is one too low, and the trailer is short",
        withWordCount(shortPage, wordCount(shortPage) - 1));
    add("ASSHORT.MUS", "the word count is one too low, so that the trailer passes for a short one",
        withWordCount(page, count - 1));
    add("CUT.MUS", "the second half of the file is missing", page.substr(0, page.size() / 2));
    add("EMPTY.MUS", "no bytes at all", "");
    add("ONEBYTE.MUS", "a single byte", page.substr(0, 1));
    add("FINALE.MUS", "a file of Finale", finaleFile());
}

// Every word of these pages is in its place.
void addQuestions(std::vector<Sample>& list, const std::string& page) {
    const std::vector<std::size_t> places = itemPlaces(page);
    const auto add = [&](const char* name, const char* what, const PageBuilder& item) {
        list.push_back({name, what, withItem(page, places[places.size() / 2], item)});
    };
    add("CODE13.MUS", "sound, but an item has the code 13", PageBuilder().item({13, 1, 60, 5}));
    add("CODEFRAC.MUS", "sound, but an item has the code 9.5", PageBuilder().item({9.5, 1, 60, 5, 20}));
    add("TEXTFRAC.MUS", "sound, but a text has the code 16.5",
        PageBuilder()
            .lengthWord(15)
            .itemAsGiven({16.5, 1, 60, 20, 0, 1, 0, 0, 0, 0, 0, 8, 0})
            .raw("_01dolce"));
    add("STAFF0.MUS", "sound, but a note is on staff 0", PageBuilder().item({1, 0, 60, 7, 10, 0, 1}));
    add("STAFF99.MUS", "sound, but a note is on staff 99", PageBuilder().item({1, 99, 60, 7, 10, 0, 1}));
    add("STAFFRAC.MUS", "sound, but a note is on staff 1.5", PageBuilder().item({1, 1.5, 60, 7, 10, 0, 1}));
}

}  // namespace

std::vector<Sample> damaged() {
    const std::string page = quartet().bytes;
    std::vector<Sample> list;
    addWrongFiles(list, page, tablaturePage().bytes);
    addWrongItems(list, page);
    addQuestions(list, page);
    return list;
}

}  // namespace tul::samples
