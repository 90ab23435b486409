#include "edit/general_edit.h"

#include <algorithm>
#include <utility>

#include "base/print_line.h"
#include "base/text.h"
#include "edit/edit_run.h"
#include "music/font_prefix.h"
#include "music/items.h"

namespace tul::edit {

GeneralEdit generalEdit;

namespace {

constexpr std::string_view valuePattern = "###0.####";
constexpr int noParameter = -1;

/// Nothing that fits is -1, which no table has.
int parameterOf(const std::string& text) { return toInt32(numericValue(text)).value_or(noParameter); }

std::string compareString() { return std::string(trim(generalEdit.txtGeneralEdit)); }

// --- Checks before a run

bool mayChange() {
    const GeneralEdit& edit = generalEdit;
    const bool compares = !compareString().empty();
    const bool isEqual = edit.lstr[0].text == "=";
    const float value = numberOf(edit.txtv[0]);
    if (compares && isEqual && value != code::text && value != code::symbol)
        return refuse("A compare string was provided but the operator is not '=16' or '=9'");
    if (compares && isEqual && value == code::text && !beginsWithFont(edit.txtGeneralEdit))
        return refuse("The compare string is not preceded by a font");
    if (!compares && !isDigitsOnly(edit.txtp4)) return refuse("Result parameter not numeric: " + edit.txtp4);
    if (numberOf(edit.txtp4) == 1.0F &&
        !isAgreed("Changing Par1 is quite drastic. Are you sure?", Buttons::yesNo))
        return false;
    if (!compares && !isPlainNumber(edit.txtv4)) return refuse("Invalid set to value: " + edit.txtv4);
    return true;
}

bool isFirstComplete() {
    const GeneralEdit& edit = generalEdit;
    const float par = numberOf(edit.txtp[0]);
    if (par < 1.0F || par > 18.0F) return refuse("Invalid parameter in first condition: " + edit.txtp[0]);
    if (!isPlainNumber(edit.txtv[0])) return refuse("Invalid value in first condition: " + edit.txtv[0]);
    if (edit.lstr[0].list.selected < 0) return refuse("No relation selected in first condition");
    return true;
}

/// The second condition, or the third. What is wrong with the third is told with the fields of the second.
bool isComplete(std::size_t condition) {
    const GeneralEdit& edit = generalEdit;
    if (edit.lstl[condition - 1].list.selected == 0) return true;
    const std::string where = condition == 1 ? " in second condition" : " in third condition";
    if (!isDigitsOnly(edit.txtp[condition])) return refuse("Invalid parameter" + where + ":" + edit.txtp[1]);
    if (!isPlainNumber(edit.txtv[condition])) return refuse("Invalid value" + where + ": " + edit.txtv[1]);
    if (edit.lstr[condition].list.selected < 0) return refuse("No relation selected" + where);
    return true;
}

bool mayRun() {
    if (generalEdit.optOptionChange && !mayChange()) return false;
    return isFirstComplete() && isComplete(1) && isComplete(2);
}

// --- Conditions

struct Condition {
    float typedPar;
    int par;  // the one that it is rounded to
    std::string relation;
    float value;

    bool holds(const Parameters& pars, float margin) const;
    std::string text() const;
};

Condition conditionOf(std::size_t number) {
    const std::string& par = generalEdit.txtp[number];
    return {numberOf(par), parameterOf(par), generalEdit.lstr[number].text,
            numberOf(generalEdit.txtv[number])};
}

/// Par 0 is no parameter: it reads as 0.
bool Condition::holds(const Parameters& pars, float margin) const {
    const float x = par == 0 ? 0.0F : pars[par];
    const float low = value - margin;
    const float high = value + margin;
    if (relation == "=") return low <= x && x <= high;
    if (relation == "<>") return x < low || x > high;
    if (relation == "<") return x < high;
    if (relation == "<=") return x <= value;
    if (relation == ">") return x > low;
    return relation == ">=" && x >= value;
}

std::string Condition::text() const {
    return "Par" + plain(typedPar) + " " + relation + " " + formatted(value, valuePattern);
}

bool joinedBy(const std::string& logic, bool left, bool right) {
    if (logic == "AND") return left && right;
    if (logic == "OR") return left || right;
    if (logic == "&not") return left && !right;
    return left;
}

// --- One file

class GeneralRun : public FamilyRun {
  public:
    void updateFile(const PageInRun& page) override;
    void writeCounters(Report& report, const RunResult& result) const override;

