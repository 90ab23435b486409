#include "edit/rests.h"

#include "edit/edit_run.h"
#include "music/items.h"

namespace tul::edit {

Rests rests;

namespace {

constexpr float wholeRest = -2.0F;
constexpr float drawnMultirest = -5.0F;
constexpr float mostSignedBars = 9.0F;
constexpr float europeanRest = 10.0F;  // and the bars, as a negative form

class RestsRun : public FamilyRun {
  public:
    void updateFile(const PageInRun&) override;
    void writeCounters(Report& report, const RunResult&) const override;

  private:
    void markOneBar(Parameters& rest);
    void toEuropean(Parameters& rest);

    std::int32_t set_ = 0;
    std::int32_t reset_ = 0;
    std::int32_t converted_ = 0;
};

void RestsRun::markOneBar(Parameters& rest) {
    if (rest[par::height] != 0.0F || rest[par::restForm] != wholeRest) return;
    if (rests.optEditRestOneReset && rest[par::restBars] == 1.0F) {
        rest[par::restBars] = 0.0F;
        countChange(reset_);
    } else if (rests.optEditRestOneSet && rest[par::restBars] == 0.0F) {
        rest[par::restBars] = 1.0F;
        countChange(set_);
    }
}

void RestsRun::toEuropean(Parameters& rest) {
    float bars = 1.0F;
    if (rest[par::restForm] == drawnMultirest) {
        bars = rest[par::restBars];
        if (!(bars >= 1.0F && bars <= mostSignedBars)) return;
    } else if (rest[par::restForm] != wholeRest) {
        return;
    }
    rest[par::restForm] = -(bars + europeanRest);
    rest[par::restBars] = 0.0F;
    rest[par::restCentre] = 0.0F;
    countChange(converted_);
}

void RestsRun::updateFile(const PageInRun&) {
    forEachItem([this](int, ItemRow& row) {
        if (!isRest(row)) return;
        if (rests.chkEditRestOne) markOneBar(row.pars);
        if (rests.chkToEuropeanRest) toEuropean(row.pars);
    });
}

void RestsRun::writeCounters(Report& report, const RunResult&) const {
    if (rests.chkEditRestOne) {
        writeCounter(report, "Number of Whole rest 1's set  . . . . . . . ", set_);
        writeCounter(report, "Number of Whole rest 1's reset  . . . . . . ", reset_);
    }
    if (rests.chkToEuropeanRest)
        writeCounter(report, "Number of multiRests converted  . . . . . . ", converted_);
}

bool mayRun() {
    if (rests.chkEditRestOne != rests.chkToEuropeanRest) return true;
    return refuse("Both rest options are set or both are reset. Select one option only.");
}

std::vector<Field> fields() {
    const auto marksOneBar = [] { return rests.chkEditRestOne; };
    return {
        checkField("chkEditRestOne", rests.chkEditRestOne),
        readIf(optionField("fraEditRest", "optEditRestOneSet", rests.optEditRestOneSet), marksOneBar),
        readIf(optionField("fraEditRest", "optEditRestOneReset", rests.optEditRestOneReset), marksOneBar),
        checkField("chkToEuropeanRest", rests.chkToEuropeanRest),
    };
}

}  // namespace

const Family restsFamily = {
    .tab = tabRest,
    .fields = fields,
    .reset = [] { rests = {}; },
    .mayRun = mayRun,
    .begin = beginRun<RestsRun>,
};

}  // namespace tul::edit
