#include "centre/score_launching.h"

#include <algorithm>
#include <string_view>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/launching.h"
#include "host/host.h"
#include "shared/function_module.h"
#include "shared/records.h"

namespace tul {

ScoreRun scoreRun;

namespace {

const std::string newLine(CrLf);
const std::string workFile = "BARS.TMP";

/// How long "Dispatch.EXE" is, which names the dispatcher's link and not the dispatcher.
constexpr std::size_t linkSuffixLength = 12;

std::string withoutBackslash(std::string_view folder) {
    if (folder.ends_with('\\')) folder.remove_suffix(1);
    return std::string(folder);
}

/// The folder as one can change to it: the root of a drive needs its backslash.
std::string withBackslash(const std::string& folder) {
    return folder.ends_with('\\') ? folder : folder + "\\";
}

bool isSameFile(const std::string& one, const std::string& other) {
    return files().toNative(one) == files().toNative(other);
}

/// PAGE's own settings for its window are no result.
bool isNew(const std::string& path) {
    if (upperCase(path).ends_with("\\PAGE.PIF")) return false;
    const auto info = files().info(path);
    return info && info->stamp > scoreRun.RunStartTime;
}

bool wasThereBefore(const std::string& name) {
    const auto& before = scoreRun.ScoreFolderFiles;
    return std::any_of(before.begin(), before.end(),
                       [&name](const std::string& other) { return equalIgnoringCase(name, other); });
}

bool mayOverwrite() {
    const std::string& folder = machineSettings.ScoreFolder;
    std::string first;
    int count = 0;
    for (const std::string& path : scoreRun.UserFiles) {
        const std::string name(fileNameOf(path));
        if (FileExists(folder + name) && count++ == 0) first = name;
    }
    if (count == 0) return true;
    const std::string text =
        count > 1 ? joined("There are", count) +
                        " equal names between the user directory and the SCORE directory," + newLine +
                        "the first being " + first + ". Overwrite these files in the SCORE directory?"
                  : "There is one equal name between the user directory and the SCORE directory: " + first +
                        newLine + "Overwrite this file in the SCORE directory?";
    return MsgBox(text, Buttons::okCancel, Icon::question) == Answer::ok;
}

/// Carries the user's files to SCORE's folder up to the first failure; the paths of the copies.
std::vector<std::string> carryUserFiles() {
    const std::string& folder = machineSettings.ScoreFolder;
    std::vector<std::string> copies;
    for (const std::string& path : scoreRun.UserFiles) {
        const std::string name(fileNameOf(path));
        // A file that lies there already is no copy, and is not to be deleted as one.
        if (isSameFile(path, folder + name)) continue;
        if (files().copy(path, folder + name) != FileError::none) {
            MsgBox("File Copy failed: " + path + " to " + folder + name + "." + newLine +
                       "Will continue with files in the SCORE directory (all files in this series).",
                   Buttons::ok, Icon::exclamation);
            break;
        }
        copies.push_back(folder + name);
    }
    return copies;
}

bool deleteCopies(const std::vector<std::string>& copies) {
    for (const std::string& copy : copies) {
        if (files().remove(copy) == FileError::none) continue;
        MsgBox("File Erase failed: " + copy + ". Process terminated", Buttons::ok, Icon::exclamation);
        return false;
    }
    return true;
}

/// Brings one new file to the user's folder; where it then lies. Without a folder it stays where it is.
std::string bringBack(const std::string& name, const std::string& folder) {
    const std::string path = machineSettings.ScoreFolder + name;
    if (folder.empty() || isSameFile(path, folder + name)) return path;
    if (files().copy(path, folder + name) != FileError::none) {
        MsgBox("Failed to copy " + path + " to " + folder + name, Buttons::ok, Icon::exclamation);
        return {};
    }
    files().removeIfThere(path);
    return folder + name;
}

void bringResultsBack() {
    const std::string userFolder(scoreRun.UserFiles.empty() ? "" : folderOf(scoreRun.UserFiles.front()));
    for (const std::string& name : files().list(machineSettings.ScoreFolder)) {
        if (wasThereBefore(name) || !isNew(machineSettings.ScoreFolder + name)) continue;
        const std::string result = bringBack(name, userFolder);
        if (scoreRun.NewestResult.empty()) scoreRun.NewestResult = result;
    }
}

/// The drive on which the user's files lie, when PAGE's folder is neither beside them nor on that drive.
std::string foreignDrive(const std::string& pageFolder) {
    const std::string music = withoutBackslash(projectSettings.MusDirectory);
    const std::string parent = withoutBackslash(folderOf(music));
    const bool apart = !equalIgnoringCase(parent, pageFolder) &&
                       !equalIgnoringCase(music.substr(0, 1), pageFolder.substr(0, 1));
    return apart ? projectSettings.MusDirectory.substr(0, 3) : std::string();
}

}  // namespace

void CallScoreEngine(const std::string& version, const std::string& command) {
    if (version.empty())
        endWith("Could not establish Score3 or Score4 from link profile - link your Score to ScoreEngine.");
    const std::string& link = machineSettings.ScoreEngineProgramPath;
    const std::string dispatcher =
        link.substr(0, link.size() - std::min(link.size(), linkSuffixLength)) + ".EXE";
    if (!FileExists(dispatcher))
        MsgBox("Installation problem. File not located where it is supposed to be:" + newLine + dispatcher,
               Buttons::ok, Icon::exclamation);
    const InFolder folder{std::string(folderOf(link))};
    const std::string program = version == "3" ? "PROGRAM=SCORE,DIALECT=1000,PATH=ScoreEngine300.mod"
                                               : "PROGRAM=SCOR4,DIALECT=1005,PATH=ScoreEngine400.mod";
    ExecAndWait(dispatcher + " CALLEDBY=TUL," + program + ",COMMAND=" + command);
}

void CallPage() {
    const std::string folder = withoutBackslash(folderOf(machineSettings.PagePath));
    const std::string namesFolder = withoutBackslash(folderOf(paths.NamesFilePath));
    const std::string target = folder + "\\" + paths.NamesFileName;
    const bool isElsewhere = !equalIgnoringCase(folder, namesFolder);
    if (isElsewhere && (folder.empty() || files().copy(paths.NamesFilePath, target) != FileError::none))
        endWith("Failed to copy Names file from " + paths.NamesFilePath + " to" + newLine + target);
    scoreRun.NewestResult.clear();
    scoreRun.RunStartTime = clock().now();
    if (const std::string drive = foreignDrive(folder); !drive.empty()) return RunInScoreFolder(drive);
    RunInWorkFolder(folder, std::string(fileNameOf(machineSettings.PagePath)));
}

void RunInWorkFolder(const std::string& folder, const std::string& program) {
    const WaitingPointer pointer;
    const std::string path = folder + "\\" + program;
    scoreRun.ScoreFolderFiles = files().list(withBackslash(folder));
    const bool isCopy = !FileExists(path) && files().copy(machineSettings.PagePath, path) == FileError::none;
    {
        const InFolder present(withBackslash(folder), paths.ProgramFolder);
        ShellAndWait(path);
        files().removeIfThere(withBackslash(folder) + workFile);
        if (isCopy) files().removeIfThere(path);
    }
    for (const std::string& name : files().list(withBackslash(folder)))
        if (scoreRun.NewestResult.empty() && isNew(folder + "\\" + name))
            scoreRun.NewestResult = folder + "\\" + name;
}

void RunInScoreFolder(const std::string& arguments) {
    const WaitingPointer pointer;
    scoreRun.ScoreFolderFiles = files().list(machineSettings.ScoreFolder);
    if (!mayOverwrite()) return;
    const std::vector<std::string> copies = carryUserFiles();
    {
        const InFolder present(machineSettings.ScoreFolder);
        ShellAndWait(machineSettings.PagePath + (arguments.empty() ? "" : " ") + arguments);
        files().removeIfThere(machineSettings.ScoreFolder + workFile);
    }
    if (deleteCopies(copies)) bringResultsBack();
}

}  // namespace tul
