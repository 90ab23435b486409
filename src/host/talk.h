#pragma once

#include <optional>

namespace tul {

/// Where the programs of the installation talk to the user: where the program talks that started them.
enum class Talk { windows, terminal };

/// For every process that this one starts from now on.
void setTalkOfChildren(Talk talk);
/// What the process that started this one has set; nothing where a user or a script did.
std::optional<Talk> inheritedTalk();

/// True when a window could be shown.
bool hasDisplay();

}  // namespace tul
