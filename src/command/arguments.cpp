#include "command/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "panels/panel_list.h"

namespace tul::command {

namespace {

std::string panelLines() {
    std::string text = "Panels:\n";
    for (const PanelEntry& entry : panelList()) {
        std::string name = entry.shortName;
        if (*entry.alias != '\0') name += std::string(", ") + entry.alias;
        text += "  " + padRight(name, 24) + entry.description + "\n";
    }
    text += "\nExit status:";
    for (const ExitStatusEntry& entry : exitStatuses())
        text += "\n  " + padRight(plain(static_cast<int>(entry.status)), 5) + entry.meaning;
    return text;
}

ParseResult usageError(const std::string& what) {
    return {.goOn = false, .exitStatus = ExitStatus::usage, .text = what + "\nSee: tulcmd --help"};
}

/// The parser takes "[a,b]" for a list of two files. A file of such a name is the same file behind "./".
std::vector<std::string> withPlainBrackets(std::vector<std::string> words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool isValue =
            i > 0 && (words[i - 1] == "--home" || words[i - 1] == "--set" || words[i - 1] == "--press" ||
                      words[i - 1] == "--answer" || words[i - 1] == "--json");
        if (!isValue && words[i].starts_with('[')) words[i].insert(0, "./");
    }
    return words;
}

/// One value for each appearance of the option, and no more.
CLI::Option* addRepeated(CLI::App& app, const std::string& name, std::vector<std::string>& values,
                         const std::string& type, const std::string& description) {
    return app.add_option(name, values, description)->allow_extra_args(false)->take_all()->type_name(type);
}

}  // namespace

ParseResult parseArguments(const std::vector<std::string>& words, Arguments& arguments) {
    CLI::App app("Runs a tool of the TUL control centre without a window.", "tulcmd");
    app.footer(panelLines());
    app.allow_windows_style_options(false);

    std::vector<std::string> sets;
    std::vector<std::string> presses;
    bool yes = false;
    bool no = false;
    app.add_option("--home", arguments.home, "The installation folder; otherwise the folder of the program")
        ->type_name("DIR");
    CLI::Option* const set =
        addRepeated(app, "--set", sets, "NAME=VALUE", "Fill a field, as typing into its input box does");
    CLI::Option* const press = addRepeated(app, "--press", presses, "COMMAND",
                                           "Press a command; without one the panel's Run command is pressed");
    addRepeated(app, "--answer", arguments.answers, "TEXT",
                "Answer the next question: Yes, No, OK, Cancel, or the text of an input box");
    CLI::Option* const yesFlag = app.add_flag("--yes", yes, "Answer Yes or OK to all other questions");
    app.add_flag("--no", no, "Answer No or Cancel to all other questions")->excludes(yesFlag);
    app.add_flag("--list", arguments.list,
                 "Show the panel's fields and commands with present values and prompts");
    app.add_flag("--verbose", arguments.verbose, "Show the warnings of start-up, too");
    app.add_option("--json", arguments.json, "Write what became of the runs, page by page, as data")
        ->type_name("FILE");
    app.add_option("PANEL", arguments.panel, "The panel to run")->type_name("");
    app.add_option("FILE", arguments.files, "The music files to work on; otherwise the present selection")
        ->type_name("");

    try {
        std::vector<std::string> reversed = withPlainBrackets(words);
        std::reverse(reversed.begin(), reversed.end());
        app.parse(std::move(reversed));
    } catch (const CLI::CallForHelp&) {
        std::string help = app.help();
        while (help.ends_with('\n')) help.pop_back();
        return {.goOn = false, .exitStatus = ExitStatus::done, .text = help};
    } catch (const CLI::ParseError& error) {
        return usageError(error.what());
    }

    arguments.restAnswer = yes ? RestAnswer::yes : no ? RestAnswer::no : RestAnswer::ask;
    auto nextSet = sets.cbegin();
    auto nextPress = presses.cbegin();
    for (const CLI::Option* option : app.parse_order()) {
        if (option == press) arguments.actions.push_back({Action::Kind::press, *nextPress++, {}});
        if (option != set) continue;
        const SplitText split = splitAtFirst(*nextSet, '=');
        if (!split.found) return usageError("--set " + *nextSet + ": NAME=VALUE is expected");
        arguments.actions.push_back(
            {Action::Kind::set, std::string(split.before), std::string(split.behind)});
        ++nextSet;
    }
    if (arguments.panel.empty()) return usageError("Which panel?");
    if (!findPanel(arguments.panel)) return usageError("There is no panel " + arguments.panel + ".");
    return {};
}

}  // namespace tul::command
