#include "edit/voice_offsets.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <iterator>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "centre/launching.h"
#include "edit/edit_run.h"
#include "music/first_item.h"
#include "music/items.h"
#include "music/notation.h"
#include "music/staff_index.h"

namespace tul::edit {

VoiceOffsets voiceOffsets;

namespace {

constexpr Margin eventPlace = lessThan(0.1F);

// --- Bars with two voices

/// What is not found lies beyond any page.
struct Bar {
    static constexpr float noLeft = -999.0F;
    static constexpr float noRight = 999.0F;
    float left = noLeft;
    float right = noRight;

    [[nodiscard]] bool isFound() const { return left != noLeft || right != noRight; }
};

/// Tells notes in a bar that has two events at one place: rests and notes, but no notes of chords.
class TwoVoices {
  public:
    TwoVoices(std::vector<Place> events, std::vector<Place> barlines);

    [[nodiscard]] bool areAround(ItemPars note) const;

  private:
    [[nodiscard]] Bar barAround(float staff, float position) const;
    [[nodiscard]] float barredStaffBelow(float staff) const;

    std::vector<float> barredStaves_;  // those with whole numbers from 1
    StaffIndex barlines_;
    StaffIndex events_;
    std::vector<int> pairsUpTo_;  // of neighbours at one place, up to each event
};

/// A barline without a position is on its staff all the same.
std::vector<float> barredStavesOf(const std::vector<Place>& barlines) {
    std::vector<float> staves;
    for (const Place& barline : barlines)
        if (barline.staff >= 1.0F && isInteger(barline.staff)) staves.push_back(barline.staff);
    std::sort(staves.begin(), staves.end());
    return staves;
}

TwoVoices::TwoVoices(std::vector<Place> events, std::vector<Place> barlines)
    : barredStaves_(barredStavesOf(barlines)),
      barlines_(std::move(barlines)),
      events_(std::move(events)),
      pairsUpTo_(events_.size()) {
    for (std::size_t event = 1; event < events_.size(); ++event) {
        const Place& left = events_[event - 1];
        const Place& right = events_[event];
        const bool isPair = left.staff == right.staff && isNear(left.position, right.position, eventPlace);
        pairsUpTo_[event] = pairsUpTo_[event - 1] + (isPair ? 1 : 0);
    }
}

Bar TwoVoices::barAround(float staff, float position) const {
    Bar bar;
    const PlaceRange left = barlines_.between(staff, bar.left, position);
    if (!left.isEmpty()) bar.left = barlines_[left.end - 1].position;
    const PlaceRange right = barlines_.between(staff, position, bar.right);
    if (!right.isEmpty()) bar.right = barlines_[right.begin].position;
    if (left.isEmpty() && !right.isEmpty()) bar.left = 0.0F;
    return bar;
}

/// The nearest one with barlines; 0 without one.
float TwoVoices::barredStaffBelow(float staff) const {
    if (!std::isfinite(staff)) return 0.0F;
    const auto above = std::upper_bound(barredStaves_.begin(), barredStaves_.end(), roundToEven(staff) - 1.0);
    return above == barredStaves_.begin() ? 0.0F : *std::prev(above);
}

/// A staff without barlines has those of the system, which stand on a lower staff. Which ones these are says
/// the item whose row is that staff's number: its staff is the one that counts.
bool TwoVoices::areAround(ItemPars note) const {
    const float position = note[par::position];
    Bar bar = barAround(note[par::staff], position);
    if (!bar.isFound()) {
        const float below = barredStaffBelow(note[par::staff]);
        if (below == 0.0F) return false;
        const bool isRow = below <= static_cast<float>(musItemTable.itemCount);
        bar = barAround(isRow ? parsOf(static_cast<int>(below))[par::staff] : 0.0F, position);
        if (!bar.isFound()) return false;
    }
    const PlaceRange events = events_.between(note[par::staff], bar.left, bar.right);
    return !events.isEmpty() && pairsUpTo_[events.end - 1] > pairsUpTo_[events.begin];
}

// --- How far a note moves

class Offsets {
  public:
    Offsets() {
        std::transform(voiceOffsets.Text1.begin(), voiceOffsets.Text1.end(), values_.begin(), numberOf);
    }
    [[nodiscard]] float ofUpper(ItemPars note) const {
        const float dots = values_[static_cast<std::size_t>(std::min(dotsOf(note), 2))];
        return flagsOf(note) == 0 ? dots : std::max(dots, values_[3]);
    }
    /// 0 without an accidental.
    [[nodiscard]] float ofLower(ItemPars note) const {
        constexpr int doubleFlat = 4;
        const int accidental = accidentalOf(note);
        if (accidental == 0) return 0.0F;
        return accidental == doubleFlat ? values_[5] : values_[4];
    }

