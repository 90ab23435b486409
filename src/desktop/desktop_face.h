#pragma once

#include <QString>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "desktop/dialogs.h"
#include "host/face.h"

class QWidget;

namespace tul::desktop {

class GuideWindow;
class PanelWindow;

/// The face with windows. The main panel stands behind all others; a panel that it opens hides it, and its
/// return button brings it back.
class DesktopFace : public Face {
  public:
    explicit DesktopFace(DialogRunner run = runModally);
    ~DesktopFace() override;
    DesktopFace(const DesktopFace&) = delete;
    DesktopFace& operator=(const DesktopFace&) = delete;

    Answer msgBox(const Message& message) override;
    std::optional<std::string> inputBox(const std::string& prompt, const std::string& defaultText) override;
    /// Only where the configured editor is missing.
    bool showsTextItself() const override { return false; }
    void showText(const std::string& path) override;
    void showGuide(const std::string& path) override;
    void openPanel(const std::string& name) override;
    std::string frontCaption() const override;
    void minimizePanel() override;
    void setPanelVisible(bool visible) override;
    void setPointer(Pointer pointer) override;
    std::optional<ScreenSize> screen() const override;
    void yield() override;
    void showWaiting() override;
    [[noreturn]] void endProgram(int status) override;

    /// The window in front; null before the main panel stands.
    PanelWindow* front() const { return windows_.empty() ? nullptr : windows_.back(); }

    /// The guide's window; null as long as nobody has asked for it.
    GuideWindow* guide() const { return guide_.get(); }

    /// Lets closed panels go, and shows what the one in front now has.
    void settle();

  private:
    void act(const std::function<void()>& what);
    void closeFront();
    QWidget* visibleWindow() const;
    QString speaker(const std::string& title) const;
    void fireTimer();

    DialogRunner run_;
    std::vector<PanelWindow*> windows_;  // the one in front is the last
    std::unique_ptr<GuideWindow> guide_;
    QTimer timer_;            // of the panel in front
    bool isWaiting_ = false;  // for a program that runs
};

}  // namespace tul::desktop
