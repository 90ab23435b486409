#pragma once

/// SCORE's library: whether the settings that lead to it agree.
namespace tul {

/// Renews the tool tip of `cmdAnlib` from the path of the PREF file.
void refreshAnlibTip();

/// Compares the library folder with the PREF file's, and tests that it is there. Warnings only, but that the
/// user may have the second one left out from the next start on, which ends the program.
void CheckLibraryFolders();

}  // namespace tul
