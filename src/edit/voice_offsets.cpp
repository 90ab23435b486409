#include "edit/voice_offsets.h"

#include <algorithm>
#include <cmath>

#include "centre/launching.h"
#include "edit/edit_run.h"
#include "music/first_item.h"
#include "music/items.h"
#include "music/notation.h"
#include "music/staff_index.h"

namespace tul::edit {

VoiceOffsets voiceOffsets;

namespace {

constexpr Margin notePlace = lessThan(0.01F);
constexpr Margin eventPlace = lessThan(0.1F);

bool hasStem(ItemPars item, Stem stem) { return isNote(item) && stemOf(item) == stem; }

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
        bar = barAround(isRow ? musItemTable[static_cast<int>(below)].pars[par::staff] : 0.0F, position);
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
    int upper = noRow;  // the one that moves it
};

ItemKey stepKey(ItemPars note) { return {stepOf(note)}; }
ItemKey stepBelowKey(ItemPars note) { return {stepOf(note) - 1.0F}; }
ItemKey noteKey(ItemPars note) { return {stepOf(note), note[par::noteHead], note[par::duration]}; }

/// How an upper note stands that moves a lower one.
struct Collision {
    ItemKey (*upperKey)(ItemPars);
    ItemKey (*lowerKey)(ItemPars);
    KeyFit fit;
    bool needsOffset;  // it moves the note only where that has a distance
};
constexpr Collision oneStepAbove = {stepBelowKey, stepKey, KeyFit::same, false};
constexpr Collision onIt = {noteKey, noteKey, KeyFit::same, true};
constexpr Collision belowIt = {stepKey, stepKey, KeyFit::below, true};

bool isKey(const ItemKey& key) {
    return std::none_of(key.begin(), key.end(), [](float part) { return std::isnan(part); });
}

/// Of several upper notes the first one in the table moves the lower note, if it moves it at all.
class Collisions {
  public:
    explicit Collisions(std::vector<Place> uppers) : uppers_(std::move(uppers)) {}

    [[nodiscard]] PlaceRange uppersAt(ItemPars note) const {
        return uppers_.near(note[par::staff], note[par::position], notePlace);
    }
    void find(std::vector<LowerNote>& lowers) const;

  private:
    void find(std::vector<LowerNote>& lowers, const Collision& collision, bool withOwnOffset) const;

    StaffIndex uppers_;
    Offsets offsets_;
};

void Collisions::find(std::vector<LowerNote>& lowers) const {
    for (const bool withOwnOffset : {true, false}) {
        find(lowers, oneStepAbove, withOwnOffset);
        if (!voiceOffsets.chkOverlap) find(lowers, onIt, withOwnOffset);
        find(lowers, belowIt, withOwnOffset);
    }
}

void Collisions::find(std::vector<LowerNote>& lowers, const Collision& collision, bool withOwnOffset) const {
    std::vector<LowerNote*> asking;
    std::vector<FirstQuestion> questions;
    for (LowerNote& lower : lowers) {
        const ItemRow& note = musItemTable[lower.row];
        const ItemKey key = collision.lowerKey(note);
        if ((offsets_.ofLower(note) > 0.0F) != withOwnOffset || !isKey(key)) continue;
        asking.push_back(&lower);
        questions.push_back({lower.uppers, key});
    }
    if (questions.empty()) return;
    std::vector<KeyedPlace> moving;
    for (std::size_t place = 0; place < uppers_.size(); ++place) {
        const ItemRow& upper = musItemTable[uppers_[place].row];
        const ItemKey key = collision.upperKey(upper);
        const bool moves = !collision.needsOffset || withOwnOffset || offsets_.ofUpper(upper) > 0.0F;
        if (moves && isKey(key)) moving.push_back({place, key});
    }
    const std::vector<int> rows = firstRows(uppers_, std::move(moving), questions, collision.fit);
    for (std::size_t i = 0; i < rows.size(); ++i) asking[i]->upper = std::min(asking[i]->upper, rows[i]);
}

// --- What moves with a note

/// Gives what stands at the places of moved notes their offset.
class Followers {
  public:
    explicit Followers(std::vector<Place> moved) : moved_(std::move(moved)) {
        for (std::size_t place = 0; place < moved_.size(); ++place) {
            all_.push_back({place, {}});
            // Notes below a moved one ask, so that the order of steps is turned round.
            bySteps_.push_back({place, {-stepOf(musItemTable[moved_[place].row])}});
        }
    }
    void moveBeamEnds(int position, int shift) const;
    void moveChords() const;

  private:
    static void move(const std::vector<ItemRow*>& items, const std::vector<int>& by, int shift, bool counts);

