#include <array>

#include "edit/clefs.h"
#include "edit/edit_family.h"
#include "edit/fingers.h"
#include "edit/general_edit.h"
#include "edit/instrument_ids.h"
#include "edit/plate_numbers.h"
#include "edit/rests.h"
#include "edit/slurs.h"
#include "edit/staff_removal.h"
#include "edit/text_fonts.h"
#include "edit/text_search.h"

namespace tul::edit {

std::span<const Family* const> families() {
    static constexpr std::array all = {
        &clefsFamily,     &restsFamily,        &instrumentIdsFamily, &staffRemovalFamily, &textSearchFamily,
        &textFontsFamily, &plateNumbersFamily, &fingersFamily,       &generalFamily,      &slursFamily,
    };
    return all;
}

}  // namespace tul::edit
