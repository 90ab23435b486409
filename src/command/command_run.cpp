#include "command/command_run.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <optional>
#include <set>
#include <unordered_set>
#include <utility>
#include <variant>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/names_file.h"
#include "centre/start_up.h"
#include "music/pipeline.h"
#include "panels/fresh_process.h"
#include "panels/panel_list.h"
#include "shared/letter_case.h"
#include "shared/panel.h"
#include "shared/records.h"

namespace tul::command {

namespace {

/// A refusal to begin: what was wrong, for standard error.
using Refusal = std::optional<std::string>;

std::string kindName(FieldKind kind) {
    switch (kind) {
        case FieldKind::text:
            return "text";
        case FieldKind::check:
            return "check";
        case FieldKind::option:
            return "option";
        case FieldKind::tab:
            return "tab";
        case FieldKind::list:
            return "list";
        case FieldKind::label:
            return "label";
        case FieldKind::progress:
            return "progress";
    }
    return {};
}

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
        out << "  " << padRight(field.name, nameColumn) << padRight(kindName(field.kind), kindColumn)
            << (field.enabled() && !field.isReadOnly() ? "" : "(read only) ") << onOneLine(field.text())
            << '\n';
        if (const std::string prompt = field.prompt(); !prompt.empty())
            out << std::string(2 + nameColumn + kindColumn, ' ') << onOneLine(prompt) << '\n';
    }
    out << "\nCommands:\n";
    for (const Command& command : panel.commands) {
        std::string caption = command.caption();
        std::erase(caption, '&');
        out << "  " << padRight(command.name, nameColumn) << toUtf8(caption)
            << (command.visible() && command.enabled() ? "" : " (disabled)")
            << (command.checked() ? " (checked)" : "")
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
        if (!path) return "The name " + name + " cannot be written into a names file.";
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
        if (Panel panel = entry.make(); has(panel, action)) return true;
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

Refusal refusalOf(PanelAnswer answer, const std::string& name, bool mayLackSelection) {
    switch (answer) {
        case PanelAnswer::done:
            return std::nullopt;
        case PanelAnswer::invalid:
            return "The value does not fit " + name + ".";
        case PanelAnswer::unknown:
        case PanelAnswer::disabled:
            break;
    }
    return name + " is not enabled now" + (mayLackSelection ? ": no music files are selected." : ".");
}

/// The lists that were brought up since the last look, as a window would show them.
class ListPrinter {
  public:
    explicit ListPrinter(std::ostream& out) : out_(out) {}

    void markShown(const Panel& panel) {
        for (const Field& field : panel.fields)
            if (isUp(field)) shown_.insert(field.name);
    }
    void printNew(const Panel& panel) {
        for (const Field& field : panel.fields) {
            if (!isUp(field) || !shown_.insert(field.name).second) continue;
            const ListBox& list = *std::get<ListBox*>(field.value);
            if (!list.title.empty()) out_ << toUtf8(list.title) << "\n\n";
            for (const std::string& entry : list.entries) out_ << toUtf8(entry) << '\n';
        }
    }

  private:
    static bool isUp(const Field& field) {
        const auto list = std::get_if<ListBox*>(&field.value);
        return list && (*list)->visible && field.visible();
    }

    std::ostream& out_;
    std::set<std::string> shown_;
};

PanelAnswer fill(Panel& panel, const Action& action) {
    const bool isPath = panel.field(action.name)->isPath;
    return panel.set(action.name, isPath ? action.value : toSingleBytes(action.value));
}

Refusal act(const Arguments& arguments, OpenPanels& panels, std::ostream& out) {
    std::vector<Action> actions = arguments.actions;
    const auto isPress = [](const Action& action) { return action.kind == Action::Kind::press; };
    if (std::none_of(actions.begin(), actions.end(), isPress)) {
        const Panel& panel = panels.front();
        if (panel.runCommand.empty()) return panel.name + " has no Run command: press one.";
        actions.push_back({Action::Kind::press, panel.runCommand, {}});
    }
    ListPrinter lists(out);
    lists.markShown(panels.front());
    for (const Action& action : actions) {
        Panel& panel = panels.front();
        if (!has(panel, action)) return unknownText(panel, action);
        const std::size_t before = panels.count();
        const PanelAnswer answer = isPress(action) ? panel.press(action.name) : fill(panel, action);
        const bool mayLackSelection =
            isPress(action) && !panel.runCommand.empty() && !selection.SelectionValid;
        if (Refusal refusal = refusalOf(answer, action.name, mayLackSelection)) return refusal;
        panels.dropClosed();
        if (panels.count() > before) lists.markShown(panels.front());
        lists.printNew(panels.front());
    }
    return std::nullopt;
}

/// Start-up, the panel, and what is to be done on it. The panel's exit status, or what was wrong.
std::variant<int, std::string> runPanel(const Arguments& arguments, const PanelEntry& entry,
                                        const std::vector<std::string>& names, ConsoleFace& consoleFace,
                                        std::ostream& out) {
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
        return 0;
    }
    if (const Refusal refusal = act(arguments, panels, out)) return *refusal;
    return panels.exitStatus();
}

std::string listHintFor(const std::string& form) {
    return std::string(findPanel(form)->shortName) + " --list";
}

}  // namespace

int runCommand(const Arguments& arguments, Host machine, const std::string& programFolder,
               const Console& console) {
    const PanelEntry& entry = *findPanel(arguments.panel);
    const auto refuse = [&](const std::string& what, const std::string& hint) {
        console.err << toUtf8(what) << "\nSee: tulcmd " << hint << '\n';
        return exitUsage;
    };
    ConsoleFace consoleFace(console, arguments);
    machine.face = &consoleFace;
    installHost(machine);
    freshProcess();

    Panel unloaded = entry.make();
    if (const Refusal unknown = findUnknown(arguments, unloaded))
        return refuse(*unknown, listHintFor(unloaded.name));
    std::vector<std::string> names;
    if (const Refusal refusal = takeFiles(arguments.files, names)) return refuse(*refusal, "--help");
    const auto home = arguments.home.empty() ? programFolder : files().fromNative(arguments.home);
    if (!home || !files().changeFolder(*home))
        return refuse("There is no folder " + arguments.home + ".", "--help");

    int status = 0;
    try {
        const auto outcome = runPanel(arguments, entry, names, consoleFace, console.out);
        if (const auto refusal = std::get_if<std::string>(&outcome))
            return refuse(*refusal, listHintFor(consoleFace.panels().front().name));
        status = std::get<int>(outcome);
    } catch (const ProgramEnd& end) {
        status = end.status;
        // The message itself does not always say which page it was.
        if (status == exitFatal && !pipeline.currentPath.empty())
            console.err << "The run ended at " << toUtf8(pipeline.currentPath)
                        << "; the files before it are done.\n";
    } catch (const std::exception& fault) {
        console.err << "The program ended at a fault of its own: " << fault.what() << '\n';
        return exitFatal;
    }
    if (console.out.flush()) return status;
    console.err << "Standard output could not be written.\n";
    return exitFatal;
}

}  // namespace tul::command
