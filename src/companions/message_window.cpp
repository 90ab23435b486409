#include "companions/message_window.h"

#include "companions/window_text.h"

namespace tul::companion {

MessageWindow::MessageWindow(bool isRefusal, const std::string& program, const std::string& text)
    : QMessageBox(isRefusal ? Warning : Information, shown(program), shown(text).trimmed(), Ok) {
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);  // a path in it can be copied
}

}  // namespace tul::companion
