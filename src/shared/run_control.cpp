#include "shared/run_control.h"

namespace tul {

void RunControl::begin() {
    isBusy_ = isLooping_ = true;
    isPressed_ = isAbandoned_ = false;
}

void RunControl::press() {
    if (!isBusy_)
        isClosed_ = true;
    else if (isLooping_)
        isPressed_ = true;
}

}  // namespace tul
