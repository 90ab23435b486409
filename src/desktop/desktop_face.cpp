#include "desktop/desktop_face.h"

#include <QApplication>
#include <cstdlib>
#include <exception>

#include "centre/main_panel.h"
#include "centre/panel_place.h"
#include "desktop/forms.h"
#include "desktop/guide_window.h"
#include "desktop/panel_window.h"
#include "desktop/qt_text.h"
#include "desktop/screen_places.h"
#include "desktop/text_window.h"
#include "host/host.h"
#include "panels/panel_list.h"
#include "shared/run_result.h"

namespace tul::desktop {

namespace {

/// A dialog is answered with the normal pointer, whatever is waited for behind it.
class NormalPointer {
  public:
    NormalPointer() {
        if (const QCursor* const present = QApplication::overrideCursor()) {
            cursor_ = *present;
            QApplication::restoreOverrideCursor();
        }
    }
    ~NormalPointer() {
        if (cursor_) QApplication::setOverrideCursor(*cursor_);
    }
    NormalPointer(const NormalPointer&) = delete;
    NormalPointer& operator=(const NormalPointer&) = delete;

  private:
    std::optional<QCursor> cursor_;
};

}  // namespace

DesktopFace::DesktopFace(DialogRunner run)
    : run_([this, run = std::move(run)](QDialog& dialog) {
          const NormalPointer pointer;
          if (front()) front()->refresh();  // what the dialog speaks of is what the panel shows
          return run(dialog);
      }) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { fireTimer(); });
    timer_.start(placeSavingInterval);
}

DesktopFace::~DesktopFace() {
    for (PanelWindow* const window : windows_) delete window;
}

Answer DesktopFace::msgBox(const Message& message) {
    return askUser(message, speaker(message.title), visibleWindow(), run_);
}

std::optional<std::string> DesktopFace::inputBox(const std::string& prompt, const std::string& defaultText) {
    return askText(prompt, defaultText, speaker({}), visibleWindow(), run_);
}

void DesktopFace::showText(const std::string& path) {
    TextWindow window(path, visibleWindow(), run_);
    run_(window);
}

void DesktopFace::showGuide(const std::string& path) {
    if (!guide_) guide_ = std::make_unique<GuideWindow>();
    guide_->turnTo(path);
}

void DesktopFace::openPanel(const std::string& name) {
    for (PanelWindow* const window : windows_)
        if (window->panel().name == name) return;
    PanelWindow* const before = front();
    auto* const window = new PanelWindow(
        findPanel(name)->make(), [this](const std::function<void()>& what) { act(what); }, run_);
    windows_.push_back(window);
    if (window->panel().load) window->panel().load();
    if (window->panel().closed()) return settle();
    window->showInPlace(before);
    if (before) before->hide();
}

std::string DesktopFace::frontCaption() const {
    return front() ? front()->panel().caption : mainPanel.caption;
}

void DesktopFace::minimizePanel() {
    if (front()) front()->showMinimized();
}

void DesktopFace::setPanelVisible(bool visible) {
    if (!front()) return;
    if (visible)
        front()->bringBack();
    else
        front()->hide();
    QApplication::processEvents(
        QEventLoop::ExcludeUserInputEvents);  // the screen is free before a program starts
}

void DesktopFace::setPointer(Pointer pointer) {
    while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
    if (pointer == Pointer::waiting) QApplication::setOverrideCursor(Qt::WaitCursor);
}

std::optional<ScreenSize> DesktopFace::screen() const { return screenSize(); }

void DesktopFace::yield() {
    if (front()) front()->refresh();
    QApplication::processEvents();
}

/// Keys and clicks are kept for later. The timer, and the closing of a window, come to nothing.
void DesktopFace::showWaiting() {
    isWaiting_ = true;
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    isWaiting_ = false;
}

void DesktopFace::endProgram(int status) { std::_Exit(status); }

/// Runs what the user did on a window. A fault of the program is told, and the window stays usable.
void DesktopFace::act(const std::function<void()>& what) {
    if (isWaiting_) return;
    runResults.clear();
    try {
        what();
    } catch (const std::exception& fault) {
        MsgBox(std::string("The program met a fault of its own: ") + fault.what(), Buttons::ok,
               Icon::critical);
    }
    settle();
}

void DesktopFace::settle() {
    while (front() && front()->panel().closed()) closeFront();
    if (!front()) return;
    front()->refresh();
    front()->followPlace();
    if (!runResults.empty()) front()->showResult(runResults.back());
}

void DesktopFace::closeFront() {
    PanelWindow* const closed = front();
    windows_.pop_back();
    if (front()) front()->bringBack();
    closed->hide();
    closed->deleteLater();  // one of its buttons may be what was pressed
    if (closed->panel().unload) closed->panel().unload();
}

/// What dialogs stand in front of.
QWidget* DesktopFace::visibleWindow() const {
    if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
    for (auto window = windows_.rbegin(); window != windows_.rend(); ++window)
        if ((*window)->isVisible()) return *window;
    return nullptr;
}

/// The title of a dialog: which tool speaks. A caption goes on with what the tool is for.
QString DesktopFace::speaker(const std::string& title) const {
    return title.empty() ? shown(frontCaption()).section(" - ", 0, 0) : shown(title);
}

void DesktopFace::fireTimer() {
    if (isWaiting_ || !front() || !front()->isVisible()) return;
    if (front()->panel().press("Timer1") == PanelAnswer::done) front()->refresh();  // a tip tells the place
}

}  // namespace tul::desktop
