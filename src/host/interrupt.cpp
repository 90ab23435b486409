#include "host/interrupt.h"

#include <atomic>

namespace tul {

namespace {

std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free);  // a signal's handler sets it

}  // namespace

bool isInterrupted() { return interrupted; }
void setInterrupted(bool isSo) { interrupted = isSo; }

}  // namespace tul
