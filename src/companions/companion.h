#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/host.h"

/// What the companions have in common. The control centre starts them with one argument string of
/// comma-separated KEY=VALUE pairs, reads the file that they leave, and knows nothing else of them.
namespace tul::companion {

/// The pairs of an argument string. A value may hold blanks, and commas as long as no "=" follows one of them
/// before the next comma. LIST is the last key and takes the rest.
class ArgumentPairs {
  public:
    /// Of the command line.
    ArgumentPairs(int argc, char** argv);
    explicit ArgumentPairs(const std::string& text);

    /// Empty when the key was not given. Keys are compared in upper case.
    std::string operator[](const std::string& key) const;
    /// The paths of LIST, each ended by a comma. A comma inside a path stays when no path begins behind it.
    std::vector<std::string> list() const;

  private:
    std::vector<std::pair<std::string, std::string>> pairs_;
};

/// Puts the machine to use; a companion has no face.
class Companion {
  public:
    Companion();

  private:
    std::unique_ptr<NativeMachine> machine_;
};

/// Exit statuses: the control centre does not read them, a user's script may.
inline constexpr int done = 0;
inline constexpr int failed = 1;

/// True when a companion is to ask in a window: there is a display, and it was not started from a command
/// line.
bool asksInWindow();

/// Says why a companion could not do its work, and returns `failed`. On standard error, and in a window as
/// well where nobody looks at that.
int refuse(const std::string& program, const std::string& why);
/// Tells what a companion has done, likewise on standard output.
void report(const std::string& program, const std::string& lines);

/// Which of the linked programs may open a page.
enum class ScoreKind { any, dos };

/// Opens the SCORE that the control file links, or WinScore where that alone is linked, on a page or without
/// one (empty), and waits for it.
int openScore(const std::string& program, const std::string& page, ScoreKind kind = ScoreKind::any);

}  // namespace tul::companion
