#pragma once

#include <string>

namespace tul {

/// A moment of the machine's local calendar.
struct DateTime {
    int year = 1980;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;

    auto operator<=>(const DateTime&) const = default;
};

/// MM-DD-YYYY
std::string dateText(const DateTime& moment);
/// HH:MM:SS, 24 hours
std::string timeText(const DateTime& moment);
/// Date, one blank, time: the form of a file's stamp.
std::string stampText(const DateTime& moment);

}  // namespace tul
