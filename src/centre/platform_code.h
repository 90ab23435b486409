#pragma once

/// Fills `OsCode` and `ProcessorBits` from the platform's version query.
namespace tul {

void getOS();

}  // namespace tul
