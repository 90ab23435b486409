

#include "edit/resize.h"
#include "music/item_table.h"
#include "support/test.h"

namespace tul::resize {
namespace {

constexpr int tabs = tabPlaceholders + 1;

class Updating : public HostTest {
  protected:
    Updating() {
        projectSettings.LyricsSize = "1.2";
        projectSettings.LyricsFont = "_00";
        projectSettings.PageNumberSize = "201.1";
        projectSettings.PageNumberFont = "0";
        projectSettings.BarNumberSize = "201";
        projectSettings.BarNumberFont = "01";
        options.tabResiz = -1;  // in no test by chance
    }
    /// One parameter of an item that a run went over alone.
    float after(int par, const std::vector<float>& pars, const std::string& text = "") {
        onlyItem(pars, text);
        updateFile(counted);
        return musItemTable[1].pars[par];
    }
    float noteSizeAfter(float height, float head, float size) {
        return after(15, {1, 1, 0, height, 0, head, 1, 0, 0, 0, 0, 0, 0, 0, size});
    }

    ResizeOptions& options = resizing.options;
    Counters counted;
};

TEST_F(Updating, ResizesTheNotesThatAreChosen) {
    options.tabResiz = tabNotes;
    EXPECT_EQ(noteSizeAfter(0, 0, 1), 1) << "no kind is chosen";

    using O = ResizeOptions;
    using C = Counters;
    // The integer part of -0.5 is -1.
    struct Case {
        bool O::*box;
        std::int32_t C::*counter;
        float height, head, size;
        int changes;
    };
    for (const Case& note : std::vector<Case>{{&O::chkResizeMini, &C::mini, 100.9F, 1, 3, 1},
                                              {&O::chkResizeMini, &C::mini, -99.5F, 1, 3, 1},
                                              {&O::chkResizeMini, &C::mini, 101, 1, 3, 0},
                                              {&O::chkResizeSmall, &C::small, 0, 7, 0.99F, 1},
                                              {&O::chkResizeSmall, &C::small, 0, 7, 1, 0},
                                              {&O::chkResizeSmall, &C::small, 0, 7, notANumber, 0},
                                              {&O::chkResizeBlack, &C::black, 0, 0.5F, 1, 1},
                                              {&O::chkResizeBlack, &C::black, 0, 10.5F, 0, 1},
                                              {&O::chkResizeBlack, &C::black, 0, 0, 0.99F, 0},
                                              {&O::chkResizeHalf, &C::half, 0, -0.5F, 1, 1},
                                              {&O::chkResizeHalf, &C::half, 0, 21, 1, 0},
                                              {&O::chkResizeWhole, &C::whole, 0, -12, 1.2F, 1},
                                              {&O::chkResizeWhiteDiamond, &C::whiteDiamond, 0, 4, 1, 1},
                                              {&O::chkResizeBlackDiamond, &C::blackDiamond, 0, 15, 1, 1},
                                              {&O::chkResizeBlackDiamond, &C::blackDiamond, 0, 905, 1, 0}}) {
        options = {};
        counted = {};
        options.*note.box = true;
        options.txtResizeNoteSize = "1.5";
        EXPECT_EQ(noteSizeAfter(note.height, note.head, note.size) == 1.5F, note.changes == 1) << note.head;
        EXPECT_EQ(counted.*note.counter, note.changes) << note.head;
        EXPECT_EQ(counted.notes(), note.changes) << note.head;
    }
}

TEST_F(Updating, LetsEachFilterSeeTheSizeThatTheOneBeforeLeft) {
    options.tabResiz = tabNotes;
    options.chkResizeMini = options.chkResizeSmall = options.chkResizeBlack = true;
    const auto expectCounted = [this](int mini, int small, int black) {
        EXPECT_EQ(counted.mini, mini);
        EXPECT_EQ(counted.small, small);
        EXPECT_EQ(counted.black, black);
    };
    options.txtResizeNoteSize = "1.5";
    EXPECT_EQ(noteSizeAfter(100, 0, 0), 1.5F);
    expectCounted(1, 0, 1);  // it was 0, and small, but is 1.5 since the first filter
    options.txtResizeNoteSize = "0.8";
    EXPECT_EQ(noteSizeAfter(0, 0, 0), 0.8F);
    expectCounted(1, 1, 1);  // no longer of full size
}

TEST_F(Updating, ThickensSlurs) {
    options.tabResiz = tabSlurs;
    options.txtResizeSlur = "2.5";
    using Kind = std::pair<float, float>;
    for (const auto& [par8, par11] : {Kind{0, 0}, {1.5F, 0}, {1, 0}, {2, 0}, {3, 0}, {0, 0.1F}}) {
        const bool plain = par11 == 0 && (par8 == 0 || par8 == 1.5F);
        EXPECT_EQ(after(13, {5, 1, 0, 0, 0, 9, 0, par8, 0, 0, par11, 0, 1}), plain ? 2.5F : 1) << par8;
    }
    EXPECT_EQ(counted.slurs, 2);
}

TEST_F(Updating, ResizesAllStavesOrSome) {
    options.tabResiz = tabStaves;
    options.txtResizeStaffSize = "0.65";
    const auto size = [this](float staff, float instrument) {
        return after(5, {8, staff, 0, 0, 1, 200, 0, 0, instrument});
    };
    EXPECT_EQ(size(3, 7), 0.65F);
    options.chkResizeSome = true;
    options.txtResizeStaffInstrPart = "7";
    EXPECT_EQ(size(3, 7), 0.65F);
    EXPECT_EQ(size(7, 3), 1);
    options.optResizeStaffInstrId = false;
    options.optResizeStaffPart = true;
    EXPECT_EQ(size(7, 7), 1) << "a part has a comma";
    EXPECT_EQ(counted.staves, 2);

    options.txtResizeStaffInstrPart = "2,4";
    for (const float staff : {2.0F, 6.0F, 30.0F, 102.0F}) EXPECT_EQ(size(staff, 0), 0.65F) << staff;
    for (const float staff : {1.0F, 4.0F, 6.5F, 106.0F, -2.0F}) EXPECT_EQ(size(staff, 0), 1) << staff;
    EXPECT_EQ(counted.staves, 6);
    options.txtResizeStaffInstrPart = "1,1";
    EXPECT_EQ(size(101, 0), 0.65F);
    EXPECT_EQ(size(102, 0), 1) << "a hundred behind the first is the last";
    options.txtResizeStaffInstrPart = "2,0";
    EXPECT_EQ(size(2, 0), 1) << "and comes to an end";
}

TEST_F(Updating, LeavesTheItemsOfOtherTabsAlone) {
    options.chkResizeSmall = options.chkPlaceholderSet = true;
    options.txtResizeSlur = options.txtResizeStaffSize = options.txtResizeLyrics = "0.5";
    options.txtResizePageNumberSize = "5";
    const std::vector<std::pair<int, ItemRow>> items = {
        {tabNotes, itemRow({1, 1})},
        {tabSlurs, itemRow({5, 1})},
        {tabStaves, itemRow({8, 1})},
        {tabNumbers, itemRow({10, 1, 0, 0, 0, 201.1F})},
        {tabTexts, itemRow({16, 1, 0, 0, 0, 1.2F}, "_00la")},
        {tabPlaceholders, itemRow({1, 1, 0, 0, 0, 900, 0, 0, 0, 0, 0, 0, 0, 0, 1})},
    };
    for (const auto& [tab, item] : items) {
        for (options.tabResiz = 0; options.tabResiz < tabs; ++options.tabResiz) {
            counted = {};
            musItemTable[1] = item;
            musItemTable.itemCount = 1;
            updateFile(counted);
            const int changes = counted.notes() + counted.slurs + counted.staves + counted.pageNumbers +
                                counted.texts + counted.placeholders;
            EXPECT_EQ(changes, tab == options.tabResiz ? 1 : 0) << tab << options.tabResiz;
        }
    }
}

TEST_F(Updating, ChangesSymbolsFromEveryTab) {
    options.txtSymbolResize = "31";
    options.txtSymbolNewSize = "2.5";
    for (options.tabResiz = 0; options.tabResiz < tabs; ++options.tabResiz) {
        options.chkSymbolResize = true;
        EXPECT_EQ(after(6, {9, 1, 0, 1.4F, 31, 1}), 2.5F);
        EXPECT_EQ(after(6, {9, 1, 0, 1.4F, 31.5F, 1}), 1);
        EXPECT_EQ(after(4, {9, 1, 0, 1.4F, 31, 1}), 1.4F);
        options.chkSymbolResize = false;
        options.chkSymbolIntegerPar4 = true;
        EXPECT_EQ(after(4, {9, 1, 0, 2.5F, 31, 1}), 2);
        EXPECT_EQ(after(6, {9, 1, 0, -3.5F, 31, 1}), 1);
        options.chkSymbolIntegerPar4 = false;
    }
    EXPECT_EQ(counted.symbolSizes, 2 * tabs);
    EXPECT_EQ(counted.symbolPar4, 2 * tabs);
    options.chkSymbolIntegerPar4 = true;
    EXPECT_EQ(after(4, {9, 1, 0, -4, 31}), -4);
    EXPECT_EQ(after(4, {9, 1, 0, infinity, 31}), infinity);
    EXPECT_EQ(counted.symbolPar4, 2 * tabs) << "these are whole already";
}

TEST_F(Updating, ResizesPageNumbersAndBarNumbers) {
    options.tabResiz = tabNumbers;
    options.txtResizePageNumberSize = options.txtResizePageNumberFont = "1";
    options.txtResizeBarNumberSize = "1.5";
    options.txtResizeBarNumberFont = "1005";
    using Number = std::pair<float, float>;
    const auto expectNumber = [this](const Number& before, const Number& resized) {
        const float newSize = after(6, {10, 1, 0, 0, 5, before.first, before.second});
        EXPECT_EQ(Number(newSize, musItemTable[1].pars[7]), resized);
    };
    expectNumber({201.1F, 0}, {201, 1});
    expectNumber({201.1009F, 0}, {201, 1});
    expectNumber({201.1011F, 0}, {201.1011F, 0});
    expectNumber({1.1F, 0}, {1.1F, 0});  // compared with the 200 in it
    expectNumber({201.1F, 1}, {201.1F, 1});
    expectNumber({201, 1}, {201, 1});  // the option for bar numbers is off
    EXPECT_EQ(counted.pageNumbers, 2);

    options.optResizeBarNumber = true;
    expectNumber({201.1F, 0}, {201.5F, 1005});  // now of the size and font of a bar number
    EXPECT_EQ(counted.pageNumbers, 3);
    options.optResizePageNumber = false;
    expectNumber({200.9995F, 1}, {201.5F, 1005});
    EXPECT_EQ(counted.barNumbers, 2);
    EXPECT_EQ(counted.pageNumbers, 3);
}

TEST_F(Updating, ResizesLyricsAndKeepsTheirHundreds) {
    options.tabResiz = tabTexts;
    options.txtResizeLyrics = "1.5";
    const auto size = [this](float par6, const std::string& text = "_00la") {
        return after(6, {16, 1, 0, 0, 0, par6}, text);
    };
    EXPECT_EQ(size(1.2F), 1.5F);
    EXPECT_EQ(size(1.2F, "_01la"), 1.2F);
    EXPECT_EQ(size(1.2F, "_0"), 1.2F);
    EXPECT_EQ(size(1.2005F), 1.2005F) << "compared exactly";
    projectSettings.LyricsSize = "1.25";
    EXPECT_EQ(size(101.25F), 101.5F);
    EXPECT_EQ(size(301.25F), 301.5F);
    projectSettings.LyricsSize = "-12";
    EXPECT_EQ(size(-12), 1.5F) << "a size in points";
    for (const float endless : {infinity, 1e30F}) EXPECT_EQ(size(endless), endless);
    size(notANumber);
    EXPECT_EQ(counted.texts, 4);
}

TEST_F(Updating, ResizesTextsThatAreGiven) {
    options.tabResiz = tabTexts;
    options.optResizeLyrics = false;
    options.optTextResizeTextSize = true;
    options.txtResizeTextResize = "_02Fine  ";
    options.txtResizeTextCurrent = "1.2";
    options.txtResizeTextNew = "0.9";
    const auto expectSize = [this](float before, const char* text, float resized, int count) {
        EXPECT_EQ(after(6, {16, 1, 0, 0, 0, before}, text), resized) << text;
        EXPECT_EQ(counted.texts, count) << text;
    };
    expectSize(1.2F, "_02Fine", 0.9F, 1);
    expectSize(1.2009F, "_02Fine   ", 0.9F, 2);
    expectSize(1.2011F, "_02Fine", 1.2011F, 2);
    expectSize(201.2F, "_02Fine", 201.2F, 2);  // its hundreds are part of its size
    expectSize(1.2F, "_02fine", 1.2F, 2);
    expectSize(1.2F, " _02Fine", 1.2F, 2);
    options.optResizeLyrics = true;
    options.txtResizeLyrics = "1.2005";
    options.txtResizeTextResize = "_00";
    expectSize(1.2F, "_00", 0.9F, 4);  // what the first rule left is near enough for the second
    options.txtResizeLyrics = "1.5";
    expectSize(1.2F, "_00", 1.5F, 5);
}

/// Par 2, 3, 4 and 6 of the items behind the first.
std::vector<std::vector<float>> placeholdersBehindTheNote() {
    std::vector<std::vector<float>> found;
    for (int item = 2; item <= musItemTable.itemCount; ++item) {
        const ItemRow& row = musItemTable[item];
        EXPECT_EQ(row.text, "_00Z");
        EXPECT_EQ(row.pars[1], 16);
        EXPECT_EQ(row.pars[5], 0);
        EXPECT_EQ(row.pars[12], 4);
        EXPECT_EQ(row.pars[15], 0) << "nothing of the note";
        found.push_back({row.pars[2], row.pars[3], row.pars[4], row.pars[6]});
    }
    return found;
}

TEST_F(Updating, SetsPlaceholdersBehindAllItems) {
    options.tabResiz = tabPlaceholders;
    options.chkPlaceholderSet = true;
    for (int par = 1; par <= Parameters::count; ++par) musItem.MusPar[par] = 9;  // of the item read last
    using Rows = std::vector<std::vector<float>>;
    const auto setFor = [this](float head) {
        after(1, {1, 2, 50, 5, 0, head, 1, 0, 0, 0, 0, 0, 0, 0, 3});
        return placeholdersBehindTheNote();
    };
    const float left = 50 - 0.7F;
    const std::vector<float> plain = {2, left, 5, 0};
    // Descenders of 901, 905, 906 and 907 are not asked for.
    for (const float head : {900.0F, 912.0F, 903.5F, 901.0F, 905.0F, 906.0F, 907.0F})
        EXPECT_EQ(setFor(head), Rows{plain}) << head;
    for (const float head : {899.5F, 912.5F}) EXPECT_EQ(setFor(head), Rows{}) << head;
    EXPECT_EQ(setFor(903), (Rows{{2, left - 0.8F, 5, 1.2F}}));
    EXPECT_EQ(setFor(911), (Rows{{2, left - 0.5F, 5, 1.3F}}));
    for (const float head : {908.0F, 910.0F}) EXPECT_EQ(setFor(head), (Rows{{2, left, 5, 0.8F}}));
    EXPECT_EQ(counted.placeholders, 11);

    options.chkPlaceholderDescenders = true;
    for (const float head : {901.0F, 907.0F}) EXPECT_EQ(setFor(head), (Rows{plain, {2, left, 7, 0.5F}}));
    EXPECT_EQ(setFor(905), (Rows{plain, {2, 50 - 1.4F, 3, 0.6F}}));
    EXPECT_EQ(setFor(906), (Rows{plain, {2, 50 - 0.9F, 3, 0.7F}}));
    EXPECT_EQ(setFor(903), (Rows{{2, left - 0.8F, 5, 1.2F}}));
    EXPECT_EQ(counted.placeholders, 16) << "descenders are not counted";

    updateFile(counted);
    EXPECT_EQ(musItemTable.itemCount, 3) << "a second run doubles them";
}

TEST_F(Updating, ResetsThePlaceholdersNearANote) {
    options.tabResiz = tabPlaceholders;
    options.chkPlaceholderReset = true;
    const std::vector<std::pair<ItemRow, bool>> items = {
        {itemRow({16, 2, 48, -30}, "_00Z"), true},     {itemRow({16, 2, 52.5F}, "_00Z"), false},
        {itemRow({1, 2, 50, 5, 0, 901}), false},       {itemRow({1, 2, 50, 9, 0, 902}), false},
        {itemRow({16, 2, 52}, "_00Z"), true},          {itemRow({16, 3, 50}, "_00Z"), false},
        {itemRow({16, 2, 50}, "_00Z "), false},        {itemRow({16.5F, 2, 50}, "_00Z"), false},
        {itemRow({16, 2, notANumber}, "_00Z"), false}, {itemRow({1, 2, 54, 5, 0, 1}), false},
    };
    musItemTable.itemCount = 0;
    for (const auto& item : items) musItemTable[++musItemTable.itemCount] = item.first;
    updateFile(counted);
    for (int item = 1; item <= musItemTable.itemCount; ++item)
        EXPECT_EQ(musItemTable[item].pars[1] == 999, items[static_cast<std::size_t>(item - 1)].second)
            << item;
    EXPECT_EQ(counted.placeholders, 2) << "each once, whatever notes are near";

    options.chkPlaceholderSet = true;
    after(1, {1, 2, 50, 5, 0, 901});
    EXPECT_EQ(musItemTable[2].pars[1], 999) << "one that was set just now is found, too";
}

}  // namespace
}  // namespace tul::resize
