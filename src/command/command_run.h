#pragma once

#include <string>

#include "command/arguments.h"
#include "command/console_face.h"
#include "host/host.h"

namespace tul::command {

/// Runs a panel as the arguments say, on this machine and console, and returns the exit status.
/// `programFolder` is the installation folder where the arguments name none.
int runCommand(const Arguments& arguments, Host machine, const std::string& programFolder,
               const Console& console);

}  // namespace tul::command
