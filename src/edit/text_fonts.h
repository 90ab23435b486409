#pragma once

#include <string>

#include "edit/edit_family.h"

/// Deletes texts by their font, or changes the fonts of texts (code 16) and numbers (code 10).
namespace tul::edit {

struct TextFonts {
    bool optEditDeleteModify = false;
    bool optEditDeleteText = true;
    bool optEditModifyText = false;
    std::string txtEditFontInput;   // two digits
    std::string txtEditFontOutput;  // two digits; of no effect on deletion
    bool chkEditModifyInclude =
        false;                    // numbers as well; the 100 and 1000 that their font may have added stay
    std::string txtDelModFilter;  // only texts that end with it, on deletion; that are it, on a change
    std::string txtModifySize;    // only texts of exactly this size, on a change; empty: of any
};
extern TextFonts textFonts;

extern const Family textFontsFamily;

}  // namespace tul::edit
