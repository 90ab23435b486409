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

std::vector<Field> commonFields(const ToolPanelSpec& spec) {
    const ToolControls& controls = spec.controls;
    RunView& view = spec.view;
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

std::vector<Command> commonCommands(const ToolPanelSpec& spec) {
    const std::string stem = std::string("cmd") + spec.controls.buttons;
    ToolPanelState& state = spec.state;
    RunView& view = spec.view;
    return {
        {.name = stem + "Select",
         .caption = "Select",
         .run =
             changingSelection([prompt = spec.selectPrompt, &state] { SelectFiles(prompt, state.viewTip); },
                               spec.selectionChanged),
         .toolTip = "Select music files, or drop them here"},
        {.name = stem + "View",
         .caption = viewCaption,
         .run = changingSelection([&state] { ViewNamesFile(state.viewTip); }, spec.selectionChanged),
         .enabled = isSelected,
         .toolTip = [&state] { return state.viewTip; }},
        {.name = stem + "Run", .caption = "Run", .run = spec.run, .enabled = isSelected},
        {.name = stem + "Return",
         .caption = [&view] { return view.control.caption(); },
         .run =
             [&view, leave = spec.leave] {
                 if (leave && !view.control.isBusy()) leave();
                 view.control.press();
             },
         .whileBusy = true},
    };
}

}  // namespace

Panel toolPanel(ToolPanelSpec spec) {
    Panel panel;
    panel.name = spec.form;
    panel.caption = spec.caption;
    panel.runCommand = std::string("cmd") + spec.controls.buttons + "Run";
    panel.commands = commonCommands(spec);
    append(panel.commands, std::move(spec.commands));
    panel.fields = std::move(spec.fields);
    append(panel.fields, commonFields(spec));
    ToolPanelState& state = spec.state;
    panel.place = &state.place;
    panel.load = [&state, load = spec.load, behind = spec.selectionChanged] {
        state.place.height = heightOfPanels();
        positionPanel(state.place);
        if (load) load();
        ReadNamesFile();
        if (behind) behind();
    };
    panel.busy = [&view = spec.view] { return view.control.isBusy(); };
    panel.closed = [&view = spec.view] { return view.control.isClosed(); };
    panel.takeFiles = [&state, take = spec.takeFiles,
                       behind = spec.selectionChanged](const std::vector<std::string>& dropped) {
        if (take)
            take(dropped);
        else
            DropFiles(dropped, state.viewTip);
        if (behind) behind();
    };
    return panel;
}

}  // namespace tul
