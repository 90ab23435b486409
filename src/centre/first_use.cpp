#include "centre/first_use.h"

#include <string>

#include "base/text.h"
#include "centre/control_file.h"
#include "centre/start_up.h"
#include "host/host.h"
#include "shared/function_module.h"
#include "shared/records.h"

namespace tul {

void FirstUse() {
    machineSettings = {};
    machineSettings.MaxLogRecords = 1000;
    machineSettings.NotepadPath = "notepad.exe";
    machineSettings.WordpadPath = "wordpad.exe";
    machineSettings.BypassLibTest1 = true;
    MsgBox("Neither SCORE/SCOR4 nor WinScore was selected. This is exceptional but entirely possible." +
               std::string(CrLf) +
               "If you want to link any of these programs, delete file TULCNTRL.INI and start TUL again.",
           Buttons::ok, Icon::information);
    if (files().replace(paths.ControlFilePath, firstControlFile()) != FileError::none)
        endWith(paths.ControlFilePath + " could not be opened for output. Hit Enter to abort");
}

}  // namespace tul
