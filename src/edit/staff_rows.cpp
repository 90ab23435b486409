#include "edit/staff_rows.h"

#include <algorithm>
#include <cmath>

namespace tul::edit {

void StaffRows::add(int item) {
    const float staff = parsOf(item)[par::staff];
    if (!std::isnan(staff)) staves_[staff].push_back(item);
}

const std::vector<int>& StaffRows::on(float staff) const {
    static const std::vector<int> none;
    const auto found = std::isnan(staff) ? staves_.end() : staves_.find(staff);
    return found == staves_.end() ? none : found->second;
}

std::pair<StaffRows::Staves::const_iterator, StaffRows::Staves::const_iterator> StaffRows::rangeOf(
    StaffSpan span) const {
    if (!(span.above < span.top)) return {staves_.end(), staves_.end()};
    return {staves_.upper_bound(span.above), staves_.upper_bound(span.top)};
}

std::vector<int> StaffRows::within(StaffSpan span) const {
    std::vector<int> items;
    const auto [first, last] = rangeOf(span);
    for (auto staff = first; staff != last; ++staff)
        items.insert(items.end(), staff->second.begin(), staff->second.end());
    std::sort(items.begin(), items.end());
    return items;
}

std::vector<int> StaffRows::take(StaffSpan span) {
    std::vector<int> items = within(span);
    const auto [first, last] = rangeOf(span);
    staves_.erase(first, last);
    return items;
}

float StaffRows::nextAbove(float staff, float otherwise) const {
    const auto next = std::isnan(staff) ? staves_.end() : staves_.upper_bound(staff);
    return next == staves_.end() ? otherwise : next->first;
}

}  // namespace tul::edit
