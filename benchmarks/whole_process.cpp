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
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "samples/page_builder.h"

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

struct Side {
    const char* name;
    Words words;
    std::string output = "/dev/null";
};

/// Ours and theirs in turn. What either leaves for the disk to write is written before the other begins.
/// `prepare` puts the files of each round as they were.
void compare(
    const Side& ours, const Side& theirs, int rounds = 11, const std::function<void()>& prepare = [] {}) {
    std::vector<Measured> our;
    std::vector<Measured> their;
    for (int round = 0; round <= rounds; ++round) {
        prepare();
        sync();
        our.push_back(measure(ours.words, ours.output));
        sync();
        their.push_back(measure(theirs.words, theirs.output));
    }
    our.erase(our.begin());  // the first round warms the caches
    their.erase(their.begin());
    const Measured a = median(our);
    const Measured b = median(their);
    std::printf("%-28s %8.1f ms   %-13s %8.1f ms   ratio %5.2f   peak %5.1f MB\n", ours.name, a.milliseconds,
                theirs.name, b.milliseconds, a.milliseconds / b.milliseconds,
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

/// The same, and behind it all that was written is on the disk.
Words thenSync(const Words& words) { return withFiles({"sh", "-c", "\"$@\" && sync", "sh"}, words); }

void copyPages(const Words& pages, const fs::path& folder) {
    fs::remove_all(folder);
    fs::create_directories(folder);
    for (const std::string& page : pages) fs::copy_file(page, folder / fs::path(page).filename());
}

/// A tool that rewrites pages, with what makes it do so.
struct Rewriting {
    const char* name;
    Words words;
};

// The replacement is what is searched, in apostrophes: the same pages are found and rewritten again.
const std::vector<Rewriting> rewritings = {
    {"resize",
     {"--set", "tabResiz=2", "--set", "txtResizeStaffSize=0.9", "--set", "chkResizBackup=0", "resiz"}},
    {"resize, backups", {"--set", "tabResiz=2", "--set", "txtResizeStaffSize=0.9", "resiz"}},
    {"search and replace",
     {"--set", "chkEditBackup=0", "--set", "tabEdit=text", "--set", "txtEditSearchString1=e", "--set",
      "txtEditSearchString2='e'", "edit"}},
    {"three conditions",
     {"--set", "chkEditBackup=0", "--set", "tabEdit=general", "--set", "txtp1=1",   "--set", "lstr1==",
      "--set", "txtv1=1",         "--set", "lstl2=AND",       "--set", "txtp2=3",   "--set", "lstr2=>",
      "--set", "txtv2=100",       "--set", "lstl3=&not",      "--set", "txtp3=7",   "--set", "lstr3==",
      "--set", "txtv3=0",         "--set", "txtp4=15",        "--set", "txtv4=1.1", "edit"}},
    {"offsets", {"--set", "chkEditBackup=0", "--set", "tabEdit=offset", "--set", "chkAutOff=1", "edit"}},
    {"offsets, backups", {"--set", "tabEdit=offset", "--set", "chkAutOff=1", "edit"}},
    {"barlines",
     {"--set", "chkEditBackup=0", "--set", "tabEdit=barline", "--set", "txtEditBarInstr1=16", "--set",
      "txtEditBarUp_2=4", "--set", "txtEditBarInstr_3=12", "--set", "txtEditBarUp_3=4", "edit"}},
    {"barlines, backups",
     {"--set", "tabEdit=barline", "--set", "txtEditBarInstr1=16", "--set", "txtEditBarUp_2=4", "--set",
      "txtEditBarInstr_3=12", "--set", "txtEditBarUp_3=4", "edit"}},
    {"removal of staves",
     {"--set", "chkEditBackup=0", "--set", "tabEdit=staff", "--set", "optEditStaffIRemove=1", "--set",
      "txtRemoveStaves=16,15,14,13,12,11,10,9", "edit"}},
    {"removal of staves, backups",
     {"--set", "tabEdit=staff", "--set", "optEditStaffIRemove=1", "--set",
      "txtRemoveStaves=16,15,14,13,12,11,10,9", "edit"}},
    {"halving", {"--set", "chkEditBackup=0", "--press", "cmdHalve", "edit"}},
    {"halving, backups", {"--press", "cmdHalve", "edit"}},
    {"page numbers", {"--set", "chkRenumBackup=0", "--set", "tabRenum=pages", "renum"}},
    {"page numbers, backups", {"--set", "tabRenum=pages", "renum"}},
    {"staff numbers", {"--set", "chkRenumBackup=0", "--set", "tabRenum=staves", "renum"}},
    {"staff numbers, backups", {"--set", "tabRenum=staves", "renum"}},
};

/// Against copying the pages into an empty folder and onto the disk. All rounds begin with the same pages.
void compareRewriting(const fs::path& home, const Words& pages) {
    const fs::path work = fs::absolute(pages.front()).parent_path().parent_path() / "work";
    const fs::path copies = work.parent_path() / "copies";
    const auto compareOver = [&](const char* name, const Words& tool, std::size_t count) {
        const Words some(pages.begin(), pages.begin() + static_cast<std::ptrdiff_t>(count));
        copyPages(some, work);
        const Words workPages = filesOf(work);
        const Words ours = withFiles(withFiles({(home / "tulcmd").string(), "--no"}, tool), workPages);
        const Words theirs = withFiles({"cp", "-t", copies.string()}, workPages);
        compare({name, ours}, {"cp and sync", thenSync(theirs)}, 5, [&] {
            copyPages(some, work);
            copyPages({}, copies);
        });
    };
    for (const Rewriting& rewriting : rewritings) compareOver(rewriting.name, rewriting.words, pages.size());
    compareOver("resize of a quarter", rewritings.front().words, pages.size() / 4);
}

/// A page as full as it can be, of notes in two voices: all at one place, or spread over the staff.
std::string voicesPage(bool spread) {
    constexpr int notes = 1997;
    tul::samples::PageBuilder page;
    page.item({8, 1, 0, 0, 1, 200}).item({14, 1, 5, 1}).item({14, 1, 199, 1});
    for (int note = 0; note < notes; ++note) {
        const double position = spread ? 10 + 0.09 * (note / 2) : 100;
        const bool isLower = note % 2 == 1;
        page.item({1, 1, position, isLower ? 9.0 : 3.0 + note % 5, isLower ? 20.0 : 10.0, 0, 1});
    }
    return page.bytes();
}

/// What the notes of a page cost where all meet all.
void compareVoices(const fs::path& home, const fs::path& folder) {
    const auto offsets = [&](const char* name, bool spread) {
        const fs::path pages = folder / name;
        fs::remove_all(pages);
        fs::create_directories(pages);
        for (int page = 10; page < 60; ++page)
            std::ofstream(pages / ("PAGE" + std::to_string(page) + ".MUS"), std::ios::binary)
                << voicesPage(spread);
        return withFiles({(home / "tulcmd").string(), "--no", "--set", "chkEditBackup=0", "--set",
                          "tabEdit=offset", "--set", "chkAutOff=1", "edit"},
                         filesOf(pages));
    };
    const Side dense{"offsets at one place", offsets("one", false)};
    const Side spread{"spread out", offsets("spread", true)};
    compare(dense, spread, 5, [&] {
        offsets("one", false);
        offsets("spread", true);
    });
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
    compare({"start to the main panel", {(home / "paintedstart").string()}},
            {"bare window", {TUL_BARE_WINDOW}});
    compare({"validation of the pages", withFiles(validate, pages)}, {"cat", withFiles({"cat"}, pages)});

    compareRewriting(home, pages);
    compareVoices(home, folder.parent_path());

    // The export writes a file for each page, od one file for all.
    const Words pmx = {(home / "tulcmd").string(), "--no", "pmx"};
    compare({"PMX export of the pages", withFiles(pmx, pages)},
            {"od", withFiles({"od", "-A", "n", "-v", "-t", "f4"}, pages), (home / "od.txt").string()}, 3);

    // Small pages, so that the names are what takes the time: ten times the names, ten times the time.
    const Words many = filesOf(fs::absolute(argv[3]));
    const Words few(many.begin(), many.begin() + static_cast<std::ptrdiff_t>(many.size() / 10));
    compare({"a tenth of the names", withFiles(validate, few)}, {"cat", withFiles({"cat"}, few)});
    compare({"all names", withFiles(validate, many)}, {"cat", withFiles({"cat"}, many)});
    return 0;
}
