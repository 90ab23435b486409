#include "centre/tool_enabling.h"

#include <string>
#include <string_view>
#include <vector>

#include "base/numbers.h"
#include "centre/installation.h"
#include "centre/launching.h"
#include "centre/main_panel.h"
#include "shared/function_module.h"
#include "shared/key_value_file.h"
#include "shared/records.h"

namespace tul {

namespace {

/// A button, and the files that must all be there. A name with a backslash lies in the program's folder.
struct ToolFiles {
    const char* button;
    std::vector<const char*> needed;
};

const std::vector<ToolFiles>& toolsOf(ToolGroup group) {
    static const std::vector<ToolFiles> first = {
        {"cmdTulLJ", {"\\TULLJ.EXE"}},           {"cmdTulBeam", {"\\TULBEAM.EXE"}},
        {"cmdTulSeps4id", {"\\TULSEPS4ID.EXE"}}, {"cmdLogoThema", {"TULTHEMA.EXE"}},
        {"cmdFontConv", {"TULFONTC.EXE"}},
    };
    static const std::vector<ToolFiles> second = {
        {"cmdTulSib", {"\\TULSIB.EXE", "\\TULSIB05.EXE", "\\TULSIB06.EXE"}},
        {"cmsTulStack", {"\\TULSTACK.EXE"}},
        {"cmdTpose", {"\\TULTPOSE.EXE"}},
        {"cmdTulXref", {"TULXREF.EXE", "TULXREF5.EXE"}},
        {"cmdTulCBLS", {"\\TULCBLS.EXE"}},
        {"cmdAnlib", {"\\TULANLI1.EXE", "\\TULANLI2.EXE"}},
        {"cmdTulClean", {"\\TULCLEAN.EXE"}},
        {"cmdCombi", {"\\TULCOMBI.EXE"}},
        {"cmdTulEpsFx", {"\\TULEPSFX.EXE"}},
        {"cmdFind", {"\\TULFIND.EXE"}},
        {"cmdRip", {"\\TULRIP.EXE"}},
        {"cmdTulReformat", {"\\TULREFORMAT.EXE"}},
        {"cmdTulVert", {"\\TULVERT.EXE"}},
        {"cmdTulProof", {"\\TULPROOF.EXE"}},
        {"cmdTulSystem", {"\\TULSYSTEM.EXE"}},
        {"cmdTulFrench", {"\\TULFRENCH.EXE"}},
        {"cmdXMLtoScore", {"\\TULXML2SCORE.EXE", "\\TULXML05.EXE"}},
        {"cmdScoreToXML", {"\\TULSCORE2XML.EXE", "\\TULXMS05.EXE"}},
        {"cmdXMLxtract", {"\\TULXMLXTRACT.EXE"}},
        {"cmdXMLisolate", {"\\TULXMLISOLATE.EXE"}},
        {"cmdEps01", {"\\TULEPS01.EXE", "\\TULEPS5.EXE"}},
        {"cmdTulAd", {"\\TULAD.EXE", "\\TULAD5.EXE"}},
        {"cmdLogoIntab", {"\\TULINTAB.EXE", "\\TULINTAB.TXT", "\\TULCVTAB.EXE"}},
        {"cmdTulStraddle", {"\\TULSTRAD.EXE"}},
        {"cmdTulEdTab", {"\\TULEDTAB.EXE"}},
        {"cmdTultext", {"\\TULTEXT.EXE", "\\TULTEXT5.EXE"}},
        {"cmdTulTtoS", {"\\TULTTOS.EXE"}},
        {"cmdTulLedger", {"\\TULLEDGER.EXE"}},
        {"cmdXlyr", {"\\TULXLYR.EXE"}},
        {"cmdTulSystemRip", {"\\TULSYSTEMRIP.EXE"}},
        {"cmdTulPlay", {"\\TULPLAY.EXE"}},
        {"cmdTulCut", {"\\TULCUT.EXE"}},
        {"cmdTulCheckPart", {"\\TULCHECKPART.EXE", "\\TULCHECKPARTSORT.EXE"}},
    };
    return group == ToolGroup::first ? first : second;
}

void enableInput() {
    bool& enabled = mainPanel.enabled["cmdLogoInput"];
    enabled = false;
    if (isInstalled("\\TULINPUT.EXE")) {
        mainPanel.cmdLogoInputCaption = "TulInput";
        enabled = areInstalled({"\\TULINPUT.TXT", "\\TULC.EXE"});
    }
    if (isInstalled("\\TULINPUTW.EXE")) {
        mainPanel.cmdLogoInputCaption = "TulInputW";
        enabled = areInstalled({"\\TULINPUT.TXT", "\\TULCW.EXE"});
    }
}

}  // namespace

SplitVersions findSplitVersions() {
    return {.dos = areInstalled({"\\TULSPLIT.BAT", "\\TULSPLI1.EXE", "\\TULSPLI2.EXE"}),
            .windows = areInstalled({"\\TULSPLI5.EXE", "\\TULSPLI6.EXE"})};
}

void chooseSplitVersion() {
    bool dosWanted = false;
    for (const KeyValue& line : readKeyValues(paths.OptionsFilePath).value_or(std::vector<KeyValue>())) {
        if (line.key == "TULSPLITDOS") dosWanted = isTrue(line.value);
        if (line.key == "TULSPLITWINDOWS" && isTrue(line.value)) dosWanted = false;
    }
    const SplitVersions found = findSplitVersions();
    mainPanel.splitForDos = found.dos == found.windows ? dosWanted : found.dos;
}

void enableScoreHelp() { mainPanel.enabled["mnuHelpScore"] = canRun(machineSettings.HlpPath); }

void EnableTools(ToolGroup group) {
    auto& enabled = mainPanel.enabled;
    for (const ToolFiles& tool : toolsOf(group)) enabled[tool.button] = areInstalled(tool.needed);
    if (group == ToolGroup::first) {
        enableScoreHelp();
        enabled["cmdMidiScor"] = FileExists(machineSettings.MidiScorPath);
        enabled["cmdLascor"] = FileExists(machineSettings.LascorPath);
        return;
    }
    const SplitVersions split = findSplitVersions();
    enabled["cmdLogoSplit"] = split.dos || split.windows;
    chooseSplitVersion();
    mainPanel.preProcessVisible = isInstalled("TULSPLIP.EXE");
    enabled["cmdXMLxtract"] =
        enabled["cmdXMLxtract"] && (enabled["cmdXMLtoScore"] || enabled["cmdScoreToXML"]);
    enableInput();
    // These two stand switched off for good.
    enabled["cmdClef"] = false;
    enabled["cmdLogoDur"] = false;
}

}  // namespace tul
