#pragma once

#include <exception>

namespace tul {

/// An access outside the bounds of a table or array. It is caught only where a run is told to go on with
/// its next step.
struct IndexFault : std::exception {
    const char* what() const noexcept override { return "index out of bounds"; }
};

}  // namespace tul
