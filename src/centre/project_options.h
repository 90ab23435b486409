#pragma once

#include <array>
#include <string>

/// TULPROJ.PRO, the project-level choices, as start-up reads them.
namespace tul {

/// Writes the options file of a new installation. Ends the program when it cannot be written.
void WriteDefaultOptions();

/// Reads what the tools need. Ends the program when the file cannot be opened.
void ReadProjectOptions();
/// Reads `MusDirectory` alone.
void readMusDirectory();

/// SCORE's fonts by number: the name, empty for a font that the library does not have.
struct FontTable {
    std::array<std::string, 100> FontNames;
};
extern FontTable fontTable;

/// Fills the font names from the library's FMnn.PSC files.
void LoadFontNames();

}  // namespace tul
