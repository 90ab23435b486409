#pragma once

#include <string>

#include "shared/report.h"
#include "shared/run_view.h"

/// Checks the structure of every selected file and a few rules of what its items hold, and offers recovery of
/// a damaged one. It never changes a music file.
namespace tul::valid {

/// What the panel `frmValid` shows of a run.
struct Validation {
    RunView view;
    std::string txtValidRange;
};
extern Validation validation;

void resetValidation();

/// The run over the selection: writes the report TULVALID.PRN, shows it and deletes it.
void cmdValidateRun();

/// Checks the page in work, and notes in its result whether it is sound. Leaves the number of the item that
/// was reached and the creator's stamp in the reader's state.
void inputValidate(Report& report);

/// Asks whether a damaged file of which `items` items are good shall be recovered, and runs TULRECOV.EXE.
void RecoverMUS(const std::string& path, int items);

}  // namespace tul::valid
