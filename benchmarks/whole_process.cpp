#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

// Whole processes against the system's own tools on the same files, in turn, so that both meet the same state
// of the machine. Figures are the medians of all rounds.
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

struct Measured {
    double milliseconds = 0;
    long peakKilobytes = 0;
};

Measured measure(const Words& words, const std::string& output) {
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                     0644);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);

    const auto start = std::chrono::steady_clock::now();
    pid_t child = 0;
    if (posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ) != 0) {
        std::fprintf(stderr, "%s could not be started\n", arguments[0]);
        std::exit(1);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    posix_spawn_file_actions_destroy(&actions);
    if (status != 0) {
        std::fprintf(stderr, "%s ended with status %d\n", arguments[0], status);
        std::exit(1);
    }
    return {time.count(), usage.ru_maxrss};
}

Measured median(std::vector<Measured> all) {
    std::sort(all.begin(), all.end(),
              [](const Measured& a, const Measured& b) { return a.milliseconds < b.milliseconds; });
    Measured middle = all[all.size() / 2];
    for (const Measured& one : all) middle.peakKilobytes = std::max(middle.peakKilobytes, one.peakKilobytes);
    return middle;
}

/// Standard output of ours is thrown away; theirs goes to `theirOutput`. `prepare` puts the files of each
/// round as they were.
void compare(
    const char* what, const Words& ours, const char* against, const Words& theirs, int rounds = 11,
    const std::string& theirOutput = "/dev/null", const std::function<void()>& prepare = [] {}) {
    std::vector<Measured> our;
    std::vector<Measured> their;
    for (int round = 0; round <= rounds; ++round) {
        prepare();
        our.push_back(measure(ours, "/dev/null"));
        their.push_back(measure(theirs, theirOutput));
    }
    our.erase(our.begin());  // the first round warms the caches
    their.erase(their.begin());
    const Measured a = median(our);
    const Measured b = median(their);
    std::printf("%-28s %8.1f ms   %-11s %8.1f ms   ratio %5.2f   peak %5.1f MB\n", what, a.milliseconds,
                against, b.milliseconds, a.milliseconds / b.milliseconds,
                static_cast<double>(a.peakKilobytes) / 1024);
    std::fflush(stdout);
}

Words withFiles(Words words, const Words& files) {
    words.insert(words.end(), files.begin(), files.end());
    return words;
}

Words filesOf(const fs::path& folder) {
    Words files;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == ".MUS") files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}

void removeBackups(const fs::path& folder) {
    std::vector<fs::path> backups;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == ".BKU") backups.push_back(entry.path());
    for (const fs::path& backup : backups) fs::remove(backup);
}

/// Tools that rewrite every page, against copying the pages into an empty folder.
void compareRewriting(const fs::path& home, const fs::path& folder, const Words& pages) {
    const fs::path copies = folder.parent_path() / "copies";
    Words copying = withFiles({"cp"}, pages);
    copying.push_back(copies.string());
    const auto prepare = [&] {
        removeBackups(folder);
        fs::remove_all(copies);
        fs::create_directory(copies);
    };
    const Words tulcmd = {(home / "tulcmd").string(), "--no"};
    const Words resize = withFiles(tulcmd, {"--set", "tabResiz=2", "--set", "txtResizeStaffSize=0.9"});
    compare("resize, no backups", withFiles(withFiles(resize, {"--set", "chkResizBackup=0", "resiz"}), pages),
            "cp", copying, 11, "/dev/null", prepare);
    compare("resize, backups", withFiles(withFiles(resize, {"--set", "chkResizBackup=1", "resiz"}), pages),
            "cp", copying, 11, "/dev/null", prepare);
    // The replacement is what is searched, in apostrophes: every round finds and rewrites the same.
    const Words edit = withFiles(tulcmd, {"--set", "chkEditBackup=0", "edit"});
    const Words texts = {
        "--set", "tabEdit=3", "--set", "txtEditSearchString1=e", "--set", "txtEditSearchString2='e'"};
    const Words conditions = {
        "--set",   "tabEdit=6", "--set",     "txtp1=1",    "--set",    "lstr1==", "--set",
        "txtv1=1", "--set",     "lstl2=AND", "--set",      "txtp2=3",  "--set",   "lstr2=>",
        "--set",   "txtv2=100", "--set",     "lstl3=&not", "--set",    "txtp3=7", "--set",
        "lstr3==", "--set",     "txtv3=0",   "--set",      "txtp4=15", "--set",   "txtv4=1.1"};
    compare("search and replace", withFiles(withFiles(edit, texts), pages), "cp", copying, 11, "/dev/null",
            prepare);
    compare("three conditions", withFiles(withFiles(edit, conditions), pages), "cp", copying, 11, "/dev/null",
            prepare);
    const Words quarter(pages.begin(), pages.begin() + static_cast<std::ptrdiff_t>(pages.size() / 4));
    copying = withFiles({"cp"}, quarter);
    copying.push_back(copies.string());
    compare("resize of a quarter",
            withFiles(withFiles(resize, {"--set", "chkResizBackup=0", "resiz"}), quarter), "cp", copying, 11,
            "/dev/null", prepare);
    prepare();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: tulbench INSTALLATION PAGES NAMES\n");
        return 2;
    }
    const fs::path home = fs::absolute(argv[1]);
    setenv("XDG_CONFIG_HOME", (home / "config").c_str(), 1);
    const Words validate = {(home / "tulcmd").string(), "--no", "valid"};

    const fs::path folder = fs::absolute(argv[2]);
    const Words pages = filesOf(folder);
    // A score's pages are selected when the control centre starts.
    measure(withFiles(validate, {pages.begin(), pages.begin() + 20}), "/dev/null");
    compare("start to the main panel", {(home / "paintedstart").string()}, "bare window", {TUL_BARE_WINDOW});
    compare("validation of the pages", withFiles(validate, pages), "cat", withFiles({"cat"}, pages));

    compareRewriting(home, folder, pages);

    // The export writes a file for each page, od one file for all.
    const Words pmx = {(home / "tulcmd").string(), "--no", "pmx"};
    compare("PMX export of the pages", withFiles(pmx, pages), "od",
            withFiles({"od", "-A", "n", "-v", "-t", "f4"}, pages), 3, (home / "od.txt").string());

    // Small pages, so that the names are what takes the time: ten times the names, ten times the time.
    const Words many = filesOf(fs::absolute(argv[3]));
    const Words few(many.begin(), many.begin() + static_cast<std::ptrdiff_t>(many.size() / 10));
    compare("a tenth of the names", withFiles(validate, few), "cat", withFiles({"cat"}, few));
    compare("all names", withFiles(validate, many), "cat", withFiles({"cat"}, many));
    return 0;
}
