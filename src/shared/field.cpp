#include "shared/field.h"

#include <algorithm>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "host/host.h"

namespace tul {

namespace {

bool isBoolean(std::string_view text) {
    return isNumeric(text) || equalIgnoringCase(trim(text), "TRUE") || equalIgnoringCase(trim(text), "FALSE");
}

std::string joinLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        if (!text.empty()) text += CrLf;
        text += line;
    }
    return text;
}

}  // namespace

bool TextKind::isReadOnly(const Field& field) const { return !keep && field.prompt().empty(); }

/// The validator may rebuild the fields' texts itself, so its result is stored last.
PanelAnswer TextKind::take(const std::string& given, std::vector<Field>&) const {
    std::string kept = keep ? keep(given) : given;
    *value = std::move(kept);
    return PanelAnswer::done;
}

PanelAnswer CheckKind::take(const std::string& given, std::vector<Field>&) const {
    if (!isBoolean(given)) return PanelAnswer::invalid;
    *value = isTrue(given);
    return PanelAnswer::done;
}

PanelAnswer OptionKind::take(const std::string& given, std::vector<Field>& fields) const {
    if (!isBoolean(given)) return PanelAnswer::invalid;
    if (!isTrue(given)) return *value ? PanelAnswer::invalid : PanelAnswer::done;
    for (const Field& other : fields)
        if (const auto* const option = std::get_if<OptionKind>(&other.kind); option && option->group == group)
            *option->value = false;
    *value = true;
    return PanelAnswer::done;
}

std::string NumberedChoice::text() const { return plain(*value); }

PanelAnswer NumberedChoice::take(const std::string& given, std::vector<Field>&) const {
    const auto count = static_cast<int>(names.size());
    const auto isNamed = [&given](const std::string& name) { return equalIgnoringCase(name, trim(given)); };
    const auto named = static_cast<int>(std::find_if(names.begin(), names.end(), isNamed) - names.begin());
    const auto number = isWholeNumber(given) ? toInt32(numericValue(given)) : named;
    if (!number || *number < 0 || *number >= count) return PanelAnswer::invalid;
    *value = *number;
    return PanelAnswer::done;
}

std::string ListKind::text() const {
    if (value->selected < 0) return joinLines(value->entries);
    return value->entries.at(static_cast<std::size_t>(value->selected));
}

PanelAnswer ListKind::take(const std::string& given, std::vector<Field>&) const {
    const auto& entries = value->entries;
    const bool leaves = given.empty() && choose;
    if (!leaves && std::find(entries.begin(), entries.end(), given) == entries.end())
        return PanelAnswer::invalid;
    if (choose) choose(given);
    return PanelAnswer::done;
}

std::string ProgressKind::text() const { return plain(value->percent); }

std::string Field::text() const {
    return std::visit([](const auto& each) { return each.text(); }, kind);
}

std::string Field::kindName() const {
    return std::visit([](const auto& each) { return std::string(each.name); }, kind);
}

bool Field::isReadOnly() const {
    return std::visit([this](const auto& each) { return each.isReadOnly(*this); }, kind);
}

std::string Field::choices() const {
    const NumberedChoice* choice = std::get_if<TabKind>(&kind);
    if (!choice) choice = std::get_if<RowKind>(&kind);
    std::string text;
    for (std::size_t i = 0; choice && i < choice->names.size(); ++i)
        text += (i > 0 ? ", " : "") + plain(i) + " " + choice->names[i];
    return text;
}

std::string keepInstead(std::string kept, const std::string& message) {
    MsgBox(message, Buttons::ok, Icon::exclamation);
    return kept;
}

Field textField(std::string name, std::string& value, Live<std::string> prompt, Keep keep) {
    return {.name = std::move(name),
            .kind = TextKind{.value = &value, .keep = std::move(keep)},
            .prompt = std::move(prompt)};
}

Field keptField(std::string name, std::string& value, Live<std::string> prompt,
                std::string (*keep)(const std::string& typed, const std::string& present)) {
    return textField(std::move(name), value, std::move(prompt),
                     [&value, keep](const std::string& typed) { return keep(typed, value); });
}

Field clickField(std::string name, std::string& value, std::function<void()> click, Keep keep) {
    Field field = textField(std::move(name), value, std::string(), std::move(keep));
    field.click = std::move(click);
    return field;
}

Field shownField(std::string name, std::string& value) {
    return {.name = std::move(name), .kind = TextKind{.value = &value}};
}

Field checkField(std::string name, bool& value) {
    return {.name = std::move(name), .kind = CheckKind{&value}};
}

Field optionField(std::string group, std::string name, bool& value) {
    return {.name = std::move(name), .kind = OptionKind{&value, std::move(group)}};
}

Field tabField(std::string name, int& value, std::vector<std::string> names) {
    return {.name = std::move(name), .kind = TabKind{{&value, std::move(names)}}};
}

Field rowField(std::string name, int& value, std::vector<std::string> names) {
    return {.name = std::move(name), .kind = RowKind{{&value, std::move(names)}}};
}

Field listField(std::string name, ListBox& value, std::function<void(const std::string&)> choose) {
    return {.name = std::move(name), .kind = ListKind{.value = &value, .choose = std::move(choose)}};
}

Field labelField(std::string name, const std::string& value) {
    return {.name = std::move(name), .kind = LabelKind{&value}};
}

Field progressField(std::string name, const Progress& value) {
    return {.name = std::move(name), .kind = ProgressKind{&value}};
}

Field onlyIf(Field field, std::function<bool()> condition) {
    field.enabled = std::move(condition);
    return field;
}

Field readIf(Field field, std::function<bool()> condition) {
    field.isRead = std::move(condition);
    return field;
}

Field shownIf(Field field, std::function<bool()> condition) {
    field.visible = std::move(condition);
    return field;
}

Field emptiedByCancel(Field field) {
    field.cancelEmpties = true;
    return field;
}

Field withTip(Field field, Live<std::string> toolTip) {
    field.toolTip = std::move(toolTip);
    return field;
}

Field withStep(Field field, std::function<void()> step) {
    field.changed = std::move(step);
    return field;
}

}  // namespace tul
