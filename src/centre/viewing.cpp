#include "centre/viewing.h"

#include <algorithm>

#include "base/text.h"
#include "centre/control_file.h"
#include "centre/launching.h"
#include "centre/main_panel.h"
#include "centre/project_options.h"
#include "centre/start_up.h"
#include "host/host.h"
#include "shared/function_module.h"
#include "shared/records.h"

namespace tul {

namespace {

constexpr std::size_t judgedBytes = 250;
constexpr unsigned char lowestTextByte = 20;

bool isTextByte(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte == '\t' || byte == '\n' || byte == '\r' || byte >= lowestTextByte;
}

bool looksLikeText(const std::string& path) {
    std::string bytes;
    if (files().read(path, bytes, judgedBytes) != FileError::none) return false;
    return std::all_of(bytes.begin(), bytes.end(), isTextByte);
}

const std::string& editorPath() {
    const bool isWordpad = editor.code == static_cast<int>(EditorCode::wordpad);
    return isWordpad ? machineSettings.WordpadPath : machineSettings.NotepadPath;
}

bool editorIsThere() {
    const std::string program = programOf(editorPath());
    if (program.empty())
        return processes().canFind(editorPath());  // a batch file, or nothing that can be run
    return processes().canFind(std::string(fileNameOf(program)));
}

}  // namespace

void SetEditor(EditorCode code) { editor.code = static_cast<int>(code); }

void ViewWithEditor(const std::string& path) {
    if (face().showsTextItself() || !editorIsThere()) {
        face().showText(path);
    } else {
        const std::string shortPath = GetShortName(path);
        const bool isBareProgram = programOf(editorPath()) == editorPath();
        ShellAndWait(editorPath() + " " + shortPath,
                     isBareProgram ? std::vector{shortPath} : std::vector<std::string>());
    }
}

void ViewInPanel(const std::string& path) {
    if (!FileExists(path)) {
        MsgBox("View via Tul viewer of non-existing file: " + path);
        return;
    }
    notepadPanel = {};
    notepadPanel.path = path;
    notepadPanel.caption = path + " - file " + face().frontCaption();
    std::string text;
    files().readIfThere(path, text);
    for (const std::string_view line : linesOf(text)) notepadPanel.lstTulboard.entries.emplace_back(line);
    face().openPanel("frmNotepad");
}

void ShowUserGuide(const std::string& page) {
    const std::string path = paths.ProgramFolder + "\\docs\\" + page;
    if (FileExists(path))
        face().showGuide(path);
    else
        MsgBox("The user guide is not installed: there is no file " + path + ".", Buttons::ok,
               Icon::exclamation);
}

void editNotepadFile() {
    ViewWithEditor(notepadPanel.path);
    ReadControlFile(false);
    refreshAnlibTip();
    ReadProjectOptions();
    CheckLibraryFolders();
    notepadPanel.closed = true;
}

void showAndDelete(Report& report) {
    if (!report.close())
        endWith("The report " + report.path() + " could not be written. The disk may be full.");
    ViewWithEditor(report.path());
    files().removeIfThere(report.path());
}

void SeeTextFile() {
    readMusDirectory();
    if (projectSettings.MusDirectory.empty()) {
        MsgBox("This functions requires that the initial folder is set. Set global option");
        return;
    }
    const WaitingPointer pointer;
    ListBox& list = mainPanel.lstTextFiles;
    list = {.title = "These are the ASCII text files in the initial folder (" + projectSettings.MusDirectory +
                     "). Click a name to see its contents. Change folder via 'Set project options'. "
                     "Right click to close.",
            .entries = {},
            .visible = false};
    mainPanel.tabsVisible = false;
    for (const std::string& name : files().list(projectSettings.MusDirectory))
        if (looksLikeText(projectSettings.MusDirectory + "\\" + name)) list.entries.push_back(name);
    list.visible = !list.entries.empty();
    if (list.visible) return;
    MsgBox("There are no text files in directory:" + std::string(CrLf) + projectSettings.MusDirectory);
    mainPanel.tabsVisible = true;
}

void chooseTextFile(const std::string& entry) {
    if (entry.empty()) {
        mainPanel.lstTextFiles.visible = false;
        mainPanel.tabsVisible = true;
        return;
    }
    ViewInPanel(projectSettings.MusDirectory + "\\" + entry);
}

}  // namespace tul
