#include "centre/renaming_record.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/installation.h"
#include "centre/names_file.h"
#include "host/host.h"
#include "shared/function_module.h"
#include "shared/key_value_file.h"
#include "shared/records.h"

namespace tul {

namespace {

const std::string newLine(CrLf);

std::string recordPath() { return inProgramFolder("TULRENAM.TUL"); }

/// A record as it was read back.
struct BrokenRenaming {
    std::string begun;
    bool adaptsSelection = false;
    std::vector<Renaming> renamings;
};

std::optional<BrokenRenaming> readRecord() {
    const auto lines = readKeyValues(recordPath());
    if (!lines) return std::nullopt;
    BrokenRenaming broken;
    for (const KeyValue& line : *lines) {
        if (line.key == "BEGUN") broken.begun = line.value;
        if (line.key == "ADAPTSSELECTION") broken.adaptsSelection = isTrue(line.value);
        if (line.key == "FROM") broken.renamings.push_back({.from = line.value, .to = {}});
        if (line.key == "TO" && !broken.renamings.empty()) broken.renamings.back().to = line.value;
    }
    return broken;
}

bool isThere(const std::string& path) { return !path.empty() && !files().nameOnDisk(path).empty(); }

bool isRenamed(const Renaming& renaming) { return !isThere(renaming.from) && isThere(renaming.to); }

/// The names file lists a file under a name that is gone.
bool isSelectionOld(const std::vector<Renaming>& renamings) {
    std::unordered_set<std::string> gone;
    for (const Renaming& renaming : renamings)
        if (isRenamed(renaming)) gone.insert(upperCase(renaming.from));
    std::string text;
    files().readIfThere(paths.NamesFilePath, text);
    const auto lines = linesOf(text);
    return std::any_of(lines.begin(), lines.end(), [&gone](std::string_view line) {
        return gone.contains(upperCase(nameOfNamesFileLine(line)));
    });
}

/// A count of files, and one of them.
struct Found {
    std::size_t files = 0;
    std::string example = {};

    std::string line(const char* what) const {
        if (files == 0) return {};
        return newLine + plain(files) + what + example + ".";
    }
};

std::string whatIsFound(const BrokenRenaming& broken) {
    Found renamed;
    Found old;
    Found missing;
    for (const Renaming& renaming : broken.renamings) {
        const std::string names =
            std::string(fileNameOf(renaming.from)) + " -> " + std::string(fileNameOf(renaming.to));
        if (isThere(renaming.from)) {
            if (old.files++ == 0) old.example = names;
        } else if (isThere(renaming.to)) {
            ++renamed.files;
            renamed.example = names;
        } else if (missing.files++ == 0) {
            missing.example = names;
        }
    }
    return renamed.line(" with the new name, the last: ") + old.line(" with the old name, the first: ") +
           missing.line(" with neither name, the first: ");
}

/// Nothing of a selection that is another by now.
std::string selectionLine(const BrokenRenaming& broken) {
    if (!isSelectionOld(broken.renamings)) return {};
    if (!broken.adaptsSelection) return newLine + "The selection has the old names.";
    std::vector<std::string> present;
    for (const Renaming& renaming : broken.renamings)
        present.push_back(isRenamed(renaming) ? renaming.to : renaming.from);
    return newLine +
           (selectPresent(present) == FileError::none
                ? "The selection has been adapted to the names on the disk."
                : "The selection could not be adapted: " + paths.NamesFilePath + " could not be written.");
}

}  // namespace

FileError recordRenaming(const std::vector<Renaming>& renamings, bool adaptsSelection) {
    std::string text = "* Files that are being renamed." + newLine + "Begun=" + dateAndTime() + newLine +
                       "AdaptsSelection=" + (adaptsSelection ? "1" : "0") + newLine;
    for (const Renaming& renaming : renamings)
        text += "From=" + renaming.from + newLine + "To=" + renaming.to + newLine;
    return files().replace(recordPath(), text);
}

void forgetRenaming() { files().removeIfThere(recordPath()); }

FileError selectPresent(const std::vector<std::string>& filePaths) {
    std::string text;
    for (const std::string& path : filePaths)
        if (isThere(path)) text += namesFileLine(path);
    return files().replace(paths.NamesFilePath, text);
}

void tellBrokenRenaming() {
    const auto broken = readRecord();
    if (!broken) return;
    if (!broken->renamings.empty())
        MsgBox("The renaming of" + str(broken->renamings.size()) + " file(s) that began " + broken->begun +
                   " did not come to its end." + whatIsFound(*broken) + selectionLine(*broken),
               Buttons::ok, Icon::exclamation);
    forgetRenaming();
}

}  // namespace tul
