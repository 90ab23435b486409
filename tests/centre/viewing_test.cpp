#include "centre/viewing.h"

#include <gtest/gtest.h>

#include "centre/launching.h"
#include "centre/main_panel.h"
#include "shared/records.h"
#include "support/scripted_host.h"

namespace tul {
namespace {

using testing::endOf;
using testing::ScriptedHost;

TEST(Launching, RunsAProgramByItsFileName) {
    ScriptedHost host;
    host.programs["TULRECOV.EXE"] = [](const std::string&) { return 255; };
    ShellAndWait("Z:\\TUL\\TULRECOV.EXE Z:\\A.EXE.MUS 12");
    EXPECT_EQ(host.launches.back(), "TULRECOV.EXE Z:\\A.EXE.MUS 12");
    EXPECT_TRUE(host.messages.empty()) << "a utility's own failure is not seen";
}

TEST(Launching, DoublesACharacterOfScoresArgumentsOnWindows2000) {
    ScriptedHost host;
    host.programs["SCORE.EXE"] = [](const std::string&) { return 0; };
    identity.OsCode = "2K Test";
    ShellAndWait("C:\\SCORE\\SCORE.EXE ABC");
    EXPECT_EQ(host.launches.back(), "SCORE.EXE AABC");
}

TEST(Launching, FindsTheEndOfAProgramInAnyFolder) {
    ScriptedHost host;
    host.programs["TULFOLDR.EXE"] = [](const std::string&) { return 0; };
    host.programs["TULNAMES.EXE"] = [](const std::string&) { return 0; };
    ShellAndWait("Z:\\m.exeter\\TULFOLDR.EXE FILE=A");
    EXPECT_EQ(host.launches.back(), "TULFOLDR.EXE FILE=A");
    ShellAndWait("Z:\\j.bates\\TULNAMES.EXE FILE=A");
    EXPECT_EQ(host.launches.back(), "Z:\\j.bates\\TULNAMES.EXE FILE=A");
    ShellAndWait("Z:\\ScoreEngine\\TULFOLDR.EXE FILE=A");
    EXPECT_EQ(host.launches.back(), "Z:\\ScoreEngine\\TULFOLDR.EXE FILE=A");
    EXPECT_TRUE(host.messages.empty());
}

TEST(Launching, StartsBatchFilesDirectlyAndEndsWhenThatFails) {
    ScriptedHost host;
    host.programs["GO.BAT"] = [](const std::string&) { return 0; };
    ShellAndWait("Z:\\TUL\\GO.BAT 1 2");
    EXPECT_EQ(host.launches.back(), "Z:\\TUL\\GO.BAT 1 2");
    host.programs["GO.BAT"] = [](const std::string&) { return -1; };
    EXPECT_EQ(endOf([] { ShellAndWait("Z:\\TUL\\GO.BAT 1 2"); }), 1);
    EXPECT_EQ(host.messages.back(), "Failed to execute Z:\\TUL\\GO.BAT 1 2");
}

TEST(Launching, EndsAtACommandThatNamesNoProgram) {
    ScriptedHost host;
    EXPECT_EQ(endOf([] { ShellAndWait("gedit Z:\\A.TXT"); }), 1);
    EXPECT_EQ(host.messages.back(),
              "ShellAndWait error: gedit Z:\\A.TXT\r\nAssure that TUL knows where NOTEPAD/WORDPAD are.");
}

class Viewing : public ::testing::Test {
  protected:
    Viewing() {
        machineSettings.NotepadPath = "notepad.exe";
        machineSettings.WordpadPath = "C:\\Write\\wordpad.exe";
        SetEditor(EditorCode::notepad);
        host.write("report.prn", "one\r\ntwo\r\n");
        host.write("music.mus", std::string("\x13\x00\x01", 3));
        host.write("TULPROJ.PRO", "MusDirectory=" + host.folder() + "\r\n");
    }
    ScriptedHost host;
};

TEST_F(Viewing, TakesTheChosenEditorWhereItCanBeFound) {
    host.showsTextItself = false;
    ViewWithEditor(host.path("report.prn"));
    EXPECT_TRUE(host.launches.empty());
    EXPECT_EQ(host.shown, std::vector<std::string>{"one\r\ntwo\r\n"})
        << "without an editor the face shows it";
    machineSettings.NotepadPath = "gedit";
    ViewWithEditor(host.path("report.prn"));
    EXPECT_EQ(host.shown.size(), 2U) << "what cannot be run is not there";
    host.programs["wordpad.exe"] = [](const std::string&) { return 0; };
    SetEditor(EditorCode::wordpad);
    ViewWithEditor(host.path("report.prn"));
    EXPECT_EQ(host.launches, std::vector<std::string>{"wordpad.exe " + host.path("report.prn")});
    EXPECT_EQ(host.shown.size(), 2U);
}

TEST_F(Viewing, FillsTheBuiltInViewer) {
    host.frontCaption = "TUL";
    ViewInPanel(host.path("gone.txt"));
    EXPECT_EQ(host.messages.back(), "View via Tul viewer of non-existing file: " + host.path("gone.txt"));
    ViewInPanel(host.path("report.prn"));
    EXPECT_EQ(host.opened, std::vector<std::string>{"frmNotepad"});
    EXPECT_EQ(notepadPanel.caption, host.path("report.prn") + " - file TUL");
    EXPECT_EQ(notepadPanel.lstTulboard.entries, (std::vector<std::string>{"one", "two"}));
}

TEST_F(Viewing, TakesOverHandEditedSettings) {
    host.write("TULCNTRL.INI",
               "MaxLogRecords=500\r\nPreferenceFilePath=C:\\LIB\\PREF.SCR\r\nlibPath=C:\\LIB\r\n");
    ViewInPanel(host.path("TULCNTRL.INI"));
    editNotepadFile();
    EXPECT_EQ(machineSettings.MaxLogRecords, 500);
    EXPECT_EQ(mainPanel.cmdAnlibTip, "Analyze SCORE libraries. The current library folder is C:\\LIB. ");
    EXPECT_TRUE(notepadPanel.closed);
}

TEST_F(Viewing, ListsTextFilesByTheirFirstBytes) {
    host.write("empty.txt", "");
    host.write("late.bin", std::string(250, 'x') + "\x01");
    host.write("early.bin", std::string(249, 'x') + "\x13");
    host.write("low.txt", "\x14\t\r\n\xFF");
    std::filesystem::create_directory(host.nativeFolder() / "folder.txt");
    SeeTextFile();
    EXPECT_EQ(mainPanel.lstTextFiles.entries,
              (std::vector<std::string>{"TULPROJ.PRO", "empty.txt", "late.bin", "low.txt", "report.prn"}));
    EXPECT_TRUE(mainPanel.lstTextFiles.visible);
    EXPECT_FALSE(mainPanel.tabsVisible);
    chooseTextFile("report.prn");
    EXPECT_EQ(notepadPanel.path, host.path("report.prn"));
    chooseTextFile("");
    EXPECT_FALSE(mainPanel.lstTextFiles.visible);
    EXPECT_TRUE(mainPanel.tabsVisible);
}

TEST_F(Viewing, TellsWhereNoTextFilesAre) {
    std::filesystem::create_directory(host.nativeFolder() / "empty");
    host.write("TULPROJ.PRO", "MusDirectory=" + host.path("empty") + "\r\n");
    SeeTextFile();
    EXPECT_EQ(host.messages.back(), "There are no text files in directory:\r\n" + host.path("empty"));
    EXPECT_TRUE(mainPanel.tabsVisible);
    host.write("TULPROJ.PRO", "MusDirectory=\r\n");
    SeeTextFile();
    EXPECT_EQ(host.messages.back(),
              "This functions requires that the initial folder is set. Set global option");
    std::filesystem::remove(host.nativeFolder() / "TULPROJ.PRO");
    EXPECT_EQ(endOf(SeeTextFile), 1);
    EXPECT_EQ(host.messages.back(), "Project options [" + host.path("TULPROJ.PRO") +
                                        "] could not be opened for input. Hit Enter to abort");
}

}  // namespace
}  // namespace tul
