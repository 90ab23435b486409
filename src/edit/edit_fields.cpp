#include "edit/edit_fields.h"

#include <utility>

#include "edit/edit_run.h"

namespace tul::edit {

bool isIdle() { return !editing.control.running; }

Field textField(const char* name, std::string& value, const char* prompt, Keep keep) {
    return {.name = name,
            .kind = FieldKind::text,
            .value = &value,
            .prompt = std::string(prompt),
            .accept = std::move(keep),
            .enabled = isIdle};
}

Field textField(const char* name, std::string& value, const char* prompt) {
    return textField(name, value, prompt, nullptr);
}

Field keptField(const char* name, std::string& value, const char* prompt,
                std::string (*keep)(const std::string& typed, const std::string& present)) {
    return textField(name, value, prompt,
                     [&value, keep](const std::string& typed) { return keep(typed, value); });
}

Field checkField(const char* name, bool& value) {
    return {.name = name, .kind = FieldKind::check, .value = &value, .enabled = isIdle};
}

Field optionField(const char* frame, const char* name, bool& value) {
    return {.name = name, .kind = FieldKind::option, .value = &value, .group = frame, .enabled = isIdle};
}

Field onlyIf(Field field, std::function<bool()> condition) {
    field.enabled = [condition = std::move(condition)] { return isIdle() && condition(); };
    return field;
}

Field withStep(Field field, void (*step)()) {
    field.accept = [step](const std::string& typed) {
        step();
        return typed;
    };
    return field;
}

}  // namespace tul::edit
