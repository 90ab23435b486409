#include "centre/panel_place.h"

#include "base/numbers.h"
#include "base/text.h"
#include "centre/launching.h"
#include "centre/main_panel.h"
#include "centre/start_up_warning.h"
#include "host/host.h"
#include "shared/function_module.h"
#include "shared/records.h"

namespace tul {

namespace {

constexpr int twipsPerPixel = 15;
const std::string newLine(CrLf);

int twips(const std::string& text) { return toInt32(numericValue(text)).value_or(0); }

void centre(PanelPlace& place, const ScreenSize& screen) {
    place.left = (screen.width - place.width) / 2;
    place.top = (screen.height - place.height) / 2;
}

void storeMonitorValue(const std::string& key, std::string_view text) {
    std::int32_t* target = nullptr;
    if (key == "WORKAREAHEIGHT") target = &monitors.WorkAreaHeight;
    if (key == "NUMBEROFMONITORS") target = &monitors.MonitorCount;
    if (key == "CURRENTMONITORRIGHT") target = &monitors.MonitorRight;
    if (target) *target = toInt32(numericValue(text)).value_or(0);
}

/// A value may stand behind a whole number and a comma.
void readMonitorLine(const std::string& line) {
    const SplitText setting = splitAtFirst(line, '=');
    const SplitText rest = splitAtFirst(setting.behind, ',');
    if (rest.found) {
        if (!isWholeNumber(rest.before)) endWith("Format error in TulMonit.TXT (par2).");
        if (!isNumeric(rest.behind)) endWith("Format error in TulMonit.TXT (par3).");
    }
    storeMonitorValue(std::string(setting.before), trim(rest.found ? rest.behind : rest.before));
}

}  // namespace

int heightOfPanels() {
    return identity.platformCode() == "XP" ? panelHeight : panelHeight + titleBarAllowance;
}

void positionPanel(PanelPlace& place) {
    const auto screen = face().screen();
    if (!screen) return readTulMonit();
    const std::string top = GetProfileValue("TOP");
    const std::string left = GetProfileValue("LEFT");
    place.centred = top.empty() || left.empty();
    if (!place.centred) {
        place.top = twips(top);
        place.left = twips(left);
    } else {
        centre(place, *screen);
    }
    readTulMonit();
    const auto rightEdge = static_cast<std::int64_t>(monitors.MonitorRight) * twipsPerPixel;
    if (monitors.MonitorCount == 1 && (place.left < 0 || place.left > rightEdge)) {
        startUpWarning("Lost coordinates of TUL panel from a multi-monitor session. Centered.");
        place.centred = true;
        centre(place, *screen);
    }
    savePanelCoordinates(place);
}

void centrePanel(PanelPlace& place) {
    if (const auto screen = face().screen()) centre(place, *screen);
}

void movePanelTopLeft(PanelPlace& place) {
    place.top = 0;
    place.left = 0;
}

void movePanelTopRight(PanelPlace& place) {
    const auto screen = face().screen();
    if (!screen) return;
    place.top = 0;
    place.left = screen->width - place.width;
}

void savePanelCoordinates(const PanelPlace& place) {
    if (!face().screen()) return;
    SaveProfileValue("TOP", plain(place.top));
    SaveProfileValue("LEFT", plain(place.left));
    mainPanel.cmdMinimizeTip = joined("Top =", place.top) + joined(", Left =", place.left) + ".";
}

void readTulMonit() {
    const std::string folder = files().currentFolder();
    const std::string program = folder + "\\TULMONIT.EXE";
    if (program.find("\\\\") != std::string::npos) {
        endWith("ScoreEngine Dispatcher has lost its start directory." + newLine +
                "Report problem to development." + newLine + "Current directory now is " + folder);
    }
    if (!FileExists(program)) endWith("Installation problem. File TULMONIT.EXE not located: " + program);
    {
        const WaitingPointer pointer;
        ShellAndWait(program);
    }
    const std::string result = "TulMonit.TXT";
    std::string text;
    if (files().read(result, text) != FileError::none) endWith("Failed to read monitor values");
    for (const std::string_view line : linesOf(text))
        if (!line.starts_with('*')) readMonitorLine(upperCase(line));
    files().removeIfThere(result);
}

}  // namespace tul
