#pragma once

#include <string>

namespace tul {

/// The return button of a tool, which is the cancel button during a run. The flag and the caption are what
/// the run's loops and the panel see of it.
struct RunControl {
    std::string cancelFlag;                // empty while running; "cancel" asks the run to stop
    std::string returnCaption = "Return";  // "Cancel" during a run
    bool running = false;                  // the tool's other buttons are disabled meanwhile
    bool closed = false;                   // the panel was unloaded

    void beginRun();
    /// The loop is over: the button returns again. The other buttons wait until the report was read.
    void endLoop() { returnCaption = "Return"; }
    void endRun() { running = false; }
    bool cancelled() const { return !cancelFlag.empty(); }
    /// The button: asks a run to stop, or closes the panel when none is on. A second click while the run is
    /// still unwinding does nothing.
    void press();
};

}  // namespace tul
