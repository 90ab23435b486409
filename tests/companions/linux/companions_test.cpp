#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <cstdlib>

#include "support/linux/installation.h"

namespace tul {
namespace {

struct Outcome {
    int status = 0;
    std::string out;  // both streams
};

class Installation : public testing::InstallationTest {
  protected:
    Outcome run(const std::string& command) {
        const std::string line = "cd '" + home.string() + "' && { " + command + "; } 2>&1 </dev/null";
        FILE* const pipe = popen(line.c_str(), "r");
        Outcome outcome;
        std::array<char, 4096> part{};
        while (const std::size_t count = std::fread(part.data(), 1, part.size(), pipe))
            outcome.out.append(part.data(), count);
        outcome.status = WEXITSTATUS(pclose(pipe));
        return outcome;
    }
};

TEST_F(Installation, DroppedFilesBecomeTheSelection) {
    host.write("a b.mus", "1");
    host.makeFolder("folder");
    const std::string list =
        host.path("a b.mus") + "," + host.path("gone.mus") + "," + host.path("folder") + ",";
    const Outcome outcome = run("./TULOLE.EXE 'STARTDIR=" + host.folder() +
                                ",NAMESFILE=NAMES.TUL,DEBUG=NO,TYPE=MUS,LIST=" + list + "'");
    EXPECT_EQ(outcome.status, 0) << outcome.out;
    EXPECT_EQ(host.read("NAMES.TUL"), crlf({host.path("a b.mus") + " 1", host.path("gone.mus") + " 1"}));

    const Outcome nothing = run("./TULOLE.EXE 'STARTDIR=" + host.folder() + ",NAMESFILE=NAMES.TUL,LIST='");
    EXPECT_EQ(nothing.status, 1);
    EXPECT_TRUE(contains(nothing.out, "the selection stays as it was"));
    EXPECT_NE(host.read("NAMES.TUL"), "");
    EXPECT_EQ(run("./TULOLE.EXE").status, 1);
}

TEST_F(Installation, MonitorsAreToldWithoutADisplay) {
    EXPECT_EQ(run("./TULMONIT.EXE").status, 0);
    EXPECT_EQ(host.read("TulMonit.TXT"),
              crlf({"WorkAreaHeight=768", "NumberOfMonitors=0", "CurrentMonitorRight=1024"}));
}

TEST_F(Installation, WhatNeedsAWindowSaysSoAndLeavesTheSelection) {
    host.write("NAMES.TUL", "* mine\r\n");
    host.write("TULFOLDR.TUL", "Z:\\OLD\r\n");
    const Outcome names =
        run("./TULNAMES.EXE 'STARTDIR=" + host.folder() + ",SUFFIX=MUS,NAMESFILE=NAMES.TUL,DEBUG=NO'");
    EXPECT_EQ(names.status, 1);
    EXPECT_TRUE(contains(names.out, "TULNAMES: choosing files needs a display or a terminal"));
    EXPECT_EQ(host.read("NAMES.TUL"), "* mine\r\n");
    const Outcome folder =
        run("./TULFOLDR.EXE 'REMARK=Which,STARTDIR=" + host.folder() + ",FILE=TULFOLDR.TUL,DEBUG=NO'");
    EXPECT_EQ(folder.status, 1);
    EXPECT_FALSE(host.exists("TULFOLDR.TUL")) << "an old choice is not taken for a new one";
}

TEST_F(Installation, ScoreIsOpenedWhereItIsLinked) {
    EXPECT_TRUE(contains(run("./TULSKORE.EXE").out, "TULSKORE: there is no TULCNTRL.INI"));
    host.write("TULCNTRL.INI", "ScorePath=\r\n");
    EXPECT_TRUE(contains(run("./TULSKORE.EXE").out, "no SCORE is linked"));
    host.write("TULCNTRL.INI", "ScorePath=Z:\\none\\SCORE.EXE\r\n");
    EXPECT_TRUE(contains(run("./TULSKORE.EXE").out, "was not found: Z:\\none\\SCORE.EXE"));

    host.makeFolder("score");
    host.write("score/SCORE.EXE", "#!/bin/sh\necho \"$PWD [$1]\"\n");
    fs::permissions(home / "score/SCORE.EXE", fs::perms::owner_all);
    host.write("TULCNTRL.INI", "ScorePath=" + host.path("score\\SCORE.EXE") + "\r\n");
    EXPECT_EQ(run("./TULSCORE.EXE 'Z:\\A.MUS,,'").out, (home / "score").string() + " [Z:\\A.MUS]\n");
    EXPECT_EQ(run("./TULSCORE.EXE '.,,'").out, (home / "score").string() + " []\n");
    EXPECT_EQ(run("./TULSCORE.EXE 'Z:\\my A, B.MUS,,'").out,
              (home / "score").string() + " [Z:\\my A, B.MUS]\n");

    host.write("TULCNTRL.INI", "WinScoreProgramPath=" + host.path("score\\SCORE.EXE") + "\r\n");
    EXPECT_EQ(run("./TULSKORE.EXE").out, (home / "score").string() + " []\n");
    EXPECT_TRUE(contains(run("./TULSCORE.EXE '.,,FORCEDOSVERSION=YES'").out, "no SCORE is linked"));
}

const std::string rest = testing::words({3, 2, 1, 40});
const std::string damagedPage = testing::pageOf(rest + testing::words({1}) + rest + rest + rest);

TEST_F(Installation, WindowsAreForThoseWhoWorkInThem) {
    for (const char* name : {"TULSKORE.EXE", "TULRECOV.EXE"}) {
        host.remove(name);  // the window is looked for beside the program that asks for it
        fs::copy(fs::path(TUL_COMPANION_FOLDER) / name, home / name);
    }
    host.write("TULTELL.EXE", "#!/bin/sh\nprintf '[%s]' \"$@\" >told\n");
    fs::permissions(home / "TULTELL.EXE", fs::perms::owner_all);
    const auto told = [&](const std::string& environment, const std::string& program = "./TULSKORE.EXE") {
        host.remove("told");
        run("env " + environment + " " + program);
        return host.exists("told") ? host.read("told") : std::string();
    };
    const std::string why = "[refusal][TULSKORE][there is no TULCNTRL.INI in the current folder.]";
    EXPECT_EQ(told("DISPLAY="), "");
    EXPECT_EQ(told("TUL_TALK=windows"), "") << "without a display";
    EXPECT_EQ(told("DISPLAY=:0"), why) << "nobody reads a pipe";
    EXPECT_EQ(told("WAYLAND_DISPLAY=w TUL_TALK=windows"), why);
    EXPECT_EQ(told("DISPLAY=:0 TUL_TALK=terminal"), "");
    EXPECT_EQ(told("DISPLAY=:0 QT_QPA_PLATFORM=offscreen"), "");
    EXPECT_EQ(told("DISPLAY=:0", "script -qec './TULSKORE.EXE >log 2>&1' /dev/null"), "")
        << "a terminal is left";
    host.write("page.mus", testing::pageOf(rest));
    const std::string report = told("DISPLAY=:0", "./TULRECOV.EXE page.mus 1");
    EXPECT_TRUE(report.starts_with("[report][TULRECOV][")) << report;
    EXPECT_TRUE(contains(report, "is not damaged: 1 items."));
    EXPECT_EQ(run("env TUL_TALK=terminal DISPLAY=:0 ./TULNAMES.EXE STARTDIR=a,NAMESFILE=b").status, 1);
}

TEST_F(Installation, ValidationsOfferRecoversAPage) {
    host.makeFolder("my music");
    host.write("my music/page.mus", damagedPage);
    run("./TULCMD.EXE --no logo --press mnuNamesStatus");
    const Outcome offered = run("./TULCMD.EXE --yes valid 'my music/page.mus'");
    EXPECT_EQ(offered.status, 3) << offered.out;
    EXPECT_TRUE(contains(offered.out, "Items kept:        1\nItems found again: 3\nItems lost:        none"));
    EXPECT_EQ(host.read("my music/PAGE.BKU"), damagedPage);
    EXPECT_EQ(host.read("my music/page.mus"), testing::pageOf(rest + rest + rest + rest));
    EXPECT_EQ(run("./TULCMD.EXE valid").status, 0);

    const Outcome sound = run("./TULRECOV.EXE 'my music/page.mus' 4");
    EXPECT_EQ(sound.status, 0);
    EXPECT_TRUE(contains(sound.out, "is not damaged: 4 items. Nothing was changed."));
    EXPECT_FALSE(host.exists("my music/PAGE.BKV"));
}

TEST_F(Installation, APageIsNotRecoveredWithoutABackup) {
    const auto refused = [&](const std::string& arguments, const std::string& why) {
        const Outcome outcome = run("./TULRECOV.EXE " + arguments);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_TRUE(contains(outcome.out, "TULRECOV: " + why));
        EXPECT_FALSE(contains(outcome.out, "Items kept"));
    };
    for (const char* arguments : {"", "12", "page.mus", "page.mus -1", "page.mus 1.5", "page.mus 99999"})
        refused(arguments, "a page and the number of its good items are needed");
    refused("none.mus 1", "the page could not be read");
    host.write("empty.mus", "");
    refused("empty.mus 1", "no items of music were found");
    EXPECT_FALSE(host.exists("EMPTY.BKU"));

    fs::create_symlink("/dev/full", home / "FULL.BKU");
    host.write("full.mus", damagedPage);
    refused("full.mus 1", "Failed to take backup copy of file");
    EXPECT_EQ(host.read("full.mus"), damagedPage);
    host.write("locked.mus", damagedPage);
    fs::permissions(home / "locked.mus", fs::perms::owner_read);
    refused("locked.mus 1", "the page could not be written and stays as it was");
    EXPECT_EQ(host.read("locked.mus"), damagedPage);
}

TEST_F(Installation, TulcmdWorksAsAProcess) {
    host.makeFolder("music");
    host.write("music/page.mus", testing::pageOf(testing::words({2, 14, 1})));
    const Outcome first = run("./TULCMD.EXE valid music/page.mus");
    EXPECT_EQ(first.status, 0) << first.out;
    EXPECT_TRUE(host.exists("TULCNTRL.INI"));
    const Outcome again =
        run("cd / && '" + (home / "TULCMD.EXE").string() + "' --home '" + home.string() + "' valid");
    EXPECT_EQ(again.status, 0) << again.out;
    EXPECT_TRUE(contains(again.out, "PAGE.MUS     ")) << "the selection of the home folder";
}

TEST_F(Installation, ASecondProgramInOneInstallationIsRefused) {
    host.write("page.mus", testing::pageOf(testing::words({2, 14, 1})));
    ASSERT_EQ(run("./TULCMD.EXE valid page.mus").status, 0);
    const std::string names = host.read("NAMES.TUL");
    host.write("other.mus", "1");
    // flock(1) claims the folder as a running program does.
    const Outcome outcome = run("flock . ./TULCMD.EXE valid other.mus");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "message: There can only be one instance of TUL\n\n");
    EXPECT_EQ(host.read("NAMES.TUL"), names);
}

}  // namespace
}  // namespace tul
