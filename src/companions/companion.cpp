#include "companions/companion.h"

#include <iostream>
#include <tuple>

#include "base/text.h"
#include "companions/terminal.h"
#include "host/talk.h"
#include "shared/key_value_file.h"

namespace tul::companion {

namespace {

constexpr std::string_view listKey = "LIST=";

bool beginsPath(std::string_view text) {
    return (text.size() > 2 && text[1] == ':' && text[2] == '\\') || text.starts_with("\\\\");
}

/// The folder of the running program, in which the others of the installation lie too.
std::string installation;

/// A user of the windows sees nothing of the standard streams, wherever they lead. One who has sent some of
/// them elsewhere from a terminal wants no windows.
bool isSeen() {
    const auto talk = inheritedTalk();
    return !hasDisplay() || talk == Talk::terminal || (!talk && hasTerminal());
}

/// By a program of its own, so that the companions without windows start without the toolkit.
void showInWindow(const std::string& kind, const std::string& program, const std::string& text) {
    // Where no window comes up there is nobody to tell it to.
    std::ignore = processes().runAndWait(
        {.program = installation + "\\TULTELL.EXE", .arguments = {}, .words = {kind, program, toUtf8(text)}});
}

}  // namespace

ArgumentPairs::ArgumentPairs(int argc, char** argv) : ArgumentPairs(argumentText(argc, argv)) {}

ArgumentPairs::ArgumentPairs(const std::string& text) {
    std::string_view rest = text;
    while (!rest.empty()) {
        const SplitText piece = splitAtFirst(rest, ',');
        const SplitText pair = splitAtFirst(piece.before, '=');
        if (equalIgnoringCase(rest.substr(0, listKey.size()), listKey)) {
            pairs_.emplace_back("LIST", rest.substr(listKey.size()));
            return;
        }
        if (pair.found) {
            pairs_.emplace_back(upperCase(pair.before), pair.behind);
        } else if (!pairs_.empty()) {
            pairs_.back().second.append(",").append(piece.before);
        }
        rest = piece.behind;
    }
}

std::string ArgumentPairs::operator[](const std::string& key) const {
    for (const auto& [name, value] : pairs_)
        if (name == key) return value;
    return {};
}

std::vector<std::string> ArgumentPairs::list() const {
    std::vector<std::string> paths;
    const std::string text = (*this)["LIST"];
    std::string_view rest = text;
    while (!rest.empty()) {
        const SplitText piece = splitAtFirst(rest, ',');
        if (beginsPath(piece.before) || paths.empty()) {
            paths.emplace_back(piece.before);
        } else {
            paths.back().append(",").append(piece.before);
        }
        rest = piece.behind;
    }
    return paths;
}

Companion::Companion() : machine_(openNativeMachine()) {
    installHost(machine_->host());
    installation = machine_->programFolder();
}

bool asksInWindow() { return hasDisplay() && inheritedTalk() != Talk::terminal; }

int refuse(const std::string& program, const std::string& why) {
    std::cerr << program << ": " << toUtf8(why) << std::endl;
    if (!isSeen()) showInWindow("refusal", program, why);
    return failed;
}

void report(const std::string& program, const std::string& lines) {
    std::cout << toUtf8(lines) << std::flush;
    if (!isSeen()) showInWindow("report", program, lines);
}

int openScore(const std::string& program, const std::string& page, ScoreKind kind) {
    const auto settings = readKeyValues("TULCNTRL.INI", "[");
    if (!settings) return refuse(program, "there is no TULCNTRL.INI in the current folder.");
    std::string score;
    std::string winScore;
    for (const KeyValue& setting : *settings) {
        if (setting.key == "SCOREPATH") score = setting.value;
        if (setting.key == "WINSCOREPROGRAMPATH" && kind == ScoreKind::any) winScore = setting.value;
    }
    if (score.empty()) score = winScore;
    if (score.empty())
        return refuse(program, "no SCORE is linked. Enter its path as ScorePath= in TULCNTRL.INI.");
    if (!files().canRead(score)) return refuse(program, "the linked SCORE was not found: " + score);
    files().enterIfThere(std::string(folderOf(score)));
    Launch launch{.program = score, .arguments = page};
    if (!page.empty()) launch.words = {page};
    const LaunchResult result = processes().runAndWait(launch);
    return result.started ? done : refuse(program, result.failure);
}

}  // namespace tul::companion
