#pragma once

#include <string>

#include "edit/edit_family.h"

/// Search and replace in texts, code 16. All comparisons are case-sensitive.
namespace tul::edit {

struct TextSearch {
    bool optEditSearch = true;
    bool chkEditVerify = false;  // ask at every occurrence; it is the font edits' as well

    // With their delimiters, where they have some: quotes or apostrophes.
    std::string txtEditSearchString1;
    std::string txtEditSearchString2;  // may be empty

    bool chkSearchReplaceIncludeFont = false;  // whole texts, fonts included; excludes all others
    bool chkReplaceWholeWord = false;
    bool chkEditSearchFont = false;
    std::string txtEditSearchFont;  // two digits
    bool chkEditSearchSize = false;
    std::string txtEditSearchSize;
    std::string txtEditSearchMargin = "0.01";  // plus or minus

    bool filters() const { return chkEditSearchFont || chkEditSearchSize; }
};
extern TextSearch textSearch;

extern const Family textSearchFamily;

// What the fields keep of what was typed into them; `present` where that is refused. Each refusal is told.
std::string keepFontDigits(const std::string& typed, const std::string& present);
std::string keepSearchSize(const std::string& typed);
std::string keepSearchMargin(const std::string& typed);
std::string keepSearchString(const std::string& typed, const std::string& present);
std::string keepReplacement(const std::string& typed, const std::string& present);

/// A field that takes the two digits of a font.
Field fontField(const char* name, std::string& value);

/// The step of `chkSearchReplaceIncludeFont`: whole texts are compared, so nothing else can be asked for.
void excludeOtherFilters();

}  // namespace tul::edit
