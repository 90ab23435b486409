#include "samples/engraver.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <set>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace tul::samples {

namespace {

constexpr double rightEdge = 200;
constexpr double pageNumberSize = 201.1;
constexpr double barNumberSize = 201;
constexpr int barNumberFont = 1;

using Voice = std::vector<Bar>;

int alterInKey(int step, int key) {
    constexpr std::array<int, 7> orderOfSharps{3, 0, 4, 1, 5, 2, 6};  // f c g d a e b
    const auto* found = std::find(orderOfSharps.begin(), orderOfSharps.end(), step % 7);
    const int place = static_cast<int>(found - orderOfSharps.begin());
    if (key > place) return 1;
    return -key > 6 - place ? -1 : 0;
}

// Which notes of a bar show an accidental: those that differ from the signature or from a note of their line
// before.
void findAccidentals(const std::vector<Voice>& voices, std::size_t bar, int key, std::set<int>& tied,
                     Accidentals& result) {
    std::vector<const Event*> events;
    for (const Voice& voice : voices)
        for (const Event& event : voice[bar].events) events.push_back(&event);
    std::stable_sort(events.begin(), events.end(),
                     [](const Event* a, const Event* b) { return a->onset < b->onset; });
    std::map<int, int> inForce;
    for (const Event* event : events) {
        for (const Pitch& pitch : event->pitches) {
            const bool goesOn = tied.erase(pitch.step) > 0;
            const auto [known, fresh] = inForce.try_emplace(pitch.step, alterInKey(pitch.step, key));
            if (event->tied) tied.insert(pitch.step);
            if (known->second == pitch.alter || (goesOn && event->onset == 0)) continue;
            known->second = pitch.alter;
            result[&pitch] = pitch.alter < 0 ? 1 : pitch.alter > 0 ? 2 : 3;
        }
    }
}

// The horizontal place of every moment of one system.
struct Columns {
    std::vector<std::map<double, double>> places;  // for each bar, by onset
    std::vector<double> ends;                      // barlines

    std::vector<double> of(const Bar& bar, std::size_t index) const {
        std::vector<double> xs;
        for (const Event& event : bar.events) xs.push_back(places[index].at(event.onset));
        xs.push_back(ends[index]);
        return xs;
    }
};

class Engraver {
  public:
    Engraver(const Sheet& sheet, PageBuilder& page);
    void write();

  private:
    void readVoices();
    void writeSystem(std::size_t system, std::size_t firstBar);
    Columns spaceOut(std::size_t firstBar, std::size_t bars, double left) const;
    double writeHead(std::size_t staffIndex, int staff, double left, std::size_t system);
    double height(std::size_t staffIndex, std::size_t system) const;
    int barNumber(std::size_t bar) const;
    void writeBars(std::size_t staffIndex, int staff, const Columns& columns, std::size_t firstBar);
    void writeLyrics(std::size_t staffIndex, int staff, const Columns& columns, std::size_t firstBar);
    void writeBarlines(int topStaff, double left, const Columns& columns, std::size_t firstBar);
    void writeTexts(int topStaff, double left, std::size_t system, std::size_t firstBar);
    int staves() const { return static_cast<int>(sheet_.staves.size()); }
    int topStaff(std::size_t system) const {
        return static_cast<int>(sheet_.systems.size() - system) * staves();
    }

