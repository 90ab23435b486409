#include <QApplication>
#include <QIcon>
#include <iostream>

#include "companions/companion.h"
#include "companions/message_window.h"

// Shows what another companion has to tell: TULTELL.EXE refusal|report PROGRAM TEXT.
int main(int argc, char** argv) {
    using namespace tul::companion;
    if (argc != 4) {
        std::cerr << "TULTELL: refusal or report, a program's name and a text are needed.\n";
        return failed;
    }
    const std::string kind = argv[1];
    const QApplication application(argc, argv);
    QApplication::setWindowIcon(QIcon(":/tul.png"));
    MessageWindow(kind == "refusal", argv[2], argv[3]).exec();
    return done;
}
