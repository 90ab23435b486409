#pragma once

#include <string>

#include "shared/field.h"
#include "shared/run_control.h"

namespace tul {

/// What a tool's panel shows of its run, and how the run is stopped. Each tool has one in its record.
struct RunView {
    RunControl control = {};
    std::string status = {};    // which file of how many
    std::string file = {};      // the path of the page in work
    std::string activity = {};  // what is done with it
    Progress overFiles = {};    // shown only for more than one file
    Progress inFile = {};
};

}  // namespace tul
