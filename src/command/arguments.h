#pragma once

#include <string>
#include <vector>

#include "shared/exit_status.h"

namespace tul::command {

/// One thing to do on the panel, in the order of the command line.
struct Action {
    enum class Kind { set, press } kind;
    std::string name;   // of the field or command
    std::string value;  // of a set
};

enum class RestAnswer { ask, yes, no };

/// What a command line asks for.
struct Arguments {
    std::string home;  // the installation folder; empty: the folder of the program
    std::vector<Action> actions;
    std::vector<std::string> answers;         // to questions, in order
    RestAnswer restAnswer = RestAnswer::ask;  // to the questions behind them
    bool list = false;
    bool verbose = false;
    std::string json;  // the file that takes the results of the runs; empty: none
    std::string panel;
    std::vector<std::string> files;
};

/// How reading a command line ended: go on, or stop with a text for the user and an exit status.
struct ParseResult {
    bool goOn = true;
    ExitStatus exitStatus = ExitStatus::done;
    std::string text = {};
};

/// Reads the arguments behind the program's name. Help goes on as a text with status 0; wrong usage with a
/// line that says what and how to see what there is, status 2.
ParseResult parseArguments(const std::vector<std::string>& words, Arguments& arguments);

}  // namespace tul::command