    StaffIndex moved_;
    std::vector<KeyedPlace> all_;
    std::vector<KeyedPlace> bySteps_;
};

void Followers::move(const std::vector<ItemRow*>& items, const std::vector<int>& by, int shift, bool counts) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (by[i] == noRow) continue;
        items[i]->pars[shift] = musItemTable[by[i]].pars[par::noteShift];
        if (counts) countChange();
    }
}

/// At the left or at the right.
void Followers::moveBeamEnds(int position, int shift) const {
    std::vector<ItemRow*> beams;
    std::vector<FirstQuestion> questions;
    forEachItem([&](int, ItemRow& row) {
        const Parameters& pars = row.pars;
        if (!isBeam(row) || stemIn(pars[par::beamForm]) != Stem::down || pars[shift] != 0.0F) return;
        beams.push_back(&row);
        questions.push_back({moved_.near(pars[par::staff], pars[position], notePlace), {}});
    });
    move(beams, firstRows(moved_, all_, questions, KeyFit::same), shift, true);
}

/// Notes of a chord that stand below the one with the stem.
void Followers::moveChords() const {
    std::vector<ItemRow*> notes;
    std::vector<FirstQuestion> questions;
    forEachItem([&](int, ItemRow& row) {
        if (!hasStem(row, Stem::none) || row.pars[par::noteShift] != 0.0F || std::isnan(stepOf(row))) return;
        notes.push_back(&row);
        questions.push_back({moved_.at(row.pars[par::staff], row.pars[par::position]), {-stepOf(row)}});
    });
    move(notes, firstRows(moved_, bySteps_, questions, KeyFit::below), par::noteShift, false);
}

// --- One file

class OffsetsRun : public FamilyRun {
  public:
    void updateFile(const PageInRun& page) override;

  private:
    void gather(int item, const ItemRow& row);
    [[nodiscard]] std::vector<LowerNote> lowersToMove();
    /// The notes that take others with them.
    std::vector<Place> moveLowers(const std::vector<LowerNote>& lowers);

    std::vector<int> lowers_;
    std::vector<Place> uppers_;
    std::vector<Place> events_;
    std::vector<Place> barlines_;
    std::int32_t moved_ = 0;
};

/// Notes that have an offset keep it.
void OffsetsRun::gather(int item, const ItemRow& row) {
    const Place place = placeOf(row, item);
    const Stem stem = isNote(row) ? stemOf(row) : Stem::none;
    if (stem == Stem::up) uppers_.push_back(place);
    if (stem == Stem::down && row.pars[par::noteShift] == 0.0F) lowers_.push_back(item);
    if (stem != Stem::none || isRest(row)) events_.push_back(place);
    if (isBarline(row)) barlines_.push_back(place);
}

std::vector<LowerNote> OffsetsRun::lowersToMove() {
    std::vector<LowerNote> lowers;
    const TwoVoices voices(std::move(events_), std::move(barlines_));
    const Collisions collisions(std::move(uppers_));
    for (const int item : lowers_) {
        const ItemRow& row = musItemTable[item];
        const PlaceRange uppers = collisions.uppersAt(row);
        if (!uppers.isEmpty() && voices.areAround(row)) lowers.push_back({item, uppers});
    }
    collisions.find(lowers);
    return lowers;
}

/// Only a note below an upper one that is a step above it counts, and takes with it what hangs on it.
std::vector<Place> OffsetsRun::moveLowers(const std::vector<LowerNote>& lowers) {
    constexpr float width = 10.0F;
    constexpr float widthWithDot = 20.0F;
    const Offsets offsets;
    std::vector<Place> withFollowers;
    for (const LowerNote& lower : lowers) {
        if (lower.upper == noRow) continue;
        ItemRow& row = musItemTable[lower.row];
        const ItemRow& upper = musItemTable[lower.upper];
        if (stepOf(upper) > stepOf(row)) {
            row.pars[par::noteShift] = dotsOf(upper) == 0 ? width : widthWithDot;
            countChange(moved_);
            withFollowers.push_back(placeOf(row, lower.row));
        } else {
            row.pars[par::noteShift] = std::max(offsets.ofUpper(upper), offsets.ofLower(row));
            countChange();
        }
    }
    return withFollowers;
}

void OffsetsRun::updateFile(const PageInRun& page) {
    *this = {};
    forEachItem([this](int item, const ItemRow& row) { gather(item, row); });
    if (std::vector<Place> notes = moveLowers(lowersToMove()); !notes.empty()) {
        const Followers followers(std::move(notes));
        followers.moveBeamEnds(par::position, par::beamShift);
        followers.moveBeamEnds(par::endPosition, par::beamEndShift);
        followers.moveChords();
    }
    page.report.line("        Offsets applied:" + str(moved_));
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
