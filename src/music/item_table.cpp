#include "music/item_table.h"

#include "host/host.h"

namespace tul {

MusItemTable musItemTable;

namespace {

void storeItem(const char* overflow) {
    ++musItemTable.itemCount;
    if (musItemTable.itemCount > MusItemTable::capacity) endWith(overflow);
    ItemRow& row = musItemTable[musItemTable.itemCount];
    row.pars = musItem.MusPar;
    row.text = musItem.MusText;
}

}  // namespace

void MusStoreItem() { storeItem("MUS file too big for operation. Hit OK to terminate."); }

void MusStoreBarItem() { storeItem("MUS file too big for bar renumber operation. Hit OK to terminate."); }

}  // namespace tul
