#include "edit/text_search.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/text.h"
#include "centre/option_checks.h"
#include "edit/edit_run.h"
#include "music/font_prefix.h"
#include "music/items.h"

namespace tul::edit {

TextSearch textSearch;

namespace {

constexpr char quote = '"';
constexpr char apostrophe = '\'';
const std::string newLine(CrLf);

bool isIn(std::string_view text, char delimiter) {
    return text.starts_with(delimiter) && text.ends_with(delimiter);
}

/// A lone delimiter is stripped to nothing.
std::string withoutDelimiters(const std::string& text) {
    if (!isIn(text, quote) && !isIn(text, apostrophe)) return text;
    return text.size() < 2 ? std::string() : text.substr(1, text.size() - 2);
}

// --- Reserved search words

const std::string barreWord = "$barre$";
const std::string cyrillicWord = "$cyrillic$";
constexpr std::string_view barreFont = "_24";
constexpr float barreSize = 0.75F;
constexpr std::string_view cyrillicFont = "_55";
constexpr char cyrillicCharacter = '\xC3';

/// The numeral of a barre from C1 on.
constexpr std::array<std::string_view, 19> barres = {"I",    "II",  "III",  "IV",    "V",   "VI",   "VII",
                                                     "VIII", "IX",  "X",    "XI",    "XII", "XIII", "XIV",
                                                     "XV",   "XVI", "XVII", "XVIII", "IXX"};

std::string numeralOf(const std::string& barre) {
    for (std::size_t fret = 1; fret <= barres.size(); ++fret)
        if (barre == "C" + plain(fret)) return std::string(barres[fret - 1]);
    MsgBox("Barre translation conflict. Assumed C20", Buttons::ok, Icon::exclamation);
    return "XX";
}

// --- One item

/// The text behind its font prefix. A text without one loses its first two characters as well.
std::string_view searchedPart(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of('_'), text.size()));
    text.remove_prefix(std::min<std::size_t>(2, text.size()));
    return text;
}

bool isTextDelimiter(char character) {
    const char upper = upperCase(character);
    return !isDigit(character) && !(upper >= 'A' && upper <= 'Z');
}

/// Takes the first occurrence out as long as there is one. The occurrence that ends first is the first, so
/// that one look at each character is enough.
std::string removeAll(const std::string& text, const std::string& searched, std::int32_t& count) {
    std::string kept;
    for (const char character : text) {
        kept += character;
        if (!kept.ends_with(searched)) continue;
        kept.resize(kept.size() - searched.size());
        countChange(count);
    }
    return kept;
}

/// A refused occurrence is passed by the length of the replacement, not by its own.
std::string replaceAll(const std::string& text, const std::string& searched, const std::string& replacement,
                       std::int32_t& count) {
    std::string replaced;
    std::size_t done = 0;  // so much of the text is in `replaced`
    std::size_t from = 0;
    for (std::size_t hit; (hit = text.find(searched, from)) != std::string::npos;) {
        const std::size_t behind = hit + searched.size();
        const bool leftFree = hit > done ? isTextDelimiter(text[hit - 1])
                                         : replaced.empty() || isTextDelimiter(replaced.back());
        const bool rightFree = behind == text.size() || isTextDelimiter(text[behind]);
        if (textSearch.chkReplaceWholeWord && !(leftFree && rightFree)) {
            from = hit + replacement.size();
            continue;
        }
        replaced.append(text, done, hit - done) += replacement;
        done = from = behind;
        countChange(count);
    }
    return replaced.append(text, done);
}

bool isPrefixAlone(std::string_view text) {
    return text.size() >= fontPrefixLength && prefixPlace(text) == text;
}

/// The reserved words change the replacement, for the items and files behind them as well.
class SearchRun : public FamilyRun {
  public:
    void updateFile(const PageInRun&) override {
        forEachItem([this](int item, ItemRow& row) { update(item, row); });
    }
    void writeCounters(Report& report, const RunResult& result) const override;

  private:
    void update(int item, ItemRow& row);
    bool passesFilters(const ItemRow& row) const;
    void replaceWhole(ItemRow& row);
    bool find(ItemRow& row, std::string& searched) const;
    void replaceIn(ItemRow& row, const std::string& searched);

    const std::string searched_ = withoutDelimiters(textSearch.txtEditSearchString1);
    const float size_ = numberOf(textSearch.txtEditSearchSize);
    const Margin margin_ = atMost(numberOf(textSearch.txtEditSearchMargin));
    std::int32_t replaces_ = 0;
};

