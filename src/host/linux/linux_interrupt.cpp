#include <signal.h>
#include <time.h>
#include <unistd.h>

#include <cstdint>
#include <initializer_list>

#include "host/interrupt.h"

namespace tul {

namespace {

/// Of the first interrupt, in milliseconds; the handler alone writes it.
volatile std::int64_t firstInterrupt = 0;

std::int64_t millisecondsNow() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

/// What ends a session or a job may send one signal in two shapes: that is one wish.
extern "C" void takeInterrupt(int) {
    if (!isInterrupted()) {
        firstInterrupt = millisecondsNow();
        setInterrupted(true);
    } else if (millisecondsNow() - firstInterrupt > interruptPause) {
        ::_exit(interruptedStatus);
    }
}

}  // namespace

/// Reading from a terminal is broken off by an interrupt, so that a prompt ends with the refusing answer.
/// What the starter of this process has switched off, as `nohup` does, stays so.
void watchForInterrupts() {
    struct sigaction action = {};
    action.sa_handler = takeInterrupt;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction present = {};
        if (::sigaction(signal, nullptr, &present) == 0 && present.sa_handler != SIG_IGN)
            ::sigaction(signal, &action, nullptr);
    }
}

}  // namespace tul
