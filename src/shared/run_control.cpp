#include "shared/run_control.h"

namespace tul {

void RunControl::beginRun() {
    returnCaption = "Cancel";
    cancelFlag.clear();
    running = true;
}

void RunControl::press() {
    if (returnCaption == "Cancel") {
        cancelFlag = "cancel";
        returnCaption = "Return";
    } else if (!running) {
        closed = true;
    }
}

}  // namespace tul
