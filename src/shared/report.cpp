#include "shared/report.h"

#include "base/text.h"
#include "host/host.h"

namespace tul {

FileError Report::open() {
    text_.clear();
    return files().replace(path_, "");
}

void Report::line(std::string_view text) {
    text_ += text;
    text_ += CrLf;
}

bool Report::close() { return files().replace(path_, text_) == FileError::none; }

}  // namespace tul
