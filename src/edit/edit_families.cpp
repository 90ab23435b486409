#include <array>

#include "edit/barline_overlaps.h"
#include "edit/barline_reports.h"
#include "edit/barline_update.h"
#include "edit/brackets.h"
#include "edit/clefs.h"
#include "edit/edit_family.h"
#include "edit/fingers.h"
#include "edit/font_prefixes.h"
#include "edit/general_edit.h"
#include "edit/halving.h"
#include "edit/house_styles.h"
#include "edit/instrument_ids.h"
#include "edit/item_removal.h"
#include "edit/left_hand_fingers.h"
#include "edit/lyrics.h"
#include "edit/midi_preparation.h"
#include "edit/plate_numbers.h"
#include "edit/rests.h"
#include "edit/slurs.h"
#include "edit/staff_cleanup.h"
#include "edit/staff_removal.h"
#include "edit/stem_tools.h"
#include "edit/text_fonts.h"
#include "edit/text_search.h"
#include "edit/voice_offsets.h"

namespace tul::edit {

std::span<const Family* const> families() {
    static constexpr std::array all = {
        &clefsFamily,         &restsFamily,           &instrumentIdsFamily,   &staffRemovalFamily,
        &textSearchFamily,    &textFontsFamily,       &plateNumbersFamily,    &fingersFamily,
        &barlineUpdateFamily, &barlineReportsFamily,  &barlineOverlapsFamily, &generalFamily,
        &voiceOffsetsFamily,  &slursFamily,           &bracketsFamily,        &stemToolsFamily,
        &lyricsFamily,        &fontPrefixesFamily,    &halvingFamily,         &houseStylesFamily,
        &itemRemovalFamily,   &leftHandFingersFamily, &midiPreparationFamily, &staffCleanupFamily,
    };
    return all;
}

}  // namespace tul::edit
