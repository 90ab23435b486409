#include <windows.h>

#include "host/interrupt.h"

namespace tul {

namespace {

/// The system ends the process when this has returned from a closing: it waits for the page in work until the
/// system's patience is over.
BOOL WINAPI takeInterrupt(DWORD event) {
    static ULONGLONG first = 0;
    const ULONGLONG now = ::GetTickCount64();
    if (!isInterrupted()) first = now;
    if (now - first > interruptPause) ::ExitProcess(interruptedStatus);
    setInterrupted(true);
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) ::Sleep(INFINITE);
    return TRUE;
}

}  // namespace

void watchForInterrupts() { ::SetConsoleCtrlHandler(takeInterrupt, TRUE); }

}  // namespace tul
