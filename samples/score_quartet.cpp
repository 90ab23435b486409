#include "samples/engraver.h"
#include "samples/scores.h"

namespace tul::samples {

namespace {

// The third line of the theme is played twice. The bars begin in the middle of the lines, as the theme does.
const std::string lastLineFirst =
    "fis''8 e'' d''4 e''4. d''8 | d''8 c'' b'4) a'4.(\\< b'16 c'' | d''8 e'' c'' a' g'4) b'8( a' | ";
const std::string lastLineSecond = "a'4 g' g'2 | g'2 e' | fis'2 d' | ";
const std::string lastLineThird = "d'2 c' | d'2 c' | a2 b4 g8 fis | ";
const std::string lastLineCello = "d4 b, c2 | g,2 c | d2 g4 d | ";

const std::string firstLine = "b'4) a'( c'' b' | a'8 fis' g'4) e''( d'' | c''4 b' a' b'8 g' | ";
const std::string firstLineSecond = "d'2 fis'4 g' | d'4 b g'2 | fis'4 g' d' d' | ";
const std::string firstLineThird = "g4 a a g | fis4 g c' d' | d'2 a4 g | ";
const std::string firstLineCello = "g,4 fis, d g, | d,4 g, c b, | a,4 g, fis, g, | ";

const std::string violin1 = "g'4.(\\p a'8 | " + firstLine + "d''2) g'4.(\\p a'8 | " + firstLine +
                            "d''2) a'4(\\p b' | a'8 fis' d'4) c''( b' | a'8 fis' d'4) d''(\\< c'' | " +
                            "b'4.) b'8 cis''4. cis''8 | d''2 g''4.(\\f fis''8 | " + lastLineFirst +
                            "g'2) g''4.(\\p fis''8 | " + lastLineFirst + "g'2)\\pp |.";
const std::string violin2 = "d'2\\p | " + firstLineSecond + "fis'2 d'\\p | " + firstLineSecond +
                            "fis'2 d'4\\p d' | d'4 a d' d' | d'4 a g'2 | g'2 g'4 g' | fis'2 b'\\f | " +
                            lastLineSecond + "b2 b'\\p | " + lastLineSecond + "b2\\pp |.";
const std::string viola = "b2\\p | " + firstLineThird + "a2 b\\p | " + firstLineThird +
                          "a2 fis4\\p g | fis2 fis4 g | fis2 d'4 e' | e'2 e' | d'2 d'\\f | " + lastLineThird +
                          "g2 d'\\p | " + lastLineThird + "g2\\pp |.";
const std::string cello = "g,2\\p | " + firstLineCello + "d2 g,\\p | " + firstLineCello +
                          "d2 d~\\p | d1~ | d2 b,4 c | e2 a, | d2 g\\f | " + lastLineCello + "g,2 g\\p | " +
                          lastLineCello + "g,2\\pp |.";

}  // namespace

Sample quartet() {
    Sheet sheet;
    sheet.title = "Quartetto";
    sheet.author = "Joseph Haydn, op. 76 no. 3";
    sheet.tempo = "Poco adagio. Cantabile";
    sheet.staves = {{"Violino I", "Vl. I", treble, 1, 1, {violin1}},
                    {"Violino II", "Vl. II", treble, 2, 1, {violin2}},
                    {"Viola", "Vla.", alto, 3, 1, {viola}},
                    {"Violoncello", "Vc.", bass, 4, 1, {cello}}};
    sheet.groups = {{4, StaffGroup::bracket}};
    sheet.systems = {6, 5, 5, 5};
    sheet.beats = 98;
    sheet.beatType = 1;
    sheet.systemGap = 6;
    sheet.firstBar = 0;
    sheet.page = 1;
    PageBuilder page;
    engrave(sheet, page);
    page.text(16, {1, 94, -12, 1, 0.8}, "_00Hob. III:77");
    return {"QUARTET.MUS", "Haydn, theme of the Emperor quartet: four systems of four staves, inches",
            page.bytes()};
}

}  // namespace tul::samples
