#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "memory_host.h"
#include "music/bar_file.h"
#include "music/item_table.h"
#include "music/mus_writer.h"
#include "music/pipeline.h"
#include "panels/fresh_process.h"

// Any bytes as a page that a tool reads and writes again: a page that the reader takes to its end with the
// same items, or the old page untouched, or a page that the run tells of.
namespace {

using namespace tul;
using fuzz::require;

// What a tool may have otherwise than the others.
constexpr ToolForm forms[] = {
    {},
    {.countsCharacters = true},
    {.loop = ItemLoop::own, .showsProgress = false, .countsCharacters = true},
    {.loop = ItemLoop::own, .takesBackup = false, .showsProgress = false},
};

bool same(float a, float b) { return a == b || (a != a && b != b); }

void requireSame(const ItemRow& written, const ItemRow& read) {
    for (int par = 1; par <= Parameters::count; ++par) require(same(written.pars[par], read.pars[par]));
    require(read.text.starts_with(written.text));
}

void rewrite(fuzz::MemoryHost& host, const std::string& path, const ToolForm& form) {
    const std::string before = host.contents[path];
    pipeline.page = {.path = path};
    PageResult& page = pipeline.page;
    if (!attempt([&] { storeFile(form); })) require(!page.isWhole());
    writeFile(form);
    std::vector<ItemRow> rows;
    for (int item = 1; item <= musItemTable.itemCount; ++item) rows.push_back(musItemTable[item]);
    require(page.isWritten != rows.empty());
    if (rows.empty()) return require(host.contents[path] == before);
    require(host.contents[path].size() <= mostPageBytes || !page.isReadable);
    if (!page.isReadable) return;
    const std::string once = host.contents[path];
    require(attempt([&] { storeFile(form); }) && page.isWhole());
    require(static_cast<std::size_t>(musItemTable.itemCount) == rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) requireSame(rows[i], musItemTable[static_cast<int>(i) + 1]);
    writeFile(form);
    require(host.contents[path] == once);
}

/// The current page, for its bars: the sorting and the marking end.
void readBars() {
    try {
        static_cast<void>(attempt([] { MusStoreBarFile(BarReader::renum); }));
        SortItemTable();
        MarkStaffBarlines();
    } catch (const fuzz::End&) {
        require(musItemTable.itemCount > MusItemTable::capacity);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static fuzz::MemoryHost host;
    for (const ToolForm& form : forms) {
        freshProcess();
        const std::string path = host.layOutPage({reinterpret_cast<const char*>(data), size}).front();
        const std::string before = host.contents[path];
        try {
            rewrite(host, path, form);
        } catch (const fuzz::End&) {
            require(host.contents[path] == before);
        }
        host.contents[path] = before;
    }
    readBars();
    return 0;
}
