#pragma once

#include <cstdint>

#include "base/date_time.h"

namespace tul {

class Clock {
  public:
    virtual ~Clock() = default;

    virtual DateTime now() const = 0;
    /// Milliseconds from an arbitrary start, never backwards.
    virtual std::int64_t milliseconds() const = 0;
};

}  // namespace tul
