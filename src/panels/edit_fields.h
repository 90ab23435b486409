#pragma once

#include <functional>
#include <string>
#include <vector>

#include "shared/panel.h"

/// The fields of `frmEdit`, a list for each family of edits. All are disabled during a run.
namespace tul::editfields {

bool isIdle();

using Keep = std::function<std::string(const std::string& typed)>;
Field text(const char* name, std::string& value, const char* prompt, Keep keep);
/// A text that is taken as it was typed.
Field text(const char* name, std::string& value, const char* prompt);
Field check(const char* name, bool& value);
Field option(const char* frame, const char* name, bool& value);
/// The same field, enabled only as long as `condition` holds as well.
Field onlyIf(Field field, std::function<bool()> condition);

/// Tab "Text (16)".
std::vector<Field> textSearchFields();
std::vector<Field> textFontsFields();
/// Tab "General".
std::vector<Field> generalFields();

/// The controls of the edits that this version does not have: they show their first values and are disabled.
std::vector<Field> laterFields();
std::vector<Command> laterCommands();
/// Shows in them what the project settings say of plate numbers and lyrics.
void showProjectSettings();

}  // namespace tul::editfields
