#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "edit/edit_family.h"
#include "host/host.h"
#include "music/item_table.h"
#include "music/pipeline.h"

/// The run of the general edit tool over the selected music files, and its report TULEDIT.PRN.
namespace tul::edit {

/// Stands in the file's place between runs.
inline constexpr const char* idleStatus = "File being processed";

/// What the panel `frmEdit` asks for and shows, but for the fields of the families.
struct Edit {
    int tabEdit = tabClef;
    bool chkEditBackup = true;  // otherwise only files that were changed are written
    bool hidesButtons = false;  // some of the developer's, since a click on the background
    RunView view{.status = idleStatus};
};
extern Edit editing;

/// How the tool reads and writes a page.
inline constexpr ToolForm editForm = {.countsCharacters = true};

/// Gives the tool and all its families their first values.
void resetEdit();

/// The run of the page in front. Options that do not fit are told instead, and nothing is touched.
void cmdEditRun();

using FamilyRuns = std::vector<std::unique_ptr<FamilyRun>>;
/// Reads the selection anew, takes each file through reading, the families' changes and writing, writes the
/// report, which begins with `title` and the date right behind it, shows it and deletes it.
void runFamilies(const std::string& title, FamilyRuns families);
/// The same for a button whose family has a report of its own.
void runToReport(const std::string& title, std::unique_ptr<FamilyRun> family);
/// The same without a report: at the end a message of `label`, how much was changed, and what is to be known
/// of single pages.
void runToMessage(const std::string& label, std::unique_ptr<FamilyRun> family);

/// A run of another kind over some of the selection, with a report of the same name, shown and deleted.
void runReport(ToolRun& run, std::vector<std::string> pages);
/// A run of another kind that changes one page, selected or not, and tells its end itself.
void runOnPage(ToolRun& run, const std::string& path);
/// For `writeEnd` without a report: tells what is to be said, and what is to be known of single pages.
ReportEnd endEdit(std::string text, const RunResult& result);

/// The run of a button, which needs a selection.
Command onSelection(std::string name, std::string caption, void (*run)());
/// Asks before the run of a button. Any answer but Yes or OK refuses it.
bool isAgreed(const std::string& question, Buttons buttons);
/// A button that only a developer sees.
Command forDevelopers(Command command);
/// True as long as those buttons are shown that a developer can hide.
bool showsHideable();

/// True when the user has ended the run at the current file, which is then not written.
inline bool isCancelled() { return editing.view.control.isAbandoned(); }

/// One change in the current file, or several.
inline void countChange(std::int32_t& counter, std::int32_t changes = 1) {
    counter += changes;
    pipeline.page.changes += changes;
}

/// One change where the family has no counter of its own.
inline void countChange() { ++pipeline.page.changes; }

/// A counter's line: label, count, and what stands behind it.
void writeCounter(Report& report, std::string_view label, std::int64_t count, std::string_view behind = {});

/// Asks whether an item is to be changed. Cancel cancels the run.
bool isConfirmed(const std::string& question);
/// The line of a question that names the item; they count from 1.
std::string itemNumberLine(int item);

/// True when the table takes one more item. Otherwise tells that the file is too big to add it, and notes
/// that in the page's result.
[[nodiscard]] bool hasRoom(const PageInRun& page, const std::string& addition);

/// Tells that the options do not fit, so that the run does not begin. Always false.
bool refuse(const std::string& text);

/// Visits the items of the table from the first to the last, as long as the run is not cancelled. What is
/// appended meanwhile is not visited.
template <class Visit>
void forEachItem(Visit visit) {
    showActivity("Updating");
    const int count = musItemTable.itemCount;
    for (int item = 1; item <= count && !isCancelled(); ++item) visit(item, musItemTable[item]);
}

}  // namespace tul::edit
