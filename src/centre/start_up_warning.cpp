#include "centre/start_up_warning.h"

#include "host/host.h"

namespace tul {

void startUpWarning(const std::string& text) {
    face().msgBox({.text = text, .icon = Icon::exclamation, .startUpWarning = true});
}

}  // namespace tul
