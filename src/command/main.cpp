#include <iostream>
#include <string>
#include <vector>

#include "command/arguments.h"
#include "command/command_run.h"
#include "host/host.h"
#include "host/interrupt.h"
#include "host/talk.h"

int main(int argc, char** argv) {
    using namespace tul;
    using namespace tul::command;

    Arguments arguments;
    const ParseResult parsed = parseArguments(std::vector<std::string>(argv + 1, argv + argc), arguments);
    if (!parsed.goOn) {
        (parsed.exitStatus == ExitStatus::done ? std::cout : std::cerr) << parsed.text << '\n';
        return static_cast<int>(parsed.exitStatus);
    }
    setTalkOfChildren(Talk::terminal);
    watchForInterrupts();
    const auto machine = openNativeMachine();
    const Console console{.out = std::cout,
                          .err = std::cerr,
                          .in = std::cin,
                          .canAsk = isTerminal(Stream::input) && isTerminal(Stream::error),
                          .showsProgress = isTerminal(Stream::error)};
    return runCommand(arguments, machine->host(), machine->programFolder(), console);
}
