#pragma once

#include <sys/types.h>

#include <vector>

#include "host/clock.h"
#include "host/linux/path_finder.h"
#include "host/platform.h"

namespace tul {

class LinuxPlatform : public Platform {
  public:
    /// `finder` outlives this and holds the current folder.
    explicit LinuxPlatform(PathFinder& finder) : finder_(finder) {}

    PlatformVersion version() const override;
    std::optional<int> nativeArchitecture() const override;
    std::string computerName() const override;
    /// Always a full stop: no number of this program goes through the user's locale.
    char decimalSymbol() const override { return '.'; }
    /// The claim is a lock on the folder itself, so that it leaves no file and ends with the process.
    bool anotherInstanceRuns() override;

  private:
    struct Claim {
        dev_t device;
        ino_t inode;
        Descriptor folder;
    };

    PathFinder& finder_;
    std::vector<Claim> claims_;
};

class LinuxClock : public Clock {
  public:
    DateTime now() const override;
    std::int64_t milliseconds() const override;
};

}  // namespace tul
