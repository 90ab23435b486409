#include "shared/run_control.h"

namespace tul {

void RunControl::beginRun() {
    returnCaption = "Cancel";
    cancelFlag.clear();
    running = true;
}

void RunControl::endRun() {
    returnCaption = "Return";
    running = false;
}

void RunControl::press() {
    if (returnCaption == "Cancel") {
        cancelFlag = "cancel";
        returnCaption = "Return";
    } else {
        closed = true;
    }
}

}  // namespace tul
