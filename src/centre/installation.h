#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Where the files of the installation lie, and which of them are there.
namespace tul {

/// The path of a file in the program's folder.
[[nodiscard]] std::string inProgramFolder(std::string_view name);
/// A name with a backslash before it lies in the program's folder, one without in the current folder.
[[nodiscard]] std::string located(std::string_view name);

/// True when the file, or every one of the files, is found where its name says.
[[nodiscard]] bool isInstalled(std::string_view name);
[[nodiscard]] bool areInstalled(const std::vector<const char*>& names);

/// Forms the paths of the installation's files from `ProgramFolder`.
void namePaths();

}  // namespace tul
