#include "samples/engraver.h"
#include "samples/scores.h"

namespace tul::samples {

namespace {

// The opening calls, then the imitation; where a part is silent it has whole bars of rest.
const std::string silentCalls = "R | R | R | R | R | ";
const std::string silentRest = "R | R | R | R | R | R | R | R |";
const std::string violinCall = "r8 g'\\ff g' g' | ees'2! | r8 f' f' f' | d'2~ | d'2! | ";
const std::string violaCall = "r8 g\\ff g g | ees2! | r8 f f f | d2~ | d2! | ";
const std::string bassCall = "r8 g,\\ff g, g, | ees,2! | r8 f, f, f, | d,2~ | d,2! | ";
const std::string clarinetCall = "r8 a'\\ff a' a' | f'2! | r8 g' g' g' | e'2~ | e'2! | ";

const std::string violin1 = "R | R | r8 ees''\\p ees'' ees'' | c''2~ | c''2 | R | r8 f'' f'' f'' | d''2 |";
const std::string violin2 = "r8 g'\\p g' g' | ees'2~ | ees'2~ | ees'2 | r8 g' g' g' | d'2~ | d'2~ | d'2 |";
const std::string viola = "R | r8 aes'\\p aes' aes' | g'2~ | g'2~ | g'2 | r8 aes' aes' aes' | g'2~ | g'2 |";
const std::string held = "R | c2~\\p | c2~ | c2~ | c2 | b,2~ | b,2~ | b,2 |";

}  // namespace

Sample orchestra() {
    const std::string silent = silentCalls + silentRest;
    Sheet sheet;
    sheet.title = "Sinfonia V";
    sheet.author = "Ludwig van Beethoven, op. 67";
    sheet.tempo = "Allegro con brio";
    sheet.staves = {{"Flauti", "Fl.", treble, 1, -3, {silent}},
                    {"Oboi", "Ob.", treble, 2, -3, {silent}},
                    {"Clarinetti in B", "Cl.", treble, 3, -1, {clarinetCall + silentRest}},
                    {"Fagotti", "Fg.", bass, 4, -3, {silentCalls + held}},
                    {"Corni in Es", "Cor.", treble, 5, 0, {silent}},
                    {"Trombe in C", "Tr.", treble, 6, 0, {silent}},
                    {"Timpani in C, G", "Timp.", bass, 7, 0, {silent}},
                    {"Violino I", "Vl. I", treble, 8, -3, {violinCall + violin1}},
                    {"Violino II", "Vl. II", treble, 9, -3, {violinCall + violin2}},
                    {"Viola", "Vla.", alto, 10, -3, {violaCall + viola}},
                    {"Violoncello", "Vc.", bass, 11, -3, {bassCall + held}},
                    {"Basso", "B.", bass, 12, -3, {bassCall + silentRest}}};
    sheet.groups = {{4, StaffGroup::bracket}, {2, StaffGroup::bracket}, {1}, {5, StaffGroup::bracket}};
    sheet.systems = {5, 8};
    sheet.beats = 2;
    sheet.beatType = 4;
    sheet.barLength = 2;
    sheet.beamUnit = 2;
    sheet.staffSize = 0.5;
    sheet.systemGap = 10;
    sheet.indent = 22;
    sheet.page = 1;
    PageBuilder page;
    page.units(Units::metric);
    engrave(sheet, page);
    return {"ORCHESTR.MUS", "Beethoven, opening of the fifth symphony: 24 staves in two systems, metric",
            page.bytes()};
}

Sample extractedPart() {
    const std::string rests =
        "R*1:-2:12 | R | R | R | R*4:-7 | R*2:-6 | R*2:-12 | R*4:-14:11 | R*8:-5 | R*8:-18:10 | R*4:-2 | "
        "R*12:-5 || ";
    const std::string theme = "fis''4 g'' a'' | a''4 g'' fis'' e'') | d''4( d'' e'' fis'' | ";
    const std::string answer = "fis''4( " + theme + "e''4. d''8 d''2) | ";
    const std::string middle =
        "e''4( e'' fis'' d'') | e''4( fis''8 g'' fis''4 d'') | e''4(\\< fis''8 g'' fis''4 e'' | "
        "d''4 e'' a') fis''~\\p | ";
    Sheet sheet;
    sheet.title = "Violino I";
    sheet.author = "Ludwig van Beethoven, op. 125";
    sheet.tempo = "Allegro assai";
    sheet.staves = {{"",
                     "",
                     treble,
                     8,
                     2,
                     {rests + "fis''4(\\p^dolce " + theme + "fis''4. e''8 e''2) | " + answer + middle +
                      answer + middle + answer}}};
    sheet.groups = {{1}};
    sheet.systems = {7, 5, 4, 4, 4, 4, 4, 4};
    sheet.beats = 99;
    sheet.beatType = 1;
    sheet.beamUnit = 2;
    sheet.staffSize = 0.9;
    sheet.systemGap = 14;
    sheet.indent = 8;
    sheet.nextIndent = 0;
    sheet.firstBar = 92;
    sheet.page = 7;
    PageBuilder page;
    engrave(sheet, page);
    return {"PART.MUS",
            "Beethoven, first violin of the ninth symphony's finale: whole rests, rests of many bars",
            page.bytes()};
}

}  // namespace tul::samples
