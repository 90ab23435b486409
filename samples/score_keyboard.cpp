#include "samples/engraver.h"
#include "samples/scores.h"

namespace tul::samples {

Sample minuet() {
    Sheet sheet;
    sheet.title = "Menuet";
    sheet.author = "Christian Petzold";
    sheet.tempo = "Allegretto";
    const std::string opening =
        "g'8(-1 a'-2 b'-3 c''-4 | d''4)-5 g'-1 g' | e''4-4 c''8( d'' e'' fis'' | g''4)-5 g' g' | "
        "c''4-4 d''8( c'' b' a' | b'4) c''8( b' a' g' | ";
    const std::string right =
        "d''4-5\\mf " + opening + "fis'4)-2 g'8( a' b' g' | a'2.)-3 | d''4-5\\p " + opening +
        "a'4)-2 b'8( a' g' fis' | g'2.) :| b''4-5\\f g''8( a'' b'' g'' | a''4)-4 d''8(-1 e'' fis'' d'' | "
        "g''4) e''8( fis'' g'' d'' | cis''4)-2 b'8( cis'' a'4) | a'8(-1 b' cis'' d'' e'' fis'' | "
        "g''4)-4 fis'' e'' | fis''4-3 a' cis'' | d''2. | d''4-4\\p g'8( fis' g'4) | e''4-5 g'8( fis' g'4) | "
        "d''4 c'' b' | a'8(-3 g' fis' g' a'4) | d'8(-1\\< e' fis' g' a' b' | c''4)-5\\f b' a' | "
        "b'8(-3 d'' g'4) fis' | b+d'+g'2. :|";
    const std::string left =
        "g+b+d'2-5 a4-4 | b2. | c'2.-2 | b2. | a2. | g2.-5 | d'4-1 b g | d'4 d8( c'-1 b a | b2) a4 | "
        "g4 b-1 g | c'2. | b4( c'8 b a g | a2) fis4-4 | g2 b4 | c'4 d'-1 d | g2 g,4 :| g2.-1 | fis2. | "
        "e4 g-2 e | a2 a,4 | a2. | b4-3 d' cis' | d'4-1 fis a | d'4 d c' | r4 d'2 | r4 e'2 | b4-2 a g | "
        "d'2 r4 | d2.-5 | e4 g fis | g4 b,-4 d | g4 d g, :|";
    std::string lower;
    for (int bar = 1; bar <= 24; ++bar) lower += "s2. | ";
    lower += "b2. | c'2. | s | s | s | s | s | s |";
    sheet.staves = {{"Cembalo", "", treble, 1, 1, {right}}, {"", "", bass, 1, 1, {left, lower}}};
    sheet.groups = {{2, StaffGroup::brace}};
    sheet.systems = {6, 5, 6, 5, 5, 5};
    sheet.beats = 3;
    sheet.beatType = 4;
    sheet.barLength = 3;
    sheet.beamUnit = 3;
    sheet.systemGap = 8;
    sheet.nextIndent = 3;
    sheet.page = 3;
    PageBuilder page;
    engrave(sheet, page);
    // Ornaments of the symbol library above the first system; one stands a little off its line.
    constexpr double ornament = 30;
    page.item({9, 12, 61.67, 15.4, ornament, 1});
    page.item({9, 12, 87.08, 16, ornament, 1});
    return {"PIANO.MUS",
            "Petzold, minuet in G: fingering, slurs and beams, two voices in places, ornaments, inches",
            page.bytes()};
}

Sample tablaturePage() {
    Sheet sheet;
    sheet.title = "Greensleeves";
    sheet.author = "Anonymous";
    sheet.tempo = "Slowly";
    const std::string f = "f+a+c''4 a'8 c+f'8. g'16 a'8 | ";
    const std::string g = "g,+d+bes'4 g'8 bes+g'8. fis'16 g'8 | d+a+a'4 fis'8 ";
    const std::string cadence = "g,+bes+bes'8. a'16 g'8 d+a+fis'8. e'16 fis'8 | ";
    const std::string rise = "g,+g+bes'4 c''8 bes+d''8. ees''16 d''8 | ";
    const std::string refrain = "bes,+f+d'+f''4. f''8. ees''16 d''8 | ";
    const std::string music = "g'8 | " + rise + f + g + "d+d'4 g'8 | " + rise + f + cadence +
                              "g,+d+bes+g'4. g'4. || " + refrain + f + g + "d+d'4. | " + refrain + f +
                              cadence + "g,+d+bes+g'2. |.";
    sheet.staves = {{"Lute", "", tablature, 7, 0, {music}}};
    sheet.groups = {{1}};
    sheet.systems = {5, 4, 4, 4};
    sheet.beats = 6;
    sheet.beatType = 8;
    sheet.barLength = 3;
    sheet.staffSize = 1;
    sheet.systemGap = 14;
    sheet.indent = 12;
    sheet.nextIndent = 0;
    sheet.firstBar = 0;
    sheet.page = 4;
    PageBuilder page;
    page.trailer(Trailer::fiveWords);
    engrave(sheet, page);
    page.text(11, {4, 98, 24, 0, 1}, "ROSE").text(15, {1, 90, -20, 0, 0.5}, "LUTEROSE.EPS");
    return {"LUTE.MUS", "Greensleeves in French lute tablature: heads 900 to 910, short trailer",
            page.bytes()};
}

}  // namespace tul::samples
