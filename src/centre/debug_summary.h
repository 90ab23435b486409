#pragma once

#include <string>

#include "shared/report.h"

/// What the support of an installation asks for: which modules are there and how old they are, the settings,
/// and what the user's profile keeps.
namespace tul {

/// Asks, writes TULDEBUG.TXT into the current folder, and shows it: every module of the installation with its
/// date, and the control file whole.
void WriteDebugSummary();

/// One line of the summary: the path as given, then the file's stamp and its name on disk, or "not located".
void FileTest(Report& report, const std::string& path);
/// The lines of a file under a heading; the heading alone when the file cannot be read.
void FileInclude(Report& report, const std::string& path);

/// Shows what the program and its utilities keep in the user's profile.
void ShowRegistry();

/// Shows where this program works, and the age of the names file.
void ShowDetailsBox();

}  // namespace tul
