#pragma once

#include <string>
#include <string_view>

#include "base/numbers.h"

namespace tul {

/// One line of a report put together item by item, as a print list does: texts as they stand, numbers with a
/// leading blank or sign and a trailing blank, and zones of 14 columns.
class PrintLine {
  public:
    PrintLine& text(std::string_view part) {
        line_ += part;
        return *this;
    }
    PrintLine& number(float value) { return text(printed(value)); }
    PrintLine& number(WholeNumber auto value) { return text(printed(value)); }

    /// Blanks up to the next multiple of 14 columns; a whole zone where the line already ends on one.
    PrintLine& zone();

    const std::string& line() const { return line_; }

  private:
    std::string line_;
};

}  // namespace tul
