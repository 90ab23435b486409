#pragma once

#include <string>

#include "edit/edit_family.h"

/// Puts the project's plate number on each page, in the place of one that stands there.
namespace tul::edit {

struct PlateNumbers {
    bool optEditGeneratePlate = false;
    bool optEditPlateCenter = true;         // at the bottom, in the middle
    bool optEditPlateSides = false;         // where page numbers stand: on odd pages right, on even ones left
    std::string txtEditGeneratePlateMid;    // position of those in the middle
    std::string txtEditGeneratePlateRight;  // of those on odd pages
    std::string txtEditGenerateVertical;    // height above staff 1, usually negative
    std::string txtCurrentPlateNr;          // shows the project's
};
extern PlateNumbers plateNumbers;

extern const Family plateNumbersFamily;

// What the fields keep of what was typed into them; `present` where that is refused, which is told.
std::string keepPlatePosition(const std::string& typed, const std::string& present);
std::string keepPlateHeight(const std::string& typed, const std::string& present);

}  // namespace tul::edit
