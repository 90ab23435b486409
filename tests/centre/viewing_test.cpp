#include "centre/viewing.h"

#include "centre/main_panel.h"
#include "support/test.h"

namespace tul {
namespace {

class Viewing : public HostTest {
  protected:
    Viewing() {
        machineSettings.NotepadPath = "notepad.exe";
        machineSettings.WordpadPath = "C:\\Write\\wordpad.exe";
        SetEditor(EditorCode::notepad);
        host.write("report.prn", "one\r\ntwo\r\n");
        host.write("music.mus", std::string("\x13\x00\x01", 3));
        host.write("TULPROJ.PRO", "MusDirectory=" + host.folder() + "\r\n");
    }
};

TEST_F(Viewing, TakesTheChosenEditorWhereItCanBeFound) {
    host.showsTextItself = false;
    ViewWithEditor(host.path("report.prn"));
    EXPECT_TRUE(host.launches.empty());
    EXPECT_EQ(host.shown, Texts{"one\r\ntwo\r\n"}) << "without an editor the face shows it";
    machineSettings.NotepadPath = "gedit";
    ViewWithEditor(host.path("report.prn"));
    EXPECT_EQ(host.shown.size(), 2U) << "what cannot be run is not there";
    host.mayRun("wordpad.exe");
    SetEditor(EditorCode::wordpad);
    ViewWithEditor(host.path("report.prn"));
    EXPECT_EQ(host.launches, Texts{"wordpad.exe " + files().shortName(host.path("report.prn"))});
    EXPECT_EQ(host.shown.size(), 2U);
}

TEST_F(Viewing, CallsAnEditorOfThisSystemByItsOwnName) {
    host.showsTextItself = false;
    const std::string nano = *files().fromNative("/usr/bin/nano");
    const std::string native = files().toNative(host.path("report.prn"));
    for (const auto& [editor, program, launch] :
         std::vector<std::tuple<std::string, std::string, std::string>>{
             {"gedit --wait", "gedit", "gedit --wait " + native},
             {"my editor", "my editor", "my editor " + native},
             {"/usr/bin/nano", "nano", nano + " " + native},
             {nano, "nano", nano + " " + native}}) {
        host.mayRun(program);
        machineSettings.NotepadPath = editor;
        ViewWithEditor(host.path("report.prn"));
        EXPECT_EQ(host.launches.back(), launch);
    }
    EXPECT_TRUE(host.shown.empty());
    host.version.ownText = "";
    EXPECT_EQ(host.fatal([] { ViewWithEditor("report.prn"); }).substr(0, 19), "ShellAndWait error:")
        << "on Windows all editors are called alike";
}

TEST_F(Viewing, FillsTheBuiltInViewer) {
    host.frontCaption = "TUL";
    ViewInPanel(host.path("gone.txt"));
    EXPECT_EQ(host.messages.back(), "View via Tul viewer of non-existing file: " + host.path("gone.txt"));
    ViewInPanel(host.path("report.prn"));
    EXPECT_EQ(host.opened, Texts{"frmNotepad"});
    EXPECT_EQ(notepadPanel.caption, host.path("report.prn") + " - file TUL");
    EXPECT_EQ(notepadPanel.lstTulboard.entries, (Texts{"one", "two"}));
}

TEST_F(Viewing, TakesOverHandEditedSettings) {
    host.write("TULCNTRL.INI",
               "MaxLogRecords=500\r\nPreferenceFilePath=C:\\LIB\\PREF.SCR\r\nlibPath=C:\\LIB\r\n");
    ViewInPanel(host.path("TULCNTRL.INI"));
    editNotepadFile();
    EXPECT_EQ(machineSettings.MaxLogRecords, 500);
    EXPECT_EQ(mainPanel.cmdAnlibTip, "Analyze SCORE libraries. The current library folder is C:\\LIB. ");
    EXPECT_TRUE(notepadPanel.closed);
    EXPECT_FALSE(mainPanel.isEnabled("mnuHelpScore"));
    host.mayRun("SHOW.EXE");
    host.write("TULCNTRL.INI", "MaxLogRecords=500\r\nhlpPath=SHOW.EXE\r\n");
    editNotepadFile();
    EXPECT_TRUE(mainPanel.isEnabled("mnuHelpScore"));
}

TEST_F(Viewing, ListsTextFilesByTheirFirstBytes) {
    host.write("empty.txt", "");
    host.write("late.bin", std::string(250, 'x') + "\x01");
    host.write("early.bin", std::string(249, 'x') + "\x13");
    host.write("low.txt", "\x14\t\r\n\xFF");
    host.makeFolder("folder.txt");
    SeeTextFile();
    EXPECT_EQ(mainPanel.lstTextFiles.entries,
              (Texts{"TULPROJ.PRO", "empty.txt", "late.bin", "low.txt", "report.prn"}));
    EXPECT_TRUE(mainPanel.lstTextFiles.visible);
    EXPECT_FALSE(mainPanel.tabsVisible);
    chooseTextFile("report.prn");
    EXPECT_EQ(notepadPanel.path, host.path("report.prn"));
    chooseTextFile("");
    EXPECT_FALSE(mainPanel.lstTextFiles.visible);
    EXPECT_TRUE(mainPanel.tabsVisible);
}

TEST_F(Viewing, TellsWhereNoTextFilesAre) {
    host.makeFolder("empty");
    host.write("TULPROJ.PRO", "MusDirectory=" + host.path("empty") + "\r\n");
    SeeTextFile();
    EXPECT_EQ(host.messages.back(), "There are no text files in directory:\r\n" + host.path("empty"));
    EXPECT_TRUE(mainPanel.tabsVisible);
    host.write("TULPROJ.PRO", "MusDirectory=\r\n");
    SeeTextFile();
    EXPECT_EQ(host.messages.back(),
              "This functions requires that the initial folder is set. Set global option");
    host.remove("TULPROJ.PRO");
    EXPECT_EQ(host.fatal(SeeTextFile), "Project options [" + host.path("TULPROJ.PRO") +
                                           "] could not be opened for input. Hit Enter to abort");
}

}  // namespace
}  // namespace tul
