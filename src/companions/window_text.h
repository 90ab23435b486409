#pragma once

#include <QString>
#include <optional>
#include <string>
#include <string_view>

class QWidget;

/// What the windows of the companions have in common: texts and folders on their way to the user and back.
namespace tul::companion {

QString shown(std::string_view text);

/// The folder that the user typed, in the installation's form or the platform's; nothing when there is none.
std::optional<std::string> typedFolder(const QString& text);
/// A folder that the user looked for in the platform's own window, from `folder` on; nothing when cancelled.
std::optional<std::string> browsedFolder(QWidget& parent, const std::string& folder);
/// A folder as the toolkit's file functions take it.
QString nativeFolder(const std::string& folder);

}  // namespace tul::companion
