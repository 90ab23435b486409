#include "edit/house_styles.h"

#include <cmath>
#include <string_view>

#include "base/text.h"
#include "edit/edit_run.h"
#include "music/first_item.h"
#include "music/font_prefix.h"
#include "music/items.h"
#include "music/notation.h"
#include "music/staff_index.h"

namespace tul::edit {

namespace {

/// A correction, and how its report names it.
struct HouseStyle {
    const char* title;  // the date follows at once
    const char* label;
    void (*updateFile)();
};

class StyleRun : public FamilyRun {
  public:
    explicit StyleRun(const HouseStyle& style) : style_(style) {}

    void updateFile(const PageInRun&) override { style_.updateFile(); }
    void writeCounters(Report& report, const RunResult& result) const override {
        report.line(style_.label + plain(result.changes()));
    }

  private:
    const HouseStyle& style_;
};

void run(const HouseStyle& style) { runToReport(style.title, std::make_unique<StyleRun>(style)); }

bool hasFraction(float value) { return std::floor(value) < value; }
/// Never -0.
float withoutFraction(float value) { return std::trunc(value) + 0.0F; }

// --- Dorvel: beams end on whole steps

void beamsOnSteps() {
    forEachItem([](int, ItemRow& row) {
        if (!isBeam(row)) return;
        for (const int end : {par::height, par::endHeight}) {
            float& height = row.pars[end];
            if (!hasFraction(height)) continue;
            height = withoutFraction(height);
            countChange();
        }
    });
}

constexpr HouseStyle dorvel = {
    .title = "TUL Edit run (Dorvel)",
    .label = "Number of beams ends adapted. . . . . . . . . . . . . . . . . ",
    .updateFile = beamsOnSteps,
};

// --- NewMeters: fingers in texts become numbers

bool isFinger(const ItemRow& row) {
    return isText(row) && (row.text.starts_with("_00") || row.text.starts_with("_05")) &&
           row.text.size() == fontPrefixLength + 1 && isDigit(row.text.back());
}

/// The even step toward 0, on a line of the staff.
float lineStep(float height) {
    constexpr float modulus = 2.0F;
    const float step = hasFraction(height) ? withoutFraction(height) : height;
    const float odd = std::fmod(step, modulus);
    return std::isnan(odd) || odd == 0.0F ? step : step - odd;
}

void fingersToNumbers() {
    constexpr float size = 0.8F;
    forEachItem([](int, ItemRow& row) {
        if (!isFinger(row)) return;
        Parameters& pars = row.pars;
        pars[par::height] = lineStep(pars[par::height]);
        for (int par = par::numberFont; par <= Parameters::count; ++par) pars[par] = 0.0F;
        pars[par::code] = code::number;
        pars[par::numberValue] = numberOf(row.text.substr(fontPrefixLength));
        pars[par::numberSize] = size;
        row.text.clear();
        countChange();
    });
}

constexpr HouseStyle newMeters = {
    .title = "TUL Edit run (NewMeters)",
    .label = "Number fingerings adapted . . . . . . . . . . . . . . . . . . ",
    .updateFile = fingersToNumbers,
};

// --- Quintal: headings of lessons get their accent

void accentLessons() {
    forEachItem([](int, ItemRow& row) {
        constexpr std::string_view word = "LECCION";
        if (!isText(row) || row.text.size() < fontPrefixLength ||
            row.text.compare(fontPrefixLength, word.size(), word) != 0)
            return;
        row.text = "_00LECCI<<ON";
        countChange();
    });
}

constexpr HouseStyle quintal = {
    .title = newMeters.title,
    .label = "Number texts adapted . . . . . . . . . . . . . . . . . . ",
    .updateFile = accentLessons,
};

// --- Marlo: dots of the lower voice stand below their line

/// One dot, and no direction yet.
bool hasPlainDot(ItemPars note) {
    constexpr std::size_t width = 4;
    std::string flags = plain(note[par::noteFlags]);
    flags.insert(0, width - std::min(flags.size(), width), '0');
    return std::string_view(flags).substr(flags.size() - width + 1, 2) == "01";
}

bool isOddAboveZero(ItemPars note) { return std::fmod(roundToEven(note[par::height]), 2.0) == 1.0; }

void lowerDot(ItemRow& row) {
    constexpr float down = 100.0F;
    row.pars[par::noteFlags] += down;
    countChange();
}

/// A note without a stem belongs to the last one in the table that has one at its place, stem down.
void lowerDotsOfChords(const std::vector<ItemRow*>& notes, std::vector<Place> stemmed) {
    for (Place& place : stemmed) place.row = -place.row;  // the last becomes the first
    const StaffIndex index(std::move(stemmed));
    std::vector<KeyedPlace> items;
    items.reserve(index.size());
    for (std::size_t place = 0; place < index.size(); ++place) items.push_back({place, {}});
    std::vector<FirstQuestion> questions;
    questions.reserve(notes.size());
    for (const ItemRow* note : notes)
        questions.push_back({index.near(note->pars[par::staff], note->pars[par::position], notePlace), {}});
    const std::vector<int> rows = firstRows(index, std::move(items), questions, KeyFit::same);
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i] != noRow && notes[i]->pars[par::height] < std::fabs(stepOf(musItemTable[-rows[i]])))
            lowerDot(*notes[i]);
}

