#include "music/items.h"

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

}  // namespace
}  // namespace tul
