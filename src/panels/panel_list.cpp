#include "panels/panel_list.h"

#include "base/text.h"
#include "panels/about_panels.h"
#include "panels/edit_panel.h"
#include "panels/global_options_panel.h"
#include "panels/logo_panel.h"
#include "panels/notepad_panel.h"
#include "panels/pmx_panel.h"
#include "panels/renum_panel.h"
#include "panels/resiz_panel.h"
#include "panels/valid_panel.h"

namespace tul {

const std::vector<PanelEntry>& panelList() {
    static const std::vector<PanelEntry> panels = {
        {"frmLogo", "logo", "", "the main panel: opens the tools, launches the utilities", "main-panel.md",
         [] { return describeLogoPanel([](std::string_view form) { return findPanel(form) != nullptr; }); },
         nullptr},
        {"frmValid", "valid", "validate", "check the structure of music files", "validation.md",
         describeValidPanel, resetValidPanel},
        {"frmPmx", "pmx", "", "write music files as parameter text (.PMX)", "pmx.md", describePmxPanel,
         resetPmxPanel},
        {"frmResiz", "resiz", "resize", "change sizes of notes, slurs, staves, symbols, numbers and texts",
         "resize.md", describeResizPanel, resetResizPanel},
        {"frmEdit", "edit", "", "search and replace texts, change fonts, find and change items by conditions",
         "edit.md", describeEditPanel, resetEditPanel},
        {"frmRenum", "renum", "renumber", "rename files, renumber pages, bars and staves", "renumber.md",
         describeRenumPanel, resetRenumPanel},
        {"frmGlobalOptions", "globaloptions", "options",
         "the choices of a project: folder, suffix, fonts, sizes", "settings-options.md",
         describeGlobalOptionsPanel, resetGlobalOptionsPanel},
        {"frmAbout", "about", "", "version of the program, disclaimer, system information", "main-panel.md",
         describeAboutPanel, resetAboutPanel},
        {"frmColor", "color", "", "what the colors of the panels mean", "windows.md", describeColorPanel,
         resetColorPanel},
        {"frmNotepad", "notepad", "", "the built-in viewer of text files", "windows.md", describeNotepadPanel,
         nullptr},
    };
    return panels;
}

const PanelEntry* findPanel(std::string_view name) {
    for (const PanelEntry& entry : panelList()) {
        const std::string_view alias = entry.alias;
        if (equalIgnoringCase(name, entry.form) || equalIgnoringCase(name, entry.shortName) ||
            (!alias.empty() && equalIgnoringCase(name, alias)))
            return &entry;
    }
    return nullptr;
}

}  // namespace tul
