#pragma once

#include "edit/edit_family.h"

/// Reports on barlines. They read the pages and change nothing.
namespace tul::edit {

extern const Family barlineReportsFamily;

/// What may be wrong with the barlines of the selected pages.
void cmdEditBarVerify();
/// Which instruments and barlines the first selected page has.
void cmdDiscover();

}  // namespace tul::edit
