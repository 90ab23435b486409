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
    /// What a start with these lines in the control file says; it goes on.
    Texts startWith(const std::string& more) {
        host.write("TULCNTRL.INI", controlFile("v8.0.0.200", more));
        host.messages.clear();
        EXPECT_EQ(endOf(StartUp), std::nullopt);
        return host.messages;
    }
    void expectEnabled(bool enabled) {
        for (const char* entry : {"mnuVersion", "mnuScoreEngine", "mnuHelpScore", "cmdLascor", "cmdMidiScor",
                                  "cmdLogoInput", "cmdLogoSplit"})
            EXPECT_EQ(mainPanel.isEnabled(entry), enabled) << entry;
        EXPECT_EQ(mainPanel.preProcessVisible, enabled);
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
    EXPECT_TRUE(
        contains(host.read("TULCNTRL.INI"), "\r\nTimesExecuted=8\r\nLastVersionExecuted=v8.0.0.200\r\n"));
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

TEST_F(StartingUp, EnablesByWhatIsInstalledAndLinked) {
    host.write("TULINPUT.EXE", "x");
    host.write("CODE01.HLP", "x");
    EXPECT_EQ(startWith("hlpPath=" + host.path("CODE01.HLP") + "\r\n"), Texts());
    expectEnabled(false);
    EXPECT_TRUE(mainPanel.isEnabled("mnuHelp"));

    for (const char* name : {"TULVERSION.EXE", "TULSPLIP.EXE", "TULINPUT.TXT", "TULC.EXE", "LINK.EXE",
                             "TULSPLI5.EXE", "TULSPLI6.EXE"})
        host.write(name, "x");
    host.mayRun("SHOW.EXE");
    const std::string link = "=" + host.path("LINK.EXE") + "\r\n";
    EXPECT_EQ(
        startWith("ScoreEngineProgramPath" + link + "LascorPath" + link + "MidiScorPath" + link +
                  "hlpPath=C:\\GONE\\SHOW.EXE A\r\n"),
        Texts{"TulScore2XML and/or TulSplit require the presence of TulSystem. This utility is missing."});
    expectEnabled(true);
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

TEST_F(StartingUp, TellsEveryMissingModuleBeforeItEnds) {
    for (const char* name : {"TULSKORE.EXE", "TULNAMES.EXE", "TULCNTRL.INI"}) host.remove(name);
    EXPECT_EQ(host.fatal(StartUp), "Number of installation issues: 2");
    EXPECT_EQ(host.messages.size(), 3U);
    EXPECT_TRUE(host.exists("TULVERSION.TXT"));
    EXPECT_FALSE(host.exists("TULCNTRL.INI") || host.exists("TULPROJ.PRO"));
    EXPECT_TRUE(host.opened.empty()) << "the panel is never shown";
}

TEST_F(StartingUp, EndsWhereItCannotGoOn) {
    auto& refusals = host.faultyFiles().refusals;
    const auto monitor = [this](const std::string& text) {
        return [this, text] {
            host.mayRun("TULMONIT.EXE", [this, text] {
                if (!text.empty()) host.write("TulMonit.TXT", text);
            });
        };
    };
    const auto control = [this](const std::string& text) {
        return [this, text] { host.write("TULCNTRL.INI", text); };
    };
    const char* const unknown = "could not establish the last version of TUL used";
    const std::vector<std::pair<std::function<void()>, const char*>> ends = {
        {[&] { host.anotherInstance = true; }, "There can only be one instance of TUL"},
        {[&] { refusals["TULVERSION.TXT"] = FileError::permissionDenied; },
         "\r\nUser Account Control prohibits"},
        {[&] {
             refusals["TULVERSION.TXT"] = FileError::readOnly;
             host.write("TULVERSION.TXT", "of the last start");
         },
         "The file TULVERSION.TXT in the folder"},
        {[&] {
             for (const char* name : {"TULVERSION.TXT", "TULWRITE.TMP"}) refusals[name] = FileError::readOnly;
         },
         "\r\nUser Account Control prohibits"},
        {monitor(""), "Failed to read monitor values"},
        {monitor("NumberOfMonitors=x,1\n"), "Format error in TulMonit.TXT (par2)."},
        {monitor("NumberOfMonitors=1.5,1\n"), "Format error in TulMonit.TXT (par2)."},
        {monitor("NumberOfMonitors=1,x\n"), "Format error in TulMonit.TXT (par3)."},
        {[&] { host.remove("TULMONIT.EXE"); }, "File TULMONIT.EXE not located: "},
        {control(controlFile("v8.0.0.200", "MaxLogRecords=100\r\n")), "100 or less.\r\nMust be be >100."},
        {control(controlFile("v6,0,0,121")), "were using was Build 121\r\n"},
        {control(controlFile("")), unknown},
        {control(controlFile("v8.0.0.")), unknown},
        {control("MaxLogRecords=1000\r\n"), unknown},
    };
    for (const auto& [prepare, message] : ends) {
        refusals.clear();
        host.remove("TulMonit.TXT");
        host.install();
        host.write("TULCNTRL.INI", controlFile("v8.0.0.200"));
        prepare();
        EXPECT_TRUE(contains(host.fatal(StartUp), message));
        host.anotherInstance = false;
    }
    EXPECT_FALSE(host.exists("TULCNTRL.INI")) << "the next start makes it anew";
    EXPECT_FALSE(host.exists("TULWRITE.TMP"));
    files().enterIfThere("Z:\\");
    EXPECT_TRUE(host.fatal(readTulMonit).ends_with("Current directory now is Z:\\"));
}

TEST_F(StartingUp, TestsNoWritingOnWindowsXp) {
    host.faultyFiles().refusals["TULVERSION.TXT"] = FileError::permissionDenied;
    host.version.ownText = "XP Test";
    EXPECT_EQ(startWith(""), Texts());
}

TEST_F(StartingUp, ReadsMonitorValuesInBothForms) {
    host.mayRun("TULMONIT.EXE", [this] {
        host.write("TulMonit.TXT",
                   "* x=y,z\r\n\r\nnumberofmonitors = 9\r\nNUMBEROFMONITORS=4, 2 \r\n"
                   "WorkAreaHeight= 1049.5\r\nOther=a\r\nCurrentMonitorRight=-1920");
    });
    readTulMonit();
    EXPECT_EQ(monitors.MonitorCount, 2) << "a key is taken up to the equals sign, blanks included";
    EXPECT_EQ(monitors.WorkAreaHeight, 1050);
    EXPECT_EQ(monitors.MonitorRight, -1920);
}

TEST_F(StartingUp, KeepsAControlFileThatIsNotTooOld) {
    for (const char* version : {"v6,0,0,122", "v7.0.0.178", "130"}) {
        host.write("TULCNTRL.INI", controlFile(version, "MaxLogRecords=101\r\n"));
        EXPECT_EQ(endOf(StartUp), std::nullopt) << version;
    }
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
    EXPECT_EQ(startWith("libPath=c:\\lib\r\nPreferenceFilePath=C:\\LIB\\PREF.SCR\r\n"), Texts())
        << "letter case does not matter";
    EXPECT_EQ(mainPanel.cmdAnlibTip, "Analyze SCORE libraries. The current library folder is C:\\LIB. ");
    EXPECT_EQ(startWith("libPath=C:\\LIB\r\nPreferenceFilePath=C:\\SCOR4\\LIB\\PREF.SCR\r\n"),
              Texts{"You defined the Score library directory as: \r\nC:\\LIB\r\nwhile the PREF file "
                    "prefix is:\r\nC:\\SCOR4\\LIB\r\nThe PREFerence file path was defined as: \r\n"
                    "C:\\SCOR4\\LIB\\PREF.SCR"});
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
