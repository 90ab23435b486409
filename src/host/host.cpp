#include "host/host.h"

#include <cstdlib>
#include <utility>

namespace tul {

namespace {

Host installed;

constexpr int callsBetweenClockReadings = 64;
constexpr int millisecondsBetweenYields = 20;

struct YieldState {
    int callsLeft = 0;
    std::int64_t lastYield = 0;
};
YieldState yieldState;

int waits = 0;  // waiting pointers inside one another

}  // namespace

void installHost(const Host& host) {
    installed = host;
    yieldState = {};
}

Files& files() { return *installed.files; }
Processes& processes() { return *installed.processes; }
Profile& profile() { return *installed.profile; }
Clock& clock() { return *installed.clock; }
Platform& platform() { return *installed.platform; }
Face& face() { return *installed.face; }

Answer MsgBox(std::string text, Buttons buttons, Icon icon) {
    return face().msgBox({.text = std::move(text), .buttons = buttons, .icon = icon});
}

std::optional<std::string> InputBox(const std::string& prompt, const std::string& defaultText) {
    return face().inputBox(prompt, defaultText);
}

void endWith(const std::string& text) {
    MsgBox(text, Buttons::ok, Icon::critical);
    endProgram();
}

void endProgram() {
    face().endProgram(1);
    std::abort();  // not reached; g++ does not see through the virtual call
}

void leaveProgram() {
    face().endProgram(0);
    std::abort();  // not reached
}

void yieldToEvents() {
    if (--yieldState.callsLeft > 0) return;
    yieldState.callsLeft = callsBetweenClockReadings;
    const std::int64_t present = clock().milliseconds();
    if (present - yieldState.lastYield < millisecondsBetweenYields) return;
    yieldState.lastYield = present;
    face().yield();
}

void showWaiting() {
    if (installed.face) installed.face->showWaiting();
}

WaitingPointer::WaitingPointer() {
    if (waits++ == 0) face().setPointer(Pointer::waiting);
}

WaitingPointer::~WaitingPointer() {
    if (--waits == 0) face().setPointer(Pointer::normal);
}

HiddenPanel::HiddenPanel() { face().setPanelVisible(false); }
HiddenPanel::~HiddenPanel() { face().setPanelVisible(true); }

}  // namespace tul
