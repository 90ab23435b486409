#include <array>

#include "edit/edit_family.h"
#include "edit/general_edit.h"
#include "edit/house_styles.h"
#include "edit/text_fonts.h"
#include "edit/text_search.h"
#include "edit/voice_offsets.h"

namespace tul::edit {

std::span<const Family* const> families() {
    static constexpr std::array all = {&textSearchFamily, &textFontsFamily, &generalFamily,
                                       &voiceOffsetsFamily, &houseStylesFamily};
    return all;
}

}  // namespace tul::edit
