#include "desktop/control_centre.h"

#include <QApplication>
#include <QIcon>

#include "centre/start_up.h"
#include "desktop/desktop_face.h"
#include "desktop/panel_window.h"
#include "host/host.h"
#include "host/talk.h"
#include "panels/fresh_process.h"

namespace tul::desktop {

int runControlCentre(int argc, char** argv, const std::function<void(QWidget&)>& whenShown) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("TUL");
    QApplication::setWindowIcon(QIcon(":/tul.png"));
    QApplication::setQuitOnLastWindowClosed(false);

    setTalkOfChildren(Talk::windows);
    const auto machine = openNativeMachine();
    DesktopFace face;
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
    if (face.front()) whenShown(*face.front());
    return QApplication::exec();
}

}  // namespace tul::desktop
