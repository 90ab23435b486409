#include "edit/general_edit.h"

#include <array>
#include <cmath>

#include "edit/edit_run.h"
#include "support/test.h"

namespace tul::edit {
namespace {

class General : public HostTest {
  protected:
    void condition(std::size_t number, const char* par, const char* relation, const char* value) {
        generalEdit.txtp[number] = par;
        generalEdit.lstr[number].choose(relation);
        generalEdit.txtv[number] = value;
    }
    void set(const char* par, const char* value) {
        generalEdit.txtp4 = par;
        generalEdit.txtv4 = value;
    }
    void reportInstead() {
        generalEdit.optOptionChange = false;
        generalEdit.optEditGeneralLocate = true;
    }
    /// The report of one file.
    std::string run(int number = 1) {
        Report report(host.path("REPORT.PRN"));
        pipeline.page = {.path = "C:\\PAGE.MUS"};
        generalFamily.begin()->updateFile({number, pipeline.page, report});
        EXPECT_TRUE(report.close());
        return host.read("REPORT.PRN");
    }
    /// True when the one item is selected.
    bool selects(float par3) {
        reportInstead();
        onlyItem({1, 1, par3});
        return run(2) != "";
    }
    /// Which items are selected, such as "13".
    std::string selected() {
        reportInstead();
        const std::string report = run(2);
        std::string items;
        for (const std::string& line : linesIn(report)) items += line[line.find('=') + 1];
        return items;
    }
    /// What the checks say, in order.
    Texts refusals() {
        host.messages.clear();
        const bool runs = generalFamily.mayRun();
        EXPECT_EQ(runs, host.messages.empty());
        return host.messages;
    }
};

TEST_F(General, RelationsAtBothEdgesOfTheMargin) {
    const float low = 10.0F - 0.001F;
    const float high = 10.0F + 0.001F;
    const auto below = [](float value) { return std::nextafter(value, -infinity); };
    const auto above = [](float value) { return std::nextafter(value, infinity); };
    const std::array<float, 9> values = {below(low), low,  above(low),  below(10), 10,
                                         above(10),  high, above(high), notANumber};
    for (const auto& [relation, expected] : {std::pair{"=", "011111100"},
                                             {"<>", "100000010"},
                                             {"<", "111111000"},
                                             {"<=", "111110000"},
                                             {">", "001111110"},
                                             {">=", "000011110"}}) {
        condition(0, "3", relation, "10");
        std::string selected;
        for (const float value : values) selected += selects(value) ? '1' : '0';
        EXPECT_EQ(selected, expected) << relation;
    }
    generalEdit.txtGeneralMargin = "0";
    condition(0, "3", "=", ".1");
    EXPECT_TRUE(selects(0.1F)) << "compared in single precision";
}

TEST_F(General, JoinsConditionsFromLeftToRight) {
    addItem({1, 1, 1});
    addItem({1, 2, 2});
    addItem({2, 1, 1});
    addItem({2, 2, 2});
    condition(0, "1", "=", "1");
    EXPECT_EQ(selected(), "12") << "lists that were never clicked join nothing";
    condition(1, "2", "=", "1");
    condition(2, "3", "=", "2");
    const auto joined = [&](const char* second, const char* third) {
        generalEdit.lstl[0].choose(second);
        generalEdit.lstl[1].choose(third);
        return selected();
    };
    for (const auto& [second, third, items] :
         std::vector<std::array<const char*, 3>>{{"AND", "--------", "1"},
                                                 {"OR", "--------", "123"},
                                                 {"&not", "--------", "2"},
                                                 {"OR", "AND", "2"},
                                                 {"AND", "OR", "124"},
                                                 {"OR", "&not", "13"},
                                                 {"--------", "AND", "2"}})
        EXPECT_EQ(joined(second, third), items) << second << third;
    generalEdit.lstr[1].choose("");
    EXPECT_EQ(joined("--------", "--------"), "12");
}

TEST_F(General, ComparesTextsAndSymbolLibrariesInTheFirstCondition) {
    addItem({16, 1}, "_00ab");
    addItem({16, 1}, "_00abc");
    addItem({9, 1, 0, 0, 27});
    addItem({9, 1, 0, 0, 105});
    condition(0, "1", "=", "16");
    EXPECT_EQ(selected(), "12");
    generalEdit.txtGeneralEdit = " _00ab ";
    EXPECT_EQ(selected(), "1");
    condition(0, "1", "<>", "16");
    EXPECT_EQ(selected(), "34") << "no compare with another relation";
    condition(0, "1", "=", "9");
    generalEdit.txtGeneralEdit = " libvb";
    EXPECT_EQ(selected(), "4");
    generalEdit.txtGeneralEdit = "";
    EXPECT_EQ(selected(), "");
    condition(0, "2", "=", "1");
    EXPECT_EQ(selected(), "1234");

    for (const auto& [par5, name] : std::vector<std::pair<float, std::string>>{
             {0, "LIBRA"}, {1, "LIBRB"}, {26, "LIBSA"}, {12.5F, "LIBRM"}, {1234, "LIBVT"}})
        EXPECT_EQ(setSymbolLibe(par5), name) << par5;
}

TEST_F(General, SetsParametersAndTexts) {
    addItem({16, 1, 5}, "_00ab");
    addItem({1, 1, 5});
    condition(0, "3", "=", "5");
    set("4", "-1.5");
    run();
    EXPECT_EQ(musItemTable[2].pars[4], -1.5F);
    EXPECT_EQ(pipeline.page.changes, 2);
    set("0", "7");
    run();
    EXPECT_EQ(pipeline.page.changes, 2) << "no parameter, but counted";
    condition(0, "1", "=", "16");
    set("4", "2");
    run();
    EXPECT_EQ(musItemTable[1].pars[4], 2);
    EXPECT_EQ(musItemTable[1].text, "_00ab");
    set("", "_01new");
    run();
    EXPECT_EQ(musItemTable[1].text, "_01new");
    set("1", "999");
    run();
    EXPECT_EQ(musItemTable[1].pars[1], deletedItem);
    EXPECT_EQ(musItemTable[2].pars[1], 1);
}

TEST_F(General, AParameterThatNoItemHasEndsTheProgram) {
    addItem({1, 1, 5});
    condition(0, "3", "=", "5");
    set("21", "1");
    EXPECT_EQ(endOf([&] { run(); }), 1);
    set("20", "1");
    run();
    EXPECT_EQ(musItemTable[1].pars[20], 1);
    generalEdit.txtp[1] = "99999999999";
    EXPECT_EQ(endOf([&] { run(); }), 1) << "evaluated before any click on the list";
    generalEdit.lstl[0].choose("--------");
    EXPECT_EQ(endOf([&] { run(); }), std::nullopt);
}

TEST_F(General, WritesTheHeadOnceAndALineForEachItem) {
    addItem({16, 1, 5}, "_00ab");
    addItem({8, 12, 1234567});
    condition(0, "3", ">=", "5");
    condition(1, "1", "<>", "-.25");
    generalEdit.lstl[0].choose("&not");
    condition(2, "2", "<", "100");
    generalEdit.lstl[1].choose("OR");
    set("09", "3.50");
    EXPECT_EQ(run(),
              crlf({"TulEdit General for CHANGE", "Margin: 0.001", "",
                    "Conditions:", "              if            Par3 >= 5.",
                    "              &not          Par1 <> -0.25", "              OR            Par2 < 100.",
                    "              then CHANGE", "Par9 to 3.50", "", "First 3 params of changed item",
                    "              Item=1         Par1=16       Par2=1        Par3=5      _00ab",
                    "              Item=2         Par1=8        Par2=12       Par3=1234567"}));
    generalEdit.lstl[0].choose("--------");
    generalEdit.lstl[1].choose("--------");
    set("1", "999");
    EXPECT_EQ(run(2), crlf({"              Item=1         Par1=999      Par2=1        Par3=5",
                            "              Item=2         Par1=999      Par2=12       Par3=1234567"}));
    reportInstead();
    EXPECT_EQ(run(), crlf({"TulEdit General for REPORT", "Margin: 0.001", "",
                           "Conditions:", "              if            Par3 >= 5.",
                           "              then REPORT", "", "First 3 params of matching items",
                           "              Item=1         Par1=999      Par2=1        Par3=5",
                           "              Item=2         Par1=999      Par2=12       Par3=1234567"}));
}

TEST_F(General, TheHeadTellsWhatIsDone) {
    const auto action = [&] {
        musItemTable.itemCount = 0;
        const std::string report = run();
        return std::string(linesOf(report)[6]);
    };
    condition(0, "1", "=", "9");
    generalEdit.txtGeneralEdit = "LIBRA";
    set("1", "999");
    EXPECT_EQ(action(), "Deleting item refering to DRW file LIBRA");
    set("1", "998");
    EXPECT_EQ(action(), "Text LIBRA to 998");
    generalEdit.txtGeneralEdit = " ";
    set("2.5", "998");
    EXPECT_EQ(action(), "Par2.5 to 998");
    condition(0, "2.5", "=", "5");
    addItem({1, 5});
    const std::string report = run();
    EXPECT_TRUE(contains(report, "Par2.5 = 5.\r\n"));
    EXPECT_EQ(musItemTable[1].pars[2], 998) << "rounded";
}

TEST_F(General, ChecksItsFieldsInOrder) {
    const auto expectRefusal = [this](std::string& field, const char* text, const std::string& refusal) {
        field = text;
        EXPECT_EQ(refusals(), refusal.empty() ? Texts() : Texts{refusal}) << text;
    };
    GeneralEdit& fields = generalEdit;
    const auto choose = [this](ChoiceList& list, const char* entry, const std::string& refusal) {
        list.choose(entry);
        EXPECT_EQ(refusals(), refusal.empty() ? Texts() : Texts{refusal}) << entry;
    };
    expectRefusal(fields.txtp4, "", "Result parameter not numeric: ");
    expectRefusal(fields.txtp4, "4x", "Result parameter not numeric: 4x");
    expectRefusal(fields.txtp4, "1", "Changing Par1 is quite drastic. Are you sure?");  // answered No
    fields.txtp4 = "4";
    expectRefusal(fields.txtv4, "1e", "Invalid set to value: 1e");
    fields.txtv4 = "1";
    for (const char* par : {"", "0.9", "19", "x"})
        expectRefusal(fields.txtp[0], par, std::string("Invalid parameter in first condition: ") + par);
    expectRefusal(fields.txtp[0], "18", "Invalid value in first condition: ");
    expectRefusal(fields.txtv[0], "16", "No relation selected in first condition");
    choose(fields.lstr[0], "=", "");

    expectRefusal(fields.txtGeneralEdit, "__00a", "The compare string is not preceded by a font");
    fields.txtGeneralEdit = "_00a";
    fields.txtp4 = "";
    expectRefusal(fields.txtv4, "_00b", "");
    expectRefusal(fields.txtv[0], "8", "A compare string was provided but the operator is not '=16' or '=9'");
    choose(fields.lstr[0], "<>", "");
    reportInstead();
    choose(fields.lstr[0], "=", "");  // asked in change mode only

    choose(fields.lstl[0], "AND", "Invalid parameter in second condition:");
    expectRefusal(fields.txtp[1], "25", "Invalid value in second condition: ");
    expectRefusal(fields.txtv[1], "2", "No relation selected in second condition");
    choose(fields.lstr[1], "<", "");
    fields.lstl[1].choose("OR");
    expectRefusal(fields.txtp[2], "3.5", "Invalid parameter in third condition:25");  // the second's fields
    fields.txtp[2] = "3";
    expectRefusal(fields.txtv[2], "x", "Invalid value in third condition: 2");
    expectRefusal(fields.txtv[2], "1", "No relation selected in third condition");
    choose(fields.lstl[1], "--------", "");
}

}  // namespace
}  // namespace tul::edit
