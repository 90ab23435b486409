#pragma once

#include <cstdint>
#include <string>

#include "shared/panel.h"
#include "shared/report.h"
#include "shared/run_control.h"

/// Checks the structure of every selected file and a few rules of what its items hold, and offers recovery of
/// a damaged one. It never changes a music file.
namespace tul::valid {

/// What the panel `frmValid` shows of a run, and how the run is stopped.
struct Validation {
    RunControl control;
    Progress panValidFloodRun;   // over the files; shown only for more than one
    Progress panValidFloodFile;  // in the file
    std::string panValidFileName;
    std::string lblValidStatus;  // which file of how many
    std::string txtValidRange;

    std::string currentPath;      // of the file being processed
    std::int16_t totalItems = 0;  // over the files; wraps
    bool damaged = false;         // a structural failure was met in the current file
    int damagedFiles = 0;         // files in which the last run met one
};
extern Validation validation;

void resetValidation();

/// The run over the selection: writes the report TULVALID.PRN, shows it and deletes it.
void cmdValidateRun();

/// Checks the current file. Leaves the number of the item that was reached and the creator's stamp in the
/// reader's state.
void inputValidate(Report& report);

/// Asks whether a damaged file of which `items` items are good shall be recovered, and runs TULRECOV.EXE.
void RecoverMUS(const std::string& path, int items);

}  // namespace tul::valid
