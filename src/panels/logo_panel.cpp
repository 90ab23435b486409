#include "panels/logo_panel.h"

#include <array>
#include <initializer_list>

#include "base/append.h"
#include "base/text.h"
#include "centre/backup_restore.h"
#include "centre/debug_summary.h"
#include "centre/launching.h"
#include "centre/main_panel.h"
#include "centre/names_file.h"
#include "centre/panel_place.h"
#include "centre/start_up.h"
#include "centre/tool_enabling.h"
#include "centre/tool_launches.h"
#include "centre/viewing.h"
#include "host/host.h"
#include "shared/records.h"
#include "shared/version.h"

namespace tul {

namespace {

using Commands = std::vector<Command>;

/// Enabled by what start-up has found for the button.
Live<bool> asFound(const char* button) {
    return [button] { return mainPanel.isEnabled(button); };
}

using IsBuilt = bool (*)(std::string_view form);

void openPanel(const char* form) {
    savePanelCoordinates(mainPanel.place);
    const WaitingPointer pointer;
    face().yield();
    face().openPanel(form);
}

/// A button that leads to a panel of this program. Where that panel is not part of this version it stands
/// disabled.
Command panelCommand(const char* button, Live<std::string> caption, const char* form, IsBuilt isBuilt,
                     const char* toolTip = "") {
    return {.name = button,
            .caption = std::move(caption),
            .run = [form] { openPanel(form); },
            .enabled = [button, built = isBuilt(form)] { return built && mainPanel.isEnabled(button); },
            .toolTip = std::string(toolTip)};
}

Command inputCommand(const char* button, Live<std::string> caption, int kind, const char* fileName,
                     IsBuilt isBuilt) {
    Command command = panelCommand(button, std::move(caption), "frmInput", isBuilt);
    command.run = [kind, fileName] {
        mainPanel.inputKind = kind;
        mainPanel.inputFilePath = machineSettings.ScoreFolder + fileName;
        openPanel("frmInput");
    };
    return command;
}

Commands panelCommands(IsBuilt isBuilt) {
    Commands commands;
    for (const auto& [button, caption, form, toolTip] : std::initializer_list<std::array<const char*, 4>>{
             {"cmdValid", "TulValid", "frmValid", "Check the selected pages, and recover damaged ones"},
             {"cmdRenum", "TulRenum", "frmRenum", "Rename and renumber files, pages, bars and staves"},
             {"cmdEdit", "TulEdit", "frmEdit", "Change items of the selected pages by rules"},
             {"cmdResiz", "TulResiz", "frmResiz",
              "Change the sizes of notes, slurs, staves, symbols, numbers and texts"},
             {"cmdPmx", "TulPmx", "frmPmx", "Write the selected pages as text"},
             {"cmdAccs", "TulAccs", "frmAccs", ""},
             {"mnuColors", "&Colors", "frmColor", ""},
             {"mnuAbout", "&About", "frmAbout", ""}})
        commands.push_back(panelCommand(button, caption, form, isBuilt, toolTip));
    commands.push_back(inputCommand(
        "cmdLogoInput", [] { return mainPanel.cmdLogoInputCaption; }, 1, "TULINPUT.INI", isBuilt));
    commands.push_back(inputCommand("cmdLogoIntab", "TulInTab", 2, "TULINTAB.INI", isBuilt));
    return commands;
}

Live<bool> enabledRuleOf(const ToolLaunch& tool) {
    const std::string_view button = tool.button;
    if (button == "mnuScore") return asFound("mnuScoreEngine");
    return asFound(tool.button);
}

Commands launchCommands() {
    Commands commands;
    for (const ToolLaunch& tool : toolLaunches())
        commands.push_back({.name = tool.button,
                            .caption = tool.caption,
                            .run = [&tool] { LaunchTool(tool); },
                            .enabled = enabledRuleOf(tool),
                            .toolTip = tool.toolTip});
    return commands;
}

Command splitCommand(IsBuilt isBuilt) {
    const auto canSplit = [built = isBuilt("frmSplit")] {
        return mainPanel.isEnabled("cmdLogoSplit") && (built || !mainPanel.splitForDos);
    };
    const auto split = [canSplit] {
        chooseSplitVersion();  // the options file may have been edited by hand
        if (!mainPanel.splitForDos)
            launchSplit();
        else if (canSplit())
            openPanel("frmSplit");
    };
    return {.name = "cmdLogoSplit", .caption = "TulSplit", .run = split, .enabled = canSplit};
}

/// Launches that look at something first, and two buttons that are switched off for good.
Commands checkedCommands(IsBuilt isBuilt) {
    return {
        {.name = "cmdAnlib",
         .caption = "TulAnlib",
         .run = cmdAnlib,
         .enabled = asFound("cmdAnlib"),
         .toolTip = [] { return mainPanel.cmdAnlibTip; }},
        {.name = "cmdTulSib", .caption = "TulSib", .run = cmdTulSib, .enabled = asFound("cmdTulSib")},
        splitCommand(isBuilt),
        {.name = "cmdClef", .caption = "TulClef", .run = [] {}, .enabled = false},
        {.name = "cmdLogoDur", .caption = "TulDur", .run = [] {}, .enabled = false},
    };
}

void openWebsite() {
    std::string address(version::website);
    if (address.find("://") == std::string::npos) address.insert(0, paths.ProgramFolder + "\\");
    const LaunchResult result = processes().openDocument(address);
    if (!result.started)
        MsgBox(address + " could not be opened." + std::string(CrLf) + result.failure, Buttons::ok,
               Icon::exclamation);
}

Command editorEntry(const char* name, const char* caption, EditorCode code) {
    return {.name = name,
            .caption = caption,
            .run = [code] { SetEditor(code); },
            .checked = [code] { return editor.code == static_cast<int>(code); }};
}

Commands menuCommands() {
    return {
        editorEntry("mnuNotepad", "&Notepad", EditorCode::notepad),
        editorEntry("mnuWordpad", "&Wordpad", EditorCode::wordpad),
        {.name = "mnuSeeTextFile", .caption = "see &Text file (intelligently)", .run = SeeTextFile},
        {.name = "mnuGuide", .caption = "User &guide", .run = [] { ShowUserGuide(guideStart); }},
        {.name = "mnuHelpTUL", .caption = "T&UL", .run = ShowOwnHelpFile, .enabled = asFound("mnuHelp")},
        {.name = "mnuDebug", .caption = "S&upport", .run = WriteDebugSummary},
        {.name = "mnuWebsite", .caption = "&Website", .run = openWebsite},
        {.name = "mnuNamesStatus", .caption = "Names files status", .run = showNamesStatus},
        {.name = "mnuRegistry", .caption = "&Registry", .run = ShowRegistry},
    };
}

/// The row below the tabs. The options panel puts the preferred tab in front when it has closed.
Commands rowCommands(IsBuilt isBuilt) {
    return {
        panelCommand("cmdProjectOptions", "Set project options", "frmGlobalOptions", isBuilt),
        {.name = "cmdViewProjectOptions",
         .caption = "View project options",
         .run =
             [] {
                 ViewWithEditor(paths.OptionsFilePath);
                 chooseSplitVersion();
             }},
        {.name = "cmdLogoBackupStatus", .caption = "Backup status", .run = cmdLogoBackupStatus},
        {.name = "cmdCycle",
         .caption = "Restore",
         .run = cmdCycle,
         .toolTip = "Restore the most recent backup of the selected files"},
        {.name = "cmdExit", .caption = "Exit", .run = exitProgram},
    };
}

Commands placeCommands() {
    return {
        {.name = "cmdMinimize",
         .caption = "Minimize",
         .run = [] { face().minimizePanel(); },
         .toolTip = [] { return mainPanel.cmdMinimizeTip; }},
        {.name = "cmdTopLeft", .caption = "Top left", .run = [] { movePanelTopLeft(mainPanel.place); }},
        {.name = "cmdTopRite", .caption = "Top right", .run = [] { movePanelTopRight(mainPanel.place); }},
    };
}

/// What a face fires without a button: clicks on backgrounds, and the timer.
Commands eventCommands() {
    return {
        {.name = "frmLogoClick",
         .caption = "Click on the background: centre",
         .run = [] { centrePanel(mainPanel.place); }},
        {.name = "frmLogoDblClick",
         .caption = "Double click on the background: details",
         .run = ShowDetailsBox},
        {.name = "Picture1DblClick",
         .caption = "Double click on the picture: settings of the machine",
         .run = [] { ViewInPanel(paths.ControlFilePath); }},
        {.name = "Timer1",
         .caption = "Timer: remember the place",
         .run = [] { savePanelCoordinates(mainPanel.place); }},
    };
}

std::vector<Field> fields() {
    const auto shows = [](bool& flag) { return [&flag] { return flag; }; };
    return {
        withTip(shownIf(tabField("tabLogo", mainPanel.tabLogo, {"main", "tools", "special", "3rd party"}),
                        shows(mainPanel.tabsVisible)),
                "Set the preferred panel tab in Set project options>Other."),
        shownIf(listField("lstTextFiles", mainPanel.lstTextFiles, chooseTextFile),
                shows(mainPanel.lstTextFiles.visible)),
    };
}

}  // namespace

Panel describeLogoPanel(IsBuilt isBuilt) {
    Panel panel;
    panel.name = "frmLogo";
    panel.caption = mainPanel.caption;
    panel.fields = fields();
    for (const Commands& commands : {panelCommands(isBuilt), launchCommands(), checkedCommands(isBuilt),
                                     menuCommands(), rowCommands(isBuilt), placeCommands(), eventCommands()})
        append(panel.commands, commands);
    Command& preProcess = *panel.command("cmdTulSplitPreProcess");
    preProcess.visible = [] { return mainPanel.preProcessVisible; };
    panel.place = &mainPanel.place;
    panel.focus = [] { return mainPanel.focus; };
    return panel;
}

}  // namespace tul
