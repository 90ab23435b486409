#include "centre/viewing.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "base/text.h"
#include "centre/control_file.h"
#include "centre/installation.h"
#include "centre/launching.h"
#include "centre/library_folder.h"
#include "centre/main_panel.h"
#include "centre/platform_code.h"
#include "centre/project_options.h"
#include "centre/tool_enabling.h"
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

/// A path that the user wrote as this system does.
std::string inInstallationForm(const std::string& program) {
    const bool isNative = program.find('/') != std::string::npos;
    return isNative ? files().fromNative(program).value_or(program) : program;
}

const std::string& editorPath() {
    const bool isWordpad = editor.code == static_cast<int>(EditorCode::wordpad);
    return isWordpad ? machineSettings.WordpadPath : machineSettings.NotepadPath;
}

/// An editor of a system other than Windows, whose name needs no suffix. Where its folder is given it runs
/// from there; what stands behind its name are arguments. Nothing for an editor that is called as on Windows.
std::optional<Launch> nativeEditor() {
    const std::string& command = editorPath();
    if (!isOutsideWindows() || command.empty() || launchOf(command)) return std::nullopt;
    Launch launch{.program = command, .arguments = {}};
    if (!processes().canFind(inInstallationForm(command))) {  // the name may have blanks in it
        const SplitText split = splitAtFirst(command, ' ');
        launch = {.program = std::string(split.before), .arguments = std::string(trim(split.behind))};
    }
    launch.program = inInstallationForm(launch.program);
    return launch;
}

bool editorIsThere() {
    const auto launch = launchOf(editorPath());
    return processes().canFind(launch ? launch->program : editorPath());
}

/// The native editor is given the path as other programs of this system write it.
void viewNatively(Launch launch, const std::string& path) {
    const std::string native = files().toNative(path);
    for (std::string_view rest = launch.arguments; !rest.empty();) {
        const SplitText split = splitAtFirst(rest, ' ');
        launch.words.emplace_back(split.before);
        rest = trimLeft(split.behind);
    }
    launch.words.push_back(native);
    launch.arguments += (launch.arguments.empty() ? "" : " ") + native;
    startAndWait(launch);
}

}  // namespace

void SetEditor(EditorCode code) { editor.code = static_cast<int>(code); }

void ViewWithEditor(const std::string& path) {
    if (face().showsTextItself()) return face().showText(path);
    const auto native = nativeEditor();
    const bool isThere = native ? processes().canFind(native->program) : editorIsThere();
    if (!isThere) {
        face().showText(path);
    } else if (native) {
        viewNatively(*native, path);
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
    const std::string path = inProgramFolder("docs\\" + page);
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
    chooseSplitVersion();
    enableScoreHelp();
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
