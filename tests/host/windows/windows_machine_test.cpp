#include <gtest/gtest.h>

#include "base/text.h"
#include "host/windows/windows_platform.h"
#include "host/windows/windows_processes.h"
#include "host/windows/windows_profile.h"
#include "support/scripted_host.h"

namespace tul {
namespace {

using testing::crlf;
using testing::ScriptedHost;

class WindowsProcessesTest : public ::testing::Test {
  protected:
    ScriptedHost host;
    WindowsProcesses processes;
};

TEST_F(WindowsProcessesTest, WaitsAndReadsTheExitCode) {
    EXPECT_EQ(processes.runAndWait({.program = "cmd.exe", .arguments = "/c exit 7"}).exitCode, 7);
    EXPECT_EQ(processes.runAndWait({.program = "CMD", .arguments = " /c exit -1"}).exitCode, -1);
    EXPECT_TRUE(processes.canFind("cmd.exe"));
    host.write("own.bat", "@echo [%1][%2]>said.txt\r\n@exit 3\r\n");
    const LaunchResult batch = processes.runAndWait({.program = "OWN.BAT", .arguments = " one two"});
    EXPECT_TRUE(batch.started) << batch.failure;
    EXPECT_EQ(batch.exitCode, 3);
    EXPECT_EQ(host.read("said.txt"), "[one][two]\r\n");
}

TEST_F(WindowsProcessesTest, SaysWhyAProgramDoesNotStart) {
    EXPECT_EQ(processes.runAndWait({.program = "none.exe", .arguments = ""}).failure,
              "none.exe was not found.");
    EXPECT_EQ(processes.runAndWait({.program = host.path("none.exe"), .arguments = ""}).failure,
              host.path("none.exe") + " was not found.");
    host.write("text.exe", "this is no program");
    const LaunchResult text = processes.runAndWait({.program = "text.exe", .arguments = ""});
    EXPECT_FALSE(text.started);
    EXPECT_EQ(text.failure, "text.exe is not a program that this Windows can run.");
    const std::string list(40000, 'x');
    EXPECT_EQ(processes.runAndWait({.program = "cmd.exe", .arguments = list}).failure,
              "The list of files is too long to be handed to cmd.exe.");
    EXPECT_FALSE(processes.openDocument(host.path("none.txt")).started);
}

TEST(WindowsPlatform, IsRecognised) {
    const WindowsPlatform platform;
    const PlatformVersion version = platform.version();
    EXPECT_EQ(version.platformId, 2);
    EXPECT_GE(version.major, 6);
    EXPECT_NE(version.productType, 0);
    EXPECT_EQ(version.productOptions.empty(), false);
    EXPECT_EQ(platform.nativeArchitecture(), architectureX64);
    EXPECT_NE(platform.computerName(), "");
    const char* const key = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
    EXPECT_TRUE(containsIgnoringCase(platform.registryText(key, "SystemRoot").value_or(""), ":\\windows"));
    EXPECT_EQ(platform.registryText(key, "no such name"), std::nullopt);
}

TEST(WindowsPlatform, OneInstanceHasTheInstallation) {
    const ScriptedHost host;
    WindowsPlatform second;
    {
        WindowsPlatform first;
        EXPECT_FALSE(first.anotherInstanceRuns());
        EXPECT_FALSE(first.anotherInstanceRuns()) << "it is this one";
        EXPECT_TRUE(second.anotherInstanceRuns());
    }
    EXPECT_FALSE(second.anotherInstanceRuns());
    std::filesystem::create_directory(host.nativeFolder() / "other");
    EXPECT_TRUE(files().changeFolder(host.path("other")));
    EXPECT_FALSE(WindowsPlatform().anotherInstanceRuns()) << "another installation";
}

TEST(WindowsProfile, KeepsValuesByTheNewerOfItsTwoFiles) {
    ScriptedHost host;
    WindowsProfile profile;
    const auto setOwn = [](const std::string& folder) { ::_putenv_s("APPDATA", folder.c_str()); };
    const std::string appData = std::getenv("APPDATA");
    setOwn(host.folder());
    profile.write("TUL test", "TOP", "150");
    EXPECT_EQ(profile.read("tul TEST", "top"), "150");
    EXPECT_EQ(profile.read("TUL test", "LEFT"), "");
    profile.write("TUL test", "TOP", "-30\r\nLEFT=1");
    EXPECT_EQ(profile.read("TUL test", "TOP"), "-30");
    EXPECT_EQ(profile.read("TUL test", "LEFT"), "");

    // What was stored while the system's file could not be written is found until that can be written again.
    std::filesystem::create_directory(host.nativeFolder() / "TUL");
    host.write("TUL\\WIN.INI", crlf({"[TUL test]", "TOP=900"}));
    EXPECT_EQ(profile.read("TUL test", "TOP"), "900");
    profile.write("TUL test", "TOP", "1");
    EXPECT_EQ(profile.read("TUL test", "TOP"), "1");
    ::WriteProfileStringA("TUL test", nullptr, nullptr);
    setOwn(appData);
}

}  // namespace
}  // namespace tul
