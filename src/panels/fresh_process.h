#pragma once

namespace tul {

/// Gives every process-wide record its initial value, as a process has them that was just started.
void freshProcess();

}  // namespace tul
