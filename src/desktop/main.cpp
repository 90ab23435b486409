#include <QApplication>
#include <QIcon>
#include <QTimer>

#include "centre/start_up.h"
#include "desktop/desktop_face.h"
#include "desktop/panel_window.h"
#include "host/host.h"
#include "host/talk.h"
#include "panels/fresh_process.h"

namespace {

/// Ends the program once the main panel has been painted: the benchmark measures the start with it.
class PaintWatch : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) QTimer::singleShot(0, qApp, &QApplication::quit);
        return false;
    }
};

}  // namespace

int main(int argc, char** argv) {
    using namespace tul;
    QApplication application(argc, argv);
    QApplication::setApplicationName("TUL");
    QApplication::setWindowIcon(QIcon(":/tul.png"));
    QApplication::setQuitOnLastWindowClosed(false);

    setTalkOfChildren(Talk::windows);
    const auto machine = openNativeMachine();
    desktop::DesktopFace face;
    Host host = machine->host();
    host.face = &face;
    installHost(host);
    freshProcess();
    if (!files().changeFolder(machine->programFolder())) {
        MsgBox(
            "The installation folder cannot be entered. Its path may have a letter that this system has no "
            "single byte for: move the folder to another place.",
            Buttons::ok, Icon::critical);
        return 1;
    }
    StartUp();
    face.settle();

    PaintWatch watch;
    if (QApplication::arguments().value(1) == "--quit-when-painted") face.front()->installEventFilter(&watch);
    return QApplication::exec();
}
