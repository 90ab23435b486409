#include "centre/names_file.h"

#include <algorithm>
#include <string_view>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/launching.h"
#include "centre/viewing.h"
#include "host/host.h"
#include "shared/function_module.h"
#include "shared/records.h"

namespace tul {

namespace {

constexpr std::string_view terminator = " 1";
const std::string newLine(CrLf);

/// Shows the refused file, so that the user sees what was in it, and throws it away.
void discardNamesFile(const std::string& message) {
    MsgBox(message, Buttons::ok, Icon::exclamation);
    ViewWithEditor(paths.NamesFilePath);
    files().removeIfThere(paths.NamesFilePath);
    selection.SelectionCount = 0;
    selection.SelectionNames.clear();
}

bool checkPrefix(const std::string& name) {
    const std::string_view prefix = folderOf(name);
    if (selection.SelectionNames.count() == 1) selection.SelectionPrefix = prefix;
    if (prefix == selection.SelectionPrefix) return true;
    discardNamesFile("Names in Names file do not all have the same path prefix." + newLine +
                     "This is a requirement for printing with SCORLAS." + newLine + "Compared names are: " +
                     selection.SelectionPrefix + newLine + "And: " + std::string(prefix) + newLine + newLine +
                     "Names file will be deleted after view.");
    return false;
}

bool checkExistence(const std::string& name) {
    if (FileExists(name)) return true;
    if (name.starts_with("A:") || name.starts_with("B:")) {
        discardNamesFile("Name in names file [" + name + "] refers to non-existing or unaccessable file" +
                         newLine + "Define a new names file by music file selection.");
    } else {
        discardNamesFile("Name in Names file [" + name + "] refers to non-existing or unaccessable file" +
                         newLine + "Names file will be deleted after view.");
    }
    return false;
}

/// Takes one name over into the selection. False when the whole file was discarded for it.
bool takeName(const std::string& name) {
    selection.SelectionCount = wrap16(selection.SelectionCount + 1);
    selection.SelectionNames.append(name);
    if (name.find('\\') == std::string::npos) {
        discardNamesFile("Invalid record format in Names file." + newLine + "Name must have a path prefix:" +
                         newLine + name + newLine + "Names file will be deleted after view.");
        return false;
    }
    if (!checkPrefix(name) || !checkExistence(name)) return false;
    if (name.size() > selection.LongestName.size()) selection.LongestName = name;
    return true;
}

std::int16_t countSelectedOnDisk() {
    std::int16_t found = 0;
    for (const std::string& name : selection.SelectionNames)
        if (FileExists(name)) found = wrap16(found + 1);
    return found;
}

/// Names of a list that the utilities write, found on disk. A list with a vanished name is deleted.
std::int16_t checkUtilityNames(const std::string& path) {
    std::string text;
    if (files().read(path, text) != FileError::none) return 0;
    std::int16_t lines = 0;
    std::int16_t found = 0;
    for (const std::string_view line : linesOf(text)) {
        lines = wrap16(lines + 1);
        if (FileExists(nameOfNamesFileLine(line))) found = wrap16(found + 1);
    }
    if (found != lines) files().removeIfThere(path);
    return found;
}

/// Runs one of the selection programs with the panel out of the way. Where it is missing nothing happens: the
/// present selection is then read again.
void runSelectionProgram(const std::string& program, const std::string& arguments) {
    if (!FileExists(program)) return;
    const HiddenPanel hidden;
    ShellAndWait(program + " " + arguments, {arguments});
}

void renewSelection(std::string& viewTip) {
    ReadNamesFile();
    RefreshViewTip(viewTip);
}

}  // namespace

std::string namesFileLine(const std::string& path) { return path + std::string(terminator) + newLine; }

/// Blanks before the terminator are no part of it.
std::string nameOfNamesFileLine(std::string_view line) {
    line.remove_suffix(std::min(line.size(), terminator.size()));
    return std::string(trimRight(line));
}

void ReadNamesFile() {
    selection.SelectionValid = false;
    selection.SelectionCount = 0;
    selection.SelectionPrefix.clear();
    selection.LongestName.clear();
    selection.SelectionNames.clear();

    std::string text;
    if (files().read(paths.NamesFilePath, text) != FileError::none) return;
    for (const std::string_view raw : linesOf(text)) {
        std::string line = upperCase(trimRight(raw));
        if (line.empty() || line.front() == ' ' || line.front() == '*') continue;
        if (!line.ends_with(terminator)) {
            MsgBox("Filename [" + line +
                       "] in Names file not terminated by ' 1'. Hit enter to continue (Assumed correct).",
                   Buttons::ok, Icon::exclamation);
            line += terminator;
        }
        if (!takeName(nameOfNamesFileLine(line))) return;
    }
    selection.SelectionValid = selection.SelectionCount > 0;
}

void RefreshNamesFiles() {
    ReadNamesFile();
    if (countSelectedOnDisk() != selection.SelectionCount) files().removeIfThere(paths.NamesFilePath);
    selection.EpsNamesCount = checkUtilityNames("NAMESEPS.TUL");
    selection.XmlNamesCount = checkUtilityNames("NAMESXML.TUL");
}

void showNamesStatus() {
    RefreshNamesFiles();
    const std::string folder = files().currentFolder();
    MsgBox(plain(selection.SelectionCount) + " name(s) in " + paths.NamesFilePath + newLine +
           plain(selection.EpsNamesCount) + " name(s) in " + folder + "\\NAMESEPS.TUL" + newLine +
           plain(selection.XmlNamesCount) + " name(s) in " + folder + "\\NAMESXML.TUL" + newLine);
}

std::string selectionArguments(const std::string& suffix, const std::string& folder,
                               const std::string& message) {
    std::string arguments = "STARTDIR=" + paths.ProgramFolder + ",SUFFIX=" + suffix + ",MUSFOLDER=" + folder +
                            ",NAMESFILE=" + paths.NamesFileName + ",DEBUG=NO";
    if (!message.empty()) arguments += ",MSG=" + message;
    return arguments;
}

void chooseNames(const std::string& arguments, const std::string& message) {
    const auto named = face().namedPaths(message.empty() ? "Select file(s)" : message);
    if (!named) return runSelectionProgram(paths.TulNamesPath, arguments);
    if (named->empty()) return;
    std::string text;
    for (const std::string& path : *named) text += namesFileLine(path);
    if (files().replace(paths.NamesFilePath, text) != FileError::none)
        MsgBox(paths.NamesFilePath + " could not be written.", Buttons::ok, Icon::exclamation);
}

void SelectFiles(const std::string& message, std::string& viewTip) {
    chooseNames(selectionArguments(projectSettings.PreferedSuffix, projectSettings.MusDirectory, message),
                message);
    renewSelection(viewTip);
}

void DropFiles(const std::vector<std::string>& dropped, std::string& viewTip, const std::string& type) {
    std::string arguments = "STARTDIR=" + paths.ProgramFolder + ",NAMESFILE=" + paths.NamesFileName +
                            ",DEBUG=NO,TYPE=" + type + ",LIST=";
    for (const std::string& path : dropped) arguments += path + ",";
    runSelectionProgram(paths.TulOlePath, arguments);
    renewSelection(viewTip);
}

void ViewNamesFile(std::string& viewTip) {
    if (!FileExists(paths.NamesFilePath)) {
        MsgBox(paths.NamesFilePath + " creation failed. Programming error. Hit OK to abort", Buttons::ok,
               Icon::critical);
        endProgram();
    }
    ViewWithEditor(paths.NamesFilePath);
    renewSelection(viewTip);
}

void RefreshViewTip(std::string& viewTip) {
    if (selection.SelectionCount < 1) return;
    const std::string& first = selection.SelectionNames[1];
    const std::string start = "Names file " + paths.NamesFileName + " has";
    viewTip = selection.SelectionCount == 1
                  ? start + " one filename: " + first
                  : start + str(selection.SelectionCount) + " filenames, the first: " + first;
}

std::string SelectFolder(const std::string& remark) {
    if (const auto named = face().namedPaths(remark)) return named->empty() ? std::string() : named->front();
    if (FileExists(paths.TulFolderPath)) {
        const WaitingPointer pointer;
        runSelectionProgram(paths.TulFolderPath, "REMARK=" + remark + ",STARTDIR=" + paths.ProgramFolder +
                                                     ",FILE=" + paths.TulFolderResultName + ",DEBUG=NO");
    }
    std::string folder;
    std::string text;
    files().readIfThere(paths.TulFolderResultName, text);
    for (const std::string_view line : linesOf(text))
        if (!line.empty() && line.front() != '*') folder = trimRight(line);
    return folder;
}

}  // namespace tul
