#pragma once

#include <string>
#include <vector>

#include "host/files.h"

/// What a run that renames files leaves on the disk until its end, so that the next start can tell of one
/// that was broken off, and mend the selection.
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

/// The path that a file has on the disk now, whichever of the two that is; empty where neither is there.
[[nodiscard]] std::string presentPath(const Renaming& renaming);

/// At start-up: tells what a renaming that was broken off has left, gives the names file the names that the
/// disk has where it was meant to have the new ones, and forgets it.
void tellBrokenRenaming();

}  // namespace tul
