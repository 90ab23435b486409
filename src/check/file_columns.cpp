#include "check/file_columns.h"

#include <string_view>

#include "base/numbers.h"
#include "base/text.h"
#include "host/host.h"
#include "shared/records.h"

namespace tul {

namespace {

constexpr std::size_t finaleHeadLength = 96;
constexpr std::string_view finaleStart = "ENIGMA BINARY FILE";
constexpr std::string_view finaleName = "Finale(R)";
constexpr std::size_t finaleNamePosition = 32;

constexpr std::size_t dateWidth = 10;
constexpr std::size_t timeWidth = 11;
constexpr std::size_t sizeWidth = 7;

/// A single figure between two separators gets a zero before it.
void completeMiddleFigure(std::string& text, const std::string& separator) {
    if (text.size() > 4 && text.compare(4, separator.size(), separator) == 0) text.insert(3, "0");
}

std::string fit(const std::string& text, std::size_t width) { return padRight(text, width).substr(0, width); }

std::string editDate(std::string date, const std::string& separator) {
    if (separator.empty() || date.find(separator) != 1) return date;
    date.insert(0, " ");
    completeMiddleFigure(date, separator);
    return fit(date, dateWidth);
}

std::string editTime(std::string time, const std::string& separator) {
    const std::size_t first = separator.empty() ? std::string::npos : time.find(separator);
    if (first == std::string::npos) return time;
    if (first == 1) time.insert(0, " ");
    completeMiddleFigure(time, separator);
    return fit(time, timeWidth);
}

}  // namespace

std::string IsFinale(const std::string& path) {
    std::string head;
    if (files().read(path, head, finaleHeadLength) != FileError::none) return {};
    const bool named = head.size() >= finaleNamePosition + finaleName.size() &&
                       head.compare(finaleNamePosition, finaleName.size(), finaleName) == 0;
    return head.starts_with(finaleStart) && named ? "Finale" : "";
}

std::string EditDateTime(const std::optional<FileInfo>& info) {
    return editedStamp(info ? stampText(info->stamp) : std::string());
}

std::string editedStamp(const std::string& stamp) {
    const SplitText split = splitAtFirst(trim(stamp), ' ');
    if (!split.found) return std::string(split.before);
    return editDate(std::string(split.before), dateSettings.dateSeparator) + " " +
           editTime(std::string(split.behind), dateSettings.timeSeparator);
}

std::string sizeField(std::uint64_t length) {
    const std::string digits = plain(length);
    return padRight(digits.size() > sizeWidth ? std::string(sizeWidth, 'X') : digits, sizeWidth);
}

}  // namespace tul
