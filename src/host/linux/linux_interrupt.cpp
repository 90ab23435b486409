#include <signal.h>
#include <unistd.h>

#include <initializer_list>

#include "host/interrupt.h"

namespace tul {

namespace {

extern "C" void takeInterrupt(int) {
    if (isInterrupted()) ::_exit(interruptedStatus);
    setInterrupted(true);
}

}  // namespace

/// Reading from a terminal is broken off by an interrupt, so that a prompt ends with the refusing answer.
void watchForInterrupts() {
    struct sigaction action = {};
    action.sa_handler = takeInterrupt;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) ::sigaction(signal, &action, nullptr);
}

}  // namespace tul
