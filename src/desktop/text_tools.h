#pragma once

#include <QToolBar>

#include "desktop/dialogs.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace tul::desktop {

/// What every window with a text offers: a fixed font, copying, searching, printing, and saving a copy.
class TextTools : public QToolBar {
  public:
    /// `title` heads a printed page; `copyName` is offered for a copy.
    TextTools(QPlainTextEdit& text, QWidget& window, QString title, QString copyName, DialogRunner run);

    /// Moves to the next place of the search field's text, from the end on to the start again.
    void find(bool backward);

  private:
    void addSearch();
    void print();
    void saveCopy();

    QPlainTextEdit& text_;
    QString title_;
    QString copyName_;
    DialogRunner run_;
    QLineEdit* search_ = nullptr;
    QLabel* searchState_ = nullptr;
};

/// The text of an editor, its lines ended by LF. An editor's own plain text loses the hard blanks.
QString textOf(const QPlainTextEdit& editor);
/// The same as a file's bytes: single-byte text where that holds it and `asUtf8` does not ask otherwise.
std::string fileBytes(const QPlainTextEdit& editor, bool asUtf8, const std::string& lineEnd);

}  // namespace tul::desktop
