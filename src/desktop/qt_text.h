#pragma once

#include <QString>
#include <optional>
#include <string>
#include <string_view>

/// Texts on their way between the records and the windows.
namespace tul::desktop {

/// As a window shows it: valid UTF-8 as such, anything else as Windows-1252.
QString shown(std::string_view text);

/// In single bytes; nothing when a character has no place in Windows-1252.
std::optional<std::string> singleBytes(const QString& text);

/// What a user typed: in single bytes, or in UTF-8 when it has characters beyond them.
std::string typed(const QString& text);

/// A caption without its mnemonic.
QString withoutMnemonic(QString caption);
/// A text as a caption that shows each of its ampersands.
QString asCaption(std::string_view text);

}  // namespace tul::desktop
