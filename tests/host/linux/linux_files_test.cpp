#include "host/linux/linux_files.h"

#include <fcntl.h>
#include <sys/resource.h>

#include <array>
#include <atomic>
#include <csignal>
#include <thread>

#include "host/linux/temporary_folder.h"

namespace tul {
namespace {

using Names = std::set<std::string>;

class LinuxFilesTest : public testing::Test {
  protected:
    std::string path(const std::string& name = "") const { return folder.installation(name); }
    std::string contents(const std::string& name) const {
        std::string bytes = "left from before";
        return files.read(path(name), bytes, std::string::npos) == FileError::none ? bytes : "cannot be read";
    }

    TemporaryFolder folder;
    PathFinder finder;
    LinuxFiles files{finder};
};

TEST_F(LinuxFilesTest, NamesAreFoundInAnyCaseAndTheExactOneComesFirst) {
    folder.makeFolder("Music");
    folder.put("Music/page.mus", "lower");
    EXPECT_EQ(contents("MUSIC\\PAGE.MUS"), "lower");
    EXPECT_EQ(files.nameOnDisk(path("music\\Page.Mus")), "page.mus");

    folder.put("Music/PAGE.MUS", "upper");
    EXPECT_EQ(contents("MUSIC\\PAGE.MUS"), "upper");
    EXPECT_EQ(contents("MUSIC\\page.mus"), "lower");
    std::filesystem::remove(folder.native("Music/PAGE.MUS"));
    EXPECT_EQ(contents("MUSIC\\PAGE.MUS"), "lower");

    // A folder that matches exactly takes the place of the one that was found before.
    folder.makeFolder("MUSIC");
    EXPECT_FALSE(files.canRead(path("MUSIC\\PAGE.MUS")));
    std::filesystem::remove(folder.native("MUSIC"));
    std::filesystem::rename(folder.native("Music"), folder.native("mUSIC"));
    EXPECT_EQ(contents("MUSIC\\PAGE.MUS"), "lower");

    folder.put("\xC3\xA9.mus", "only A to Z have a case");
    EXPECT_FALSE(files.canRead(path("\xC3\x89.MUS")));
    EXPECT_TRUE(files.canRead(path("\xC3\xA9.MUS")));
}

TEST_F(LinuxFilesTest, PathsAreTakenAsTheInstallationWritesThem) {
    folder.makeFolder("one/two");
    folder.makeFolder(".wine/dosdevices");
    std::filesystem::create_directory_symlink("../../one", folder.native(".wine/dosdevices/c:"));
    folder.put("one/a.txt", "a");
    const EnvironmentVariable home("HOME", folder.native().c_str());
    const std::string processFolder = std::filesystem::current_path();

    ASSERT_TRUE(files.changeFolder(path("ONE\\TWO\\")));
    EXPECT_EQ(files.currentFolder(), path("one\\two"));
    EXPECT_EQ(finder.native("..\\.\\A.TXT"), folder.native("one/a.txt"));
    EXPECT_EQ(finder.native("c:../TWO"), folder.native("one/two"));
    EXPECT_EQ(finder.native("\\..\\.."), "/");
    EXPECT_FALSE(files.changeFolder("..\\a.txt"));
    EXPECT_FALSE(files.changeFolder("missing"));
    EXPECT_EQ(files.currentFolder(), path("one\\two"));
    EXPECT_EQ(std::filesystem::current_path(), processFolder);

    EXPECT_EQ(finder.native("C:\\A.TXT"), folder.native("one/a.txt"));
    ASSERT_TRUE(files.changeFolder("c:\\TWO"));
    EXPECT_EQ(files.currentFolder(), "C:\\two");
    EXPECT_EQ(finder.native("\\a.txt"), folder.native("one/a.txt"));
    EXPECT_FALSE(finder.native("D:\\a.txt"));

    EXPECT_EQ(finder.native(path("New.Mus")), folder.native("New.Mus"));
    EXPECT_FALSE(finder.native(path("missing\\new.mus")));
    EXPECT_FALSE(finder.native(path("one") + std::string("\0\\a.txt", 7)));
    EXPECT_FALSE(finder.native(""));
    EXPECT_EQ(files.info("Z:\\")->folder, true);
}

TEST_F(LinuxFilesTest, NativePathsComeInAndGoOut) {
    const std::string start = std::filesystem::current_path();
    folder.put("page.mus", "");
    EXPECT_EQ(files.fromNative(folder.native("./page.mus")), path("page.mus"));
    EXPECT_EQ(files.toNative(*files.fromNative("page.mus")), start + "/page.mus");
    EXPECT_EQ(files.fromNative("x:\\a/B"), "x:\\a\\B");
    EXPECT_FALSE(files.fromNative("a\\b"));
    EXPECT_FALSE(files.fromNative("a\nb"));
    EXPECT_EQ(files.toNative(path("PAGE.MUS")), folder.native("page.mus"));

    folder.makeFolder("far/away");
    std::filesystem::create_directory_symlink("far/away", folder.native("near"));
    EXPECT_EQ(files.fromNative(folder.native("near/../x.mus")), path("far\\x.mus"));
}

/// True when whatever another program does to the names of a folder is seen at the next look.
bool seesWhatOthersDo(const TemporaryFolder& folder, PathFinder& finder) {
    for (int turn = 0; turn < 100; ++turn) {
        const std::string number = std::to_string(turn);
        const std::string first = folder.installation("FIRST" + number);
        const std::string second = folder.installation("SECOND" + number);
        if (nameExists(*finder.native(first))) return false;
        folder.put("first" + number, "");
        if (finder.native(first) != folder.native("first" + number)) return false;
        std::filesystem::rename(folder.native("first" + number), folder.native("second" + number));
        if (nameExists(*finder.native(first))) return false;
        if (finder.native(second) != folder.native("second" + number)) return false;
        std::filesystem::remove(folder.native("second" + number));
        if (nameExists(*finder.native(second))) return false;
    }
    return true;
}

TEST_F(LinuxFilesTest, WhatOthersDoToAFolderIsSeenAtOnceEvenWithoutNoticesOfTheKernel) {
    EXPECT_TRUE(seesWhatOthersDo(folder, finder));

    const auto withoutNotices = [&] {
        PathFinder other;
        rlimit limit;
        ::getrlimit(RLIMIT_NOFILE, &limit);
        const rlimit none{0, limit.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
        other.native(path("NO NOTICES CAN BE ASKED FOR"));
        ::setrlimit(RLIMIT_NOFILE, &limit);
        // Only the stamp of a folder that has long been at rest proves that a name is missing.
        const std::array<timespec, 2> longAgo = {timespec{1000, 0}, timespec{1000, 0}};
        ::utimensat(AT_FDCWD, folder.native().c_str(), longAgo.data(), 0);
        other.native(path("MISSING"));
        const std::size_t read = other.names().foldersRead();
        other.native(path("MISSING TOO"));
        return other.names().foldersRead() == read && seesWhatOthersDo(folder, other);
    };
    EXPECT_EQ(inAnotherProcess(withoutNotices), 1);
}

TEST_F(LinuxFilesTest, ARunOverTenThousandFilesDoesNotReadTheFolderForEachOfThem) {
    constexpr int count = 10000;
    for (int number = 0; number < count; ++number) folder.put("p" + std::to_string(number) + ".mus", "");
    int found = 0;
    for (int number = 0; number < count; ++number) {
        const std::string name = path("P" + std::to_string(number));
        found += files.canRead(name + ".MUS") && !files.canRead(name + ".BKU");
        // A run writes as it goes: that must not make it forget the folder.
        ASSERT_LE(finder.names().foldersRead(), 3U);
        if (number % 5 != 0) continue;
        const bool copies = number % 10 == 0;
        ASSERT_EQ(copies ? files.copy(name + ".MUS", name + ".BKU") : files.replace(name + ".MUS", ""),
                  FileError::none);
    }
    EXPECT_EQ(found, count);
    EXPECT_EQ(files.list(path()).size(), count + count / 10U);
}

TEST_F(LinuxFilesTest, MoreFoldersThanAreRememberedAreStillTheRightOnes) {
    for (int number = 0; number < 100; ++number) {
        folder.makeFolder("f" + std::to_string(number));
        folder.put("f" + std::to_string(number) + "/page.mus", std::to_string(number));
    }
    for (int look = 0; look < 200; ++look) {
        const std::string number = std::to_string(look % 100);
        ASSERT_EQ(contents("F" + number + "\\PAGE.MUS"), number);
    }
}

TEST_F(LinuxFilesTest, OnlyFilesAreReadAndNothingIsWaitedFor) {
    folder.put("a", "contents");
    folder.put("empty", "");
    folder.makeFolder("folder");
    ::mkfifo(folder.native("pipe").c_str(), 0600);

    std::string bytes = "much longer than what is to be read now";
    EXPECT_EQ(files.read(path("A"), bytes, 3), FileError::none);
    EXPECT_EQ(bytes, "con");
    EXPECT_EQ(contents("a"), "contents");
    EXPECT_EQ(contents("empty"), "");
    const std::pair<const char*, FileError> refused[] = {{"folder", FileError::permissionDenied},
                                                         {"pipe", FileError::permissionDenied},
                                                         {"missing", FileError::fileNotFound},
                                                         {"no\\such", FileError::pathNotFound}};
    for (const auto& [name, error] : refused) {
        bytes = "old";
        EXPECT_EQ(files.read(path(name), bytes, 100), error) << name;
        EXPECT_EQ(bytes, "") << name;
        EXPECT_FALSE(files.canRead(path(name))) << name;
    }
}

TEST_F(LinuxFilesTest, AReplacedFileKeepsItsNameItsRightsAndItsLink) {
    folder.put("page.mus", "old", 0640);
    const bool administrator = ::geteuid() == 0;
    ASSERT_TRUE(!administrator || ::chown(folder.native("page.mus").c_str(), 1234, 4321) == 0);
    EXPECT_EQ(files.replace(path("PAGE.MUS"), "new"), FileError::none);
    EXPECT_EQ(folder.get("page.mus"), "new");
    struct stat status;
    ASSERT_EQ(::stat(folder.native("page.mus").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
    EXPECT_EQ(status.st_uid, administrator ? 1234U : ::geteuid());

    std::filesystem::create_symlink("page.mus", folder.native("link.mus"));
    std::filesystem::create_symlink("later.mus", folder.native("dangling.mus"));
    EXPECT_EQ(files.replace(path("link.mus"), "through the link"), FileError::none);
    EXPECT_EQ(files.replace(path("dangling.mus"), "made"), FileError::none);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.native("link.mus")));
    EXPECT_EQ(folder.get("page.mus"), "through the link");
    EXPECT_EQ(folder.get("later.mus"), "made");

    const std::string longName(250, 'n');
    EXPECT_EQ(files.replace(path(longName), "fits"), FileError::none);
    EXPECT_EQ(folder.names(), (Names{"page.mus", "link.mus", "dangling.mus", "later.mus", longName}));
}

TEST_F(LinuxFilesTest, ARefusedReplacementLeavesEverythingAsItWas) {
    folder.put("a.mus", "old", 0444);
    folder.makeFolder("folder");
    ::mkfifo(folder.native("pipe").c_str(), 0600);
    EXPECT_EQ(files.replace(path("A.MUS"), "new"), FileError::readOnly);
    EXPECT_EQ(files.replace(path("folder"), "new"), FileError::permissionDenied);
    EXPECT_EQ(files.replace(path("pipe"), "new"), FileError::permissionDenied);
    EXPECT_EQ(files.replace(path("missing\\a.mus"), "new"), FileError::pathNotFound);
    EXPECT_EQ(files.replace("Q:\\a.mus", "new"), FileError::pathNotFound);
    EXPECT_EQ(folder.names(), (Names{"a.mus", "folder", "pipe"}));
    EXPECT_EQ(folder.get("a.mus"), "old");

    folder.put("folder/mine.mus", "old", 0666);
    std::filesystem::permissions(folder.native(), std::filesystem::perms(0755));
    std::filesystem::permissions(folder.native("folder"), std::filesystem::perms(0555));
    const auto withoutRights = [&] {
        if (::geteuid() == 0 && ::setuid(65534) != 0) return -1;
        return static_cast<int>(files.replace(path("folder\\mine.mus"), "new"));
    };
    EXPECT_EQ(inAnotherProcess(withoutRights), static_cast<int>(FileError::permissionDenied));
    std::filesystem::permissions(folder.native("folder"), std::filesystem::perms(0755));
    EXPECT_EQ(folder.get("folder/mine.mus"), "old");
}

TEST_F(LinuxFilesTest, AFullDiskIsToldAndLeavesTheOldFileAndNoRemnant) {
    folder.put("a.mus", "old");
    folder.put("big.mus", std::string(100000, 'b'));
    for (const bool copies : {false, true}) {
        const auto writeWithLimit = [&] {
            const rlimit limit{4096, 4096};
            ::setrlimit(RLIMIT_FSIZE, &limit);
            return static_cast<int>(copies ? files.copy(path("BIG.MUS"), path("A.MUS"))
                                           : files.replace(path("A.MUS"), std::string(100000, 'n')));
        };
        EXPECT_EQ(inAnotherProcess(writeWithLimit), static_cast<int>(FileError::diskFull));
    }
    EXPECT_EQ(folder.get("a.mus"), "old");
    EXPECT_EQ(folder.names(), (Names{"a.mus", "big.mus"}));
}

TEST_F(LinuxFilesTest, TwoProgramsThatWriteTheSameFileNeverMixTheirContents) {
    constexpr std::size_t length = 100000;
    folder.put("a.mus", std::string(length, 'o'));
    const auto write = [&](char letter) {
        FileError error = FileError::none;
        for (int written = 0; written < 100;) {
            error = files.replace(path("a.mus"), std::string(length, letter));
            if (error == FileError::none)
                ++written;
            else if (error != FileError::permissionDenied)  // the other one is writing just now
                return false;
        }
        return true;
    };
    const std::array<pid_t, 3> writers = {startProcess([&] { return write('a'); }),
                                          startProcess([&] { return write('b'); }),
                                          startProcess([&] { return write('c'); })};
    for (int turn = 0; turn < 100; ++turn) {
        const std::string bytes = folder.get("a.mus");
        ASSERT_EQ(bytes.size(), length);
        ASSERT_EQ(bytes.find_first_not_of(bytes.front()), std::string::npos);
    }
    for (const pid_t writer : writers) EXPECT_EQ(exitCodeOf(writer), 1);
    EXPECT_EQ(folder.names(), Names{"a.mus"});
}

TEST_F(LinuxFilesTest, RemovingAndRenamingRefuseWhatWouldLoseAFile) {
    folder.put("a.mus", "a");
    folder.put("b.mus", "b", 0444);
    folder.makeFolder("folder");
    EXPECT_EQ(files.remove(path("B.MUS")), FileError::readOnly);
    EXPECT_EQ(files.remove(path("folder")), FileError::permissionDenied);
    EXPECT_EQ(files.remove(path("missing")), FileError::fileNotFound);
    EXPECT_EQ(files.remove(path("no\\such")), FileError::pathNotFound);

    EXPECT_EQ(files.rename(path("A.MUS"), path("B.MUS")), FileError::fileExists);
    EXPECT_EQ(files.rename(path("missing"), path("new")), FileError::fileNotFound);
    EXPECT_EQ(files.rename(path("a.mus"), path("no\\such")), FileError::pathNotFound);
    EXPECT_EQ(folder.names(), (Names{"a.mus", "b.mus", "folder"}));

    EXPECT_EQ(files.rename(path("a.mus"), path("A.Mus")), FileError::none);
    EXPECT_EQ(files.rename(path("B.MUS"), path("FOLDER\\C.MUS")), FileError::none);
    EXPECT_EQ(folder.names(), (Names{"A.Mus", "folder"}));
    EXPECT_EQ(folder.get("folder/C.MUS"), "b");
    EXPECT_EQ(files.remove(path("a.mus")), FileError::none);
    EXPECT_EQ(folder.names(), Names{"folder"});
}

TEST_F(LinuxFilesTest, ACopyHasTheContentsTheTimeAndTheRightsOfItsSource) {
    std::string bytes;
    for (int number = 0; bytes.size() < 300'000; ++number) bytes += std::to_string(number);
    folder.put("page.exe", bytes, 0750);
    folder.put("old.exe", "old", 0600);
    const std::array<timespec, 2> times = {timespec{1000, 0}, timespec{1'000'000'000, 0}};
    ::utimensat(AT_FDCWD, folder.native("page.exe").c_str(), times.data(), 0);

    EXPECT_EQ(files.copy(path("PAGE.EXE"), path("new.exe")), FileError::none);
    EXPECT_EQ(files.copy(path("PAGE.EXE"), path("OLD.EXE")), FileError::none);
    EXPECT_EQ(files.copy(path("PAGE.EXE"), path("page.exe")), FileError::none);
    for (const std::string name : {"page.exe", "new.exe", "old.exe"}) {
        EXPECT_TRUE(folder.get(name) == bytes) << name;
        EXPECT_EQ(files.info(path(name))->stamp, localTime(1'000'000'000)) << name;
    }
    EXPECT_EQ(::access(folder.native("new.exe").c_str(), X_OK), 0);
    EXPECT_NE(::access(folder.native("old.exe").c_str(), X_OK), 0);  // an old file keeps its own rights
    EXPECT_EQ(files.copy(path("missing"), path("x")), FileError::fileNotFound);
    EXPECT_EQ(files.copy(path("old.exe"), path("missing\\x")), FileError::pathNotFound);
    EXPECT_EQ(folder.names(), (Names{"page.exe", "new.exe", "old.exe"}));
}

TEST_F(LinuxFilesTest, AListHoldsThePlainFilesInTheOrderOfTheirBytes) {
    for (const char* name : {"b", "B", "a10", "a2", "\xE9", "back\\slash"}) folder.put(name, "12345");
    folder.makeFolder("folder");
    ::mkfifo(folder.native("pipe").c_str(), 0600);
    std::filesystem::create_symlink("b", folder.native("link"));
    std::filesystem::create_symlink("missing", folder.native("dangling"));
    EXPECT_EQ(files.list(path()), (std::vector<std::string>{"B", "a10", "a2", "b", "link", "\xE9"}));
    EXPECT_TRUE(files.list(path("b")).empty());

    EXPECT_EQ(files.info(path("LINK"))->length, 5U);
    EXPECT_FALSE(files.info(path("LINK"))->folder);
    EXPECT_FALSE(files.info(path("dangling")));
}

}  // namespace
}  // namespace tul
