#include "shared/panel.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "host/host.h"

namespace tul {

namespace {

template <class Named>
Named* findByName(std::vector<Named>& list, std::string_view name) {
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const Named& n) { return equalIgnoringCase(n.name, name); });
    return found == list.end() ? nullptr : &*found;
}

std::string joinLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        if (!text.empty()) text += CrLf;
        text += line;
    }
    return text;
}

struct AsText {
    std::string operator()(const std::string* text) const { return *text; }
    std::string operator()(const bool* flag) const { return *flag ? "1" : "0"; }
    std::string operator()(const int* number) const { return plain(*number); }
    std::string operator()(const Progress* progress) const { return plain(progress->percent); }
    std::string operator()(const ListBox* list) const {
        if (list->selected < 0) return joinLines(list->entries);
        return list->entries.at(static_cast<std::size_t>(list->selected));
    }
};

bool isBoolean(std::string_view text) {
    return isNumeric(text) || equalIgnoringCase(trim(text), "TRUE") || equalIgnoringCase(trim(text), "FALSE");
}

bool isOpen(const Field& field) { return field.visible() && field.enabled(); }

}  // namespace

std::string Field::text() const { return std::visit(AsText{}, value); }

bool Field::isReadOnly() const {
    if (kind == FieldKind::label || kind == FieldKind::progress) return true;
    return kind == FieldKind::text && !accept && prompt().empty();
}

Field* Panel::field(std::string_view fieldName) { return findByName(fields, fieldName); }

Command* Panel::command(std::string_view commandName) { return findByName(commands, commandName); }

PanelAnswer Panel::set(std::string_view fieldName, const std::string& text) {
    Field* const target = field(fieldName);
    if (!target) return PanelAnswer::unknown;
    if (closed() || !isOpen(*target)) return PanelAnswer::disabled;

    if (const auto flag = std::get_if<bool*>(&target->value)) {
        if (!isBoolean(text)) return PanelAnswer::invalid;
        const bool on = isTrue(text);
        // An option is switched off by switching another one on.
        if (target->kind == FieldKind::option && !on && **flag) return PanelAnswer::invalid;
        if (target->kind == FieldKind::option && on) {
            for (Field& other : fields)
                if (const auto option = std::get_if<bool*>(&other.value);
                    option && other.kind == FieldKind::option && other.group == target->group)
                    **option = false;
        }
        **flag = on;
        if (target->accept) target->accept(target->text());
        return PanelAnswer::done;
    }
    if (const auto number = std::get_if<int*>(&target->value)) {
        const auto page = isWholeNumber(text) ? toInt32(numericValue(text)) : std::nullopt;
        if (!page || (target->choices > 0 && (*page < 0 || *page >= target->choices)))
            return PanelAnswer::invalid;
        **number = *page;
        return PanelAnswer::done;
    }
    if (const auto list = std::get_if<ListBox*>(&target->value)) {
        const auto& entries = (*list)->entries;
        // An empty text leaves the list without a choice.
        const bool leaves = text.empty() && target->accept;
        if (!leaves && std::find(entries.begin(), entries.end(), text) == entries.end())
            return PanelAnswer::invalid;
        if (target->accept) target->accept(text);
        return PanelAnswer::done;
    }
    if (target->isReadOnly()) return PanelAnswer::disabled;
    // The validator may rebuild the fields' texts itself, so its result is stored last.
    std::string kept = target->accept ? target->accept(text) : text;
    *std::get<std::string*>(target->value) = std::move(kept);
    return PanelAnswer::done;
}

PanelAnswer Panel::click(std::string_view fieldName) {
    const Field* const target = field(fieldName);
    if (!target) return PanelAnswer::unknown;
    if (!isOpen(*target)) return PanelAnswer::disabled;
    if (target->click) {
        target->click();
        return PanelAnswer::done;
    }
    if (target->kind != FieldKind::text || target->prompt().empty()) return PanelAnswer::disabled;
    return set(fieldName, InputBox(target->prompt(), target->text()));
}

PanelAnswer Panel::press(std::string_view commandName) {
    Command* const target = command(commandName);
    if (!target) return PanelAnswer::unknown;
    if (closed() || !target->visible() || !target->enabled()) return PanelAnswer::disabled;
    target->run();
    return PanelAnswer::done;
}

}  // namespace tul
