#include "panels/resiz_panel.h"

#include <utility>

#include "centre/panel_place.h"
#include "edit/resize.h"
#include "edit/resize_checks.h"
#include "music/pipeline.h"
#include "panels/tool_panel.h"
#include "shared/records.h"

namespace tul {

namespace {

using resize::resizing;
using Options = resize::ResizeOptions;
using Text = std::string Options::*;
using Flag = bool Options::*;
using Keep = std::string (*)(const std::string& typed);

struct ResizPanel {
    PanelPlace place;
    std::string viewTip;
};
ResizPanel resizPanel;

bool isIdle() { return !resizing.control.running; }

Field text(const char* name, Text value, const char* prompt, Keep keep) {
    return {.name = name,
            .kind = FieldKind::text,
            .value = &(resizing.options.*value),
            .prompt = std::string(prompt),
            .accept = keep,
            .enabled = isIdle};
}

Field check(const char* name, Flag value) {
    return {.name = name, .kind = FieldKind::check, .value = &(resizing.options.*value), .enabled = isIdle};
}

Field option(const char* frame, const char* name, Flag value) {
    return {.name = name,
            .kind = FieldKind::option,
            .value = &(resizing.options.*value),
            .group = frame,
            .enabled = isIdle};
}

Field noteSizeField() {
    Field field = text("txtResizeNoteSize", &Options::txtResizeNoteSize,
                       "New note size (between 0.7 and 2.0)", resize::keepNoteSize);
    field.enabled = [] { return isIdle() && resizing.options.anyNotes(); };
    return field;
}

Field stemOption() {
    Field field = option("fraResizeStem", "optResizeStem", &Options::optResizeStem);
    field.enabled = false;
    field.toolTip = "compensation not yet supported";
    return field;
}

/// An instrument id or a part, as the options beside it say.
Field staffField() {
    Field field = text("txtResizeStaffInstrPart", &Options::txtResizeStaffInstrPart, "", nullptr);
    field.prompt = [] {
        return std::string(resizing.options.optResizeStaffPart
                               ? "Part[,increment]. If no increment is given, 1 is assumed\r\n"
                                 "Examples: 1,2 means staff 1, 3, 5, 7, etc.\r\n"
                                 "2,4 means staff 2, 6, 10, etc."
                               : "Instrument Id.");
    };
    field.accept = [](const std::string& typed) {
        return resizing.options.optResizeStaffPart ? resize::keepPart(typed)
                                                   : resize::keepInstrumentId(typed);
    };
    return field;
}

Field textStringField() {
    Field field = text("txtResizeTextResize", &Options::txtResizeTextResize,
                       "Complete text string including leading font. Note that trailing spaces are not "
                       "considered in the comparison. A string consisting of just a font prefix is allowed.",
                       nullptr);
    field.accept = [](const std::string& typed) {
        return resize::keepTextWithFont(typed, resizing.options.txtResizeTextResize);
    };
    return field;
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

std::vector<Field> runFields() {
    return {
        {.name = "tabResiz",
         .kind = FieldKind::tab,
         .value = &resizing.options.tabResiz,
         .prompt = "0 notes, 1 slurs, 2 staves, 3 symbols, 4 numbers, 5 lyrics and text, 6 placeholders",
         .enabled = isIdle,
         .choices = resize::tabCount},
        check("chkResizBackup", &Options::chkResizBackup),
        {.name = "lblResizeStatus", .kind = FieldKind::label, .value = &resizing.lblResizeStatus},
        {.name = "lblResizeActivity", .kind = FieldKind::label, .value = &pipeline.activity},
        {.name = "panResizeFlood", .kind = FieldKind::progress, .value = &pipeline.progress},
    };
}

std::vector<Command> commands() {
    return {
        selectCommand("cmdResizeSelect", "Select Score music file(s)", resizPanel.viewTip, isIdle),
        viewCommand("cmdResizeView", resizPanel.viewTip, isIdle),
        {.name = "cmdResizeRun",
         .caption = std::string("Run"),
         .run = resize::cmdResizeRun,
         .enabled = [] { return selection.SelectionValid && isIdle(); }},
        {.name = "cmdResizeReturn",
         .caption = std::string("Return"),
         .run = [] { resizing.control.press(); },
         .enabled = isIdle},
    };
}

}  // namespace

Panel makeResizPanel() {
    resize::resetResize();
    resizPanel = {};
    Panel panel;
    panel.name = "frmResiz";
    panel.caption = "TulResize - Sizes of notes, slurs, staves, symbols, numbers and texts";
    panel.runCommand = "cmdResizeRun";
    panel.fields = runFields();
    for (const auto& fields :
         {noteAndSlurFields(), staffAndSymbolFields(), numberFields(), textAndPlaceholderFields()})
        panel.fields.insert(panel.fields.end(), fields.begin(), fields.end());
    panel.commands = commands();
    panel.place = &resizPanel.place;
    panel.load = [] {
        resize::fillFromProjectSettings();
        loadToolPanel(resizPanel.place);
    };
    panel.closed = [] { return resizing.control.closed; };
    return panel;
}

}  // namespace tul
