#include "edit/text_fonts.h"

#include <string_view>

#include "base/text.h"
#include "edit/edit_run.h"
#include "edit/text_search.h"
#include "host/interrupt.h"
#include "music/font_prefix.h"
#include "music/items.h"

namespace tul::edit {

TextFonts textFonts;

namespace {

const std::string newLine(CrLf);
constexpr std::string_view replaceQuestion = "Replace? (Cancel will stop any further modifying)";

class FontsRun : public FamilyRun {
  public:
    void updateFile(const PageInRun&) override;
    void writeCounters(Report& report, const RunResult& result) const override;

  private:
    void setFont(std::string& text, std::size_t place);
    void modifyFonts(int item, ItemRow& row);
    void modifyText(int item, ItemRow& row);
    bool isDeletionAgreed();
    void deleteText(int item, ItemRow& row);
    void modifyNumber(int item, Parameters& pars);

    std::int32_t modified_ = 0;
    std::int32_t deleted_ = 0;
    bool deletionAgreed_ = false;  // to all items of the filter
};

std::string inFile() { return "in file: " + currentPath() + newLine; }

/// The end of a question, behind what was found.
std::string behindFound(int item, std::string_view question) {
    return itemNumberLine(item) + newLine + std::string(question);
}

// --- A change of the font

std::string inputPrefix() { return "_" + textFonts.txtEditFontInput; }

void FontsRun::setFont(std::string& text, std::size_t place) {
    text.replace(place, fontPrefixLength, "_" + textFonts.txtEditFontOutput);
    countChange(modified_);
}

/// The first of the fonts is changed, whichever was found: what a No has left behind is changed by the next
/// Yes.
void FontsRun::modifyFonts(int item, ItemRow& row) {
    const std::string font = inputPrefix();
    const bool fits =
        textFonts.txtModifySize.empty() || numberOf(textFonts.txtModifySize) == row.pars[par::textSize];
    for (std::size_t from = 0; (from = row.text.find(font, from)) != std::string::npos;
         from += fontPrefixLength) {
        const bool confirmed = !textSearch.chkEditVerify ||
                               isConfirmed("Found text item with font: " + textFonts.txtEditFontInput +
                                           newLine + "text item: " + row.text + newLine + inFile() +
                                           "replace by font: " + textFonts.txtEditFontOutput + newLine +
                                           behindFound(item, replaceQuestion));
        if (isCancelled()) return;
        if (confirmed && fits) setFont(row.text, row.text.find(font));
    }
}

void FontsRun::modifyText(int item, ItemRow& row) {
    const std::string_view filter = trim(textFonts.txtDelModFilter);
    if (filter.empty()) return modifyFonts(item, row);
    if (row.text == inputPrefix() + std::string(filter)) setFont(row.text, 0);
}

// --- Deletion

/// An interrupt at the question stops the run; it is no refusal by which the program ends.
bool FontsRun::isDeletionAgreed() {
    if (textFonts.txtDelModFilter.empty() || deletionAgreed_) return true;
    const Answer answer = MsgBox("Delete all the items with text '" + textFonts.txtDelModFilter + "'?" +
                                     newLine + "Answering NO will terminate the session.",
                                 Buttons::yesNo, Icon::question);
    deletionAgreed_ = answer == Answer::yes;
    if (!deletionAgreed_ && !isInterrupted())
        endWith("TUL needs to close after selecting NO to this prompt.");
    if (!deletionAgreed_) editing.view.control.abandon();
    return deletionAgreed_;
}

void FontsRun::deleteText(int item, ItemRow& row) {
    if (!isDeletionAgreed() || !hasFont(row.text, textFonts.txtEditFontInput)) return;
    if (textSearch.chkEditVerify &&
        !isConfirmed("Found text item with leading font: " + textFonts.txtEditFontInput + newLine +
                     "text item: " + row.text + newLine + inFile() +
                     behindFound(item, "Delete? (Cancel will stop any further deletion)")))
        return;
    if (!row.text.ends_with(textFonts.txtDelModFilter)) return;
    deleteItem(row);
    countChange(deleted_);
}

// --- Numbers

/// A number is asked about even where it will not be changed; a Cancel counts all the same.
void FontsRun::modifyNumber(int item, Parameters& pars) {
    constexpr float thousand = 1000.0F;
    constexpr float hundred = 100.0F;
    float font = pars[par::numberFont];
    if (font >= thousand) font -= thousand;
    if (font >= hundred) font -= hundred;
    if (font != numberOf(textFonts.txtEditFontInput)) return;
    if (textSearch.chkEditVerify &&
        !isConfirmed("Found number with font in Par7:" + str(pars[par::numberFont]) + newLine + inFile() +
                     "replace by font: " + textFonts.txtEditFontOutput + newLine +
                     behindFound(item, replaceQuestion)))
        return;
    if (textFonts.optEditDeleteText || !textFonts.chkEditModifyInclude) return;
    pars[par::numberFont] = numberOf(textFonts.txtEditFontOutput) + (pars[par::numberFont] - font);
    countChange(modified_);
}

// --- The family

void FontsRun::updateFile(const PageInRun&) {
    forEachItem([this](int item, ItemRow& row) {
        if (isNumber(row)) modifyNumber(item, row.pars);
        if (!isText(row)) return;
        textFonts.optEditDeleteText ? deleteText(item, row) : modifyText(item, row);
    });
}

void FontsRun::writeCounters(Report& report, const RunResult&) const {
    const TextFonts& fonts = textFonts;
    if (fonts.optEditDeleteText)
        return writeCounter(report, "Number of Code16 items deleted  . . . . . . ", deleted_,
                            " (Font " + fonts.txtEditFontInput + ")");
    writeCounter(report,
                 fonts.chkEditModifyInclude ? "Number of Code16/Code10 fonts modified  . . "
                                            : "Number of Code16 fonts modified . . . . . . ",
                 modified_, " (Font " + fonts.txtEditFontInput + " to " + fonts.txtEditFontOutput + ")");
}

bool mayRun() {
    const TextFonts& fonts = textFonts;
    if (fonts.optEditDeleteText && fonts.txtEditFontInput.empty())
        return refuse("The input font must be defined for Code16 deletion.");
    if (!fonts.optEditModifyText) return true;
    if (fonts.txtEditFontInput.empty() || fonts.txtEditFontOutput.empty())
        return refuse("The input and output fonts must be defined for Code16 font modification.");
    if (fonts.txtEditFontInput == fonts.txtEditFontOutput)
        return refuse("Input and output font are equal. Run canceled.");
    return true;
}

// --- Fields

std::vector<Field> fields() {
    const auto isChosen = [] { return textFonts.optEditDeleteModify; };
    const auto modifies = [] { return textFonts.optEditDeleteModify && textFonts.optEditModifyText; };
    return {
        readIf(onlyIf(checkField("chkEditVerify", textSearch.chkEditVerify),
                      [] { return !textSearch.chkSearchReplaceIncludeFont; }),
               [] { return textSearch.optEditSearch || textFonts.optEditDeleteModify; }),
        optionField("fraEditText", "optEditDeleteModify", textFonts.optEditDeleteModify),
        readIf(optionField("fraEditFont", "optEditDeleteText", textFonts.optEditDeleteText), isChosen),
        readIf(optionField("fraEditFont", "optEditModifyText", textFonts.optEditModifyText), isChosen),
        readIf(fontField("txtEditFontInput", textFonts.txtEditFontInput), isChosen),
        readIf(fontField("txtEditFontOutput", textFonts.txtEditFontOutput), modifies),
        readIf(checkField("chkEditModifyInclude", textFonts.chkEditModifyInclude), modifies),
        readIf(textField("txtDelModFilter", textFonts.txtDelModFilter,
                         "Only items with this text behind the font. Empty for all."),
               isChosen),
        readIf(textField("txtModifySize", textFonts.txtModifySize,
                         "Only text items of exactly this size (Par6). Empty for all."),
               modifies),
    };
}

}  // namespace

const Family textFontsFamily = {
    .tab = tabText,
    .fields = fields,
    .reset = [] { textFonts = {}; },
    .isChosen = [] { return textFonts.optEditDeleteModify; },
    .mayRun = mayRun,
    .begin = beginRun<FontsRun>,
};

}  // namespace tul::edit
