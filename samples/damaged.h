#pragma once

#include <vector>

#include "samples/scores.h"

namespace tul::samples {

// Pages with one fault each, and pages that are sound in structure but raise a question. `what` names the
// fault.
std::vector<Sample> damaged();

}  // namespace tul::samples
