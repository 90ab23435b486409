#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "edit/resize.h"
#include "edit/resize_checks.h"
#include "host/host.h"
#include "music/item_table.h"
#include "music/pipeline.h"
#include "shared/records.h"

namespace tul::resize {

namespace {

bool isNear(float a, float b) { return std::fabs(a - b) < sizeMargin; }

// --- Notes

/// What the filters look at. Each sees the size that the one before it has left.
struct Note {
    float head;      // without the 10 that some heads have added
    float position;  // absolute integer part of the height
    float size;

    bool isSmall() const { return size < 1.0F; }
    bool isFullSize() const { return size == 0.0F || size >= 1.0F; }
};

struct NoteFilter {
    bool ResizeOptions::*box;
    std::int32_t Counters::*counter;
    bool (*matches)(const Note& note);
};

template <int Head>
bool isFullSizeHead(const Note& note) {
    return note.head == static_cast<float>(Head) && note.isFullSize();
}

constexpr std::array<NoteFilter, 7> noteFilters = {{
    {&ResizeOptions::chkResizeMini, &Counters::mini,
     [](const Note& note) { return note.position == 100.0F; }},
    {&ResizeOptions::chkResizeSmall, &Counters::small, [](const Note& note) { return note.isSmall(); }},
    {&ResizeOptions::chkResizeBlack, &Counters::black, isFullSizeHead<0>},
    {&ResizeOptions::chkResizeHalf, &Counters::half, isFullSizeHead<1>},
    {&ResizeOptions::chkResizeWhole, &Counters::whole, isFullSizeHead<2>},
    {&ResizeOptions::chkResizeBlackDiamond, &Counters::blackDiamond, isFullSizeHead<5>},
    {&ResizeOptions::chkResizeWhiteDiamond, &Counters::whiteDiamond, isFullSizeHead<4>},
}};

float headOf(float par6) {
    const float head = std::fabs(integerPart(par6));
    return head >= 10.0F ? head - 10.0F : head;
}

void resizeNote(ItemRow& row, float newSize, Counters& counters) {
    Note note = {headOf(row.pars[6]), std::fabs(integerPart(row.pars[4])), row.pars[15]};
    for (const NoteFilter& filter : noteFilters) {
        if (!(resizing.options.*filter.box) || !filter.matches(note)) continue;
        note.size = newSize;
        ++(counters.*filter.counter);
    }
    row.pars[15] = note.size;
}

// --- Placeholders

const std::string placeholderText = "_00Z";
constexpr float placeholderReach = 2.0F;  // how far from its note a placeholder may stand

/// The placeholders of the table, so that not every note has to look through all its items.
std::vector<int> findPlaceholders() {
    std::vector<int> rows;
    for (int item = 1; item <= musItemTable.itemCount; ++item)
        if (musItemTable[item].pars[1] == 16.0F && musItemTable[item].text == placeholderText)
            rows.push_back(item);
    return rows;
}

void storePlaceholder(float staff, float place, float height, float size) {
    musItem.MusPar.clear();
    musItem.MusPar[1] = 16.0F;
    musItem.MusPar[2] = staff;
    musItem.MusPar[3] = place;
    musItem.MusPar[4] = height;
    musItem.MusPar[6] = size;
    musItem.MusPar[12] = static_cast<float>(placeholderText.size());
    musItem.MusText = placeholderText;
    MusStoreItem();
}

/// The descender of a lute letter, for those that have one.
void storeDescender(const Parameters& note) {
    const float head = note[6];
    if (head == 901.0F || head == 907.0F) {
        storePlaceholder(note[2], note[3] - 0.7F, note[4] + 2.0F, 0.5F);
    } else if (head == 905.0F) {
        storePlaceholder(note[2], note[3] - 1.4F, note[4] - 2.0F, 0.6F);
    } else if (head == 906.0F) {
        storePlaceholder(note[2], note[3] - 0.9F, note[4] - 2.0F, 0.7F);
    }
}

void setPlaceholders(const Parameters& note, std::vector<int>& placeholders, Counters& counters) {
    const float head = note[6];
    float place = note[3] - 0.7F;
    float size = 0.0F;
    if (head == 903.0F) {
        place -= 0.8F;
        size = 1.2F;
    } else if (head == 911.0F) {
        place -= 0.5F;
        size = 1.3F;
    } else if (head == 908.0F || head == 910.0F) {
        size = 0.8F;
    }
    const int before = musItemTable.itemCount;
    storePlaceholder(note[2], place, note[4], size);
    ++counters.placeholders;
    if (resizing.options.chkPlaceholderDescenders) storeDescender(note);
    for (int item = before + 1; item <= musItemTable.itemCount; ++item) placeholders.push_back(item);
}

void resetPlaceholders(const Parameters& note, std::vector<int>& placeholders, Counters& counters) {
    std::erase_if(placeholders, [&](int item) {
        Parameters& pars = musItemTable[item].pars;
        if (pars[2] != note[2] || !(std::fabs(pars[3] - note[3]) <= placeholderReach)) return false;
        pars[1] = deletedItem;
        ++counters.placeholders;
        return true;
    });
}

// --- All the items of a file

/// The fields' numbers, taken out of their texts once a file.
class FileUpdate {
  public:
    explicit FileUpdate(Counters& counters) : counters_(counters) {}
    void update(ItemRow& row);

