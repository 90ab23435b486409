#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/date_time.h"
#include "shared/exit_status.h"

/// What became of a run. Report lines behind a tool's own, the exit status, and what a script gets are made
/// from it.
namespace tul {

/// How far a page was read.
enum class Reading {
    none,    // not to an end of its own: not opened, stopped, given up at a question
    whole,   // to its end, trailer and all
    broken,  // its structure breaks off, or it could not be opened
};

/// What happened to one page.
struct PageResult {
    std::string path;
    std::string newPath = {};  // where the run has given it another name
    bool isReached = false;
    bool isDone = false;       // the tool came to its end with the page
    bool isWritten = false;    // replaced, or its output made
    std::int64_t changes = 0;  // of its items
    Reading reading = Reading::none;
    bool isReadable = true;      // as it was written, the reader gives back every item
    bool isHalfChanged = false;  // the change broke off at an item; what came before it was written
    bool lacksBackup = false;    // one was asked for, and its copy failed
    bool lacksRoom = false;      // not all that was to be added has found a place
    std::string reason = {};     // why it was not done, or not read

    [[nodiscard]] bool isWhole() const { return reading == Reading::whole; }
};

enum class RunEnd {
    complete,
    refused,  // before it began
    stopped,  // by the user
    broken,   // by a fatal message or a fault of the program
};

struct RunResult {
    std::string tool = {};  // the panel's name without frm: valid, resiz
    DateTime begun = {};
    bool changesPages = false;  // its pages are rewritten, not only read
    RunEnd end = RunEnd::complete;
    std::string reason = {};    // of a refusal
    std::string brokenAt = {};  // path of the page that was in work when the program ended
    std::vector<PageResult> pages = {};
    std::vector<std::string> namedTwice = {};  // paths that the names file had once more

    /// Of all pages, whether they were written or not.
    [[nodiscard]] std::int64_t changes() const;
    [[nodiscard]] ExitStatus exitStatus() const;
};

/// The runs of this process, or those since somebody emptied it. Owner: the run.
extern std::vector<RunResult> runResults;

/// What the owner of the pages has to know of single ones, a line for each kind of finding; nothing where all
/// went well.
[[nodiscard]] std::vector<std::string> findingsOf(const RunResult& result);

/// The same in one line: how many pages, what became of them, and where the run was stopped.
[[nodiscard]] std::string summaryOf(const RunResult& result);

}  // namespace tul
