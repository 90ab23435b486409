#include "panels/about_panels.h"

#include <initializer_list>
#include <utility>

#include "base/numbers.h"
#include "centre/first_use.h"
#include "host/host.h"
#include "shared/function_module.h"
#include "shared/version.h"

namespace tul {

namespace {

const std::string programTitle = "TUL Control Center";

struct AboutPanel {
    std::string lblTitle = programTitle;
    std::string lblVersion =
        "Version " + plain(version::major) + "." + plain(version::minor) + "." + plain(version::revision);
    bool closed = false;
};
AboutPanel aboutPanel;

struct ColorPanel {
    std::string txtColor = "Click: an input box asks for the value";
    std::string lblColor = "Shown only";
    bool closed = false;
};
ColorPanel colorPanel;

/// The folder of the platform's own program stands in one of two places of its registry.
std::string findSystemInfo() {
    for (const auto& [key, name] : std::initializer_list<std::pair<const char*, const char*>>{
             {"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH"},
             {"SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO"}}) {
        const auto folder = platform().registryText(key, name);
        if (folder && FileExists(*folder + "\\MSINFO32.EXE")) return *folder + "\\MSINFO32.EXE";
    }
    return {};
}

void cmdSysInfo() {
    const std::string program = findSystemInfo();
    if (program.empty() || !processes().runAndWait({.program = program, .arguments = {}}).started)
        MsgBox("System Information Is Unavailable At This Time");
}

}  // namespace

void resetAboutPanel() { aboutPanel = {}; }

Panel describeAboutPanel() {
    Panel panel;
    panel.name = "frmAbout";
    panel.caption = "About " + programTitle;
    panel.fields = {
        labelField("lblTitle", aboutPanel.lblTitle),
        labelField("lblVersion", aboutPanel.lblVersion),
    };
    panel.commands = {
        {.name = "cmdDisclaimer", .caption = "Disclaimer", .run = showDisclaimer},
        {.name = "cmdSysInfo", .caption = "System Info", .run = cmdSysInfo},
        {.name = "cmdAboutReturn", .caption = "Return", .run = [] { aboutPanel.closed = true; }},
    };
    panel.closed = [] { return aboutPanel.closed; };
    return panel;
}

void resetColorPanel() { colorPanel = {}; }

Panel describeColorPanel() {
    Panel panel;
    panel.name = "frmColor";
    panel.caption = "Panel colors";
    panel.fields = {
        textField(
            "txtColor", colorPanel.txtColor,
            "An input box will request some value to be typed. This example is for demonstration only...",
            [](const std::string&) { return colorPanel.txtColor; }),
        labelField("lblColor", colorPanel.lblColor),
    };
    panel.commands = {
        {.name = "cmdColorReturn", .caption = "Return", .run = [] { colorPanel.closed = true; }},
    };
    panel.closed = [] { return colorPanel.closed; };
    return panel;
}

}  // namespace tul
