#pragma once

#include <string>

#include "host/processes.h"

namespace tul {

/// Programs get their arguments as they are written, without quotes put in: those of this installation and
/// its relatives read the text as a whole.
class WindowsProcesses : public Processes {
  public:
    LaunchResult runAndWait(const Launch& launch) override;
    bool canFind(const std::string& program) const override;
    LaunchResult openDocument(const std::string& path) override;
};

}  // namespace tul
