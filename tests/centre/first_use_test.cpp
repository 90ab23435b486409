#include "centre/first_use.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/text.h"
#include "centre/names_file.h"
#include "shared/records.h"
#include "support/scripted_host.h"
#include "support/test_place.h"

namespace tul {
namespace {

namespace fs = std::filesystem;
using testing::crlf;
using testing::endOf;
using testing::ScriptedHost;

constexpr Answer yes = Answer::ok;
constexpr Answer refused = Answer::cancel;

/// A machine with a drive C of its own, and a selection program that takes what the test lays out for it.
class FirstUseSeries : public ::testing::Test {
  protected:
    FirstUseSeries() {
        host.install();
        identity.VersionText = "v8.0.0.200";
        host.programs["TULNAMES.EXE"] = [this](const std::string&) {
            std::string text;
            for (const std::string& name : selections.at(0)) text += namesFileLine(host.path(name));
            host.write("NAMES.TUL", text);
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
            fs::create_directories((host.nativeFolder() / name).parent_path());
            host.write(name.string(), "x");
        }
    }
    bool said(const std::string& text) const {
        return std::find(host.messages.begin(), host.messages.end(), text) != host.messages.end();
    }
    std::string value(const std::string& key) const {
        std::string found = "(no such key)";
        const std::string file = text();
        for (const std::string_view line : linesOf(file))
            if (line.starts_with(key + "=")) found = line.substr(key.size() + 1);
        return found;
    }
    std::string text() const { return host.read("TULCNTRL.INI"); }
    std::string upper(const std::string& name) const { return upperCase(host.path(name)); }

