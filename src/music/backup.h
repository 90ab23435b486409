#pragma once

#include <string>
#include <string_view>

#include "host/files.h"

/// Backup generations: up to six copies of a music file beside it, with the suffixes .BKU to .BKZ.
namespace tul {

/// In the order in which they are filled. The highest that exists counts as the most recent.
inline constexpr std::string_view backupLetters = "UVWXYZ";

/// The series that a file belongs to. Files of a folder that differ in their suffix only share one.
struct BackupSeries {
    std::string folder;     // as given, with its last backslash
    std::string base;       // upper case, up to the first full stop of the name
    std::string extension;  // upper case, from the first full stop on; empty without one

    /// The path of one generation.
    std::string path(char letter) const { return folder + base + ".BK" + letter; }
    /// The letters of the generations that exist.
    std::string letters() const;
};
BackupSeries backupSeriesOf(const std::string& path);

/// True for .BKU to .BKZ, in upper case.
bool isBackupSuffix(std::string_view suffix);

/// Where the next generation of a file goes, or in words why there is none: the file is a generation itself,
/// or all six exist.
struct NextGeneration {
    std::string path;
    std::string refusal;
};
[[nodiscard]] NextGeneration nextGenerationOf(const std::string& path);

/// What is said when the copy to a generation fails.
std::string failedBackupText(const std::string& path, FileError fault);

/// Copies the file to the lowest free generation. Ends the program when the file is a generation itself, and
/// when all six exist. A copy that fails is told, and false returned.
[[nodiscard]] bool TakeBackup(const std::string& path);

}  // namespace tul
