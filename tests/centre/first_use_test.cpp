#include "centre/first_use.h"

#include "support/test.h"

namespace tul {
namespace {

constexpr Answer yes = Answer::ok;
constexpr Answer no = Answer::cancel;

/// A selection program that takes what the test lays out for it.
class FirstUseSeries : public HostTest {
  protected:
    FirstUseSeries() {
        host.install();
        identity.VersionText = "v8.0.0.200";
        host.mayRun("TULNAMES.EXE", [this] {
            writeNames(selections.at(0));
            selections.erase(selections.begin());
        });
        host.mayRun("TULFOLDR.EXE", [this] { host.write("TULFOLDR.TUL", host.path("afm") + "\r\n"); });
    }

    void make(const Texts& names) {
        for (const fs::path name : names) {
            host.makeFolder(name.parent_path().string());
            host.write(name.string(), "x");
        }
    }
    /// The series with these answers; to all other questions the refusing one.
    void link(std::vector<Texts> chosen, std::deque<Answer> answers,
              const std::map<std::string, std::string>& values) {
        selections = std::move(chosen);
        host.answers = std::move(answers);
        FirstUse();
        const std::string text = host.read("TULCNTRL.INI");
        for (const auto& [key, value] : values)
            EXPECT_TRUE(contains(text, "\r\n" + key + "=" + value + "\r\n"));
    }
    /// The same for a series that ends the program, with the message.
    std::string brokenOff(std::vector<Texts> chosen, std::deque<Answer> answers) {
        writeNames({"one.mus"});
        const std::string before = host.read("NAMES.TUL");
        selections = std::move(chosen);
        host.answers = std::move(answers);
        const std::string message = host.fatal(FirstUse);
        EXPECT_EQ(host.read("NAMES.TUL"), before) << message;
        EXPECT_FALSE(host.exists("TULCNTRL.INI")) << message;
        return message;
    }

