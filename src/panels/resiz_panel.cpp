#include "panels/resiz_panel.h"

#include <utility>

#include "base/append.h"
#include "edit/resize.h"
#include "edit/resize_checks.h"
#include "panels/tool_panel.h"

namespace tul {

namespace {

using resize::resizing;
using Options = resize::ResizeOptions;
using Text = std::string Options::*;
using Flag = bool Options::*;

ToolPanelState state;

Field text(const char* name, Text value, const char* prompt, Keep keep) {
    return textField(name, resizing.options.*value, prompt, std::move(keep));
}

Field check(const char* name, Flag value) { return checkField(name, resizing.options.*value); }

Field option(const char* frame, const char* name, Flag value) {
    return optionField(frame, name, resizing.options.*value);
}

Field noteSizeField() {
    return onlyIf(text("txtResizeNoteSize", &Options::txtResizeNoteSize,
                       "New note size (between 0.7 and 2.0)", resize::keepNoteSize),
                  [] { return resizing.options.anyNotes(); });
}

Field stemOption() {
    return withTip(
        onlyIf(option("fraResizeStem", "optResizeStem", &Options::optResizeStem), [] { return false; }),
        "compensation not yet supported");
}

/// An instrument id or a part, as the options beside it say.
Field staffField() {
    return textField(
        "txtResizeStaffInstrPart", resizing.options.txtResizeStaffInstrPart,
        [] {
            return std::string(resizing.options.optResizeStaffPart
                                   ? "Part[,increment]. If no increment is given, 1 is assumed\r\n"
                                     "Examples: 1,2 means staff 1, 3, 5, 7, etc.\r\n"
                                     "2,4 means staff 2, 6, 10, etc."
                                   : "Instrument Id.");
        },
        [](const std::string& typed) {
            return resizing.options.optResizeStaffPart ? resize::keepPart(typed)
                                                       : resize::keepInstrumentId(typed);
        });
}

Field textStringField() {
    return keptField("txtResizeTextResize", resizing.options.txtResizeTextResize,
                     "Complete text string including leading font. Note that trailing spaces are not "
                     "considered in the comparison. A string consisting of just a font prefix is allowed.",
                     resize::keepTextWithFont);
}

std::vector<Field> noteAndSlurFields() {
    return {
        option("fraResizeNote", "optResizeNote", &Options::optResizeNote),
        check("chkResizeMini", &Options::chkResizeMini),
        check("chkResizeSmall", &Options::chkResizeSmall),
        check("chkResizeBlack", &Options::chkResizeBlack),
        check("chkResizeHalf", &Options::chkResizeHalf),
        check("chkResizeWhole", &Options::chkResizeWhole),
        check("chkResizeBlackDiamond", &Options::chkResizeBlackDiamond),
        check("chkResizeWhiteDiamond", &Options::chkResizeWhiteDiamond),
        noteSizeField(),
        stemOption(),
        option("fraResizeSlur", "optResizeSlurThick", &Options::optResizeSlurThick),
        text("txtResizeSlur", &Options::txtResizeSlur, "New slur thickness (between 0 and 10)",
             resize::keepSlurThickness),
    };
}

std::vector<Field> staffAndSymbolFields() {
    return {
        option("fraResizeStaff", "optResizeStaffYes", &Options::optResizeStaffYes),
        text("txtResizeStaffSize", &Options::txtResizeStaffSize, "New staff size (between 0.3 and 2.0)",
             resize::keepStaffSize),
        check("chkResizeSome", &Options::chkResizeSome),
        option("fraResizeSome", "optResizeStaffInstrId", &Options::optResizeStaffInstrId),
        option("fraResizeSome", "optResizeStaffPart", &Options::optResizeStaffPart),
        staffField(),
        check("chkSymbolResize", &Options::chkSymbolResize),
        text("txtSymbolResize", &Options::txtSymbolResize, "Enter Code9 Par5 symbol number",
             resize::keepSymbolNumber),
        text("txtSymbolNewSize", &Options::txtSymbolNewSize, "Enter new size for symbol",
             resize::keepSymbolSize),
        check("chkSymbolIntegerPar4", &Options::chkSymbolIntegerPar4),
    };
}

std::vector<Field> numberFields() {
    const char* const fontPrompt = "p7 font (0-11, 1000-1089)";
    return {
        option("fraResizeNumber", "optResizePageNumber", &Options::optResizePageNumber),
        text("txtResizePageNumberSize", &Options::txtResizePageNumberSize,
             "New page number size (200 will be added) to p6", resize::keepPageNumberSize),
        text("txtResizePageNumberFont", &Options::txtResizePageNumberFont, fontPrompt,
             resize::keepNumberFont),
        option("fraResizeNumber", "optResizeBarNumber", &Options::optResizeBarNumber),
        text("txtResizeBarNumberSize", &Options::txtResizeBarNumberSize,
             "New bar number size (200 will be added) to p6", resize::keepBarNumberSize),
        text("txtResizeBarNumberFont", &Options::txtResizeBarNumberFont, fontPrompt, resize::keepNumberFont),
    };
}

std::vector<Field> textAndPlaceholderFields() {
    return {
        option("fraResizeText", "optResizeLyrics", &Options::optResizeLyrics),
        text("txtResizeLyrics", &Options::txtResizeLyrics, "New lyrics size (between 0 and 10)",
             resize::keepTextSize),
        option("fraResizeText", "optTextResizeTextSize", &Options::optTextResizeTextSize),
        text("txtResizeTextCurrent", &Options::txtResizeTextCurrent, "Current text size (between 0 and 10)",
             resize::keepTextSize),
        text("txtResizeTextNew", &Options::txtResizeTextNew, "New text size (between 0 and 10)",
             resize::keepTextSize),
        textStringField(),
        check("chkPlaceholderSet", &Options::chkPlaceholderSet),
        check("chkPlaceholderDescenders", &Options::chkPlaceholderDescenders),
        check("chkPlaceholderReset", &Options::chkPlaceholderReset),
    };
}

std::vector<Field> fields() {
    std::vector<Field> all = {
        tabField("tabResiz", resizing.options.tabResiz,
                 {"notes", "slurs", "staves", "symbols", "numbers", "texts", "placeholders"})};
    for (const auto page : {noteAndSlurFields, staffAndSymbolFields, numberFields, textAndPlaceholderFields})
        append(all, page());
    all.push_back(checkField("chkResizBackup", resizing.options.chkResizBackup));
    return all;
}

}  // namespace

void resetResizPanel() {
    resize::resetResize();
    state = {};
}

Panel describeResizPanel() {
    return toolPanel({
        .form = "frmResiz",
        .caption = "TulResize - Sizes of notes, slurs, staves, symbols, numbers and texts",
        .controls = {.buttons = "Resize",
                     .status = "lblResizeStatus",
                     .activity = "lblResizeActivity",
                     .overFiles = "panResizeFloodRun",
                     .inFile = "panResizeFlood"},
        .selectPrompt = "Select Score music file(s)",
        .view = resizing.view,
        .state = state,
        .run = resize::cmdResizeRun,
        .fields = fields(),
        .load = resize::fillFromProjectSettings,
    });
}

}  // namespace tul
