#pragma once

#include <QMainWindow>
#include <string>

class QTextBrowser;

namespace tul::desktop {

/// The user guide, beside the panels: a page, and the way back from its links.
class GuideWindow : public QMainWindow {
  public:
    GuideWindow();

    /// Opens a page and brings the window in front. The path is the installation's.
    void turnTo(const std::string& path);

  private:
    void addTools();
    void scrollTo(const QString& anchor);
    void find(const QString& wanted);

    QTextBrowser* page_;
};

}  // namespace tul::desktop
