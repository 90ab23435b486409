#include "centre/start_up.h"

#include <string_view>

#include "base/numbers.h"
#include "base/text.h"
#include "centre/control_file.h"
#include "centre/first_use.h"
#include "centre/installation.h"
#include "centre/library_folder.h"
#include "centre/main_panel.h"
#include "centre/names_file.h"
#include "centre/panel_place.h"
#include "centre/platform_code.h"
#include "centre/project_options.h"
#include "centre/renaming_record.h"
#include "centre/start_up_warning.h"
#include "centre/tool_enabling.h"
#include "centre/viewing.h"
#include "host/host.h"
#include "shared/function_module.h"
#include "shared/records.h"
#include "shared/version.h"

namespace tul {

namespace {

const std::string newLine(CrLf);

/// The oldest build whose control file is still used.
constexpr double oldestUsableBuild = 122;

void refuseSecondInstance() {
    if (platform().anotherInstanceRuns()) endWith("There can only be one instance of TUL");
}

void nameVersion() {
    identity.VersionText =
        "v" + plain(version::major) + "." + plain(version::minor) + ".0." + plain(version::revision);
    identity.BuildDateText = version::buildDate;
    face().setPointer(Pointer::normal);
    mainPanel.caption = "TUL Control Center - " + identity.VersionText;
}

/// True when the current folder takes a new file.
bool takesFiles() {
    const std::string probe = "TULWRITE.TMP";
    const bool written = files().replace(probe, newLine) == FileError::none;
    files().removeIfThere(probe);
    return written;
}

/// Windows may keep a program from writing beside itself: better told now than at the first page.
void testWriting() {
    if (identity.platformCode() == "XP") return;
    const std::string file = "TULVERSION.TXT";
    const FileError error = files().replace(file, dateAndTime() + newLine);
    const bool exists = FileExists(file);
    if (error == FileError::none && exists) return;
    if (exists && takesFiles())
        endWith("The file " + file + " in the folder " + files().currentFolder() +
                " is read-only or in use, and TUL writes it at each start." + newLine +
                "Delete it, or take its write protection away, and start TUL again.");
    endWith("You are running on Windows " + identity.OsCode + newLine +
            "User Account Control prohibits writing in the current folder: " + files().currentFolder() +
            newLine + "TUL needs to terminate.");
}

void saveStartValues() {
    SaveProfileValue("StartTime", "ON " + dateAndTime());
    SaveProfileValue("OS", identity.OsCode);
    SaveProfileValue("PT", identity.ProcessorBits);
}

void proveInstallation() {
    mainPanel.enabled["mnuVersion"] = isInstalled("TULVERSION.EXE");
    int issues = 0;
    const auto require = [&issues](const std::string& name) {
        const bool present = isInstalled(name);
        if (!present) {
            const std::string shown = name.substr(name.starts_with('\\') ? 1 : 0);
            MsgBox("Module " + shown + " not properly installed", Buttons::ok, Icon::critical);
            ++issues;
        }
        return present;
    };
    for (const char* name :
         {"TULSCORE.EXE", "TULSKORE.EXE", "\\TULFOLDR.EXE", "\\TULNAMES.EXE", "\\TULOLE.EXE"})
        require(name);
    mainPanel.enabled["mnuHelp"] = require("\\TULCNTRL.HLP");
    if (issues > 0) endWith("Number of installation issues: " + plain(issues));
}

/// The build number in a version text: what stands behind its last comma, or else behind its last full stop.
std::string buildNumberOf(const std::string& versionText) {
    const char separator = versionText.find(',') != std::string::npos ? ',' : '.';
    const std::size_t last = versionText.rfind(separator);
    return last == std::string::npos ? versionText : versionText.substr(last + 1);
}

std::string lastVersionExecuted() {
    constexpr std::string_view key = "LastVersionExecuted=";
    std::string text;
    files().readIfThere(paths.ControlFilePath, text);
    for (const std::string_view line : linesOf(text))
        if (line.starts_with(key)) return std::string(line.substr(key.size()));
    return {};
}

/// A control file of an old build, or one that names none, is thrown away; the next start makes it anew.
void testBuild() {
    const double build = numericValue(buildNumberOf(lastVersionExecuted()));
    if (build == 0) {
        files().removeIfThere(paths.ControlFilePath);
        endWith("TULCNTRL.INI was deleted because it could not establish the last version of TUL used." +
                newLine +
                "This file must have been corrupted. It will be deleted and you will have to restart TUL "
                "and re-establish this file.");
    }
    if (build < oldestUsableBuild) {
        const auto number = static_cast<float>(build);
        MsgBox("You are now using a TUL Build beyond Build 118 for the first time." + newLine +
                   joined("The previous version you were using was Build", number) + newLine +
                   "TUL needs to be reconfigured as if it were its first use." + newLine +
                   "This one-time operation takes only a few seconds of your time.",
               Buttons::ok, Icon::critical);
        files().removeIfThere(paths.ControlFilePath);
        endProgram();
    }
}

void testPlatform() {
    const std::string code = identity.platformCode();
    const auto isOneOf = [&code](std::initializer_list<std::string_view> codes) {
        for (const std::string_view each : codes)
            if (each == code) return true;
        return false;
    };
    std::string wayToChange;
    if (isOneOf({"98", "NT", "95"})) {
        wayToChange = "To change this go to Settings, Control Panel, Regional Settings Properties, Number.";
    } else if (isOneOf({"2K", "XP", "VI", "SE", "W7", "Wx"})) {
        wayToChange =
            "To change this go to Control Panel, Regional & Language Options, set Number to format "
            "123,456,789.00 by selecting ie. English (United States)";
    } else {
        if (projectSettings.BypassPlatformTest != 1)
            startUpWarning("TUL is not qualified for this platform. Continue at your own risk." + newLine +
                           "To avoid output of this message, set the 'Bypass platform test' option (Set "
                           "Global options, Other).");
        return;
    }
    if (platform().decimalSymbol() != ',' || projectSettings.BypassDecimalTest == 1) return;
    startUpWarning(
        "Your system has defined the Decimal Symbol as a comma. TUL works best if this is a period." +
        newLine + wayToChange + newLine +
        "To avoid output of this message, set the 'Bypass Decimal Symbol test' option (Set Global options, "
        "Other).");
}

void enableSecondGroup() {
    EnableTools(ToolGroup::second);
    const bool needsSystem = mainPanel.isEnabled("cmdScoreToXML") || mainPanel.isEnabled("cmdLogoSplit");
    if (needsSystem && !mainPanel.isEnabled("cmdTulSystem"))
        startUpWarning(
            "TulScore2XML and/or TulSplit require the presence of TulSystem. This utility is missing.");
}

}  // namespace

void LoadDateSettings() {
    dateSettings = {};
    std::string text;
    files().readIfThere("c:\\windows\\win.ini", text);
    std::string section;
    for (const std::string_view line : linesOf(text)) {
        if (line.starts_with('[')) section = upperCase(trim(line));
        const SplitText setting = splitAtFirst(line, '=');
        if (section != "[INTL]" || !setting.found) continue;
        const std::string key = upperCase(setting.before);
        if (key == "SDATE") dateSettings.dateSeparator = setting.behind;
        if (key == "STIME") dateSettings.timeSeparator = setting.behind;
        if (key == "SSHORTDATE") dateSettings.shortDateFormat = setting.behind;
    }
}

void StartUp() {
    identity.ComputerName = platform().computerName();
    refuseSecondInstance();
    nameVersion();
    getOS();
    mainPanel.place.height = heightOfPanels();
    testWriting();
    saveStartValues();
    positionPanel(mainPanel.place);
    paths.ProgramFolder = files().currentFolder();
    proveInstallation();
    namePaths();
    identity.DeveloperMode = isInstalled("\\TULXREF5.ASM");

    if (FileExists(paths.ControlFilePath)) {
        testBuild();
    } else {
        FirstUse();
    }
    ReadControlFile(false);
    ReadControlFile(true);
    EnableTools(ToolGroup::first);
    SetEditor(EditorCode::notepad);
    mainPanel.enabled["mnuScoreEngine"] = FileExists(machineSettings.ScoreEngineProgramPath);

    if (!FileExists(paths.OptionsFilePath)) WriteDefaultOptions();
    refreshAnlibTip();
    LoadDateSettings();
    mainPanel.focus = "cmdProjectOptions";
    face().openPanel("frmLogo");

    ReadProjectOptions();
    SaveProfileValue("InitialFolder", projectSettings.MusDirectory);
    testPlatform();
    CheckLibraryFolders();
    enableSecondGroup();
    showPreferredTab();
    tellBrokenRenaming();
    RefreshNamesFiles();
    LoadFontNames();
}

void exitProgram() {
    savePanelCoordinates(mainPanel.place);
    SaveProfileValue("StartTime", "OFF " + dateAndTime());
    leaveProgram();
}

}  // namespace tul
