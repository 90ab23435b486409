#include "centre/score_launching.h"

#include "support/test.h"

namespace tul {
namespace {

const std::string problem = "Installation problem. File not located where it is supposed to be:\r\n";

/// SCORE's folder, a folder of pages, and a PAGE that leaves what it is told to leave where it was started.
class ScoreLaunching : public HostTest {
  protected:
    ScoreLaunching() {
        for (const char* name : {"score", "music"}) host.makeFolder(name);
        machineSettings.ScoreFolder = host.path("score\\");
        machineSettings.PagePath = host.path("score\\PAGE.EXE");
        put({"score/PAGE.EXE", "NAMES.TUL"});
        scoreRun.RunStartTime = host.time = {2001, 1, 1, 0, 0, 0};
        host.mayRun("PAGE.EXE", [this] {
            startedIn = files().currentFolder();
            meanwhile();
            for (const std::string& name : results) EXPECT_EQ(files().replace(name, "new"), FileError::none);
        });
    }

    /// Old files: from before the run began.
    void put(const Texts& names) {
        for (const std::string& name : names) {
            host.write(name, name);
            fs::last_write_time(host.nativeFolder() / name,
                                fs::file_time_type::clock::now() - std::chrono::hours(24 * 365 * 60));
        }
    }
    /// The files of a folder with their contents.
    std::string filesIn(const std::string& folder) const {
        std::string found;
        for (const std::string& name : files().list(host.path(folder)))
            found += name + "=" + host.read(folder + "/" + name) + " ";
        return found;
    }
    void expectBackAtHome() const {
        EXPECT_EQ(files().currentFolder(), host.folder());
        EXPECT_EQ(host.events.back(), "ready") << "the waiting pointer has gone";
    }

