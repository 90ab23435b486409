#include "music/staff_index.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>
#include <utility>

namespace tul {

namespace {

/// Where what holds for the first places of a range ends to hold.
template <class Holds>
std::size_t endOf(const std::vector<Place>& places, PlaceRange range, Holds holds) {
    const auto from = std::next(places.begin(), static_cast<std::ptrdiff_t>(range.begin));
    const auto to = std::next(places.begin(), static_cast<std::ptrdiff_t>(range.end));
    return static_cast<std::size_t>(std::distance(places.begin(), std::partition_point(from, to, holds)));
}

/// Those for which the second holds, behind those for which the first holds.
template <class Passed, class Holds>
PlaceRange part(const std::vector<Place>& places, PlaceRange range, Passed passed, Holds holds) {
    range.begin = endOf(places, range, passed);
    range.end = endOf(places, range, holds);
    return range;
}

}  // namespace

StaffIndex::StaffIndex(std::vector<Place> places) : places_(std::move(places)) {
    std::erase_if(places_,
                  [](const Place& place) { return std::isnan(place.staff) || std::isnan(place.position); });
    std::sort(places_.begin(), places_.end(), [](const Place& a, const Place& b) {
        return std::tie(a.staff, a.position, a.row) < std::tie(b.staff, b.position, b.row);
    });
}

PlaceRange StaffIndex::on(float staff) const {
    return part(
        places_, {0, size()}, [=](const Place& place) { return place.staff < staff; },
        [=](const Place& place) { return place.staff == staff; });
}

PlaceRange StaffIndex::at(float staff, float position) const {
    return part(
        places_, on(staff), [=](const Place& place) { return place.position < position; },
        [=](const Place& place) { return place.position == position; });
}

/// Rounding keeps the order of differences, so that all that is near lies in one piece.
PlaceRange StaffIndex::near(float staff, float position, Margin margin) const {
    const auto isNearIt = [=](const Place& place) { return isNear(place.position, position, margin); };
    return part(
        places_, on(staff), [=](const Place& place) { return place.position < position && !isNearIt(place); },
        isNearIt);
}

PlaceRange StaffIndex::between(float staff, float left, float right) const {
    return part(
        places_, on(staff), [=](const Place& place) { return !(place.position > left); },
        [=](const Place& place) { return place.position < right; });
}

StaffIndex notesByPlace() {
    std::vector<Place> notes;
    for (int item = 1; item <= musItemTable.itemCount; ++item)
        if (const ItemRow& row = musItemTable[item]; isNote(row)) notes.push_back(placeOf(row, item));
    return StaffIndex(std::move(notes));
}

}  // namespace tul
