#include "panels/fresh_process.h"

#include "centre/global_options.h"
#include "centre/main_panel.h"
#include "centre/project_options.h"
#include "centre/score_launching.h"
#include "check/pmx_export.h"
#include "check/validation.h"
#include "edit/edit_run.h"
#include "edit/resize.h"
#include "music/bar_file.h"
#include "music/item_table.h"
#include "music/mus_reader.h"
#include "music/pipeline.h"
#include "shared/records.h"

namespace tul {

void freshProcess() {
    resetSharedRecords();
    resetMusReader();
    musItemTable = {};
    barTexts.clear();
    resetPipeline();
    resetCentreRecords();
    fontTable = {};
    globalOptions = {};
    scoreRun = {};
    valid::resetValidation();
    pmx::resetPmxRun();
    resize::resetResize();
    edit::resetEdit();
}

}  // namespace tul
