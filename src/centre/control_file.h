#pragma once

#include <string>

/// TULCNTRL.INI, the machine-level settings: where the music tools lie, and how often the program has run.
namespace tul {

/// Fills the machine settings from the control file; with `rewrite` the file is then written again with this
/// execution counted, and the log is cycled. Ends the program when the file cannot be opened or rewritten, or
/// when it limits the log to 100 records or less.
void ReadControlFile(bool rewrite);

/// The control file of a first use: the machine settings as they stand, in the order of first use.
[[nodiscard]] std::string firstControlFile();

}  // namespace tul
