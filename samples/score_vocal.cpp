#include "samples/engraver.h"
#include "samples/scores.h"

namespace tul::samples {

Sample chorale() {
    Sheet sheet;
    sheet.title = "Old Hundredth";
    sheet.author = "Genevan Psalter, 1551";
    sheet.tempo = "Andante maestoso";
    const std::string soprano =
        "g'2 | g'4 fis' e' d' | g'2 a' | b'2! b' | b'4 b' a' g' | c''2 b' | a'2! g' | a'4 b' a' g' | "
        "e'2 fis' | g'2! d'' | b'4 g' a' c'' | b'2 a' | g'2! |.";
    const std::string altoVoice =
        "d'2 | d'4 d' b b | b2 d' | d'2 g' | g'4 g' fis' e' | e'2 d' | d'2 d' | d'4 d' d' b | "
        "c'2 a | b2 g' | g'4 e' d' d' | d'2 c' | b2 |.";
    const std::string tenorVoice =
        "b2 | b4 a g fis | g2 fis | g2 d' | d'4 d' d' b | g2 g | fis2 b | a4 g fis g | "
        "g2 d | d2 b | b4 b a a | g2 fis | g2 |.";
    const std::string bassVoice =
        "g2 | g4 d e b, | e2 d | g,2 g | g4 g d e | c2 g, | d2 g | fis4 g d e | "
        "c2 d | g,2 g | g4 e fis fis | g2 d | g,2 |.";
    const Lyrics words{-10, "_00",
                       "All peo- ple that on earth do dwell, sing to the Lord with cheer- ful voice; "
                       "him serve with mirth, his praise forth tell, come ye be- fore him and re- joice."};
    sheet.staves = {{"S. A.", "", treble, 1, 1, {soprano, altoVoice}, {words}, 10},
                    {"T. B.", "", bass, 2, 1, {tenorVoice, bassVoice}}};
    sheet.groups = {{2, StaffGroup::bracket}};
    sheet.systems = {4, 3, 3, 3};
    sheet.beats = 98;
    sheet.beatType = 1;
    sheet.staffSize = 0.9;
    sheet.systemGap = 12;
    sheet.indent = 10;
    sheet.nextIndent = 0;
    sheet.firstBar = 0;
    sheet.page = 12;
    PageBuilder page;
    engrave(sheet, page);
    return {"CHORALE.MUS", "Old Hundredth: two voices on each of two staves, words between them, inches",
            page.bytes()};
}

Sample song() {
    Sheet sheet;
    sheet.title = "Stille Nacht";
    sheet.author = "Franz Xaver Gruber";
    sheet.tempo = "Moderato";
    const std::string tune =
        "g'8.(\\p a'16) g'8 e'4. | g'8. a'16 g'8 e'4. | d''4 d''8 b'4. | c''4 c''8 g'4. | "
        "a'4 a'8 c''8. b'16 a'8 | g'8. a'16 g'8 e'4. | a'4 a'8 c''8. b'16 a'8 | g'8. a'16 g'8 e'4. | "
        "d''4\\mf d''8 f''8. d''16 b'8 | c''4.( e''4.) | c''8.(\\p g'16) e'8 g'8. f'16 d'8 | c'2.! |.";
    const std::string rightHand =
        "e'8.(\\p f'16 e'8 c'4.) | e'8.( f'16 e'8 c'4.) | f'4( f'8 d'4.) | e'4( e'8 e'4.) | "
        "f'4( f'8 a'8. g'16 f'8 | e'8. f'16 e'8 c'4.) | f'4( f'8 a'8. g'16 f'8 | e'8. f'16 e'8 c'4.) | "
        "f'4(\\mf f'8 b'8. b'16 g'8 | e'4. g'4.) | e'8.(\\p e'16 c'8 e'8. d'16 b8) | c'2.! |.";
    const std::string onC = "c8( g c' e' c' g) | ";
    const std::string onG = "g,8( d f b f d) | ";
    const std::string onF = "f,8( c f a f c) | ";
    const std::string leftHand =
        onC + onC + onG + onC + onF + onC + onF + onC + onG + onC + "c8( g c' g, d f) | c8( g c' c4.)! |.";
    const Lyrics german{-6, "_00",
                        "Stil- _ le Nacht, hei- li- ge Nacht! Al- les schl\xE4"
                        "ft, ein- sam wacht "
                        "nur das trau- te, hoch- hei- li- ge Paar. Hol- der Kna- be im lo- cki- gen Haar, "
                        "schlaf in himm- li- scher Ruh, _ schlaf _ in himm- li- scher Ruh!"};
    const Lyrics english{-13, "_01",
                         "Si- _ lent night, ho- _ ly night! All is calm, all is bright round yon Vir- _ gin "
                         "Moth- er and Child. Ho- ly In- fant so ten- der and mild, "
                         "sleep in heav- en- ly peace, _ sleep _ in heav- en- ly peace!"};
    sheet.staves = {{"Canto", "", treble, 1, 0, {tune}, {german, english}, 12},
                    {"Pianoforte", "", treble, 2, 0, {rightHand}},
                    {"", "", bass, 2, 0, {leftHand}}};
    sheet.groups = {{1}, {2, StaffGroup::brace}};
    sheet.systems = {3, 3, 3, 3};
    sheet.beats = 6;
    sheet.beatType = 8;
    sheet.barLength = 3;
    sheet.beamUnit = 1.5;
    sheet.systemGap = 8;
    sheet.nextIndent = 3;
    sheet.page = 2;
    PageBuilder page;
    page.units(Units::metric);
    engrave(sheet, page);
    return {"SONG.MUS", "Gruber, Silent night: words in two languages, piano below, metric", page.bytes()};
}

}  // namespace tul::samples
