#include "music/first_item.h"

#include <algorithm>
#include <cmath>

namespace tul {

namespace {

/// The rows that count at present, by place: a tree whose upper half is the places, and where every other
/// node has the least of its two.
class LeastRows {
  public:
    explicit LeastRows(std::size_t places) : places_(places), least_(2 * places, noRow) {}

    void put(std::size_t place, int row) {
        std::size_t node = place + places_;
        least_[node] = row;
        while ((node /= 2) > 0) least_[node] = std::min(least_[2 * node], least_[2 * node + 1]);
    }
    [[nodiscard]] int in(PlaceRange range) const {
        int row = noRow;
        std::size_t begin = range.begin + places_;
        std::size_t end = range.end + places_;
        for (; begin < end; begin /= 2, end /= 2) {
            if (begin % 2 == 1) row = std::min(row, least_[begin++]);
            if (end % 2 == 1) row = std::min(row, least_[--end]);
        }
        return row;
    }

  private:
    std::size_t places_;
    std::vector<int> least_;
};

bool isKey(const ItemKey& key) {
    return std::none_of(key.begin(), key.end(), [](float part) { return std::isnan(part); });
}

/// Without those that ask for what is no number.
std::vector<std::size_t> orderByKey(const std::vector<FirstQuestion>& questions) {
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < questions.size(); ++i)
        if (isKey(questions[i].key)) order.push_back(i);
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return questions[a].key < questions[b].key; });
    return order;
}

}  // namespace

/// Items and questions are gone through together, by rising keys: an item counts from where its key fits to
/// where it fits no longer. Those that count stand in a tree over the places, each node of which knows the
/// least row below it. So an item is put in and taken out once, and a question looks at a few nodes instead
/// of all its places.
std::vector<int> firstRows(const StaffIndex& index, std::vector<KeyedPlace> items,
                           const std::vector<FirstQuestion>& questions, KeyFit fit) {
    std::vector<int> rows(questions.size(), noRow);
    if (items.empty() || questions.empty()) return rows;
    std::erase_if(items, [](const KeyedPlace& item) { return !isKey(item.key); });
    std::sort(items.begin(), items.end(),
              [](const KeyedPlace& a, const KeyedPlace& b) { return a.key < b.key; });
    LeastRows counting(index.size());
    auto first = items.begin();
    auto behind = items.begin();
    for (const std::size_t question : orderByKey(questions)) {
        const ItemKey& key = questions[question].key;
        const auto mayCount = [&](const KeyedPlace& item) {
            return fit == KeyFit::same ? item.key <= key : item.key < key;
        };
        for (; behind != items.end() && mayCount(*behind); ++behind)
            counting.put(behind->place, index[behind->place].row);
        if (fit == KeyFit::same)
            for (; first != behind && first->key < key; ++first) counting.put(first->place, noRow);
        rows[question] = counting.in(questions[question].places);
    }
    return rows;
}

}  // namespace tul
