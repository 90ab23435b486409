#include "panels/tool_panel.h"

#include <utility>

#include "base/append.h"
#include "base/numbers.h"
#include "centre/names_file.h"
#include "centre/panel_place.h"
#include "shared/records.h"

namespace tul {

namespace {

/// Tells how many files the tool will work on.
std::string viewCaption() {
    if (!selection.SelectionValid) return "View";
    return "View " + plain(selection.SelectionCount) + (selection.SelectionCount == 1 ? " file" : " files");
}

bool isSelected() { return selection.SelectionValid; }

std::vector<Field> commonFields(const ToolPanelParts& parts) {
    const ToolControls& controls = parts.controls;
    RunView& view = parts.view;
    std::vector<Field> fields;
    if (controls.status) fields.push_back(labelField(controls.status, view.status));
    if (controls.file) fields.push_back(labelField(controls.file, view.file));
    if (controls.activity) fields.push_back(labelField(controls.activity, view.activity));
    if (controls.overFiles) fields.push_back(progressField(controls.overFiles, view.overFiles));
    if (controls.inFile) fields.push_back(progressField(controls.inFile, view.inFile));
    return fields;
}

/// A step, and behind it what hangs on the selection.
std::function<void()> changingSelection(std::function<void()> step, std::function<void()> behind) {
    return [step = std::move(step), behind = std::move(behind)] {
        step();
        if (behind) behind();
    };
}

std::vector<Command> commonCommands(const ToolPanelParts& parts) {
    const std::string stem = std::string("cmd") + parts.controls.buttons;
    ToolPanelState& state = parts.state;
    RunView& view = parts.view;
    return {
        {.name = stem + "Select",
         .caption = "Select",
         .run =
             changingSelection([prompt = parts.selectPrompt, &state] { SelectFiles(prompt, state.viewTip); },
                               parts.selectionChanged),
         .toolTip = "Select music files, or drop them here"},
        {.name = stem + "View",
         .caption = viewCaption,
         .run = changingSelection([&state] { ViewNamesFile(state.viewTip); }, parts.selectionChanged),
         .enabled = isSelected,
         .toolTip = [&state] { return state.viewTip; }},
        {.name = stem + "Run", .caption = "Run", .run = parts.run, .enabled = isSelected},
        {.name = stem + "Return",
         .caption = [&view] { return view.control.caption(); },
         .run =
             [&view, leave = parts.leave] {
                 if (leave && !view.control.isBusy()) leave();
                 view.control.press();
             },
         .whileBusy = true},
    };
}

}  // namespace

Panel toolPanel(ToolPanelParts parts) {
    Panel panel;
    panel.name = parts.form;
    panel.caption = parts.caption;
    panel.runCommand = std::string("cmd") + parts.controls.buttons + "Run";
    panel.commands = commonCommands(parts);
    append(panel.commands, std::move(parts.commands));
    panel.fields = std::move(parts.fields);
    append(panel.fields, commonFields(parts));
    ToolPanelState& state = parts.state;
    panel.place = &state.place;
    panel.load = [&state, load = parts.load, behind = parts.selectionChanged] {
        state.place.height = heightOfPanels();
        positionPanel(state.place);
        if (load) load();
        ReadNamesFile();
        if (behind) behind();
    };
    panel.busy = [&view = parts.view] { return view.control.isBusy(); };
    panel.closed = [&view = parts.view] { return view.control.isClosed(); };
    panel.takeFiles = [&state, take = parts.takeFiles,
                       behind = parts.selectionChanged](const std::vector<std::string>& dropped) {
        if (take)
            take(dropped);
        else
            DropFiles(dropped, state.viewTip);
        if (behind) behind();
    };
    return panel;
}

}  // namespace tul
