#include "edit/midi_preparation.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "edit/edit_run.h"
#include "music/items.h"

namespace tul::edit {

namespace {

using Notes = std::vector<ItemRow*>;
constexpr Margin onePlace = lessThan(0.5F);

/// In the order of the table, but for those without a place, which are near no other.
Notes notesOfPage() {
    Notes notes;
    forEachItem([&](int, ItemRow& row) {
        if (isNote(row) && hasPlace(row)) notes.push_back(&row);
    });
    return notes;
}

void becomeRest(Parameters& pars) {
    pars[par::code] = code::rest;
    pars[par::restForm] = 1.0F;
    for (const int emptied : {par::noteHead, par::noteStemLength, par::noteFlags}) pars[emptied] = 0.0F;
    ++pipeline.page.changes;
}

/// A note that has become a rest meets no other any more.
void meet(const ItemRow& note, ItemRow& other) {
    if (&note == &other || !isNote(other)) return;
    if (other.pars[par::duration] <= note.pars[par::duration]) becomeRest(other.pars);
}

class MidiPreparationRun : public FamilyRun {
  public:
    void updateFile(const PageInRun&) override {
        const Notes notes = notesOfPage();
        Notes placed = notes;
        const auto byPlace = [](const ItemRow* a, const ItemRow* b) { return standsBefore(*a, *b); };
        std::sort(placed.begin(), placed.end(), byPlace);
        for (ItemRow* const note : notes) {
            const auto isNearby = [note](const ItemRow* other) { return samePlace(*note, *other, onePlace); };
            if (!isNote(*note)) continue;
            const auto first = std::lower_bound(placed.begin(), placed.end(), note, byPlace);
            for (auto right = first; right != placed.end() && isNearby(*right); ++right) meet(*note, **right);
            for (auto left = std::make_reverse_iterator(first); left != placed.rend() && isNearby(*left);
                 ++left)
                meet(*note, **left);
        }
    }
};

void cmdMidiPrep() {
    const std::string newLine(CrLf);
    if (isAgreed("Take extreme care with this utility as it affects the original file(s)." + newLine +
                     "Make sure you have a backup of your original files - copies with different names." +
                     newLine +
                     "When notes overlap, this program will replace the one with an equal or shorter "
                     "duration by a rest of that duration." +
                     newLine + "Continue?",
                 Buttons::okCancel))
        runToMessage("Total number of notes removed: ", std::make_unique<MidiPreparationRun>());
}

std::vector<Command> commands() {
    Command prepare = forDevelopers(onSelection("cmdMidiPrep", "Midi prep.", cmdMidiPrep));
    prepare.toolTip = "Convert the input such that it will easily convert to Midi using MidiScor.";
    return {prepare};
}

}  // namespace

const Family midiPreparationFamily = {.tab = tabSpecial, .commands = commands};

}  // namespace tul::edit
