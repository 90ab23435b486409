#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <random>
#include <thread>

#include "host/linux/temporary_folder.h"
#include "samples/many.h"
#include "support/linux/installation.h"

extern char** environ;

namespace tul {
namespace {

using std::chrono::microseconds;
using std::chrono::steady_clock;

constexpr int pageCount = 500;
constexpr int kills = 200;

/// A folder in memory where the machine has one: a kill leaves the same there, and a run takes a fifth of the
/// time.
struct FolderInMemory {
    FolderInMemory() {
        if (::access("/dev/shm", W_OK) == 0) setenv("TMPDIR", "/dev/shm", 1);
    }
    ~FolderInMemory() { unsetenv("TMPDIR"); }
};

/// A process that rewrites five hundred pages, each with a backup, and that is killed on the way.
class KilledRun : protected FolderInMemory, public testing::InstallationTest {
  protected:
    KilledRun() {
        EXPECT_EQ(exitCodeOf(start({"--no", "logo", "--press", "mnuNamesStatus"})), 0) << "first use";
        fs::create_directory(home / "music");
        Texts names;
        for (int number = 1; number <= pageCount; ++number) {
            pages.push_back("P" + std::to_string(number));
            old.push_back(samples::manyPage(number, 2000));
            host.write(page(pages.back()), old.back());
            names.push_back("music\\" + pages.back() + ".MUS");
        }
        writeNames(names);
    }

    static std::string page(const std::string& name) { return "music/" + name + ".MUS"; }
    static std::string backup(const std::string& name) { return "music/" + name + ".BKU"; }

    pid_t start(Texts words) const {
        words.insert(words.begin(), (home / "TULCMD.EXE").string());
        std::vector<char*> arguments;
        for (std::string& word : words) arguments.push_back(word.data());
        arguments.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
            posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_WRONLY, 0);
        pid_t child = 0;
        EXPECT_EQ(posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(), environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        return child;
    }

    /// The new pages of a run that nobody disturbed, and how long it took.
    microseconds runWhole() {
        const auto begun = steady_clock::now();
        EXPECT_EQ(exitCodeOf(start(resize)), 0);
        const auto time = std::chrono::duration_cast<microseconds>(steady_clock::now() - begun);
        renewed.clear();
        for (const std::string& name : pages) renewed.push_back(host.read(page(name)));
        return time;
    }

    /// Every page is the old or the new one, and the old one is not lost. How many are new. Puts the old ones
    /// back; what else the run left behind stays.
    int countRenewedAndReset() {
        int count = 0;
        for (std::size_t i = 0; i < pages.size(); ++i) {
            const std::string now = host.read(page(pages[i]));
            const bool hasBackup = host.exists(backup(pages[i]));
            if (hasBackup) {
                EXPECT_EQ(host.read(backup(pages[i])), old[i]) << pages[i];
                fs::remove(home / backup(pages[i]));
            }
            if (now == old[i]) continue;
            ++count;
            EXPECT_EQ(now, renewed[i]) << pages[i];
            EXPECT_TRUE(hasBackup) << pages[i];
            host.write(page(pages[i]), old[i]);
        }
        return count;
    }

    int remnants() const {
        int count = 0;
        for (const auto& entry : fs::directory_iterator(home / "music"))
            count += entry.path().extension() == ".tul-new";
        return count;
    }

    const Texts resize = {"--no",       "--set", "chkResizBackup=1",       "--set",
                          "tabResiz=2", "--set", "txtResizeStaffSize=0.9", "resiz"};
    Texts pages;
    Texts old;
    Texts renewed;
};

TEST_F(KilledRun, LeavesEveryPageOldOrNewAndTheOldOneInItsBackup) {
    const microseconds time = runWhole();
    ASSERT_EQ(countRenewedAndReset(), pageCount);
    std::mt19937 random(20);
    int midway = 0;
    for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
        const pid_t child = start(resize);
        std::this_thread::sleep_for(time * static_cast<long>(random() % 1000) / 1000);
        ::kill(child, SIGKILL);
        exitCodeOf(child);
        const int count = countRenewedAndReset();
        midway += count > 0 && count < pageCount;
    }
    EXPECT_GT(midway, 0) << "no kill met the run at its work";
    runWhole();
    EXPECT_EQ(remnants(), 0) << "the next writing of a page clears what a killed one left";
    EXPECT_EQ(countRenewedAndReset(), pageCount);
}

}  // namespace
}  // namespace tul
