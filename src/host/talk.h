#pragma once

#include <optional>
#include <string>

namespace tul {

/// Where the programs of the installation talk to the user: where the program talks that started them.
enum class Talk { windows, terminal };

/// For every process that this one starts from now on.
void setTalkOfChildren(Talk talk);
/// What the process that started this one has set; nothing where a user or a script did.
[[nodiscard]] std::optional<Talk> inheritedTalk();

/// True when a window could be shown.
bool hasDisplay();

enum class Stream { input, output, error };
/// True when a standard stream leads to a terminal.
bool isTerminal(Stream stream);

/// The arguments of this process as the one text that they were: the words of `main`, joined with blanks
/// where the platform has split them.
std::string argumentText(int argc, char** argv);

}  // namespace tul
