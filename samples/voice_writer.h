#pragma once

#include <map>
#include <span>
#include <vector>

#include "samples/notation.h"
#include "samples/page_builder.h"

namespace tul::samples {

enum Clef { treble = 0, bass = 1, alto = 2, tenor = 3, tablature = 99 };

// Steps as SCORE counts them: 3 is the bottom line, 11 the top line.
int staffStep(const Pitch& pitch, Clef clef);

// The accidentals that are drawn, as the ones digit of Par 5: 1 flat, 2 sharp, 3 natural.
using Accidentals = std::map<const Pitch*, int>;

// Whether a voice shares its staff, and then the side that its stems take.
enum class Stems { free, up, down };

// Writes the notes, rests, beams, slurs and marks of one voice. It lives through all systems of a page, since
// slurs and ties go on from one system to the next.
class VoiceWriter {
  public:
    VoiceWriter(PageBuilder& page, const Accidentals& accidentals, Clef clef, bool sung);

    void beginSystem(int staff, double left);
    // `xs` holds the position of each event and, last, that of the barline.
    void bar(const Bar& bar, std::span<const double> xs, Stems stems, double beamUnit);
    void endSystem(double right);

  private:
    struct Drawn {
        const Event* event;
        double x;
        int low, high;  // steps of the outer notes
        bool up;
        bool beamed = false;
        double extension = 0;  // of the stem, beyond its octave
    };
    struct Arc {
        double x;
        int step;
        bool above;
    };

    std::vector<Drawn> measure(const Bar& bar, std::span<const double> xs, Stems stems) const;
    void group(std::span<Drawn> drawn, Stems stems);
    void beam(std::span<const Drawn> group, double left, double right) const;
    void rest(const Event& event, double x, double barEnd, Stems stems) const;
    void notes(const Drawn& drawn) const;
    void lute(const Event& event, double x);
    void arcs(const Drawn& drawn);
    void marks(const Drawn& drawn, Stems stems) const;
    void slur(const Arc& from, double x, int step, double kind) const;

    PageBuilder& page_;
    const Accidentals& accidentals_;
    Clef clef_;
    bool sung_;
    int staff_ = 0;
    std::vector<Arc> slurs_;
    std::vector<Arc> ties_;
    double lastLuteValue_ = 0;
};

}  // namespace tul::samples
