#include "host/windows/windows_files.h"

#include <gtest/gtest.h>

#include <thread>

#include "base/text.h"
#include "host/windows/system_text.h"
#include "support/scripted_host.h"

namespace tul {
namespace {

using testing::ScriptedHost;

class WindowsFilesTest : public ::testing::Test {
  protected:
    void setReadOnly(const std::string& name, bool readOnly = true) const {
        const DWORD attributes = readOnly ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_NORMAL;
        ASSERT_NE(::SetFileAttributesA(host.path(name).c_str(), attributes), 0);
    }
    /// The file as another program has it open that shares it so far.
    Handle openElsewhere(const std::string& name, DWORD share) const {
        return Handle(::CreateFileA(host.path(name).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
    }
    /// What the operations that would take `name` away give.
    void expectStays(const std::string& name, FileError fault) {
        const std::string before = host.read("other.mus");
        EXPECT_EQ(disk.replace(host.path(name), "new"), fault);
        EXPECT_EQ(disk.remove(host.path(name)), fault);
        EXPECT_EQ(disk.renameOver(host.path("other.mus"), host.path(name)), fault);
        EXPECT_EQ(disk.copy(host.path("other.mus"), host.path(name)), fault);
        EXPECT_EQ(host.read("other.mus"), before);
        EXPECT_EQ(disk.list(host.folder()).size(), 2U) << "nothing is left beside it";
    }

    ScriptedHost host;
    Files& disk = files();
};

TEST_F(WindowsFilesTest, TheCaseOfTheDiskIsKept) {
    std::filesystem::create_directory(host.nativeFolder() / "Music");
    host.write("Music\\Page 1.mus", "old");
    const std::string path = host.path("MUSIC\\PAGE 1.MUS");
    EXPECT_EQ(disk.replace(path, "new"), FileError::none);
    EXPECT_EQ(host.read("Music\\Page 1.mus"), "new");
    EXPECT_EQ(disk.list(host.path("music")), std::vector<std::string>{"Page 1.mus"});
    EXPECT_EQ(disk.nameOnDisk(path), "Page 1.mus");
    EXPECT_EQ(disk.toNative(upperCase(path)), host.path("Music\\Page 1.mus"));
    host.write("b", "copied");
    EXPECT_EQ(disk.copy(host.path("b"), path), FileError::none);
    EXPECT_EQ(disk.renameOver(host.path("b"), path), FileError::none);
    EXPECT_EQ(disk.nameOnDisk(path), "Page 1.mus");
    EXPECT_EQ(host.read("Music\\Page 1.mus"), "copied");
}

TEST_F(WindowsFilesTest, AShortNameLeadsToTheSameFile) {
    host.write("a long name.music", "1");
    const std::string path = host.path("a long name.music");
    const std::string shortPath = disk.shortName(path);
    EXPECT_NE(shortPath, path);
    EXPECT_LE(fileNameOf(shortPath).size(), 12U);
    EXPECT_EQ(disk.replace(shortPath, "2"), FileError::none);
    EXPECT_EQ(host.read("a long name.music"), "2");
    EXPECT_EQ(disk.list(host.folder()).size(), 1U);
    EXPECT_EQ(disk.shortName(host.path("none")), host.path("none"));
    const std::string tooLong = host.path(std::string(200, 'x') + ".mus");
    EXPECT_EQ(disk.shortName(tooLong), tooLong);
}

TEST_F(WindowsFilesTest, ANameWithoutSingleBytesIsNotListedUnderAnother) {
    host.write("Dvor\xE1k.mus", "1");
    const std::wstring other = wideText(host.folder()) + L"\\Dvo\x0159\x00E1k.mus";
    Handle(
        ::CreateFileW(other.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    EXPECT_EQ(disk.list(host.folder()), std::vector<std::string>{"Dvor\xE1k.mus"});
}

TEST_F(WindowsFilesTest, WhatHoldsAFileForAMomentIsWaitedFor) {
    host.write("page.mus", "old");
    Handle held = openElsewhere("page.mus", FILE_SHARE_READ);
    std::thread scanner([&held] {
        ::Sleep(100);
        held.close();
    });
    EXPECT_EQ(disk.replace(host.path("page.mus"), "new"), FileError::none);
    scanner.join();
    EXPECT_EQ(host.read("page.mus"), "new");
}

TEST_F(WindowsFilesTest, AReadOnlyFileStays) {
    host.write("page.mus", "old");
    host.write("other.mus", "other");
    setReadOnly("page.mus");
    expectStays("page.mus", FileError::readOnly);
    EXPECT_EQ(host.read("page.mus"), "old");
    EXPECT_EQ(disk.copyToNew(host.path("page.mus"), host.path("PAGE.BKU")), FileError::none);
    EXPECT_EQ(disk.remove(host.path("PAGE.BKU")), FileError::readOnly) << "rights are copied";
    EXPECT_EQ(disk.info(host.path("PAGE.BKU"))->stamp, disk.info(host.path("page.mus"))->stamp);
    setReadOnly("page.mus", false);
    setReadOnly("PAGE.BKU", false);
}

TEST_F(WindowsFilesTest, AFileThatAnotherProgramHoldsStays) {
    host.write("page.mus", "old");
    host.write("other.mus", "other");
    std::string bytes;
    {
        const Handle held = openElsewhere("page.mus", 0);
        EXPECT_FALSE(disk.canRead(host.path("page.mus")));
        EXPECT_EQ(disk.read(host.path("page.mus"), bytes), FileError::permissionDenied);
        EXPECT_EQ(disk.copyToNew(host.path("page.mus"), host.path("PAGE.BKU")), FileError::permissionDenied);
        expectStays("page.mus", FileError::permissionDenied);
    }
    {
        const Handle read = openElsewhere("page.mus", FILE_SHARE_READ);
        EXPECT_EQ(disk.read(host.path("page.mus"), bytes), FileError::none);
        expectStays("page.mus", FileError::permissionDenied);
    }
    EXPECT_EQ(bytes, "old");
    EXPECT_EQ(disk.replace(host.path("page.mus"), "new"), FileError::none);
}

TEST_F(WindowsFilesTest, FailuresAreToldApart) {
    std::string bytes = "before";
    EXPECT_EQ(disk.read(host.path("gone.mus"), bytes), FileError::fileNotFound);
    EXPECT_EQ(bytes, "");
    EXPECT_EQ(disk.read(host.path("gone\\page.mus"), bytes), FileError::pathNotFound);
    EXPECT_EQ(disk.replace(host.path("gone\\page.mus"), ""), FileError::pathNotFound);
    EXPECT_EQ(disk.remove(host.path("gone.mus")), FileError::fileNotFound);
    EXPECT_EQ(disk.rename(host.path("gone.mus"), host.path("x")), FileError::fileNotFound);
    EXPECT_EQ(disk.renameOver(host.path("gone.mus"), host.path("x")), FileError::fileNotFound);
    host.write("a", "a");
    host.write("b", "b");
    EXPECT_EQ(disk.rename(host.path("a"), host.path("B")), FileError::fileExists);
    EXPECT_EQ(disk.copyToNew(host.path("a"), host.path("B")), FileError::fileExists);
    EXPECT_EQ(disk.copy(host.path("a"), host.path("A")), FileError::none) << "onto itself";
    EXPECT_EQ(host.read("a") + host.read("b"), "ab");
    std::filesystem::create_directory(host.nativeFolder() / "folder");
    EXPECT_EQ(disk.replace(host.path("folder"), ""), FileError::permissionDenied);
    EXPECT_FALSE(disk.canRead(host.path("folder")));
    EXPECT_FALSE(disk.canRead("NUL"));
    EXPECT_FALSE(disk.changeFolder(host.path("a")));
}

TEST_F(WindowsFilesTest, WhatAKilledRunLeftIsCleared) {
    host.write(".page.mus.tul-new", "half");
    EXPECT_EQ(disk.replace(host.path("page.mus"), "whole"), FileError::none);
    EXPECT_EQ(disk.list(host.folder()), std::vector<std::string>{"page.mus"});
    host.write("big.mus", std::string(300000, 'x'));
    std::string bytes;
    EXPECT_EQ(disk.read(host.path("big.mus"), bytes), FileError::none);
    EXPECT_EQ(bytes.size(), 300000U);
    EXPECT_EQ(disk.read(host.path("big.mus"), bytes, 100), FileError::none);
    EXPECT_EQ(bytes.size(), 100U);
}

TEST_F(WindowsFilesTest, PathsOfTheSystemTakeTheInstallationsForm) {
    EXPECT_EQ(disk.fromNative("C:/music/./old/../Page.mus"), "C:\\music\\Page.mus");
    EXPECT_EQ(disk.fromNative("C:\\music\\"), "C:\\music");
    EXPECT_EQ(disk.fromNative("C:\\"), "C:\\");
    EXPECT_EQ(disk.fromNative("page.mus").value_or("").substr(1, 2), ":\\");
    EXPECT_TRUE(disk.fromNative("page.mus").value_or("").ends_with("\\page.mus"));
    EXPECT_NE(disk.fromNative("page.mus"), host.path("page.mus")) << "it begins where the process did";
    for (const char* const path : {"", "a\"b", "a\nb", "\\\\server\\share\\page.mus"})
        EXPECT_EQ(disk.fromNative(path), std::nullopt) << path;
}

}  // namespace
}  // namespace tul
