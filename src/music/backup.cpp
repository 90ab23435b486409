#include "music/backup.h"

#include "base/numbers.h"
#include "base/text.h"
#include "host/host.h"
#include "shared/function_module.h"

namespace tul {

namespace {

constexpr std::size_t suffixLength = 4;

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

NextGeneration nextGenerationOf(const std::string& path) {
    if (path.size() >= suffixLength && isBackupSuffix(upperCase(path.substr(path.size() - suffixLength))))
        return {.path = {},
                .refusal = "Invalid suffix in filename [" + path + "]." + std::string(CrLf) +
                           "Backup files may not be used as input when editing with the backup feature."};
    const BackupSeries series = backupSeriesOf(path);
    for (const char letter : backupLetters)
        if (!FileExists(series.path(letter))) return {.path = series.path(letter), .refusal = {}};
    return {.path = {},
            .refusal = "The maximum number of backups exists. Use Explore to remove old generations."};
}

std::string failedBackupText(const std::string& path, FileError fault) {
    const std::string start = "Failed to take backup copy of file " + path;
    if (fault == FileError::diskFull) return start + ". Drive full.";
    return start + " Error code =" + str(static_cast<int>(fault));
}

bool TakeBackup(const std::string& path) {
    const NextGeneration next = nextGenerationOf(path);
    if (!next.refusal.empty()) endWith(next.refusal);
    const FileError fault = files().copyToNew(path, next.path);
    if (fault != FileError::none) MsgBox(failedBackupText(path, fault), Buttons::ok, Icon::information);
    return fault == FileError::none;
}

}  // namespace tul
