#pragma once

#include <string>
#include <vector>

#include "host/files.h"

/// What a run that renames files leaves on the disk until its end, so that the next start can tell of one
/// that did not come to its end, and mend the selection.
namespace tul {

struct Renaming {
    std::string from;  // whole paths
    std::string to;
};

/// Writes the record before the first file gets its new name. `adaptsSelection`: the names file shall have
/// the new names at the end.
[[nodiscard]] FileError recordRenaming(const std::vector<Renaming>& renamings, bool adaptsSelection);
/// The run has come to its end.
void forgetRenaming();

/// The names file lists these files, but for those that are not there any more.
[[nodiscard]] FileError selectPresent(const std::vector<std::string>& filePaths);

/// At start-up: tells what a renaming has left that did not come to its end, has the selection follow where
/// it was meant to, and forgets the record.
void tellBrokenRenaming();

}  // namespace tul
