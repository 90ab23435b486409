#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/clock.h"
#include "host/face.h"
#include "host/files.h"
#include "host/platform.h"
#include "host/processes.h"
#include "host/profile.h"

namespace tul {

/// Everything that the machine and the user offer. A `main` puts one together and installs it; the parts
/// outlive its use.
struct Host {
    Files* files = nullptr;
    Processes* processes = nullptr;
    Profile* profile = nullptr;
    Clock* clock = nullptr;
    Platform* platform = nullptr;
    Face* face = nullptr;
};

void installHost(const Host& host);

Files& files();
Processes& processes();
Profile& profile();
Clock& clock();
Platform& platform();
Face& face();

/// The machine that the program was built for.
class NativeMachine {
  public:
    virtual ~NativeMachine() = default;
    /// All parts but the face.
    virtual Host host() = 0;
    /// The folder in which the running program lies, in the installation's form.
    virtual std::string programFolder() const = 0;
};
[[nodiscard]] std::unique_ptr<NativeMachine> openNativeMachine();

/// Shows a text and returns the button that was pressed.
Answer MsgBox(std::string text, Buttons buttons = Buttons::ok, Icon icon = Icon::none);
/// Asks for a text, with the present one as default; nothing when cancelled.
[[nodiscard]] std::optional<std::string> InputBox(const std::string& prompt, const std::string& defaultText);
/// Shows a critical message and ends the program.
[[noreturn]] void endWith(const std::string& text);
/// The end after a fatal message: nothing is saved, no work file is cleaned up.
[[noreturn]] void endProgram();
/// The user's own end of the program.
[[noreturn]] void leaveProgram();

/// Lets pending events run so that panels repaint and a cancel button works; at most once in some
/// milliseconds, so that a loop may call it for each item.
void yieldToEvents();
/// Called now and then while a program is waited for: windows are repainted, where there are any.
void showWaiting();

/// The waiting pointer, for as long as this lives.
class WaitingPointer {
  public:
    WaitingPointer();
    ~WaitingPointer();
    WaitingPointer(const WaitingPointer&) = delete;
    WaitingPointer& operator=(const WaitingPointer&) = delete;
};

/// The panel in front is hidden for as long as this lives.
class HiddenPanel {
  public:
    HiddenPanel();
    ~HiddenPanel();
    HiddenPanel(const HiddenPanel&) = delete;
    HiddenPanel& operator=(const HiddenPanel&) = delete;
};

}  // namespace tul
