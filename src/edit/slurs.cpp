#include "edit/slurs.h"

#include <algorithm>
#include <array>

#include "edit/edit_run.h"
#include "music/items.h"

namespace tul::edit {

Slurs slurs;

namespace {

constexpr std::array<float, 4> tiesAndEndings = {-2, -3, 1, 2};

bool isAligned(const Parameters& slur) {
    if (slurs.optSlurVertAlignHite) return slur[par::height] != slur[par::endHeight];
    return std::find(tiesAndEndings.begin(), tiesAndEndings.end(), slur[par::slurKind]) ==
           tiesAndEndings.end();
}

class SlursRun : public FamilyRun {
  public:
    void updateFile(const PageInRun&) override {
        if (!slurs.chkSlurVertAlign) return;
        forEachItem([this](int, ItemRow& row) {
            if (isSlur(row) && isAligned(row.pars)) slurVertAlign(row.pars);
        });
    }
    void writeCounters(Report& report, const RunResult&) const override {
        writeCounter(report, "Number of slurs vert aligned  . . . . . ", aligned_);
    }

  private:
    void slurVertAlign(Parameters& slur) {
        for (const int end : {par::height, par::endHeight}) slur[end] = rounded(slur[end]);
        countChange(aligned_);
    }

    std::int32_t aligned_ = 0;
};

std::vector<Field> fields() {
    const auto aligns = [] { return slurs.chkSlurVertAlign; };
    return {
        checkField("chkSlurVertAlign", slurs.chkSlurVertAlign),
        readIf(optionField("fraEditSlur", "optSlurVertAlignHite", slurs.optSlurVertAlignHite), aligns),
        readIf(optionField("fraEditSlur", "optSlurVertAlignPar8", slurs.optSlurVertAlignPar8), aligns),
    };
}

}  // namespace

const Family slursFamily = {
    .tab = tabSlur,
    .fields = fields,
    .reset = [] { slurs = {}; },
    .begin = beginRun<SlursRun>,
};

}  // namespace tul::edit
