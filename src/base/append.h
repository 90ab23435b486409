#pragma once

#include <iterator>
#include <utility>
#include <vector>

namespace tul {

/// Adds the entries of a list to another one.
template <class Entry>
void append(std::vector<Entry>& all, std::vector<Entry> more) {
    all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

}  // namespace tul
