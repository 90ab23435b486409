#include "centre/tool_launches.h"

#include <functional>
#include <optional>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/installation.h"
#include "centre/launching.h"
#include "centre/main_panel.h"
#include "centre/panel_place.h"
#include "host/host.h"
#include "shared/function_module.h"
#include "shared/records.h"

namespace tul {

namespace {

const std::string newLine(CrLf);

void showScoreHelp() { ShellAndWait(machineSettings.HlpPath); }

void runMidiScor() { ExecAndWait(machineSettings.MidiScorPath); }

/// LASCOR looks for its own files in the current folder.
void runLascor() {
    const std::string& path = machineSettings.LascorPath;
    if (!FileExists(path))
        endWith("The path to LASCOR was not defined." + newLine +
                "Define it in TULCNTRL.INI and restart TUL.");
    const InFolder folder{std::string(folderOf(path))};
    ExecAndWait(path);
}

void fixEps() {
    if (!FileExists(paths.TulEpsFxPath)) endWith("Module " + paths.TulEpsFxPath + " not properly installed");
    ShellAndWait(paths.TulEpsFxPath + " CAN ONLY BE CALLED FROM TUL");
}

void convertXml() {
    const bool isNewer = FileExists(inProgramFolder("TULXML2Score.EXE"));
    ShellAndWait(inProgramFolder(isNewer ? "TULXML2SCORE.EXE" : "TULXML.EXE"));
}

void runGuarded(LaunchKind kind, const std::function<void()>& launch) {
    if (kind == LaunchKind::plain) return launch();
    const WaitingPointer pointer;
    savePanelCoordinates(mainPanel.place);
    {
        const HiddenPanel hidden;
        launch();
    }
    if (kind == LaunchKind::repositioned) positionPanel(mainPanel.place);
}

/// Why the library folder cannot be looked at, `none` for a file in its place; nothing when it is a folder.
std::optional<FileError> libraryFault() {
    const std::string& path = machineSettings.LibPath;
    if (path.empty()) return FileError::fileNotFound;
    const auto library = files().info(path);
    if (library && library->folder) return std::nullopt;
    std::string bytes;
    return files().read(path, bytes, 0);
}

}  // namespace

const std::vector<ToolLaunch>& toolLaunches() {
    using enum LaunchKind;
    static const std::vector<ToolLaunch> launches = {
        {"cmdCombi", "TulCombi", "Merge music files.", "\\TULCOMBI.EXE", plain},
        {"cmdEps01", "TulEps01", "", "\\TULEPS01.EXE", repositioned},
        {"cmdFontConv", "Fontconv W", "", "\\TULFONTC.EXE CALLER=TUL,", plain},
        {"cmdTulCheckPart", "TulCheckPart", "", "\\TULCHECKPART.EXE", plain},
        {"cmdTulClean", "TulClean", "", "\\TULCLEAN.EXE", plain},
        {"cmdTulCut", "TulCut", "", "\\TULCUT.EXE", plain},
        {"cmdTulPlay", "TulPlay", "", "\\TULPLAY.EXE CALLER=TUL,", plain},
        {"cmdLogoThema", "TulThema", "Theme and incipit extraction.", "\\TULTHEMA.EXE CALLEDBYTUL", plain},
        {"cmdRip", "TulRip", "Copy staves from one file to another.", "\\TULRIP.EXE CALLEDBYTUL", plain},
        {"cmdTulCBLS", "TulCBLS", "Check barline structure", "\\TULCBLS.EXE", plain},
        {"cmdTulFrench", "TulFrench", "Remove empty staves from a series of files.",
         "\\TULFRENCH.EXE CALLEDBYTUL", plain},
        {"cmdTulReformat", "TulReformat", "", "\\TULREFORMAT.EXE CALLEDBYTUL", plain},
        {"cmdScoreToXML", "TulScore2XML", "", "\\TULScore2XML.EXE", plain},
        {"cmdTulAd", "TulAd", "", "\\TULAD.EXE", repositioned},
        {"cmdTulProof", "TulProof", "Compare two versions of the same music files.",
         "\\TULPROOF.EXE CALLEDBYTUL", plain},
        {"cmdTulSeps4id", "TulSeps4id", "Improve EPS files so they contain correct open notes.",
         "\\TULSEPS4ID.EXE CAN ONLY BE CALLED FROM TUL", plain},
        {"cmdTulStraddle", "TulStraddle", "", "\\TULSTRAD.EXE", plain},
        {"cmdTulSystem", "TulSystem", "Convert irregular system formats to regular formats.",
         "\\TULSYSTEM.EXE CALLEDBY=TUL,FUNCTION=MAIN", plain},
        {"cmdTulSystemRip", "TulSystemRip", "Move systems around pages.", "\\TULSYSTEMRIP.EXE CALLER=TUL",
         plain},
        {"cmdTultext", "TulText", "", "\\TULTEXT.EXE TEST OSTRIN", plain},
        {"cmdTulTtoS", "TulTtoS", "", "\\TULTTOS.EXE", plain},
        {"cmdTulVert", "TulVert", "Adapt staff vertical positions to first file in a set.",
         "\\TULVERT.EXE CALLEDBYTUL", plain},
        {"cmdTulLedger", "TulLedger", "EPS post-processing to change length of ledger lines.",
         "\\TULLEDGER.EXE CAN ONLY BE CALLED FROM TUL", repositioned},
        {"cmdTulEpsFx", "TulEpsFx", "Fix Score produced EPS.", "", guarded, fixEps},
        {"cmdXMLisolate", "TulXMLisolate", "", "\\TULXMLISOLATE.EXE", repositioned},
        {"cmdXMLxtract", "TulXMLxtract", "", "\\TULXMLXTRACT.EXE", repositioned},
        {"cmdXMLtoScore", "TulXML2Score", "", "", repositioned, convertXml},
        {"cmdTulXref", "TulXref", "", "TULXREF.EXE", guarded},
        {"cmdTulBeam", "TulBeam", "", "\\TULBEAM.EXE", guarded},
        {"cmdTulEdTab", "TulEdtab", "", "\\TULEDTAB.EXE", guarded},
        {"cmdXlyr", "TulXlyr", "Lyrics extraction.", "\\TULXLYR.EXE", guarded},
        {"cmsTulStack", "TulStack", "Stack music files into a single file.", "\\TULSTACK.EXE", guarded},
        {"cmdTulLJ", "TulLJ", "", "\\TULLJ.EXE", guarded},
        {"cmdTulSplitPreProcess", "Pre-process", "", "\\TULSPLIP.EXE CALLEDBYTUL", guarded},
        {"cmdFind", "TulFind", "Find specific elements in a set of MUS files.", "\\TULFIND.EXE", guarded},
        {"cmdTpose", "TulTpose", "Transposition.", "\\TULTPOSE.EXE", guarded},
        {"mnuVersion", "&Versions", "", "\\TULVERSION.EXE", guarded},
        {"mnuScore", "&Score(Engine)", "", "\\TULSKORE.EXE", repositioned},
        {"mnuHelpScore", "&Score", "", "", guarded, showScoreHelp},
        {"cmdMidiScor", "MidiScor", "Execute MidiScore to convert Score files into MIDI.", "", plain,
         runMidiScor},
        {"cmdLascor", "LASCOR",
         "Perform various functions on EPS files. These functions are not very well documented.", "", plain,
         runLascor},
    };
    return launches;
}

void LaunchTool(const ToolLaunch& tool) {
    runGuarded(tool.kind, [&tool] {
        if (tool.launch) return tool.launch();
        ShellAndWait(located(tool.command));
    });
}

void cmdAnlib() {
    const std::string& library = machineSettings.LibPath;
    if (libraryFault()) {
        MsgBox("An existing SCORE LIBrary needs to be defined before you can call TulAnlib." + newLine +
                   "Current definition: " + (library.empty() ? "[undefined]" : library) + newLine +
                   "Define an existing path for PreferenceFileName= in TULCNTRL.INI",
               Buttons::ok, Icon::exclamation);
        return;
    }
    files().removeIfThere(inProgramFolder("TULANLIB.SUM"));
    const HiddenPanel hidden;
    ShellAndWait(paths.TulAnli1Path);
}

void cmdTulSib() {
    if (const auto fault = libraryFault()) {
        MsgBox(joined("An existing SCORE LIBrary needs to be defined before you can call TulSib." + newLine +
                          "Current definition: " + machineSettings.LibPath + newLine +
                          "Define the path in TULCNTRL.INI (example: libPath=C:\\LIB)" + newLine +
                          "Debug information:",
                      static_cast<int>(*fault)),
               Buttons::ok, Icon::exclamation);
        return;
    }
    const std::string program = inProgramFolder("TULSIB.EXE");
    if (!FileExists(program)) return;
    const WaitingPointer pointer;
    const HiddenPanel hidden;
    ShellAndWait(program + " STARTDIR=,NAMESFILE=");
}

void launchSplit() {
    const HiddenPanel hidden;
    ShellAndWait("\\TULSPLI6.EXE CALLEDBYTUL");
}

}  // namespace tul
