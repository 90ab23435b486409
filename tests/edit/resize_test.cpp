#include "edit/resize.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/text.h"
#include "centre/names_file.h"
#include "music/item_table.h"
#include "music/pipeline.h"
#include "shared/records.h"
#include "support/mus_bytes.h"
#include "support/scripted_host.h"

namespace tul::resize {
namespace {

using testing::crlf;
using testing::endOf;
using testing::header;
using testing::pageOf;
using testing::ScriptedHost;
using testing::trailer;
using testing::words;

using Texts = std::vector<std::string>;

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

// --- What a run does to the items of a file

class Updating : public ::testing::Test {
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
    /// Appends an item to the table: its parameters from Par 1 on.
    void add(const std::vector<float>& pars, const std::string& text = "") {
        ItemRow& row = musItemTable[++musItemTable.itemCount];
        row.pars.clear();
        row.text = text;
        int par = 0;
        for (const float value : pars) row.pars[++par] = value;
    }
    /// One parameter of an item that a run went over alone.
    float after(int par, const std::vector<float>& pars, const std::string& text = "") {
        musItemTable.itemCount = 0;
        add(pars, text);
        updateFile();
        return musItemTable[1].pars[par];
    }
    float noteSizeAfter(float height, float head, float size) {
        return after(15, {1, 1, 0, height, 0, head, 1, 0, 0, 0, 0, 0, 0, 0, size});
    }