    std::vector<Texts> selections;  // one for each time the selection program runs
};

TEST_F(FirstUseSeries, EndsInASettingsFileWhenEverythingIsRefused) {
    host.write("NAMES.TUL", "old");
    FirstUse();
    EXPECT_FALSE(host.exists("NAMES.TUL"));
    EXPECT_EQ(host.read("TULCNTRL.INI"),
              lines("[TulVariables]|FirstExecuted=11-21-2026,09:05:07|LastExecuted=11-21-2026,09:05:07|"
                    "TimesExecuted=0|LastVersionExecuted=v8.0.0.200|[UserSettings]|MaxLogRecords=1000|"
                    "WorkDrive=|ScorePath=|PagePath=|ScorlasPath=|libPath=|hlpPath=|PreferenceFilePath=|"
                    "AFMfilesPath=|NotepadPath=notepad.exe|WordpadPath=wordpad.exe|ScoreEngineProgramPath=|"
                    "BypassLibTest1=True|WinScoreProgramPath=|WinScoreScorLibPath=|WinScoreFontLibPath=|"
                    "WinScorePrefPath=|BypassLibTest1=True|ACCSPath=|LJPath=|BeamPath=|MidiScorPath=|"
                    "LascorPath=|Seps4idProgramPath="));
    EXPECT_TRUE(contains(host.messages.back(), "Neither SCORE/SCOR4 nor WinScore was selected."));
}

TEST_F(FirstUseSeries, FindsWhatLiesBesideScore4) {
    make({"scor4/SCOR4.EXE", "scor4/PAGE4.EXE", "scor4/SCORLAS4.EXE", "scor4/LIB/PREF-4.SCR",
          "scor4/HLP/COD01-4.HLP"});
    const std::string score = upper("scor4\\");
    link({{"scor4\\SCOR4.EXE"}}, {yes, no},  // not JUST, which alone is missing
         {{"ScorePath", score + "SCOR4.EXE"},
          {"WorkDrive", host.folder().substr(0, 3)},
          {"PagePath", score + "PAGE4.EXE"},
          {"libPath", score + "LIB"},
          {"PreferenceFilePath", score + "LIB\\PREF-4.SCR"},
          {"hlpPath", score + "HLP\\COD01-4.HLP"},
          {"BypassLibTest1", "False"}});
    EXPECT_EQ(host.launches, Texts{host.path("TULNAMES.EXE") + " STARTDIR=" + host.folder() +
                                   ",SUFFIX=EXE,MUSFOLDER=,NAMESFILE=NAMES.TUL,DEBUG=NO,MSG=Select "
                                   "the SCORE/SCOR4 executable:"})
        << "blanks at the end of an argument string do not arrive";
}

TEST_F(FirstUseSeries, ChoosesBetweenTheScoresOfDriveC) {
    make({"disk/SCORE/SCORE.EXE", "disk/SCORE/JUST.EXE", "disk/SCOR4/SCOR4.EXE", "disk/LIB/FM00.PSC",
          "disk/LIB/PREF.SCR", "disk/HLP/CODE01.HLP", "lib/PREF.SCR"});
    if (!host.makeDriveC("disk")) GTEST_SKIP() << "drive C is the machine's own";
    link({}, {yes, Answer::yes},  // Score3 of the two
         {{"ScorePath", "C:\\SCORE\\SCORE.EXE"},
          {"WorkDrive", "C:\\"},
          {"PagePath", ""},
          {"libPath", "C:\\LIB"},
          {"PreferenceFilePath", "C:\\LIB\\PREF.SCR"},
          {"hlpPath", "C:\\HLP\\CODE01.HLP"}});
    host.remove("disk/SCORE");
    // The only one is taken; there is no library beside it.
    link({{"lib\\PREF.SCR"}}, {yes}, {{"ScorePath", "C:\\SCOR4\\SCOR4.EXE"}, {"libPath", ""}});
}

TEST_F(FirstUseSeries, AsksForWhatDoesNotLieBesideScore) {
    make({"score/SCORE.EXE", "tools/PAGE.EXE", "lib/PREF.SCR"});
    // PAGE, which is the right one; neither SCORLAS nor JUST; a library without fonts is none
    link({{"score\\SCORE.EXE"}, {"tools\\PAGE.EXE"}, {"lib\\PREF.SCR"}}, {yes, yes, yes, no, no},
         {{"PagePath", upper("tools\\PAGE.EXE")},
          {"libPath", ""},
          {"PreferenceFilePath", upper("lib\\PREF.SCR")}});
    ASSERT_EQ(host.launches.size(), 3U);
    EXPECT_TRUE(contains(host.launches[1], ",MUSFOLDER=" + upper("score") + ",NAMESFILE"));
    EXPECT_TRUE(contains(host.launches[2], ",SUFFIX=SCR,"));
}

TEST_F(FirstUseSeries, LinksWinScoreAlone) {
    make({"win/WSCORE.EXE"});
    link({{"win\\WSCORE.EXE"}}, {no, yes},
         {{"WinScoreProgramPath", upper("win\\WSCORE.EXE")},
          {"WinScorePrefPath", upper("win\\") + "scorlib\\PREF.DAT"},
          {"libPath", ""},
          {"BypassLibTest1", "False"}});
    EXPECT_TRUE(contains(host.messages.at(5), "WinScore linkage failed. One of those not existing:"));
    link({{}}, {no, yes}, {{"WinScoreProgramPath", ""}});
    EXPECT_TRUE(host.said("WinScore linkage failed. User canceled."));
}

TEST_F(FirstUseSeries, LinksTheToolsOfOtherMakersAsConfirmed) {
    make({"afm/x.afm", "t/ACCS.EXE", "t/LASCOR12.EXE", "t/SCOREENGINEDISPATCHER.EXE", "t/BEAM.EXE"});
    // neither SCORE nor WinScore; ScoreEngine; fonts, confirmed; tools: ACCS confirmed, LJ refused, BEAM not
    // confirmed, not MidiScor, LASCOR confirmed, not seps4id
    link({{"t\\SCOREENGINEDISPATCHER.EXE"}, {"t\\ACCS.EXE"}, {"t\\BEAM.EXE"}, {"t\\LASCOR12.EXE"}},
         {no, no, yes, yes, yes, yes, yes, yes, no, yes, no, no, yes, yes, no},
         {{"ScoreEngineProgramPath", files().shortName(upper("t\\SCOREENGINEDISPATCHER.EXE"))},
          {"AFMfilesPath", host.path("afm")},
          {"ACCSPath", upper("t\\ACCS.EXE")},
          {"LJPath", ""},
          {"BeamPath", ""},
          {"LascorPath", upper("t\\LASCOR12.EXE")}});
    EXPECT_TRUE(host.said(
        "You selected the LJ program: " + upper("t\\BEAM.EXE") +
        "\r\nIs that OK?\r\nNote that to change this name you can\r\nedit file TULCNTRL.INI by hand."))
        << "BEAM is confirmed under LJ's name";
}

TEST_F(FirstUseSeries, BrokenOffLeavesNothingButTheOldSelection) {
    make({"a.exe", "b.exe", "t/LASCORXY.EXE"});
    EXPECT_EQ(brokenOff({{"a.exe", "b.exe"}}, {yes}), "One file must be selected. You selected 2 files.");
    EXPECT_EQ(brokenOff({{"t\\LASCORXY.EXE"}}, {no, no, no, no, yes, no, no, no, no, yes}),
              "An incorrect name was given to link LASCORnn.EXE");
    host.faultyFiles().refusals = {{"TULCNTRL.INI", FileError::readOnly}};
    EXPECT_EQ(brokenOff({}, {}),
              host.path("TULCNTRL.INI") + " could not be opened for output. Hit Enter to abort");
    const std::string before = host.read("NAMES.TUL");
    host.answers = {yes};
    EXPECT_THROW(FirstUse(), std::out_of_range) << "cut off while a program is chosen";
    EXPECT_NE(host.read("NAMES.TUL"), before);
    host.remove("TULNAMES.EXE");
    host.answers = {no, no, no, no, yes, yes};
    EXPECT_TRUE(host.fatal(FirstUse).starts_with("Installation problem. ACCS.EXE not located.\r\n"));
    EXPECT_EQ(host.read("NAMES.TUL"), before) << "the next series puts it right";
}

TEST_F(FirstUseSeries, AsksAboutMissingTables) {
    make({"TULSIB05.EXE", "TULSIB09.TXT"});
    EXPECT_TRUE(contains(brokenOff({}, {}), "when starting TULSIB.\r\nContinue?"));
    host.answers = {Answer::yes};
    EXPECT_EQ(endOf(FirstUse), std::nullopt);
    make({"TULSIB16.TXT"});
    EXPECT_EQ(endOf(FirstUse), std::nullopt) << "with both there is no question";
}

}  // namespace
}  // namespace tul
