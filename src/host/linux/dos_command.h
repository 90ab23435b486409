#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/linux/path_finder.h"

namespace tul {

/// How the emulator is called to run one DOS program. DOS knows neither the folders of this system nor the
/// drives of the installation: the current folder becomes drive C, that of the program and those of the paths
/// among its arguments the next ones. The program is typed at the emulator's prompt, as that is the one way
/// to hand it arguments.
class DosCommand {
  public:
    /// `program` is a native path, `arguments` a text in the installation's form.
    DosCommand(PathFinder& finder, const std::string& program, std::string_view arguments);

    /// What the emulator gets.
    std::vector<std::string> words() const;
    /// Why the program cannot be run; empty when it can.
    std::string failure() const;

  private:
    std::string driveOf(const std::string& path);
    std::string translated(std::string_view arguments);
    std::string translatedPath(std::string_view path);
    std::size_t lengthOfPath(std::string_view text) const;

    PathFinder& finder_;
    std::vector<std::string> folders_;  // native, by drive from C on
    std::string name_;
    std::string line_;
};

}  // namespace tul
