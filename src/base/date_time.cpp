#include "base/date_time.h"

namespace tul {
namespace {

std::string withZeros(int number, std::size_t width) {
    std::string digits = std::to_string(number);
    if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
    return digits;
}

}  // namespace

std::string dateText(const DateTime& moment) {
    return withZeros(moment.month, 2) + '-' + withZeros(moment.day, 2) + '-' + withZeros(moment.year, 4);
}

std::string timeText(const DateTime& moment) {
    return withZeros(moment.hour, 2) + ':' + withZeros(moment.minute, 2) + ':' + withZeros(moment.second, 2);
}

std::string stampText(const DateTime& moment) { return dateText(moment) + ' ' + timeText(moment); }

}  // namespace tul
