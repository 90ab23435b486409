#pragma once

#include <string>

#include "host/profile.h"

namespace tul {

/// The profile as a file of sections in the user's folder of settings. Programs that run side by side lose
/// nothing of each other; lines that are not understood stay as they are.
class LinuxProfile : public Profile {
  public:
    std::string read(const std::string& section, const std::string& key) const override;
    void write(const std::string& section, const std::string& key, const std::string& value) override;
};

}  // namespace tul
