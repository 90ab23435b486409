#include "desktop/panel_window.h"

#include <QCloseEvent>
#include <QFontDatabase>
#include <QFontInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTabWidget>
#include <QWindow>
#include <algorithm>

#include "base/text.h"
#include "centre/debug_summary.h"
#include "centre/panel_place.h"
#include "centre/viewing.h"
#include "desktop/forms.h"
#include "desktop/qt_text.h"
#include "desktop/screen_places.h"
#include "desktop/scrolling.h"
#include "desktop/text_tools.h"
#include "panels/panel_list.h"

namespace tul::desktop {

namespace {

constexpr double headingScale = 1.4;

/// What closes a panel: its return button, or the main panel's exit.
std::string returnCommand(const Panel& panel) {
    for (const Command& command : panel.commands)
        if (command.name.ends_with("Return") || command.name == "cmdExit") return command.name;
    return {};
}

QPushButton* defaultButton(const QWidget& window) {
    for (QPushButton* const button : window.findChildren<QPushButton*>())
        if (button->isDefault()) return button;
    return nullptr;
}

}  // namespace

PanelWindow::PanelWindow(Panel panel, Binder::Act act, const DialogRunner& run)
    : panel_(std::move(panel)), act_(std::move(act)) {
    setUpForm(panel_.name, *this);
    contents_ = centralWidget()->layout();
    result_ = findChild<QLabel*>("result");
    auto* const text = findChild<QPlainTextEdit*>();
    if (!text) letScroll(*this);
    binder_ = std::make_unique<Binder>(*this, panel_, act_);
    setWindowTitle(shown(panel_.caption));
    enlargeHeadings();
    alignColumns();
    if (text) addToolBar(new TextTools(*text, *this, windowTitle(), QString(), run));
}

void PanelWindow::showResult(const RunResult& result) {
    if (!result_) return;
    result_->setText(shown(summaryOf(result)));
    result_->setToolTip(result_->text());  // it may be longer than the row
}

void PanelWindow::enlargeHeadings() {
    for (QLabel* const label : findChildren<QLabel*>()) {
        if (!label->property("heading").toBool()) continue;
        QFont font = label->font();
        font.setPointSizeF(QFontInfo(font).pointSizeF() * headingScale);
        label->setFont(font);
    }
}

void PanelWindow::alignColumns() {
    for (QListWidget* const list : findChildren<QListWidget*>())
        if (list->property("columns").toBool())
            list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
}

void PanelWindow::refresh() {
    QWidget* const focused = focusWidget();
    const QPushButton* const run = defaultButton(*this);
    const bool couldRun = !run || run->isEnabled();
    if (result_ && panel_.busy()) result_->clear();
    // Where one part takes the place of another both would be there for a moment, and the window would grow.
    contents_->setEnabled(false);
    binder_->refresh();
    contents_->setEnabled(true);
    keepFocus(focused, couldRun);
}

/// A button that a command disables hands the focus to its neighbour, which Enter would press next. Run gets
/// the focus when it has become possible.
void PanelWindow::keepFocus(QWidget* focused, bool couldRun) {
    QPushButton* const run = defaultButton(*this);
    if (run && run->isEnabled() && !couldRun)
        run->setFocus();
    else if (focused && !focused->isEnabled() && focusWidget() != focused)
        setFocus();
}

/// X11 keeps a hint to show a window minimized, which the toolkit writes anew only when it changes the state
/// itself, not when the user has restored the window.
void PanelWindow::bringBack() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    if (QWindow* const handle = windowHandle(); handle && !isVisible()) {
        const Qt::WindowStates states = handle->windowStates() & ~Qt::WindowMinimized;
        handle->setWindowStates(states ^ Qt::WindowMaximized);
        handle->setWindowStates(states);
    }
    show();
}

