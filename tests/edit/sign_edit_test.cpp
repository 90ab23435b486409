#include "edit/brackets.h"
#include "edit/edit_profile.h"
#include "edit/fingers.h"
#include "edit/rests.h"
#include "edit/slurs.h"
#include "support/edit_test.h"

namespace tul::edit {
namespace {

using SignEdit = EditTest;

// --- Rests

TEST_F(SignEdit, SetsOrTakesTheOneOfWholeRests) {
    rests.chkEditRestOne = true;
    const std::string others = "|2 1 9 1 -2|2 1 9 0 -5|1 1 9 0 -2";
    EXPECT_EQ(reportOn("2 1 9 0 -2|2 1 9 0 -2 8=1" + others, restsFamily),
              lines("Number of Whole rest 1's set  . . . . . . . 1|"
                    "Number of Whole rest 1's reset  . . . . . . 0"));
    EXPECT_TRUE(becomes("2 1 9 0 -2 8=1|2 1 9 0 -2 8=1" + others));
    rests.optEditRestOneSet = false;
    rests.optEditRestOneReset = true;
    EXPECT_TRUE(contains(reportOf(restsFamily), "reset  . . . . . . 2"));
    EXPECT_TRUE(becomes("2 1 9 0 -2|2 1 9 0 -2" + others));
}

TEST_F(SignEdit, MultirestsBecomeEuropeanUpToNineBars) {
    EXPECT_EQ(refusal(tabRest),
              Texts{"Both rest options are set or both are reset. Select one option only."});
    rests.chkToEuropeanRest = true;
    const std::string others = "|2 1 9 4 -5 8=0 40|2 1 9 4 -5 8=9.5|2 1 9 4 -5 8=NAN|2 1 9 4 -3 8=2";
    expectChanged(restsFamily, "2 1 9 4 -5 8=1 40|2 1 9 4 -5 8=2.5|2 1 9 4 -5 8=9|2 1 9 4 -2 8=300" + others,
                  "2 1 9 4 -11|2 1 9 4 -12.5|2 1 9 4 -19|2 1 9 4 -11" + others, 4);
    EXPECT_EQ(reportOf(restsFamily), lines("Number of multiRests converted  . . . . . . 0"));
}

// --- Slurs

TEST_F(SignEdit, EndsGoToWholeHeights) {
    const std::string page = "5 1 9 2.5 -.4|5 1 9 3.5 3.5|5 1 9 1.2 NAN|4 1 9 2.5|5 1 9 1.2 2 8=-3";
    slurs.optSlurVertAlignHite = true;
    expectChanged(slursFamily, page, page, 0);
    slurs.chkSlurVertAlign = true;
    expectChanged(slursFamily, page, "5 1 9 2|5 1 9 3.5 3.5|5 1 9 1 NAN|4 1 9 2.5|5 1 9 1 2 8=-3", 3);
    EXPECT_FALSE(std::signbit(musItemTable[1].pars[5]));
    slurs.optSlurVertAlignHite = false;
    expectChanged(slursFamily, page, "5 1 9 2|5 1 9 4 4|5 1 9 1 NAN|4 1 9 2.5|5 1 9 1.2 2 8=-3", 3);
    EXPECT_EQ(reportOf(slursFamily), lines("Number of slurs vert aligned  . . . . . 3"));
}

// --- Fingers

TEST_F(SignEdit, ThirdAndFourthFingersLeaveTheLine) {
    EXPECT_EQ(refusal(tabNumbers), Texts()) << "nothing is chosen: no run, and no word";
    fingers.optEditFinger4 = true;
    const std::string others =
        "10 1 9 11 3 .75|10 1 9 12 2 .75|10 1 9 12 3 .77|10 1 9 12 3 .75 1|10 1 9 INF 3 .75|10 1 9 NAN 3 .75";
    EXPECT_EQ(reportOn("10 1 9 12 3 .75|10 1 9 -2.4 4 .759|10 1 9 11.6 3 .75|" + others, fingersFamily),
              lines("Number of fingers moved: 3"));
    EXPECT_TRUE(becomes("10 1 9 11.8 3 .75|10 1 9 -2.2 4 .759|10 1 9 11.4 3 .75|" + others));
}

TEST_F(SignEdit, FingersMoveAwayFromTheirNotes) {
    fingers.optEditFingerDispl = true;
    const auto expectShift = [&](const std::string& notes, const char* finger, const char* shift) {
        const std::string page = notes + "|10 1 9 12 " + finger + " .75 15=";
        expectChanged(fingersFamily, page + "-2", page + shift, std::string(shift) == "-2" ? 0 : 1);
    };
    expectShift("1 1 4 11|1 1 9 3|1 1 9.009 11|1 1 9.1 11", "2", "-2.3");
    expectShift("1 1 8.991 11|1 1 NAN 11|1 1 10 11", "2", "-2.3");
    for (const char* note : {"1 2 9 11", "1 1 9.02 11", "1 1 9 12", "1 1 9 NAN", "2 1 9 11"})
        expectShift(note, "2", "-2");
    expectShift("1 1 9 11", "1", "-2");
}

// --- Brackets

TEST_F(SignEdit, PutsBracketsBesideTheirNotes) {
    const auto page = [](const Texts& brackets) {
        std::string items = "1 1 10|1 1 20 9=11|1 1 30 9=10|1 1 40 9=20";
        for (const std::string& bracket : brackets) items += "|4 1 4=14 14 " + bracket;
        for (const char* other : {"3=29 6=40 11=3 3", "3=29 6=40", "5=13 31 11=-1 -1", "2=2 6=31 11=-1 -1",
                                  "3=9.5 6=12 11=-1 -1"})
            items += std::string("|4 1 4=14 14 ") + other;
        return items;
    };
    fill(page({"3=11 6=19 11=-3 -3", "3=15 6=31 11=-3 -3", "3=19 6=7 12=-3", "3=41 6=7 11=4 -3",
               "3=29 6=7 11=-3"}));
    EXPECT_EQ(refusal(tabLine), Texts{"No action. Set the option to run alignment"});
    EXPECT_EQ(reportOf(bracketsFamily),
              lines("        Whole bracket on single note not aligned. Staff/pos=1/9.5|"
                    "        Alignments applied: 5"));
    EXPECT_TRUE(becomes(page({"3=9.5 6=22.5 11=-1 -1", "3=9.5 6=33.1 11=-1 -1", "3=23 6=24 12=-1",
                              "3=43 6=44.6 11=4 -1", "3=28 6=29 11=-1"})));
    EXPECT_EQ(changes(), 5);
}

TEST_F(SignEdit, KeepsNumbersWithinTheirLimits) {
    open("edit");
    const auto expectRefused = [&](const std::string& field, const Texts& typed, const std::string& fault) {
        const std::string assumed = shown(field);
        for (const std::string& text : typed) {
            host.forget();
            panel.set(field, text);
            EXPECT_EQ(shown(field), assumed) << text;
            EXPECT_EQ(host.messages, Texts{fault + " Assumed " + assumed});
        }
    };
    for (const char* offset :
         {"halfOffsetLeft", "halfOffsetRite", "wholeOffsetLeft", "wholeOffsetRite", "dotCorr"})
        expectRefused(std::string("txtRVB") + offset, {"", "1E3"}, "Value not numeric.");
    expectRefused("txtRVBheight", {"0", "2"}, "Value not <0.");
    expectRefused("txtRVBheightLine", {"0", "-2"}, "Value not >0.");
    panel.set("txtRVBdotCorr", "-.3");
    EXPECT_EQ(bracketSettings.txtRVBdotCorr, "-.3");
    panel.set("txtRVBdotCorr", "x");
    EXPECT_EQ(bracketSettings.txtRVBdotCorr, "0.6");
}

}  // namespace
}  // namespace tul::edit
