#include "centre/launching.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "shared/records.h"
#include "support/scripted_host.h"

namespace tul {
namespace {

using testing::endOf;
using testing::ScriptedHost;

int succeed(const std::string&) { return 0; }

TEST(Launching, RunsAProgramByItsFileName) {
    ScriptedHost host;
    host.programs["TULRECOV.EXE"] = [](const std::string&) { return 255; };
    ShellAndWait("Z:\\TUL\\TULRECOV.EXE Z:\\A.EXE.MUS 12");
    EXPECT_EQ(host.launches.back(), "TULRECOV.EXE Z:\\A.EXE.MUS 12");
    EXPECT_TRUE(host.messages.empty()) << "a utility's own failure is not seen";
}

TEST(Launching, DoublesACharacterOfScoresArgumentsOnWindows2000) {
    ScriptedHost host;
    host.programs["SCORE.EXE"] = succeed;
    identity.OsCode = "2K Test";
    ShellAndWait("C:\\SCORE\\SCORE.EXE ABC");
    EXPECT_EQ(host.launches.back(), "SCORE.EXE AABC");
}

TEST(Launching, FindsTheEndOfAProgramInAnyFolder) {
    ScriptedHost host;
    host.programs["TULFOLDR.EXE"] = succeed;
    host.programs["TULNAMES.EXE"] = succeed;
    ShellAndWait("Z:\\m.exeter\\TULFOLDR.EXE FILE=A");
    EXPECT_EQ(host.launches.back(), "TULFOLDR.EXE FILE=A");
    ShellAndWait("Z:\\j.bates\\TULNAMES.EXE FILE=A");
    EXPECT_EQ(host.launches.back(), "Z:\\j.bates\\TULNAMES.EXE FILE=A");
    ShellAndWait("Z:\\ScoreEngine\\TULFOLDR.EXE FILE=A");
    EXPECT_EQ(host.launches.back(), "Z:\\ScoreEngine\\TULFOLDR.EXE FILE=A");
    EXPECT_TRUE(host.messages.empty());
}

TEST(Launching, StartsBatchFilesDirectlyAndEndsWhenThatFails) {
    ScriptedHost host;
    host.programs["GO.BAT"] = succeed;
    ShellAndWait("Z:\\TUL\\GO.BAT 1 2");
    EXPECT_EQ(host.launches.back(), "Z:\\TUL\\GO.BAT 1 2");
    host.programs["GO.BAT"] = [](const std::string&) { return -1; };
    EXPECT_EQ(endOf([] { ShellAndWait("Z:\\TUL\\GO.BAT 1 2"); }), 1);
    EXPECT_EQ(host.messages.back(), "Failed to execute Z:\\TUL\\GO.BAT 1 2");
}

TEST(Launching, EndsAtACommandThatNamesNoProgram) {
    ScriptedHost host;
    EXPECT_EQ(endOf([] { ShellAndWait("gedit Z:\\A.TXT"); }), 1);
    EXPECT_EQ(host.messages.back(),
              "ShellAndWait error: gedit Z:\\A.TXT\r\nAssure that TUL knows where NOTEPAD/WORDPAD are.");
}

TEST(Launching, GivesTheWholeScreenToEditorsAndHelp) {
    ScriptedHost host;
    for (const char* program : {"notepad.exe", "C:\\W\\WordPad.exe", "WINHELP.EXE", "clipbrd.exe"}) {
        ShellAndWait(std::string(program) + " A");
        EXPECT_TRUE(host.events.end()[-2].starts_with("launch maximized ")) << program;
    }
    ShellAndWait("TULEDIT.EXE");
    EXPECT_EQ(host.events.end()[-2], "launch TULEDIT.EXE");
}

TEST(Launching, TellsWhyAProgramDidNotStartAndGoesOn) {
    ScriptedHost host;
    ShellAndWait("Z:\\TUL\\TULCUT.EXE A");
    EXPECT_EQ(
        host.messages.back(),
        "Call to TULCUT.EXE causes error: not found\r\nUsually this error occurs when too many files are "
        "selected with Drag/Drop.\r\nIt could also be that the physical screen is not big enough.\r\nIn "
        "that case change DPI setting to lower value.\r\nThis could also be an installation or a "
        "programming error. Contact Development.");
    ShellAndWait("Z:\\TUL\\TULSCHLP.EXE");
    EXPECT_EQ(
        host.messages.back(),
        "Call to TulScHlp causes error: not found\r\nThis is usually the case when the physical screen is "
        "not big enough.\r\nChange DPI setting to lower value.");
}

TEST(Launching, ShowsHelpWhereThePlatformStillHasItsHelpProgram) {
    ScriptedHost host;
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
    host.programs = {{"TULWINHELP", succeed}, {"WINHELP.EXE", succeed}};
    ShowHelpFile("TulClef");
    ShowOwnHelpFile();
    EXPECT_EQ(host.launches,
              (std::vector<std::string>{"TULWINHELP TulClef", "WINHELP.EXE " + host.path("TULCNTRL.HLP")}));
}

}  // namespace
}  // namespace tul
