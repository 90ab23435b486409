#include "edit/instrument_ids.h"
#include "edit/staff_removal.h"
#include "support/edit_test.h"

namespace tul::edit {
namespace {

using StaffEdit = EditTest;

TEST_F(StaffEdit, SetsIdsPerStaff) {
    const std::string page = "8 1|8 2 9=3|8 2.5|8 NAN|3 2";
    instrumentIds.txtEditInstrId = "21.125";
    instrumentIds.txtEditInstrIdStaff = "2";
    expectChanged(instrumentIdsFamily, page, "8 1|8 2 9=21.125|8 2.5|8 NAN|3 2", 1);
    instrumentIds.txtEditInstrIdStaff = "ALL";
    expectChanged(instrumentIdsFamily, page, "8 1 9=21.125|8 2 9=21.125|8 2.5 9=21.125|8 NAN 9=21.125|3 2",
                  4);
    EXPECT_EQ(reportOf(instrumentIdsFamily), lines("Number of instrument Ids. set . . . . . 4")) << "again";
}

TEST_F(StaffEdit, SetsIdsPerSystem) {
    instrumentIds.optEditStaffInstrIdPerStaff = false;
    instrumentIds.optEditStaffInstrIdPerSystem = true;
    const auto expectIds = [&](const char* staves, const char* pairs, const std::string& page,
                               const std::string& changed, int count) {
        instrumentIds.txtEditInstrIdSystem = staves;
        instrumentIds.txtEditInstrIdMultiple = pairs;
        expectChanged(instrumentIdsFamily, page, changed, count);
    };
    const std::string none = "|8 0|8 -1|8 .5|8 1e30|8 INF|8 NAN";
    expectIds("2", "1/2,2/1", "8 1|8 3|8 33|8 .9|8 2|8 4|8 40000|8 2.5" + none,
              "8 1 9=2|8 3 9=2|8 33 9=2|8 .9 9=2|8 2 9=1|8 4 9=1|8 40000 9=1|8 2.5 9=1" + none, 8);
    expectIds("3", "3/21.5,3/9,0/8", "8 6|8 -.5", "8 6 9=21.5|8 -.5 9=8", 2);
    for (const char* refused : {"", "0", "99999999999"}) expectIds(refused, "1/7", "8 1", "8 1", 0);
    EXPECT_EQ(refusal(tabStaff), Texts{"Value out of staff range..."});
    instrumentIds.txtEditInstrIdSystem = "";
    EXPECT_EQ(refusal(tabStaff), Texts{"Expecting digits only..."});
}

TEST_F(StaffEdit, ReadsListsOfStavesAndIds) {
    const std::map<std::string, std::string> lists = {{"4/21,3/22.5", "4/21 3/22.5 "},
                                                      {"4/21,,3", "4/21 "},
                                                      {"/", ""},
                                                      {"4,/21,21,4/", ""},
                                                      {"1/2/3", "2/3 "},
                                                      {"1.5/2,2.5/3,./4", "2/2 2/3 "},
                                                      {"99999999999/1,1/1.2.3", "1/1.2 "},
                                                      {"1 2/3 4,", "12/34 "}};
    for (const auto& [text, pairs] : lists) {
        std::string read;
        const auto found = convertStaffNumberingString(text);
        for (const StaffAndId& pair : *found) read += plain(pair.staff) + "/" + plain(pair.id) + " ";
        EXPECT_EQ(read, pairs) << text;
    }
    EXPECT_EQ(keepStaffNumbering("4/21;3/22", "present"), "present");
    EXPECT_EQ(host.messages, Texts{"Invalid input. Re-enter proper values"});
}

TEST_F(StaffEdit, RemovesStavesWithAllThatStandsOnThem) {
    instrumentIds.optEditStaffInstrId = false;
    staffRemoval = {.optEditStaffIRemove = true, .txtRemoveStaves = ",.,"};
    EXPECT_EQ(refusal(tabStaff), Texts{"No instrument IDs were specified"});
    staffRemoval.txtRemoveStaves = ",21.3,22,";
    EXPECT_EQ(reportOn("1 2 9|8 1 9=21.3|8 2|8 2 9=22|16 2'_00|1 2.5", staffRemovalFamily),
              lines("Number of staves removed. . . . . . . . 2"));
    EXPECT_TRUE(becomes("999 2 9|8 1 9=21.3|999 2|999 2 9=22|999 2 12=3'_00|1 2.5"));
    // By the rounded number.
    expectChanged(staffRemovalFamily, "8 2.5|1 2|8 NAN|8 INF|8 -.4|8", "8 2.5|999 2|8 NAN|8 INF|8 -.4|999",
                  1);
}

TEST_F(StaffEdit, FieldsKeepWhatFits) {
    projectSettings.StaffRange = 200;
    expectKept(keepInstrumentId, {{" 9999.999 ", "9999.999"}, {"1.250", "1.250"}});
    expectKept(keepInstrumentId, {{"all", "0"}, {"1e2", "0"}}, {"Input should be numeric. Assumed 0."});
    expectKept(keepInstrumentId, {{"9999.9991", "0"}}, {"Invalid instrument id number. Assumed 0."});
    expectKept(keepInstrumentId, {{"1.0001", "0"}}, {"Too many decimals (3 is max). Assumed 0."});
    expectKept(keepStaffNumber, {{"ALL", "ALL"}, {"200.9", "200"}});
    expectKept(keepStaffNumber, {{"201", "ALL"}, {"0.9", "ALL"}}, {"Invalid staff number. Assumed ALL."});
    EXPECT_EQ(keepRemoveStaves("21.5,22") + keepRemoveStaves("21 22"), "21.5,22");
}

}  // namespace
}  // namespace tul::edit
