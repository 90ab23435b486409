#include "centre/start_up.h"

#include "centre/main_panel.h"
#include "centre/panel_place.h"
#include "centre/project_options.h"
#include "shared/function_module.h"
#include "support/test.h"

namespace tul {
namespace {

class StartingUp : public HostTest {
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
    void expectFatal(const Texts& messages) {
        EXPECT_EQ(endOf(StartUp), 1);
        EXPECT_EQ(host.messages, messages);
    }
};

TEST_F(StartingUp, EndsInAStateFromWhichToolsAreCalled) {
    host.write("page.mus", "page");
    writeNames({"page.mus"});
    host.write("TULSTACK.EXE", "x");
    host.write("TULXMLXTRACT.EXE", "x");
    StartUp();
    EXPECT_EQ(host.messages, Texts{});
    EXPECT_EQ(paths.ProgramFolder, host.folder());
    EXPECT_EQ(identity.VersionText, "v8.0.0.200");
    EXPECT_EQ(identity.ProcessorBits, "64");
    EXPECT_EQ(mainPanel.caption, "TUL Control Center - v8.0.0.200");
    EXPECT_EQ(selection.SelectionCount, 1);
    EXPECT_EQ(projectSettings.MusDirectory, host.folder());
    for (const char* button : {"cmsTulStack", "cmdValid"}) EXPECT_TRUE(mainPanel.isEnabled(button)) << button;
    // The extraction needs one of the converters as well.
    for (const char* button : {"cmdTpose", "cmdXMLxtract", "cmdClef"})
        EXPECT_FALSE(mainPanel.isEnabled(button)) << button;
    EXPECT_EQ(monitors.WorkAreaHeight, 1040);
    EXPECT_FALSE(host.exists("TulMonit.TXT"));
    EXPECT_EQ(host.read("TULVERSION.TXT"), "11-21-2026 09:05:07\r\n");
    for (const auto& [key, value] :
         std::map<std::string, std::string>{{"StartTime", "ON 11-21-2026 09:05:07"},
                                            {"OS", "Wx Test"},
                                            {"PT", "64"},
                                            {"InitialFolder", host.folder()}})
        EXPECT_EQ(host.profile["TUL"][key], value) << key;
}

TEST_F(StartingUp, ShowsThePanelOnceItStandsAndThenChecksTheProject) {
    host.write("TULPROJ.PRO", "BypassDecimalTest=0\r\n");
    host.decimalSymbol = ',';
    StartUp();
    EXPECT_EQ(host.events,
              (Texts{"ready", "profile StartTime", "profile OS", "profile PT", "wait", "launch TULMONIT.EXE",
                     "ready", "profile TOP", "profile LEFT", "open frmLogo", "profile InitialFolder",
                     "message Your system has defined the Decimal Symbol as a comma. TUL works "
                     "best if this is a period."}));
    EXPECT_EQ(mainPanel.focus, "cmdProjectOptions");
    EXPECT_EQ(mainPanel.place.height, 6860);

    host.events.clear();
    EXPECT_EQ(endOf(exitProgram), 0);
    EXPECT_EQ(host.events, (Texts{"profile TOP", "profile LEFT", "profile StartTime"}));
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
    if (!host.makeDriveC("")) GTEST_SKIP() << "drive C is the machine's own";
    host.makeFolder("Windows");
    host.write(
        "Windows/WIN.INI",
        "sDate=x\r\n [Intl]\r\nsTime=x\r\n[intl] \r\nsDate=.\r\nsShortDate=yy=M\r\n[other]\r\nsDate=y\r\n");
    StartUp();
    EXPECT_EQ(dateSettings.dateSeparator + dateSettings.timeSeparator + dateSettings.shortDateFormat,
              ".:yy=M");
}

TEST_F(StartingUp, RewritesTheControlFileWithThisExecution) {
    StartUp();
    const std::string text = host.read("TULCNTRL.INI");
    EXPECT_TRUE(
        text.starts_with("[TulVariables]\r\nFirstExecuted=01-02-2020,10:11:12\r\n"
                         "LastExecuted=11-21-2026,09:05:07,DESK,Wx,64\r\nTimesExecuted=8\r\n"
                         "LastVersionExecuted=v8.0.0.200\r\n[UserSettings]\r\nMaxLogRecords=1000\r\n"));
    EXPECT_TRUE(contains(text, "\r\nBypassLibTest1=True\r\n"));
}

TEST_F(StartingUp, IsRefusedToASecondInstance) {
    host.anotherInstance = true;
    expectFatal({"There can only be one instance of TUL"});
    EXPECT_FALSE(host.exists("TULVERSION.TXT"));
}

TEST_F(StartingUp, TellsEveryMissingModuleBeforeItEnds) {
    for (const char* name : {"TULSKORE.EXE", "TULNAMES.EXE", "TULCNTRL.INI"}) host.remove(name);
    expectFatal({"Module TULSKORE.EXE not properly installed", "Module TULNAMES.EXE not properly installed",
                 "Number of installation issues: 2"});
    EXPECT_TRUE(host.exists("TULVERSION.TXT"));
    EXPECT_FALSE(host.exists("TULCNTRL.INI") || host.exists("TULPROJ.PRO"));
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
    EXPECT_TRUE(files().changeFolder("Z:\\"));
    EXPECT_EQ(endOf([] { readTulMonit(); }), 1);
    EXPECT_EQ(
        host.messages.back(),
        "ScoreEngine Dispatcher has lost its start directory.\r\nReport problem to development.\r\nCurrent "
        "directory now is Z:\\");
}

TEST_F(StartingUp, EndsAtMonitorValuesThatCannotBeRead) {
    const auto endWithMonitorFile = [this](const std::string& text) {
        host.programs["TULMONIT.EXE"] = [this, text](const std::string&) {
            host.remove("TulMonit.TXT");
            if (!text.empty()) host.write("TulMonit.TXT", text);
            return 0;
        };
        return host.fatal(StartUp);
    };
    EXPECT_EQ(endWithMonitorFile(""), "Failed to read monitor values");
    EXPECT_EQ(endWithMonitorFile("NumberOfMonitors=x,1\n"), "Format error in TulMonit.TXT (par2).");
    EXPECT_EQ(endWithMonitorFile("NumberOfMonitors=1.5,1\n"), "Format error in TulMonit.TXT (par2).");
    EXPECT_EQ(endWithMonitorFile("NumberOfMonitors=1,x\n"), "Format error in TulMonit.TXT (par3).");
    host.remove("TULMONIT.EXE");
    EXPECT_EQ(host.fatal(StartUp),
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

TEST_F(StartingUp, ThrowsAControlFileOfAnOldOrUnknownBuildAway) {
    for (const char* version : {"v6,0,0,122", "v7.0.0.178", "130"}) {
        host.write("TULCNTRL.INI", controlFile(version));
        EXPECT_EQ(endOf(StartUp), std::nullopt) << version;
    }
    host.write("TULCNTRL.INI", controlFile("v6,0,0,121"));
    expectFatal(
        {"You are now using a TUL Build beyond Build 118 for the first time.\r\nThe previous version you "
         "were using was Build 121\r\nTUL needs to be reconfigured as if it were its first use.\r\nThis "
         "one-time operation takes only a few seconds of your time."});
    EXPECT_FALSE(host.exists("TULCNTRL.INI"));
    for (const std::string& text : {controlFile(""), controlFile("v8.0.0."), crlf({"MaxLogRecords=1000"})}) {
        host.write("TULCNTRL.INI", text);
        EXPECT_EQ(
            host.fatal(StartUp),
            "TULCNTRL.INI was deleted because it could not establish the last version of TUL used.\r\nThis "
            "file must have been corrupted. It will be deleted and you will have to restart TUL and "
            "re-establish this file.");
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
    const auto warning = [this](char symbol, const char* platform) {
        host.messages.clear();
        host.decimalSymbol = symbol;
        host.version.ownText = platform;
        StartUp();
        EXPECT_LE(host.messages.size(), 1U);
        return host.messages.empty() ? "" : host.messages[0];
    };
    EXPECT_TRUE(contains(warning(',', "Wx Test"), "Regional & Language Options"));
    EXPECT_TRUE(contains(warning(',', "98 Test"), "Regional Settings Properties, Number."));
    EXPECT_EQ(warning('.', "ZZ Test"),
              "TUL is not qualified for this platform. Continue at your own risk.\r\nTo avoid output "
              "of this message, set the 'Bypass platform test' option (Set Global options, Other).");
    host.write("TULPROJ.PRO", "BypassPlatformTest=1\r\nPanelPreference=3\r\nStaffRange=200\r\n");
    EXPECT_EQ(warning('.', "ZZ Test"), "");
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
              Texts{"You defined the Score library directory as: \r\nC:\\LIB\r\nwhile the PREF file "
                    "prefix is:\r\nC:\\SCOR4\\LIB\r\nThe PREFerence file path was defined as: \r\n"
                    "C:\\SCOR4\\LIB\\PREF.SCR"});
}

TEST_F(StartingUp, WarnsOfToolsThatNeedTulSystem) {
    for (const char* name : {"TULSPLI5.EXE", "TULSPLI6.EXE"}) host.write(name, "x");
    StartUp();
    EXPECT_TRUE(host.said(
        "TulScore2XML and/or TulSplit require the presence of TulSystem. This utility is missing."));
    EXPECT_TRUE(mainPanel.isEnabled("cmdLogoSplit"));
}

TEST_F(StartingUp, LeadsThroughTheFirstUse) {
    host.remove("TULCNTRL.INI");
    StartUp();
    EXPECT_TRUE(host.messages[0].ends_with(
        "(This message and the following dialog only appear once at program initialization)"));
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

}  // namespace
}  // namespace tul
