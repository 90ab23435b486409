#pragma once

#include <string>
#include <string_view>

#include "base/print_line.h"

namespace tul {

/// A plain-text report: lines ended by CR LF, kept in memory and written in one go when it is closed.
class Report {
  public:
    explicit Report(std::string path) : path_(std::move(path)) {}

    /// Makes the file, empty. False when it cannot be opened for output.
    [[nodiscard]] bool open();
    void line(std::string_view text);
    void line(const PrintLine& text) { line(text.line()); }
    /// Writes the file. False when the disk does not take it.
    [[nodiscard]] bool close();

    const std::string& path() const { return path_; }

  private:
    std::string path_;
    std::string text_;
};

}  // namespace tul
