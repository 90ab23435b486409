#include "edit/resize.h"

#include "centre/names_file.h"
#include "music/pipeline.h"
#include "support/test.h"

namespace tul::resize {
namespace {

class Resizing : public HostTest {
  protected:
    Resizing() {
        projectSettings.LyricsSize = "1.2";
        projectSettings.PageNumberSize = "201.1";
        projectSettings.PageNumberFont = "0";
        projectSettings.BarNumberSize = "201";
        projectSettings.BarNumberFont = "01";
        options.chkResizBackup = false;
    }
    void run(const Texts& names) {
        writeNames(names);
        host.forget();
        cmdResizeRun();
    }
    /// The report over these files; `counts` in the order of its lines, those that are not given 0.
    std::string report(const Texts& names, std::vector<int> counts, const std::string& behind = {}) const {
        counts.resize(9);
        const std::size_t width = upper(names[0]).size();
        Texts all = {"TUL Rezise run 11-21-2026 09:05:07", " ", padRight("File", width),
                     std::string(width, '-')};
        for (const std::string& name : names) all.push_back(upper(name));
        all.emplace_back(" ");
        std::size_t kind = 0;
        for (const char* counted :
             {"note        sizes changed . . . . ", "staff       sizes changed . . . . ",
              "slur        sizes changed . . . . ", "lyrics/text sizes changed . . . . ",
              "page number sizes changed . . . . ", "symbol      sizes changed . . . . ",
              "symbol      Par4  changed . . . . ", "bar number  sizes changed . . . . ",
              "placeholders set/reset. . . . . . "})
            all.push_back(std::string("Number of ") + counted + std::to_string(counts[kind++]));
        return crlf(all) + lines(" |Number of files processed: " + std::to_string(names.size())) + behind;
    }

    ResizeOptions& options = resizing.options;
};

const std::string marginLine = "\r\nNote that a 0.001 margin was applied on the size attribute.";
// A staff of size 1, and the same of 0.65.
const std::string staff = words({6, 8, 1, 0, 0, 1, 200});
const std::string smallStaff = words({6, 8, 1, 0, 0, 0.65F, 200});

TEST_F(Resizing, RefusesOptionsThatWouldChangeNothing) {
    using O = ResizeOptions;
    host.write("A.MUS", pageOf(staff));
    const auto noUse = [](const std::string& what) { return "No use running " + what + marginLine; };
    const std::string text = noUse("Text resize if no string given or when current and new size are equal.");
    // Each row goes on from the one before.
    for (const auto& [change, refusal] : std::vector<std::pair<void (*)(O&), std::string>>{
             {[](O& o) { o.tabResiz = tabNotes; }, "No use running Note resize when no notes selected."},
             {[](O& o) { o.chkResizeWhiteDiamond = true; }, ""},
             {[](O& o) {
                  o.tabResiz = tabNumbers;
                  o.txtResizePageNumberSize = "1.1009";
                  o.txtResizePageNumberFont = "0";
              },
              noUse("Page number resize when global settings equal to new.")},
             {[](O& o) { o.txtResizePageNumberSize = "1.1012"; }, ""},
             {[](O& o) { o.txtResizePageNumberSize = "1.1", o.txtResizePageNumberFont = "2"; }, ""},
             {[](O& o) {
                  o.optResizePageNumber = !(o.optResizeBarNumber = true);
                  o.txtResizeBarNumberSize = o.txtResizeBarNumberFont = "1";  // 01 is the same font
              },
              noUse("Bar number resize when global settings equal to new.")},
             {[](O& o) { o.tabResiz = tabTexts, o.txtResizeLyrics = "1.2"; },
              noUse("Lyrics resize when current and new size are equal.")},
             {[](O& o) {
                  o.optResizeLyrics = !(o.optTextResizeTextSize = true);
                  o.txtResizeTextNew = "2";
              },
              text},
             {[](O& o) { o.txtResizeTextResize = "_00"; }, ""},
             {[](O& o) { o.txtResizeTextNew = "1.0005"; }, text},
             {[](O& o) {
                  o.tabResiz = tabPlaceholders;
                  o.chkPlaceholderSet = o.chkPlaceholderReset = true;
              },
              "The placeholder options are mutually exclusive"},
             {[](O& o) { o.tabResiz = tabSymbols; }, ""}}) {  // only the tab in front is checked
        change(options);
        run({"A.MUS"});
        EXPECT_EQ(host.messages, refusal.empty() ? Texts() : Texts{refusal});
        EXPECT_EQ(host.shown.empty(), !refusal.empty());
    }
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
    EXPECT_EQ(host.shown, Texts{report(names, {0, 3, 0, 0, 0, 1, 1})});
    EXPECT_FALSE(host.exists("TULWORK.PRN"));
    EXPECT_EQ(host.messages, Texts{});

    options.chkSymbolResize = options.chkSymbolIntegerPar4 = false;
    run({"TWO.MUS"});
    EXPECT_EQ(host.shown, Texts{report({"TWO.MUS"}, {0, 2})}) << "counted anew, and changed or not";
    EXPECT_TRUE(host.exists("TWO.BKV"));
}

TEST_F(Resizing, ReportsEachKindOnItsLine) {
    const auto expectCounted = [this](Tab tab, const std::string& page, const std::vector<int>& counts) {
        options.tabResiz = tab;
        host.write("A.MUS", pageOf(page));
        run({"A.MUS"});
        EXPECT_EQ(host.shown.at(0), report({"A.MUS"}, counts));
    };
    options.chkResizeBlack = options.chkResizeHalf = options.chkPlaceholderSet = true;
    const std::string half = words({7, 1, 1, 9, 5, 0, 1, 1});
    expectCounted(tabNotes, words({7, 1, 1, 9, 5, 0, 0, 1}) + half + half, {3});
    const std::string slur = words({6, 5, 1, 0, 1, 1, 9});
    expectCounted(tabSlurs, slur + slur, {0, 0, 2});
    options.txtResizePageNumberSize = options.txtResizeBarNumberSize = options.txtResizeTextNew = "2";
    expectCounted(tabNumbers, words({6, 10, 1, 0, 0, 1, 201.1F}), {0, 0, 0, 0, 1});
    options.optResizePageNumber = false;
    options.optResizeBarNumber = true;
    expectCounted(tabNumbers, words({7, 10, 1, 0, 0, 1, 201, 1}), {0, 0, 0, 0, 0, 0, 0, 1});
    options.optResizeLyrics = false;
    options.optTextResizeTextSize = true;
    options.txtResizeTextResize = "_00Ah";
    const std::string text = words({15, 16, 1, 2, 3, 0, 1, 0, 0, 0, 0, 0, 5, 0}) + "_00Ah   ";
    expectCounted(tabTexts, text + text, {0, 0, 0, 2});
    expectCounted(tabPlaceholders, words({6, 1, 1, 9, 5, 0, 901}), {0, 0, 0, 0, 0, 0, 0, 0, 1});
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
              Texts{report({"A.MUS", "B.MUS", "C.MUS"}, {0, 3},
                           "Rewritten from an incomplete reading, items may be missing: A.MUS, B.MUS\r\n")});
    EXPECT_FALSE(resizing.view.inFile.visible);
    EXPECT_EQ(resizing.view.activity, "");
}

}  // namespace
}  // namespace tul::resize
