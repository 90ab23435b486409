#pragma once

#include <QLabel>
#include <QMainWindow>
#include <memory>

#include "desktop/binder.h"
#include "desktop/dialogs.h"
#include "shared/panel.h"
#include "shared/run_result.h"

namespace tul::desktop {

/// A panel's window: its form, bound to the panel.
class PanelWindow : public QMainWindow {
  public:
    /// The panel has a form.
    PanelWindow(Panel panel, Binder::Act act, const DialogRunner& run);

    Panel& panel() { return panel_; }
    const Binder& binder() const { return *binder_; }

    void refresh();
    /// Shows the window where the panel's place is; a panel without one in the middle of `before`, or over
    /// the whole screen where its form says so.
    void showInPlace(const QWidget* before);
    /// Shows the window again, even when it was minimized at some time before.
    void bringBack();
    /// Tells beside the run button what became of a run, until the next one.
    void showResult(const RunResult& result);
    /// Moves the window where a command has put the panel.
    void followPlace();

  protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void enlargeHeadings();
    void alignColumns();
    void fill(const QRect& area);
    QSize room() const;
    void growWithForm();
    bool standsFreely() const;
    void rememberSize();
    void focusFirst();
    void keepFocus(QWidget* focused, bool couldRun);
    bool turnTab(const QKeyEvent& event);
    void pressReturn();

    QLabel* result_ = nullptr;  // what became of the last run; not every form has it
    Panel panel_;
    Binder::Act act_;
    std::unique_ptr<Binder> binder_;
    QLayout* contents_ = nullptr;  // of the form
    QSize needed_;                 // that the whole form has its place in the window
    QPoint lastPlace_;             // that the panel's place was known to stand for
};

}  // namespace tul::desktop
