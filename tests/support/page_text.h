#pragma once

#include <span>
#include <sstream>

#include "music/items.h"
#include "music/mus_writer.h"
#include "support/test.h"

namespace tul {

/// A page as text: its items with bars between them, each its parameters from Par 1 on, or on from the one
/// that is named, and its text behind an apostrophe: "8 1 9=21|16 1 20 5 0 1'_00ab". Par 12 of texts counts
/// their characters by itself.
inline std::vector<ItemRow> itemsOf(const std::string& page) {
    std::vector<ItemRow> rows;
    std::istringstream items(page);
    for (std::string item; std::getline(items, item, '|');) {
        const SplitText parts = splitAtFirst(item, '\'');
        ItemRow& row = rows.emplace_back(itemRow({}, std::string(parts.behind)));
        std::istringstream values{std::string(parts.before)};
        int par = 0;
        for (std::string value; values >> value;) {
            const std::size_t behindName = value.find('=') + 1;
            par = behindName == 0 ? par + 1 : std::stoi(value);
            row.pars[par] = std::stof(value.substr(behindName));
        }
        if (isText(row)) row.pars[par::textLength] = static_cast<float>(row.text.size());
    }
    return rows;
}

/// The same text for all ways to write a page.
inline std::string textOf(std::span<const ItemRow> rows) {
    std::string page;
    for (const ItemRow& row : rows) {
        int last = 0;
        for (int par = 1; par <= Parameters::count; ++par) {
            if (row.pars[par] == 0.0F || (isText(row) && par == par::textLength)) continue;
            page += (par == last + 1 ? " " : " " + plain(par) + "=") + plain(row.pars[par]);
            last = par;
        }
        page += "'" + row.text + "|";
    }
    return page;
}

inline std::string bytesOf(const std::string& page) {
    PageBytes bytes;
    bytes.begin();
    for (const ItemRow& row : itemsOf(page)) bytes.item(row);
    bytes.end(false);
    return bytes.bytes;
}

}  // namespace tul
