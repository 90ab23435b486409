

#include "centre/main_panel.h"
#include "support/command_line.h"

namespace tul::command {
namespace {

using testing::Outcome;

TEST(Arguments, KeepTheOrderOfWhatIsSetAndPressed) {
    Arguments arguments;
    const ParseResult result =
        parseArguments({"--set", "a=1=2", "--press", "run", "--set", "b=", "--answer", "Yes", "valid",
                        "--answer", "-12", "one.mus", "--no", "two.mus"},
                       arguments);
    EXPECT_TRUE(result.goOn) << result.text;
    std::string actions;
    for (const Action& action : arguments.actions)
        actions +=
            (action.kind == Action::Kind::press ? "press " : "set ") + action.name + "=" + action.value + "|";
    EXPECT_EQ(actions, "set a=1=2|press run=|set b=|");
    EXPECT_EQ(arguments.answers, (Texts{"Yes", "-12"}));
    EXPECT_EQ(arguments.files, (Texts{"one.mus", "two.mus"}));
    EXPECT_EQ(arguments.restAnswer, RestAnswer::no);
    EXPECT_EQ(arguments.panel, "valid");

    Arguments brackets;
    parseArguments({"--answer", "[x,y]", "valid", "[a,b]", "[draft]"}, brackets);
    EXPECT_EQ(brackets.answers, Texts{"[x,y]"});
    EXPECT_EQ(brackets.files, (Texts{"./[a,b]", "./[draft]"}));
}

TEST(Arguments, WrongUsageSaysWhatAndHowToGoOn) {
    for (const Texts& words : std::vector<Texts>{{},
                                                 {"nopanel"},
                                                 {"--set", "a", "valid"},
                                                 {"--yes", "--no", "valid"},
                                                 {"--colour", "valid"},
                                                 {"valid", "--answer"}}) {
        Arguments arguments;
        const ParseResult result = parseArguments(words, arguments);
        EXPECT_FALSE(result.goOn);
        EXPECT_EQ(result.exitStatus, ExitStatus::usage);
        EXPECT_TRUE(contains(result.text, "See: tulcmd --help"));
        EXPECT_GT(result.text.find('\n'), 5U) << "the first line says what is wrong";
    }
}

using Tulcmd = testing::TulcmdTest;

TEST_F(Tulcmd, PrintsTheReportAndDeletesIt) {
    const Outcome outcome = run({"valid", page("good.mus")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.out.starts_with("MUS File validation 11-21-2026 09:05:07\n \nFilename "));
    EXPECT_TRUE(contains(outcome.out, "\nGOOD.MUS     "));
    EXPECT_TRUE(contains(outcome.out, " 2    , 1 file(s)\n"));
    EXPECT_FALSE(contains(outcome.out, "\r"));
    EXPECT_EQ(outcome.err, "");
    EXPECT_FALSE(host.exists("TULVALID.PRN"));
    EXPECT_EQ(run({"valid"}).out, outcome.out) << "the selection remains";
}

TEST_F(Tulcmd, TellsADamagedFileByItsStatus) {
    const Outcome outcome = run({"valid", page("good.mus"), page("bad.mus")});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_TRUE(outcome.err.starts_with(
        "message: MUS file structure error. Invalid number of parameters (0) in item.\n"
        "Item number: 1\nFile: "));
    EXPECT_TRUE(contains(outcome.err, "\nAttempt recovery?\nanswer: Cancel\n"));
}

TEST_F(Tulcmd, AnswersQuestionsInOrderThenAllTheRest) {
    const std::string odd = page("odd.mus");
    EXPECT_TRUE(contains(run({"valid", odd}).out, "(Processing discontinued by user)\n"))
        << "where nobody can be asked a question is refused";
    const Outcome yes = run({"--yes", "valid", odd});
    EXPECT_FALSE(contains(yes.out, "discontinued"));
    EXPECT_TRUE(contains(yes.err, "Continue?\nanswer: Yes\n"));
    EXPECT_FALSE(contains(run({"--answer", "yes", "--no", "valid", odd}).out, "discontinued"));
    const Outcome unfit = run({"--answer", "OK", "--yes", "valid", odd});
    EXPECT_TRUE(contains(unfit.err, "\"OK\" is none of Yes/No.\nanswer: No\n"));
    EXPECT_TRUE(contains(unfit.out, "discontinued"));
}

TEST_F(Tulcmd, AsksTheTerminalUntilAnAnswerFits) {
    const Outcome outcome = run({"valid", page("odd.mus")}, "what\ny\nYES\n", true);
    EXPECT_FALSE(contains(outcome.out, "discontinued"));
    EXPECT_TRUE(contains(outcome.err, "[Yes/No] [Yes/No] [Yes/No] answer: Yes"));
    const Outcome ended = run({"valid", page("odd.mus")}, "", true);
    EXPECT_TRUE(contains(ended.err, "answer: No")) << "the end of the input refuses";
}

TEST_F(Tulcmd, RefusesWrongUsageBeforeItDoesAnything) {
    const Outcome unknown = run({"valid", page("good.mus"), "--set", "txtNone=1"});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_EQ(unknown.err, "frmValid has no field txtNone.\nSee: tulcmd valid --list\n");
    EXPECT_EQ(unknown.out, "");
    EXPECT_FALSE(host.exists("NAMES.TUL"));
    EXPECT_EQ(run({"valid", page("good.mus"), "--set", "txtValidRange=99"}).status, 2) << "read only";
    EXPECT_EQ(run({"logo"}).status, 2) << "nothing to run";
    EXPECT_EQ(run({"--home", page("nowhere"), "valid"}).status, 2);

    host.remove("NAMES.TUL");
    EXPECT_EQ(run({"valid"}).err,
              "cmdValidateRun is not enabled now: no music files are selected.\nSee: tulcmd valid --list\n");
}

TEST_F(Tulcmd, RefusesWhatCannotBeSelectedAndKeepsTheSelection) {
    host.makeFolder("sub");
    host.write("sub/good.mus", "x");
    host.write("[a,b]", host.read("good.mus"));
    ASSERT_EQ(run({"valid", page("good.mus")}).status, 0);
    const std::string names = host.read("NAMES.TUL");
    const std::map<std::string, std::string> refusals = {
        {page("gone.mus"), "There is no file " + page("gone.mus") + "."},
        {page("sub"), page("sub") + " is a folder."},
        {page("sub/good.mus"), " lie in different folders; a selection has one folder."},
        {page("line\nend.mus"),
         "The name " + page("line\nend.mus") + " cannot be written into a names file."},
    };
    for (const auto& [file, text] : refusals) {
        const Outcome outcome = run({"valid", page("good.mus"), file});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_TRUE(contains(outcome.err, text));
    }
    EXPECT_EQ(host.read("NAMES.TUL"), names);
    EXPECT_TRUE(contains(run({"valid", page("[a,b]")}).out, "[A,B]"));
}

TEST_F(Tulcmd, RefusesNamesThatDifferInLetterCaseOnly) {
    host.write("Page.mus", "1");
    if (host.exists("PAGE.mus")) GTEST_SKIP() << "this disk does not tell them apart";
    host.write("PAGE.mus", "2");
    for (const Texts& words :
         std::vector<Texts>{{"valid", page("Page.mus"), page("PAGE.mus")}, {"valid", page("Page.mus")}}) {
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_TRUE(contains(outcome.err, page("Page.mus")));
        EXPECT_TRUE(contains(outcome.err, page("PAGE.mus")));
    }
    EXPECT_FALSE(host.exists("NAMES.TUL"));
}

TEST_F(Tulcmd, NamesThePageWhereARunEnded) {
    host.write("b.mus", host.read("good.mus"));
    host.faultyFiles().refusals["B.MUS"] = FileError::permissionDenied;
    const Outcome outcome = run({"resiz", "--set", "tabResiz=2", "--set", "txtResizeStaffSize=0.65", "--set",
                                 "chkResizBackup=0", page("good.mus"), page("b.mus"), page("odd.mus")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(contains(outcome.err, "Open of output MUS file failed. Hit OK to terminate"));
    EXPECT_TRUE(
        contains(outcome.err, "\nThe run ended at " + upper("B.MUS") + "; the files before it are done.\n"));
}

TEST_F(Tulcmd, TakesTypedTextInThePagesBytes) {
    using testing::words;
    host.write("sung.mus",
               testing::pageOf(words({16, 16, 1, 2, 3, 0, 1, 0, 0, 0, 0, 0, 12, 0}) + "_00schl\xE4\x66t  "));
    run({"resiz", "--set", "tabResiz=5", "--set", "optTextResizeTextSize=1", "--set",
         "txtResizeTextResize=_00schläft", "--set", "txtResizeTextNew=2", page("sung.mus")});
    EXPECT_EQ(host.read("sung.mus"),
              testing::pageOf(words({16, 16, 1, 2, 3, 0, 2, 0, 0, 0, 0, 0, 12, 0}) + "_00schl\xE4\x66t  "));
}

TEST_F(Tulcmd, ShowsWarningsOfStartUpOnRequest) {
    host.version.ownText = "ZZ Test";
    EXPECT_EQ(run({"valid", page("good.mus")}).err, "");
    EXPECT_TRUE(
        run({"--verbose", "valid"}).err.starts_with("message: TUL is not qualified for this platform."));
}

TEST_F(Tulcmd, SetsANewInstallationUpByAnswers) {
    host.remove("TULCNTRL.INI");
    host.makeFolder("win");
    host.write("win/WSCORE.EXE", "x");
    const Outcome outcome = run({"--answer", "Cancel", "--answer", "OK", "--answer", page("win/WSCORE.EXE"),
                                 "--no", "valid", page("good.mus")});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(
        contains(host.read("TULCNTRL.INI"), "WinScoreProgramPath=" + upper("win\\WSCORE.EXE") + "\r\n"));
    EXPECT_TRUE(contains(outcome.out, "\nGOOD.MUS ")) << "the files given are selected behind it";
    EXPECT_TRUE(host.launches.empty() || host.launches.back() == "TULMONIT.EXE");
}

TEST_F(Tulcmd, ActsOnThePanelThatACommandHasOpened) {
    run({"valid", page("good.mus")});
    const Outcome tool = run({"logo", "--press", "cmdValid", "--press", "cmdValidateRun", "--press",
                              "cmdValidateReturn", "--press", "mnuNamesStatus"});
    EXPECT_EQ(tool.status, 0) << tool.err;
    EXPECT_TRUE(tool.out.starts_with("MUS File validation "));
    EXPECT_TRUE(contains(tool.err, "1 name(s) in "));

    const Outcome options = run({"logo", "--press", "cmdProjectOptions", "--set", "optPanelPreference=2",
                                 "--press", "cmdGlobalOptionsReturn", "--press", "mnuNamesStatus"});
    EXPECT_EQ(options.status, 0) << options.err;
    EXPECT_TRUE(contains(host.read("TULPROJ.PRO"), "PanelPreference=2\r\n"));
    EXPECT_EQ(mainPanel.tabLogo, 2) << "the preferred tab comes to the front";

    run({"--no", "valid", page("bad.mus")});
    EXPECT_EQ(
        run({"logo", "--press", "cmdValid", "--press", "cmdValidateRun", "--press", "cmdValidateReturn"})
            .status,
        3)
        << "the tool's status is that of the run";
    const Outcome back =
        run({"logo", "--press", "cmdValid", "--press", "cmdValidateReturn", "--press", "Picture1DblClick"});
    EXPECT_TRUE(contains(back.out, "\\TULCNTRL.INI - file TUL Control Center - v8.0.0.200\n"))
        << "the main panel is in front again";
}

TEST_F(Tulcmd, RefusesWhatThePanelInFrontDoesNotHave) {
    const auto expectRefused = [this](const Texts& presses, const std::string& why) {
        Texts words = {"logo"};
        for (const std::string& press : presses) words.insert(words.end(), {"--press", press});
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err, why + " --list\n");
    };
    expectRefused({"cmdValid", "mnuNamesStatus"},
                  "frmValid has no command mnuNamesStatus.\nSee: tulcmd valid");
    expectRefused({"cmdCombi"}, "cmdCombi is not enabled now.\nSee: tulcmd logo");
    expectRefused({"cmdValid", "cmdNowhere"}, "frmLogo has no command cmdNowhere.\nSee: tulcmd logo");
    expectRefused({"cmdValidateRun"}, "frmLogo has no command cmdValidateRun.\nSee: tulcmd logo");
}

TEST_F(Tulcmd, ListsAPanel) {
    const Outcome outcome = run({"valid", "--list"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.out.starts_with("frmValid - TulValid - MUS file validation and recovery\n"));
    EXPECT_TRUE(contains(outcome.out, "  cmdValidateRun              Run (disabled) (default)\n"));
    EXPECT_TRUE(contains(outcome.out, "  txtValidRange               text      (read only) 32\n"));
}

TEST_F(Tulcmd, PrintsTextFilesAndLeaves) {
    host.write("TULPROJ.PRO", "MusDirectory=" + host.folder() + "\r\n");
    host.write("notes.txt", "caf\xE9\r\n");
    const Outcome outcome = run({"logo", "--press", "mnuSeeTextFile", "--set", "lstTextFiles=notes.txt"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(contains(outcome.out, "\n\ncaf\xC3\xA9\n"));
    EXPECT_TRUE(contains(outcome.out, "\nnotes.txt\n")) << "the list itself is printed first";
    EXPECT_EQ(run({"logo", "--press", "cmdExit"}).status, 0);
    EXPECT_TRUE(host.profile["TUL"]["StartTime"].starts_with("OFF "));
}

}  // namespace
}  // namespace tul::command
