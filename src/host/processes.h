#pragma once

#include <string>
#include <vector>

namespace tul {

enum class WindowStyle { normal = 1, maximized = 3 };

struct Launch {
    std::string program;  // a file name, looked for in the current folder, then in the search path; or a path
    std::string arguments;  // as one text, blanks between the arguments; the program's name is not among them
    std::vector<std::string> words = {};  // the same arguments one by one, where the caller knows them: a
                                          // path may have blanks in it
    WindowStyle style = WindowStyle::normal;
};

struct LaunchResult {
    bool started = false;
    int exitCode = 0;
    std::string failure;  // why it did not start, in words; empty when it did
};

/// Starting other programs. Never through a shell.
class Processes {
  public:
    virtual ~Processes() = default;

    /// Starts the program in the current folder of `Files` and waits until it has ended.
    [[nodiscard]] virtual LaunchResult runAndWait(const Launch& launch) = 0;
    /// True when `runAndWait` would find the program and all that it needs to be run.
    [[nodiscard]] virtual bool canFind(const std::string& program) const = 0;
    /// Hands a file, or an address ("https://..."), to the program that the platform opens it with, such as
    /// the browser, and goes on.
    [[nodiscard]] virtual LaunchResult openDocument(const std::string& path) = 0;
};

}  // namespace tul
