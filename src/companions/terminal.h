#pragma once

#include <iostream>
#include <string>

#include "host/talk.h"

namespace tul::companion {

/// True when somebody can be asked: a terminal on both sides.
inline bool canAsk() { return isTerminal(Stream::input) && isTerminal(Stream::error); }

/// True when any of the standard streams is a terminal.
inline bool hasTerminal() {
    return isTerminal(Stream::input) || isTerminal(Stream::output) || isTerminal(Stream::error);
}

/// One line from the terminal; empty at its end.
inline std::string askLine(const std::string& prompt) {
    std::cerr << prompt << std::flush;
    std::string line;
    std::getline(std::cin, line);
    return line;
}

}  // namespace tul::companion
