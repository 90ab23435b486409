#include "centre/first_use.h"

#include "support/test.h"

namespace tul {
namespace {

constexpr Answer yes = Answer::ok;
constexpr Answer refused = Answer::cancel;

/// A machine with a drive C of its own, and a selection program that takes what the test lays out for it.
class FirstUseSeries : public HostTest {
  protected:
    FirstUseSeries() {
        host.install();
        identity.VersionText = "v8.0.0.200";
        host.programs["TULNAMES.EXE"] = [this](const std::string&) {
            writeNames(selections.at(0));
            selections.erase(selections.begin());
            return 0;
        };
        host.programs["TULFOLDR.EXE"] = [this](const std::string&) {
            host.write("TULFOLDR.TUL", host.path("afm") + "\r\n");
            return 0;
        };
    }

    void make(std::initializer_list<const char*> names) {
        for (const fs::path name : names) {
            host.makeFolder(name.parent_path().string());
            host.write(name.string(), "x");
        }
    }
    std::string value(const std::string& key) const {
        std::string found = "(no such key)";
        for (const std::string& line : linesIn(text()))
            if (line.starts_with(key + "=")) found = line.substr(key.size() + 1);
        return found;
    }
    void expectValues(const std::map<std::string, std::string>& values) const {
        for (const auto& [key, expected] : values) EXPECT_EQ(value(key), expected) << key;
    }
    std::string text() const { return host.read("TULCNTRL.INI"); }

