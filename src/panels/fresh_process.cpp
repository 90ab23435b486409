#include "panels/fresh_process.h"

#include "centre/global_options.h"
#include "centre/main_panel.h"
#include "centre/project_options.h"
#include "centre/score_launching.h"
#include "check/pmx_export.h"
#include "check/validation.h"
#include "music/mus_reader.h"
#include "shared/records.h"

namespace tul {

void freshProcess() {
    resetSharedRecords();
    resetMusReader();
    resetCentreRecords();
    fontTable = {};
    globalOptions = {};
    scoreRun = {};
    valid::resetValidation();
    pmx::resetPmxRun();
}

}  // namespace tul
