#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tul {

enum class Buttons { ok, okCancel, yesNo, yesNoCancel };
enum class Icon { none, information, question, exclamation, critical };
enum class Answer { ok, cancel, yes, no };
enum class Pointer { normal, waiting };

struct Message {
    std::string text;  // lines joined with CrLf
    Buttons buttons = Buttons::ok;
    Icon icon = Icon::none;
    std::string title = {};       // empty: the tool in front
    bool startUpWarning = false;  // told at every start, and of no weight to a batch run
};

struct ScreenSize {
    int width = 0;  // twips, 15 to the pixel
    int height = 0;
};

/// What drives the panels: windows, the command line, a test. The logic talks to the user through it alone.
class Face {
  public:
    virtual ~Face() = default;

    virtual Answer msgBox(const Message& message) = 0;
    /// The text that the user typed; nothing when the box was cancelled.
    [[nodiscard]] virtual std::optional<std::string> inputBox(const std::string& prompt,
                                                              const std::string& defaultText) = 0;

    /// The files or the folder that the user named beforehand, in the installation's form, where one of the
    /// selection programs would ask for them with this prompt; none of them when the choice was cancelled.
    /// Nothing where the program is to ask.
    [[nodiscard]] virtual std::optional<std::vector<std::string>> namedPaths(const std::string&) {
        return std::nullopt;
    }

    /// True when `showText` is to be used for all texts, the configured editor for none.
    virtual bool showsTextItself() const = 0;
    /// Shows a text file and returns when the user has finished with it.
    virtual void showText(const std::string& path) = 0;
    /// Shows a page of the user guide. A face with windows leaves it open beside the panel.
    virtual void showGuide(const std::string& path) = 0;
    /// Opens the panel of this name over the one in front, and returns when it stands.
    virtual void openPanel(const std::string& name) = 0;
    /// Caption of the panel that the user sees.
    virtual std::string frontCaption() const = 0;
    /// Makes an icon of the panel in front, where there is a screen.
    virtual void minimizePanel() {}
    /// Hides the panel in front while an outside program has the screen, and shows it again.
    virtual void setPanelVisible(bool visible) = 0;
    virtual void setPointer(Pointer pointer) = 0;
    /// Nothing for a face without a screen: it has no place to store.
    [[nodiscard]] virtual std::optional<ScreenSize> screen() const { return std::nullopt; }
    /// Repaints, and lets pending events run.
    virtual void yield() = 0;
    /// While a program that is waited for runs: repaints, and lets nothing else through.
    virtual void showWaiting() {}

    /// Ends the process, or unwinds to its `main`. Status 0 is a wanted end, 1 a fatal message.
    [[noreturn]] virtual void endProgram(int status) = 0;
};

}  // namespace tul
