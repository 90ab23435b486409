#include "command/command_run.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <map>
#include <optional>
#include <tuple>
#include <unordered_set>
#include <utility>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/names_file.h"
#include "centre/page_run.h"
#include "centre/start_up.h"
#include "command/run_json.h"
#include "host/interrupt.h"
#include "panels/fresh_process.h"
#include "panels/panel_list.h"
#include "shared/letter_case.h"
#include "shared/panel.h"
#include "shared/records.h"

namespace tul::command {

namespace {

/// A refusal to begin: what was wrong, for standard error.
using Refusal = std::optional<std::string>;

/// How a call ended, and what is to be told of it.
struct CallEnd {
    ExitStatus status = ExitStatus::done;
    std::string text = {};
    std::string hint = {};  // how to see what there is
};

std::string onOneLine(const std::string& text) {
    std::string line;
    for (const std::string_view part : linesOf(text)) {
        if (!line.empty()) line += " / ";
        line += toUtf8(part);
    }
    return line;
}

constexpr std::size_t mostNames = 32767;  // as its counter has 16 bits

constexpr std::size_t nameColumn = 28;
constexpr std::size_t kindColumn = 10;

void listPanel(Panel& panel, std::ostream& out) {
    out << panel.name << " - " << toUtf8(panel.caption) << "\n\nFields:\n";
    for (const Field& field : panel.fields) {
        if (!field.visible()) continue;
        out << "  " << padRight(field.name, nameColumn) << padRight(field.kindName(), kindColumn)
            << (panel.isEnabled(field) && !field.isReadOnly() ? "" : "(read only) ")
            << onOneLine(field.text()) << '\n';
        for (const std::string& hint : {field.prompt(), field.choices()})
            if (!hint.empty())
                out << std::string(2 + nameColumn + kindColumn, ' ') << onOneLine(hint) << '\n';
    }
    out << "\nCommands:\n";
    for (const Command& command : panel.commands) {
        if (!command.visible()) continue;
        std::string caption = command.caption();
        std::erase(caption, '&');
        out << "  " << padRight(command.name, nameColumn) << toUtf8(caption)
            << (panel.isEnabled(command) ? "" : " (disabled)") << (command.checked() ? " (checked)" : "")
            << (command.name == panel.runCommand ? " (default)" : "") << '\n';
        if (const std::string tip = command.toolTip(); !tip.empty())
            out << std::string(2 + nameColumn, ' ') << onOneLine(tip) << '\n';
    }
}

/// What keeps one file from being selected.
Refusal refusalOfFile(const std::string& given, const std::string& path) {
    const auto info = files().info(path);
    if (!info) return "There is no file " + given + ".";
    if (info->folder) return given + " is a folder.";
    if (!files().canRead(path)) return given + " cannot be read.";
    return std::nullopt;
}

/// The files in the installation's form, each once. Whatever cannot become a selection is refused here, so
/// that the present one is not lost for a slip of the pen.
Refusal takeFiles(const std::vector<std::string>& given, std::vector<std::string>& taken) {
    std::unordered_set<std::string> known;
    for (const std::string& name : given) {
        const auto path = files().fromNative(name);
        if (!path || path->ends_with(' '))
            return "The name " + name + " cannot be written into a names file.";
        if (!known.insert(*path).second) continue;
        if (Refusal refusal = refusalOfFile(name, *path)) return refusal;
        taken.push_back(*path);
        if (upperCase(folderOf(*path)) != upperCase(folderOf(taken.front())))
            return given.front() + " and " + name + " lie in different folders; a selection has one folder.";
    }
    if (taken.size() > mostNames) return "A selection has at most " + plain(mostNames) + " files.";
    return findLetterCaseClash(taken);
}

bool writeNamesFile(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += namesFileLine(name);
    return files().replace("NAMES.TUL", text) == FileError::none;
}

bool has(Panel& panel, const Action& action) {
    return action.kind == Action::Kind::set ? panel.field(action.name) != nullptr
                                            : panel.command(action.name) != nullptr;
}

std::string unknownText(const Panel& panel, const Action& action) {
    return panel.name + " has no " + (action.kind == Action::Kind::set ? "field " : "command ") +
           action.name + ".";
}

bool anyPanelHas(const Action& action) {
    for (const PanelEntry& entry : panelList())
        if (Panel panel = entry.describe(); has(panel, action)) return true;
    return false;
}

/// What no panel of the run can know: behind a press that may be any panel.
Refusal findUnknown(const Arguments& arguments, Panel& panel) {
    bool pressed = false;
    for (const Action& action : arguments.actions) {
        if (!has(panel, action) && !(pressed && anyPanelHas(action))) return unknownText(panel, action);
        if (action.kind == Action::Kind::press) pressed = true;
    }
    return std::nullopt;
}

/// The lists that were put before the user since the last look, as a window would show them.
class ListPrinter {
  public:
    explicit ListPrinter(std::ostream& out) : out_(out) {}