    ScriptedHost host;
    ResizeOptions& options = resizing.options;
    Counters& counted = resizing.counters;
};

TEST_F(Updating, ResizesTheNotesThatAreChosen) {
    options.tabResiz = tabNotes;
    EXPECT_EQ(noteSizeAfter(0, 0, 1), 1) << "no kind is chosen";

    using O = ResizeOptions;
    using C = Counters;
    const auto changes = [this](bool O::*box, std::int32_t C::*counter, float height, float head,
                                float size) {
        options = {};
        counted = {};
        options.*box = true;
        options.txtResizeNoteSize = "1.5";
        const bool changed = noteSizeAfter(height, head, size) == 1.5F;
        EXPECT_EQ(counted.*counter, changed ? 1 : 0);
        EXPECT_EQ(counted.notes(), changed ? 1 : 0);
        return changed;
    };
    EXPECT_TRUE(changes(&O::chkResizeMini, &C::mini, 100.9F, 1, 3));
    EXPECT_TRUE(changes(&O::chkResizeMini, &C::mini, -99.5F, 1, 3));
    EXPECT_FALSE(changes(&O::chkResizeMini, &C::mini, 101, 1, 3));
    EXPECT_TRUE(changes(&O::chkResizeSmall, &C::small, 0, 7, 0.99F));
    EXPECT_FALSE(changes(&O::chkResizeSmall, &C::small, 0, 7, 1));
    EXPECT_FALSE(changes(&O::chkResizeSmall, &C::small, 0, 7, notANumber));
    EXPECT_TRUE(changes(&O::chkResizeBlack, &C::black, 0, 0.5F, 1));
    EXPECT_TRUE(changes(&O::chkResizeBlack, &C::black, 0, 10.5F, 0));
    EXPECT_FALSE(changes(&O::chkResizeBlack, &C::black, 0, 0, 0.99F));
    EXPECT_TRUE(changes(&O::chkResizeHalf, &C::half, 0, -0.5F, 1)) << "its integer part is -1";
    EXPECT_FALSE(changes(&O::chkResizeHalf, &C::half, 0, 21, 1));
    EXPECT_TRUE(changes(&O::chkResizeWhole, &C::whole, 0, -12, 1.2F));
    EXPECT_TRUE(changes(&O::chkResizeWhiteDiamond, &C::whiteDiamond, 0, 4, 1));
    EXPECT_TRUE(changes(&O::chkResizeBlackDiamond, &C::blackDiamond, 0, 15, 1));
    EXPECT_FALSE(changes(&O::chkResizeBlackDiamond, &C::blackDiamond, 0, 905, 1));
}

TEST_F(Updating, LetsEachFilterSeeTheSizeThatTheOneBeforeLeft) {
    options.tabResiz = tabNotes;
    options.chkResizeMini = options.chkResizeSmall = options.chkResizeBlack = true;
    options.txtResizeNoteSize = "1.5";
    EXPECT_EQ(noteSizeAfter(100, 0, 0), 1.5F);
    EXPECT_EQ(counted.mini, 1);
    EXPECT_EQ(counted.small, 0) << "it was 0, but is 1.5 since the first filter";
    EXPECT_EQ(counted.black, 1);
    options.txtResizeNoteSize = "0.8";
    EXPECT_EQ(noteSizeAfter(0, 0, 0), 0.8F);
    EXPECT_EQ(counted.small, 1);
    EXPECT_EQ(counted.black, 1) << "no longer of full size";
    options.tabResiz = tabSlurs;
    EXPECT_EQ(noteSizeAfter(0, 0, 0), 0);
}

TEST_F(Updating, ThickensSlurs) {
    options.tabResiz = tabSlurs;
    options.txtResizeSlur = "2.5";
    const auto thickness = [this](float par8, float par11) {
        return after(13, {5, 1, 0, 0, 0, 9, 0, par8, 0, 0, par11, 0, 1});
    };
    EXPECT_EQ(thickness(0, 0), 2.5F);
    EXPECT_EQ(thickness(1.5F, 0), 2.5F);
    EXPECT_EQ(thickness(-1, 0), 2.5F);
    for (const float kind : {1.0F, 2.0F, 3.0F}) EXPECT_EQ(thickness(kind, 0), 1);
    EXPECT_EQ(thickness(0, 0.1F), 1);
    EXPECT_EQ(counted.slurs, 3);
    options.tabResiz = tabNotes;
    EXPECT_EQ(thickness(0, 0), 1);
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
    options.txtResizeStaffInstrPart = "2,0";
    EXPECT_EQ(size(2, 0), 1) << "and comes to an end";
    options.tabResiz = tabNumbers;
    options.chkResizeSome = false;
    EXPECT_EQ(size(2, 0), 1);
}

TEST_F(Updating, ChangesSymbolsFromEveryTab) {
    options.txtSymbolResize = "31";
    options.txtSymbolNewSize = "2.5";
    for (options.tabResiz = 0; options.tabResiz < tabCount; ++options.tabResiz) {
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
    EXPECT_EQ(counted.symbolSizes, 2 * tabCount);
    EXPECT_EQ(counted.symbolPar4, 2 * tabCount);
    options.chkSymbolIntegerPar4 = true;
    EXPECT_EQ(after(4, {9, 1, 0, -4, 31}), -4);
    EXPECT_EQ(after(4, {9, 1, 0, infinity, 31}), infinity);
    EXPECT_EQ(counted.symbolPar4, 2 * tabCount) << "these are whole already";
}

TEST_F(Updating, ResizesPageNumbersAndBarNumbers) {
    options.tabResiz = tabNumbers;
    options.txtResizePageNumberSize = "1";
    options.txtResizePageNumberFont = "1";
    options.txtResizeBarNumberSize = "1.5";
    options.txtResizeBarNumberFont = "1005";
    const auto number = [this](float size, float font) {
        const float newSize = after(6, {10, 1, 0, 0, 5, size, font});
        return std::pair(newSize, musItemTable[1].pars[7]);
    };
    using Number = std::pair<float, float>;
    EXPECT_EQ(number(201.1F, 0), Number(201, 1));
    EXPECT_EQ(number(201.1009F, 0), Number(201, 1));
    EXPECT_EQ(number(201.1011F, 0), Number(201.1011F, 0));
    EXPECT_EQ(number(1.1F, 0), Number(1.1F, 0)) << "compared with the 200 in it";
    EXPECT_EQ(number(201.1F, 1), Number(201.1F, 1));
    EXPECT_EQ(number(201, 1), Number(201, 1)) << "the option for bar numbers is off";
    EXPECT_EQ(counted.pageNumbers, 2);

    options.optResizeBarNumber = true;
    EXPECT_EQ(number(201.1F, 0), Number(201.5F, 1005)) << "now of the size and font of a bar number";
    EXPECT_EQ(counted.pageNumbers, 3);
    options.optResizePageNumber = false;
    EXPECT_EQ(number(200.9995F, 1), Number(201.5F, 1005));
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
    EXPECT_EQ(size(1.2F, "_00"), 1.5F);
    EXPECT_EQ(size(1.2F, "_01la"), 1.2F);
    EXPECT_EQ(size(1.2F, "_0"), 1.2F);
    EXPECT_EQ(size(1.2005F), 1.2005F) << "compared exactly";
    projectSettings.LyricsSize = "1.25";
    EXPECT_EQ(size(101.25F), 101.5F);
    EXPECT_EQ(size(301.25F), 301.5F);
    EXPECT_EQ(counted.texts, 4);
    projectSettings.LyricsSize = "-12";
    EXPECT_EQ(size(-12), 1.5F) << "a size in points";
    for (const float endless : {infinity, 1e30F}) EXPECT_EQ(size(endless), endless);
    EXPECT_NE(size(notANumber), 1.5F);
    EXPECT_EQ(counted.texts, 5);
}

TEST_F(Updating, ResizesTextsThatAreGiven) {
    options.tabResiz = tabTexts;
    options.optResizeLyrics = false;
    options.optTextResizeTextSize = true;
    options.txtResizeTextResize = "_02Fine  ";
    options.txtResizeTextCurrent = "1.2";
    options.txtResizeTextNew = "0.9";
    const auto size = [this](float par6, const std::string& text) {
        return after(6, {16, 1, 0, 0, 0, par6}, text);
    };
    EXPECT_EQ(size(1.2F, "_02Fine"), 0.9F);
    EXPECT_EQ(size(1.2009F, "_02Fine   "), 0.9F);
    EXPECT_EQ(size(1.2011F, "_02Fine"), 1.2011F);
    EXPECT_EQ(size(201.2F, "_02Fine"), 201.2F) << "its hundreds are part of its size";
    EXPECT_EQ(size(1.2F, "_02fine"), 1.2F);
    EXPECT_EQ(size(1.2F, " _02Fine"), 1.2F);
    EXPECT_EQ(counted.texts, 2);
    options.optResizeLyrics = true;
    options.txtResizeLyrics = "1.2005";
    options.txtResizeTextResize = "_00";
    EXPECT_EQ(size(1.2F, "_00"), 0.9F) << "what the first rule left is near enough for the second";
    EXPECT_EQ(counted.texts, 4);
    options.txtResizeLyrics = "1.5";
    EXPECT_EQ(size(1.2F, "_00"), 1.5F);
    EXPECT_EQ(counted.texts, 5);
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
    const auto setFor = [this](float head) {
        after(1, {1, 2, 50, 5, 0, head, 1, 0, 0, 0, 0, 0, 0, 0, 3});
        return placeholdersBehindTheNote();
    };
    using Rows = std::vector<std::vector<float>>;
    const float left = 50 - 0.7F;
    EXPECT_EQ(setFor(900), (Rows{{2, left, 5, 0}}));
    EXPECT_EQ(setFor(912), (Rows{{2, left, 5, 0}}));
    EXPECT_EQ(setFor(903), (Rows{{2, left - 0.8F, 5, 1.2F}}));
    EXPECT_EQ(setFor(911), (Rows{{2, left - 0.5F, 5, 1.3F}}));
    EXPECT_EQ(setFor(908), (Rows{{2, left, 5, 0.8F}}));
    EXPECT_EQ(setFor(910), (Rows{{2, left, 5, 0.8F}}));
    EXPECT_EQ(setFor(903.5F), (Rows{{2, left, 5, 0}}));
    EXPECT_EQ(setFor(899.5F), Rows{});
    EXPECT_EQ(setFor(912.5F), Rows{});
    EXPECT_EQ(counted.placeholders, 7);

    options.chkPlaceholderDescenders = true;
    EXPECT_EQ(setFor(901), (Rows{{2, left, 5, 0}, {2, left, 7, 0.5F}}));
    EXPECT_EQ(setFor(907), (Rows{{2, left, 5, 0}, {2, left, 7, 0.5F}}));
    EXPECT_EQ(setFor(905), (Rows{{2, left, 5, 0}, {2, 50 - 1.4F, 3, 0.6F}}));
    EXPECT_EQ(setFor(906), (Rows{{2, left, 5, 0}, {2, 50 - 0.9F, 3, 0.7F}}));
    EXPECT_EQ(setFor(903), (Rows{{2, left - 0.8F, 5, 1.2F}}));
    EXPECT_EQ(counted.placeholders, 12) << "descenders are not counted";

    updateFile();
    EXPECT_EQ(musItemTable.itemCount, 3) << "a second run doubles them";
    options.tabResiz = tabTexts;
    EXPECT_EQ(setFor(901), Rows{});
}

TEST_F(Updating, ResetsThePlaceholdersNearANote) {
    options.tabResiz = tabPlaceholders;
    options.chkPlaceholderReset = true;
    musItemTable.itemCount = 0;
    struct Item {
        std::vector<float> pars;
        const char* text;
        bool deleted;
    };
    const std::vector<Item> items = {
        {{16, 2, 48, -30}, "_00Z", true},     {{16, 2, 52.5F}, "_00Z", false},
        {{1, 2, 50, 5, 0, 901}, "", false},   {{1, 2, 50, 9, 0, 902}, "", false},
        {{16, 2, 52}, "_00Z", true},          {{16, 3, 50}, "_00Z", false},
        {{16, 2, 50}, "_00Z ", false},        {{16.5F, 2, 50}, "_00Z", false},
        {{16, 2, notANumber}, "_00Z", false}, {{1, 2, 54, 5, 0, 1}, "", false},
    };
    for (const Item& item : items) add(item.pars, item.text);
    updateFile();
    for (std::size_t i = 0; i < items.size(); ++i)
        EXPECT_EQ(musItemTable[static_cast<int>(i) + 1].pars[1] == 999, items[i].deleted) << i;
    EXPECT_EQ(counted.placeholders, 2) << "each once, whatever notes are near";

    options.chkPlaceholderSet = true;
    after(1, {1, 2, 50, 5, 0, 901});
    EXPECT_EQ(musItemTable[2].pars[1], 999) << "one that was set just now is found, too";
}

// --- Runs

class Resizing : public Updating {
  protected:
    Resizing() { options.chkResizBackup = false; }
    std::string file(const std::string& name) const { return upperCase(host.path(name)); }
    void run(const Texts& names) {
        std::string text;
        for (const std::string& name : names) text += namesFileLine(host.path(name));
        host.write("NAMES.TUL", text);
        host.messages.clear();
        host.shown.clear();
        cmdResizeRun();
    }
    /// The report over these files; `counts` in the order of its lines.
    std::string report(const Texts& names, const Texts& counts, const Texts& behind = {}) const {
        Texts lines = {"TUL Rezise run 11-21-2026 09:05:07", " ",
                       "File" + std::string(file(names[0]).size() - 4, ' '),
                       std::string(file(names[0]).size(), '-')};
        for (const std::string& name : names) lines.push_back(file(name));
        lines.insert(lines.end(), {
                                      " ",
                                      "Number of note        sizes changed . . . . " + counts[0],
                                      "Number of staff       sizes changed . . . . " + counts[1],
                                      "Number of slur        sizes changed . . . . " + counts[2],
                                      "Number of lyrics/text sizes changed . . . . " + counts[3],
                                      "Number of page number sizes changed . . . . " + counts[4],
                                      "Number of symbol      sizes changed . . . . " + counts[5],
                                      "Number of symbol      Par4  changed . . . . " + counts[6],
                                      "Number of bar number  sizes changed . . . . " + counts[7],
                                      "Number of placeholders set/reset. . . . . . " + counts[8],
                                      " ",
                                      "Number of files processed: " + std::to_string(names.size()),
                                  });
        lines.insert(lines.end(), behind.begin(), behind.end());
        return crlf(lines);
    }
};

const std::string structuralError = "Structural error in MUS file. Try to recover with TulValid/TulRecover.";
const std::string marginLine = "\r\nNote that a 0.001 margin was applied on the size attribute.";
// A staff of size 1, and the same of 0.65.
const std::string staff = words({6, 8, 1, 0, 0, 1, 200});
const std::string smallStaff = words({6, 8, 1, 0, 0, 0.65F, 200});

TEST_F(Resizing, RefusesOptionsThatWouldChangeNothing) {
    host.write("A.MUS", pageOf(staff));
    const auto refused = [this] {
        run({"A.MUS"});
        EXPECT_EQ(host.shown.empty(), !host.messages.empty());
        return host.messages.empty() ? std::string() : host.messages[0];
    };
    options.tabResiz = tabNotes;
    EXPECT_EQ(refused(), "No use running Note resize when no notes selected.");
    options.chkResizeWhiteDiamond = true;
    EXPECT_EQ(refused(), "");

    options.tabResiz = tabNumbers;
    options.txtResizePageNumberSize = "1.1009";
    options.txtResizePageNumberFont = "0";
    EXPECT_EQ(refused(), "No use running Page number resize when global settings equal to new." + marginLine);
    options.txtResizePageNumberSize = "1.1012";
    EXPECT_EQ(refused(), "");
    options.txtResizePageNumberSize = "1.1";
    options.txtResizePageNumberFont = "2";
    EXPECT_EQ(refused(), "");
    options.optResizePageNumber = false;
    options.optResizeBarNumber = true;
    options.txtResizeBarNumberSize = "1";
    options.txtResizeBarNumberFont = "1";
    EXPECT_EQ(refused(), "No use running Bar number resize when global settings equal to new." + marginLine)
        << "01 is the same font";

    options.tabResiz = tabTexts;
    options.txtResizeLyrics = "1.2";
    EXPECT_EQ(refused(), "No use running Lyrics resize when current and new size are equal." + marginLine);
    options.optResizeLyrics = false;
    options.optTextResizeTextSize = true;
    options.txtResizeTextNew = "2";
    const std::string textRefusal =
        "No use running Text resize if no string given or when current and new size are equal." + marginLine;
    EXPECT_EQ(refused(), textRefusal);
    options.txtResizeTextResize = "_00";
    EXPECT_EQ(refused(), "");
    options.txtResizeTextNew = "1.0005";
    EXPECT_EQ(refused(), textRefusal);

    options.tabResiz = tabPlaceholders;
    options.chkPlaceholderSet = options.chkPlaceholderReset = true;
    EXPECT_EQ(refused(), "The placeholder options are mutually exclusive");
    options.tabResiz = tabSymbols;
    EXPECT_EQ(refused(), "") << "only the tab in front is checked";
}

TEST_F(Resizing, ReplacesTheFilesAndReports) {
    options.tabResiz = tabStaves;
    options.chkSymbolResize = options.chkSymbolIntegerPar4 = true;
    options.txtResizeStaffSize = "0.65";
    options.txtSymbolResize = "31";
    options.txtSymbolNewSize = "2";
    options.chkResizBackup = true;
    const std::string slur = words({8, 5, 1, 0, 1, 1, 9, 0, 0.5F});
    const std::string text = words({15, 16, 1, 2, 3, 0, 1, 0, 0, 0, 0, 0, 5, 0}) + "_00Ah   ";
    const std::string first = pageOf(staff + slur + words({9, 9, 1, 4, 1.5F, 31, 1, 0, 0, 0}), trailer(true));
    const std::string second = pageOf(staff + staff + text);
    host.write("one.mus", first);
    host.write("TWO.MUS", second);
    run({"one.mus", "TWO.MUS"});
    EXPECT_EQ(host.read("one.mus"), pageOf(smallStaff + slur + words({6, 9, 1, 4, 2, 31, 2}), trailer(true)));
    EXPECT_EQ(host.read("TWO.MUS"), pageOf(smallStaff + smallStaff + text));
    EXPECT_EQ(host.read("ONE.BKU"), first);
    EXPECT_EQ(host.read("TWO.BKU"), second);
    const Texts names = {"one.mus", "TWO.MUS"};
    EXPECT_EQ(host.shown, Texts{report(names, {"0", "3", "0", "0", "0", "1", "1", "0", "0"})});
    EXPECT_FALSE(host.exists("TULWORK.PRN"));
    EXPECT_EQ(host.messages, Texts{});

    options.chkSymbolResize = options.chkSymbolIntegerPar4 = false;
    run({"TWO.MUS"});
    EXPECT_EQ(host.shown, Texts{report({"TWO.MUS"}, {"0", "2", "0", "0", "0", "0", "0", "0", "0"})})
        << "counted anew, and changed or not";
    EXPECT_TRUE(host.exists("TWO.BKV"));
}

TEST_F(Resizing, GoesOnBehindDamageAndTellsWhichFilesToLookAt) {
    options.tabResiz = tabStaves;
    options.txtResizeStaffSize = "0.65";
    options.chkResizBackup = true;
    const std::string broken = pageOf(staff + words({1, 8}) + staff);
    const std::string tooLong =
        pageOf(staff + words({21, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 5}) + staff);
    host.write("A.MUS", broken);
    host.write("B.MUS", tooLong);
    host.write("C.MUS", pageOf(staff));
    run({"A.MUS", "B.MUS", "C.MUS"});
    EXPECT_EQ(host.messages, Texts{structuralError}) << "of the first file";
    for (const char* name : {"A.MUS", "B.MUS", "C.MUS"})
        EXPECT_EQ(host.read(name), pageOf(smallStaff)) << name;
    EXPECT_EQ(host.read("A.BKU"), broken);
    EXPECT_EQ(host.read("B.BKU"), tooLong);
    EXPECT_EQ(host.shown,
              Texts{report({"A.MUS", "B.MUS", "C.MUS"}, {"0", "3", "0", "0", "0", "0", "0", "0", "0"},
                           {"Rewritten from an incomplete reading, the rest of the items is missing: "
                            "A.MUS, B.MUS"})});
    EXPECT_FALSE(pipeline.progress.visible);
    EXPECT_EQ(pipeline.activity, "");

    options.chkResizBackup = false;
    const std::string nothing = pageOf(words({1, 8}));
    host.write("D.MUS", nothing);
    run({"D.MUS"});
    EXPECT_EQ(host.read("D.MUS"), nothing) << "without an item it is left alone";
    EXPECT_FALSE(host.exists("D.BKU"));
}

TEST_F(Resizing, EndsTheProgramAtWhatItCannotWrite) {
    options.tabResiz = tabStaves;
    host.write("A.MUS", pageOf(staff));
    host.faultyFiles().refusals["A.MUS"] = FileError::permissionDenied;
    EXPECT_EQ(endOf([this] { run({"A.MUS"}); }), 1);
    EXPECT_EQ(host.messages, Texts{"Open of output MUS file failed. Hit OK to terminate"});
    EXPECT_EQ(host.read("A.MUS"), pageOf(staff));
    host.faultyFiles().refusals["TULWORK.PRN"] = FileError::permissionDenied;
    EXPECT_EQ(endOf([this] { run({"A.MUS"}); }), 1);
    EXPECT_EQ(host.messages, Texts{"Failed to open " + host.path("TULWORK.PRN") + " for output"});
}

}  // namespace
}  // namespace tul::resize
