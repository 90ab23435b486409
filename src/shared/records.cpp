#include "shared/records.h"

namespace tul {

Identity identity;
Paths paths;
Monitors monitors;
DateSettings dateSettings;
MachineSettings machineSettings;
ProjectSettings projectSettings;
Selection selection;
Editor editor;

void resetSharedRecords() {
    identity = {};
    paths = {};
    monitors = {};
    dateSettings = {};
    machineSettings = {};
    projectSettings = {};
    selection = {};
    editor = {};
}

}  // namespace tul
