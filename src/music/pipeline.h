#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/index_fault.h"
#include "host/files.h"
#include "shared/run_result.h"
#include "shared/run_view.h"

/// How every tool that changes music goes through a file: `storeFile` fills the table from it, the tool's
/// `updateFile` changes the table, `writeFile` puts the table in the file's place.
namespace tul {

/// How a tool goes through the items of a file.
enum class ItemLoop {
    common,  // `MusNextItem`; a message where the structure breaks off
    silent,  // the same without the message
    own,     // silent, codes taken as they are read, and a trailer of five words taken for one of six
};

/// What one tool's `storeFile` and `writeFile` do differently from the others'. It lies beside the tool.
struct ToolForm {
    ItemLoop loop = ItemLoop::common;
    bool takesBackup = true;        // where its Backup box asks for it
    bool showsProgress = true;      // activity and progress bar
    bool endsWhenFull = true;       // a page with more items than the table ends the program, or its reading
    bool mayDropCode13 = false;     // where `dropsCode13` asks for it
    bool countsCharacters = false;  // Par 12 of a text row becomes its length before it is written
    std::string_view openFailure = "Open of output MUS file failed. Hit OK to terminate.";
};

/// What is being done to the page that a run is at. Owner: the run; what happens to the page is noted by the
/// reading, the tool and the writing. The path is empty between runs.
struct Pipeline {
    PageResult page;
    std::optional<FileInfo> pageAsRead;  // what the disk told of the file before it was read
    RunView* view = nullptr;             // of the panel whose run it is
    bool backup = false;                 // the tool's Backup box
    bool dropsCode13 = false;  // items of code 13 are left out on writing: the page number tool's choice
};
extern Pipeline pipeline;

/// The path of the page in work.
inline const std::string& currentPath() { return pipeline.page.path; }

/// Names what is done now, and lets events through.
void showActivity(const std::string& name);

/// Takes a backup if asked, then reads the current file into the table. A damaged file leaves the items up to
/// the damage there, and an item with more parameters than there are throws `IndexFault`.
void storeFile(const ToolForm& form);

/// Replaces the current file by the table's items and a fresh trailer. An empty table leaves it alone, and so
/// does a change that another program has made to the file since it was read: that is noted. A file that
/// cannot be replaced stays as it was, and the program ends with a message.
void writeFile(const ToolForm& form);

/// Sets the progress bar to what is read of the current file. A word count of 0, which the interrupted
/// writing of a page leaves behind, has no share that could be read: `IndexFault`.
void showReading();

/// How far the reader has come with the current file: to its end, and where its word count says, or not.
[[nodiscard]] Reading readingSoFar();

/// Runs one step of a file. A failed index abandons the step, and the run goes on with the next one. False
/// where that happened: what the step did so far stands.
template <class Step>
[[nodiscard]] bool attempt(Step step) {
    try {
        step();
        return true;
    } catch (const IndexFault&) {
        return false;
    }
}

}  // namespace tul
