#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "base/numbers.h"
#include "check/pmx_export.h"
#include "check/pmx_numbers.h"
#include "memory_host.h"
#include "music/mus_reader.h"
#include "panels/fresh_process.h"

// Any bytes as a page: its export ends within the words that a page can have, in whole lines, and each of its
// words as a number is what the general forms make of it.
namespace {

using namespace tul;
using fuzz::mostWords;
using fuzz::require;

constexpr std::size_t checkedBytes = 64 * wordBytes;

void exportAs(const std::string& path, bool condensed, bool comment) {
    pmx::pmxRun.options.optPMXformatCondensed = condensed;
    pmx::pmxRun.options.chkPMXcomment = comment;
    std::string text;
    require(pmx::exportFile(path, text) != pmx::ExportEnd::cancelled);
    require(text.empty() || text.ends_with("\r\n"));
    require(musReader.MusWordIndex <= mostWords);
    require(!musReader.isOpen);
}

void checkNumber(float value) {
    std::string text;
    pmx::appendTabNumber(text, value);
    require(text == formatted(value, " 000#.#000;-000#.#000"));
    text.clear();
    pmx::appendGeneral(text, value);
    require(text == plain(value));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static fuzz::MemoryHost host;
    freshProcess();
    for (const std::string& path : host.layOutPage({reinterpret_cast<const char*>(data), size})) {
        exportAs(path, false, false);
        exportAs(path, true, true);
    }
    for (std::size_t at = 0; at + wordBytes <= std::min(size, checkedBytes); at += wordBytes) {
        float value = 0.0F;
        std::memcpy(&value, data + at, wordBytes);
        checkNumber(value);
    }
    return 0;
}
