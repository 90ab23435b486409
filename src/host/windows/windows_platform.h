#pragma once

#include <map>
#include <string>

#include "host/clock.h"
#include "host/platform.h"
#include "host/windows/system_text.h"

namespace tul {

class WindowsPlatform : public Platform {
  public:
    /// What the system tells a program of this age: versions above 6.2 call themselves 6.2.
    PlatformVersion version() const override;
    std::optional<int> nativeArchitecture() const override;
    std::string computerName() const override;
    /// A text for the whole machine, with the folders in it that it names by variables. What programs of 32
    /// bits have stored is found too.
    std::optional<std::string> registryText(const std::string& key, const std::string& name) const override;
    char decimalSymbol() const override;
    /// The claim is a mutex named after the folder, so that it ends with the process.
    bool anotherInstanceRuns() override;

  private:
    std::map<std::string, Handle> claims_;  // by name
};

class WindowsClock : public Clock {
  public:
    DateTime now() const override;
    std::int64_t milliseconds() const override;
};

}  // namespace tul
