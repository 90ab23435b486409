#include <array>

#include "edit/brackets.h"
#include "edit/edit_family.h"
#include "edit/font_prefixes.h"
#include "edit/general_edit.h"
#include "edit/halving.h"
#include "edit/item_removal.h"
#include "edit/left_hand_fingers.h"
#include "edit/lyrics.h"
#include "edit/midi_preparation.h"
#include "edit/staff_cleanup.h"
#include "edit/stem_tools.h"
#include "edit/text_fonts.h"
#include "edit/text_search.h"

namespace tul::edit {

std::span<const Family* const> families() {
    static constexpr std::array all = {&textSearchFamily,   &textFontsFamily,    &generalFamily,
                                       &bracketsFamily,     &stemToolsFamily,    &lyricsFamily,
                                       &fontPrefixesFamily, &itemRemovalFamily,  &midiPreparationFamily,
                                       &halvingFamily,      &staffCleanupFamily, &leftHandFingersFamily};
    return all;
}

}  // namespace tul::edit
