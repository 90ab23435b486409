#include "bars/bar_settings.h"

namespace tul::bars {

BarSettings barSettings;

}  // namespace tul::bars
