#include "base/numbers.h"
#include "base/text.h"
#include "companions/companion.h"
#include "companions/monitors.h"

// Tells the control centre about the monitors, in TulMonit.TXT.
int main() {
    using namespace tul;
    const companion::Companion machine;
    const companion::ScreenLayout layout = companion::queryScreenLayout();
    const auto line = [](const char* key, int value) { return key + plain(value) + std::string(CrLf); };
    const std::string text = line("WorkAreaHeight=", layout.workAreaHeight) +
                             line("NumberOfMonitors=", layout.monitorCount) +
                             line("CurrentMonitorRight=", layout.currentMonitorRight);
    if (files().replace("TulMonit.TXT", text) != FileError::none)
        return companion::refuse("TULMONIT", "TulMonit.TXT could not be written.");
    return companion::done;
}
