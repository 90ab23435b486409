#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "base/numbers.h"
#include "edit/edit_family.h"
#include "host/host.h"
#include "music/item_table.h"
#include "music/pipeline.h"
#include "shared/run_control.h"

/// The run of the general edit tool over the selected music files, and its report TULEDIT.PRN.
namespace tul::edit {

/// What a run has changed. A family that counts more has counters of its own.
struct Counters {
    std::int32_t countChanged = 0;  // the main count of a page, over all files
    std::int32_t countDeleted = 0;  // texts deleted
    std::int32_t fileChanges = 0;   // of any kind in the current file
    std::int32_t totalUpdates = 0;  // the sum of `fileChanges`
};

/// What the panel `frmEdit` asks for and shows, but for the fields of the families. Activity and progress
/// within a file are the pipeline's.
struct Edit {
    int tabEdit = tabClef;
    bool chkEditBackup = true;  // otherwise only files that were changed are written

    Counters counters;
    RunControl control;  // a run is stopped by its questions only, so the button never says Cancel
    std::string lblEditStatus = "File being processed";  // and how many there are
    std::string txtEditFile;  // the path of the current file; a run that is left without one is cancelled
};
extern Edit editing;

/// Gives the tool and all its families their first values.
void resetEdit();

/// The run of the page in front. Options that do not fit are told instead, and nothing is touched.
void cmdEditRun();

/// A run as the buttons and pages differ in it.
struct RunPlan {
    std::string title;  // the report begins with it
    std::function<void(const FileOfRun&)> updateFile;
    std::function<void(Report&)> writeCounters;
};
/// Reads the selection anew, takes each file through reading, the plan's changes and writing, writes the
/// report, shows it and deletes it.
void runOverSelection(const RunPlan& plan);

/// Ends the run at the current file, which is then not written.
inline void cancelRun() { editing.txtEditFile.clear(); }
inline bool isCancelled() { return editing.txtEditFile.empty(); }

/// One change in the current file.
inline void countChange(std::int32_t& counter) {
    ++counter;
    ++editing.counters.fileChanges;
}

/// A counter's line: label, count, and what stands behind it.
void writeCounter(Report& report, std::string_view label, std::int32_t count, std::string_view behind = {});

/// Asks whether an item is to be changed. Cancel cancels the run.
bool isConfirmed(const std::string& question);
/// The line of a question that names the item; they count from 1.
std::string itemNumberLine(int item);

/// Tells that the options do not fit. Always false.
bool refuse(const std::string& text);

/// Visits the items of the table from the first to the last, as long as the run is not cancelled. What is
/// appended meanwhile is not visited.
template <class Visit>
void forEachItem(Visit visit) {
    pipeline.activity = "Updating";
    yieldToEvents();
    const int count = musItemTable.itemCount;
    for (int item = 1; item <= count && !isCancelled(); ++item) visit(item, musItemTable[item]);
}

}  // namespace tul::edit