    std::vector<Texts> selections;  // one for each time the selection program runs
};

TEST_F(FirstUseSeries, EndsInASettingsFileWhenEverythingIsRefused) {
    host.write("NAMES.TUL", "old");
    FirstUse();
    EXPECT_FALSE(host.exists("NAMES.TUL"));
    EXPECT_EQ(text(),
              lines("[TulVariables]|FirstExecuted=11-21-2026,09:05:07|LastExecuted=11-21-2026,09:05:07|"
                    "TimesExecuted=0|LastVersionExecuted=v8.0.0.200|[UserSettings]|MaxLogRecords=1000|"
                    "WorkDrive=|ScorePath=|PagePath=|ScorlasPath=|libPath=|hlpPath=|PreferenceFilePath=|"
                    "AFMfilesPath=|NotepadPath=notepad.exe|WordpadPath=wordpad.exe|ScoreEngineProgramPath=|"
                    "BypassLibTest1=True|WinScoreProgramPath=|WinScoreScorLibPath=|WinScoreFontLibPath=|"
                    "WinScorePrefPath=|BypassLibTest1=True|ACCSPath=|LJPath=|BeamPath=|MidiScorPath=|"
                    "LascorPath=|Seps4idProgramPath="));
    EXPECT_TRUE(host.launches.empty());
    EXPECT_TRUE(host.said(
        "Neither SCORE/SCOR4 nor WinScore was selected. This is exceptional but entirely possible.\r\nIf "
        "you want to link any of these programs, delete file TULCNTRL.INI and start TUL again."));
}

TEST_F(FirstUseSeries, FindsWhatLiesBesideScore4) {
    make({"scor4/SCOR4.EXE", "scor4/PAGE4.EXE", "scor4/SCORLAS4.EXE", "scor4/LIB/PREF-4.SCR",
          "scor4/HLP/COD01-4.HLP"});
    selections = {{"scor4\\SCOR4.EXE"}};
    host.answers = {yes, refused};  // link SCORE; not JUST, which alone is missing
    FirstUse();
    const std::string score = upper("scor4\\");
    expectValues({{"ScorePath", score + "SCOR4.EXE"},
                  {"WorkDrive", host.folder().substr(0, 3)},
                  {"PagePath", score + "PAGE4.EXE"},
                  {"libPath", score + "LIB"},
                  {"PreferenceFilePath", score + "LIB\\PREF-4.SCR"},
                  {"hlpPath", score + "HLP\\COD01-4.HLP"},
                  {"BypassLibTest1", "False"}});
    EXPECT_TRUE(host.said(
        "You can select the JUST program to be linked to TUL\r\nIf you do not want to link JUST to TUL, "
        "just Cancel."));
    EXPECT_EQ(host.launches, Texts{host.path("TULNAMES.EXE") + " STARTDIR=" + host.folder() +
                                   ",SUFFIX=EXE,MUSFOLDER=,NAMESFILE=NAMES.TUL,DEBUG=NO,MSG=Select "
                                   "the SCORE/SCOR4 executable:"})
        << "blanks at the end of an argument string do not arrive";
}

TEST_F(FirstUseSeries, ChoosesBetweenTheScoresOfDriveC) {
    make({"disk/SCORE/SCORE.EXE", "disk/SCORE/JUST.EXE", "disk/SCOR4/SCOR4.EXE", "disk/LIB/FM00.PSC",
          "disk/LIB/PREF.SCR", "disk/HLP/CODE01.HLP"});
    if (!host.makeDriveC("disk")) GTEST_SKIP() << "drive C is the machine's own";
    host.answers = {yes, Answer::yes};  // link SCORE, and Score3 of the two
    FirstUse();
    EXPECT_TRUE(host.said(
        "Your system has both Score3 and Score4 on drive C.\r\nDo you want to link Score3? \r\n\r\nAnswer "
        "YES to link Score3, answer NO to link Score4"));
    expectValues({{"ScorePath", "C:\\SCORE\\SCORE.EXE"},
                  {"WorkDrive", "C:\\"},
                  {"PagePath", ""},
                  {"libPath", "C:\\LIB"},
                  {"PreferenceFilePath", "C:\\LIB\\PREF.SCR"},
                  {"hlpPath", "C:\\HLP\\CODE01.HLP"}});

    host.remove("disk/SCORE");
    make({"lib/PREF.SCR"});
    selections = {{"lib\\PREF.SCR"}};
    host.answers = {yes};
    FirstUse();
    EXPECT_EQ(value("ScorePath"), "C:\\SCOR4\\SCOR4.EXE") << "the only one is taken";
    EXPECT_EQ(value("libPath"), "") << "there is no library beside it";
}

TEST_F(FirstUseSeries, AsksForWhatDoesNotLieBesideScore) {
    make({"score/SCORE.EXE", "tools/PAGE.EXE", "lib/PREF.SCR"});
    selections = {{"score\\SCORE.EXE"}, {"tools\\PAGE.EXE"}, {"lib\\PREF.SCR"}};
    // SCORE; PAGE, and it is the right one; neither SCORLAS nor JUST
    host.answers = {yes, yes, yes, refused, refused};
    FirstUse();
    EXPECT_EQ(value("PagePath"), upper("tools\\PAGE.EXE"));
    EXPECT_EQ(value("libPath"), "") << "a library without fonts is none";
    EXPECT_EQ(value("PreferenceFilePath"), upper("lib\\PREF.SCR"));
    EXPECT_TRUE(host.said(
        "You selected the PAGE program: " + upper("tools\\PAGE.EXE") +
        "\r\nIs that OK?\r\nNote that to change this name you can\r\nedit file TULCNTRL.INI by hand."));
    ASSERT_EQ(host.launches.size(), 3U);
    EXPECT_TRUE(contains(host.launches[1], ",MUSFOLDER=" + upper("score") + ",NAMESFILE"));
    EXPECT_TRUE(contains(host.launches[2], ",SUFFIX=SCR,"));
}

TEST_F(FirstUseSeries, NeedsExactlyOneProgram) {
    make({"a.exe", "b.exe"});
    selections = {{"a.exe", "b.exe"}};
    host.answers = {yes};
    EXPECT_EQ(host.fatal(FirstUse), "One file must be selected. You selected 2 files.");
    EXPECT_FALSE(host.exists("TULCNTRL.INI"));
}

TEST_F(FirstUseSeries, LinksWinScoreAlone) {
    make({"win/WSCORE.EXE"});
    selections = {{"win\\WSCORE.EXE"}};
    host.answers = {refused, yes};
    FirstUse();
    expectValues({{"WinScoreProgramPath", upper("win\\WSCORE.EXE")},
                  {"WinScorePrefPath", upper("win\\") + "scorlib\\PREF.DAT"},
                  {"libPath", ""},
                  {"BypassLibTest1", "False"}});
    EXPECT_TRUE(host.said("WinScore linkage failed. One of those not existing:\r\n - scorLib Path - " +
                          upper("win\\") + "scorlib\r\n - fontLib Path - " + upper("win\\") +
                          "fontlib\r\n - pref.dat Path - " + upper("win\\") +
                          "scorlib\\PREF.DAT\r\nManual intervention on TULCNTRL.INI required..."));

    host.remove("NAMES.TUL");
    selections = {{}};
    host.answers = {refused, yes};
    FirstUse();
    EXPECT_TRUE(host.said("WinScore linkage failed. User canceled."));
}

TEST_F(FirstUseSeries, ChecksTheNamesOfOtherTools) {
    make({"afm/x.afm", "t/ACCS.EXE", "t/LASCOR12.EXE", "t/LASCORXY.EXE", "t/SCOREENGINEDISPATCHER.EXE",
          "t/BEAM.EXE"});
    // neither SCORE nor WinScore; ScoreEngine; fonts, confirmed; tools: ACCS confirmed, LJ refused, BEAM not
    // confirmed, not MidiScor, LASCOR confirmed, not seps4id
    selections = {{"t\\SCOREENGINEDISPATCHER.EXE"}, {"t\\ACCS.EXE"}, {"t\\BEAM.EXE"}, {"t\\LASCOR12.EXE"}};
    host.answers = {refused, refused, yes,     yes,     yes, yes, yes,    yes,
                    refused, yes,     refused, refused, yes, yes, refused};
    FirstUse();
    EXPECT_EQ(upperCase(value("ScoreEngineProgramPath")),
              upperCase(files().shortName(host.path("t\\SCOREENGINEDISPATCHER.EXE"))));
    expectValues({{"AFMfilesPath", host.path("afm")},
                  {"ACCSPath", upper("t\\ACCS.EXE")},
                  {"LJPath", ""},
                  {"BeamPath", ""},
                  {"LascorPath", upper("t\\LASCOR12.EXE")}});
    EXPECT_TRUE(host.said(
        "You selected the LJ program: " + upper("t\\BEAM.EXE") +
        "\r\nIs that OK?\r\nNote that to change this name you can\r\nedit file TULCNTRL.INI by hand."))
        << "BEAM is confirmed under LJ's name";

    host.remove("TULCNTRL.INI");
    selections = {{"t\\LASCORXY.EXE"}};
    host.answers = {refused, refused, refused, refused, yes, refused, refused, refused, refused, yes};
    EXPECT_EQ(host.fatal(FirstUse), "An incorrect name was given to link LASCORnn.EXE");
    EXPECT_FALSE(host.exists("TULCNTRL.INI"));
}

TEST_F(FirstUseSeries, TellsAMissingSelectionProgramByWhatItIsFor) {
    host.remove("TULNAMES.EXE");
    host.answers = {refused, refused, refused, refused, yes, yes};
    EXPECT_EQ(endOf(FirstUse), 1);
    EXPECT_TRUE(host.messages.back().starts_with(
        "Installation problem. ACCS.EXE not located.\r\nThe path where it is supposed to be is:\r\n" +
        host.path("TULNAMES.EXE") + "\r\nWith parameters:\r\nSTARTDIR="));
}

TEST_F(FirstUseSeries, AsksAboutMissingTables) {
    make({"TULSIB05.EXE", "TULSIB09.TXT"});
    EXPECT_EQ(endOf(FirstUse), 1) << "refused";
    EXPECT_TRUE(host.messages.back().ends_with(
        "You will be reminded that these files are missing when starting TULSIB.\r\nContinue?"));
    host.answers = {Answer::yes};
    EXPECT_EQ(endOf(FirstUse), std::nullopt);
    make({"TULSIB16.TXT"});
    host.messages.clear();
    EXPECT_EQ(endOf(FirstUse), std::nullopt) << "with both there is no question";
}

TEST_F(FirstUseSeries, EndsWhenTheFileCannotBeWritten) {
    host.faultyFiles().refusals["TULCNTRL.INI"] = FileError::readOnly;
    EXPECT_EQ(host.fatal(FirstUse),
              host.path("TULCNTRL.INI") + " could not be opened for output. Hit Enter to abort");
}

}  // namespace
}  // namespace tul
