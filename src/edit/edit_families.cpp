#include <array>

#include "edit/barline_overlaps.h"
#include "edit/barline_reports.h"
#include "edit/barline_update.h"
#include "edit/edit_family.h"
#include "edit/general_edit.h"
#include "edit/text_fonts.h"
#include "edit/text_search.h"

namespace tul::edit {

std::span<const Family* const> families() {
    static constexpr std::array all = {&textSearchFamily,    &textFontsFamily,      &generalFamily,
                                       &barlineUpdateFamily, &barlineReportsFamily, &barlineOverlapsFamily};
    return all;
}

}  // namespace tul::edit
