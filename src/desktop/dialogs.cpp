#include "desktop/dialogs.h"

#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <algorithm>

#include "desktop/qt_text.h"

namespace tul::desktop {

namespace {

QMessageBox::StandardButtons buttonsOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::okCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case Buttons::yesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case Buttons::yesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case Buttons::ok:
            break;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon iconOf(Icon icon) {
    switch (icon) {
        case Icon::information:
            return QMessageBox::Information;
        case Icon::question:
            return QMessageBox::Question;
        case Icon::exclamation:
            return QMessageBox::Warning;
        case Icon::critical:
            return QMessageBox::Critical;
        case Icon::none:
            break;
    }
    return QMessageBox::NoIcon;
}

Answer answerOf(int button, Buttons buttons) {
    switch (button) {
        case QMessageBox::Ok:
            return Answer::ok;
        case QMessageBox::Yes:
            return Answer::yes;
        case QMessageBox::No:
            return Answer::no;
        default:  // closed with the window's own button
            break;
    }
    if (buttons == Buttons::ok) return Answer::ok;
    return buttons == Buttons::yesNo ? Answer::no : Answer::cancel;
}

constexpr int besideText = 120;  // icon and margins, in pixels

/// The toolkit breaks lines at 500 pixels, in the middle of a path, on whatever screen.
void keepLinesWhole(QMessageBox& box) {
    auto* const label = box.findChild<QLabel*>("qt_msgbox_label");
    if (!label) return;
    const int screen = QGuiApplication::primaryScreen()->availableSize().width();
    const int widestBox = std::min(screen - 480, 1000);  // the toolkit's own bound
    const int widestLine = label->fontMetrics().size(0, box.text()).width();
    label->setMinimumWidth(std::clamp(widestBox - besideText, 0, widestLine));
}

}  // namespace

int runModally(QDialog& dialog) { return dialog.exec(); }

Answer askUser(const Message& message, const QString& speaker, QWidget* parent, const DialogRunner& run) {
    QMessageBox box(iconOf(message.icon), speaker, shown(message.text), buttonsOf(message.buttons), parent);
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);  // a path in it can be copied
    keepLinesWhole(box);
    return answerOf(run(box), message.buttons);
}

std::optional<std::string> askText(const std::string& prompt, const std::string& defaultText,
                                   const QString& speaker, QWidget* parent, const DialogRunner& run) {
    QInputDialog box(parent);
    box.setWindowTitle(speaker);
    box.setLabelText(shown(prompt));
    box.setTextValue(shown(defaultText));
    if (run(box) != QDialog::Accepted) return std::nullopt;
    // What was not touched goes back as it was, whatever its bytes are.
    return box.textValue() == shown(defaultText) ? defaultText : typed(box.textValue());
}

}  // namespace tul::desktop
