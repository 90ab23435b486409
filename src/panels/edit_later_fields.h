#pragma once

#include <vector>

#include "shared/panel.h"

/// The controls of the edits that the general edit tool does not have in this version: they show their first
/// values and are disabled.
namespace tul::editlater {

std::vector<Field> laterFields();
void resetLaterFields();
std::vector<Command> laterCommands();
/// Shows in them what the project settings say of plate numbers and lyrics.
void showProjectSettings();

}  // namespace tul::editlater