void lowerDots() {
    std::vector<ItemRow*> notesOfChords;
    std::vector<Place> stemmed;
    forEachItem([&](int item, ItemRow& row) {
        if (!isNote(row)) return;
        const Stem stem = stemOf(row);
        if (stem == Stem::down) stemmed.push_back(placeOf(row, item));
        if (stem == Stem::up || !isOddAboveZero(row) || !hasPlainDot(row)) return;
        if (stem == Stem::down)
            lowerDot(row);
        else
            notesOfChords.push_back(&row);
    });
    lowerDotsOfChords(notesOfChords, std::move(stemmed));
}

constexpr HouseStyle marloDots = {
    .title = "TUL Edit run (Marlo)",
    .label = "Number of augmentation directions changed . . . . . . . . . . ",
    .updateFile = lowerDots,
};

// --- Marlo: groups of digits in a font of their own

constexpr std::string_view groupFont = "_47";

/// Five digits, or four with something behind them; empty without them.
std::string_view groupAt(std::string_view text) {
    constexpr std::size_t longest = 5;
    if (text.size() < longest) return {};
    for (const std::size_t length : {longest, longest - 1})
        if (isDigitsOnly(text.substr(0, length))) return text.substr(0, length);
    return {};
}

/// Behind a group the font that was set before it comes back, but not at the end of the text.
void setGroupsInFont(std::string& text) {
    std::string changed;
    std::string font;
    bool hasGroup = false;
    for (std::string_view rest = text; !rest.empty();) {
        if (beginsWithFont(rest)) font = rest.substr(0, fontPrefixLength);
        const std::string_view group = groupAt(rest);
        if (group.empty()) {
            changed += rest.front();
            rest.remove_prefix(1);
            continue;
        }
        hasGroup = true;
        changed.append(groupFont).append(group).append(font);
        rest.remove_prefix(group.size());
    }
    if (!hasGroup) return;
    if (changed.size() >= fontPrefixLength &&
        beginsWithFont(changed.substr(changed.size() - fontPrefixLength)))
        changed.resize(changed.size() - fontPrefixLength);
    text = changed;
}

/// Counts what it looks at, so that each such page is written.
void setDigitGroups() {
    forEachItem([](int, ItemRow& row) {
        if (!isText(row) || row.text.find(groupFont) != std::string::npos) return;
        setGroupsInFont(row.text);
        countChange();
    });
}

constexpr HouseStyle marloGroups = {
    .title = marloDots.title,
    .label = "Number of items in which 47 fonts included  . . . . . . . . . ",
    .updateFile = setDigitGroups,
};

// --- The buttons

void cmdMarlo() {
    if (MsgBox("Augmentation dot to lower voice?", Buttons::yesNo, Icon::question) == Answer::yes)
        return run(marloDots);
    if (isAgreed("Set font to 47 for groups of 4/5 digits in text items?", Buttons::yesNo)) run(marloGroups);
}

Command styleCommand(const char* name, const char* caption, void (*runStyle)(), const char* toolTip = "") {
    Command command = onSelection(name, caption, runStyle);
    command.toolTip = toolTip;
    command.visible = showsHideable;
    return command;
}

std::vector<Command> commands() {
    return {
        styleCommand("cmdMarlo", "Marlo", cmdMarlo,
                     "Augmentation dots. This button only in the developer version. Click grey area to make "
                     "button disappear. "),
        styleCommand(
            "cmdDorvel", "Dorvel", [] { run(dorvel); },
            "Use this to put beam ends at integer Par4 and 5 (take off fraction). Click grey area to make "
            "button disappear. "),
        styleCommand(
            "cmdNewMeters", "16 to 10", [] { run(newMeters); },
            "Change Code16 fingering (_00 or _05) to Code 10 (size .8). Click grey area hereunder to make "
            "button invisible."),
        styleCommand("cmdQuintal", "Quintal", [] { run(quintal); }),
    };
}

}  // namespace

const Family houseStylesFamily = {.tab = tabSpecial, .commands = commands};

}  // namespace tul::edit
