#pragma once

#include <sstream>

#include "command/arguments.h"
#include "command/command_run.h"
#include "support/test.h"

namespace tul::testing {

struct Outcome {
    int status = 0;
    std::string out;
    std::string err;
};

/// What tulcmd does with these words in the test's folder. `typed` is its input, from a terminal or not.
inline Outcome runTulcmd(const ScriptedHost& host, const Texts& words, const std::string& typed = {},
                         bool terminal = false) {
    command::Arguments arguments;
    const command::ParseResult parsed = command::parseArguments(words, arguments);
    if (!parsed.goOn) return {static_cast<int>(parsed.exitStatus), {}, parsed.text};
    std::ostringstream out;
    std::ostringstream err;
    std::istringstream in(typed);
    const Host machine{.files = &files(),
                       .processes = &processes(),
                       .profile = &profile(),
                       .clock = &clock(),
                       .platform = &platform(),
                       .face = nullptr};
    const int status =
        command::runCommand(arguments, machine, host.folder(),
                            {.out = out, .err = err, .in = in, .canAsk = terminal, .showsProgress = false});
    return {status, out.str(), err.str()};
}

}  // namespace tul::testing
