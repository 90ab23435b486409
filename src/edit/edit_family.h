#pragma once

#include <span>
#include <vector>

#include "shared/panel.h"
#include "shared/report.h"

/// What the general edit tool is made of: families of edits, one file each. A run applies those of the page
/// in front. `edit_families.cpp` lists them all.
namespace tul::edit {

/// Pages of `tabEdit`. The names are those of the items that they work on.
enum Tab {
    tabClef,
    tabRest,
    tabStaff,
    tabText,
    tabNumbers,
    tabBarline,
    tabGeneral,
    tabOffset,
    tabSlur,
    tabLine,
    tabStems,
    tabLyrics,
    tabFont,
    tabSpecial,
    tabCount,
};

/// The file that a run is at: its number in the run, from 1, and where its report lines go.
struct FileOfRun {
    Report& report;
    int number;
};

/// One family of edits. Where a page has several, each looks itself whether it is the one that is chosen.
struct Family {
    int tab;
    /// The controls of its options.
    std::vector<Field> (*fields)();
    /// Gives its options their first values.
    void (*reset)();
    /// False, and told why, when a run with these options makes no sense.
    bool (*mayRun)();
    /// The start of a run: nothing counted, nothing asked yet. May be null.
    void (*begin)();
    /// Changes the items in the table. Counts each change in `fileChanges` and in a counter of its own.
    void (*updateFile)(const FileOfRun& file);
    /// Its lines behind the last file.
    void (*writeCounters)(Report& report);
};

std::span<const Family* const> families();

}  // namespace tul::edit
