#pragma once

/// Which system this is.
namespace tul {

/// Fills `OsCode` and `ProcessorBits` from the platform's version query.
void getOS();

/// True on a system that has its own names and programs.
[[nodiscard]] bool isOutsideWindows();

}  // namespace tul
