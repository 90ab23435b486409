#include "edit/lyrics.h"

#include "centre/project_options.h"
#include "edit/edit_run.h"
#include "music/font_prefix.h"
#include "music/items.h"
#include "shared/records.h"

namespace tul::edit {

Lyrics lyrics;

namespace {

constexpr float fullTurn = -360.0F;

class LyricsRun : public FamilyRun {
  public:
    void updateFile(const PageInRun&) override {
        forEachItem([this](int, ItemRow& row) {
            if (isText(row)) update(row);
        });
    }
    void writeCounters(Report& report, const RunResult&) const override {
        writeCounter(report, "Number of lyrics Par9 updated . . . . . ", updated_);
    }

  private:
    void update(ItemRow& row);

    const float size_ = numberOf(lyrics.txtLJsize);
    std::int32_t updated_ = 0;
};

/// A text without a size gets one, whether it is one of the lyrics or not. That is no change by itself.
void LyricsRun::update(ItemRow& row) {
    Parameters& pars = row.pars;
    if (pars[par::textSize] == 0.0F) pars[par::textSize] = 1.0F;
    if (pars[par::textSize] != size_ || row.text.substr(0, fontPrefixLength) != lyrics.txtLJfont) return;
    pars[par::textTurn] = lyrics.optLJ360 ? fullTurn : 0.0F;
    countChange(updated_);
}

void load() {
    lyrics.txtLJsize = projectSettings.LyricsSize;
    lyrics.txtLJfont = projectSettings.LyricsFont;
    lyrics.txtLJfontName = fontNameOf(lyrics.txtLJfont);
}

std::vector<Field> fields() {
    return {
        optionField("fraEditLyrics", "optLJ360", lyrics.optLJ360),
        optionField("fraEditLyrics", "optLyricsZero", lyrics.optLyricsZero),
        shownField("txtLJsize", lyrics.txtLJsize),
        shownField("txtLJfont", lyrics.txtLJfont),
        shownField("txtLJfontName", lyrics.txtLJfontName),
    };
}

}  // namespace

const Family lyricsFamily = {
    .tab = tabLyrics,
    .fields = fields,
    .reset = [] { lyrics = {}; },
    .load = load,
    .begin = beginRun<LyricsRun>,
};

}  // namespace tul::edit
