#pragma once

#include <functional>
#include <string>

#include "host/face.h"

class QDialog;
class QString;
class QWidget;

namespace tul::desktop {

/// Shows a dialog and returns its result once it is closed. Every dialog of the desktop goes through one of
/// these, so that a test can be its user.
using DialogRunner = std::function<int(QDialog&)>;

int runModally(QDialog& dialog);

/// A message box with `speaker` in its title, in front of `parent`.
Answer askUser(const Message& message, const QString& speaker, QWidget* parent, const DialogRunner& run);
/// An input box; nothing when cancelled.
std::optional<std::string> askText(const std::string& prompt, const std::string& defaultText,
                                   const QString& speaker, QWidget* parent, const DialogRunner& run);

}  // namespace tul::desktop
