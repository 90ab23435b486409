#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "shared/field.h"

namespace tul {

/// One button or menu entry.
struct Command {
    std::string name;  // of the control
    Live<std::string> caption;
    std::function<void()> run;
    Live<bool> enabled = true;
    Live<std::string> toolTip = std::string();
    Live<bool> visible = true;
    Live<bool> checked = false;  // a menu entry with a check mark
    bool whileBusy = false;      // it can be pressed while the panel is busy
};

/// A panel's place on the screen, in twips (15 to the pixel).
struct PanelPlace {
    int top = 0;
    int left = 0;
    int width = 9000;
    int height = 6660;
    bool centred = false;  // nothing was stored: it belongs in the middle, whatever size its window turns out
                           // to have
};

/// A tool as a record of fields and a list of commands. A face only sets fields and presses commands.
class Panel {
  public:
    std::string name;     // of the form, such as frmValid
    std::string caption;  // of its title bar
    std::vector<Field> fields;
    std::vector<Command> commands;
    std::string runCommand;      // what a batch run presses when it names none
    std::function<void()> load;  // the panel's load step
    Live<bool> busy = false;     // a run is on: nothing can be changed, and little be pressed
    Live<bool> closed = false;   // its return button has unloaded it
    /// What the opener does once the panel has closed. A face calls it when the panel behind is in front
    /// again.
    std::function<void()> unload;
    /// Takes files that were dropped on it, in the installation's form; empty where it takes none.
    std::function<void(const std::vector<std::string>&)> takeFiles;
    /// A face with a screen puts the window here after each command, and stores where the user moved it.
    PanelPlace* place = nullptr;
    Live<std::string> focus = std::string();  // the control that has it when the panel is first shown

    Field* field(std::string_view fieldName);
    Command* command(std::string_view commandName);

    /// As a face shows it now. What is read only stands as it is while the panel is busy.
    bool isEnabled(const Field& field) const { return field.enabled() && (!busy() || field.isReadOnly()); }
    /// The same for a face with controls that can be looked at: what nothing reads looks disabled.
    bool isOffered(const Field& field) const { return isEnabled(field) && field.isRead(); }
    bool isEnabled(const Command& command) const {
        return command.enabled() && (!busy() || command.whileBusy);
    }

    /// What typing into the field's input box, or clicking the control, does. A check or an option takes a
    /// boolean, a tab a number or a name; `invalid` when the text is none.
    PanelAnswer set(std::string_view fieldName, const std::string& text);
    /// A click on a text field: opens its input box with the present text, or does what it does instead.
    PanelAnswer click(std::string_view fieldName);
    PanelAnswer press(std::string_view commandName);
    PanelAnswer drop(const std::vector<std::string>& files);
    bool canTakeFiles() const { return takeFiles && !busy() && !closed(); }

  private:
    bool isOpen(const Field& field) const { return !closed() && field.visible() && isEnabled(field); }
};

}  // namespace tul
