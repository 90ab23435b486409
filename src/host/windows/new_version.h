#pragma once

#include <string>
#include <string_view>

#include "host/files.h"
#include "host/windows/system_text.h"

namespace tul {

/// What an error of the system means. `missing` is what a name that is not there means to the operation.
FileError fileErrorOf(DWORD error, FileError missing = FileError::pathNotFound);
/// The same for the last call of the system.
FileError lastFileError(FileError missing = FileError::pathNotFound);

/// Why the file of this name must not be removed or replaced; `missing` when there is none.
[[nodiscard]] FileError refusalToRemove(const std::string& path, FileError missing);

/// A new version of a file, written beside it. It takes the file's place at `finish`, or goes without a
/// trace. The name of the temporary file follows from the file's name: what a killed run leaves behind is
/// written over by the next writing of the same file. A mutex holds back other programs that would write it
/// at this moment.
class NewVersion {
  public:
    NewVersion() = default;
    ~NewVersion();
    NewVersion(const NewVersion&) = delete;
    NewVersion& operator=(const NewVersion&) = delete;

    /// Refuses what must not be replaced.
    [[nodiscard]] FileError begin(const std::string& path);
    /// The contents, one of these.
    [[nodiscard]] FileError write(std::string_view bytes);
    [[nodiscard]] FileError copyFrom(const std::string& path);

    [[nodiscard]] FileError finish();
    /// The same for a name that must still be free.
    [[nodiscard]] FileError finishAsNew();

  private:
    [[nodiscard]] FileError claim();
    [[nodiscard]] FileError moveIntoPlace(DWORD flags);

    std::string target_;
    std::string temporary_;
    Handle claim_;
    bool owned_ = false;                        // the temporary file is this one's to remove
    bool exists_ = false;                       // the target
    DWORD attributes_ = FILE_ATTRIBUTE_NORMAL;  // of the new file
};

}  // namespace tul
