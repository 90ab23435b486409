#include "panels/edit_fields.h"

#include <utility>

#include "edit/edit_run.h"
#include "edit/general_edit.h"
#include "edit/text_fonts.h"
#include "edit/text_search.h"

namespace tul::editfields {

using edit::generalEdit;
using edit::textFonts;
using edit::textSearch;

namespace {

const char* const fontPrompt = "Enter two-digit font number";
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

/// A text whose validator may leave the present one.
Field keptText(const char* name, std::string& value, const char* prompt,
               std::string (*keep)(const std::string& typed, const std::string& present)) {
    return text(name, value, prompt, [&value, keep](const std::string& typed) { return keep(typed, value); });
}

/// A box or option with a step of its own behind a click.
Field withStep(Field field, void (*step)()) {
    field.accept = [step](const std::string& typed) {
        step();
        return typed;
    };
    return field;
}

Field choice(const char* name, edit::ChoiceList& list, const char* what) {
    std::string prompt = what;
    for (const std::string& entry : list.list.entries) prompt += " " + entry;
    return {.name = name,
            .kind = FieldKind::list,
            .value = &list.list,
            .prompt = prompt,
            .accept =
                [&list](const std::string& entry) {
                    list.choose(entry);
                    return entry;
                },
            .enabled = isIdle};
}

Field actionField(Field field) {
    field.visible = [] { return generalEdit.optOptionChange; };
    return field;
}

}  // namespace

bool isIdle() { return !edit::editing.control.running; }

Field text(const char* name, std::string& value, const char* prompt, Keep keep) {
    return {.name = name,
            .kind = FieldKind::text,
            .value = &value,
            .prompt = std::string(prompt),
            .accept = std::move(keep),
            .enabled = isIdle};
}

Field text(const char* name, std::string& value, const char* prompt) {
    return text(name, value, prompt, nullptr);
}

Field check(const char* name, bool& value) {
    return {.name = name, .kind = FieldKind::check, .value = &value, .enabled = isIdle};
}

Field option(const char* frame, const char* name, bool& value) {
    return {.name = name, .kind = FieldKind::option, .value = &value, .group = frame, .enabled = isIdle};
}

Field onlyIf(Field field, std::function<bool()> condition) {
    field.enabled = [condition = std::move(condition)] { return isIdle() && condition(); };
    return field;
}

std::vector<Field> textSearchFields() {
    const auto comparesParts = [] { return !textSearch.chkSearchReplaceIncludeFont; };
    const auto hasNoFilter = [] { return !textSearch.filters(); };
    return {
        option("fraEditText", "optEditSearch", textSearch.optEditSearch),
        onlyIf(check("chkEditVerify", textSearch.chkEditVerify), comparesParts),
        keptText("txtEditSearchString1", textSearch.txtEditSearchString1, searchPrompt,
                 edit::keepSearchString),
        keptText("txtEditSearchString2", textSearch.txtEditSearchString2, replacementPrompt,
                 edit::keepReplacement),
        onlyIf(withStep(check("chkSearchReplaceIncludeFont", textSearch.chkSearchReplaceIncludeFont),
                        edit::excludeOtherFilters),
               hasNoFilter),
        onlyIf(check("chkReplaceWholeWord", textSearch.chkReplaceWholeWord), comparesParts),
        onlyIf(check("chkEditSearchFont", textSearch.chkEditSearchFont), comparesParts),
        keptText("txtEditSearchFont", textSearch.txtEditSearchFont, fontPrompt, edit::keepFontDigits),
        onlyIf(check("chkEditSearchSize", textSearch.chkEditSearchSize), comparesParts),
        text("txtEditSearchSize", textSearch.txtEditSearchSize,
             "Text size filter (Code16, Par6. Value between 0 and 10)", edit::keepSearchSize),
        text("txtEditSearchMargin", textSearch.txtEditSearchMargin,
             "Margin (+/-) for size filter (Code16, Par6. Value from 0 to and including 10)",
             edit::keepSearchMargin),
    };
}

std::vector<Field> textFontsFields() {
    const auto modifies = [] { return textFonts.optEditModifyText; };
    return {
        option("fraEditText", "optEditDeleteModify", textFonts.optEditDeleteModify),
        option("fraEditFont", "optEditDeleteText", textFonts.optEditDeleteText),
        option("fraEditFont", "optEditModifyText", textFonts.optEditModifyText),
        keptText("txtEditFontInput", textFonts.txtEditFontInput, fontPrompt, edit::keepFontDigits),
        onlyIf(keptText("txtEditFontOutput", textFonts.txtEditFontOutput, fontPrompt, edit::keepFontDigits),
               modifies),
        check("chkEditModifyInclude", textFonts.chkEditModifyInclude),
        text("txtDelModFilter", textFonts.txtDelModFilter,
             "Only items with this text behind the font. Empty for all."),
        text("txtModifySize", textFonts.txtModifySize,
             "Only text items of exactly this size (Par6). Empty for all."),
    };
}

std::vector<Field> generalFields() {
    auto& [change, locate, margin, par, value, relation, logic, compared, newPar, newValue] = generalEdit;
    return {
        option("fraGeneralAction", "optOptionChange", change),
        withStep(option("fraGeneralAction", "optEditGeneralLocate", locate), edit::reportOnly),
        text("txtGeneralMargin", margin, "Enter a +/- margin to recognize values", edit::keepGeneralMargin),
        text("txtp1", par[0], "Parameter of the first condition (1-18)"),
        choice("lstr1", relation[0], "Relation of the first condition:"),
        text("txtv1", value[0], "Value of the first condition"),
        choice("lstl2", logic[0], "Joins the second condition:"),
        text("txtp2", par[1], "Parameter of the second condition"),
        choice("lstr2", relation[1], "Relation of the second condition:"),
        text("txtv2", value[1], "Value of the second condition"),
        choice("lstl3", logic[1], "Joins the third condition:"),
        text("txtp3", par[2], "Parameter of the third condition"),
        choice("lstr3", relation[2], "Relation of the third condition:"),
        text("txtv3", value[2], "Value of the third condition"),
        text("txtGeneralEdit", compared,
             "Where the first condition is =16: the whole text, font included. Where it is =9: the symbol "
             "library, such as LIBRA."),
        actionField(text("txtp4", newPar, "Parameter to set. Empty to set the text.")),
        actionField(text("txtv4", newValue, "Value that it is set to, or the new text, font included")),
    };
}

}  // namespace tul::editfields
