#include "music/item_table.h"

#include "host/host.h"

namespace tul {

MusItemTable musItemTable;

namespace {

constexpr const char* tooBig = "MUS file too big for operation. Hit OK to terminate.";

void append(const Parameters& pars, const std::string& text, const char* overflow) {
    ++musItemTable.itemCount;
    if (musItemTable.itemCount > MusItemTable::capacity) endWith(overflow);
    ItemRow& row = musItemTable[musItemTable.itemCount];
    row.pars = pars;
    row.text = text;
}

}  // namespace

void appendItem(const ItemRow& row) { append(row.pars, row.text, tooBig); }

void MusStoreItem() { append(musItem.MusPar, musItem.MusText, tooBig); }

void MusStoreBarItem() {
    append(musItem.MusPar, musItem.MusText,
           "MUS file too big for bar renumber operation. Hit OK to terminate.");
}

}  // namespace tul
