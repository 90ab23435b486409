#include "desktop/text_tools.h"

#include <QAction>
#include <QFile>
#include <QFileDialog>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>

#include "desktop/qt_text.h"
#include "host/host.h"

namespace tul::desktop {

TextTools::TextTools(QPlainTextEdit& text, QWidget& window, QString title, QString copyName, DialogRunner run)
    : QToolBar(&window),
      text_(text),
      title_(std::move(title)),
      copyName_(std::move(copyName)),
      run_(std::move(run)) {
    text_.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    text_.setLineWrapMode(QPlainTextEdit::NoWrap);
    if (text_.isReadOnly())
        text_.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setMovable(false);
    setToolButtonStyle(Qt::ToolButtonTextOnly);
    setContextMenuPolicy(Qt::PreventContextMenu);

    const auto add = [this](const QString& caption, const QKeySequence& key, auto handler) {
        QAction* const action = addAction(caption);
        action->setShortcut(key);
        action->setToolTip(caption + " (" + key.toString(QKeySequence::NativeText) + ")");
        connect(action, &QAction::triggered, this, handler);
    };
    // The text itself copies on the usual key.
    connect(addAction("Copy"), &QAction::triggered, &text_, [this] {
        if (!text_.textCursor().hasSelection()) text_.selectAll();
        text_.copy();
    });
    add("Print...", QKeySequence::Print, [this] { print(); });
    add("Save a copy...", QKeySequence("Ctrl+Shift+S"), [this] { saveCopy(); });
    addSearch();
    add("Next", QKeySequence("F3"), [this] { find(false); });
    add("Previous", QKeySequence("Shift+F3"), [this] { find(true); });
    searchState_ = new QLabel(this);
    addWidget(searchState_);
}

void TextTools::addSearch() {
    addSeparator();
    search_ = new QLineEdit(this);
    search_->setPlaceholderText("Find (Ctrl+F)");
    search_->setClearButtonEnabled(true);
    search_->setMaximumWidth(search_->fontMetrics().averageCharWidth() * 40);
    addWidget(search_);
    connect(search_, &QLineEdit::returnPressed, this, [this] { find(false); });
    connect(search_, &QLineEdit::textChanged, this, [this] { searchState_->clear(); });
    auto* const toSearch = new QAction(this);
    toSearch->setShortcut(QKeySequence::Find);
    connect(toSearch, &QAction::triggered, search_, [this] {
        const QString selected = text_.textCursor().selectedText();
        if (!selected.isEmpty()) search_->setText(selected);
        search_->setFocus();
        search_->selectAll();
    });
    parentWidget()->addAction(toSearch);
}

void TextTools::find(bool backward) {
    const QString wanted = search_->text();
    if (wanted.isEmpty()) return;
    const QTextDocument::FindFlags flags =
        backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    searchState_->clear();
    if (text_.find(wanted, flags)) return;
    const QTextCursor present = text_.textCursor();
    text_.moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
    if (text_.find(wanted, flags)) return;
    text_.setTextCursor(present);
    searchState_->setText("  not found");
}

void TextTools::print() {
    QPrinter printer;
    printer.setDocName(title_);
    QPrintDialog dialog(&printer, window());
    if (run_(dialog) == QDialog::Accepted) text_.document()->print(&printer);
}

void TextTools::saveCopy() {
    QFileDialog dialog(window(), "Save a copy");
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.selectFile(copyName_);
    if (run_(dialog) != QDialog::Accepted) return;
    const std::string native = QFile::encodeName(dialog.selectedFiles().value(0)).toStdString();
    const auto path = files().fromNative(native);
    if (!path || files().replace(*path, fileBytes(text_, false, "\r\n")) != FileError::none)
        MsgBox(native + " could not be written.", Buttons::ok, Icon::exclamation);
}

QString textOf(const QPlainTextEdit& editor) {
    return editor.document()
        ->toRawText()
        .replace(QChar::ParagraphSeparator, '\n')
        .replace(QChar::LineSeparator, '\n');
}

std::string fileBytes(const QPlainTextEdit& editor, bool asUtf8, const std::string& lineEnd) {
    const QString text = textOf(editor).replace(QString("\n"), QString::fromStdString(lineEnd));
    return asUtf8 ? text.toStdString() : typed(text);
}

}  // namespace tul::desktop
