#pragma once

/// The way from the program's entry to a panel that waits.
namespace tul {

/// Fixes the session's paths, proves the installation complete, reads the settings, checks the selection and
/// enables the tools. Ends the program at a fatal message.
void StartUp();

/// Reads date and time separators and the short date form from the system's settings file.
void LoadDateSettings();

/// Saves the panel's place and the time, and ends the process.
[[noreturn]] void exitProgram();

}  // namespace tul
