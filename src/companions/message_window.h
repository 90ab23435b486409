#pragma once

#include <QMessageBox>
#include <string>

namespace tul::companion {

/// The window in which a companion without windows of its own tells the user something. `isRefusal`: why it
/// could not do its work; otherwise what it has done.
class MessageWindow : public QMessageBox {
  public:
    MessageWindow(bool isRefusal, const std::string& program, const std::string& text);
};

}  // namespace tul::companion
