#include <cstddef>
#include <cstdint>
#include <string>

#include "check/pmx_export.h"
#include "memory_host.h"
#include "music/mus_reader.h"
#include "panels/fresh_process.h"

// Any bytes as a page: its export ends within the words that a page can have, in whole lines.
namespace {

using namespace tul;
using fuzz::mostWords;
using fuzz::require;

void exportAs(const std::string& path, bool condensed, bool comment) {
    pmx::pmxRun.options.optPMXformatCondensed = condensed;
    pmx::pmxRun.options.chkPMXcomment = comment;
    std::string text;
    require(pmx::exportFile(path, text) != pmx::ExportEnd::cancelled);
    require(text.empty() || text.ends_with("\r\n"));
    require(musReader.MusWordIndex <= mostWords);
    require(!musReader.isOpen);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static fuzz::MemoryHost host;
    freshProcess();
    for (const std::string& path : host.layOutPage({reinterpret_cast<const char*>(data), size})) {
        exportAs(path, false, false);
        exportAs(path, true, true);
    }
    return 0;
}
