#include "music/backup.h"

#include "base/numbers.h"
#include "base/text.h"
#include "host/host.h"
#include "shared/function_module.h"

namespace tul {

namespace {

constexpr std::size_t suffixLength = 4;

void tellFailedCopy(const std::string& path, FileError fault) {
    const std::string start = "Failed to take backup copy of file " + path;
    if (fault == FileError::diskFull) {
        MsgBox(start + ". Drive full.", Buttons::ok, Icon::information);
    } else {
        MsgBox(start + " Error code =" + str(static_cast<int>(fault)), Buttons::ok, Icon::information);
    }
}

}  // namespace

std::string BackupSeries::letters() const {
    std::string found;
    for (const char letter : backupLetters)
        if (FileExists(path(letter))) found += letter;
    return found;
}

BackupSeries backupSeriesOf(const std::string& path) {
    const std::string name = upperCase(fileNameOf(path));
    const std::size_t stop = std::min(name.find('.'), name.size());
    return {
        .folder = std::string(folderOf(path)), .base = name.substr(0, stop), .extension = name.substr(stop)};
}

bool isBackupSuffix(std::string_view suffix) {
    return suffix.size() == suffixLength && suffix.starts_with(".BK") &&
           backupLetters.find(suffix.back()) != std::string_view::npos;
}

bool TakeBackup(const std::string& path) {
    if (path.size() >= suffixLength && isBackupSuffix(upperCase(path.substr(path.size() - suffixLength))))
        endWith("Invalid suffix in filename [" + path + "]." + std::string(CrLf) +
                "Backup files may not be used as input when editing with the backup feature.");
    const BackupSeries series = backupSeriesOf(path);
    for (const char letter : backupLetters) {
        const std::string target = series.path(letter);
        if (FileExists(target)) continue;
        const FileError fault = files().copy(path, target);
        if (fault != FileError::none) tellFailedCopy(path, fault);
        return fault == FileError::none;
    }
    endWith("The maximum number of backups exists. Use Explore to remove old generations.");
}

}  // namespace tul
