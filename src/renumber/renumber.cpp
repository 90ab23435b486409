#include "renumber/renumber.h"

#include "bars/bar_settings.h"
#include "centre/names_file.h"
#include "renumber/bar_numbers.h"
#include "renumber/file_renaming.h"
#include "renumber/new_names.h"
#include "renumber/page_numbers.h"
#include "renumber/renumber_run.h"
#include "renumber/staff_numbers.h"

namespace tul::renumber {

namespace {

/// What a tab does, in the order of the tabs.
struct TabWork {
    void (*run)();
    void (*preview)();
};
constexpr TabWork work[] = {{RenumberFile, previewNames},
                            {RenumberPage, previewPageNumbers},
                            {RenumberBar, previewBarNumbers},
                            {RenumberStaff, previewStaffNumbers}};

const TabWork& workInFront() { return work[static_cast<std::size_t>(renumbering.tabRenum)]; }

}  // namespace

void resetRenumber() {
    renumbering = {};
    fileOptions = {};
    pageOptions = {};
    barOptions = {};
    bars::barSettings = {};
}

void fillFromProjectSettings() {
    fillFileOptions();
    fillPageOptions();
    fillBarOptions();
}

void cmdRenumRun() {
    workInFront().run();
    renewPreview();
}

void cmdRenumPreview() {
    ReadNamesFile();
    workInFront().preview();
    ++renumbering.lstRenumPreview.showings;
}

void renewPreview() {
    if (renumbering.tabRenum == tabFiles) return previewNames();
    showPreview("Press Preview to see what Run would do.", {});
}

}  // namespace tul::renumber
