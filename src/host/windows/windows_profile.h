#pragma once

#include <string>

#include "host/profile.h"

namespace tul {

/// The user's profile is the system's own, WIN.INI. Where the user may not write it, as is usual since
/// programs are no longer run with all rights, the values are kept in a file of the user's own.
class WindowsProfile : public Profile {
  public:
    std::string read(const std::string& section, const std::string& key) const override;
    void write(const std::string& section, const std::string& key, const std::string& value) override;
};

}  // namespace tul