  private:
    std::array<float, 6> values_{};
};

// --- What moves a note

/// A note of the lower voice and those of the upper voice at its place.
struct LowerNote {
    int row;
    PlaceRange uppers;
    int upper = noRow;  // the first one in the table that moves it
};

ItemKey stepKey(ItemPars note) { return {stepOf(note)}; }
ItemKey stepBelowKey(ItemPars note) { return {stepOf(note) - 1.0F}; }
ItemKey noteKey(ItemPars note) { return {stepOf(note), note[par::noteHead], note[par::duration]}; }

/// Which upper notes move which lower ones, and how they stand to one another.
struct Collision {
    std::function<bool(ItemPars)> isUpper;
    std::function<bool(ItemPars)> isLower;
    ItemKey (*upperKey)(ItemPars);
    ItemKey (*lowerKey)(ItemPars);
    KeyFit fit;
};

/// An upper note one step above moves the lower one always, one on it or below it where either of the two
/// calls for an offset above 0.
std::vector<Collision> collisionsWith(const Offsets& offsets) {
    const auto any = [](ItemPars) { return true; };
    const auto upperCalls = [&](ItemPars note) { return offsets.ofUpper(note) > 0.0F; };
    const auto lowerCalls = [&](ItemPars note) { return offsets.ofLower(note) > 0.0F; };
    std::vector<Collision> collisions = {
        {any, any, stepBelowKey, stepKey, KeyFit::same},
        {upperCalls, any, stepKey, stepKey, KeyFit::below},
        {any, lowerCalls, stepKey, stepKey, KeyFit::below},
    };
    if (!voiceOffsets.chkOverlap) {
        collisions.push_back({upperCalls, any, noteKey, noteKey, KeyFit::same});
        collisions.push_back({any, lowerCalls, noteKey, noteKey, KeyFit::same});
    }
    return collisions;
}

void findUppers(std::vector<LowerNote>& lowers, const StaffIndex& uppers, const Collision& collision) {
    std::vector<KeyedPlace> items;
    for (std::size_t place = 0; place < uppers.size(); ++place)
        if (const Parameters& upper = parsOf(uppers[place].row); collision.isUpper(upper))
            items.push_back({place, collision.upperKey(upper)});
    std::vector<FirstQuestion> questions;
    for (const LowerNote& lower : lowers) {
        const Parameters& note = parsOf(lower.row);
        questions.push_back(
            {collision.isLower(note) ? lower.uppers : PlaceRange(), collision.lowerKey(note)});
    }
    const std::vector<int> rows = firstRows(uppers, std::move(items), questions, collision.fit);
    for (std::size_t i = 0; i < rows.size(); ++i) lowers[i].upper = std::min(lowers[i].upper, rows[i]);
}

// --- What moves with a note

/// Gives what stands at the places of moved notes the offset of the first of them in the table.
class Followers {
  public:
    explicit Followers(std::vector<Place> moved) : moved_(std::move(moved)) {
        // Notes below a moved one ask, so that the order of steps is turned round.
        for (std::size_t place = 0; place < moved_.size(); ++place)
            bySteps_.push_back({place, {-stepOf(parsOf(moved_[place].row))}});
    }
    void moveBeamEnds(int position, int shift) const;
    void moveChords() const;

  private:
    /// Each shift has a question. How many are moved.
    int move(const std::vector<float*>& shifts, const std::vector<FirstQuestion>& questions) const;

    StaffIndex moved_;
    std::vector<KeyedPlace> bySteps_;
};

int Followers::move(const std::vector<float*>& shifts, const std::vector<FirstQuestion>& questions) const {
    const std::vector<int> rows = firstRows(moved_, bySteps_, questions, KeyFit::below);
    int count = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i] == noRow) continue;
        *shifts[i] = parsOf(rows[i])[par::noteShift];
        ++count;
    }
    return count;
}

/// At the left or at the right.
void Followers::moveBeamEnds(int position, int shift) const {
    constexpr ItemKey aboveAll = {std::numeric_limits<float>::infinity()};
    std::vector<float*> shifts;
    std::vector<FirstQuestion> questions;
    forEachItem([&](int, ItemRow& row) {
        Parameters& pars = row.pars;
        if (!isBeam(row) || stemIn(pars[par::beamForm]) != Stem::down || pars[shift] != 0.0F) return;
        shifts.push_back(&pars[shift]);
        questions.push_back({moved_.near(pars[par::staff], pars[position], notePlace), aboveAll});
    });
    pipeline.page.changes += move(shifts, questions);
}

/// Notes of a chord that stand below the one with the stem. They are not counted.
void Followers::moveChords() const {
    std::vector<float*> shifts;
    std::vector<FirstQuestion> questions;
    forEachItem([&](int, ItemRow& row) {
        Parameters& pars = row.pars;
        if (!isNote(row) || stemOf(row) != Stem::none || pars[par::noteShift] != 0.0F) return;
        shifts.push_back(&pars[par::noteShift]);
        questions.push_back({moved_.at(pars[par::staff], pars[par::position]), {-stepOf(row)}});
    });
    move(shifts, questions);
}

