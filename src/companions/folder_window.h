#pragma once

#include <QDialog>
#include <memory>
#include <string>

namespace Ui {
class frmFolder;
}

namespace tul::companion {

/// The window in which a folder is chosen: the one whose path stands in its field.
class FolderWindow : public QDialog {
  public:
    /// Opens in `folder`.
    FolderWindow(const std::string& prompt, const std::string& folder);
    ~FolderWindow() override;

    /// The folder that was chosen, once the window was accepted.
    const std::string& folder() const { return folder_; }

    void accept() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void connectControls();
    /// Lists what lies in a folder, which is the one chosen from now on.
    void openFolder(const std::string& folder);
    void openAbove();
    void openCurrent();
    bool openTyped();
    void takeCurrent();
    void showFolder(const std::string& folder);
    void showNotice(const QString& text);

    std::string listed_;  // whose folders the list shows
    std::string folder_;
    std::unique_ptr<Ui::frmFolder> form_;
};

}  // namespace tul::companion
