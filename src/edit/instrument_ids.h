#pragma once

#include <optional>
#include <string>
#include <vector>

#include "edit/edit_family.h"

/// Gives staves, code 8, their instrument ids.
namespace tul::edit {

struct InstrumentIds {
    bool optEditStaffInstrId = true;
    bool optEditStaffInstrIdPerStaff = true;
    bool optEditStaffInstrIdPerSystem = false;

    std::string txtEditInstrIdStaff;  // staff number, or "ALL"
    std::string txtEditInstrId;

    std::string txtEditInstrIdSystem;                            // staves in each system
    std::string txtEditInstrIdMultiple = "4/21,3/22,2/23,1/24";  // staff in system/instrument id
};
extern InstrumentIds instrumentIds;

extern const Family instrumentIdsFamily;

/// Stands for a staff number or an instrument id.
inline constexpr const char* allStaves = "ALL";

/// The whole part of a number within the limits; "ALL" stays. Anything else becomes "ALL", and is told.
std::string keepWholeOrAll(const std::string& typed, int lowest, int highest, const std::string& invalid);

// What the fields keep of what was typed into them; `present` where that is refused. Each refusal is told.
std::string keepInstrumentId(const std::string& typed);
std::string keepStaffNumber(const std::string& typed);
std::string keepStavesInSystem(const std::string& typed, const std::string& present);
std::string keepStaffNumbering(const std::string& typed, const std::string& present);

/// A staff in its system, and the id that it gets.
struct StaffAndId {
    int staff;
    float id;
};
/// The pairs of a list such as "2/1,1/2", incomplete ones left out; nothing where it holds any other
/// character.
std::optional<std::vector<StaffAndId>> convertStaffNumberingString(const std::string& text);

/// True for a piece of a list that has a digit, and so a value.
bool holdsNumber(const std::string& piece);

}  // namespace tul::edit
