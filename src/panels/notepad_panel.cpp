#include "panels/notepad_panel.h"

#include "centre/main_panel.h"
#include "centre/viewing.h"

namespace tul {

Panel describeNotepadPanel() {
    Panel panel;
    panel.name = "frmNotepad";
    panel.caption = notepadPanel.caption;
    panel.fields = {listField("lstTulboard", notepadPanel.lstTulboard)};
    panel.commands = {
        {.name = "mnuReturn", .caption = std::string("&Return"), .run = [] { notepadPanel.closed = true; }},
        {.name = "mnuNotepad", .caption = std::string("&Notepad"), .run = editNotepadFile},
    };
    panel.closed = [] { return notepadPanel.closed; };
    return panel;
}

}  // namespace tul
