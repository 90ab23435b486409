#include "edit/font_prefixes.h"

#include <string>
#include <string_view>

#include "edit/edit_run.h"
#include "music/font_prefix.h"
#include "music/items.h"

namespace tul::edit {

namespace {

/// Empty for a number that is no font's.
std::string prefixOf(float font) {
    const std::string number = plain(font);
    if (!isDigitsOnly(number)) return {};
    if (number.size() == 2 && number.starts_with('9')) return "_" + number;
    if (number.size() != 4) return {};
    if (number.starts_with("10")) return "_" + number.substr(2);
    return number.starts_with("11") ? "__" + number.substr(2) : std::string();
}

/// All prefixes of the text become the new one. A text that does not begin with one gets it in front.
std::string withPrefix(std::string_view text, const std::string& prefix) {
    std::string changed = fontPrefixOf(text).empty() ? prefix : std::string();
    while (!text.empty()) {
        const std::size_t length = fontPrefixOf(text).size();
        changed += length == 0 ? std::string(1, text.front()) : prefix;
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return changed;
}

class FontPrefixesRun : public FamilyRun {
  public:
    void updateFile(const PageInRun&) override {
        forEachItem([](int, ItemRow& row) {
            if (!isText(row) || row.pars[par::textFont] == 0.0F) return;
            const std::string prefix = prefixOf(row.pars[par::textFont]);
            if (prefix.empty()) return;
            row.text = withPrefix(row.text, prefix);
            row.pars[par::textFont] = 0.0F;
            countChange();
        });
    }
};

std::vector<Command> commands() {
    return {onSelection("cmdReplacePar8", "Replace Par8 by font prefixes", [] {
        runToMessage("Total number of Par8 replacements: ", std::make_unique<FontPrefixesRun>());
    })};
}

}  // namespace

const Family fontPrefixesFamily = {.tab = tabFont, .commands = commands};

}  // namespace tul::edit
