#pragma once

#include <string>

#include "edit/edit_family.h"

/// Sets Par 9 of the lyrics, which are the texts of the project's lyrics font and size.
namespace tul::edit {

struct Lyrics {
    bool optLJ360 = false;  // to -360, otherwise to 0
    bool optLyricsZero = false;

    // As the project options have them.
    std::string txtLJsize;
    std::string txtLJfont;      // a font prefix
    std::string txtLJfontName;  // of the library; empty for a font that it does not have
};
extern Lyrics lyrics;

extern const Family lyricsFamily;

}  // namespace tul::edit
