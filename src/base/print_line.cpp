#include "base/print_line.h"

namespace tul {
namespace {

constexpr std::size_t ZoneWidth = 14;

}  // namespace

PrintLine& PrintLine::zone() {
    line_.append(ZoneWidth - line_.size() % ZoneWidth, ' ');
    return *this;
}

}  // namespace tul
