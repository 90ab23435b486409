#include "panels/logo_panel.h"

#include "centre/backup_restore.h"
#include "centre/debug_summary.h"
#include "centre/main_panel.h"
#include "centre/names_file.h"
#include "centre/start_up.h"
#include "centre/viewing.h"
#include "shared/records.h"

namespace tul {

Panel makeLogoPanel() {
    Panel panel;
    panel.name = "frmLogo";
    panel.caption = mainPanel.caption;
    panel.fields = {
        {.name = "tabLogo",
         .kind = FieldKind::tab,
         .value = &mainPanel.tabLogo,
         .visible = [] { return mainPanel.tabsVisible; },
         .choices = 4},
        {.name = "lstTextFiles",
         .kind = FieldKind::list,
         .value = &mainPanel.lstTextFiles,
         .accept =
             [](const std::string& entry) {
                 chooseTextFile(entry);
                 return entry;
             },
         .visible = [] { return mainPanel.lstTextFiles.visible; }},
    };
    panel.commands = {
        {.name = "mnuNotepad",
         .caption = std::string("&Notepad"),
         .run = [] { SetEditor(EditorCode::notepad); }},
        {.name = "mnuWordpad",
         .caption = std::string("&Wordpad"),
         .run = [] { SetEditor(EditorCode::wordpad); }},
        {.name = "mnuSeeTextFile",
         .caption = std::string("see &Text file (intelligently)"),
         .run = SeeTextFile},
        {.name = "mnuDebug", .caption = std::string("S&upport"), .run = WriteDebugSummary},
        {.name = "mnuNamesStatus", .caption = std::string("Names files status"), .run = showNamesStatus},
        {.name = "mnuRegistry", .caption = std::string("&Registry"), .run = ShowRegistry},
        {.name = "cmdViewProjectOptions",
         .caption = std::string("View project options"),
         .run = [] { ViewWithEditor(paths.OptionsFilePath); }},
        {.name = "cmdLogoBackupStatus", .caption = std::string("Backup status"), .run = cmdLogoBackupStatus},
        {.name = "cmdCycle",
         .caption = std::string("Restore"),
         .run = cmdCycle,
         .toolTip = std::string("Restore the most recent backup of the selected files")},
        // No button: a double click on the panel's background.
        {.name = "frmLogoDblClick", .caption = std::string("Details"), .run = ShowDetailsBox},
        {.name = "cmdExit", .caption = std::string("Exit"), .run = exitProgram},
    };
    panel.load = [caption = panel.caption] { frontPanelCaption = caption; };
    return panel;
}

}  // namespace tul
