#include "edit/midi_preparation.h"

#include "base/text.h"
#include "edit/edit_run.h"
#include "music/items.h"
#include "music/staff_index.h"

namespace tul::edit {

namespace {

constexpr Margin onePlace = lessThan(0.5F);

void becomeRest(Parameters& pars) {
    pars[par::code] = code::rest;
    pars[par::restForm] = 1.0F;
    for (const int emptied : {par::noteHead, par::noteStemLength, par::noteFlags}) pars[emptied] = 0.0F;
    countChange();
}

/// A note that has become a rest meets no other any more.
void meet(const ItemRow& note, ItemRow& other) {
    if (&note == &other || !isNote(other)) return;
    if (other.pars[par::duration] <= note.pars[par::duration]) becomeRest(other.pars);
}

/// Each note looks at those about it only, so that a page costs n log n unless all stands at one place.
class MidiPreparationRun : public FamilyRun {
  public:
    void updateFile(const PageInRun&) override {
        const StaffIndex notes = notesByPlace();
        forEachItem([&](int, const ItemRow& row) {
            if (!isNote(row)) return;
            const PlaceRange nearby = notes.near(row.pars[par::staff], row.pars[par::position], onePlace);
            for (std::size_t i = nearby.begin; i < nearby.end; ++i) meet(row, musItemTable[notes[i].row]);
        });
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
