#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "base/text.h"
#include "centre/main_panel.h"
#include "command/arguments.h"
#include "command/command_run.h"
#include "samples/page_builder.h"
#include "shared/records.h"
#include "support/mus_bytes.h"
#include "support/scripted_host.h"

namespace tul::command {
namespace {

using testing::crlf;
using testing::ScriptedHost;

struct Outcome {
    int status = 0;
    std::string out;
    std::string err;
};

TEST(Arguments, KeepTheOrderOfWhatIsSetAndPressed) {
    Arguments arguments;
    const ParseResult result =
        parseArguments({"--set", "a=1=2", "--press", "run", "--set", "b=", "--answer", "Yes", "valid",
                        "--answer", "-12", "one.mus", "--no", "two.mus"},
                       arguments);
    EXPECT_TRUE(result.goOn) << result.text;
    ASSERT_EQ(arguments.actions.size(), 3U);
    EXPECT_EQ(arguments.actions[0].value, "1=2");
    EXPECT_EQ(arguments.actions[1].kind, Action::Kind::press);
    EXPECT_EQ(arguments.actions[2].name, "b");
    EXPECT_EQ(arguments.actions[2].value, "");
    EXPECT_EQ(arguments.answers, (std::vector<std::string>{"Yes", "-12"}));
    EXPECT_EQ(arguments.files, (std::vector<std::string>{"one.mus", "two.mus"}));
    EXPECT_EQ(arguments.restAnswer, RestAnswer::no);
    EXPECT_EQ(arguments.panel, "valid");

    Arguments brackets;
    parseArguments({"--answer", "[x,y]", "valid", "[a,b]", "[draft]"}, brackets);
    EXPECT_EQ(brackets.answers, std::vector<std::string>{"[x,y]"});
    EXPECT_EQ(brackets.files, (std::vector<std::string>{"./[a,b]", "./[draft]"}));
}

TEST(Arguments, WrongUsageSaysWhatAndHowToGoOn) {
    for (const std::vector<std::string>& words :
         std::vector<std::vector<std::string>>{{},
                                               {"nopanel"},
                                               {"--set", "a", "valid"},
                                               {"--yes", "--no", "valid"},
                                               {"--colour", "valid"},
                                               {"valid", "--answer"}}) {
        Arguments arguments;
        const ParseResult result = parseArguments(words, arguments);
        EXPECT_FALSE(result.goOn);
        EXPECT_EQ(result.exitStatus, exitUsage);
        EXPECT_NE(result.text.find("See: tulcmd --help"), std::string::npos);
        EXPECT_GT(result.text.find('\n'), 5U) << "the first line says what is wrong";
    }
    Arguments arguments;
    const ParseResult help = parseArguments({"--help"}, arguments);
    EXPECT_EQ(help.exitStatus, 0);
    EXPECT_NE(help.text.find("valid, validate"), std::string::npos);
}

class Tulcmd : public ::testing::Test {
  protected:
    Tulcmd() {
        host.install();
        run({"logo", "--press", "mnuNotepad"});  // the settings of first use
        samples::PageBuilder page;
        page.item({8, 1, 0, 0, 1, 200}).item({14, 1, 200, 1});
        host.write("good.mus", page.bytes());
        page.item({13, 1, 0});
        host.write("odd.mus", page.bytes());
        host.write("bad.mus", std::string("\x09\x00\x00\x00", 4));
    }

    Outcome run(const std::vector<std::string>& words, const std::string& typed = {}, bool terminal = false) {
        Arguments arguments;
        const ParseResult parsed = parseArguments(words, arguments);
        if (!parsed.goOn) return {parsed.exitStatus, {}, parsed.text};
        std::ostringstream out;
        std::ostringstream err;
        std::istringstream in(typed);
        const Host machine{.files = &files(),
                           .processes = &processes(),
                           .profile = &profile(),
                           .clock = &clock(),
                           .platform = &platform(),
                           .face = nullptr};
        const int status =
            runCommand(arguments, machine, host.folder(),
                       {.out = out, .err = err, .in = in, .canAsk = terminal, .showsProgress = false});
        return {status, out.str(), err.str()};
    }
    std::string page(const std::string& name) const { return (host.nativeFolder() / name).string(); }

