#include "shared/run_result.h"

#include <algorithm>
#include <numeric>

#include "base/numbers.h"
#include "base/text.h"

namespace tul {

std::vector<RunResult> runResults;

namespace {

bool isInOrder(const PageResult& page) {
    return page.isDone && page.isReadable && !page.isHalfChanged && !page.lacksBackup && !page.lacksRoom;
}

/// A kind of finding and the pages that have it.
struct Finding {
    const char* text;
    bool (*concerns)(const PageResult& page);
    bool ofRewriting = false;
};

constexpr Finding kinds[] = {
    {"Rewritten from an incomplete reading, items may be missing: ",
     [](const PageResult& page) { return page.isWritten && !page.isWhole(); }, true},
    {"Rewritten with items that cannot be read again: ",
     [](const PageResult& page) { return !page.isReadable; }},
    {"Rewritten without a backup: ",
     [](const PageResult& page) { return page.isWritten && page.lacksBackup; }},
    {"The edit broke off at an item, and left the rest as it was: ",
     [](const PageResult& page) { return page.isHalfChanged; }},
    {"Full, so that not all was added: ", [](const PageResult& page) { return page.lacksRoom; }},
    {"Not read whole, and left as they are: ",
     [](const PageResult& page) { return page.isDone && !page.isWritten && !page.isWhole(); }, true},
    {"Not done: ", [](const PageResult& page) { return !page.isDone && !page.reason.empty(); }},
};

void append(std::string& line, const std::string& path, const std::string& reason) {
    if (!line.empty()) line += ", ";
    line += fileNameOf(path);
    if (!reason.empty()) line += " (" + reason + ")";
}

/// Where the run stood when the user stopped it.
std::string stopLine(const RunResult& result) {
    const auto isReached = [](const PageResult& page) { return page.isReached; };
    const auto reached = std::count_if(result.pages.begin(), result.pages.end(), isReached);
    if (reached == 0) return "Stopped by the user before the first file.";
    const PageResult& last = result.pages[static_cast<std::size_t>(reached - 1)];
    return std::string("Stopped by the user ") + (last.isDone ? "behind " : "in ") +
           std::string(fileNameOf(last.path)) + ", file " + plain(reached) + " of " +
           plain(result.pages.size()) + ".";
}

}  // namespace

std::int64_t RunResult::changes() const {
    return std::accumulate(pages.begin(), pages.end(), std::int64_t{0},
                           [](std::int64_t sum, const PageResult& page) { return sum + page.changes; });
}

ExitStatus RunResult::exitStatus() const {
    ExitStatus status = ExitStatus::done;
    const auto meet = [&status](bool holds, ExitStatus other) {
        if (holds) status = graver(status, other);
    };
    meet(end == RunEnd::refused, ExitStatus::refused);
    meet(end == RunEnd::broken, ExitStatus::fatal);
    meet(end == RunEnd::stopped, ExitStatus::stopped);
    for (const PageResult& page : pages) {
        meet(page.reading == Reading::broken, ExitStatus::damaged);
        meet(!isInOrder(page), ExitStatus::notAllDone);
    }
    return status;
}

std::vector<std::string> findingsOf(const RunResult& result) {
    std::vector<std::string> lines;
    for (const Finding& kind : kinds) {
        std::string names;
        for (const PageResult& page : result.pages)
            if (kind.concerns(page) && (result.changesPages || !kind.ofRewriting))
                append(names, page.path, page.reason);
        if (!names.empty()) lines.push_back(kind.text + names);
    }
    std::string twice;
    for (const std::string& path : result.namedTwice) append(twice, path, {});
    if (!twice.empty()) lines.push_back("Named more than once, done once: " + twice);
    if (result.end == RunEnd::stopped) lines.push_back(stopLine(result));
    return lines;
}

std::string summaryOf(const RunResult& result) {
    if (result.end == RunEnd::refused) return {};
    const auto count = [&result](bool (*holds)(const PageResult&)) {
        return std::count_if(result.pages.begin(), result.pages.end(), holds);
    };
    std::string text = plain(result.pages.size()) + (result.pages.size() == 1 ? " file" : " files");
    const auto tell = [&text](std::ptrdiff_t pages, const char* what) {
        if (pages > 0) text += ", " + plain(static_cast<std::int64_t>(pages)) + what;
    };
    tell(count([](const PageResult& page) { return page.isWritten; }), " written");
    tell(count([](const PageResult& page) { return !page.newPath.empty(); }), " renamed");
    tell(count([](const PageResult& page) { return page.reading == Reading::broken; }), " damaged");
    tell(count([](const PageResult& page) { return !page.isDone; }), " not done");
    tell(count([](const PageResult& page) { return page.lacksBackup; }), " without a backup");
    return text + ".";
}

}  // namespace tul
