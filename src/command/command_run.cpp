#include "command/command_run.h"

#include <iostream>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "base/text.h"
#include "centre/names_file.h"
#include "centre/start_up.h"
#include "panels/fresh_process.h"
#include "panels/panel_list.h"
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
            << (command.enabled() ? "" : " (disabled)")
            << (command.name == panel.runCommand ? " (default)" : "") << '\n';
        if (const std::string tip = command.toolTip(); !tip.empty())
            out << std::string(2 + nameColumn, ' ') << onOneLine(tip) << '\n';
    }
}

/// The files in the installation's form. The selection is kept in upper case: a name that then leads to
/// another file, or that two of the files share, is refused.
Refusal takeFiles(const std::vector<std::string>& given, std::vector<std::string>& taken) {
    std::map<std::string, std::string> byUpperCase;
    for (const std::string& name : given) {
        const auto path = files().fromNative(name);
        if (!path) return "The name " + name + " cannot be written into a names file.";
        const auto [other, isNew] = byUpperCase.emplace(upperCase(*path), *path);
        if (!isNew && other->second == *path) continue;
        if (!isNew)
            return "These two names differ in letter case only: " + files().toNative(other->second) +
                   " and " + files().toNative(*path);
        const std::string found = files().toNative(upperCase(*path));
        if (files().canRead(*path) && found != files().toNative(*path))
            return "These two names differ in letter case only: " + files().toNative(*path) + " and " + found;
        taken.push_back(*path);
    }
    return std::nullopt;
}

bool writeNamesFile(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += namesFileLine(name);
    return files().replace("NAMES.TUL", text) == FileError::none;
}

Refusal findUnknown(const Arguments& arguments, Panel& panel) {
    for (const Action& action : arguments.actions) {
        const bool known = action.kind == Action::Kind::set ? panel.field(action.name) != nullptr
                                                            : panel.command(action.name) != nullptr;
        if (!known)
            return panel.name + " has no " + (action.kind == Action::Kind::set ? "field " : "command ") +
                   action.name + ".";
    }
    return std::nullopt;
}

Refusal refusalOf(PanelAnswer answer, const std::string& name) {
    switch (answer) {
        case PanelAnswer::done:
            return std::nullopt;
        case PanelAnswer::invalid:
            return "The value does not fit " + name + ".";
        case PanelAnswer::unknown:
        case PanelAnswer::disabled:
            break;
    }
    return name + " is not enabled now" + (selection.SelectionValid ? "." : ": no music files are selected.");
}

Refusal act(const Arguments& arguments, Panel& panel) {
    bool pressed = false;
    for (const Action& action : arguments.actions) {
        const bool isPress = action.kind == Action::Kind::press;
        pressed = pressed || isPress;
        const PanelAnswer answer = isPress ? panel.press(action.name) : panel.set(action.name, action.value);
        if (const Refusal refusal = refusalOf(answer, action.name)) return refusal;
    }
    if (pressed) return std::nullopt;
    if (panel.runCommand.empty()) return panel.name + " has no Run command: press one.";
    return refusalOf(panel.press(panel.runCommand), panel.runCommand);
}

}  // namespace

int runCommand(const Arguments& arguments, Host machine, const std::string& programFolder,
               const Console& console) {
    const PanelEntry& entry = *findPanel(arguments.panel);
    const auto refuse = [&](const std::string& what, const std::string& hint) {
        console.err << toUtf8(what) << "\nSee: tulcmd " << hint << '\n';
        return exitUsage;
    };
    const std::string listHint = std::string(entry.shortName) + " --list";
    ConsoleFace consoleFace(console, arguments);
    machine.face = &consoleFace;
    installHost(machine);
    freshProcess();

    std::vector<std::string> names;
    if (const Refusal refusal = takeFiles(arguments.files, names)) return refuse(*refusal, "--help");
    const auto home = arguments.home.empty() ? programFolder : files().fromNative(arguments.home);
    if (!home || !files().changeFolder(*home))
        return refuse("There is no folder " + arguments.home + ".", "--help");

    try {
        // The names file belongs to the process that has claimed the installation. It is written before start-up
        // checks it; but the questions of a first use select files themselves, and throw that selection away.
        const bool mayWrite = !names.empty() && !platform().anotherInstanceRuns();
        const bool isFirstUse = !files().canRead("TULCNTRL.INI");
        bool written = !mayWrite || isFirstUse || writeNamesFile(names);
        StartUp();
        if (mayWrite && isFirstUse) written = writeNamesFile(names);
        if (!written) endWith("NAMES.TUL could not be written.");
        Panel panel = entry.make();
        consoleFace.watch(&panel);
        if (panel.load) panel.load();
        if (arguments.list) {
            listPanel(panel, console.out);
            return 0;
        }
        if (const Refusal unknown = findUnknown(arguments, panel)) return refuse(*unknown, listHint);
        if (const Refusal refusal = act(arguments, panel)) return refuse(*refusal, listHint);
        return panel.exitStatus();
    } catch (const ProgramEnd& end) {
        return end.status;
    }
}

}  // namespace tul::command
