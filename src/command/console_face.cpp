#include "command/console_face.h"

#include <iostream>
#include <vector>

#include "base/numbers.h"
#include "base/text.h"
#include "host/host.h"
#include "host/interrupt.h"
#include "panels/panel_list.h"

namespace tul::command {

namespace {

struct Choice {
    Answer answer;
    const char* name;
};

/// The choices of a question, the agreeing one first and the refusing one last.
std::vector<Choice> choicesOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::okCancel:
            return {{Answer::ok, "OK"}, {Answer::cancel, "Cancel"}};
        case Buttons::yesNo:
            return {{Answer::yes, "Yes"}, {Answer::no, "No"}};
        case Buttons::yesNoCancel:
            return {{Answer::yes, "Yes"}, {Answer::no, "No"}, {Answer::cancel, "Cancel"}};
        case Buttons::ok:
            break;
    }
    return {{Answer::ok, "OK"}};
}

const Choice* findChoice(const std::vector<Choice>& choices, std::string_view text) {
    for (const Choice& choice : choices)
        if (equalIgnoringCase(choice.name, trim(text))) return &choice;
    return nullptr;
}

std::string namesOf(const std::vector<Choice>& choices) {
    std::string names;
    for (const Choice& choice : choices) {
        if (!names.empty()) names += "/";
        names += choice.name;
    }
    return names;
}

void writeLines(std::ostream& stream, std::string_view text) {
    for (const std::string_view line : linesOf(text)) stream << toUtf8(line) << '\n';
}

}  // namespace

ConsoleFace::ConsoleFace(const Console& console, const Arguments& arguments)
    : console_(console),
      answers_(arguments.answers.begin(), arguments.answers.end()),
      restAnswer_(arguments.restAnswer),
      verbose_(arguments.verbose) {}

Answer ConsoleFace::msgBox(const Message& message) {
    if (message.startUpWarning && !verbose_) return Answer::ok;
    if (message.buttons != Buttons::ok) return ask(message);
    tell("message", message.text);
    console_.err << '\n';
    return Answer::ok;
}

Answer ConsoleFace::ask(const Message& message) {
    const std::vector<Choice> choices = choicesOf(message.buttons);
    tell("question", message.text);
    const Choice* chosen = &choices.back();
    if (!answers_.empty()) {
        const std::string text = nextQueued();
        if (const Choice* found = findChoice(choices, text)) {
            chosen = found;
        } else {
            console_.err << "\"" << toUtf8(text) << "\" is none of " << namesOf(choices) << ".\n";
        }
    } else if (restAnswer_ == RestAnswer::yes) {
        chosen = &choices.front();
    } else if (restAnswer_ == RestAnswer::no) {
        if (const Choice* no = findChoice(choices, "No")) chosen = no;
    } else if (mayAskTerminal()) {
        const Choice* found = nullptr;
        while (!found && console_.in) found = findChoice(choices, askTerminal("[" + namesOf(choices) + "] "));
        if (found) chosen = found;
    }
    tellAnswer(chosen->name);
    return chosen->answer;
}

std::optional<std::string> ConsoleFace::inputBox(const std::string& prompt, const std::string& defaultText) {
    tell("question", prompt);
    std::optional<std::string> text;
    if (!answers_.empty()) {
        text = nextQueued();
        if (equalIgnoringCase(*text, "Cancel")) text.reset();
    } else if (restAnswer_ == RestAnswer::yes) {
        text = defaultText;
    } else if (restAnswer_ == RestAnswer::ask && mayAskTerminal()) {
        text = askTerminal("[" + toUtf8(defaultText) + "] ");
        if (text->empty()) text = console_.in ? std::optional(defaultText) : std::nullopt;
    }
    tellAnswer(text.value_or("Cancel"));
    if (text) text = toSingleBytes(*text);
    return text;
}

std::optional<std::vector<std::string>> ConsoleFace::namedPaths(const std::string& prompt) {
    if (answers_.empty()) return std::nullopt;
    tell("question", prompt);
    const std::string text = nextQueued();
    std::vector<std::string> chosen;
    if (!text.empty() && !equalIgnoringCase(text, "Cancel")) {
        auto path = files().fromNative(text);
        if (path && files().info(*path)) {
            chosen.push_back(std::move(*path));
        } else {
            console_.err << "There is no " << toUtf8(text) << ".\n";
        }
    }
    tellAnswer(chosen.empty() ? "Cancel" : chosen.front());
    return chosen;
}

void ConsoleFace::showText(const std::string& path) {
    std::string text;
    clearProgress();
    if (files().read(path, text) == FileError::none) writeLines(console_.out, text);
    console_.out.flush();
}

void ConsoleFace::openPanel(const std::string& name) {
    if (name == "frmLogo") return;  // it stands behind every run
    const PanelEntry& entry = *findPanel(name);
    if (name != "frmNotepad") return panels_.open(entry);
    Panel panel = entry.make();
    console_.out << toUtf8(panel.caption) << "\n\n";
    for (const Field& field : panel.fields)
        if (std::holds_alternative<ListKind>(field.kind)) writeLines(console_.out, field.text());
    panel.press("mnuReturn");
}

std::string ConsoleFace::frontCaption() const {
    return panels_.count() == 0 ? std::string() : panels_.front().caption;
}

void ConsoleFace::yield() {
    if (!console_.showsProgress || panels_.count() == 0) return;
    std::string line;
    for (const Field& field : panels_.front().fields)
        if (const auto* const bar = std::get_if<ProgressKind>(&field.kind); bar && bar->value->visible)
            line += padRight(bar->text() + " %", 7);
    if (line.empty()) return;
    console_.err << '\r' << line << std::flush;
    progressShown_ = true;
}

void ConsoleFace::endProgram(int status) {
    clearProgress();
    throw ProgramEnd{status};
}

void ConsoleFace::tell(const std::string& kind, const std::string& text) {
    clearProgress();
    console_.err << kind << ": ";
    writeLines(console_.err, text);
    if (linesOf(text).empty()) console_.err << '\n';
}

void ConsoleFace::tellAnswer(const std::string& answer) {
    console_.err << "answer: " << toUtf8(answer) << "\n\n";
}

std::string ConsoleFace::nextQueued() {
    std::string text = answers_.front();
    answers_.pop_front();
    return text;
}

/// An interrupt has answered all questions that may still come, with a refusal.
bool ConsoleFace::mayAskTerminal() const { return console_.canAsk && !isInterrupted(); }

std::string ConsoleFace::askTerminal(const std::string& hint) {
    console_.err << hint << std::flush;
    std::string line;
    if (!std::getline(console_.in, line)) console_.err << '\n';
    return line;
}

void ConsoleFace::clearProgress() {
    if (!progressShown_) return;
    console_.err << '\r' << std::string(20, ' ') << '\r';
    progressShown_ = false;
}

}  // namespace tul::command
