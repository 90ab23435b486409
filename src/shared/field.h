#pragma once

#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "shared/live.h"

namespace tul {

/// A progress bar: percent, shown only while something runs.
struct Progress {
    int percent = 0;
    bool visible = false;
};

/// A list of entries. A face shows them, and a chosen one is handed to the field's `choose`.
struct ListBox {
    std::string title;
    std::vector<std::string> entries;
    bool visible = true;
    int selected = -1;  // the entry that is chosen, from 0; -1 without one
    int showings = 0;   // how often a command has put it before the user; a face without windows prints it
};

/// `disabled` stands for a hidden or read-only field, for a busy panel, and for a closed one, too; `invalid`
/// for a text that is no value of the field.
enum class PanelAnswer { done, unknown, disabled, invalid };

struct Field;
/// Takes what was typed and returns what the field keeps; shows its own messages.
using Keep = std::function<std::string(const std::string& typed)>;

// The kinds of fields. A value lives in the options record of its tool. Each kind says what it is called,
// what its value is as a text, whether a user can change it at all, and what a given text does to it. A face
// looks at the kind in one place, where it makes or binds its own control.

/// A text. An input box fills it where the field has a prompt, or it has its own `keep`; otherwise it is
/// shown only.
struct TextKind {
    std::string* value;
    Keep keep = {};
    bool isPath = false;  // takes a path as the platform writes it, not text of music or settings

    static constexpr const char* name = "text";
    std::string text() const { return *value; }
    bool isReadOnly(const Field& field) const;
    PanelAnswer take(const std::string& given, std::vector<Field>& fields) const;
};

/// A box, on or off.
struct CheckKind {
    bool* value;

    static constexpr const char* name = "check";
    std::string text() const { return *value ? "1" : "0"; }
    bool isReadOnly(const Field&) const { return false; }
    PanelAnswer take(const std::string& given, std::vector<Field>& fields) const;
};

/// One of its group is on.
struct OptionKind {
    bool* value;
    std::string group;  // the frame in which one excludes the others

    static constexpr const char* name = "option";
    std::string text() const { return *value ? "1" : "0"; }
    bool isReadOnly(const Field&) const { return false; }
    /// An option is switched off by switching another one on.
    PanelAnswer take(const std::string& given, std::vector<Field>& fields) const;
};

/// One of several by number, from 0, or by name.
struct NumberedChoice {
    int* value;
    std::vector<std::string> names;

    std::string text() const;
    bool isReadOnly(const Field&) const { return false; }
    PanelAnswer take(const std::string& given, std::vector<Field>& fields) const;
};
/// Tabs, one of which is in front.
struct TabKind : NumberedChoice {
    static constexpr const char* name = "tab";
};
/// Options in a row, one of which is on.
struct RowKind : NumberedChoice {
    static constexpr const char* name = "option";
};

/// Entries to look at, or to choose from. An empty text leaves the list without a choice.
struct ListKind {
    ListBox* value;
    std::function<void(const std::string& entry)> choose = {};

    static constexpr const char* name = "list";
    /// The chosen entry, or all by lines.
    std::string text() const;
    bool isReadOnly(const Field&) const { return false; }
    PanelAnswer take(const std::string& given, std::vector<Field>& fields) const;
};

/// Shows a text.
struct LabelKind {
    const std::string* value;

    static constexpr const char* name = "label";
    std::string text() const { return *value; }
    bool isReadOnly(const Field&) const { return true; }
    PanelAnswer take(const std::string&, std::vector<Field>&) const { return PanelAnswer::disabled; }
};

/// Shows a percentage.
struct ProgressKind {
    const Progress* value;

    static constexpr const char* name = "progress";
    std::string text() const;
    bool isReadOnly(const Field&) const { return true; }
    PanelAnswer take(const std::string&, std::vector<Field>&) const { return PanelAnswer::disabled; }
};

using FieldKind =
    std::variant<TextKind, CheckKind, OptionKind, TabKind, RowKind, ListKind, LabelKind, ProgressKind>;

/// One control that holds or shows a value.
struct Field {
    std::string name;  // of the control
    FieldKind kind;

    Live<std::string> prompt = std::string();  // of the input box; of a list what is chosen in it
    Live<bool> enabled = true;                 // by the tool's own rules; a busy panel disables it as well
    /// What is chosen looks at it. A window disables what is not read; it can be set all the same, so that a
    /// command line need not know an order.
    Live<bool> isRead = true;
    Live<bool> visible = true;
    Live<std::string> toolTip = std::string();
    bool cancelEmpties = false;  // its prompt says that Cancel resets it; any other field stays as it is
    std::function<void()> changed = {};  // what follows when a value was taken
    /// A click on it, where that does something else than to open the input box.
    std::function<void()> click = {};

    std::string text() const;
    std::string kindName() const;
    /// Nothing that a user does changes it.
    bool isReadOnly() const;
    /// The entries of a choice by number, as "0 notes, 1 slurs"; empty for other kinds.
    std::string choices() const;
};

/// Tells what is wrong with a text that was typed into a field, and gives back what the field keeps.
std::string keepInstead(std::string kept, const std::string& message);

// Builders, so that a panel reads as a list of its controls.

Field textField(std::string name, std::string& value, Live<std::string> prompt, Keep keep = {});
/// A text whose validator may leave the present one.
Field keptField(std::string name, std::string& value, Live<std::string> prompt,
                std::string (*keep)(const std::string& typed, const std::string& present));
/// A text that a click opens a choice for; what is given without a click goes through `keep`.
Field clickField(std::string name, std::string& value, std::function<void()> click, Keep keep);
/// A text in a field that is shown only.
Field shownField(std::string name, std::string& value);
Field checkField(std::string name, bool& value);
Field optionField(std::string group, std::string name, bool& value);
Field tabField(std::string name, int& value, std::vector<std::string> names);
Field rowField(std::string name, int& value, std::vector<std::string> names);
Field listField(std::string name, ListBox& value, std::function<void(const std::string&)> choose = {});
Field labelField(std::string name, const std::string& value);
Field progressField(std::string name, const Progress& value);

/// The same field, enabled only as long as `condition` holds.
Field onlyIf(Field field, std::function<bool()> condition);
/// The same field, read only as long as `condition` holds.
Field readIf(Field field, std::function<bool()> condition);
/// The same field, there only as long as `condition` holds.
Field shownIf(Field field, std::function<bool()> condition);
/// The same field, which Cancel in its input box empties.
Field emptiedByCancel(Field field);
Field withTip(Field field, Live<std::string> toolTip);
/// The same field with a step of its own behind each change.
Field withStep(Field field, std::function<void()> step);

}  // namespace tul
