#include "centre/library_folder.h"

#include <string>

#include "base/text.h"
#include "centre/main_panel.h"
#include "centre/start_up_warning.h"
#include "host/host.h"
#include "shared/function_module.h"
#include "shared/records.h"

namespace tul {

namespace {

const std::string newLine(CrLf);

/// Everything before the last backslash; the whole path without one.
std::string preferenceFolder() {
    const std::string& path = machineSettings.PreferenceFilePath;
    return path.substr(0, path.rfind('\\'));
}

void offerLibraryBypass() {
    startUpWarning("You have not defined a LIB directory." + newLine +
                   "Please be aware that many TUL utilities require information from the library.");
    const Answer answer =
        MsgBox("You can bypass the previous message on subsequent executions of TUL." + newLine +
                   "Bypass this message from now on? (TUL will need to be restarted if yes)",
               Buttons::yesNo, Icon::question);
    if (answer != Answer::yes) return;
    std::string text;
    const bool wasRead = files().read(paths.ControlFilePath, text) == FileError::none;
    if (!text.empty() && text.back() != '\n') text += newLine;
    text += "BypassLibTest1=TRUE" + newLine;
    if (!wasRead || files().replace(paths.ControlFilePath, text) != FileError::none)
        endWith("Failed to rewrite TULCNTRL.INI. Hit OK to terminate.");
    endProgram();
}

}  // namespace

void refreshAnlibTip() {
    mainPanel.cmdAnlibTip =
        "Analyze SCORE libraries. The current library folder is " + preferenceFolder() + ". ";
}

void CheckLibraryFolders() {
    const std::string& path = machineSettings.PreferenceFilePath;
    if (path.find('\\') != std::string::npos &&
        !equalIgnoringCase(preferenceFolder(), machineSettings.LibPath)) {
        startUpWarning("You defined the Score library directory as: " + newLine + machineSettings.LibPath +
                       newLine + "while the PREF file prefix is:" + newLine + preferenceFolder() + newLine +
                       "The PREFerence file path was defined as: " + newLine + path);
    }
    if (!machineSettings.BypassLibTest1 && !FolderExists(machineSettings.LibPath)) offerLibraryBypass();
}

}  // namespace tul