    ScriptedHost host;
};

TEST_F(Tulcmd, PrintsTheReportAndDeletesIt) {
    const Outcome outcome = run({"valid", page("good.mus")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.out.starts_with("MUS File validation 11-21-2026 09:05:07\n \nFilename "));
    EXPECT_NE(outcome.out.find("\nGOOD.MUS     "), std::string::npos);
    EXPECT_NE(outcome.out.find(" 2    , 1 file(s)\n"), std::string::npos);
    EXPECT_EQ(outcome.out.find('\r'), std::string::npos);
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
    EXPECT_NE(outcome.err.find("\nAttempt recovery?\nanswer: Cancel\n"), std::string::npos);
}

TEST_F(Tulcmd, AnswersQuestionsInOrderThenAllTheRest) {
    const std::string odd = page("odd.mus");
    EXPECT_EQ(run({"valid", odd}).out.find("(Processing discontinued by user)\n") == std::string::npos, false)
        << "where nobody can be asked a question is refused";
    const Outcome yes = run({"--yes", "valid", odd});
    EXPECT_EQ(yes.out.find("discontinued"), std::string::npos);
    EXPECT_NE(yes.err.find("Continue?\nanswer: Yes\n"), std::string::npos);
    EXPECT_EQ(run({"--answer", "yes", "--no", "valid", odd}).out.find("discontinued"), std::string::npos);
    const Outcome unfit = run({"--answer", "OK", "--yes", "valid", odd});
    EXPECT_NE(unfit.err.find("\"OK\" is none of Yes/No.\nanswer: No\n"), std::string::npos);
    EXPECT_NE(unfit.out.find("discontinued"), std::string::npos);
}

TEST_F(Tulcmd, AsksTheTerminalUntilAnAnswerFits) {
    const Outcome outcome = run({"valid", page("odd.mus")}, "what\ny\nYES\n", true);
    EXPECT_EQ(outcome.out.find("discontinued"), std::string::npos);
    EXPECT_NE(outcome.err.find("[Yes/No] [Yes/No] [Yes/No] answer: Yes"), std::string::npos);
    const Outcome ended = run({"valid", page("odd.mus")}, "", true);
    EXPECT_NE(ended.err.find("answer: No"), std::string::npos) << "the end of the input refuses";
}

TEST_F(Tulcmd, RefusesWrongUsageBeforeItDoesAnything) {
    const Outcome unknown = run({"valid", page("good.mus"), "--set", "txtNone=1"});
    EXPECT_EQ(unknown.status, exitUsage);
    EXPECT_EQ(unknown.err, "frmValid has no field txtNone.\nSee: tulcmd valid --list\n");
    EXPECT_EQ(unknown.out, "");
    EXPECT_FALSE(host.exists("NAMES.TUL"));
    EXPECT_EQ(run({"valid", page("good.mus"), "--set", "txtValidRange=99"}).status, exitUsage) << "read only";
    EXPECT_EQ(run({"logo"}).status, exitUsage) << "nothing to run";
    EXPECT_EQ(run({"--home", page("nowhere"), "valid"}).status, exitUsage);

    std::filesystem::remove(host.nativeFolder() / "NAMES.TUL");
    EXPECT_EQ(run({"valid"}).err,
              "cmdValidateRun is not enabled now: no music files are selected.\nSee: tulcmd valid --list\n");
}

TEST_F(Tulcmd, RefusesWhatCannotBeSelectedAndKeepsTheSelection) {
    std::filesystem::create_directory(host.nativeFolder() / "sub");
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
        EXPECT_EQ(outcome.status, exitUsage);
        EXPECT_NE(outcome.err.find(text), std::string::npos) << outcome.err;
    }
    EXPECT_EQ(host.read("NAMES.TUL"), names);
    EXPECT_NE(run({"valid", page("[a,b]")}).out.find("[A,B]"), std::string::npos);
}

TEST_F(Tulcmd, RefusesNamesThatDifferInLetterCaseOnly) {
    host.write("Page.mus", "1");
    if (host.exists("PAGE.mus")) GTEST_SKIP() << "this disk does not tell them apart";
    host.write("PAGE.mus", "2");
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
             {"valid", page("Page.mus"), page("PAGE.mus")}, {"valid", page("Page.mus")}}) {
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, exitUsage);
        EXPECT_NE(outcome.err.find(page("Page.mus")), std::string::npos) << outcome.err;
        EXPECT_NE(outcome.err.find(page("PAGE.mus")), std::string::npos) << outcome.err;
    }
    EXPECT_FALSE(host.exists("NAMES.TUL"));
}

TEST_F(Tulcmd, EndsWithOneAtAFatalMessage) {
    std::filesystem::remove(host.nativeFolder() / "TULOLE.EXE");
    const Outcome outcome = run({"valid", page("good.mus")});
    EXPECT_EQ(outcome.status, exitFatal);
    EXPECT_EQ(
        outcome.err,
        "message: Module TULOLE.EXE not properly installed\n\nmessage: Number of installation issues: 1\n\n");
    host.anotherInstance = true;
    const std::string names = host.read("NAMES.TUL");
    EXPECT_EQ(run({"valid", page("odd.mus")}).status, exitFatal);
    EXPECT_EQ(host.read("NAMES.TUL"), names) << "another program's selection is left alone";
}

