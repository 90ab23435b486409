#include "desktop/text_window.h"

#include <QAction>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScreen>
#include <QStyle>
#include <QTextBlock>
#include <QVBoxLayout>
#include <algorithm>

#include "base/text.h"
#include "desktop/qt_text.h"
#include "desktop/text_tools.h"
#include "host/host.h"

namespace tul::desktop {

namespace {

constexpr int fewestColumns = 80;
constexpr int rows = 32;

bool hasUpperHalf(const std::string& bytes) {
    return std::any_of(bytes.begin(), bytes.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) > 0x7F; });
}

}  // namespace

TextWindow::TextWindow(const std::string& path, QWidget* parent, DialogRunner run)
    : QDialog(parent, Qt::Window | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint),
      path_(path),
      run_(std::move(run)),
      text_(new QPlainTextEdit(this)) {
    setWindowTitle(shown(path_) + "[*]");
    text_->setObjectName("txtFile");
    const QString name = shown(fileNameOf(path_));
    auto* const tools = new TextTools(*text_, *this, name, name, run_);
    saveAction_ = new QAction("Save", this);
    saveAction_->setShortcut(QKeySequence::Save);
    tools->insertAction(tools->actions().front(), saveAction_);
    auto* const close = new QAction("Close", this);
    close->setShortcut(QKeySequence::Close);
    tools->insertAction(saveAction_, close);
    connect(close, &QAction::triggered, this, [this] { reject(); });
    connect(saveAction_, &QAction::triggered, this, [this] { save(); });

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(tools);
    layout->addWidget(text_);
    read();
    connect(text_->document(), &QTextDocument::modificationChanged, this, [this](bool on) {
        setWindowModified(on);
        saveAction_->setEnabled(on);
    });
    saveAction_->setEnabled(false);
    resize(wantedSize().boundedTo(QGuiApplication::primaryScreen()->availableSize() * 9 / 10));
    text_->setFocus();
}

/// The widest line is seen whole: the columns of a report go as far as its longest path.
QSize TextWindow::wantedSize() const {
    const QFontMetrics metrics(text_->font());
    const int scrollBar = 2 * style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    int columns = fewestColumns;
    for (QTextBlock line = text_->document()->begin(); line.isValid(); line = line.next())
        columns = std::max(columns, line.length());
    return {metrics.averageCharWidth() * columns + scrollBar, metrics.lineSpacing() * rows};
}

void TextWindow::read() {
    std::string bytes;
    if (files().read(path_, bytes) != FileError::none) {
        text_->setPlaceholderText(shown(path_) + " could not be read.");
        text_->setReadOnly(true);
        return;
    }
    isUtf8_ = hasUpperHalf(bytes) && toUtf8(bytes) == bytes;
    if (bytes.find("\r\n") == std::string::npos && bytes.find('\n') != std::string::npos) lineEnd_ = "\n";
    text_->setPlainText(shown(bytes));
}

bool TextWindow::save() {
    if (!isUtf8_ && !singleBytes(textOf(*text_))) {
        MsgBox("The text has characters that the file cannot hold: it is single-byte text (Windows-1252).",
               Buttons::ok, Icon::exclamation);
        return false;
    }
    const FileError error = files().replace(path_, fileBytes(*text_, isUtf8_, lineEnd_));
    if (error != FileError::none) {
        MsgBox(path_ + (error == FileError::readOnly ? " is read-only." : " could not be written."),
               Buttons::ok, Icon::exclamation);
        return false;
    }
    text_->document()->setModified(false);
    return true;
}

/// Every way of closing the window comes here.
void TextWindow::reject() {
    if (text_->document()->isModified()) {
        QMessageBox box(QMessageBox::Question, shown(fileNameOf(path_)), "Save the changes?",
                        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
        const int answer = run_(box);
        if (answer == QMessageBox::Save ? !save() : answer != QMessageBox::Discard) return;
    }
    QDialog::reject();
}

}  // namespace tul::desktop
