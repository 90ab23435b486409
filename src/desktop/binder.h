#pragma once

#include <QHash>
#include <QObject>
#include <QStringList>
#include <functional>
#include <string>
#include <vector>

#include "shared/panel.h"

class QAbstractButton;
class QAction;
class QButtonGroup;
class QComboBox;
class QEvent;
class QGroupBox;
class QLineEdit;
class QListWidget;
class QWidget;

namespace tul::desktop {

/// Ties the widgets of a form to a panel's fields and commands, by name. A widget never holds a value of its
/// own: what the user does goes to the panel, and `refresh` shows what the panel then has.
class Binder : public QObject {
  public:
    /// `act` runs what the user did; whoever gives it refreshes the windows afterwards.
    using Act = std::function<void(const std::function<void()>&)>;
    Binder(QWidget& form, Panel& panel, Act act);

    /// Shows values, captions, tool tips, and what is enabled and visible.
    void refresh();

    /// What form and panel do not have in common: controls that one of them lacks.
    const QStringList& mismatches() const { return mismatches_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void bindField(Field& field);
    // One for each kind of field.
    void bind(Field& field, const TextKind& text, QWidget& widget);
    void bind(Field& field, const CheckKind& check, QWidget& widget);
    void bind(Field& field, const OptionKind& option, QWidget& widget);
    void bind(Field& field, const TabKind& tabs, QWidget& widget);
    void bind(Field&, const RowKind&, QWidget&) {}  // has several widgets
    void bind(Field& field, const ListKind& kind, QWidget& widget);
    void bind(Field& field, const LabelKind& label, QWidget& widget);
    void bind(Field& field, const ProgressKind& progress, QWidget& widget);
    void bindRow(Field& field, const RowKind& row);
    void bindFlag(Field& field, QAbstractButton& button);
    void bindLine(Field& field, QLineEdit& edit);
    void bindLabel(Field& field, QWidget& widget);
    void bindListWidget(Field& field, const ListKind& kind, QListWidget& list);
    void bindChoice(Field& field, const ListKind& kind, QComboBox& choice);
    void bindCommand(Command& command);
    void bindButton(Command& command, QAbstractButton& button);
    bool handleList(QListWidget& list, const QEvent& event);
    bool handleDrop(QEvent& event);
    void markDrop(bool on);
    void tellOtherKind(const QWidget& widget);
    void disableEmptyMenus();
    void bindFrame(QGroupBox& frame);
    void findUnknownControls();

    void set(const std::string& field, const std::string& value);
    void press(const std::string& command);

    QWidget& form_;
    Panel& panel_;
    Act act_;
    std::vector<std::function<void()>> refreshers_;
    QHash<QObject*, std::function<void()>> clicked_;  // by clicks and keys on widgets that are no buttons
    QHash<QObject*, std::function<void()>> twiceClicked_;
    QHash<QObject*, std::string> chooses_;  // fields of lists with a choice
    QHash<QString, QButtonGroup*> groups_;
    QStringList bound_;
    QStringList mismatches_;
};

}  // namespace tul::desktop
