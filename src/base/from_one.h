#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "base/index_fault.h"

namespace tul {

/// A list whose first entry has the index 1, as all tables of this program count. An index outside it throws
/// `IndexFault`.
template <class T>
class FromOne {
  public:
    const T& operator[](int index) const { return entries_[position(index)]; }
    T& operator[](int index) { return entries_[position(index)]; }

    void append(T entry) { entries_.push_back(std::move(entry)); }
    void clear() { entries_.clear(); }
    int count() const { return static_cast<int>(entries_.size()); }
    auto begin() const { return entries_.begin(); }
    auto end() const { return entries_.end(); }

  private:
    std::size_t position(int index) const {
        if (index < 1 || index > count()) throw IndexFault();
        return static_cast<std::size_t>(index - 1);
    }

    std::vector<T> entries_;
};

}  // namespace tul
