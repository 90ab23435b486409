#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "centre/page_run.h"
#include "shared/panel.h"

/// What the general edit tool is made of: families of edits, one file each. A run applies those of the page
/// in front that are chosen. `edit_families.cpp` lists them all.
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
};
/// Their names on the command line, in this order.
std::vector<std::string> tabNames();

/// What a family does in a run. The object lives as long as the run does, and what it counts lives in it.
class FamilyRun {
  public:
    virtual ~FamilyRun() = default;
    /// Changes the items in the table, and counts each change by `countChange`.
    virtual void updateFile(const PageInRun& page) = 0;
    /// Its lines behind the last file.
    virtual void writeCounters(Report&, const RunResult&) const {}
};

/// One family of edits.
struct Family {
    int tab;
    /// The controls of its options, and its buttons.
    std::vector<Field> (*fields)() = nullptr;
    std::vector<Command> (*commands)() = nullptr;
    /// Gives its options their first values; null without any.
    void (*reset)() = nullptr;
    /// Takes over what it shows of the project's settings when the panel is loaded.
    void (*load)() = nullptr;
    /// True when it is the one that is chosen on its page; null where it is the only one.
    bool (*isChosen)() = nullptr;
    /// False, and told why, when a run with these options makes no sense.
    bool (*mayRun)() = nullptr;
    /// Null for a family that has buttons only.
    std::unique_ptr<FamilyRun> (*begin)() = nullptr;
};

std::span<const Family* const> families();

/// For a family's `begin`.
template <class Run>
std::unique_ptr<FamilyRun> beginRun() {
    return std::make_unique<Run>();
}

}  // namespace tul::edit
