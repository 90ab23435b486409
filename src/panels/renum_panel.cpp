#include "panels/renum_panel.h"

#include "base/append.h"
#include "centre/launching.h"
#include "centre/names_file.h"
#include "panels/tool_panel.h"
#include "renumber/bar_numbers.h"
#include "renumber/new_names.h"
#include "renumber/page_numbers.h"
#include "renumber/renumber.h"
#include "renumber/renumber_run.h"
#include "renumber/staff_numbers.h"
#include "shared/records.h"

namespace tul {

namespace {

using namespace renumber;

ToolPanelState state;

bool setsPageNumbers() { return !renumbering.optRenumPageNone; }
bool setsBarNumbers() { return !barOptions.optRenumBarNone; }

Field pageText(const char* name, std::string& value, const char* prompt, Keep keep = {}) {
    return readIf(textField(name, value, prompt, std::move(keep)), setsPageNumbers);
}

Field barText(const char* name, std::string& value, const char* prompt,
              std::string (*keep)(const std::string&, const std::string&)) {
    return readIf(keptField(name, value, prompt, keep), setsBarNumbers);
}

Field barCheck(const char* name, bool& value) { return readIf(checkField(name, value), setsBarNumbers); }

std::vector<Field> fileFields() {
    FileOptions& options = fileOptions;
    return {
        textField("txtRenumPrefixA", options.txtRenumPrefixA, letterPrompt, keepLetters),
        keptField("txtRenumPrefixN", options.txtRenumPrefixN, numberPrompt, keepFirstNumber),
        textField("txtRenumSuffix", options.txtRenumSuffix,
                  "Enter from 1 to 3 alphanumeric characters for the suffix", keepSuffix),
        textField("txtIncrement", options.txtIncrement, "Enter increment", keepIncrement),
        checkField("chkRenumFileNamesFile", options.chkRenumFileNamesFile),
        shownField("txtRenumOutname", options.txtRenumOutname),
    };
}

std::vector<Field> pageFields() {
    PageOptions& options = pageOptions;
    const auto center = [] { return setsPageNumbers() && pageOptions.optRenumCenter; };
    const auto sides = [] { return setsPageNumbers() && pageOptions.optRenumSide; };
    return {
        optionField("fraRenumPage", "optRenumPageNone", renumbering.optRenumPageNone),
        optionField("fraRenumPage", "optRenumBegin", options.optRenumBegin),
        readIf(textField("txtRenumBeginPage", options.txtRenumBeginPage, "Enter the first page number",
                         keepBeginPage),
               [] { return pageOptions.optRenumBegin; }),
        optionField("fraRenumPage", "optRenumFromFile", options.optRenumFromFile),
        pageText("txtRenumModified", options.txtRenumModified, "Enter value to adjust page number (+nn/-nn)"),
        readIf(optionField("fraRenumPageStaff", "optRenumTop", options.optRenumTop), setsPageNumbers),
        readIf(optionField("fraRenumPageStaff", "optRenumBottom", options.optRenumBottom), setsPageNumbers),
        readIf(checkField("chkStaff1", options.chkStaff1),
               [] { return setsPageNumbers() && pageOptions.optRenumTop; }),
        pageText("txtRenumPageDisplacement", options.txtRenumPageDisplacement,
                 "Enter p4 displacement +nn.nn or -nn.nn)"),
        readIf(optionField("fraRenumPageHorz", "optRenumCenter", options.optRenumCenter), setsPageNumbers),
        readIf(textField("txtRenumHorzCenter", options.txtRenumHorzCenter,
                         "Enter center page number position", keepCenter),
               center),
        readIf(optionField("fraRenumPageHorz", "optRenumSide", options.optRenumSide), setsPageNumbers),
        readIf(textField("txtRenumHorzLeft", options.txtRenumHorzLeft, "Enter left page number position",
                         keepLeft),
               sides),
        readIf(textField("txtRenumHorzRite", options.txtRenumHorzRite,
                         "Enter right page number position. HS means house style which is 197 for 1-digit "
                         "numbers, 196 for 2-digit numbers and 195 for 3-digit numbers.",
                         keepRight),
               sides),
    };
}

std::vector<Field> barFields() {
    BarOptions& options = barOptions;
    const auto contoured = [] { return setsBarNumbers() && barOptions.chkRenumBarContour; };
    return {
        optionField("fraRenumBar", "optRenumBarNone", options.optRenumBarNone),
        optionField("fraRenumBar", "optRenumBarFirst", options.optRenumBarFirst),
        optionField("fraRenumBar", "optRenumBarEach", options.optRenumBarEach),
        optionField("fraRenumBar", "optRenumBarEvery", options.optRenumBarEvery),
        readIf(textField("txtRenumBarEvery", options.txtRenumBarEvery, "Enter step number", keepStep),
               [] { return barOptions.optRenumBarEvery; }),
        barText("txtRenumBarStart", options.txtRenumBarStart, "Enter starting bar number. Pickup bar is 0.",
                keepStart),
        barText("txtRenumBarVertDispl", options.txtRenumBarVertDispl,
                "Enter vertical displacement (p4) for bar number.\r\nSet to 'B' for between piano staves",
                keepVertical),
        barText("txtRenumBarHorzDispl", options.txtRenumBarHorzDispl,
                "Enter horizontal displacement (p15) for bar number.", keepHorizontal),
        barCheck("chkBarCountInvisible", options.chkBarCountInvisible),
        barCheck("chkBarCountDashed", options.chkBarCountDashed),
        barCheck("chkBarMulti", options.chkBarMulti),
        barCheck("chkBarAfterEnding", options.chkBarAfterEnding),
        barCheck("chkBarAfterRepeat", options.chkBarAfterRepeat),
        barCheck("chkBarAfterPageMark", options.chkBarAfterPageMark),
        barCheck("chkBarNumberGen1", options.chkBarNumberGen1),
        barCheck("chkRenumBarContour", options.chkRenumBarContour),
        readIf(optionField("fraRenumBarContour", "optBarCircle", options.optBarCircle), contoured),
        readIf(optionField("fraRenumBarContour", "optBarBox", options.optBarBox), contoured),
        readIf(keptField("txtBarContourThickness", options.txtBarContourThickness,
                         "Enter circle/box thickness.", keepThickness),
               contoured),
        barCheck("chkBarCM", options.chkBarCM),
        barCheck("chkBarSystemPt1", options.chkBarSystemPt1),
    };
}

/// A change of any of them makes the preview old.
std::vector<Field> fields() {
    std::vector<Field> all = {
        tabField("tabRenum", renumbering.tabRenum, {"files", "pages", "bars", "staves"})};
    for (const auto tab : {fileFields, pageFields, barFields}) append(all, tab());
    for (Field& field : all) field.changed = renewPreview;
    all.push_back(readIf(checkField("chkRenumBackup", renumbering.chkRenumBackup),
                         [] { return renumbering.tabRenum != tabFiles; }));
    all.push_back(listField("lstRenumPreview", renumbering.lstRenumPreview));
    return all;
}

Command onSelection(Command command) {
    command.enabled = [] { return selection.SelectionValid; };
    return command;
}

std::vector<Command> commands() {
    return {
        onSelection({.name = "cmdRenumPreview",
                     .caption = "Preview",
                     .run = cmdRenumPreview,
                     .toolTip = "Show what Run would do; nothing is changed"}),
        onSelection({.name = "cmdRenumberParts",
                     .caption = "Renumber parts top to bottom",
                     .run = cmdRenumberParts,
                     .toolTip = "Number the instrument ids of each page from its last staff item"}),
        {.name = "cmdRenumHelp", .caption = "Help", .run = [] { ShowHelpFile("TulRenum"); }},
    };
}

/// Files of any kind can be renamed; what the other tabs change is music.
void takeFiles(const std::vector<std::string>& dropped) {
    DropFiles(dropped, state.viewTip, renumbering.tabRenum == tabFiles ? "ANY" : "MUS");
}

}  // namespace

void resetRenumPanel() {
    resetRenumber();
    state = {};
}

Panel describeRenumPanel() {
    return toolPanel({
        .form = "frmRenum",
        .caption = "TulRenum - Names of files, numbers of pages, bars and staves",
        .controls = {.buttons = "Renum",
                     .status = "lblRenumStatus",
                     .activity = "lblRenumActivity",
                     .overFiles = "panRenumFloodRun",
                     .inFile = "panRenumFlood"},
        .selectPrompt = "Select Score music file(s)",
        .view = renumbering.view,
        .state = state,
        .run = cmdRenumRun,
        .fields = fields(),
        .commands = commands(),
        .load = fillFromProjectSettings,
        .selectionChanged = renewPreview,
        .takeFiles = takeFiles,
    });
}

}  // namespace tul