    Texts results = {"BARS.TMP", "PAGE.PIF", "a.prn", "b.prn"};
    std::function<void()> meanwhile = [] {};
    std::string startedIn;
};

TEST_F(ScoreLaunching, CallsTheDispatcherInTheFolderOfItsLink) {
    machineSettings.ScoreEngineProgramPath = host.path("score\\ScoreEngineDispatch.EXE");
    put({"score/ScoreEngine.EXE"});
    host.mayRun("ScoreEngine.EXE", [this] { startedIn = files().currentFolder(); });
    CallScoreEngine("3", "A,B");
    EXPECT_EQ(host.launches.back(), host.path("score\\ScoreEngine.EXE") +
                                        " CALLEDBY=TUL,PROGRAM=SCORE,DIALECT=1000,PATH=ScoreEngine300.mod,"
                                        "COMMAND=A,B");
    EXPECT_EQ(startedIn, host.path("score"));
    CallScoreEngine("4", "");
    EXPECT_TRUE(host.launches.back().ends_with(
        "CALLEDBY=TUL,PROGRAM=SCOR4,DIALECT=1005,PATH=ScoreEngine400.mod,COMMAND="));
    EXPECT_TRUE(host.messages.empty());

    host.programs["ScoreEngine.EXE"] = [](const std::string&) { return -1; };
    EXPECT_EQ(endOf([] { CallScoreEngine("3", ""); }), 1);
    EXPECT_EQ(files().currentFolder(), host.folder()) << "also when the program ends";
}

TEST_F(ScoreLaunching, TellsOfADispatcherThatIsNotLinkedOrNotThere) {
    EXPECT_EQ(host.fatal([] { CallScoreEngine("", "A"); }),
              "Could not establish Score3 or Score4 from link profile - link your Score to ScoreEngine.");
    host.mayRun(".EXE");
    machineSettings.ScoreEngineProgramPath = "Dispatch.EXE";
    CallScoreEngine("3", "");
    EXPECT_EQ(host.messages.back(), problem + ".EXE") << "and goes on";
    EXPECT_TRUE(host.launches.back().starts_with(".EXE CALLEDBY=TUL,"));
}

TEST_F(ScoreLaunching, RunsAProgramBesideItsWorkFiles) {
    put({"music/page1.mus"});
    RunInWorkFolder(host.path("music"), "PAGE.EXE");
    EXPECT_EQ(host.launches, Texts{"PAGE.EXE"});
    EXPECT_EQ(startedIn, host.path("music"));
    EXPECT_EQ(scoreRun.ScoreFolderFiles, Texts{"page1.mus"});
    EXPECT_EQ(scoreRun.NewestResult, host.path("music\\a.prn"));
    EXPECT_EQ(filesIn("music"), "PAGE.PIF=new a.prn=new b.prn=new page1.mus=music/page1.mus ")
        << "the program was a copy";
    expectBackAtHome();

    scoreRun.NewestResult.clear();
    results.clear();
    scoreRun.RunStartTime = files().info(host.path("music\\b.prn"))->stamp;
    put({"music/PAGE.EXE"});
    RunInWorkFolder(host.path("music"), "PAGE.EXE");
    EXPECT_TRUE(host.exists("music/PAGE.EXE")) << "it was no copy";
    EXPECT_EQ(scoreRun.NewestResult, "") << "a result is later than the start of the run";
}

TEST_F(ScoreLaunching, CarriesFilesToScoresFolderAndResultsBack) {
    put({"music/page1.mus", "music/page2.mus", "score/a.prn"});
    results.push_back("c.prn");
    scoreRun.UserFiles = {host.path("music\\page1.mus"), host.path("music\\page2.mus")};
    meanwhile = [this] { EXPECT_TRUE(host.exists("score/page1.mus") && host.exists("score/page2.mus")); };
    RunInScoreFolder("D:\\");
    EXPECT_EQ(host.launches, Texts{"PAGE.EXE D:\\"});
    EXPECT_EQ(startedIn, host.path("score"));
    EXPECT_EQ(host.messages, Texts{});
    EXPECT_EQ(filesIn("music"), "b.prn=new c.prn=new page1.mus=music/page1.mus page2.mus=music/page2.mus ");
    EXPECT_EQ(filesIn("score"), "PAGE.EXE=score/PAGE.EXE PAGE.PIF=new a.prn=new ")
        << "a.prn was there before";
    EXPECT_EQ(scoreRun.NewestResult, host.path("music\\b.prn"));
    expectBackAtHome();
}

TEST_F(ScoreLaunching, AsksBeforeItOverwrites) {
    put({"music/page1.mus", "music/page2.mus", "score/page1.mus"});
    scoreRun.UserFiles = {host.path("music\\page2.mus"), host.path("music\\page1.mus")};
    RunInScoreFolder("");
    EXPECT_EQ(host.messages.back(),
              "There is one equal name between the user directory and the SCORE directory: "
              "page1.mus\r\nOverwrite this file in the SCORE directory?");
    put({"score/page2.mus"});
    RunInScoreFolder("");
    EXPECT_EQ(
        host.messages.back(),
        "There are 2 equal names between the user directory and the SCORE directory,\r\nthe first being "
        "page2.mus. Overwrite these files in the SCORE directory?");
    EXPECT_TRUE(host.launches.empty());
    EXPECT_EQ(host.read("score/page2.mus"), "score/page2.mus");
    expectBackAtHome();
    host.answers = {Answer::ok};
    RunInScoreFolder("");
    EXPECT_EQ(host.launches.size(), 1U);
}

TEST_F(ScoreLaunching, GoesOnWithScoresFolderAfterAFailedCopyAndDeletesOnlyItsCopies) {
    put({"music/a.mus", "music/b.mus", "music/c.mus", "score/b.mus", "score/c.mus"});
    host.makeReadOnly("score/b.mus");
    scoreRun.UserFiles = {host.path("music\\a.mus"), host.path("music\\b.mus"), host.path("music\\c.mus")};
    host.answers = {Answer::ok};
    RunInScoreFolder("");
    EXPECT_EQ(host.messages.back(),
              "File Copy failed: " + host.path("music\\b.mus") + " to " + host.path("score\\b.mus") +
                  ".\r\nWill continue with files in the SCORE directory (all files in this series).");
    EXPECT_EQ(host.launches.size(), 1U);
    EXPECT_FALSE(host.exists("score/a.mus"));
    EXPECT_EQ(host.read("score/c.mus"), "score/c.mus");

    scoreRun.UserFiles = {host.path("score\\c.mus")};
    host.answers = {Answer::ok};
    RunInScoreFolder("");
    EXPECT_TRUE(host.exists("score/c.mus")) << "a user's file in SCORE's own folder is no copy";
}

TEST_F(ScoreLaunching, TellsWhatItCannotEraseOrBringBack) {
    put({"music/a.mus", "music/b.prn"});
    host.makeReadOnly("music/b.prn");
    scoreRun.UserFiles = {host.path("music\\a.mus")};
    results = {"b.prn", "c.prn"};
    RunInScoreFolder("");
    EXPECT_EQ(host.messages,
              Texts{"Failed to copy " + host.path("score\\b.prn") + " to " + host.path("music\\b.prn")});
    EXPECT_TRUE(host.exists("score/b.prn"));
    EXPECT_EQ(scoreRun.NewestResult, host.path("music\\c.prn"));

    results = {"d.prn"};
    meanwhile = [this] { host.makeReadOnly("score/a.mus"); };
    RunInScoreFolder("");
    EXPECT_EQ(host.messages.back(),
              "File Erase failed: " + host.path("score\\a.mus") + ". Process terminated");
    EXPECT_FALSE(host.exists("music/d.prn")) << "nothing is brought back then";
    expectBackAtHome();
}

TEST_F(ScoreLaunching, CallsPageInItsFolderUnlessThePagesLieOnAnotherDrive) {
    projectSettings.MusDirectory = host.path("music");
    scoreRun.NewestResult = "old";
    host.time.year = 2002;
    CallPage();
    EXPECT_EQ(host.read("score/NAMES.TUL"), "NAMES.TUL");
    EXPECT_EQ(host.launches, Texts{"PAGE.EXE"});
    EXPECT_EQ(startedIn, host.path("score"));
    EXPECT_EQ(scoreRun.RunStartTime.year, 2002);
    EXPECT_EQ(scoreRun.NewestResult, host.path("score\\a.prn"));

    results.clear();
    projectSettings.MusDirectory = "Q:\\MUSIC\\PART1\\";
    CallPage();
    EXPECT_EQ(host.launches.back(), "PAGE.EXE Q:\\");
    projectSettings.MusDirectory = host.folder().substr(0, 3) + "MUSIC\\PART1\\";
    CallPage();
    EXPECT_EQ(host.launches.back(), "PAGE.EXE") << "another folder of the same drive";

    host.launches.clear();
    host.makeReadOnly("score/NAMES.TUL");
    EXPECT_EQ(host.fatal(CallPage), "Failed to copy Names file from " + host.path("NAMES.TUL") + " to\r\n" +
                                        host.path("score\\NAMES.TUL"));
    EXPECT_TRUE(host.launches.empty());
}

}  // namespace
}  // namespace tul
