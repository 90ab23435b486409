#include "centre/option_checks.h"

#include "support/test.h"

namespace tul {
namespace {

using Check = bool (*)(std::string&);
void expectChecked(Check check, const std::map<std::string, std::string>& kept, const Texts& refused,
                   const std::string& assumed) {
    for (const auto& [typed, value] : kept) {
        std::string text = typed;
        EXPECT_TRUE(check(text)) << typed;
        EXPECT_EQ(text, value);
    }
    for (std::string text : refused) {
        EXPECT_FALSE(check(text)) << text;
        EXPECT_EQ(text, assumed);
    }
}

TEST(OptionFields, KeepWhatScoreKnows) {
    expectChecked(CheckFontNumber,
                  {{"0", "0"},
                   {" 07 ", "7"},
                   {"199", "199"},
                   {"1000", "1000"},
                   {"1199", "1199"},
                   {"5.0", "5"},
                   {"-0", "0"},
                   {"+12", "12"}},
                  {"200", "999", "1200", "-1", "5.5", "", "_26", "1,2", "4e", "99999999999"}, "0");
    expectChecked(CheckSize, {{".75", "0.75"}, {"9.99", "9.99"}, {"0.001", "0.001"}, {" 1.50", " 1.50"}},
                  {"0", "10", "-1", "", ".", "1,5", "one", "5E5"}, "1");
}

TEST(FontPrefixes, HaveTwoDigits) {
    const std::map<std::string, std::string> kept = {
        {"_01", "_01"}, {"_1", "_01"},  {"7", "_07"},    {"26", "_26"}, {"_99", "_99"}, {"_100", "_00"},
        {"_1,", "_00"}, {"_-5", "_00"}, {"_2.5", "_00"}, {"", "_00"},   {"__5", "_00"}, {"Times", "_00"}};
    for (const auto& [typed, prefix] : kept) EXPECT_EQ(CheckFontPrefix(typed), prefix) << typed;
}

using KeptOptions = HostTest;

TEST_F(KeptOptions, TellWhatTheyAreInstead) {
    const auto keepPageSuffix = [](const std::string& typed) { return keepSuffix(typed, "PAG"); };
    const Texts sizeRefused = {"Value not numeric or out of range. Assumed 1."};
    expectKept(keepFontNumber, {{"1100", "1100"}});
    expectKept(keepFontNumber, {{"200", "0"}},
               {"Value not 00-99, 100-199, 1000-1099, 1100-1199. Assumed 0."});
    expectKept(keepSize, {{".8", "0.8"}});
    expectKept(keepSize, {{"10", "1"}}, sizeRefused);
    expectKept(keepMarkedSize, {{"1.10", "201.1"}});
    expectKept(keepMarkedSize, {{"201.1", "201"}}, sizeRefused);
    expectKept(keepLyricsSize, {{"-12", "-12"}});
    expectKept(keepLyricsSize, {{"-pt", "1"}, {"12", "1"}}, sizeRefused);
    expectKept(keepPageLength, {{"7.9", "7"}});
    expectKept(keepPageLength, {{"8", "2"}, {"0.9", "2"}},
               {"Invalid number of digits specified. Assumed 2."});
    expectKept(keepPageSuffix, {{" mus2", "MUS"}});
    expectKept(keepPageSuffix, {{"m-s", "PAG"}, {"m\xE9", "PAG"}},
               {"Invalid character in suffix. Only letters and digits are allowed."});
}

TEST(FontCodes, StandForATextOfTheirOwnOrOfTheLibrary) {
    ScriptedHost host;
    EXPECT_EQ(FontCodeText("3123"), "") << "there is no library";
    projectSettings.Code9Path = host.path("CODE9.DAT");
    host.write("CODE9.DAT", "3122 one\r\n 3123 no\r\n3123 two  \r\n3123 three\r\n4000 four\r\n");
    const std::map<std::string, std::string> texts = {
        {"3123", "3123 two"}, {"3124", ""}, {"312", ""},  {"31230", ""}, {"4000", ""}, {"_01solo", "_01solo"},
        {"_26", "_26"},       {"_2", ""},   {"_x1a", ""}, {"solo", ""},  {"", ""}};
    for (const auto& [code, text] : texts) EXPECT_EQ(FontCodeText(code), text) << code;
}

}  // namespace
}  // namespace tul
