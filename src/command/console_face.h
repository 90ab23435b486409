#pragma once

#include <deque>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "command/arguments.h"
#include "command/open_panels.h"
#include "host/face.h"

namespace tul::command {

/// The streams of a run: results, talk, and a terminal's answers where there is one.
struct Console {
    std::ostream& out;
    std::ostream& err;
    std::istream& in;
    bool canAsk = false;         // `in` is a terminal
    bool showsProgress = false;  // `err` is a terminal
};

/// The end of the program, on its way to `main`.
struct ProgramEnd {
    int status;
};

/// The face without a window: texts go to standard output, messages and questions to standard error, and
/// questions are answered by the arguments, the terminal, or refused.
class ConsoleFace : public Face {
  public:
    ConsoleFace(const Console& console, const Arguments& arguments);

    Answer msgBox(const Message& message) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& defaultText) override;
    /// The next of the arguments' answers.
    std::optional<std::vector<std::string>> namedPaths(const std::string& prompt) override;
    bool showsTextItself() const override { return true; }
    void showText(const std::string& path) override;
    void showGuide(const std::string& path) override { showText(path); }
    void openPanel(const std::string& name) override;
    std::string frontCaption() const override;
    void setPanelVisible(bool) override {}
    void setPointer(Pointer) override {}
    void yield() override;
    [[noreturn]] void endProgram(int status) override;

    OpenPanels& panels() { return panels_; }

  private:
    void tell(const std::string& kind, const std::string& text);
    void tellAnswer(const std::string& answer);
    Answer ask(const Message& message);
    std::string nextQueued();
    bool mayAskTerminal() const;
    std::string askTerminal(const std::string& hint);
    void clearProgress();

    Console console_;
    std::deque<std::string> answers_;
    RestAnswer restAnswer_;
    bool verbose_;
    OpenPanels panels_;
    bool progressShown_ = false;
};

}  // namespace tul::command
