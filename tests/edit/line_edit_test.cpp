#include "edit/brackets.h"
#include "edit/button_test.h"
#include "edit/edit_profile.h"

namespace tul::edit {
namespace {

using LineEdit = ButtonTest;

TEST_F(LineEdit, PutsBracketsBesideTheirNotes) {
    const auto page = [](const Texts& brackets) {
        std::string items = "1=1 2=1 3=10|1=1 2=1 3=20 9=11|1=1 2=1 3=30 9=10|1=1 2=1 3=40 9=20";
        for (const std::string& bracket : brackets) items += "|1=4 2=1 4=14 5=14 " + bracket;
        return items;
    };
    const Texts others = {"3=29 6=40 11=3 12=3", "3=29 6=40", "5=13 6=31 11=-1 12=-1", "2=2 6=31 11=-1 12=-1",
                          "3=9.5 6=12 11=-1 12=-1"};
    Texts found = {"3=11 6=19 11=-3 12=-3", "3=15 6=31 11=-3 12=-3", "3=19 6=7 12=-3", "3=41 6=7 11=4 12=-3",
                   "3=29 6=7 11=-3"};
    Texts aligned = {"3=9.5 6=22.5 11=-1 12=-1", "3=9.5 6=33.1 11=-1 12=-1", "3=23 6=24 12=-1",
                     "3=43 6=44.6 11=4 12=-1", "3=28 6=29 11=-1"};
    for (Texts* all : {&found, &aligned}) all->insert(all->end(), others.begin(), others.end());
    select(page(found));
    panel.set("tabEdit", "line");
    panel.press("cmdEditRun");
    EXPECT_EQ(host.messages, Texts{"No action. Set the option to run alignment"});
    panel.set("optLineRVB", "1");
    panel.press("cmdEditRun");
    EXPECT_TRUE(holds(page(aligned)));
    EXPECT_TRUE(contains(host.shown.back(),
                         "PAGE.MUS\r\n        Whole bracket on single note not aligned. Staff/pos=1/9.5\r\n"
                         "        Alignments applied: 5\r\n \r\n"));
}

TEST_F(LineEdit, KeepsNumbersWithinTheirLimits) {
    select("1=8 2=1");
    EXPECT_FALSE(panel.isOffered(*panel.field("txtRVBwidth")));
    const auto expectAssumed = [&](const char* field, const Texts& refused, const std::string& fault,
                                   const std::string& assumed) {
        for (const std::string& typed : refused) {
            host.forget();
            panel.set(field, typed);
            EXPECT_EQ(shown(field), assumed) << typed;
            EXPECT_EQ(host.messages, Texts{fault + " Assumed " + assumed});
        }
    };
    for (const char* field : {"txtRVBhalfOffsetLeft", "txtRVBhalfOffsetRite", "txtRVBwholeOffsetLeft",
                              "txtRVBwholeOffsetRite", "txtRVBdotCorr"})
        expectAssumed(field, {"", "1E3"}, "Value not numeric.", shown(field));
    expectAssumed("txtRVBheight", {"0", "2"}, "Value not <0.", "-1.0");
    expectAssumed("txtRVBheightLine", {"0", "-2"}, "Value not >0.", "14.0");
    panel.set("txtRVBdotCorr", "-.3");
    EXPECT_EQ(bracketSettings.txtRVBdotCorr, "-.3");
}

}  // namespace
}  // namespace tul::edit
