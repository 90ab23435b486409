#include "command/run_json.h"

#include <nlohmann/json.hpp>

#include "base/numbers.h"
#include "base/text.h"
#include "host/host.h"

namespace tul::command {

namespace {

using Json = nlohmann::ordered_json;

const char* nameOf(RunEnd end) {
    switch (end) {
        case RunEnd::complete:
            return "complete";
        case RunEnd::refused:
            return "refused";
        case RunEnd::stopped:
            return "stopped";
        case RunEnd::broken:
            break;
    }
    return "broken";
}

/// One word for what happened; the flags beside it say the rest.
const char* outcomeOf(const PageResult& page) {
    if (!page.isReached) return "not reached";
    if (!page.isDone) return "not done";
    if (!page.newPath.empty()) return "renamed";
    if (page.reading == Reading::broken) return "damaged";
    if (page.reading == Reading::none) return "not checked";
    return page.changes > 0 ? "changed" : "unchanged";
}

Json pageJson(const PageResult& page) {
    Json json = {{"path", toUtf8(files().toNative(page.path))},
                 {"outcome", outcomeOf(page)},
                 {"changes", page.changes},
                 {"written", page.isWritten},
                 {"readWhole", page.isWhole()}};
    if (!page.newPath.empty()) json["newPath"] = toUtf8(files().toNative(page.newPath));
    if (!page.isReadable) json["readableAgain"] = false;
    if (page.isHalfChanged) json["changedInPart"] = true;
    if (page.lacksBackup) json["withoutBackup"] = true;
    if (!page.reason.empty()) json["reason"] = toUtf8(page.reason);
    return json;
}

/// As ISO 8601 has it, in local time.
std::string isoText(const DateTime& moment) {
    return formatted(moment.year, "0000") + "-" + formatted(moment.month, "00") + "-" +
           formatted(moment.day, "00") + "T" + timeText(moment);
}

Json runJson(const RunResult& run) {
    Json json = {{"tool", run.tool}, {"begun", isoText(run.begun)}, {"end", nameOf(run.end)}};
    if (!run.reason.empty()) json["reason"] = toUtf8(run.reason);
    json["pages"] = Json::array();
    for (const PageResult& page : run.pages) json["pages"].push_back(pageJson(page));
    for (const std::string& path : run.namedTwice)
        json["namedTwice"].push_back(toUtf8(files().toNative(path)));
    return json;
}

}  // namespace

std::string jsonOf(const std::vector<RunResult>& runs, ExitStatus status, const std::string& reason) {
    Json json = {{"exitStatus", static_cast<int>(status)}, {"runs", Json::array()}};
    if (!reason.empty()) json["reason"] = toUtf8(reason);
    for (const RunResult& run : runs) json["runs"].push_back(runJson(run));
    return json.dump(1, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace tul::command
