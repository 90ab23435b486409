#include "edit/instrument_ids.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"
#include "edit/edit_run.h"
#include "music/items.h"
#include "shared/records.h"

namespace tul::edit {

InstrumentIds instrumentIds;

namespace {

constexpr double highestId = 9999.999;
constexpr std::size_t mostDecimals = 3;

class InstrumentIdsRun : public FamilyRun {
  public:
    void updateFile(const PageInRun&) override;
    void writeCounters(Report& report, const RunResult&) const override {
        writeCounter(report, "Number of instrument Ids. set . . . . . ", changed_);
    }

  private:
    std::optional<float> newIdOf(float staff) const;
    std::optional<float> idInSystem(float staff) const;

    const bool perStaff_ = instrumentIds.optEditStaffInstrIdPerStaff;
    const bool ofAll_ = instrumentIds.txtEditInstrIdStaff == allStaves;
    const float staff_ = numberOf(instrumentIds.txtEditInstrIdStaff);
    const float id_ = numberOf(instrumentIds.txtEditInstrId);
    const int stavesInSystem_ = toInt32(numericValue(instrumentIds.txtEditInstrIdSystem)).value_or(0);
    const std::vector<StaffAndId> pairs_ =
        convertStaffNumberingString(instrumentIds.txtEditInstrIdMultiple).value_or(std::vector<StaffAndId>());
    std::int32_t changed_ = 0;
};

/// All systems have the same number of staves, counted from the bottom of the page.
std::optional<float> InstrumentIdsRun::idInSystem(float staff) const {
    const auto number = toInt32(staff);
    if (!number || stavesInSystem_ < 1) return std::nullopt;
    const int inSystem = *number > stavesInSystem_ ? (*number - 1) % stavesInSystem_ + 1 : *number;
    const auto found = std::find_if(pairs_.begin(), pairs_.end(),
                                    [=](const StaffAndId& pair) { return pair.staff == inSystem; });
    return found == pairs_.end() ? std::nullopt : std::optional(found->id);
}

std::optional<float> InstrumentIdsRun::newIdOf(float staff) const {
    if (!perStaff_) return idInSystem(staff);
    return ofAll_ || staff == staff_ ? std::optional(id_) : std::nullopt;
}

void InstrumentIdsRun::updateFile(const PageInRun&) {
    forEachItem([this](int, ItemRow& row) {
        if (!isStaff(row)) return;
        const auto id = newIdOf(row.pars[par::staff]);
        if (!id) return;
        row.pars[par::instrument] = *id;
        countChange(changed_);
    });
}

// --- The family

/// What is wrong with a number of staves in a system; null where nothing is.
const char* faultOfSystem(const std::string& staves) {
    if (!isDigitsOnly(staves)) return "Expecting digits only...";
    const double number = numericValue(staves);
    if (number < 1 || number > projectSettings.StaffRange) return "Value out of staff range...";
    return nullptr;
}

/// Without a number of staves there are no systems to count in.
bool mayRun() {
    if (!instrumentIds.optEditStaffInstrIdPerSystem) return true;
    const char* const fault = faultOfSystem(instrumentIds.txtEditInstrIdSystem);
    return !fault || refuse(fault);
}

std::string staffPrompt() {
    return "Enter staff number (1-" + plain(projectSettings.StaffRange) + ") or ALL.";
}

const char* const systemPrompt =
    "Number of staves in system (Note that all systems MUST have the same number of staves.";
const char* const pairsPrompt =
    "Staff in system/instr id [, Staff in system/instr id] ...\r\n"
    "Staff=1-256, InstrId=0-9999.999";

std::vector<Field> fields() {
    InstrumentIds& ids = instrumentIds;
    const auto setsIds = [] { return instrumentIds.optEditStaffInstrId; };
    const auto perStaff = [] {
        return instrumentIds.optEditStaffInstrId && instrumentIds.optEditStaffInstrIdPerStaff;
    };
    const auto perSystem = [] {
        return instrumentIds.optEditStaffInstrId && instrumentIds.optEditStaffInstrIdPerSystem;
    };
    const auto way = [&](const char* name, bool& value) {
        return readIf(optionField("fraEditStaffInstrId", name, value), setsIds);
    };
    return {
        optionField("fraEditStaff", "optEditStaffInstrId", ids.optEditStaffInstrId),
        way("optEditStaffInstrIdPerStaff", ids.optEditStaffInstrIdPerStaff),
        way("optEditStaffInstrIdPerSystem", ids.optEditStaffInstrIdPerSystem),
        readIf(textField("txtEditInstrIdStaff", ids.txtEditInstrIdStaff, staffPrompt, keepStaffNumber),
               perStaff),
        readIf(textField("txtEditInstrId", ids.txtEditInstrId, "Enter instrument id (0-9999.999).",
                         keepInstrumentId),
               perStaff),
        readIf(keptField("txtEditInstrIdSystem", ids.txtEditInstrIdSystem, systemPrompt, keepStavesInSystem),
               perSystem),
        readIf(
            keptField("txtEditInstrIdMultiple", ids.txtEditInstrIdMultiple, pairsPrompt, keepStaffNumbering),
            perSystem),
    };
}

Command fillCommand(const char* name, const char* caption, void (*run)(), const char* toolTip) {
    return {.name = name, .caption = caption, .run = run, .toolTip = toolTip};
}

void fillSystem(const char* staves, const char* pairs) {
    instrumentIds.txtEditInstrIdSystem = staves;
    instrumentIds.txtEditInstrIdMultiple = pairs;
}

std::vector<Command> commands() {
    return {
        fillCommand(
            "cmdDuo", "Duo", [] { fillSystem("2", "1/2,2/1"); },
            "Systems of two staves: the upper one gets instrument id 1, the lower one 2."),
        fillCommand(
            "cmdAllOnes", "All ones", [] { fillSystem("1", "1/1"); }, "Every staff gets instrument id 1."),
    };
}

}  // namespace

const Family instrumentIdsFamily = {
    .tab = tabStaff,
    .fields = fields,
    .commands = commands,
    .reset = [] { instrumentIds = {}; },
    .isChosen = [] { return instrumentIds.optEditStaffInstrId; },
    .mayRun = mayRun,
    .begin = beginRun<InstrumentIdsRun>,
};

std::string keepWholeOrAll(const std::string& typed, int lowest, int highest, const std::string& invalid) {
    if (typed == allStaves) return typed;
    if (!isPlainNumber(typed)) return keepInstead(allStaves, "Input should be numeric. Assumed ALL.");
    const double number = std::floor(numericValue(typed));
    if (number < lowest || number > highest) return keepInstead(allStaves, invalid);
    return plain(static_cast<int>(number));
}

std::string keepStaffNumber(const std::string& typed) {
    return keepWholeOrAll(typed, 1, projectSettings.StaffRange, "Invalid staff number. Assumed ALL.");
}

std::string keepInstrumentId(const std::string& typed) {
    const std::string id = upperCase(trim(typed));
    const double number = numericValue(id);
    if (!isPlainNumber(id)) return keepInstead("0", "Input should be numeric. Assumed 0.");
    if (number < 0 || number > highestId) return keepInstead("0", "Invalid instrument id number. Assumed 0.");
    if (splitAtFirst(id, '.').behind.size() > mostDecimals)
        return keepInstead("0", "Too many decimals (3 is max). Assumed 0.");
    return id;
}

std::string keepStavesInSystem(const std::string& typed, const std::string& present) {
    const char* const fault = faultOfSystem(typed);
    return fault ? keepInstead(present, fault) : typed;
}

std::string keepStaffNumbering(const std::string& typed, const std::string& present) {
    if (convertStaffNumberingString(typed)) return typed;
    return keepInstead(present, "Invalid input. Re-enter proper values");
}

std::optional<std::vector<StaffAndId>> convertStaffNumberingString(const std::string& text) {
    std::vector<StaffAndId> pairs;
    std::optional<int> staff;
    std::string piece;
    for (const char character : text + ',') {
        if (character == ' ') continue;
        if (isDigit(character) || character == '.') {
            piece += character;
            continue;
        }
        if (character != '/' && character != ',') return std::nullopt;
        const bool isPair = character == ',' && staff && holdsNumber(piece);
        if (isPair) pairs.push_back({*staff, numberOf(piece)});
        const bool isStaff = character == '/' && holdsNumber(piece);
        staff = isStaff ? toInt32(numericValue(piece)) : std::nullopt;
        piece.clear();
    }
    return pairs;
}

bool holdsNumber(const std::string& piece) { return std::any_of(piece.begin(), piece.end(), isDigit); }

}  // namespace tul::edit
