#pragma once

#include <string>

#include "host/interrupt.h"

namespace tul {

/// The return button of a tool, which is the cancel button during a run. Nothing else says that a run shall
/// stop. An interrupt of the process is a press of the button.
class RunControl {
  public:
    void begin();
    /// The loop is over: the button returns again. The other controls wait until the report was read.
    void endLoop() { isLooping_ = false; }
    void end() { isBusy_ = isLooping_ = false; }

    /// The button: asks a run to stop, or closes the panel when none is on. A second press while the run is
    /// still unwinding does nothing.
    void press();
    /// An answer within a page: the page in work is left as it is, too.
    void abandon() { isAbandoned_ = true; }

    /// The panel's other controls are disabled meanwhile.
    [[nodiscard]] bool isBusy() const { return isBusy_; }
    /// The run ends behind the page in work; a tool that changes nothing may end within it. Stays true until
    /// the next run.
    [[nodiscard]] bool isStopped() const {
        return isPressed_ || isAbandoned_ || (isBusy_ && isInterrupted());
    }
    /// The run ends now, and the page in work is not written.
    [[nodiscard]] bool isAbandoned() const { return isAbandoned_; }
    /// The panel was unloaded.
    [[nodiscard]] bool isClosed() const { return isClosed_; }
    /// Of the button: "Cancel" from the start of a run until it was pressed or the loop is over.
    [[nodiscard]] std::string caption() const { return isLooping_ && !isStopped() ? "Cancel" : "Return"; }

  private:
    bool isBusy_ = false;
    bool isLooping_ = false;
    bool isPressed_ = false;
    bool isAbandoned_ = false;
    bool isClosed_ = false;
};

}  // namespace tul
