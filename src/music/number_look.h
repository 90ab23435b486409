#pragma once

#include "music/items.h"
#include "shared/records.h"

/// By what the tools know page numbers and bar numbers among the numbers of a page.
namespace tul {

/// Size and font that the project settings have for one of them. Both count exactly.
struct NumberLook {
    float size;  // 200 added, as in the item
    float font;

    bool isOf(ItemPars item) const {
        return isNumber(item) && item[par::numberSize] == size && item[par::numberFont] == font;
    }
};

inline NumberLook pageNumberLook() {
    return {.size = numberOf(projectSettings.PageNumberSize),
            .font = numberOf(projectSettings.PageNumberFont)};
}
inline NumberLook barNumberLook() {
    return {.size = numberOf(projectSettings.BarNumberSize), .font = numberOf(projectSettings.BarNumberFont)};
}

}  // namespace tul
