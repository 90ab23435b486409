#include "music/items.h"

#include "music/first_item.h"
#include "support/test.h"

namespace tul {
namespace {

TEST(Items, AreInOnePlaceWithinAMargin) {
    struct Case {
        std::vector<float> item;
        std::vector<float> other;
        Margin margin;
        bool same;
    };
    const std::vector<Case> cases = {
        {{1, 2, 10}, {16, 2, 12}, atMost(2), true},
        {{1, 2, 12}, {16, 2, 10}, atMost(2), true},
        {{1, 2, 10}, {16, 2, 12}, lessThan(2), false},
        {{1, 2, 10}, {16, 3, 10}, atMost(2), false},
        {{1, 2.5, 10}, {16, 2, 10}, atMost(2), false},
        // What counts is the difference as a parameter would hold it: 1 in both.
        {{1, 1, 1}, {1, 1, -1e-9F}, atMost(1), true},
        {{1, 1, 1}, {1, 1, 1e-9F}, lessThan(1), false},
        {{1, 1, notANumber}, {1, 1, notANumber}, atMost(infinity), false},
        {{1, notANumber, 5}, {1, notANumber, 5}, atMost(2), false},
        {{1, 1, 5}, {1, 1, 5}, atMost(notANumber), false},
        {{1, 1, infinity}, {1, 1, infinity}, atMost(2), false},
        {{1, 1, infinity}, {1, 1, 5}, atMost(2), false},
    };
    for (const Case& each : cases)
        EXPECT_EQ(samePlace(itemRow(each.item), itemRow(each.other), each.margin), each.same)
            << ::testing::PrintToString(each.item) << ::testing::PrintToString(each.other)
            << each.margin.width;
}

TEST(StaffIndex, FindsWhatALookAtAllFinds) {
    std::vector<Place> places;
    for (const float staff : {1.0F, notANumber})
        for (const float position : {10.0F, 10.0099F, 10.01F, -0.0F, 0.0F, 8192.0F, 8192.01F, 8192.002F, 5.0F,
                                     infinity, -infinity, 3e38F, -3e38F, notANumber, 4.99F, 4.9899F})
            places.push_back({staff, position, static_cast<int>(places.size())});
    const StaffIndex index(places);
    for (const Place& asked : places) {
        const auto expectFound = [&](PlaceRange range, auto fits) {
            std::vector<bool> found(places.size());
            for (std::size_t i = range.begin; i < range.end; ++i)
                found[static_cast<std::size_t>(index[i].row)] = true;
            for (std::size_t i = 0; i < places.size(); ++i)
                EXPECT_EQ(found[i], places[i].staff == asked.staff && fits(places[i].position)) << asked.row;
        };
        const float from = asked.position;
        expectFound(index.at(asked.staff, from), [=](float at) { return at == from; });
        expectFound(index.between(asked.staff, from, 10), [=](float at) { return at > from && at < 10; });
        for (const Margin margin : {lessThan(0.01F), atMost(0)})
            expectFound(index.near(asked.staff, from, margin),
                        [=](float at) { return isNear(at, from, margin); });
    }
}

TEST(FirstItem, IsTheOneThatALookAtAllFinds) {
    const std::vector<int> rows = {5, 3, 9, 1, 8, 2, 7};
    const std::vector<float> keys = {2, 1, 2, 3, 1, 9, 0};
    std::vector<Place> places;
    std::vector<KeyedPlace> items;
    std::vector<FirstQuestion> asked;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        places.push_back({1, static_cast<float>(i), rows[i]});
        if (keys[i] < 9) items.push_back({i, {1, keys[i]}});
        for (std::size_t end = i; end <= rows.size(); ++end)
            for (const float key : {3.0F, 0.0F, 2.0F, 4.0F, 1.0F}) asked.push_back({{i, end}, {1, key}});
    }
    for (const KeyFit fit : {KeyFit::same, KeyFit::below}) {
        std::vector<int> first;
        for (const auto& [range, key] : asked) {
            first.push_back(noRow);
            for (std::size_t i = range.begin; i < range.end; ++i)
                if (fit == KeyFit::same ? keys[i] == key[1] : keys[i] < key[1])
                    first.back() = std::min(first.back(), rows[i]);
        }
        EXPECT_EQ(firstRows(StaffIndex(places), items, asked, fit), first);
    }
}

}  // namespace
}  // namespace tul
