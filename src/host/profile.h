#pragma once

#include <string>

namespace tul {

/// The user's small store of values that survive between runs, apart from any installation folder. Sections
/// and keys are compared without regard to the case of A to Z.
class Profile {
  public:
    virtual ~Profile() = default;

    /// Empty when there is no such value.
    virtual std::string read(const std::string& section, const std::string& key) const = 0;
    /// A failure to store is not reported: the program works without its stored place.
    virtual void write(const std::string& section, const std::string& key, const std::string& value) = 0;
};

}  // namespace tul
