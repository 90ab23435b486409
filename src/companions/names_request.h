#pragma once

#include <string>
#include <vector>

#include "companions/companion.h"

namespace tul::companion {

/// What the control centre asks TULNAMES.EXE for.
struct NamesRequest {
    std::string startFolder;  // of the installation
    std::string namesFile;    // in that folder
    std::string folder;       // to look into first
    std::string suffix;       // without a full stop; empty: all files
    std::string prompt;

    explicit NamesRequest(const ArgumentPairs& arguments);

    bool isComplete() const { return !startFolder.empty() && !namesFile.empty(); }
    std::string namesPath() const;
};

/// True when the options of the project in this folder ask for a warning of long paths.
bool warnsOfLongPaths(const std::string& startFolder);
/// The warning of a path above 24 characters; empty for a shorter one.
std::string pathWarning(const std::string& path);

/// Writes the names file. Why it was not written; empty when it was.
std::string writeSelection(const NamesRequest& request, const std::vector<std::string>& paths);

}  // namespace tul::companion