    const Sheet& sheet_;
    PageBuilder& page_;
    std::vector<std::vector<Voice>> music_;                         // by staff, then voice
    std::vector<Accidentals> accidentals_;                          // by staff
    std::vector<std::vector<VoiceWriter>> writers_;                 // as music_
    std::vector<std::vector<std::vector<std::string>>> syllables_;  // by staff, line
    std::vector<std::vector<std::size_t>> sung_;                    // syllables used, likewise
};

Engraver::Engraver(const Sheet& sheet, PageBuilder& page) : sheet_(sheet), page_(page) { readVoices(); }

void Engraver::readVoices() {
    std::size_t bars = 0;
    for (int count : sheet_.systems) bars += static_cast<std::size_t>(count);
    accidentals_.resize(sheet_.staves.size());
    for (const StaffSetup& setup : sheet_.staves) {
        std::vector<Voice> voices;
        for (const std::string& text : setup.voices) voices.push_back(parseMusic(text, sheet_.barLength));
        for (const Voice& voice : voices)
            if (voice.size() != bars)
                throw std::invalid_argument(setup.name + ": " + std::to_string(voice.size()) + " bars, not " +
                                            std::to_string(bars));
        music_.push_back(std::move(voices));
        auto& lines = syllables_.emplace_back();
        for (const Lyrics& lyrics : setup.lyrics) {
            std::istringstream words(lyrics.syllables);
            lines.emplace_back();
            for (std::string word; words >> word;) lines.back().push_back(word);
        }
        sung_.emplace_back(lines.size(), 0);
    }
    for (std::size_t s = 0; s < music_.size(); ++s) {
        const StaffSetup& setup = sheet_.staves[s];
        std::set<int> tied;
        for (std::size_t bar = 0; bar < bars && setup.clef != tablature; ++bar)
            findAccidentals(music_[s], bar, setup.key, tied, accidentals_[s]);
        writers_.emplace_back(music_[s].size(),
                              VoiceWriter(page_, accidentals_[s], setup.clef, !setup.lyrics.empty()));
    }
}

Columns Engraver::spaceOut(std::size_t firstBar, std::size_t bars, double left) const {
    constexpr double beforeFirstNote = 3;
    Columns columns;
    std::vector<std::map<double, double>> weights(bars);
    double total = 0;
    for (std::size_t b = 0; b < bars; ++b) {
        std::set<double> moments;
        double end = 0;
        for (const auto& voices : music_) {
            for (const Voice& voice : voices) {
                for (const Event& event : voice[firstBar + b].events) {
                    moments.insert(event.onset);
                    end = std::max(end, event.onset + event.duration);
                }
            }
        }
        moments.insert(end);
        for (auto at = moments.begin(); std::next(at) != moments.end(); ++at)
            total += weights[b][*at] = std::pow(*std::next(at) - *at, 0.6);
    }
    const double unit = (rightEdge - left - beforeFirstNote * static_cast<double>(bars)) / total;
    double x = left;
    for (const auto& bar : weights) {
        x += beforeFirstNote;
        auto& places = columns.places.emplace_back();
        for (const auto& [onset, weight] : bar) {
            places[onset] = std::round(x * 100) / 100;
            x += weight * unit;
        }
        columns.ends.push_back(std::round(x * 100) / 100);
    }
    columns.ends.back() = rightEdge;
    return columns;
}

// Steps between a staff and its common place, where staves follow one another at equal distances.
double Engraver::height(std::size_t staffIndex, std::size_t system) const {
    double below = 0;
    double whole = 0;
    for (std::size_t s = 0; s < sheet_.staves.size(); ++s) {
        whole += sheet_.staves[s].room;
        if (s >= staffIndex) below += sheet_.staves[s].room;
    }
    return below + (whole + sheet_.systemGap) * static_cast<double>(sheet_.systems.size() - 1 - system);
}

// A rest of many bars counts as many.
int Engraver::barNumber(std::size_t bar) const {
    int number = sheet_.firstBar;
    for (std::size_t b = 0; b < bar; ++b) number += music_[0][0][b].events.front().bars;
    return number;
}

// Staff, name, clef, signature and metre. Gives the place where the music begins.
double Engraver::writeHead(std::size_t staffIndex, int staff, double left, std::size_t system) {
    constexpr double tablatureLines = 6;
    const StaffSetup& setup = sheet_.staves[staffIndex];
    const bool tab = setup.clef == tablature;
    page_.item({8, double(staff), left, height(staffIndex, system), sheet_.staffSize, rightEdge,
                tab ? tablatureLines : 0, 0, setup.instrument});
    const std::string& name = system == 0 ? setup.name : setup.shortName;
    if (!name.empty()) page_.text(16, {double(staff), 0, 6, 0, system == 0 ? 1.0 : 0.8}, "_00" + name);

    double x = left + 1.5;
    if (!tab) page_.item({3, double(staff), x, 0, double(setup.clef)});
    x += 5.5;
    if (setup.key != 0 && !tab) page_.item({17, double(staff), x, 0, double(setup.key), double(setup.clef)});
    int widest = 0;
    for (const StaffSetup& other : sheet_.staves) widest = std::max(widest, std::abs(other.key));
    x += 1.5 * widest;
    if (system == 0) page_.item({18, double(staff), x + 1.5, 0, sheet_.beats, sheet_.beatType});
    return system == 0 ? x + 4 : x;
}

void Engraver::writeBars(std::size_t staffIndex, int staff, const Columns& columns, std::size_t firstBar) {
    const auto& voices = music_[staffIndex];
    for (std::size_t v = 0; v < voices.size(); ++v) {
        VoiceWriter& writer = writers_[staffIndex][v];
        writer.beginSystem(staff, columns.places[0].begin()->second - 2);
        for (std::size_t b = 0; b < columns.places.size(); ++b) {
            const auto silent = [&](const Voice& voice) {
                const auto& events = voice[firstBar + b].events;
                return std::all_of(events.begin(), events.end(), [](const Event& e) { return e.spacer; });
            };
            const auto heard =
                std::count_if(voices.begin(), voices.end(), [&](const Voice& o) { return !silent(o); });
            const Stems stems = heard < 2 ? Stems::free : v == 0 ? Stems::up : Stems::down;
            const Bar& bar = voices[v][firstBar + b];
            writer.bar(bar, columns.of(bar, b), stems, sheet_.beamUnit);
        }
        writer.endSystem(rightEdge);
    }
}

void Engraver::writeLyrics(std::size_t staffIndex, int staff, const Columns& columns, std::size_t firstBar) {
    for (std::size_t line = 0; line < sung_[staffIndex].size(); ++line) {
        const Lyrics& lyrics = sheet_.staves[staffIndex].lyrics[line];
        const auto& words = syllables_[staffIndex][line];
        std::size_t& used = sung_[staffIndex][line];
        const auto write = [&](double x, const std::string& text) {
            page_.text(16, {double(staff), x, lyrics.height, 0, 1}, lyrics.font + text);
        };
        double hyphenFrom = 0;
        for (std::size_t b = 0; b < columns.places.size(); ++b) {
            for (const Event& event : music_[staffIndex][0][firstBar + b].events) {
                if (event.pitches.empty() || used == words.size()) continue;
                std::string word = words[used++];
                if (word == "_") continue;
                const double x = columns.places[b].at(event.onset);
                if (hyphenFrom > 0) write((hyphenFrom + x) / 2 + 1, "-");
                const bool goesOn = word.back() == '-';
                if (goesOn) word.pop_back();
                hyphenFrom = goesOn ? x : 0;
                write(x - 0.5 * static_cast<double>(std::min<std::size_t>(word.size(), 4) - 1), word);
            }
        }
    }
}

void Engraver::writeBarlines(int topStaff, double left, const Columns& columns, std::size_t firstBar) {
    if (staves() > 1) page_.item({14, double(topStaff - staves() + 1), left, double(staves()), 0});
    int below = topStaff + 1;
    for (const StaffGroup& group : sheet_.groups) {
        below -= group.staves;
        if (group.sign != StaffGroup::none)
            page_.item({14, double(below), left, double(group.staves), double(group.sign)});
        for (std::size_t b = 0; b < columns.ends.size(); ++b) {
            const int type = music_[0][0][firstBar + b].line;
            page_.item({14, double(below), columns.ends[b], double(group.staves), double(type)});
        }
    }
}

void Engraver::writeTexts(int topStaff, double left, std::size_t system, std::size_t firstBar) {
    const double staff = topStaff;
    if (system > 0) {
        page_.item({10, staff, left, 14, double(barNumber(firstBar)), barNumberSize, barNumberFont});
        return;
    }
    constexpr double titleSize = 1.8;
    const double titleStart = 100 - static_cast<double>(sheet_.title.size()) * titleSize * 0.75;
    const double authorStart = 200 - static_cast<double>(sheet_.author.size()) * 1.4;
    page_.text(16, {staff, titleStart, 30, 0, titleSize}, "_02" + sheet_.title);
    page_.text(16, {staff, authorStart, 23, 0, 1}, "_01" + sheet_.author);
    page_.text(16, {staff, left, 20, 0, 1.2}, "_02" + sheet_.tempo);
    page_.item({10, staff, sheet_.page % 2 == 0 ? 1.0 : 197.0, 34, double(sheet_.page), pageNumberSize});
}

void Engraver::writeSystem(std::size_t system, std::size_t firstBar) {
    const double left = system == 0 ? sheet_.indent : sheet_.nextIndent;
    const int top = topStaff(system);
    double start = left;
    for (std::size_t s = 0; s < sheet_.staves.size(); ++s)
        start = writeHead(s, top - static_cast<int>(s), left, system);
    const Columns columns = spaceOut(firstBar, static_cast<std::size_t>(sheet_.systems[system]), start);
    for (std::size_t s = 0; s < sheet_.staves.size(); ++s) {
        const int staff = top - static_cast<int>(s);
        writeBars(s, staff, columns, firstBar);
        writeLyrics(s, staff, columns, firstBar);
    }
    writeBarlines(top, left, columns, firstBar);
    writeTexts(top, left, system, firstBar);
}

void Engraver::write() {
    std::size_t firstBar = 0;
    for (std::size_t system = 0; system < sheet_.systems.size(); ++system) {
        writeSystem(system, firstBar);
        firstBar += static_cast<std::size_t>(sheet_.systems[system]);
    }
}

}  // namespace

void engrave(const Sheet& sheet, PageBuilder& page) { Engraver(sheet, page).write(); }

}  // namespace tul::samples
