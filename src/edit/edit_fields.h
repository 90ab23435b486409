#pragma once

#include <functional>
#include <string>

#include "shared/panel.h"

/// Builders of the fields that the families of the general edit tool bring. All fields are disabled during a
/// run.
namespace tul::edit {

bool isIdle();

using Keep = std::function<std::string(const std::string& typed)>;
Field textField(const char* name, std::string& value, const char* prompt, Keep keep);
/// A text that is taken as it was typed.
Field textField(const char* name, std::string& value, const char* prompt);
/// A text whose validator may leave the present one.
Field keptField(const char* name, std::string& value, const char* prompt,
                std::string (*keep)(const std::string& typed, const std::string& present));
Field checkField(const char* name, bool& value);
Field optionField(const char* frame, const char* name, bool& value);

/// The same field, enabled only as long as `condition` holds as well.
Field onlyIf(Field field, std::function<bool()> condition);
/// The same box or option with a step of its own behind a click.
Field withStep(Field field, void (*step)());

}  // namespace tul::edit
