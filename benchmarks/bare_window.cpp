#include <QApplication>
#include <QMainWindow>
#include <QTimer>

// A window with nothing in it, gone as soon as it is painted: the least that a start can take.
namespace {

class BareWindow : public QMainWindow {
  protected:
    void paintEvent(QPaintEvent* event) override {
        QMainWindow::paintEvent(event);
        QTimer::singleShot(0, qApp, &QApplication::quit);
    }
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    BareWindow window;
    window.show();
    return QApplication::exec();
}
