#include "companions/message_window.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <algorithm>

#include "companions/window_text.h"

namespace tul::companion {

namespace {

/// On the terminal it stands behind the program's name.
QString sentence(QString text) {
    if (!text.isEmpty()) text.front() = text.front().toUpper();
    return text;
}

constexpr int besideText = 120;  // icon and margins, in pixels

/// The toolkit breaks lines at 500 pixels, in the middle of a path, on whatever screen.
void keepLinesWhole(QLabel& label) {
    const int screen = QGuiApplication::primaryScreen()->availableSize().width();
    const int widestBox = std::min(screen - 480, 1000);  // the toolkit's own bound
    const int widestLine = label.fontMetrics().size(0, label.text()).width();
    label.setMinimumWidth(std::clamp(widestBox - besideText, 0, widestLine));
}

}  // namespace

MessageWindow::MessageWindow(bool isRefusal, const std::string& program, const std::string& text)
    : QMessageBox(isRefusal ? Warning : Information, shown(program), sentence(shown(text).trimmed()), Ok) {
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);  // a path in it can be copied
    auto* const label = findChild<QLabel*>("qt_msgbox_label");
    if (!label) return;
    if (!isRefusal) label->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));  // it has columns
    keepLinesWhole(*label);
}

}  // namespace tul::companion