    void markShown(const Panel& panel) {
        for (const Field& field : panel.fields)
            if (isUp(field)) shown_[field.name] = listOf(field).showings;
    }
    void printNew(const Panel& panel) {
        for (const Field& field : panel.fields) {
            if (!isUp(field)) continue;
            const ListBox& list = listOf(field);
            const auto known = shown_.find(field.name);
            if (known != shown_.end() && known->second == list.showings) continue;
            shown_[field.name] = list.showings;
            if (!list.title.empty()) out_ << toUtf8(list.title) << "\n\n";
            for (const std::string& entry : list.entries) out_ << toUtf8(entry) << '\n';
        }
    }

  private:
    static bool isUp(const Field& field) {
        const auto* const list = std::get_if<ListKind>(&field.kind);
        return list && list->value->visible && field.visible();
    }

    static const ListBox& listOf(const Field& field) { return *std::get<ListKind>(field.kind).value; }

    std::ostream& out_;
    std::map<std::string, int> shown_;  // by name, its showings
};

PanelAnswer fill(Panel& panel, const Action& action) {
    const auto* const text = std::get_if<TextKind>(&panel.field(action.name)->kind);
    return panel.set(action.name, text && text->isPath ? action.value : toSingleBytes(action.value));
}

std::string listHintFor(const Panel& panel) {
    return std::string(findPanel(panel.name)->shortName) + " --list";
}

CallEnd usageError(const Panel& panel, const std::string& text) {
    return {ExitStatus::usage, text, listHintFor(panel)};
}

/// Nothing, or why the action could not be done.
std::optional<CallEnd> perform(Panel& panel, const Action& action) {
    if (!has(panel, action)) return usageError(panel, unknownText(panel, action));
    const bool presses = action.kind == Action::Kind::press;
    switch (presses ? panel.press(action.name) : fill(panel, action)) {
        case PanelAnswer::done:
            return std::nullopt;
        case PanelAnswer::invalid:
            return usageError(panel, "The value does not fit " + action.name + ".");
        case PanelAnswer::unknown:
        case PanelAnswer::disabled:
            break;
    }
    const bool runs = presses && !panel.closed() && equalIgnoringCase(action.name, panel.runCommand);
    if (!runs || selection.SelectionValid) return usageError(panel, action.name + " is not enabled now.");
    noteRefusedRun(findPanel(panel.name)->shortName, "no music files are selected");
    return CallEnd{ExitStatus::refused, action.name + " is not enabled now: no music files are selected.",
                   listHintFor(panel)};
}

std::optional<CallEnd> act(const Arguments& arguments, OpenPanels& panels, std::ostream& out) {
    std::vector<Action> actions = arguments.actions;
    const auto isPress = [](const Action& action) { return action.kind == Action::Kind::press; };
    if (std::none_of(actions.begin(), actions.end(), isPress)) {
        const Panel& panel = panels.front();
        if (panel.runCommand.empty())
            return usageError(panel, panel.name + " has no Run command: press one.");
        actions.push_back({Action::Kind::press, panel.runCommand, {}});
    }
    ListPrinter lists(out);
    lists.markShown(panels.front());
    for (const Action& action : actions) {
        if (isInterrupted()) return std::nullopt;
        const std::size_t before = panels.count();
        if (const auto refusal = perform(panels.front(), action)) return refusal;
        panels.dropClosed();
        if (panels.count() > before) lists.markShown(panels.front());
        lists.printNew(panels.front());
    }
    return std::nullopt;
}

/// Start-up, the panel, and what is to be done on it.
CallEnd runPanel(const Arguments& arguments, const PanelEntry& entry, const std::vector<std::string>& names,
                 ConsoleFace& consoleFace, std::ostream& out) {
    // The names file belongs to the process that has claimed the installation. It is written before start-up
    // checks it; but the questions of a first use select files themselves, and throw that selection away.
    const bool mayWrite =
        !names.empty() && files().canRead("TULMONIT.EXE") && !platform().anotherInstanceRuns();
    const bool isFirstUse = !files().canRead("TULCNTRL.INI");
    bool written = !mayWrite || isFirstUse || writeNamesFile(names);
    StartUp();
    if (mayWrite && isFirstUse) written = writeNamesFile(names);
    if (!written) endWith("NAMES.TUL could not be written.");
    OpenPanels& panels = consoleFace.panels();
    panels.open(entry);
    if (arguments.list) {
        listPanel(panels.front(), out);
        return {};
    }
    return act(arguments, panels, out).value_or(CallEnd());
}

/// Where a run was when the program ended, and what its report can no longer tell.
std::string endText(const RunResult& run) {
    if (run.brokenAt.empty()) return {};
    const auto isLost = [&run](const PageResult& page) {
        return page.isReached && !page.isDone && page.path != run.brokenAt;
    };
    std::string text = "The run ended at " + run.brokenAt;
    if (std::none_of(run.pages.begin(), run.pages.end(), isLost))
        return text + "; the files before it are done.";
    for (const std::string& line : findingsOf(run)) text += "\n" + line;
    return text;
}

/// The same to its end, whatever that is.
CallEnd runToEnd(const Arguments& arguments, const PanelEntry& entry, const std::vector<std::string>& names,
                 ConsoleFace& consoleFace, std::ostream& out) {
    try {
        return runPanel(arguments, entry, names, consoleFace, out);
    } catch (const ProgramEnd& end) {
        if (end.status == 0) return {};
        // The message itself does not always say which page it was.
        return {ExitStatus::fatal, runResults.empty() ? std::string() : endText(runResults.back())};
    } catch (const std::exception& fault) {
        return {ExitStatus::fatal, std::string("The program ended at a fault of its own: ") + fault.what()};
    }
}

/// Of all that happened in a call the gravest counts.
ExitStatus statusOf(const CallEnd& end) {
    ExitStatus status = graver(end.status, isInterrupted() ? ExitStatus::stopped : ExitStatus::done);
    for (const RunResult& run : runResults) status = graver(status, run.exitStatus());
    return status;
}

void tell(const CallEnd& end, std::ostream& err) {
    if (!end.text.empty()) err << toUtf8(end.text) << '\n';
    if (!end.hint.empty()) err << "See: tulcmd " << end.hint << '\n';
}

/// What is wrong with the call itself, before anything is done.
std::optional<CallEnd> findMistake(const Arguments& arguments, const PanelEntry& entry,
                                   std::vector<std::string>& names, const std::string& programFolder) {
    Panel panel = entry.describe();
    if (const Refusal unknown = findUnknown(arguments, panel)) return usageError(panel, *unknown);
    const auto refuse = [](const std::string& text) { return CallEnd{ExitStatus::usage, text, "--help"}; };
    if (const Refusal refusal = takeFiles(arguments.files, names)) return refuse(*refusal);
    const auto home = arguments.home.empty() ? programFolder : files().fromNative(arguments.home);
    if (!home || !files().changeFolder(*home)) return refuse("There is no folder " + arguments.home + ".");
    return std::nullopt;
}

/// False where the file for the results holds something else, such as a page that a slip of the pen has put
/// there.
bool mayHoldResults(const std::string& nativePath) {
    if (nativePath.empty()) return true;
    const auto path = files().fromNative(nativePath);
    const auto info = path ? files().info(*path) : std::nullopt;
    std::string start;
    if (info && !info->folder) std::ignore = files().read(*path, start, startOfResults.size());
    return path && (!info || (!info->folder && (info->length == 0 || start == startOfResults)));
}

/// Writes the results where a file for them was asked for.
ExitStatus writeResults(const std::string& nativePath, const CallEnd& end, ExitStatus status,
                        std::ostream& err) {
    if (nativePath.empty()) return status;
    const std::string reason = end.status == ExitStatus::usage ? end.text : std::string();
    const std::string path = files().fromNative(nativePath).value_or(nativePath);
    if (files().replace(path, jsonOf(runResults, status, reason)) == FileError::none) return status;
    err << "The file " << nativePath << " could not be written.\n";
    return graver(status, ExitStatus::notAllDone);
}

}  // namespace

int runCommand(const Arguments& arguments, Host machine, const std::string& programFolder,
               const Console& console) {
    const PanelEntry& entry = *findPanel(arguments.panel);
    ConsoleFace consoleFace(console, arguments);
    machine.face = &consoleFace;
    installHost(machine);
    freshProcess();

    if (!mayHoldResults(arguments.json)) {
        tell({ExitStatus::usage, "The file " + arguments.json + " is there, and holds no results.", "--help"},
             console.err);
        return static_cast<int>(ExitStatus::usage);
    }
    std::vector<std::string> names;
    const auto mistake = findMistake(arguments, entry, names, programFolder);
    const CallEnd end = mistake ? *mistake : runToEnd(arguments, entry, names, consoleFace, console.out);
    tell(end, console.err);
    ExitStatus status = statusOf(end);
    if (!console.out.flush()) {
        console.err << "Standard output could not be written.\n";
        status = graver(status, ExitStatus::fatal);
    }
    return static_cast<int>(writeResults(arguments.json, end, status, console.err));
}

}  // namespace tul::command
