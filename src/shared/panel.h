#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "shared/live.h"

namespace tul {

/// A progress bar: percent, shown only while something runs.
struct Progress {
    int percent = 0;
    bool visible = false;
};

/// A list of entries. A face shows them, and a chosen one is handed to the field's `accept`.
struct ListBox {
    std::string title;
    std::vector<std::string> entries;
    bool visible = true;
    int selected = -1;  // the entry that is chosen, from 0; -1 without one
};

enum class FieldKind {
    text,      // filled through an input box when it has a prompt; read only otherwise
    check,     // on or off
    option,    // one of its group is on; or, as a number, which of its row is on, from 0
    tab,       // number of the page in front, from 0
    list,      // entries to choose from
    label,     // shows a text
    progress,  // shows a percentage
};

/// Where a field's value lives: in the options record of its tool.
using FieldValue = std::variant<std::string*, bool*, int*, Progress*, ListBox*>;

/// One control that holds or shows a value.
struct Field {
    std::string name;  // of the control
    FieldKind kind;
    FieldValue value;
    std::string group = {};  // options: the frame in which one excludes the others

    Live<std::string> prompt = std::string();  // of the input box
    /// Takes what was typed or chosen and returns what the field keeps; shows its own messages.
    std::function<std::string(const std::string&)> accept = {};
    Live<bool> enabled = true;
    Live<std::string> toolTip = std::string();
    Live<bool> visible = true;
    /// A click on it, where that does something else than to open the input box.
    std::function<void()> click = {};
    bool isPath = false;  // takes a path as the platform writes it, not text of music or settings
    int choices = 0;      // tabs, options in a row: how many there are; 0 sets no limit

    /// The value as text: check and option "1" or "0", tab and progress a number, a list its
    /// chosen entry, or all by lines.
    std::string text() const;
    /// Labels, progress, and texts that neither an input box nor a click fills.
    bool isReadOnly() const;
};

/// One button or menu entry.
struct Command {
    std::string name;  // of the control
    Live<std::string> caption;
    std::function<void()> run;
    Live<bool> enabled = true;
    Live<std::string> toolTip = std::string();
    Live<bool> visible = true;
    Live<bool> checked = false;  // a menu entry with a check mark
    /// Files dropped on it, in the installation's form; empty where it takes none.
    std::function<void(const std::vector<std::string>&)> drop = {};
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

/// `disabled` stands for a hidden or read-only field and for a closed panel, too; `invalid` for a text that
/// is no value of the field.
enum class PanelAnswer { done, unknown, disabled, invalid };

/// A tool as a record of fields and a list of commands. A face only sets fields and presses commands.
class Panel {
  public:
    std::string name;     // of the form, such as frmValid
    std::string caption;  // of its title bar
    std::vector<Field> fields;
    std::vector<Command> commands;
    std::string runCommand;      // what a batch run presses when it names none
    std::function<void()> load;  // the panel's load step
    Live<bool> closed = false;   // its return button has unloaded it
    /// What the opener does once the panel has closed. A face calls it when the panel behind is in front
    /// again.
    std::function<void()> unload;
    Live<int> exitStatus = 0;  // of a batch run that came to its end
    /// A face with a screen puts the window here after each command, and stores where the user moved it.
    PanelPlace* place = nullptr;
    Live<std::string> focus = std::string();  // the control that has it when the panel is first shown

    Field* field(std::string_view fieldName);
    Command* command(std::string_view commandName);

    /// What typing into the field's input box, or clicking the control, does. A check or an option takes a
    /// boolean, a tab a number; `invalid` when the text is none.
    PanelAnswer set(std::string_view fieldName, const std::string& text);
    /// A click on a text field: opens its input box with the present text, or does what it does instead.
    PanelAnswer click(std::string_view fieldName);
    PanelAnswer press(std::string_view commandName);
};

}  // namespace tul
