#pragma once

#include <functional>
#include <map>
#include <string>

#include "shared/panel.h"

namespace tul {

/// Tabs of the main panel that can be preferred.
inline constexpr int preferableTabs = 3;

/// What start-up leaves on the main panel `frmLogo`. Owner: start-up and tool enabling.
struct MainPanel {
    std::string caption;
    PanelPlace place;
    int tabLogo = 0;          // number of the tab in front
    bool tabsVisible = true;  // false while the list of text files lies over them
    std::string focus;        // the control that has it when the panel is first shown
    std::map<std::string, bool, std::less<>> enabled;  // by control; what is not named is enabled
    bool preProcessVisible = false;                    // of cmdTulSplitPreProcess
    bool splitForDos = false;  // the version of the split tool that cmdLogoSplit takes
    std::string cmdLogoInputCaption = "TulInput";
    std::string cmdAnlibTip;
    std::string cmdMinimizeTip;
    int inputKind = 1;          // what frmInput was opened for: 1 staff notation, 2 tablature
    std::string inputFilePath;  // its settings, in SCORE's folder
    ListBox lstTextFiles{.title = {}, .entries = {}, .visible = false};

    [[nodiscard]] bool isEnabled(std::string_view control) const;
};

/// The built-in viewer `frmNotepad`. Owner: `ViewInPanel`.
struct NotepadPanel {
    std::string path;
    std::string caption;
    ListBox lstTulboard;
    bool closed = false;
};

extern MainPanel mainPanel;
extern NotepadPanel notepadPanel;

/// Brings the preferred tab of the main panel to the front.
void showPreferredTab();

void resetCentreRecords();

}  // namespace tul
