#include "edit/clefs.h"
#include "support/edit_test.h"

namespace tul::edit {
namespace {

using ClefEdit = EditTest;

TEST_F(ClefEdit, ChangesTheClefsOfAnInstrumentOnceForEachStaffItem) {
    const std::string staves = "|8 1 5 9=21|8 2 6 9=21.5|8 1 7 9=21|8 NAN 8 9=21";
    const auto expect = [&](bool Clefs::*option, const char* instrument, const std::string& page,
                            const std::string& changed, int count) {
        clefs = {};
        clefs.txtEditKeyInstrument = instrument;
        clefs.*option = true;
        expectChanged(clefsFamily, page + staves, changed + staves, count);
    };
    const std::string treble = "3 1 9|3 2 9|3 3 9|3 NAN 9";
    const std::string choral = "3 1 9 5=.8|3 2 9 5=.8|3 3 9 5=.8|3 NAN 9 5=.8";
    expect(&Clefs::optEditTtoC, "ALL", treble, choral, 4);
    expect(&Clefs::optEditTtoC, "ALL", choral, choral, 0);
    expect(&Clefs::optEditTtoC, "21", treble, "3 1 9 5=.8|3 2 9|3 3 9|3 NAN 9", 2);
    expect(&Clefs::optEditCtoT, "ALL", choral, treble, 4);
    expect(&Clefs::optEditCtoT, "21", "3 1 9 5=.80001", "3 1 9 5=.80001", 0);
    expect(&Clefs::optEditClef, "ALL", treble, "3 1 8.25|3 2 7.25|3 3 9|3 NAN 9", 3);
    expect(&Clefs::optEditClef, "22", treble, treble, 0);
}

TEST_F(ClefEdit, AnOctaveSignStandsAboveBassClefs) {
    clefs.optEditBasCleff8va = true;
    const std::string page = "3 2 1.5 0 1|3 2 9 4 1|3 2 9|1 2 9 0 1";
    expectChanged(clefsFamily, page, page + "|16 2 2.5 11 0 .7'_038|16 2 10 11 0 .56'_038", 2);
    fill("");
    while (musItemTable.itemCount < 1998) addItem({3, 1, 0, 0, 1});
    EXPECT_EQ(reportOf(clefsFamily), lines("Number of clefs changed . . . . . . . . . . 2"));
    EXPECT_EQ(musItemTable.itemCount, 2000);
    EXPECT_EQ(host.messages, Texts{"MUS file too big to add 8va on bass clef:C:\\PAGE.MUS"});
    EXPECT_TRUE(pipeline.page.lacksRoom);
}

TEST_F(ClefEdit, ChecksItsOptions) {
    EXPECT_EQ(refusal(tabClef), Texts{"No use running when no option set"});
    clefs.optEditBasCleff8va = true;
    EXPECT_EQ(refusal(tabClef), Texts{"Instrument id must be set, or ALL"});
    expectKept(keepKeyInstrument, {{" all", "ALL"}, {"21.7", "21"}, {"9999.9", "9999"}});
    expectKept(keepKeyInstrument, {{"10000", "ALL"}, {"-0.5", "ALL"}, {"1" + std::string(400, '0'), "ALL"}},
               {"Invalid instrument id. Assumed ALL."});
    expectKept(keepClefAlign, {{"-1", "1.25"}}, {"Value negative. Assumed 1.25"});
}

}  // namespace
}  // namespace tul::edit
