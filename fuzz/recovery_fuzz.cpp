#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/numbers.h"
#include "companions/recovery.h"
#include "companions/sound_runs.h"
#include "memory_host.h"
#include "music/mus_reader.h"
#include "panels/fresh_process.h"

// Any bytes as a damaged page, and any number of good items: the new page is read to its end, and holds no
// fewer items than validation would count before the trailer.
namespace {

using namespace tul;
using fuzz::require;
using recovery::Recovery;

/// The items of a page that the reader's own operations walk through, as validation does.
int walkable(const std::string& path, int items, std::size_t end) {
    int count = 0;
    MusOpen(path, musReader.MusWordCount);
    while (count < items && static_cast<std::size_t>(musReader.MusBytePos) + 7 <= end && MusReadHead()) {
        const float code = musItem.MusPar[1];
        if ((code == 11.0F || code == 16.0F) && musItem.MusParCount < shortestTextItem) break;
        MusSkipWords(musItem.MusParCount - 1);
        ++count;
    }
    MusClose();
    return count;
}

void readWhole(const std::string& path, const Recovery& result) {
    MusOpen(path, musReader.MusWordCount);
    try {
        do MusNextItem();
        while (musReader.MusReadState == musItemReady);
        require(musReader.MusReadState == musEndOfItems);
        require(musItem.MusItemNumber == result.items());
    } catch (const IndexFault&) {
        require(result.tooLong > 0);
    }
    MusClose();
    require(result.page.size() == 2 + wordBytes * static_cast<std::size_t>(musReader.MusWordCount));
}

void recoverWith(fuzz::MemoryHost& host, const std::string& bytes, int items) {
    const std::string path = host.layOutPage(bytes).front();
    const Recovery result = recovery::recover(bytes, items);
    require(result.kept <= items);
    if (bytes.size() <= fuzz::mostWords * wordBytes)
        require(result.items() + result.lost >= walkable(path, items, recovery::findEnd(bytes).at));
    host.contents[path] = result.page;
    readWhole(path, result);
    const Recovery again = recovery::recover(result.page, result.items());
    require(again.items() >= result.items());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static fuzz::MemoryHost host;
    freshProcess();
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    for (const int items : {0, static_cast<int>(size % 251), 32767}) recoverWith(host, bytes, items);
    return 0;
}
