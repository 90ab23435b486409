#include "panels/fresh_process.h"

#include "centre/main_panel.h"
#include "centre/project_options.h"
#include "centre/score_launching.h"
#include "host/interrupt.h"
#include "music/bar_file.h"
#include "music/item_table.h"
#include "music/mus_reader.h"
#include "music/pipeline.h"
#include "panels/panel_list.h"
#include "shared/records.h"
#include "shared/run_result.h"

namespace tul {

void freshProcess() {
    resetSharedRecords();
    resetMusReader();
    musItemTable = {};
    barTexts.clear();
    pipeline = {};
    resetCentreRecords();
    fontTable = {};
    scoreRun = {};
    runResults.clear();
    setInterrupted(false);
    for (const PanelEntry& entry : panelList())
        if (entry.reset) entry.reset();
}

}  // namespace tul
