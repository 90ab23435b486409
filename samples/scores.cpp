#include "samples/scores.h"

namespace tul::samples {

std::vector<Sample> scores() {
    return {quartet(), chorale(), song(), minuet(), tablaturePage(), orchestra(), extractedPart()};
}

}  // namespace tul::samples
