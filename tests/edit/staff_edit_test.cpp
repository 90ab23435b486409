#include "edit/instrument_ids.h"
#include "edit/staff_removal.h"
#include "support/edit_test.h"

namespace tul::edit {
namespace {

using StaffEdit = EditTest;

TEST_F(StaffEdit, SetsIdsPerStaff) {
    const std::string page = "8 1|8 2 0 0 0 0 0 0 3|8 2.5|8 NAN|3 2";
    instrumentIds.txtEditInstrId = "21.125";
    instrumentIds.txtEditInstrIdStaff = "2";
    EXPECT_EQ(changed(instrumentIdsFamily, page), "8 1|8 2 0 0 0 0 0 0 21.125|8 2.5|8 NAN|3 2");
    instrumentIds.txtEditInstrIdStaff = "ALL";
    EXPECT_TRUE(changed(instrumentIdsFamily, page).ends_with("8 NAN 0 0 0 0 0 0 21.125|3 2"));
    EXPECT_EQ(reportOf(instrumentIdsFamily), lines("Number of instrument Ids. set . . . . . 4")) << "again";
}

TEST_F(StaffEdit, SetsIdsPerSystem) {
    instrumentIds.optEditStaffInstrIdPerStaff = false;
    instrumentIds.optEditStaffInstrIdPerSystem = true;
    const auto idOf = [&](const char* staves, const char* pairs, float staff) {
        instrumentIds.txtEditInstrIdSystem = staves;
        instrumentIds.txtEditInstrIdMultiple = pairs;
        onlyItem({8, staff, 0, 0, 0, 0, 0, 0, -1});
        reportOf(instrumentIdsFamily);
        return musItemTable[1].pars[9];
    };
    for (const float odd : {1.F, 3.F, 33.F, 0.9F}) EXPECT_EQ(idOf("2", "1/2,2/1", odd), 2) << odd;
    for (const float even : {2.F, 4.F, 40000.F, 2.5F}) EXPECT_EQ(idOf("2", "1/2,2/1", even), 1) << even;
    for (const float none : {0.F, -1.F, 0.5F, 1e30F, infinity, notANumber})
        EXPECT_EQ(idOf("2", "1/2,2/1", none), -1) << none;
    EXPECT_EQ(idOf("3", "3/21.5,3/9,0/8", 6), 21.5);
    EXPECT_EQ(idOf("3", "3/21.5,3/9,0/8", -0.5), 8);
    for (const char* none : {"", "0", "99999999999"}) EXPECT_EQ(idOf(none, "1/7", 1), -1) << none;
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
    fill("1 2 9|8 1 0 0 0 0 0 0 21.3|8 2|8 2 0 0 0 0 0 0 22|16 2_00|1 2.5");
    EXPECT_EQ(reportOf(staffRemovalFamily), lines("Number of staves removed. . . . . . . . 2"));
    EXPECT_EQ(table(), "999 2 9|8 1 0 0 0 0 0 0 21.3|999 2|999 2 0 0 0 0 0 0 22|999 2_00|1 2.5");
    EXPECT_EQ(changed(staffRemovalFamily, "8 2.5|1 2|8 NAN|8 INF|8 -0.4|8"),
              "8 2.5|999 2|8 NAN|8 INF|8 -0.4|999")
        << "by the rounded number";
    EXPECT_EQ(changes(), 1);
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
