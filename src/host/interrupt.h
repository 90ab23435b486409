#pragma once

#include <atomic>

namespace tul {

/// From now on the user's interrupt (Ctrl-C, the end of a terminal or session, a kill by its usual signal,
/// the closing of a Windows console) is a request that a run looks at between pages. A second one,
/// some time after the first, ends the process at once; a page is never in pieces then either.
void watchForInterrupts();

/// True once the user has interrupted the process. Owner: the handler of interrupts.
inline std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free);  // a signal's handler sets it

/// Loops ask for each item.
[[nodiscard]] inline bool isInterrupted() { return interrupted.load(std::memory_order_relaxed); }
/// What an interrupt does; false takes it back.
inline void setInterrupted(bool isSo) { interrupted = isSo; }

/// Milliseconds within which a second interrupt counts as the first.
inline constexpr int interruptPause = 500;

/// The exit status of an interrupted process: that of a shell's.
inline constexpr int interruptedStatus = 130;

}  // namespace tul
