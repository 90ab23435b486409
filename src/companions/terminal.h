#pragma once

#include <unistd.h>

#include <iostream>
#include <string>

namespace tul::companion {

/// True when somebody can be asked: a terminal on both sides.
inline bool canAsk() { return isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0; }

/// True when any of the standard streams is a terminal.
inline bool hasTerminal() {
    return isatty(STDIN_FILENO) != 0 || isatty(STDOUT_FILENO) != 0 || isatty(STDERR_FILENO) != 0;
}

/// One line from the terminal; empty at its end.
inline std::string askLine(const std::string& prompt) {
    std::cerr << prompt << std::flush;
    std::string line;
    std::getline(std::cin, line);
    return line;
}

}  // namespace tul::companion
