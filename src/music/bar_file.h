#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The reading of pages by the bar tools: only what bars are found by, sorted by staff and position, with
/// marks for the staves and barlines that belong together. Such a table is never written to a file.
namespace tul {

/// Staves above it are no staves to the bar tools.
inline constexpr int highestStaff = 32;

/// Whose progress bar a reading drives.
enum class BarReader { renum, edit, other };

/// A text on the page.
struct BarText {
    std::int16_t staff = 0;
    float position = 0.0F;  // horizontal, as Par 3
    std::string text;
};

/// The texts of the page that was read last, in its order.
extern std::vector<BarText> barTexts;

/// Reads of the current file: staves, barlines, rests that count for bars, and the numbers that are set in
/// the size and font of bar or page numbers, into the item table; texts on or above a staff, but for ossias,
/// into `barTexts`. A damaged file is told, and what was read so far stands. Throws `IndexFault` as
/// `storeFile` does.
void MusStoreBarFile(BarReader reader);

/// In `MusText`: "?s" becomes a sharp s, "?-" a hyphen, until none is left.
void FixQuestionEscapes();

/// From the highest staff to the lowest, each staff's items from left to right; stable.
void SortItemTable();

/// Marks on a table of staves, barlines and numbers: Par 19 of a staff is the number of staves of its system
/// from it upwards, Par 20 is 1 for a staff and for the barlines at its left end, -1 for barlines of a type
/// above 7. A number 0 becomes 1.
void MarkStaffBarlines();

}  // namespace tul
