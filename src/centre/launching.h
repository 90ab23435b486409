#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/processes.h"

/// Programs of the installation and of the outside world. Each is waited for; nothing comes back but files.
namespace tul {

/// Runs a command line, the program's path and its arguments behind a blank, and waits until it ends. The
/// program runs by its file name from the current folder or the search path. A failure to start is told and
/// the program goes on; a command that names no program ends it. `words` are its arguments one by one, for a
/// caller that passes whole paths.
void ShellAndWait(const std::string& command, const std::vector<std::string>& words = {});

/// Runs a command line as it stands and waits. A failure to start, and an exit code of -1, end the program.
void ExecAndWait(const std::string& command, const std::vector<std::string>& words = {});

/// What `ShellAndWait` starts for a command line; nothing when it names no program.
[[nodiscard]] std::optional<Launch> launchOf(const std::string& command);
/// True when that program can be found.
[[nodiscard]] bool canRun(const std::string& command);

/// Starts a program and waits until it ends. A failure to start is told and the program goes on.
void startAndWait(const Launch& launch);

/// The program part of a command line: up to and including its first ".EXE"; empty without one.
[[nodiscard]] std::string programOf(const std::string& command);

/// The help entry: shows a topic where the platform still has its help program.
void ShowHelpFile(const std::string& name);
/// The same for the help file of this program.
void ShowOwnHelpFile();

/// A folder is the current one for as long as this lives; then `behind` is, without one the folder of before.
class InFolder {
  public:
    explicit InFolder(const std::string& folder, std::string behind = {});
    ~InFolder();
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;

  private:
    std::string behind_;
};

}  // namespace tul
