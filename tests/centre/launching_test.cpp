#include "centre/launching.h"

#include "support/test.h"

namespace tul {
namespace {

using Launching = HostTest;

TEST_F(Launching, RunsAProgramByItsFileNameInAnyFolder) {
    for (const char* name : {"TULFOLDR.EXE", "TULNAMES.EXE", "SCORE.EXE"}) host.mayRun(name);
    host.programs["TULRECOV.EXE"] = [](const std::string&) { return 255; };
    identity.OsCode = "2K Test";  // on which SCORE gets its first character twice
    for (const auto& [command, launch] :
         {std::pair{"Z:\\TUL\\TULRECOV.EXE Z:\\A.EXE.MUS 12", "TULRECOV.EXE Z:\\A.EXE.MUS 12"},
          {"C:\\SCORE\\SCORE.EXE ABC", "SCORE.EXE AABC"},
          {"Z:\\m.exeter\\TULFOLDR.EXE FILE=A", "TULFOLDR.EXE FILE=A"},
          {"Z:\\j.bates\\TULNAMES.EXE FILE=A", "Z:\\j.bates\\TULNAMES.EXE FILE=A"},
          {"Z:\\ScoreEngine\\TULFOLDR.EXE FILE=A", "Z:\\ScoreEngine\\TULFOLDR.EXE FILE=A"}}) {
        ShellAndWait(command);
        EXPECT_EQ(host.launches.back(), launch);
    }
    EXPECT_TRUE(host.messages.empty()) << "a utility's own failure is not seen";
}

TEST_F(Launching, StartsBatchFilesDirectlyAndEndsWhereNothingCanBeStarted) {
    host.mayRun("GO.BAT");
    ShellAndWait("Z:\\TUL\\GO.BAT 1 2");
    EXPECT_EQ(host.launches.back(), "Z:\\TUL\\GO.BAT 1 2");
    host.programs["GO.BAT"] = [](const std::string&) { return -1; };
    EXPECT_EQ(host.fatal([] { ShellAndWait("Z:\\TUL\\GO.BAT 1 2"); }),
              "Failed to execute Z:\\TUL\\GO.BAT 1 2");
    EXPECT_EQ(host.fatal([] { ShellAndWait("gedit Z:\\A.TXT"); }),
              "ShellAndWait error: gedit Z:\\A.TXT\r\nAssure that TUL knows where NOTEPAD/WORDPAD are.");
}

TEST_F(Launching, GivesTheWholeScreenToEditorsAndHelp) {
    for (const char* program : {"notepad.exe", "C:\\W\\WordPad.exe", "WINHELP.EXE", "clipbrd.exe"}) {
        ShellAndWait(std::string(program) + " A");
        EXPECT_TRUE(host.events.end()[-2].starts_with("launch maximized ")) << program;
    }
    ShellAndWait("TULEDIT.EXE");
    EXPECT_EQ(host.events.end()[-2], "launch TULEDIT.EXE");
}

TEST_F(Launching, TellsWhyAProgramDidNotStartAndGoesOn) {
    for (const char* name : {"TULCUT.EXE", "TULSCHLP.EXE"}) ShellAndWait(std::string("Z:\\TUL\\") + name);
    EXPECT_TRUE(host.messages[0].starts_with(
        "Call to TULCUT.EXE causes error: not found\r\nUsually this error occurs when too many files are "
        "selected with Drag/Drop.\r\n"));
    EXPECT_TRUE(host.messages[1].starts_with(
        "Call to TulScHlp causes error: not found\r\nThis is usually the case when the physical screen"));
}

TEST_F(Launching, ShowsHelpWhereThePlatformStillHasItsHelpProgram) {
    for (const auto& show : {+[] { ShowHelpFile("TulClef"); }, +[] { ShowOwnHelpFile(); }}) {
        identity.OsCode = "W7 Test";
        show();
        EXPECT_EQ(
            host.messages.back(),
            "The WINHELP program has been discontinued by MicroSoft for this platform.\r\nRefer to user "
            "guides for specific explanation or contact development.");
        EXPECT_TRUE(host.launches.empty());
    }
    identity.OsCode = "XP Test";
    for (const char* program : {"TULWINHELP", "WINHELP.EXE"}) host.mayRun(program);
    ShowHelpFile("TulClef");
    ShowOwnHelpFile();
    EXPECT_EQ(host.launches, (Texts{"TULWINHELP TulClef", "WINHELP.EXE " + host.path("TULCNTRL.HLP")}));
}

}  // namespace
}  // namespace tul
