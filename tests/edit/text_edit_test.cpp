
#include "edit/general_edit.h"
#include "edit/lyrics.h"
#include "edit/plate_numbers.h"
#include "edit/text_fonts.h"
#include "edit/text_search.h"
#include "support/edit_test.h"

namespace tul::edit {
namespace {

// --- Fields

using EditFields = HostTest;

TEST_F(EditFields, KeepFontsSizesAndStrings) {
    const auto present = [](auto keep) {
        return [keep](const std::string& typed) { return keep(typed, "present"); };
    };
    const auto refused = [](const Texts& typed, const char* assumed) {
        std::map<std::string, std::string> kept;
        for (const std::string& text : typed) kept[text] = assumed;
        return kept;
    };
    const Texts size = {"Value not numeric or out of range. Assumed 1."};
    expectKept(present(keepFontDigits), {{" 07 ", "07"}, {"  ", ""}});
    expectKept(present(keepFontDigits), refused({"7", "7a"}, "present"), {"I said two digits..."});
    expectKept(keepSearchSize, {{".75", "0.75"}, {"9.99", "9.99"}});
    expectKept(keepSearchSize, refused({"10", "0", ""}, "1."), size);
    expectKept(keepSearchMargin, {{"0", "0"}, {".0", ".0"}});
    expectKept(keepSearchMargin, refused({"none", "10"}, "1."), size);
    expectKept(keepGeneralMargin, {{"-2", "-2"}});
    expectKept(keepGeneralMargin, {{"wide", ".001"}}, {"Margin should be numeric. Assumed .001"});

    expectKept(present(keepSearchString), {{"a'", "a'"}, {"'a'b'", "'a'b'"}});
    for (const auto& [typed, told] : std::vector<std::pair<Texts, std::string>>{
             {{"", "''"}, "Empty string not allowed as search argument."},
             {{"\""}, "Invalid search string (Delimiter only)."},
             {{"\"a'", "'a"}, "Different begin and end delimiters."},
             {{"\"a\"b\""}, "Quote in search argument when embedded by quotes not allowed."},
             {{"'a\"b'"}, "Apostrophe in search argument when embedded by apostrophe not allowed."}})
        expectKept(present(keepSearchString), refused(typed, "present"), {told});
    expectKept(present(keepReplacement), {{"", "present"}, {"ab", "ab"}, {"' '", "' '"}});
    expectKept(present(keepReplacement), refused({"a'b", "'ab\""}, "present"),
               {"Beginning and ending delimiter are different."});
    expectKept(present(keepReplacement), {{"''", "present"}},
               {"String contains one or more apostrophes and/or quotes but it is not within delimiters."});
}

// --- Items

class TextEdit : public EditTest {
  protected:
    /// What becomes of one text; "gone" when it is deleted.
    std::string search(const std::string& text, const std::string& string1, const std::string& string2) {
        fill("16 6=1'" + text);
        textSearch.txtEditSearchString1 = string1;
        textSearch.txtEditSearchString2 = string2;
        reportOf(textSearchFamily);
        return musItemTable[1].pars[1] == deletedItem ? "gone" : musItemTable[1].text;
    }
    std::string fonts(const std::string& text, const std::string& input, const std::string& output) {
        fill("16 6=1'" + text);
        textFonts.optEditDeleteModify = textFonts.optEditModifyText = true;
        textFonts.optEditDeleteText = false;
        textFonts.txtEditFontInput = input;
        textFonts.txtEditFontOutput = output;
        reportOf(textFontsFamily);
        return musItemTable[1].text;
    }
};

TEST_F(TextEdit, ReplacesBehindTheFontPrefix) {
    struct Case {
        const char* text;
        const char* string1;
        const char* string2;
        const char* result;
        int count;
    };
    for (const Case& item : std::vector<Case>{{"_00glo-ria", "glo", "Glo", "_00Glo-ria", 1},
                                              {"__00glo glo", "glo", "glo-glo", "__00glo-glo glo-glo", 2},
                                              {"_00aaa", "aa", "a", "_00aa", 1},
                                              {"_00gloria", "Glo", "x", "_00gloria", 0},
                                              {"_00", "00", "x", "_00", 0},
                                              {"_00a_00b", "_00", "_01", "_00a_01b", 1},
                                              {"abcab", "ab", "x", "xcx", 2},
                                              {"abc", "ab", "x", "abc", 0},
                                              {"_00xaabbx", "ab", "", "_00xx", 2},
                                              {"_00ab", "ab", "", "gone", 1},
                                              {"__00abab", "ab", "", "gone", 2},
                                              {"abab", "ab", "", "", 2},
                                              {"_00ab", "ab", "_05", "_00_05", 1},
                                              {"_00C3", "$barre$", "", "_24III", 1},
                                              {"_24C20", "$barre$", "", "_24XX", 1},
                                              {"__24C19", "$barre$", "", "_24IXX", 1},
                                              {"C3", "$barre$", "", "C3", 0},
                                              {"_00D3", "$barre$", "x", "_00D3", 0},
                                              {"_00D$barre$", "$barre$", "x", "_00Dx", 1},
                                              {"_00anything", "$cyrillic$", "", "_55\xC3", 1}}) {
        EXPECT_EQ(search(item.text, item.string1, item.string2), item.result) << item.text;
        EXPECT_EQ(changes(), item.count) << item.text;
    }
    EXPECT_EQ(host.messages, Texts{"Barre translation conflict. Assumed C20"});
}

TEST_F(TextEdit, BlanksAreFoundInTheBlankedPrefixToo) {
    EXPECT_EQ(search("_00a b", "' '", "x"), "_00axb");
    EXPECT_EQ(changes(), 4);
    EXPECT_EQ(search("_00a b", "' '", ""), "_0") << "the prefix is laid over what is left";
    EXPECT_EQ(search("_00a", "''", "x"), "_00a") << "an empty string is nowhere";
    EXPECT_EQ(changes(), 0);
}

TEST_F(TextEdit, WholeWordsPassARefusedOneByTheLengthOfTheReplacement) {
    textSearch.chkReplaceWholeWord = true;
    EXPECT_EQ(search("_00glo gloria in-glo", "glo", "x"), "_00x gloria in-x");
    EXPECT_EQ(search("_00a1 a", "a", "x"), "_00a1 x");
    EXPECT_EQ(search("_00ab,ab", "ab", "abc def"), "_00abc def,abc def");
    EXPECT_EQ(search("_00abc ab ab", "ab", "123456"), "_00abc ab 123456") << "one that stands near is passed";
    EXPECT_EQ(search("_00--", "-", "x"), "_00x-") << "the replacement is what stands before the second";
    EXPECT_EQ(search("_00xab ab", "ab", "y"), "_00xab y");
    EXPECT_EQ(changes(), 1);
    EXPECT_EQ(search("_00xabx", "ab", "y"), "_00xabx");
    EXPECT_EQ(changes(), 1) << "found is enough for the file to be written";
    EXPECT_EQ(search("_00xabx", "ab", ""), "_00xx") << "removed inside words";
}

TEST_F(TextEdit, FiltersByFontAndSize) {
    textSearch.chkEditSearchFont = true;
    textSearch.txtEditSearchFont = "05";
    for (const auto& [text, result] :
         {std::pair{"_05aa", "_05x"}, {"__05aa", "__05x"}, {"_06aa", "_06aa"}, {"aa_05aa", "aa_05aa"}})
        EXPECT_EQ(search(text, "aa", "x"), result);

    textSearch.chkEditSearchFont = false;
    textSearch.chkEditSearchSize = true;
    const auto passes = [&](float par6, const char* size, const char* margin) {
        textSearch.txtEditSearchSize = size;
        textSearch.txtEditSearchMargin = margin;
        onlyItem({16, 0, 0, 0, 0, par6}, "_00aa");
        reportOf(textSearchFamily);
        return changes() == 1;
    };
    for (const float size : {0.75F, 100.75F, 300.75F}) EXPECT_TRUE(passes(size, ".75", "0")) << size;
    EXPECT_FALSE(passes(0.7500001F, ".75", "0"));
    EXPECT_TRUE(passes(1.25F, "1", ".25"));
    for (const float size : {1.2500001F, 0.7F}) EXPECT_FALSE(passes(size, "1", ".25")) << size;
}

TEST_F(TextEdit, ComparesWholeTextsAsTheFieldsStand) {
    textSearch.chkSearchReplaceIncludeFont = true;
    textSearch.chkEditVerify = true;
    EXPECT_EQ(search("_00'a'", "'a'", "x"), "_00'a'");
    EXPECT_EQ(search("'a'", "'a'", "\"b\""), "\"b\"");
    EXPECT_EQ(search("_24C3", "_24C3", "_25C3"), "_25C3");
    EXPECT_EQ(changes(), 1);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(TextEdit, AsksAtEveryItemAndCancels) {
    textSearch.chkEditVerify = true;
    textSearch.txtEditSearchString1 = "'a'";
    textSearch.txtEditSearchString2 = "' '";
    fill("16 1'_00a|16 1'_00ba|16 1'_00ca|16 1'_00da");
    host.answers = {Answer::no, Answer::yes, Answer::cancel};
    reportOf(textSearchFamily);
    ASSERT_EQ(host.messages.size(), 3U);
    EXPECT_EQ(
        host.messages[1] + "\r\n",
        crlf({"Found string: a", "in text string: _00ba", "in file: C:\\PAGE.MUS", "replace by string: ' '",
              "Item number: 2", "", "Replace? (Cancel will stop any further search/replace)"}));
    EXPECT_EQ(musItemTable[1].text + musItemTable[2].text + musItemTable[4].text, "_00a_00b _00da");
    EXPECT_TRUE(isCancelled());
    EXPECT_EQ(changes(), 1);
}

TEST_F(TextEdit, ABarreThatIsRefusedStaysTranslatedAndUncounted) {
    textSearch.chkEditVerify = true;
    host.answers = {Answer::no};
    EXPECT_EQ(search("_00C4", "$barre$", ""), "_24IV");
    EXPECT_EQ(musItemTable[1].pars[6], 0.75F);
    EXPECT_EQ(textSearch.txtEditSearchString2, "IV");
    EXPECT_EQ(changes(), 0);
}

TEST_F(TextEdit, ChangesEveryFontOfAText) {
    EXPECT_EQ(fonts("_05a_05b__05c_06", "05", "07"), "_07a_07b__07c_06");
    EXPECT_EQ(changes(), 3);
    EXPECT_EQ(fonts("__05a", "05", "07"), "__07a");
    EXPECT_EQ(fonts("5_0", "05", "07"), "5_0");
    textFonts.txtModifySize = "1";
    EXPECT_EQ(fonts("_05a", "05", "07"), "_07a");
    textFonts.txtModifySize = "1.01";
    EXPECT_EQ(fonts("_05a", "05", "07"), "_05a");
    textFonts.txtDelModFilter = " a ";
    EXPECT_EQ(fonts("_05a", "05", "07"), "_07a") << "with a filter the size does not matter";
    EXPECT_EQ(fonts("_05ab", "05", "07"), "_05ab");
    EXPECT_EQ(fonts("__05a", "05", "07"), "__05a");
}

TEST_F(TextEdit, ANoLeavesTheFirstFontToTheNextYes) {
    textSearch.chkEditVerify = true;
    host.answers = {Answer::no, Answer::yes};
    EXPECT_EQ(fonts("_05a_05b", "05", "07"), "_07a_05b");
    EXPECT_EQ(host.messages[0] + "\r\n",
              crlf({"Found text item with font: 05", "text item: _05a_05b", "in file: C:\\PAGE.MUS",
                    "replace by font: 07", "Item number: 1", "",
                    "Replace? (Cancel will stop any further modifying)"}));
    host.answers = {Answer::cancel, Answer::yes};
    EXPECT_EQ(fonts("_05a_05b", "05", "07"), "_05a_05b");
    EXPECT_TRUE(isCancelled());
}

TEST_F(TextEdit, FontsOfNumbersKeepTheirFlags) {
    textFonts.chkEditModifyInclude = true;
    const auto font = [&](float par7) {
        fonts("", "05", "07");
        onlyItem({10, 0, 0, 0, 0, 1, par7});
        reportOf(textFontsFamily);
        return musItemTable[1].pars[7];
    };
    for (const float flags : {0.0F, 100.0F, 1000.0F, 1100.0F}) EXPECT_EQ(font(flags + 5), flags + 7);
    EXPECT_EQ(changes(), 1);
    EXPECT_EQ(font(205), 205);
    textFonts.chkEditModifyInclude = false;
    textSearch.chkEditVerify = true;
    host.answers = {Answer::yes, Answer::yes};
    EXPECT_EQ(font(1105), 1105) << "asked about in any case";
    EXPECT_EQ(host.messages.back() + "\r\n",
              crlf({"Found number with font in Par7: 1105", "in file: C:\\PAGE.MUS", "replace by font: 07",
                    "Item number: 1", "", "Replace? (Cancel will stop any further modifying)"}));
    host.answers = {Answer::cancel};
    EXPECT_EQ(font(5), 5);
    EXPECT_TRUE(isCancelled());
}

TEST_F(TextEdit, DeletesByFontAndEndOfText) {
    textFonts.optEditDeleteModify = true;
    textFonts.txtEditFontInput = "05";
    const auto deleted = [&] {
        fill("10 6=1 5|16 1'_05ab|16 1'__05b|16 1'_06b|16 1'a_05b|16 1'_05a");
        reportOf(textFontsFamily);
        std::string items;
        for (int item = 1; item <= 6; ++item)
            if (musItemTable[item].pars[1] == deletedItem) items += plain(item);
        return items;
    };
    EXPECT_EQ(deleted(), "236");
    EXPECT_EQ(changes(), 3);
    textFonts.txtDelModFilter = "b";
    host.answers = {Answer::yes};
    EXPECT_EQ(deleted(), "23");
    EXPECT_EQ(host.messages, Texts{"Delete all the items with text 'b'?\r\n"
                                   "Answering NO will terminate the session."})
        << "asked once in a run";
    host.answers = {Answer::no};
    EXPECT_EQ(host.fatal([&] { deleted(); }), "TUL needs to close after selecting NO to this prompt.");
}

// --- Prefixes and lyrics

TEST_F(TextEdit, FontNumbersBecomePrefixes) {
    std::string others = "|8 1 8=1026";
    for (const char* number : {"89", "100", "1226", "10.5", "95.5", "-90", "10260"})
        others += std::string("|16 1 8=") + number + "'_00a";
    expectPressed("cmdReplacePar8",
                  "16 8=1026'_00a|16 8=1126'_00a|16 8=90'__00a_01b__02_3c|16 8=99'abc|16 8=1000'_0|"
                  "16 8=1000'a_|16 8=1026'_26|16 8=1026'a_05" +
                      others,
                  "16'_26a|16'__26a|16'_90a_90b_90_3c|16'_99abc|16'_00_0|16'_00a_|16'_26|16'_26a_26" + others,
                  "Total number of Par8 replacements: 8");
}

TEST_F(TextEdit, SetsPar9OfTextsInTheLyricsFont) {
    lyrics.txtLJfont = "_05";
    lyrics.txtLJsize = "1";
    const std::string others = "16 1 6=1'_06|16 1 6=1.5 9=3'_05a|16 1 6=1 9=3'__05|16 1 6=1 9=3'_0|";
    for (const auto& [turns, par9] : {std::pair{false, ""}, {true, " 9=-360"}}) {
        lyrics.optLJ360 = turns;
        const std::string lyric = std::string("16 1 6=1") + par9;
        expectChanged(lyricsFamily, others + "16 1 6=1 9=3'_05a|16 1'_05|16 1'_06",
                      others + lyric + "'_05a|" + lyric + "'_05|16 1 6=1'_06", 2);
    }
    EXPECT_EQ(reportOf(lyricsFamily), lines("Number of lyrics Par9 updated . . . . . 2"));
}

// --- Plate numbers

class PlateEdit : public EditTest {
  protected:
    PlateEdit() {
        projectSettings.PlateNumber = "1234 ";
        projectSettings.PlateNumberFont = "_00";
        projectSettings.PlateNumberSize = ".8";
        plateNumbers.optEditGeneratePlate = true;
        plateNumbers.txtEditGeneratePlateMid = "92.5";
        plateNumbers.txtEditGeneratePlateRight = "190";
        plateNumbers.txtEditGenerateVertical = "-12";
    }
};

TEST_F(PlateEdit, ReplacesThePlateNumberThatStandsThere) {
    const std::string others = "|16 3'_011234|16 3'_0012345";
    EXPECT_EQ(reportOn("16 3 40.5'_001234" + others, plateNumbersFamily),
              lines("Removed existing plate number irrespective of size before generating new one. "
                    "Staff= 3, horz= 40.5, string=_001234|"
                    "Number of plate numbers generated . . . . . 1   _001234 "));
    EXPECT_TRUE(becomes("999 3 40.5 12=7'_001234" + others + "|16 1 92.5 -12 1 .8'_001234 "));
    EXPECT_EQ(changes(), 2);
}

TEST_F(PlateEdit, OddPagesHaveItAtTheRight) {
    plateNumbers.optEditPlateCenter = false;
    plateNumbers.optEditPlateSides = true;
    for (const auto& [page, position] : {std::pair{"C:\\A1\\P23.MUS", "190"},
                                         {"C:\\A1\\P32.MUS", "0"},
                                         {"C:\\A1\\P.MUS", "0"},
                                         {"C:\\A1\\P2.MU7", "190"}}) {
        fill("8 1");
        reportOf(plateNumbersFamily, page);
        EXPECT_TRUE(becomes(std::string("8 1|16 1 ") + position + " -12 1 .8'_001234 ")) << page;
    }
}

TEST_F(PlateEdit, AFullPageIsToldAndWrittenAsItStands) {
    fill("16 1'_001234");
    while (musItemTable.itemCount < 2000) addItem({8, 1});
    EXPECT_TRUE(contains(reportOf(plateNumbersFamily), "generated . . . . . 0   "));
    EXPECT_EQ(host.messages, Texts{"MUS file too big to add plate number:C:\\PAGE.MUS"});
    EXPECT_EQ(changes(), 1);
}

TEST_F(PlateEdit, ChecksItsOptions) {
    textSearch.optEditSearch = false;
    projectSettings.PlateNumber = " ";
    EXPECT_EQ(refusal(tabText), Texts{"No plate number is set. Enter it in the Global Options."});
    plateNumbers.txtEditGeneratePlateMid = "";
    EXPECT_EQ(refusal(tabText), Texts{"Mid position must be specified."});
    EXPECT_EQ(keepPlatePosition("300", "") + keepPlatePosition("300.1", "present"), "300present");
    EXPECT_EQ(keepPlateHeight("-100", "") + keepPlateHeight("low", "present"), "-100present");
}

}  // namespace
}  // namespace tul::edit
