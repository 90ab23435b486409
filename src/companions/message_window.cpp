#include "companions/message_window.h"

#include <QFontDatabase>
#include <QLabel>

#include "companions/window_text.h"

namespace tul::companion {

namespace {

/// On the terminal it stands behind the program's name.
QString sentence(QString text) {
    if (!text.isEmpty()) text.front() = text.front().toUpper();
    return text;
}

/// A report has columns.
void useFixedFont(const QMessageBox& box) {
    for (QLabel* const label : box.findChildren<QLabel*>())
        if (label->text() == box.text()) label->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
}

}  // namespace

MessageWindow::MessageWindow(bool isRefusal, const std::string& program, const std::string& text)
    : QMessageBox(isRefusal ? Warning : Information, shown(program), sentence(shown(text).trimmed()), Ok) {
    if (!isRefusal) useFixedFont(*this);
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);  // a path in it can be copied
}

}  // namespace tul::companion