  private:
    void update(int item, ItemRow& row, Report& report) const;
    void writeHead(Report& report) const;
    bool selects(const ItemRow& row) const;
    bool holdsFirst(const ItemRow& row) const;
    bool holdsJoined(std::size_t number, const ItemRow& row) const;
    void change(ItemRow& row) const;

    const GeneralEdit& edit_ = generalEdit;
    const float margin_ = numberOf(edit_.txtGeneralMargin);
    const std::array<Condition, 3> conditions_ = {conditionOf(0), conditionOf(1), conditionOf(2)};
    const std::string compared_ = compareString();
    const std::string comparedLibrary_ = upperCase(compared_);
    const bool setsText_ = conditions_[0].value == code::text && !isDigitsOnly(edit_.txtp4);
    const int changedPar_ = parameterOf(edit_.txtp4);
    const float newValue_ = numberOf(edit_.txtv4);
};

/// The value alone tells whether something is compared, whatever the parameter is.
bool GeneralRun::holdsFirst(const ItemRow& row) const {
    const Condition& first = conditions_[0];
    if (!first.holds(row.pars, margin_)) return false;
    if (first.relation != "=") return true;
    if (first.value == code::text) return compared_.empty() || row.text == compared_;
    if (first.value == code::symbol) return setSymbolLibe(row.pars[par::symbolNumber]) == comparedLibrary_;
    return true;
}

/// Evaluated before any click as well: its result has no effect then.
bool GeneralRun::holdsJoined(std::size_t number, const ItemRow& row) const {
    return !edit_.lstl[number - 1].text.starts_with('-') && conditions_[number].holds(row.pars, margin_);
}

bool GeneralRun::selects(const ItemRow& row) const {
    const bool first = holdsFirst(row);
    const bool second = holdsJoined(1, row);
    const bool third = holdsJoined(2, row);
    return joinedBy(edit_.lstl[1].text, joinedBy(edit_.lstl[0].text, first, second), third);
}

void GeneralRun::change(ItemRow& row) const {
    if (setsText_) {
        row.text = edit_.txtv4;
    } else if (changedPar_ != 0) {
        row.pars[changedPar_] = newValue_;
    }
    countChange();
}

void GeneralRun::update(int item, ItemRow& row, Report& report) const {
    if (!selects(row)) return;
    if (edit_.optOptionChange) change(row);
    PrintLine line;
    line.zone().text("Item=" + plain(item));
    for (const int par : {1, 2, 3}) line.zone().text(" Par" + plain(par) + "=" + plain(row.pars[par]));
    if (isText(row)) line.text("      " + row.text);
    report.line(line);
}

std::string actionLine() {
    const GeneralEdit& edit = generalEdit;
    if (compareString().empty()) return "Par" + plain(numberOf(edit.txtp4)) + " to " + edit.txtv4;
    if (edit.lstr[0].text == "=" && edit.txtv[0] == "9" && edit.txtp4 == "1" && edit.txtv4 == "999")
        return "Deleting item refering to DRW file " + edit.txtGeneralEdit;
    return "Text " + edit.txtGeneralEdit + " to " + edit.txtv4;
}

void GeneralRun::writeHead(Report& report) const {
    const bool changes = edit_.optOptionChange;
    report.line(std::string("TulEdit General for ") + (changes ? "CHANGE" : "REPORT"));
    report.line("Margin: " + formatted(margin_, valuePattern));
    report.line("");
    report.line("Conditions:");
    report.line(PrintLine().zone().text("if ").zone().text(conditions_[0].text()));
    for (const std::size_t number : {1U, 2U})
        if (const ChoiceList& logic = edit_.lstl[number - 1]; logic.list.selected > 0)
            report.line(PrintLine().zone().text(logic.text).zone().text(conditions_[number].text()));
    report.line(PrintLine().zone().text(changes ? "then CHANGE" : "then REPORT"));
    if (changes) report.line(actionLine());
    report.line("");
    report.line(changes ? "First 3 params of changed item" : "First 3 params of matching items");
}

// --- The family

/// A parameter that no item has ends the program. The file that it was found in stays as it was.
void GeneralRun::updateFile(const PageInRun& page) {
    if (page.number == 1) writeHead(page.report);
    try {
        forEachItem([&](int item, ItemRow& row) { update(item, row, page.report); });
    } catch (const IndexFault&) {
        endWith("Parameter out of range in the general edit. Items have Par1 to Par20." + std::string(CrLf) +
                "Not changed: " + page.result.path);
    }
}

void GeneralRun::writeCounters(Report& report, const RunResult& result) const {
    writeCounter(report, "Number general updates. . . . . . . . . ", result.changes());
}

// --- Fields

Field choice(const char* name, ChoiceList& list, const char* what) {
    std::string prompt = what;
    for (const std::string& entry : list.list.entries) prompt += " " + entry;
    Field field = listField(name, list.list, [&list](const std::string& entry) { list.choose(entry); });
    field.prompt = prompt;
    return field;
}

/// Of the condition that is joined by this logic, if by any.
Field inRow(std::size_t logic, Field field) {
    return readIf(std::move(field), [logic] { return generalEdit.lstl[logic].list.selected > 0; });
}

Field actionField(Field field) {
    return shownIf(std::move(field), [] { return generalEdit.optOptionChange; });
}

std::vector<Field> fields() {
    auto& [change, locate, margin, par, value, relation, logic, compared, newPar, newValue] = generalEdit;
    return {
        optionField("fraGeneralAction", "optOptionChange", change),
        withStep(optionField("fraGeneralAction", "optEditGeneralLocate", locate), reportOnly),
        textField("txtGeneralMargin", margin, "Enter a +/- margin to recognize values", keepGeneralMargin),
        textField("txtp1", par[0], "Parameter of the first condition (1-18)"),
        choice("lstr1", relation[0], "Relation of the first condition:"),
        textField("txtv1", value[0], "Value of the first condition"),
        choice("lstl2", logic[0], "Joins the second condition:"),
        inRow(0, textField("txtp2", par[1], "Parameter of the second condition")),
        inRow(0, choice("lstr2", relation[1], "Relation of the second condition:")),
        inRow(0, textField("txtv2", value[1], "Value of the second condition")),
        choice("lstl3", logic[1], "Joins the third condition:"),
        inRow(1, textField("txtp3", par[2], "Parameter of the third condition")),
        inRow(1, choice("lstr3", relation[2], "Relation of the third condition:")),
        inRow(1, textField("txtv3", value[2], "Value of the third condition")),
        textField(
            "txtGeneralEdit", compared,
            "Where the first condition is =16: the whole text, font included. Where it is =9: the symbol "
            "library, such as LIBRA."),
        actionField(textField("txtp4", newPar, "Parameter to set. Empty to set the text.")),
        actionField(textField("txtv4", newValue, "Value that it is set to, or the new text, font included")),
    };
}

}  // namespace

const Family generalFamily = {
    .tab = tabGeneral,
    .fields = fields,
    .reset = [] { generalEdit = {}; },
    .load =
        [] {
            generalEdit.optOptionChange = true;
            generalEdit.optEditGeneralLocate = false;
        },
    .mayRun = mayRun,
    .begin = beginRun<GeneralRun>,
};

ChoiceList relationList() { return {{"=", "<>", "<", "<=", ">", ">="}, -1}; }

ChoiceList logicList() { return {{"--------", "AND", "&not", "OR"}, 0}; }

ChoiceList::ChoiceList(std::vector<std::string> entries, int initial) : initial_(initial) {
    list.entries = std::move(entries);
    list.selected = initial;
}

void ChoiceList::choose(const std::string& entry) {
    const auto found = std::find(list.entries.begin(), list.entries.end(), entry);
    const bool isEntry = found != list.entries.end();
    list.selected = isEntry ? static_cast<int>(found - list.entries.begin()) : initial_;
    text = isEntry ? entry : std::string();
}

std::string keepGeneralMargin(const std::string& typed) {
    if (isPlainNumber(typed)) return typed;
    return keepInstead(".001", "Margin should be numeric. Assumed .001");
}

void reportOnly() {
    if (generalEdit.optEditGeneralLocate) editing.chkEditBackup = false;
}

std::string setSymbolLibe(float par5) {
    constexpr int letters = 26;
    const std::string number = padRight(plain(par5), 4).substr(0, 3);
    const int library = toInt32(numericValue(number)).value_or(0);
    return std::string("LIB") + static_cast<char>('R' + library / letters) +
           static_cast<char>('A' + library % letters);
}

}  // namespace tul::edit
