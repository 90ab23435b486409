#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shared/panel.h"

/// All panels by name.
namespace tul {

struct PanelEntry {
    const char* form;         // such as frmValid
    const char* shortName;    // the form's without frm, in lower case
    const char* alias;        // also accepted; "" without one
    const char* description;  // one line for the help
    const char* guide;        // its page of the user guide
    Panel (*describe)();      // the panel over its tool's record as it stands; asking has no effect
    void (*reset)();          // gives the record its first values; null where its owner does

    /// A new panel, whose record starts anew.
    [[nodiscard]] Panel make() const {
        if (reset) reset();
        return describe();
    }
};

const std::vector<PanelEntry>& panelList();

/// By form, short name or alias, in any letter case; null when there is none.
const PanelEntry* findPanel(std::string_view name);

}  // namespace tul