  private:
    void updateNote(ItemRow& row);
    void updateSlur(Parameters& pars);
    void updateStaff(Parameters& pars);
    void updateSymbol(Parameters& pars);
    void updateNumber(Parameters& pars);
    void updateText(ItemRow& row);
    void updateLyrics(ItemRow& row);
    bool isStaffToResize(const Parameters& pars) const;
    bool isStaffOfPart(float staff) const;

    /// How one kind of number is found, and what it becomes.
    struct NumberRule {
        float size;
        float font;
        float newSize;
        float newFont;

        bool apply(Parameters& pars) const;
    };

    const ResizeOptions& options_ = resizing.options;
    Counters& counters_;
    const float noteSize_ = numberOf(options_.txtResizeNoteSize);
    const float slur_ = numberOf(options_.txtResizeSlur);
    const float staffSize_ = numberOf(options_.txtResizeStaffSize);
    const float instrument_ = numberOf(options_.txtResizeStaffInstrPart);
    const SplitText part_ = splitAtFirst(options_.txtResizeStaffInstrPart, ',');
    const int firstStaff_ = toInt32(numberOf(part_.before)).value_or(0);
    const int increment_ = toInt32(numberOf(part_.behind)).value_or(0);
    const float symbol_ = numberOf(options_.txtSymbolResize);
    const float symbolSize_ = numberOf(options_.txtSymbolNewSize);
    const NumberRule pageNumber_ = {
        .size = numberOf(projectSettings.PageNumberSize),
        .font = numberOf(projectSettings.PageNumberFont),
        .newSize = numberOf(options_.txtResizePageNumberSize) + numberMark,
        .newFont = numberOf(options_.txtResizePageNumberFont),
    };
    const NumberRule barNumber_ = {
        .size = numberOf(projectSettings.BarNumberSize),
        .font = numberOf(projectSettings.BarNumberFont),
        .newSize = numberOf(options_.txtResizeBarNumberSize) + numberMark,
        .newFont = numberOf(options_.txtResizeBarNumberFont),
    };
    const float lyricsSize_ = numberOf(projectSettings.LyricsSize);
    const float newLyricsSize_ = numberOf(options_.txtResizeLyrics);
    const std::string_view text_ = trimRight(options_.txtResizeTextResize);
    const float textSize_ = numberOf(options_.txtResizeTextCurrent);
    const float newTextSize_ = numberOf(options_.txtResizeTextNew);
    std::vector<int> placeholders_ = options_.chkPlaceholderReset ? findPlaceholders() : std::vector<int>();
};

void FileUpdate::update(ItemRow& row) {
    const float code = row.pars[1];
    if (code == 1.0F) updateNote(row);
    if (code == 5.0F && options_.tabResiz == tabSlurs) updateSlur(row.pars);
    if (code == 8.0F && options_.tabResiz == tabStaves) updateStaff(row.pars);
    if (code == 9.0F) updateSymbol(row.pars);
    if (code == 10.0F && options_.tabResiz == tabNumbers) updateNumber(row.pars);
    if (code == 16.0F && options_.tabResiz == tabTexts) updateText(row);
}

void FileUpdate::updateNote(ItemRow& row) {
    if (options_.tabResiz == tabNotes && options_.anyNotes()) resizeNote(row, noteSize_, counters_);
    if (options_.tabResiz != tabPlaceholders || !is9xx(row.pars[6])) return;
    if (options_.chkPlaceholderSet) setPlaceholders(row.pars, placeholders_, counters_);
    if (options_.chkPlaceholderReset) resetPlaceholders(row.pars, placeholders_, counters_);
}

void FileUpdate::updateSlur(Parameters& pars) {
    const float kind = pars[8];
    if (kind == 1.0F || kind == 2.0F || kind == 3.0F || pars[11] != 0.0F) return;
    pars[13] = slur_;
    ++counters_.slurs;
}

bool FileUpdate::isStaffOfPart(float staff) const {
    constexpr int widest = 100;  // staves behind the first one
    if (increment_ < 1) return false;
    for (int behind = 0; behind <= widest; behind += increment_)
        if (static_cast<float>(firstStaff_ + behind) == staff) return true;
    return false;
}

bool FileUpdate::isStaffToResize(const Parameters& pars) const {
    if (!options_.chkResizeSome) return true;
    if (options_.optResizeStaffInstrId && pars[9] == instrument_) return true;
    return options_.optResizeStaffPart && part_.found && isStaffOfPart(pars[2]);
}

void FileUpdate::updateStaff(Parameters& pars) {
    if (!options_.optResizeStaffYes || !isStaffToResize(pars)) return;
    pars[5] = staffSize_;
    ++counters_.staves;
}

void FileUpdate::updateSymbol(Parameters& pars) {
    if (options_.chkSymbolResize && pars[5] == symbol_) {
        pars[6] = symbolSize_;
        ++counters_.symbolSizes;
    }
    if (!options_.chkSymbolIntegerPar4) return;
    const auto rounded = static_cast<float>(roundToEven(pars[4]));
    if (rounded == pars[4]) return;
    pars[4] = rounded;
    ++counters_.symbolPar4;
}

bool FileUpdate::NumberRule::apply(Parameters& pars) const {
    if (pars[7] != font || !isNear(pars[6], size)) return false;
    pars[6] = newSize;
    pars[7] = newFont;
    return true;
}

void FileUpdate::updateNumber(Parameters& pars) {
    if (options_.optResizePageNumber && pageNumber_.apply(pars)) ++counters_.pageNumbers;
    if (options_.optResizeBarNumber && barNumber_.apply(pars)) ++counters_.barNumbers;
}

/// A size may have hundreds added that say how the text is set. They stay.
void FileUpdate::updateLyrics(ItemRow& row) {
    constexpr float hundred = 100.0F;
    const float size = row.pars[6];
    const float rest = size >= hundred ? std::fmod(size, hundred) : size;
    if (rest != lyricsSize_ || row.text.substr(0, 3) != projectSettings.LyricsFont) return;
    row.pars[6] = newLyricsSize_ + (size - rest);
    ++counters_.texts;
}

void FileUpdate::updateText(ItemRow& row) {
    if (options_.optResizeLyrics) updateLyrics(row);
    if (!options_.optTextResizeTextSize) return;
    if (trimRight(row.text) != text_ || !isNear(row.pars[6], textSize_)) return;
    row.pars[6] = newTextSize_;
    ++counters_.texts;
}

}  // namespace

void updateFile(Counters& counters) {
    showActivity("Updating");
    FileUpdate file(counters);
    const int count = musItemTable.itemCount;  // what is appended meanwhile is not visited
    for (int item = 1; item <= count; ++item) file.update(musItemTable[item]);
}

}  // namespace tul::resize
