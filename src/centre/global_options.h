#pragma once

#include <string>

#include "shared/panel.h"

/// The options panel `frmGlobalOptions`, which fills its controls from TULPROJ.PRO and writes the file anew.
namespace tul {

/// The controls. Fonts are SCORE font numbers or, with "_" before two digits, prefixes of a text.
struct GlobalOptions {
    std::string txtProjectName;
    std::string txtInitialMusFolder;
    std::string txtCode9TextPath;  // shown only
    std::string txtPreferredSuffix;

    bool optPageNumberCenter = false;
    bool optPageNumberSide = true;
    bool optPageNumberTop = true;
    bool optPageNumberBottom = false;
    std::string txtPageFont;
    std::string txtPageSize;  // 200 added
    std::string txtPageLength;

    bool optBarNumberFirst = true;
    bool optBarNumberEach = false;
    bool optBarNumberNone = false;
    std::string txtBarFont;
    std::string txtBarSize;  // 200 added

    std::string txtRehearsalFont;
    std::string txtRehearsalSize;
    std::string txtPlateText;
    std::string txtPlateFont;
    std::string txtPlateSize;
    std::string txtFingerFontLH;
    std::string txtFingerSizeLH;
    std::string txtFingerFontRH;
    std::string txtFingerSizeRH;
    std::string txtLyricsFont;
    std::string txtLyricsSize;  // a negative value is a point size
    std::string txtFontName;    // of the font chosen last

    bool opt32 = true;  // the highest staff number is 32; with opt99 it is 200
    bool opt99 = false;

    int optPanelPreference = 0;  // the tab shown first, 0 to 2
    bool chkBypassDecimalTest = false;
    bool chkBypassPlatformTest = false;
    bool chkWarnOnPathLength = false;
    bool optTulSplitDOS = false;
    bool optTulSplitWindows = true;
    bool optTulInputDOS = true;
    bool optTulInputWindows = false;
    bool optFontPreferencePSC = true;
    bool optFontPreferenceFMT = false;
    bool optScoreEngine3 = true;
    bool optScoreEngine4 = false;

    std::string fraTulSplit;  // captions: which versions are present
    std::string fraTulInput;
    bool splitMayBeChosen = false;  // both versions are present
    bool scoreEngine3Linked = false;
    bool scoreEngine4Linked = false;
    bool prefFileThere = false;  // in SCORE's library, when the panel was opened
    bool code9FileThere = false;
    bool printFileThere = false;

    ListBox lstFont{.title = {}, .entries = {}, .visible = false};
    std::string GlobalOptions::*fontField = &GlobalOptions::txtLyricsFont;  // takes what is chosen from it
    ListBox List1;  // what the libraries of SCORE and of WinScore hold
    ListBox List2;

    PanelPlace place;
    bool OptionsPanelOpen = false;
};
extern GlobalOptions globalOptions;

/// Fills the controls from the options file and from what is found on disk; a line with an unknown key is
/// told. Ends the program when the file cannot be opened.
void ReadGlobalOptions();

/// The panel's load step.
void OptionsPanelLoad();
/// Writes the options file from the controls, takes its values over, and closes the panel. Ends the program,
/// with the old file in its place, when it cannot be written.
void OptionsPanelReturn();

/// Deletes the options file, so that the next start makes it anew, and ends the program; asks before.
void cmdGlobalOptionsDefault();
/// Makes the folder of the first selected file the initial folder.
void cmdGlobalSetFolder();
/// Lets the user choose the initial folder.
void chooseInitialFolder();
/// Makes a folder the initial one, for this and the next runs.
void setInitialFolder(const std::string& folder);

/// Opens the list of SCORE's fonts; what is chosen goes into `field`.
void openFontList(std::string GlobalOptions::*field);
/// A choice from the list: an entry with a font, or "(cancel)".
void chooseFont(const std::string& entry);
/// A font prefix as it is kept; shows the font's name.
std::string keepFontPrefix(const std::string& typed);

/// PRINT.DAT of SCORE's library.
[[nodiscard]] std::string printFilePath();

}  // namespace tul
