#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include "desktop/control_centre.h"

// The control centre, gone as soon as its main panel is painted: what a start takes.
namespace {

class PaintWatch : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) QTimer::singleShot(0, qApp, &QApplication::quit);
        return false;
    }
};

}  // namespace

int main(int argc, char** argv) {
    PaintWatch watch;
    return tul::desktop::runControlCentre(
        argc, argv, [&watch](QWidget& mainPanel) { mainPanel.installEventFilter(&watch); });
}