void PanelWindow::showInPlace(const QWidget* before) {
    refresh();
    if (before) setScreen(before->screen());
    if (isMaximized()) return fill(screen()->availableGeometry());
    needed_ = sizeHint().boundedTo(room());
    QSize wanted = needed_;
    if (const PanelPlace* const place =
            panel_.place)  // the size that all tools share; it grows with the scale
        wanted = wanted.expandedTo({place->width / twipsPerPixel, place->height / twipsPerPixel});
    resize(wanted.boundedTo(room()));
    if (panel_.place) {
        rememberSize();
        if (panel_.place->centred) centrePanel(*panel_.place);
        followPlace();
    } else if (before) {
        move(before->frameGeometry().center() - rect().center());
    }
    show();
    focusFirst();
}

/// What the screen has for a window without its frame, which is not known everywhere before the window
/// stands.
QSize PanelWindow::room() const {
    const QSize titleBar(0, style()->pixelMetric(QStyle::PM_TitleBarHeight));
    return screen()->availableSize() - (frameGeometry().size() - size()).expandedTo(titleBar);
}

/// A window that shows its whole form grows with it. One that the user has made smaller scrolls.
void PanelWindow::growWithForm() {
    const QSize before = needed_;
    needed_ = sizeHint().boundedTo(room());
    const bool showsAll = size().expandedTo(before) == size();
    if (showsAll && needed_ != before && isVisible() && !isMaximized()) resize(size().expandedTo(needed_));
}

/// Not every screen has a window manager that enlarges windows.
void PanelWindow::fill(const QRect& area) {
    setGeometry(area);
    show();
    focusFirst();
}

/// What the window then has is the panel's place.
bool PanelWindow::standsFreely() const {
    return panel_.place && isVisible() && !isMinimized() && !isMaximized();
}

/// The middle of the screen and its right edge are reckoned from the size that the window has.
void PanelWindow::rememberSize() {
    panel_.place->width = toTwips(frameGeometry().width());
    panel_.place->height = toTwips(frameGeometry().height());
}

void PanelWindow::followPlace() {
    if (!panel_.place) return;
    const QPoint wanted(toPixels(panel_.place->left), toPixels(panel_.place->top));
    if (wanted == lastPlace_ && isVisible()) return;
    lastPlace_ = wanted;
    move(onAScreen(QRect(wanted, frameGeometry().size())));
}

void PanelWindow::focusFirst() {
    const QString wanted = QString::fromStdString(panel_.focus());
    auto* first = wanted.isEmpty() ? nullptr : findChild<QWidget*>(wanted);
    for (QPushButton* const button : findChildren<QPushButton*>())
        if (button->isEnabled() && button->isVisible() &&
            (!first || (wanted.isEmpty() && button->isDefault())))
            first = button;
    if (first) first->setFocus();
}

void PanelWindow::pressReturn() {
    const std::string name = returnCommand(panel_);
    act_([this, name] { panel_.press(name); });
}

bool PanelWindow::event(QEvent* event) {
    const bool done = QMainWindow::event(event);
    if (event->type() == QEvent::LayoutRequest) growWithForm();
    return done;
}

/// The window goes when the panel has closed.
void PanelWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    pressReturn();
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::HelpContents))
        return act_([this] { ShowUserGuide(findPanel(panel_.name)->guide); });
    if (turnTab(*event)) return;
    if (event->key() == Qt::Key_Escape && panel_.name != "frmLogo") return pressReturn();
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        return QMainWindow::keyPressEvent(event);
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (!button) button = defaultButton(*this);
    if (button) button->click();
}

/// Ctrl+Tab, wherever the focus is.
bool PanelWindow::turnTab(const QKeyEvent& event) {
    const bool back = event.key() == Qt::Key_Backtab;
    auto* const tabs = findChild<QTabWidget*>();
    if (!tabs || !(event.modifiers() & Qt::ControlModifier) || (!back && event.key() != Qt::Key_Tab))
        return false;
    tabs->setCurrentIndex((tabs->currentIndex() + (back ? tabs->count() - 1 : 1)) % tabs->count());
    return true;
}

void PanelWindow::mouseDoubleClickEvent(QMouseEvent*) { act_(ShowDetailsBox); }

void PanelWindow::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    if (!standsFreely()) return;
    rememberSize();
    lastPlace_ = pos();
    panel_.place->left = toTwips(pos().x());
    panel_.place->top = toTwips(pos().y());
}

void PanelWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (standsFreely()) rememberSize();
}

}  // namespace tul::desktop
