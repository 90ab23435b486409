#pragma once

#include <QDialog>
#include <string>

#include "desktop/dialogs.h"

class QAction;
class QPlainTextEdit;

namespace tul::desktop {

/// Shows a text file and lets the user edit and save it: the editor where the machine has none of its own.
class TextWindow : public QDialog {
  public:
    TextWindow(const std::string& path, QWidget* parent, DialogRunner run);

    void reject() override;

  private:
    QSize wantedSize() const;
    void read();
    /// False when the disk did not take it; the user was told.
    bool save();

    std::string path_;
    DialogRunner run_;
    QPlainTextEdit* text_;
    QAction* saveAction_ = nullptr;
    bool isUtf8_ = false;  // how the file's own bytes are to be read
    std::string lineEnd_ = "\r\n";
};

}  // namespace tul::desktop