    ScriptedHost host;
    std::vector<std::vector<std::string>> selections;  // one for each time the selection program runs
};

TEST_F(FirstUseSeries, EndsInASettingsFileWhenEverythingIsRefused) {
    host.write("NAMES.TUL", "old");
    FirstUse();
    EXPECT_FALSE(host.exists("NAMES.TUL"));
    EXPECT_EQ(text(), crlf({"[TulVariables]",
                            "FirstExecuted=11-21-2026,09:05:07",
                            "LastExecuted=11-21-2026,09:05:07",
                            "TimesExecuted=0",
                            "LastVersionExecuted=v8.0.0.200",
                            "[UserSettings]",
                            "MaxLogRecords=1000",
                            "WorkDrive=",
                            "ScorePath=",
                            "PagePath=",
                            "ScorlasPath=",
                            "libPath=",
                            "hlpPath=",
                            "PreferenceFilePath=",
                            "AFMfilesPath=",
                            "NotepadPath=notepad.exe",
                            "WordpadPath=wordpad.exe",
                            "ScoreEngineProgramPath=",
                            "BypassLibTest1=True",
                            "WinScoreProgramPath=",
                            "WinScoreScorLibPath=",
                            "WinScoreFontLibPath=",
                            "WinScorePrefPath=",
                            "BypassLibTest1=True",
                            "ACCSPath=",
                            "LJPath=",
                            "BeamPath=",
                            "MidiScorPath=",
                            "LascorPath=",
                            "Seps4idProgramPath="}));
    EXPECT_TRUE(host.launches.empty());
}

TEST_F(FirstUseSeries, FindsWhatLiesBesideScore4) {
    make({"scor4/SCOR4.EXE", "scor4/PAGE4.EXE", "scor4/SCORLAS4.EXE", "scor4/LIB/PREF-4.SCR",
          "scor4/HLP/COD01-4.HLP"});
    selections = {{"scor4\\SCOR4.EXE"}};
    host.answers = {yes, refused};  // link SCORE; not JUST, which alone is missing
    FirstUse();
    EXPECT_EQ(value("ScorePath"), upper("scor4\\SCOR4.EXE"));
    EXPECT_EQ(value("WorkDrive"), host.folder().substr(0, 3));
    EXPECT_EQ(value("PagePath"), upper("scor4\\PAGE4.EXE"));
    EXPECT_EQ(value("libPath"), upper("scor4\\LIB"));
    EXPECT_EQ(value("PreferenceFilePath"), upper("scor4\\LIB\\PREF-4.SCR"));
    EXPECT_EQ(value("hlpPath"), upper("scor4\\HLP\\COD01-4.HLP"));
    EXPECT_EQ(value("BypassLibTest1"), "False");
    EXPECT_TRUE(
        said("You can select the JUST program to be linked to TUL\r\nIf you do not want to link JUST to TUL, "
             "just Cancel."));
    EXPECT_EQ(host.launches,
              std::vector<std::string>{host.path("TULNAMES.EXE") + " STARTDIR=" + host.folder() +
                                       ",SUFFIX=EXE,MUSFOLDER=,NAMESFILE=NAMES.TUL,DEBUG=NO,MSG=Select "
                                       "the SCORE/SCOR4 executable:"})
        << "blanks at the end of an argument string do not arrive";
}

TEST_F(FirstUseSeries, ChoosesBetweenTheScoresOfDriveC) {
    make({"disk/SCORE/SCORE.EXE", "disk/SCORE/JUST.EXE", "disk/SCOR4/SCOR4.EXE", "disk/LIB/FM00.PSC",
          "disk/LIB/PREF.SCR", "disk/HLP/CODE01.HLP"});
    if (!testing::takeAsDriveC(host.nativeFolder() / "disk")) GTEST_SKIP() << "drive C is the machine's own";
    host.answers = {yes, Answer::yes};  // link SCORE, and Score3 of the two
    FirstUse();
    EXPECT_TRUE(said(
        "Your system has both Score3 and Score4 on drive C.\r\nDo you want to link Score3? \r\n\r\nAnswer "
        "YES to link Score3, answer NO to link Score4"));
    EXPECT_EQ(value("ScorePath"), "C:\\SCORE\\SCORE.EXE");
    EXPECT_EQ(value("WorkDrive"), "C:\\");
    EXPECT_EQ(value("PagePath"), "");
    EXPECT_EQ(value("libPath"), "C:\\LIB");
    EXPECT_EQ(value("PreferenceFilePath"), "C:\\LIB\\PREF.SCR");
    EXPECT_EQ(value("hlpPath"), "C:\\HLP\\CODE01.HLP");

    fs::remove_all(host.nativeFolder() / "disk/SCORE");
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
    EXPECT_TRUE(
        said("You selected the PAGE program: " + upper("tools\\PAGE.EXE") +
             "\r\nIs that OK?\r\nNote that to change this name you can\r\nedit file TULCNTRL.INI by hand."));
    ASSERT_EQ(host.launches.size(), 3U);
    EXPECT_NE(host.launches[1].find(",MUSFOLDER=" + upper("score") + ",NAMESFILE"), std::string::npos);
    EXPECT_NE(host.launches[2].find(",SUFFIX=SCR,"), std::string::npos);
}

TEST_F(FirstUseSeries, NeedsExactlyOneProgram) {
    make({"a.exe", "b.exe"});
    selections = {{"a.exe", "b.exe"}};
    host.answers = {yes};
    EXPECT_EQ(endOf(FirstUse), 1);
    EXPECT_EQ(host.messages.back(), "One file must be selected. You selected 2 files.");
    EXPECT_FALSE(host.exists("TULCNTRL.INI"));
}

TEST_F(FirstUseSeries, LinksWinScoreAlone) {
    make({"win/WSCORE.EXE"});
    selections = {{"win\\WSCORE.EXE"}};
    host.answers = {refused, yes};
    FirstUse();
    EXPECT_EQ(value("WinScoreProgramPath"), upper("win\\WSCORE.EXE"));
    EXPECT_EQ(value("WinScorePrefPath"), upper("win\\") + "scorlib\\PREF.DAT");
    EXPECT_EQ(value("libPath"), "");
    EXPECT_EQ(value("BypassLibTest1"), "False");
    EXPECT_TRUE(said("WinScore linkage failed. One of those not existing:\r\n - scorLib Path - " +
                     upper("win\\") + "scorlib\r\n - fontLib Path - " + upper("win\\") +
                     "fontlib\r\n - pref.dat Path - " + upper("win\\") +
                     "scorlib\\PREF.DAT\r\nManual intervention on TULCNTRL.INI required..."));

    fs::remove(host.nativeFolder() / "NAMES.TUL");
    selections = {{}};
    host.answers = {refused, yes};
    FirstUse();
    EXPECT_TRUE(said("WinScore linkage failed. User canceled."));
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
    EXPECT_EQ(value("AFMfilesPath"), host.path("afm"));
    EXPECT_EQ(value("ACCSPath"), upper("t\\ACCS.EXE"));
    EXPECT_EQ(value("LJPath"), "");
    EXPECT_EQ(value("BeamPath"), "");
    EXPECT_EQ(value("LascorPath"), upper("t\\LASCOR12.EXE"));
    EXPECT_TRUE(
        said("You selected the LJ program: " + upper("t\\BEAM.EXE") +
             "\r\nIs that OK?\r\nNote that to change this name you can\r\nedit file TULCNTRL.INI by hand."))
        << "BEAM is confirmed under LJ's name";

    fs::remove(host.nativeFolder() / "TULCNTRL.INI");
    selections = {{"t\\LASCORXY.EXE"}};
    host.answers = {refused, refused, refused, refused, yes, refused, refused, refused, refused, yes};
    EXPECT_EQ(endOf(FirstUse), 1);
    EXPECT_EQ(host.messages.back(), "An incorrect name was given to link LASCORnn.EXE");
    EXPECT_FALSE(host.exists("TULCNTRL.INI"));
}

TEST_F(FirstUseSeries, TellsAMissingSelectionProgramByWhatItIsFor) {
    fs::remove(host.nativeFolder() / "TULNAMES.EXE");
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
    EXPECT_EQ(endOf(FirstUse), 1);
    EXPECT_EQ(host.messages.back(),
              host.path("TULCNTRL.INI") + " could not be opened for output. Hit Enter to abort");
}

}  // namespace
}  // namespace tul
