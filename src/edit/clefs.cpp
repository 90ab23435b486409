#include "edit/clefs.h"

#include <unordered_map>

#include "base/text.h"
#include "edit/edit_run.h"
#include "edit/instrument_ids.h"
#include "music/items.h"

namespace tul::edit {

Clefs clefs;

namespace {

constexpr float trebleClef = 0.0F;
constexpr float choralTenorClef = 0.8F;
constexpr float bassClef = 1.0F;

constexpr const char* octaveSign = "_038";
constexpr float octaveShift = 1.0F;
constexpr float octaveHeight = 11.0F;
constexpr float octaveSize = 0.7F;
constexpr float octaveSizeAtMovedClef = 0.56F;

constexpr int highestWholeId = 9999;

/// The staff items of one number that are of the instrument. Each of them moves or changes a clef anew, so
/// that the last one is where it stands, and all of them are counted.
struct Matches {
    int count = 0;
    float leftEnd = 0.0F;
};

class ClefsRun : public FamilyRun {
  public:
    void updateFile(const PageInRun& page) override;
    void writeCounters(Report& report, const RunResult&) const override {
        writeCounter(report, "Number of clefs changed . . . . . . . . . . ", changed_);
    }

  private:
    void findStaves();
    Matches matchesOf(const ItemRow& clef) const;
    void changeForm(ItemRow& clef, float form);
    void align(ItemRow& clef);
    void addOctaves(const PageInRun& page);

    const bool ofAll_ = clefs.txtEditKeyInstrument == allStaves;
    const float instrument_ = numberOf(clefs.txtEditKeyInstrument);
    const float distance_ = numberOf(clefs.txtClefAlign);
    std::unordered_map<float, Matches> staves_;  // by their number
    std::int32_t changed_ = 0;
};

void ClefsRun::findStaves() {
    staves_.clear();
    for (int item = 1; item <= musItemTable.itemCount; ++item) {
        const Parameters& pars = musItemTable[item].pars;
        if (!isStaff(pars) || !(ofAll_ || pars[par::instrument] == instrument_)) continue;
        Matches& matches = staves_[pars[par::staff]];
        ++matches.count;
        matches.leftEnd = pars[par::position];
    }
}

Matches ClefsRun::matchesOf(const ItemRow& clef) const {
    const auto found = staves_.find(clef.pars[par::staff]);
    return found == staves_.end() ? Matches() : found->second;
}

void ClefsRun::changeForm(ItemRow& clef, float form) {
    const int changes = ofAll_ ? 1 : matchesOf(clef).count;
    if (changes > 0) clef.pars[par::clefForm] = form;
    countChange(changed_, changes);
}

void ClefsRun::align(ItemRow& clef) {
    const Matches staves = matchesOf(clef);
    if (staves.count > 0) clef.pars[par::position] = staves.leftEnd + distance_;
    countChange(changed_, staves.count);
}

ItemRow octaveAt(const Parameters& clef) {
    ItemRow row{.pars = {}, .text = octaveSign};
    row.pars[par::code] = code::text;
    row.pars[par::staff] = clef[par::staff];
    row.pars[par::position] = clef[par::position] + octaveShift;
    row.pars[par::height] = octaveHeight;
    row.pars[par::textSize] = clef[par::height] == 0.0F ? octaveSize : octaveSizeAtMovedClef;
    return row;
}

/// A page without room keeps those that it has got so far.
void ClefsRun::addOctaves(const PageInRun& page) {
    bool isFull = false;
    forEachItem([&](int, const ItemRow& row) {
        if (isFull || !isClef(row) || row.pars[par::clefForm] != bassClef) return;
        isFull = !hasRoom(page, "8va on bass clef");
        if (isFull) return;
        appendItem(octaveAt(row.pars));
        countChange(changed_);
    });
}

void ClefsRun::updateFile(const PageInRun& page) {
    if (clefs.optEditBasCleff8va) return addOctaves(page);
    findStaves();
    forEachItem([this](int, ItemRow& row) {
        if (!isClef(row)) return;
        const float form = row.pars[par::clefForm];
        if (clefs.optEditTtoC && form == trebleClef) changeForm(row, choralTenorClef);
        if (clefs.optEditCtoT && form == choralTenorClef) changeForm(row, trebleClef);
        if (clefs.optEditClef) align(row);
    });
}

// --- The family

bool changesClefs() {
    return clefs.optEditTtoC || clefs.optEditCtoT || clefs.optEditClef || clefs.optEditBasCleff8va;
}

bool mayRun() {
    if (!changesClefs()) return refuse("No use running when no option set");
    if (trim(clefs.txtEditKeyInstrument).empty()) return refuse("Instrument id must be set, or ALL");
    return true;
}

Field option(const char* name, bool& value) { return optionField("fraEditClef", name, value); }

std::vector<Field> fields() {
    return {
        option("optEditTtoC", clefs.optEditTtoC),
        option("optEditCtoT", clefs.optEditCtoT),
        option("optEditClef", clefs.optEditClef),
        option("optEditBasCleff8va", clefs.optEditBasCleff8va),
        option("Option5", clefs.Option5),
        readIf(textField("txtClefAlign", clefs.txtClefAlign, "Clef align distance", keepClefAlign),
               [] { return clefs.optEditClef; }),
        readIf(textField("txtEditKeyInstrument", clefs.txtEditKeyInstrument,
                         "Enter instrument id (0-9999) or ALL.", keepKeyInstrument),
               changesClefs),
    };
}

}  // namespace

const Family clefsFamily = {
    .tab = tabClef,
    .fields = fields,
    .reset = [] { clefs = {}; },
    .mayRun = mayRun,
    .begin = beginRun<ClefsRun>,
};

std::string keepClefAlign(const std::string& typed) {
    const std::string assumed = Clefs().txtClefAlign;
    if (!isParameterValue(typed)) return keepInstead(assumed, "Value not numeric. Assumed 1.25");
    if (numericValue(typed) < 0) return keepInstead(assumed, "Value negative. Assumed 1.25");
    return typed;
}

std::string keepKeyInstrument(const std::string& typed) {
    return keepWholeOrAll(upperCase(trim(typed)), 0, highestWholeId, "Invalid instrument id. Assumed ALL.");
}

}  // namespace tul::edit
