#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// TULPROJ.PRO, the project-level choices, as the tools read them. The options panel reads and writes the
/// whole file (`global_options.h`).
namespace tul {

struct OptionLine {
    std::string key;
    std::string value;
};

/// The lines of the options file of a new installation, in its order.
[[nodiscard]] std::vector<OptionLine> defaultOptions();
/// Writes them. Ends the program when the file cannot be written.
void WriteDefaultOptions();

/// Reads what the tools need. Ends the program when the file cannot be opened.
void ReadProjectOptions();
/// The same behind the options panel, which makes a few more values known.
void ReadReturnedOptions();
/// Reads `MusDirectory` alone.
void readMusDirectory();

/// Stores one value as `ReadProjectOptions` does. Nothing happens for a key that it passes over.
void storeProjectOption(std::string_view key, const std::string& value);

/// SCORE's fonts by number: the name, empty for a font that the library does not have.
struct FontTable {
    std::array<std::string, 100> FontNames;
};
extern FontTable fontTable;

/// The name of the font that a prefix, "_" and two digits, chooses; empty for what is none.
[[nodiscard]] std::string fontNameOf(std::string_view prefix);

/// Fills the font names from the library's FMnn.PSC files.
void LoadFontNames();

}  // namespace tul
