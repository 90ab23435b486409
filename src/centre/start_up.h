#pragma once

#include <string>

/// The way from the program's entry to a panel that waits.
namespace tul {

/// Fixes the session's paths, proves the installation complete, reads the settings, checks the selection and
/// enables the tools. Ends the program at a fatal message.
void StartUp();

/// Forms the paths of the installation's files from `ProgramFolder`.
void namePaths();

/// Compares the library folder with the PREF file's, and tests that it is there. Warnings only.
void CheckLibraryFolders();

/// Reads date and time separators and the short date form from the system's settings file.
void LoadDateSettings();

/// Brings the preferred tab of the main panel to the front.
void showPreferredTab();

/// Renews the tool tip of `cmdAnlib` from the path of the PREF file.
void refreshAnlibTip();

/// A message that start-up shows and goes on after.
void startUpWarning(const std::string& text);

/// Saves the panel's place and the time, and ends the process.
[[noreturn]] void exitProgram();

}  // namespace tul
