#pragma once

#include <QDialog>
#include <memory>

#include "companions/file_choice.h"
#include "companions/names_request.h"

class QItemSelection;

namespace Ui {
class frmNames;
}

namespace tul::companion {

class ShownFiles;

/// The window in which files of one folder are chosen. Accepted, it has written the names file; otherwise the
/// names file is as it was.
class NamesWindow : public QDialog {
  public:
    explicit NamesWindow(const NamesRequest& request);
    ~NamesWindow() override;

    void accept() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void connectControls();
    void fillTypes();
    /// Changes what the list shows, and selects in it what is chosen.
    template <class Change>
    void changeList(Change change);
    void openFolder(const std::string& folder);
    bool openTyped();
    void selectChosen();
    void takeSelection(const QItemSelection& selected, const QItemSelection& deselected);
    void showCount();
    void showNotice(const QString& text);

    NamesRequest request_;
    FileChoice choice_;
    bool warnsOfLongPaths_;
    bool selecting_ = false;  // by the program, not by the user
    std::unique_ptr<Ui::frmNames> form_;
    ShownFiles* list_ = nullptr;
};

}  // namespace tul::companion
