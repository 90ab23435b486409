#include "centre/start_up.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/text.h"
#include "centre/main_panel.h"
#include "centre/panel_place.h"
#include "centre/project_options.h"
#include "shared/function_module.h"
#include "shared/records.h"
#include "support/scripted_host.h"
#include "support/test_place.h"

namespace tul {
namespace {

using testing::crlf;
using testing::endOf;
using testing::ScriptedHost;

class StartingUp : public ::testing::Test {
  protected:
    StartingUp() {
        paths = {};
        host.install();
        host.write("TULCNTRL.INI", controlFile("v8.0.0.200"));
    }

    static std::string controlFile(const std::string& version, const std::string& more = {}) {
        return crlf({"[TulVariables]", "FirstExecuted=01-02-2020,10:11:12", "TimesExecuted=7",
                     "LastVersionExecuted=" + version, "[UserSettings]", "MaxLogRecords=1000",
                     "NotepadPath=notepad.exe", "BypassLibTest1=True"}) +
               more;
    }
    bool said(const std::string& text) const {
        return std::find(host.messages.begin(), host.messages.end(), text) != host.messages.end();
    }
    void expectFatal(const std::vector<std::string>& messages) {
        EXPECT_EQ(endOf(StartUp), 1);
        EXPECT_EQ(host.messages, messages);
    }

