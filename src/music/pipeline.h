#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/index_fault.h"
#include "shared/panel.h"
#include "shared/report.h"

/// How every tool that changes music goes through a file: `storeFile` fills the table from it, the tool's
/// `updateFile` changes the table, `writeFile` puts the table in the file's place.
namespace tul {

/// How a tool goes through the items of a file.
enum class ItemLoop {
    common,  // `MusNextItem`; a message where the structure breaks off
    silent,  // the same without the message
    own,     // silent, codes taken as they are read, and a trailer of five words taken for one of six
};

/// What one tool's `storeFile` and `writeFile` do differently from the others'.
struct ToolForm {
    ItemLoop loop = ItemLoop::common;
    bool takesBackup = true;        // where its Backup box asks for it
    bool showsProgress = true;      // activity and progress bar
    bool mayDropCode13 = false;     // where `dropsCode13` asks for it
    bool countsCharacters = false;  // Par 12 of a text row becomes its length before it is written
    std::string_view openFailure = "Open of output MUS file failed. Hit OK to terminate.";
};

inline constexpr ToolForm resizForm = {.openFailure = "Open of output MUS file failed. Hit OK to terminate"};
inline constexpr ToolForm renumForm = {.mayDropCode13 = true};
inline constexpr ToolForm editForm = {.countsCharacters = true};
inline constexpr ToolForm barForm = {.loop = ItemLoop::own, .showsProgress = false, .countsCharacters = true};
inline constexpr ToolForm wholeForm = {.loop = ItemLoop::own, .takesBackup = false, .showsProgress = false};
/// Only reads.
inline constexpr ToolForm splitForm = {
    .loop = ItemLoop::silent, .takesBackup = false, .showsProgress = false};

/// The file that a run is at, what its panel shows of it, and what has to be told at the end.
struct Pipeline {
    std::string currentPath;   // empty between runs
    bool backup = false;       // the tool's Backup box
    bool dropsCode13 = false;  // items of code 13 are left out on writing: the page number tool's choice

    std::string activity;
    Progress progress;  // in the file

    bool readWhole = false;               // the last reading came to the file's end, trailer and all
    std::vector<std::string> incomplete;  // files rewritten from a reading that broke off
    std::vector<std::string> unreadable;  // files rewritten with items that the reader does not give back
};
extern Pipeline pipeline;

void resetPipeline();

/// The start of a run over a selection: nothing to be told yet.
void beginPipelineRun(bool backup);
/// Behind the last file: no file is being worked on. What is to be told of the files stays.
void endPipelineRun();

/// Takes a backup if asked, then reads the current file into the table. A damaged file leaves the items up to
/// the damage there, and an item with more parameters than there are throws `IndexFault`.
void storeFile(const ToolForm& form);

/// Replaces the current file by the table's items and a fresh trailer. An empty table leaves it alone. A
/// file that cannot be replaced stays as it was, and the program ends with a message.
void writeFile(const ToolForm& form);

/// Sets the progress bar to what is read of the current file. A word count of 0, which the interrupted
/// writing of a page leaves behind, has no share that could be read: `IndexFault`.
void showReading();

/// Runs one step of a file. A failed index abandons the step, and the run goes on with the next one.
template <class Step>
void attempt(Step step) {
    try {
        step();
    } catch (const IndexFault&) {
        // What the step did so far stands.
    }
}

/// One line behind a run's own report for each kind of file that its owner should look at: those of
/// which items may be missing, and those that cannot be read again. Nothing where there are none.
void reportSuspectFiles(Report& report);

}  // namespace tul
