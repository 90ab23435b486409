#include "host/linux/linux_processes.h"

#include <csignal>

#include "host/linux/linux_files.h"
#include "host/linux/linux_platform.h"
#include "host/linux/temporary_folder.h"

namespace tul {
namespace {

/// Writes down what it was called with, a line for each argument, and where.
const std::string recorder = "#!/bin/sh\n{ printf '%s\\n' \"$@\"; pwd; } > record\n";

/// What begins as a DOS program, with the mark of another kind behind it.
std::string programMarked(const std::string& mark) {
    return "MZ" + std::string(0x3A, ' ') + std::string("\x48\0\0\0", 4) + std::string(8, ' ') + mark;
}
const std::string windowsProgram = programMarked(std::string("PE\0\0", 4));

class LinuxProcessesTest : public testing::Test {
  protected:
    LinuxProcessesTest() {
        folder.makeFolder("bin");
        folder.makeFolder("my work");
        EXPECT_TRUE(finder.changeFolder(folder.installation("my work")));
    }

    /// The arguments that a program was called with, and its folder.
    std::string recorded(const std::string& program, const std::string& arguments) {
        const LaunchResult result = processes.runAndWait({.program = program, .arguments = arguments});
        return result.started ? folder.get("my work/record") : result.failure;
    }
    std::string failure(const std::string& program) {
        const LaunchResult result = processes.runAndWait({.program = program, .arguments = {}});
        EXPECT_EQ(result.started, processes.canFind(program)) << program;
        return result.failure;
    }

