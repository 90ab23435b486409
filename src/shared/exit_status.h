#pragma once

#include <span>

namespace tul {

/// How a process of the command line ends.
enum class ExitStatus {
    done = 0,
    fatal = 1,
    usage = 2,
    damaged = 3,
    refused = 4,
    notAllDone = 5,
    stopped = 130,
};

struct ExitStatusEntry {
    ExitStatus status;
    const char* meaning;  // for the help
};
/// All of them, in the order of their numbers.
std::span<const ExitStatusEntry> exitStatuses();

/// The one that counts of two.
[[nodiscard]] ExitStatus graver(ExitStatus one, ExitStatus other);

}  // namespace tul