    ScriptedHost host;
};

TEST_F(StartingUp, EndsInAStateFromWhichToolsAreCalled) {
    host.write("page.mus", "page");
    host.write("NAMES.TUL", crlf({host.path("page.mus") + " 1"}));
    host.write("TULSTACK.EXE", "x");
    host.write("TULXMLXTRACT.EXE", "x");
    StartUp();
    EXPECT_EQ(host.messages, std::vector<std::string>{});
    EXPECT_EQ(paths.ProgramFolder, host.folder());
    EXPECT_EQ(identity.VersionText, "v8.0.0.200");
    EXPECT_EQ(identity.ProcessorBits, "64");
    EXPECT_EQ(mainPanel.caption, "TUL Control Center - v8.0.0.200");
    EXPECT_EQ(selection.SelectionCount, 1);
    EXPECT_EQ(projectSettings.StaffRange, 32);
    EXPECT_EQ(projectSettings.MusDirectory, host.folder());
    EXPECT_TRUE(mainPanel.isEnabled("cmsTulStack"));
    EXPECT_TRUE(mainPanel.isEnabled("cmdValid"));
    EXPECT_FALSE(mainPanel.isEnabled("cmdTpose"));
    EXPECT_FALSE(mainPanel.isEnabled("cmdXMLxtract")) << "it needs one of the converters as well";
    EXPECT_FALSE(mainPanel.isEnabled("cmdClef"));
    EXPECT_EQ(monitors.WorkAreaHeight, 1040);
    EXPECT_FALSE(host.exists("TulMonit.TXT"));
    EXPECT_EQ(host.read("TULVERSION.TXT"), "11-21-2026 09:05:07\r\n");
    EXPECT_EQ(host.opened, std::vector<std::string>{"frmLogo"});
    auto& profile = host.profile["TUL"];
    EXPECT_EQ(profile["StartTime"], "ON 11-21-2026 09:05:07");
    EXPECT_EQ(profile["OS"], "Wx Test");
    EXPECT_EQ(profile["PT"], "64");
    EXPECT_EQ(profile["InitialFolder"], host.folder());
}

TEST_F(StartingUp, ShowsThePanelOnceItStandsAndThenChecksTheProject) {
    host.write("TULPROJ.PRO", "BypassDecimalTest=0\r\n");
    host.decimalSymbol = ',';
    StartUp();
    EXPECT_EQ(host.events,
              (std::vector<std::string>{
                  "ready", "profile StartTime", "profile OS", "profile PT", "wait", "launch TULMONIT.EXE",
                  "ready", "profile TOP", "profile LEFT", "open frmLogo", "profile InitialFolder",
                  "message Your system has defined the Decimal Symbol as a comma. TUL works "
                  "best if this is a period."}));
    EXPECT_EQ(mainPanel.focus, "cmdProjectOptions");
    EXPECT_EQ(mainPanel.place.height, 6860);

    host.events.clear();
    EXPECT_EQ(endOf(exitProgram), 0);
    EXPECT_EQ(host.events, (std::vector<std::string>{"profile TOP", "profile LEFT", "profile StartTime"}));
}

TEST_F(StartingUp, EnablesTheMenusByWhatIsLinked) {
    host.write("TULINPUT.EXE", "x");
    StartUp();
    for (const char* entry : {"mnuVersion", "mnuScoreEngine", "cmdLascor", "cmdMidiScor", "cmdLogoInput"})
        EXPECT_FALSE(mainPanel.isEnabled(entry)) << entry;
    EXPECT_TRUE(mainPanel.isEnabled("mnuHelp"));
    EXPECT_FALSE(mainPanel.preProcessVisible);

    for (const char* name : {"TULVERSION.EXE", "TULSPLIP.EXE", "TULINPUT.TXT", "TULC.EXE", "LINK.EXE"})
        host.write(name, "x");
    const std::string link = "=" + host.path("LINK.EXE") + "\r\n";
    host.write("TULCNTRL.INI", controlFile("v8.0.0.200", "ScoreEngineProgramPath" + link + "LascorPath" +
                                                             link + "MidiScorPath" + link));
    StartUp();
    for (const char* entry : {"mnuVersion", "mnuScoreEngine", "cmdLascor", "cmdMidiScor", "cmdLogoInput"})
        EXPECT_TRUE(mainPanel.isEnabled(entry)) << entry;
    EXPECT_TRUE(mainPanel.preProcessVisible);
    EXPECT_EQ(mainPanel.cmdLogoInputCaption, "TulInput");
    host.write("TULINPUTW.EXE", "x");
    StartUp();
    EXPECT_EQ(mainPanel.cmdLogoInputCaption, "TulInputW");
    EXPECT_FALSE(mainPanel.isEnabled("cmdLogoInput")) << "the later test wins";
}

TEST_F(StartingUp, TakesTheDateFormFromTheSystem) {
    if (!testing::takeAsDriveC(host.nativeFolder())) GTEST_SKIP() << "drive C is the machine's own";
    std::filesystem::create_directory(host.nativeFolder() / "Windows");
    host.write(
        "Windows/WIN.INI",
        "sDate=x\r\n [Intl]\r\nsTime=x\r\n[intl] \r\nsDate=.\r\nsShortDate=yy=M\r\n[other]\r\nsDate=y\r\n");
    StartUp();
    EXPECT_EQ(dateSettings.dateSeparator, ".");
    EXPECT_EQ(dateSettings.timeSeparator, ":");
    EXPECT_EQ(dateSettings.shortDateFormat, "yy=M");
}

TEST_F(StartingUp, RewritesTheControlFileWithThisExecution) {
    StartUp();
    const std::string text = host.read("TULCNTRL.INI");
    EXPECT_TRUE(
        text.starts_with("[TulVariables]\r\nFirstExecuted=01-02-2020,10:11:12\r\n"
                         "LastExecuted=11-21-2026,09:05:07,DESK,Wx,64\r\nTimesExecuted=8\r\n"
                         "LastVersionExecuted=v8.0.0.200\r\n[UserSettings]\r\nMaxLogRecords=1000\r\n"));
    EXPECT_NE(text.find("\r\nBypassLibTest1=True\r\n"), std::string::npos);
}

TEST_F(StartingUp, IsRefusedToASecondInstance) {
    host.anotherInstance = true;
    expectFatal({"There can only be one instance of TUL"});
    EXPECT_FALSE(host.exists("TULVERSION.TXT"));
}

TEST_F(StartingUp, TellsEveryMissingModuleBeforeItEnds) {
    std::filesystem::remove(host.nativeFolder() / "TULSKORE.EXE");
    std::filesystem::remove(host.nativeFolder() / "TULNAMES.EXE");
    std::filesystem::remove(host.nativeFolder() / "TULCNTRL.INI");
    expectFatal({"Module TULSKORE.EXE not properly installed", "Module TULNAMES.EXE not properly installed",
                 "Number of installation issues: 2"});
    EXPECT_TRUE(host.exists("TULVERSION.TXT"));
    EXPECT_FALSE(host.exists("TULCNTRL.INI"));
    EXPECT_FALSE(host.exists("TULPROJ.PRO"));
    EXPECT_TRUE(host.opened.empty()) << "the panel is never shown";
}

TEST_F(StartingUp, EndsInAFolderThatCannotBeWritten) {
    host.faultyFiles().refusals["TULVERSION.TXT"] = FileError::permissionDenied;
    expectFatal(
        {"You are running on Windows Wx Test\r\nUser Account Control prohibits writing in the current "
         "folder: " +
         host.folder() + "\r\nTUL needs to terminate."});
    host.messages.clear();
    host.version.ownText = "XP Test";
    EXPECT_EQ(endOf(StartUp), std::nullopt) << "Windows XP is not tested";
}

TEST_F(StartingUp, EndsInTheRootOfADrive) {
    files().changeFolder("Z:\\");
    EXPECT_EQ(endOf([] { readTulMonit(); }), 1);
    EXPECT_EQ(
        host.messages.back(),
        "ScoreEngine Dispatcher has lost its start directory.\r\nReport problem to development.\r\nCurrent "
        "directory now is Z:\\");
}

TEST_F(StartingUp, EndsAtMonitorValuesThatCannotBeRead) {
    const auto endWithMonitorFile = [this](const std::string& text) {
        host.messages.clear();
        host.programs["TULMONIT.EXE"] = [this, text](const std::string&) {
            if (!text.empty()) host.write("TulMonit.TXT", text);
            return 0;
        };
        EXPECT_EQ(endOf(StartUp), 1) << text;
        std::filesystem::remove(host.nativeFolder() / "TulMonit.TXT");
        return host.messages.empty() ? "" : host.messages.back();
    };
    EXPECT_EQ(endWithMonitorFile(""), "Failed to read monitor values");
    EXPECT_EQ(endWithMonitorFile("NumberOfMonitors=x,1\n"), "Format error in TulMonit.TXT (par2).");
    EXPECT_EQ(endWithMonitorFile("NumberOfMonitors=1.5,1\n"), "Format error in TulMonit.TXT (par2).");
    EXPECT_EQ(endWithMonitorFile("NumberOfMonitors=1,x\n"), "Format error in TulMonit.TXT (par3).");
    std::filesystem::remove(host.nativeFolder() / "TULMONIT.EXE");
    EXPECT_EQ(endWithMonitorFile(""),
              "Installation problem. File TULMONIT.EXE not located: " + host.path("TULMONIT.EXE"));
}

TEST_F(StartingUp, ReadsMonitorValuesInBothForms) {
    host.programs["TULMONIT.EXE"] = [this](const std::string&) {
        host.write("TulMonit.TXT",
                   "* x=y,z\r\n\r\nnumberofmonitors = 9\r\nNUMBEROFMONITORS=4, 2 \r\n"
                   "WorkAreaHeight= 1049.5\r\nOther=a\r\nCurrentMonitorRight=-1920");
        return 0;
    };
    readTulMonit();
    EXPECT_EQ(monitors.MonitorCount, 2) << "a key is taken up to the equals sign, blanks included";
    EXPECT_EQ(monitors.WorkAreaHeight, 1050);
    EXPECT_EQ(monitors.MonitorRight, -1920);
}

TEST_F(StartingUp, ThrowsAnOldControlFileAway) {
    host.write("TULCNTRL.INI", controlFile("v6,0,0,121"));
    expectFatal(
        {"You are now using a TUL Build beyond Build 118 for the first time.\r\nThe previous version you "
         "were "
         "using was Build 121\r\nTUL needs to be reconfigured as if it were its first use.\r\nThis one-time "
         "operation takes only a few seconds of your time."});
    EXPECT_FALSE(host.exists("TULCNTRL.INI"));
}

TEST_F(StartingUp, KeepsAControlFileFromTheOldestUsableBuildOn) {
    for (const char* version : {"v6,0,0,122", "v7.0.0.178", "130"}) {
        host.write("TULCNTRL.INI", controlFile(version));
        EXPECT_EQ(endOf(StartUp), std::nullopt) << version;
    }
}

TEST_F(StartingUp, ThrowsAControlFileWithoutABuildAway) {
    for (const std::string& text : {controlFile(""), controlFile("v8.0.0."), crlf({"MaxLogRecords=1000"})}) {
        host.messages.clear();
        host.write("TULCNTRL.INI", text);
        expectFatal(
            {"TULCNTRL.INI was deleted because it could not establish the last version of TUL used.\r\nThis "
             "file must have been corrupted. It will be deleted and you will have to restart TUL and "
             "re-establish this file."});
        EXPECT_FALSE(host.exists("TULCNTRL.INI"));
    }
}

TEST_F(StartingUp, KeepsTheLimitOfTheLogAboveAHundred) {
    host.write("TULCNTRL.INI", controlFile("v8.0.0.200", "MaxLogRecords=100\r\n"));
    expectFatal({"MaxLogRecords value in TulCntrl.ini is 100 or less.\r\nMust be be >100."});
    host.messages.clear();
    host.write("TULCNTRL.INI", controlFile("v8.0.0.200", "MaxLogRecords=101\r\n"));
    EXPECT_EQ(endOf(StartUp), std::nullopt);
}

TEST_F(StartingUp, WarnsOfADecimalCommaAndOfAnUnknownPlatform) {
    host.decimalSymbol = ',';
    StartUp();
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_NE(host.messages[0].find("Regional & Language Options"), std::string::npos);

    host.messages.clear();
    host.version.ownText = "98 Test";
    StartUp();
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_NE(host.messages[0].find("Regional Settings Properties, Number."), std::string::npos);

    host.messages.clear();
    host.version.ownText = "ZZ Test";
    StartUp();
    EXPECT_EQ(host.messages,
              std::vector<std::string>{
                  "TUL is not qualified for this platform. Continue at your own risk.\r\nTo avoid output "
                  "of this message, set the 'Bypass platform test' option (Set Global options, Other)."});
    host.messages.clear();
    host.write("TULPROJ.PRO", "BypassPlatformTest=1\r\nPanelPreference=3\r\nStaffRange=200\r\n");
    StartUp();
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(mainPanel.tabLogo, 0);
    EXPECT_EQ(projectSettings.StaffRange, 200);
}

TEST_F(StartingUp, ComparesTheLibraryFolders) {
    host.write("TULCNTRL.INI",
               controlFile("v8.0.0.200", "libPath=c:\\lib\r\nPreferenceFilePath=C:\\LIB\\PREF.SCR\r\n"));
    StartUp();
    EXPECT_TRUE(host.messages.empty()) << "letter case does not matter";
    EXPECT_EQ(mainPanel.cmdAnlibTip, "Analyze SCORE libraries. The current library folder is C:\\LIB. ");
    host.write(
        "TULCNTRL.INI",
        controlFile("v8.0.0.200", "libPath=C:\\LIB\r\nPreferenceFilePath=C:\\SCOR4\\LIB\\PREF.SCR\r\n"));
    StartUp();
    EXPECT_EQ(host.messages,
              std::vector<std::string>{
                  "You defined the Score library directory as: \r\nC:\\LIB\r\nwhile the PREF file "
                  "prefix is:\r\nC:\\SCOR4\\LIB\r\nThe PREFerence file path was defined as: \r\n"
                  "C:\\SCOR4\\LIB\\PREF.SCR"});
}

TEST_F(StartingUp, WarnsOfToolsThatNeedTulSystem) {
    for (const char* name : {"TULSPLI5.EXE", "TULSPLI6.EXE"}) host.write(name, "x");
    StartUp();
    EXPECT_TRUE(
        said("TulScore2XML and/or TulSplit require the presence of TulSystem. This utility is missing."));
    EXPECT_TRUE(mainPanel.isEnabled("cmdLogoSplit"));
}

TEST_F(StartingUp, LeadsThroughTheFirstUse) {
    std::filesystem::remove(host.nativeFolder() / "TULCNTRL.INI");
    StartUp();
    EXPECT_TRUE(host.messages[0].ends_with(
        "(This message and the following dialog only appear once at program initialization)"));
    EXPECT_TRUE(said(
        "Neither SCORE/SCOR4 nor WinScore was selected. This is exceptional but entirely possible.\r\nIf "
        "you want to link any of these programs, delete file TULCNTRL.INI and start TUL again."));
    EXPECT_EQ(machineSettings.NotepadPath, "notepad.exe");
    EXPECT_TRUE(machineSettings.BypassLibTest1);
    EXPECT_TRUE(host.read("TULPROJ.PRO")
                    .starts_with("* Global TUL Options settings - generated 11-21-2026 at 09:05:07 by "
                                 "v8.0.0.200\r\nDisplayOptions=NO\r\n"));
}

TEST_F(StartingUp, PlacesThePanelWhereItWasOrInTheMiddle) {
    PanelPlace place;
    positionPanel(place);
    EXPECT_EQ(place.left, (15360 - 9000) / 2);
    EXPECT_EQ(place.top, (11520 - 6660) / 2);
    EXPECT_EQ(host.profile["TUL"]["LEFT"], "3180");
    EXPECT_EQ(mainPanel.cmdMinimizeTip, "Top = 2430, Left = 3180.");

    host.profile["TUL"] = {{"TOP", "-30"}, {"LEFT", "28800"}};
    positionPanel(place);
    EXPECT_EQ(place.left, 28800) << "exactly at the right edge of the monitor it stays";
    EXPECT_EQ(place.top, -30);
    EXPECT_TRUE(host.messages.empty());

    host.profile["TUL"]["LEFT"] = "28801";
    positionPanel(place);
    EXPECT_EQ(place.left, 3180);
    EXPECT_EQ(host.messages.back(), "Lost coordinates of TUL panel from a multi-monitor session. Centered.");
}

TEST_F(StartingUp, LooksAtTheOldFolderWhenAnotherIsMissing) {
    EXPECT_TRUE(FolderExists(host.folder()));
    EXPECT_TRUE(FolderExists("Z:\\no such folder"));
    EXPECT_EQ(files().currentFolder(), host.folder());
    EXPECT_TRUE(FileExists(host.path("TULOLE.EXE")));
    EXPECT_FALSE(FileExists(host.folder() + "\\\\TULOLE.EXE"));
}

TEST_F(StartingUp, CutsProfileValues) {
    SaveProfileValue("InitialFolder", std::string(40, 'x'));
    EXPECT_EQ(GetProfileValue("InitialFolder"), std::string(32, 'x'));
}

}  // namespace
}  // namespace tul
