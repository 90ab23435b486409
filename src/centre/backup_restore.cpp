#include "centre/backup_restore.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "base/date_time.h"
#include "base/numbers.h"
#include "base/text.h"
#include "centre/installation.h"
#include "centre/names_file.h"
#include "centre/viewing.h"
#include "host/host.h"
#include "music/backup.h"
#include "shared/function_module.h"
#include "shared/records.h"
#include "shared/report.h"

namespace tul {

namespace {

const std::string newLine(CrLf);
constexpr std::size_t countIndent = 22;

std::string stampOf(const std::string& path) {
    const auto info = files().info(path);
    return info ? stampText(info->stamp) : std::string();
}

std::string ignoredBackup(const std::string& name) {
    return "Names file should not have backup file(s). Ignored file: " + name;
}

// --- Restore

void tell(const std::string& text) { MsgBox(text, Buttons::ok, Icon::information); }

bool holdsBackupFile() {
    for (const std::string& name : selection.SelectionNames) {
        if (!isBackupSuffix(backupSeriesOf(name).extension)) continue;
        MsgBox(ignoredBackup(name));
        return true;
    }
    return false;
}

/// The letter of the generation that every file goes back to; a blank when there is none, which is told.
char letterToRestore() {
    std::vector<std::string> letters;
    for (const std::string& name : selection.SelectionNames)
        letters.push_back(backupSeriesOf(name).letters());
    const auto isEmpty = [](const std::string& found) { return found.empty(); };
    if (std::all_of(letters.begin(), letters.end(), isEmpty)) {
        tell("There is no backup for the current group of" + str(selection.SelectionCount) + " file(s).");
        return ' ';
    }
    if (std::adjacent_find(letters.begin(), letters.end(), std::not_equal_to<>()) != letters.end()) {
        tell("Unequal number of backup generations in this group of files." + newLine +
             "Restore cannot be done automatically.");
        return ' ';
    }
    return letters.front().back();
}

bool mayRestore(char letter) {
    const std::string first = backupSeriesOf(selection.SelectionNames[1]).path(letter);
    return MsgBox("The current group of selected files has" + str(selection.SelectionCount) + " name(s)" +
                      newLine + "The most recent backup for this group appears to have suffix .BK" + letter +
                      newLine + "Do you want to replace the current group by the files with this suffix?" +
                      newLine + newLine + "First file's backup details:" + newLine + first + " - " +
                      stampOf(first),
                  Buttons::yesNo, Icon::question) != Answer::no;
}

/// The backup takes the file's place at once, so that at no moment neither of them has the file's name.
bool restoreFile(const std::string& name, char letter) {
    const FileError fault = files().renameOver(backupSeriesOf(name).path(letter), name);
    if (fault == FileError::none) return true;
    const bool backupIsGone = !files().info(backupSeriesOf(name).path(letter));
    tell(std::string("An error occurred during restore (") + (backupIsGone ? "Rename" : "Erase") +
         "). Results unpredicatable");
    return false;
}

// --- Status

/// The lines of one file; the number of its generations.
int writeFileStatus(Report& report, const std::string& name) {
    report.line(" ");
    const BackupSeries series = backupSeriesOf(name);
    if (isBackupSuffix(series.extension)) {
        report.line(ignoredBackup(name));
        return 0;
    }
    report.line(name + " - " + stampOf(name));
    const std::string letters = series.letters();
    for (const char letter : letters) report.line(series.path(letter) + " - " + stampOf(series.path(letter)));
    const std::size_t count = letters.size();
    report.line(std::string(name.size() + countIndent, ' ') + (count == 0   ? "No backups"
                                                               : count == 1 ? "1 backup"
                                                                            : plain(count) + " backups"));
    return static_cast<int>(count);
}

int writeSelectionStatus(Report& report) {
    report.line("Creation date . . . . . . . " + stampOf(paths.NamesFilePath));
    report.line("Number of names in file . ." + printed(selection.SelectionCount));
    int total = 0;
    for (const std::string& name : selection.SelectionNames) total += writeFileStatus(report, name);
    return total;
}

void writeAdvice(Report& report) {
    report.line(" ");
    report.line("To restore backed up files automatically, press the small button on the right.");
    report.line("The most recent backup will be taken (.BKV is assumed more recent than .BKU, etc.).");
    report.line(" ");
    report.line("To restore backed up files manually, erase the most recent version, then select the");
    report.line("*.BK? files to be restored and use TulRenum to rename/renumber them.");
}

}  // namespace

void cmdCycle() {
    ReadNamesFile();
    if (holdsBackupFile()) return;
    const char letter = letterToRestore();
    if (letter == ' ' || !mayRestore(letter)) return;
    for (const std::string& name : selection.SelectionNames)
        if (!restoreFile(name, letter)) return;
    tell("Successfully restored" + str(selection.SelectionCount) + " file(s)");
}

void cmdLogoBackupStatus() {
    ReadNamesFile();
    Report report(inProgramFolder("TULWORK.PRN"));
    if (report.open() != FileError::none) endWith("Failed to open " + report.path() + " for output");
    report.line("Backup status . . . . . . . " + dateAndTime());
    report.line("NAMES.TUL path  . . . . . . " + paths.NamesFilePath);
    int total = 0;
    if (FileExists(paths.NamesFilePath)) {
        total = writeSelectionStatus(report);
    } else {
        report.line("(File not existing - status cannot be provided without selected filenames)");
    }
    report.line(" ");
    report.line("Total number of backup files:" + str(total));
    writeAdvice(report);
    showAndDelete(report);
}

}  // namespace tul
