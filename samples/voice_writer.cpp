#include "samples/voice_writer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

namespace tul::samples {

namespace {

constexpr int middleLine = 7;
constexpr int octave = 7;
constexpr double tie = -2;
constexpr double firstLuteHead = 900;

int sounding(const Pitch& pitch) {
    constexpr std::array<int, 7> whiteKeys{0, 2, 4, 5, 7, 9, 11};
    return pitch.step / octave * 12 + whiteKeys[static_cast<std::size_t>(pitch.step % octave)] + pitch.alter;
}

bool isNote(const Event& event) { return !event.pitches.empty(); }

// A stem ends at the middle line at least, however far from the staff its note is.
double freeExtension(int low, int high, bool up) {
    const int span = high - low;
    return span + std::max(0, up ? -high : low - 2 * middleLine);
}

}  // namespace

int staffStep(const Pitch& pitch, Clef clef) {
    constexpr std::array<int, 4> bottomLines{30, 18, 24, 22};
    return pitch.step - bottomLines.at(static_cast<std::size_t>(clef)) + 3;
}

VoiceWriter::VoiceWriter(PageBuilder& page, const Accidentals& accidentals, Clef clef, bool sung)
    : page_(page), accidentals_(accidentals), clef_(clef), sung_(sung) {}

void VoiceWriter::beginSystem(int staff, double left) {
    staff_ = staff;
    lastLuteValue_ = 0;
    for (Arc& arc : slurs_) arc.x = left;
    for (Arc& arc : ties_) arc.x = left;
}

void VoiceWriter::endSystem(double right) {
    for (const Arc& arc : slurs_) slur(arc, right, arc.step, 0);
    for (const Arc& arc : ties_) slur(arc, right, arc.step, tie);
}

void VoiceWriter::bar(const Bar& bar, std::span<const double> xs, Stems stems, double beamUnit) {
    if (clef_ == tablature) {
        for (std::size_t i = 0; i < bar.events.size(); ++i) lute(bar.events[i], xs[i]);
        return;
    }
    std::vector<Drawn> drawn = measure(bar, xs, stems);
    const auto window = [&](const Drawn& d) { return std::floor(d.event->onset / beamUnit + 0.001); };
    for (std::size_t first = 0; first < drawn.size();) {
        std::size_t last = first;
        while (last < drawn.size() && isNote(*drawn[last].event) && drawn[last].event->flags > 0 &&
               window(drawn[last]) == window(drawn[first]))
            ++last;
        if (last - first > 1) group(std::span(drawn).subspan(first, last - first), stems);
        first = std::max(last, first + 1);
    }
    for (const Drawn& d : drawn) {
        if (d.event->spacer) continue;
        if (isNote(*d.event)) {
            notes(d);
            arcs(d);
        } else {
            rest(*d.event, d.x, xs.back(), stems);
        }
        marks(d, stems);
    }
}

std::vector<VoiceWriter::Drawn> VoiceWriter::measure(const Bar& bar, std::span<const double> xs,
                                                     Stems stems) const {
    std::vector<Drawn> drawn;
    for (const Event& event : bar.events) {
        Drawn d{&event, xs[drawn.size()], middleLine, middleLine, stems == Stems::up};
        if (isNote(event)) {
            d.low = staffStep(event.pitches.front(), clef_);
            d.high = staffStep(event.pitches.back(), clef_);
            if (stems == Stems::free) d.up = d.low + d.high < 2 * middleLine;
            d.extension = freeExtension(d.low, d.high, d.up);
        }
        drawn.push_back(d);
    }
    return drawn;
}

// Gives the notes under a beam one direction and lengthens their stems up to it.
void VoiceWriter::group(std::span<Drawn> drawn, Stems stems) {
    int lowest = drawn[0].low;
    int highest = drawn[0].high;
    for (const Drawn& d : drawn) {
        lowest = std::min(lowest, d.low);
        highest = std::max(highest, d.high);
    }
    const bool up = stems == Stems::free ? lowest + highest < 2 * middleLine : stems == Stems::up;
    // The beam slants with its outer notes, by two steps at most, and keeps clear of every note between.
    const auto outer = [&](const Drawn& d) { return up ? d.high : d.low; };
    const double slant = std::clamp(outer(drawn.back()) - outer(drawn.front()), -2, 2);
    const double width = drawn.back().x - drawn.front().x;
    const auto rise = [&](const Drawn& d) { return slant * (d.x - drawn.front().x) / width; };
    double left = outer(drawn[0]);
    for (const Drawn& d : drawn)
        left = up ? std::max(left, outer(d) - rise(d)) : std::min(left, outer(d) - rise(d));
    for (Drawn& d : drawn) {
        d.up = up;
        d.beamed = true;
        d.extension = up ? left + rise(d) - d.low : d.high - left - rise(d);
    }
    beam(drawn, left, left + slant);
}

void VoiceWriter::beam(std::span<const Drawn> group, double left, double right) const {
    const double stem = group[0].up ? 10 : 20;
    const double x = group.front().x;
    const double width = group.back().x - x;
    const auto height = [&](double at) { return left + (right - left) * (at - x) / width; };
    const auto write = [&](double from, double to, int beams) {
        page_.item({6, double(staff_), from, height(from), height(to), to, stem + beams});
    };
    int common = group[0].event->flags;
    for (const Drawn& d : group) common = std::min(common, d.event->flags);
    write(x, x + width, common);
    for (std::size_t i = 0; i < group.size();) {
        const int beams = group[i].event->flags;
        std::size_t next = i + 1;
        while (next < group.size() && group[next].event->flags == beams) ++next;
        if (beams > common) {
            const bool alone = next == i + 1;
            const double stub = i > 0 ? -1.5 : 1.5;  // a lone short note has a short beam on its inner side
            const double to = alone ? group[i].x + stub : group[next - 1].x;
            write(std::min(group[i].x, to), std::max(group[i].x, to), beams);
        }
        i = next;
    }
}

void VoiceWriter::rest(const Event& event, double x, double barEnd, Stems stems) const {
    const double shift = stems == Stems::free ? 0 : stems == Stems::up ? 4 : -4;
    if (!event.barRest) {
        const double kind = event.flags > 0 ? event.flags : -event.head;
        page_.item({2, double(staff_), x, shift, kind, double(event.dots), event.duration});
        return;
    }
    // The forms -2 and -5 carry their count; the others are drawn for a fixed count, which stands above as a
    // number.
    const bool counted = event.restForm >= -5 && event.bars > 1;
    const double middle = (x + barEnd - 2) / 2;
    const double place = event.restForm == -5 ? barEnd - 3 : middle;
    const double dots = event.restForm <= -11 ? 0.5 : 0;
    page_.item({2, double(staff_), x, shift, event.restForm, dots, event.duration,
                counted ? double(event.bars) : 0, place, 0, 0, 0, event.restCue});
    if (event.bars > 1 && !counted) page_.item({10, double(staff_), middle, 14, double(event.bars), 1.2});
}

void VoiceWriter::notes(const Drawn& drawn) const {
    const Event& event = *drawn.event;
    // The note at the far end of the stem carries it; the others of a chord have none.
    const std::size_t carrier = drawn.up ? 0 : event.pitches.size() - 1;
    for (std::size_t i = 0; i < event.pitches.size(); ++i) {
        const bool carries = i == carrier && event.head < 2;
        const auto found = accidentals_.find(&event.pitches[i]);
        const int accidental = found == accidentals_.end() ? 0 : found->second;
        const double stem = carries ? (drawn.up ? 10 : 20) : 0;
        const int flags = carries && !drawn.beamed ? event.flags : 0;
        page_.item({1, double(staff_), drawn.x, double(staffStep(event.pitches[i], clef_)), stem + accidental,
                    double(event.head), event.duration, carries ? drawn.extension : 0,
                    double(flags + 10 * event.dots), 0, event.fermata && i == carrier ? 14.0 : 0});
    }
}

// One letter for each course, on the highest course that the note can be stopped on, and the value above the
// staff wherever it changes.
void VoiceWriter::lute(const Event& event, double x) {
    constexpr std::array<int, 6> openCourses{55, 50, 45, 41, 36, 31};  // g' d' a f c G
    constexpr int topLine = 13;
    constexpr int lastFret = 12;
    if (event.duration != lastLuteValue_ && !event.spacer)
        page_.item({1, double(staff_), x, topLine + 4.0, 10, double(event.head), event.duration, 0,
                    double(event.flags + 10 * event.dots), 0, 0, 0, 0, 0, 0.7});
    lastLuteValue_ = event.duration;
    std::size_t course = 0;
    for (auto pitch = event.pitches.rbegin(); pitch != event.pitches.rend(); ++pitch, ++course) {
        while (course < openCourses.size() && sounding(*pitch) < openCourses[course]) ++course;
        if (course == openCourses.size()) throw std::invalid_argument("a note below the lute");
        const int fret = sounding(*pitch) - openCourses[course];
        if (fret > lastFret) throw std::invalid_argument("a note beyond the frets");
        page_.item(
            {1, double(staff_), x, topLine - 2.0 * double(course), 0, firstLuteHead + fret, event.duration});
    }
}

void VoiceWriter::slur(const Arc& from, double x, int step, double kind) const {
    const double side = from.above ? 1 : -1;
    const double distance = kind == tie ? 1.2 : 2.2;
    const double bow = side * (0.8 + std::abs(x - from.x) / 30);
    page_.item(
        {5, double(staff_), from.x + 1, from.step + side * distance, step + side * distance, x, bow, kind});
}

void VoiceWriter::arcs(const Drawn& drawn) {
    const Event& event = *drawn.event;
    for (const Arc& arc : ties_) slur(arc, drawn.x, arc.step, tie);
    ties_.clear();
    const int outer = drawn.up ? drawn.low : drawn.high;
    if (event.slurCloses) {
        if (slurs_.empty()) throw std::invalid_argument("a slur ends that never began");
        slur(slurs_.back(), drawn.x, slurs_.back().above ? drawn.high : drawn.low, 0);
        slurs_.pop_back();
    }
    if (event.slurOpens) slurs_.push_back({drawn.x, outer, !drawn.up});
    if (!event.tied) return;
    for (const Pitch& pitch : event.pitches) ties_.push_back({drawn.x, staffStep(pitch, clef_), !drawn.up});
}

void VoiceWriter::marks(const Drawn& drawn, Stems stems) const {
    const Event& event = *drawn.event;
    const double staff = staff_;
    // Under a sung staff is the place of its words.
    const double below = std::min(-2, drawn.low - 5);
    if (event.dynamic == "<" || event.dynamic == ">") {
        const double left = event.dynamic == "<" ? 0 : 1;
        for (const double side : {1.0, -1.0})
            page_.item({4, staff, drawn.x, below + side * left, below + side * (1 - left), drawn.x + 10});
    } else if (!event.dynamic.empty()) {
        page_.text(16, {staff, drawn.x - 1, sung_ ? 15.0 : below, 0, 1.1}, "_03" + event.dynamic);
    }
    if (!event.words.empty()) page_.text(16, {staff, drawn.x, 15, 0, 0.9}, "_01" + event.words);
    if (event.finger < 0) return;
    const bool leftHand = stems == Stems::down || (stems == Stems::free && clef_ == bass);
    // A finger stands outside the staff, and clear of the stem.
    const int height = leftHand ? std::min(-1, drawn.low - 3 - (drawn.up ? 0 : octave))
                                : std::max(13, drawn.high + 2 + (drawn.up ? octave : 0));
    page_.item({10, staff, drawn.x, double(height), double(event.finger), 0.75});
}

}  // namespace tul::samples
