#include "shared/panel.h"

#include <algorithm>
#include <variant>

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

}  // namespace

Field* Panel::field(std::string_view fieldName) { return findByName(fields, fieldName); }

Command* Panel::command(std::string_view commandName) { return findByName(commands, commandName); }

PanelAnswer Panel::set(std::string_view fieldName, const std::string& text) {
    const Field* const target = field(fieldName);
    if (!target) return PanelAnswer::unknown;
    if (!isOpen(*target) || target->isReadOnly()) return PanelAnswer::disabled;
    const PanelAnswer answer =
        std::visit([&](const auto& kind) { return kind.take(text, fields); }, target->kind);
    if (answer == PanelAnswer::done && target->changed) target->changed();
    return answer;
}

PanelAnswer Panel::click(std::string_view fieldName) {
    const Field* const target = field(fieldName);
    if (!target) return PanelAnswer::unknown;
    if (!isOpen(*target)) return PanelAnswer::disabled;
    if (target->click) {
        target->click();
        return PanelAnswer::done;
    }
    if (!std::holds_alternative<TextKind>(target->kind) || target->prompt().empty())
        return PanelAnswer::disabled;
    const auto typed = InputBox(target->prompt(), target->text());
    if (!typed && !target->cancelEmpties) return PanelAnswer::done;
    return set(fieldName, typed.value_or(std::string()));
}

PanelAnswer Panel::press(std::string_view commandName) {
    const Command* const target = command(commandName);
    if (!target) return PanelAnswer::unknown;
    if (closed() || !target->visible() || !isEnabled(*target)) return PanelAnswer::disabled;
    target->run();
    return PanelAnswer::done;
}

PanelAnswer Panel::drop(const std::vector<std::string>& files) {
    if (!canTakeFiles()) return PanelAnswer::disabled;
    takeFiles(files);
    return PanelAnswer::done;
}

}  // namespace tul
