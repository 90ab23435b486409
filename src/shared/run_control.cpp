#include "shared/run_control.h"

#include "host/interrupt.h"

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

bool RunControl::isStopped() const { return isPressed_ || isAbandoned_ || (isBusy_ && isInterrupted()); }

}  // namespace tul