bool SearchRun::passesFilters(const ItemRow& row) const {
    if (textSearch.chkEditSearchFont && !hasFont(row.text, textSearch.txtEditSearchFont)) return false;
    if (!textSearch.chkEditSearchSize) return true;
    return isNear(withoutHundreds(row.pars[par::textSize]), size_, margin_);
}

void SearchRun::replaceWhole(ItemRow& row) {
    if (row.text != textSearch.txtEditSearchString1) return;
    row.text = textSearch.txtEditSearchString2;
    countChange(replaces_);
}

/// True when the item holds what is searched, which a reserved word changes, and the item with it.
bool SearchRun::find(ItemRow& row, std::string& searched) const {
    const std::string part(searchedPart(row.text));
    searched = searched_;
    if (searched == barreWord && part.starts_with('C')) {
        searched = numeralOf(part);
        row.text = std::string(barreFont) + searched;
        row.pars[par::textSize] = barreSize;
        textSearch.txtEditSearchString2 = searched;
        return true;
    }
    if (searched == cyrillicWord) {
        searched = cyrillicCharacter;
        row.text = std::string(cyrillicFont) + searched;
        textSearch.txtEditSearchString2 = searched;
        return true;
    }
    return !searched.empty() && part.find(searched) != std::string::npos;
}

/// The prefix is blanked meanwhile, so that nothing is found in it, and then laid over the text's beginning.
void SearchRun::replaceIn(ItemRow& row, const std::string& searched) {
    const std::string replacement = withoutDelimiters(textSearch.txtEditSearchString2);
    std::string& text = row.text;
    const std::string prefix(prefixPlace(text));
    text.replace(0, prefix.size(), prefix.size(), ' ');
    text = replacement.empty() ? removeAll(text, searched, replaces_)
                               : replaceAll(text, searched, replacement, replaces_);
    std::copy_n(prefix.begin(), std::min(prefix.size(), text.size()), text.begin());
    if (!prefix.empty() && isPrefixAlone(text)) deleteItem(row);
}

void SearchRun::update(int item, ItemRow& row) {
    if (!isText(row) || !passesFilters(row)) return;
    if (textSearch.chkSearchReplaceIncludeFont) return replaceWhole(row);
    std::string searched;
    if (!find(row, searched)) return;
    if (textSearch.chkEditVerify &&
        !isConfirmed("Found string: " + searched + newLine + "in text string: " + row.text + newLine +
                     "in file: " + currentPath() + newLine + "replace by string: " +
                     textSearch.txtEditSearchString2 + newLine + itemNumberLine(item) + newLine +
                     "Replace? (Cancel will stop any further search/replace)"))
        return;
    const std::int64_t before = pipeline.page.changes;
    replaceIn(row, searched);
    // An item that was found is enough for its page to be written, whatever the search for words left of it.
    if (pipeline.page.changes == before) countChange();
}

void SearchRun::writeCounters(Report& report, const RunResult&) const {
    writeCounter(report, "Number of replaces . . . . . . ", replaces_,
                 " (Find string: " + textSearch.txtEditSearchString1 +
                     " Replace string: " + textSearch.txtEditSearchString2 + ")");
}

// --- The family

bool isEmptyString(const std::string& text) { return text.empty() || text == "\"\"" || text == "''"; }

bool mayRun() {
    if (isEmptyString(textSearch.txtEditSearchString1)) return refuse("No search string defined.");
    if (textSearch.txtEditSearchString1 == textSearch.txtEditSearchString2)
        return refuse("No use running search/replace with equal strings.");
    return true;
}

// --- Fields

const char* const searchPrompt =
    "Enter string to be searched. If the string contains the quote mark put the string between apostrophes. "
    "If the string contains apostrophies write it in quotes. If the string contains leading or trailing "
    "blanks, use either.\r\n"
    "Note that the leftmost font is not part of the search.\r\n"
    "If there are other fonts within the string, these are part of the search.";
const char* const replacementPrompt =
    "Enter replacing string. If the string contains the quote mark put the string between apostrophes. If "
    "the string contains apostrophies write it in quotes. If the string contains leading or trailing blanks, "
    "use either.\r\n"
    "Note that the leftmost font is not part of the replacement area.\r\n"
    "This function may be used to replace 'in-string' fonts.";