// --- One file

struct PageNotes {
    std::vector<int> lowers;
    std::vector<Place> uppers;
    std::vector<Place> events;
    std::vector<Place> barlines;
};

/// Lower notes that have an offset keep it.
PageNotes notesOfPage() {
    PageNotes notes;
    forEachItem([&](int item, const ItemRow& row) {
        const Place place = placeOf(row, item);
        const Stem stem = isNote(row) ? stemOf(row) : Stem::none;
        if (stem == Stem::up) notes.uppers.push_back(place);
        if (stem == Stem::down && row.pars[par::noteShift] == 0.0F) notes.lowers.push_back(item);
        if (stem != Stem::none || isRest(row)) notes.events.push_back(place);
        if (isBarline(row)) notes.barlines.push_back(place);
    });
    return notes;
}

class OffsetsRun : public FamilyRun {
  public:
    void updateFile(const PageInRun& page) override;

  private:
    [[nodiscard]] std::vector<LowerNote> lowersOf(PageNotes notes) const;
    [[nodiscard]] std::vector<Place> move(const std::vector<LowerNote>& lowers) const;

    const Offsets offsets_;
};

std::vector<LowerNote> OffsetsRun::lowersOf(PageNotes notes) const {
    std::vector<LowerNote> lowers;
    const TwoVoices voices(std::move(notes.events), std::move(notes.barlines));
    const StaffIndex uppers(std::move(notes.uppers));
    for (const int item : notes.lowers) {
        const Parameters& note = parsOf(item);
        const PlaceRange range = uppers.near(note[par::staff], note[par::position], notePlace);
        if (!range.isEmpty() && voices.areAround(note)) lowers.push_back({item, range});
    }
    for (const Collision& collision : collisionsWith(offsets_)) findUppers(lowers, uppers, collision);
    return lowers;
}

/// Only notes below an upper one that is a step above are told, and take with them what hangs on them: these
/// are returned.
std::vector<Place> OffsetsRun::move(const std::vector<LowerNote>& lowers) const {
    constexpr float width = 10.0F;
    constexpr float widthWithDot = 20.0F;
    std::vector<Place> oneStepBelow;
    for (const LowerNote& lower : lowers) {
        if (lower.upper == noRow) continue;
        ItemRow& row = musItemTable[lower.row];
        const Parameters& upper = parsOf(lower.upper);
        float& shift = row.pars[par::noteShift];
        if (stepOf(upper) > stepOf(row)) {
            shift = dotsOf(upper) == 0 ? width : widthWithDot;
            oneStepBelow.push_back(placeOf(row, lower.row));
        } else {
            shift = std::max(offsets_.ofUpper(upper), offsets_.ofLower(row));
        }
        countChange();
    }
    return oneStepBelow;
}

void OffsetsRun::updateFile(const PageInRun& page) {
    std::vector<Place> moved = move(lowersOf(notesOfPage()));
    page.report.line("        Offsets applied:" + str(moved.size()));
    const Followers followers(std::move(moved));
    followers.moveBeamEnds(par::position, par::beamShift);
    followers.moveBeamEnds(par::endPosition, par::beamEndShift);
    followers.moveChords();
}

// --- The family

bool mayRun() { return voiceOffsets.chkAutOff || refuse("No action. Set the option to run Offset"); }

std::vector<Field> fields() {
    const auto isOn = [] { return voiceOffsets.chkAutOff; };
    std::vector<Field> all = {
        checkField("chkAutOff", voiceOffsets.chkAutOff),
        readIf(checkField("chkOverlap", voiceOffsets.chkOverlap), isOn),
    };
    constexpr std::array prompts = {
        "Offset when the upper note has neither dots nor flags",
        "Offset when the upper note has a dot",
        "Offset when the upper note has two dots",
        "Offset when the upper note has flags",
        "Offset when the lower note has an accidental",
        "Offset when the lower note has a double flat",
    };
    for (std::size_t i = 0; i < prompts.size(); ++i)
        all.push_back(readIf(textField("Text1_" + plain(i), voiceOffsets.Text1[i], prompts[i]), isOn));
    return all;
}

std::vector<Command> commands() {
    return {{.name = "cmdEditOffsetHelp", .caption = "Help", .run = [] { ShowHelpFile("Offset"); }}};
}

}  // namespace

const Family voiceOffsetsFamily = {
    .tab = tabOffset,
    .fields = fields,
    .commands = commands,
    .reset = [] { voiceOffsets = {}; },
    .mayRun = mayRun,
    .begin = beginRun<OffsetsRun>,
};

}  // namespace tul::edit
