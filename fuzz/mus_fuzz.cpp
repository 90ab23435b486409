#include <cstddef>
#include <cstdint>
#include <string>

#include "check/validation.h"
#include "memory_host.h"
#include "music/mus_reader.h"
#include "music/pipeline.h"
#include "panels/fresh_process.h"
#include "shared/records.h"

// Any bytes as a page: the reader ends with a state, validation with its messages, and both within the words
// that a page can have.
namespace {

using namespace tul;
using fuzz::mostWords;
using fuzz::require;

void readItems(const std::string& path) {
    MusOpen(path, musReader.MusWordCount);
    try {
        do {
            MusNextItem();
            require(musReader.MusWordIndex <= mostWords);
        } while (musReader.MusReadState == musItemReady);
    } catch (const IndexFault&) {
        require(musItem.MusParCount > Parameters::count);
    }
    MusClose();
}

void validate(const std::string& path) {
    pipeline.page = {.path = path};
    Report report("Z:\\HOME\\TULVALID.PRN");
    valid::inputValidate(report);
    require(musReader.MusWordIndex <= mostWords);
    require(!musReader.isOpen);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static fuzz::MemoryHost host;
    freshProcess();
    for (const std::string& path : host.layOutPage({reinterpret_cast<const char*>(data), size})) {
        readItems(path);
        host.refusals.clear();
        validate(path);
        host.refusals.assign(reinterpret_cast<const char*>(data), size < 16 ? size : 16);
        validate(path);
    }
    return 0;
}