    TemporaryFolder folder;
    const std::string here = folder.native("my work") + "\n";
    const EnvironmentVariable searchPath{"PATH", (folder.native("bin") + ":/usr/bin:/bin").c_str()};
    PathFinder finder;
    LinuxProcesses processes{finder};
};

TEST_F(LinuxProcessesTest, ArgumentsAreSplitAtBlanksButForQuotesAndPathsThatExist) {
    folder.put("my work/record.exe", recorder, 0755);
    folder.put("my work/a  b.mus", "");
    const std::string path = folder.installation("MY WORK\\A  B.MUS");
    EXPECT_EQ(recorded("RECORD.EXE", " one  two "), "one\ntwo\n" + here);
    EXPECT_EQ(recorded("RECORD.EXE", "\"a b\" x=\"c d\" \"\" $HOME *"), "a b\nx=c d\n\n$HOME\n*\n" + here);
    EXPECT_EQ(recorded("RECORD.EXE", path + " -x"), path + "\n-x\n" + here);
    EXPECT_EQ(recorded("RECORD.EXE", "Z:\\no such " + path), "Z:\\no\nsuch\n" + path + "\n" + here);
    folder.makeFolder("my");  // the shorter text names something now; the longest one counts
    EXPECT_EQ(recorded("RECORD.EXE", folder.installation("my work") + " 12"),
              folder.installation("my work") + "\n12\n" + here);
}

TEST_F(LinuxProcessesTest, AProgramIsLookedForHereThenInTheSearchPathAndAPathOnlyThere) {
    folder.put("bin/TulWork.exe", "#!/bin/sh\nexit 7\n", 0755);
    EXPECT_EQ(processes.runAndWait({.program = "TULWORK.EXE", .arguments = {}}).exitCode, 7);
    folder.put("my work/tulwork.exe", "#!/bin/sh\nexit 8\n", 0755);
    EXPECT_EQ(processes.runAndWait({.program = "TULWORK.EXE", .arguments = {}}).exitCode, 8);
    std::filesystem::remove(folder.native("my work/tulwork.exe"));
    EXPECT_EQ(failure(".\\TULWORK.EXE"), ".\\TULWORK.EXE was not found.");
    const std::string path = folder.installation("BIN\\TULWORK.EXE");
    EXPECT_EQ(processes.runAndWait({.program = path, .arguments = {}}).exitCode, 7);

    folder.put("my work/killed", "#!/bin/sh\nkill -9 $$\n", 0755);
    EXPECT_EQ(processes.runAndWait({.program = "KILLED", .arguments = {}}).exitCode, 128 + SIGKILL);
}

TEST_F(LinuxProcessesTest, AProgramThatCannotBeStartedIsToldInWords) {
    folder.put("my work/data.exe", "no program", 0755);
    folder.put("my work/locked.exe", recorder, 0644);
    folder.put("my work/orphan", "#!/no/such/interpreter\n", 0755);
    folder.put("my work/record.exe", recorder, 0755);
    EXPECT_EQ(failure("MISSING.EXE"), "MISSING.EXE was not found.");
    EXPECT_EQ(failure("..\\BIN"), "..\\BIN was not found.");
    EXPECT_EQ(failure("DATA.EXE"), "DATA.EXE is not a program.");
    EXPECT_EQ(failure("LOCKED.EXE"),
              "LOCKED.EXE cannot be started: the file has no permission to be executed.");
    EXPECT_NE(recorded("ORPHAN", "").find("ORPHAN could not be started"), std::string::npos);
    EXPECT_EQ(recorded("RECORD.EXE", std::string(200000, 'x')),
              "The list of files is too long to be handed to RECORD.EXE.");
    std::filesystem::rename(folder.native("my work"), folder.native("moved"));
    EXPECT_EQ(recorded(folder.installation("moved\\record.exe"), ""),
              "The folder " + folder.installation("my work") + " is gone.");
}

TEST_F(LinuxProcessesTest, WindowsAndDosProgramsGoThroughTheirEmulatorsOrSayWhatIsMissing) {
    folder.put("my work/TulPage.exe", windowsProgram);
    folder.put("my work/tulw16.exe", programMarked("NE\5\1"));
    folder.put("my work/extended.exe", programMarked(std::string("LE\0\0", 4)));
    folder.put("my work/score.exe", "MZ and no more");
    folder.put("my work/go.bat", "echo off\r\n");
    {
        const EnvironmentVariable bare("PATH", folder.native("bin").c_str());
        EXPECT_EQ(failure("TULPAGE.EXE"), "TULPAGE.EXE is a Windows program, and wine is not installed.");
        EXPECT_EQ(failure("SCORE.EXE"), "SCORE.EXE is a DOS program, and dosbox is not installed.");
    }
    folder.put("bin/wine", recorder, 0755);
    folder.put("bin/dosbox", recorder, 0755);
    EXPECT_EQ(recorded("TULW16.EXE", ""), folder.native("my work/tulw16.exe") + "\n" + here);
    EXPECT_NE(recorded("EXTENDED.EXE", "").find("mount c "), std::string::npos);
    EXPECT_EQ(recorded("TULPAGE.EXE", "A B"), folder.native("my work/TulPage.exe") + "\nA\nB\n" + here);
    const std::string mount = "-c\nmount c \"" + folder.native("my work") + "\"\n";
    EXPECT_EQ(recorded("SCORE.EXE", "A,, B"), mount + "-c\nc:\n-c\nscore.exe A,, B\n-c\nexit\n" + here);
    EXPECT_EQ(recorded("GO.BAT", ""), mount + "-c\nc:\n-c\ncall go.bat\n-c\nexit\n" + here);
    std::filesystem::rename(folder.native("my work/score.exe"), folder.native("bin/score.exe"));
    EXPECT_EQ(recorded("SCORE.EXE", ""), mount + "-c\nmount d \"" + folder.native("bin") +
                                             "\"\n-c\nc:\n-c\nd:\\score.exe\n-c\nexit\n" + here);
    EXPECT_TRUE(processes.canFind("tulpage.exe"));
}

TEST_F(LinuxProcessesTest, ADosProgramFindsThePathsOfItsArgumentsOnDrives) {
    folder.put("bin/dosbox", recorder, 0755);
    folder.put("my work/score.exe", "MZ");
    folder.makeFolder("my, pages");
    folder.put("my, pages/Page 1.mus", "");
    const auto mount = [this](const char* drive, const std::string& name) {
        return std::string("-c\nmount ") + drive + " \"" + folder.native(name) + "\"\n";
    };
    const auto typed = [this](const std::string& line) {
        return "-c\nc:\n-c\nscore.exe " + line + "\n-c\nexit\n" + here;
    };
    const std::string page = folder.installation("MY, PAGES\\PAGE 1.MUS");
    const std::string both = mount("c", "my work") + mount("d", "my, pages");
    EXPECT_EQ(recorded("SCORE.EXE", " " + page + ",, " + page + " A"),
              both + typed("d:\\Page 1.mus,, d:\\Page 1.mus A"));
    EXPECT_EQ(recorded("SCORE.EXE", "STARTDIR=" + folder.installation("my work") + ",FILE=" + page + ",A=1"),
              both + typed("STARTDIR=c:,FILE=d:\\Page 1.mus,A=1"));
    EXPECT_EQ(recorded("SCORE.EXE", "LIST=" + page + "," + folder.installation("bin\\new.mus") + ","),
              both + mount("e", "bin") + typed("LIST=d:\\Page 1.mus,e:\\new.mus,"));
    EXPECT_EQ(recorded("SCORE.EXE", "Z:\\none\\page.mus ab:\\c"),
              mount("c", "my work") + typed("Z:\\none\\page.mus ab:\\c"));
}

TEST_F(LinuxProcessesTest, WhatDosCannotBeGivenIsToldInWords) {
    folder.put("bin/dosbox", recorder, 0755);
    folder.put("my work/score.exe", "MZ");
    folder.makeFolder("50% \"off\"");
    folder.put("50% \"off\"/a.mus", "");
    EXPECT_EQ(recorded("SCORE.EXE", "A>B"),
              "score.exe cannot be started: DOS has a meaning of its own for < > | and %.");
    EXPECT_TRUE(finder.changeFolder(folder.installation("50% \"off\"")));
    EXPECT_EQ(
        recorded(folder.installation("my work\\score.exe"), ""),
        "score.exe cannot be started: DOS cannot reach the folder " + folder.native("50% \"off\"") + ".");
    EXPECT_TRUE(finder.changeFolder(folder.installation("my work")));
    std::string many = "LIST=";
    for (int number = 0; number < 23; ++number) {
        folder.makeFolder("f" + std::to_string(number));
        many += folder.installation("f" + std::to_string(number)) + ",";
    }
    EXPECT_EQ(recorded("SCORE.EXE", many),
              "score.exe cannot be started: its files lie in more folders than DOS has drives.");
}

TEST_F(LinuxProcessesTest, ADocumentIsHandedOverWithoutWaiting) {
    folder.put("my work/guide.html", "");
    {
        const EnvironmentVariable bare("PATH", folder.native("bin").c_str());
        EXPECT_EQ(processes.openDocument("GUIDE.HTML").failure, "xdg-open is not installed.");
    }
    folder.put("bin/xdg-open", "#!/bin/sh\nread go < gate\necho \"$@\" > record\nmv record opened\n", 0755);
    ASSERT_EQ(::mkfifo(folder.native("my work/gate").c_str(), 0600), 0);
    EXPECT_TRUE(processes.openDocument("GUIDE.HTML").started);
    EXPECT_FALSE(std::filesystem::exists(folder.native("my work/opened"))) << "it is still waiting for us";
    folder.put("my work/gate", "go\n", 0600);
    while (!std::filesystem::exists(folder.native("my work/opened"))) ::usleep(1000);
    EXPECT_EQ(folder.get("my work/opened"), folder.native("my work/guide.html") + "\n");
    EXPECT_TRUE(processes.openDocument("https://example.org/tul").started);
    folder.put("my work/gate", "go\n", 0600);
    while (folder.get("my work/opened") != "https://example.org/tul\n") ::usleep(1000);
}

TEST_F(LinuxProcessesTest, AStartedProgramInheritsNeitherOpenFilesNorIgnoredSignals) {
    LinuxFiles files(finder);
    LinuxPlatform platform(finder);
    EXPECT_EQ(files.replace("a.mus", "turns the signal of the file size limit off here"), FileError::none);
    EXPECT_FALSE(files.canRead("MISSING.MUS"));  // asks for the kernel's notices
    EXPECT_FALSE(platform.anotherInstanceRuns());
    folder.put("my work/record.exe",
               "#!/bin/sh\nls -l /proc/$$/fd > open\ngrep SigIgn /proc/$$/status > ignored\n", 0755);
    ASSERT_TRUE(processes.runAndWait({.program = "record.exe", .arguments = {}}).started);
    EXPECT_EQ(folder.get("my work/open").find("inotify"), std::string::npos);
    EXPECT_EQ(folder.get("my work/open").find("-> " + folder.native("my work") + "\n"), std::string::npos);
    const unsigned long ignored = std::stoul(folder.get("my work/ignored").substr(8), nullptr, 16);
    EXPECT_EQ(ignored & (1UL << (SIGXFSZ - 1)), 0U);
}

TEST_F(LinuxProcessesTest, AnInstallationIsClaimedByOneProcessWhichMayAskAgain) {
    const auto otherRuns = [&](const std::string& place) {
        return inAnotherProcess([&] {
            PathFinder own;
            return own.changeFolder(place) ? int{LinuxPlatform(own).anotherInstanceRuns()} : -1;
        });
    };
    LinuxPlatform platform(finder);
    EXPECT_EQ(otherRuns(finder.currentFolder()), 0);
    EXPECT_FALSE(platform.anotherInstanceRuns());
    EXPECT_FALSE(platform.anotherInstanceRuns());
    EXPECT_EQ(otherRuns(finder.currentFolder()), 1);
    EXPECT_EQ(otherRuns(folder.installation("bin")), 0);
    EXPECT_EQ(folder.names(), (std::set<std::string>{"bin", "my work"}));
    EXPECT_TRUE(std::filesystem::is_empty(folder.native("my work")));
}

}  // namespace
}  // namespace tul
