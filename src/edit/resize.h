#pragma once

#include <cstdint>
#include <string>

#include "shared/run_view.h"

/// Changes sizes in all selected music files: note heads, slurs, staves, symbols, page and bar numbers,
/// lyrics and texts. It also sets and removes the texts that keep the place of lute notes.
namespace tul::resize {

/// Pages of `tabResiz`. A run works on the items of the page in front; symbols alone are worked on from any.
enum Tab { tabNotes, tabSlurs, tabStaves, tabSymbols, tabNumbers, tabTexts, tabPlaceholders };

/// Sizes and fonts are texts that begin with a number.
struct ResizeOptions {
    int tabResiz = tabNotes;
    bool chkResizBackup = true;

    bool optResizeNote = true;
    std::string txtResizeNoteSize = "1.1";
    bool chkResizeMini = false;
    bool chkResizeSmall = false;
    bool chkResizeBlack = false;
    bool chkResizeHalf = false;
    bool chkResizeWhole = false;
    bool chkResizeBlackDiamond = false;
    bool chkResizeWhiteDiamond = false;
    bool optResizeStem = false;  // of no effect yet

    bool optResizeSlurThick = true;
    std::string txtResizeSlur = "1";

    bool optResizeStaffYes = true;
    std::string txtResizeStaffSize = "1";
    bool chkResizeSome = false;  // only the staves that the next three tell
    bool optResizeStaffInstrId = true;
    bool optResizeStaffPart = false;
    std::string txtResizeStaffInstrPart = "1";  // an instrument id, or first staff, comma, increment

    bool chkSymbolResize = false;
    std::string txtSymbolResize = "1";  // number of the symbol
    std::string txtSymbolNewSize = "1";
    bool chkSymbolIntegerPar4 = false;

    // Sizes of numbers stand here without the 200 that they have in an item and in the project settings.
    bool optResizePageNumber = true;
    std::string txtResizePageNumberSize = "1.1";
    std::string txtResizePageNumberFont = "0";
    bool optResizeBarNumber = false;
    std::string txtResizeBarNumberSize = "1";
    std::string txtResizeBarNumberFont = "0";

    bool optResizeLyrics = true;
    std::string txtResizeLyrics = "1";
    bool optTextResizeTextSize = false;
    std::string txtResizeTextCurrent = "1";
    std::string txtResizeTextNew = "1";
    std::string txtResizeTextResize;  // the whole text, font prefix included

    bool chkPlaceholderSet = false;
    bool chkPlaceholderDescenders = false;
    bool chkPlaceholderReset = false;

    /// At least one kind of note is chosen: the note size can be filled in, and notes are resized.
    bool anyNotes() const;
};

/// What a run has changed, over all its files.
struct Counters {
    std::int32_t mini = 0;
    std::int32_t small = 0;
    std::int32_t black = 0;
    std::int32_t half = 0;
    std::int32_t whole = 0;
    std::int32_t blackDiamond = 0;
    std::int32_t whiteDiamond = 0;
    std::int32_t slurs = 0;
    std::int32_t staves = 0;
    std::int32_t texts = 0;  // lyrics as well
    std::int32_t pageNumbers = 0;
    std::int32_t barNumbers = 0;
    std::int32_t symbolSizes = 0;
    std::int32_t symbolPar4 = 0;
    std::int32_t placeholders = 0;

    std::int32_t notes() const { return mini + small + black + half + whole + blackDiamond + whiteDiamond; }
    /// Of any kind.
    std::int64_t all() const {
        return std::int64_t{notes()} + slurs + staves + texts + pageNumbers + barNumbers + symbolSizes +
               symbolPar4 + placeholders;
    }
};

/// What the panel `frmResiz` asks for, and what it shows of a run.
struct Resize {
    ResizeOptions options;
    RunView view;
};
extern Resize resizing;

void resetResize();

/// Fills the fields that begin with a size or font of the project settings.
void fillFromProjectSettings();

/// The run over the selection, which it reads anew: changes the files and writes the report TULWORK.PRN,
/// shows it and deletes it. Options that would change nothing are told instead.
void cmdResizeRun();

/// Changes the items of the table by the options, and counts.
void updateFile(Counters& counters);

/// True for the heads of lute notes, Par 6 from 900 to 912.
constexpr bool is9xx(float head) { return head >= 900.0F && head <= 912.0F; }

/// The margin within which two sizes are the same.
inline constexpr float sizeMargin = 0.001F;
/// What sizes of page and bar numbers have added in an item and in the project settings.
inline constexpr float numberMark = 200.0F;

}  // namespace tul::resize