std::vector<Field> fields() {
    const auto comparesParts = [] { return !textSearch.chkSearchReplaceIncludeFont; };
    const auto hasNoFilter = [] { return !textSearch.filters(); };
    const auto searches = [] { return textSearch.optEditSearch; };
    const auto ofFont = [] { return textSearch.optEditSearch && textSearch.chkEditSearchFont; };
    const auto ofSize = [] { return textSearch.optEditSearch && textSearch.chkEditSearchSize; };
    return {
        optionField("fraEditText", "optEditSearch", textSearch.optEditSearch),
        readIf(keptField("txtEditSearchString1", textSearch.txtEditSearchString1, searchPrompt,
                         keepSearchString),
               searches),
        readIf(keptField("txtEditSearchString2", textSearch.txtEditSearchString2, replacementPrompt,
                         keepReplacement),
               searches),
        readIf(
            onlyIf(withStep(checkField("chkSearchReplaceIncludeFont", textSearch.chkSearchReplaceIncludeFont),
                            excludeOtherFilters),
                   hasNoFilter),
            searches),
        readIf(onlyIf(checkField("chkReplaceWholeWord", textSearch.chkReplaceWholeWord), comparesParts),
               searches),
        readIf(onlyIf(checkField("chkEditSearchFont", textSearch.chkEditSearchFont), comparesParts),
               searches),
        readIf(fontField("txtEditSearchFont", textSearch.txtEditSearchFont), ofFont),
        readIf(onlyIf(checkField("chkEditSearchSize", textSearch.chkEditSearchSize), comparesParts),
               searches),
        readIf(textField("txtEditSearchSize", textSearch.txtEditSearchSize,
                         "Text size filter (Code16, Par6. Value between 0 and 10)", keepSearchSize),
               ofSize),
        readIf(textField("txtEditSearchMargin", textSearch.txtEditSearchMargin,
                         "Margin (+/-) for size filter (Code16, Par6. Value from 0 to and including 10)",
                         keepSearchMargin),
               ofSize),
    };
}

}  // namespace

const Family textSearchFamily = {
    .tab = tabText,
    .fields = fields,
    .reset = [] { textSearch = {}; },
    .isChosen = [] { return textSearch.optEditSearch; },
    .mayRun = mayRun,
    .begin = beginRun<SearchRun>,
};

Field fontField(const char* name, std::string& value) {
    return keptField(name, value, "Enter two-digit font number", keepFontDigits);
}

std::string keepFontDigits(const std::string& typed, const std::string& present) {
    const std::string_view digits = trim(typed);
    if (digits.empty() || (digits.size() == 2 && isDigitsOnly(digits))) return std::string(digits);
    return keepInstead(present, "I said two digits...");
}

std::string keepSearchSize(const std::string& typed) {
    std::string kept = typed;
    if (CheckSize(kept)) return kept;
    return keepInstead("1.", "Value not numeric or out of range. Assumed 1.");
}

std::string keepSearchMargin(const std::string& typed) {
    return isPlainNumber(typed) && numericValue(typed) == 0.0 ? typed : keepSearchSize(typed);
}

std::string keepSearchString(const std::string& typed, const std::string& present) {
    if (isEmptyString(typed)) return keepInstead(present, "Empty string not allowed as search argument.");
    if (typed == "\"" || typed == "'") return keepInstead(present, "Invalid search string (Delimiter only).");
    for (const char delimiter : {quote, apostrophe})
        if (typed.starts_with(delimiter) && !typed.ends_with(delimiter))
            return keepInstead(present, "Different begin and end delimiters.");
    // An apostrophe between apostrophes passes; it is the quote that both refuse.
    const bool holdsQuote = withoutDelimiters(typed).find(quote) != std::string::npos;
    if (isIn(typed, quote) && holdsQuote)
        return keepInstead(present, "Quote in search argument when embedded by quotes not allowed.");
    if (isIn(typed, apostrophe) && holdsQuote)
        return keepInstead(present, "Apostrophe in search argument when embedded by apostrophe not allowed.");
    return typed;
}

std::string keepReplacement(const std::string& typed, const std::string& present) {
    if (typed.empty()) return present;
    if (typed.find_first_of("\"'") == std::string::npos) return typed;
    if (!isIn(typed, quote) && !isIn(typed, apostrophe))
        return keepInstead(present, "Beginning and ending delimiter are different.");
    if (typed.size() <= 2)
        return keepInstead(
            present,
            "String contains one or more apostrophes and/or quotes but it is not within delimiters.");
    return typed;
}

void excludeOtherFilters() {
    if (!textSearch.chkSearchReplaceIncludeFont) return;
    textSearch.chkReplaceWholeWord = false;
    textSearch.chkEditSearchFont = false;
    textSearch.chkEditSearchSize = false;
    textSearch.chkEditVerify = false;
}

}  // namespace tul::edit