TEST_F(Tulcmd, NamesThePageWhereARunEnded) {
    host.write("b.mus", host.read("good.mus"));
    host.faultyFiles().refusals["B.MUS"] = FileError::permissionDenied;
    const Outcome outcome = run({"resiz", "--set", "tabResiz=2", "--set", "txtResizeStaffSize=0.65", "--set",
                                 "chkResizBackup=0", page("good.mus"), page("b.mus"), page("odd.mus")});
    EXPECT_EQ(outcome.status, exitFatal);
    EXPECT_NE(outcome.err.find("Open of output MUS file failed. Hit OK to terminate"), std::string::npos);
    EXPECT_NE(outcome.err.find("\nThe run ended at " + upperCase(host.path("B.MUS")) +
                               "; the files before it are done.\n"),
              std::string::npos)
        << outcome.err;
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
    std::filesystem::remove(host.nativeFolder() / "TULCNTRL.INI");
    std::filesystem::create_directory(host.nativeFolder() / "win");
    host.write("win/WSCORE.EXE", "x");
    const Outcome outcome = run({"--answer", "Cancel", "--answer", "OK", "--answer", page("win/WSCORE.EXE"),
                                 "--no", "valid", page("good.mus")});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(host.read("TULCNTRL.INI")
                  .find("WinScoreProgramPath=" + upperCase(host.path("win\\WSCORE.EXE")) + "\r\n"),
              std::string::npos);
    EXPECT_NE(outcome.out.find("\nGOOD.MUS "), std::string::npos) << "the files given are selected behind it";
    EXPECT_TRUE(host.launches.empty() || host.launches.back() == "TULMONIT.EXE");
}

TEST_F(Tulcmd, ActsOnThePanelThatACommandHasOpened) {
    run({"valid", page("good.mus")});
    const Outcome tool = run({"logo", "--press", "cmdValid", "--press", "cmdValidateRun", "--press",
                              "cmdValidateReturn", "--press", "mnuNamesStatus"});
    EXPECT_EQ(tool.status, 0) << tool.err;
    EXPECT_TRUE(tool.out.starts_with("MUS File validation "));
    EXPECT_NE(tool.err.find("1 name(s) in "), std::string::npos);

    const Outcome options = run({"logo", "--press", "cmdProjectOptions", "--set", "optPanelPreference=2",
                                 "--press", "cmdGlobalOptionsReturn", "--press", "mnuNamesStatus"});
    EXPECT_EQ(options.status, 0) << options.err;
    EXPECT_NE(host.read("TULPROJ.PRO").find("PanelPreference=2\r\n"), std::string::npos);
    EXPECT_EQ(mainPanel.tabLogo, 2) << "the preferred tab comes to the front";

    run({"--no", "valid", page("bad.mus")});
    EXPECT_EQ(
        run({"logo", "--press", "cmdValid", "--press", "cmdValidateRun", "--press", "cmdValidateReturn"})
            .status,
        3)
        << "the tool's status is that of the run";
    const Outcome back =
        run({"logo", "--press", "cmdValid", "--press", "cmdValidateReturn", "--press", "Picture1DblClick"});
    EXPECT_NE(back.out.find("\\TULCNTRL.INI - file TUL Control Center - v8.0.0.200\n"), std::string::npos)
        << "the main panel is in front again";
}

TEST_F(Tulcmd, RefusesWhatThePanelInFrontDoesNotHave) {
    const Outcome behind = run({"logo", "--press", "cmdValid", "--press", "mnuNamesStatus"});
    EXPECT_EQ(behind.status, exitUsage);
    EXPECT_EQ(behind.err, "frmValid has no command mnuNamesStatus.\nSee: tulcmd valid --list\n");
    EXPECT_EQ(run({"logo", "--press", "cmdCombi"}).err,
              "cmdCombi is not enabled now.\nSee: tulcmd logo --list\n");
    const Outcome nowhere = run({"logo", "--press", "cmdValid", "--press", "cmdNowhere"});
    EXPECT_EQ(nowhere.err, "frmLogo has no command cmdNowhere.\nSee: tulcmd logo --list\n");
    EXPECT_EQ(run({"logo", "--press", "cmdValidateRun"}).err,
              "frmLogo has no command cmdValidateRun.\nSee: tulcmd logo --list\n");
}

TEST_F(Tulcmd, ListsAPanel) {
    const Outcome outcome = run({"valid", "--list"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.out.starts_with("frmValid - TulValid - MUS file validation and recovery\n"));
    EXPECT_NE(outcome.out.find("  cmdValidateRun              Run (disabled) (default)\n"),
              std::string::npos);
    EXPECT_NE(outcome.out.find("  txtValidRange               text      (read only) 32\n"),
              std::string::npos);
}

TEST_F(Tulcmd, PrintsTextFilesAndLeaves) {
    host.write("TULPROJ.PRO", "MusDirectory=" + host.folder() + "\r\n");
    host.write("notes.txt", "caf\xE9\r\n");
    const Outcome outcome = run({"logo", "--press", "mnuSeeTextFile", "--set", "lstTextFiles=notes.txt"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(outcome.out.find("\n\ncaf\xC3\xA9\n"), std::string::npos);
    EXPECT_NE(outcome.out.find("\nnotes.txt\n"), std::string::npos) << "the list itself is printed first";
    EXPECT_EQ(run({"logo", "--press", "cmdExit"}).status, 0);
    EXPECT_TRUE(host.profile["TUL"]["StartTime"].starts_with("OFF "));
}

}  // namespace
}  // namespace tul::command
