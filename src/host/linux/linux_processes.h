#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

#include "host/linux/path_finder.h"
#include "host/processes.h"

namespace tul {

/// Native programs and scripts are started as they are, Windows programs through Wine, DOS programs through
/// DOSBox. The first bytes of a file tell what it is; its suffix does not.
class LinuxProcesses : public Processes {
  public:
    /// `finder` outlives this and holds the current folder.
    explicit LinuxProcesses(PathFinder& finder) : finder_(finder) {}

    LaunchResult runAndWait(const Launch& launch) override;
    bool canFind(const std::string& program) const override;
    LaunchResult openDocument(const std::string& path) override;

  private:
    struct Command {
        std::vector<std::string> words{};  // the native path of what is started, then its arguments
        std::string failure{};             // why there is nothing to start
    };

    Command commandFor(const Launch& launch) const;
    std::string find(const std::string& program) const;
    std::vector<std::string> wordsOf(std::string_view arguments) const;
    std::size_t endOfPath(std::string_view text, std::size_t end) const;

    PathFinder& finder_;
    std::vector<pid_t> openers_;  // that may still be running
};

}  // namespace tul
