#pragma once

#include <string>
#include <vector>

namespace tul::samples {

// One file of music.
struct Sample {
    std::string name;  // in upper case, as SCORE names files
    std::string what;  // in one line
    std::string bytes;
};

Sample quartet();
Sample chorale();
Sample song();
Sample minuet();
Sample tablaturePage();
Sample orchestra();
Sample extractedPart();

std::vector<Sample> scores();

}  // namespace tul::samples
