#include "desktop/binder.h"

#include <QAbstractButton>
#include <QAction>
#include <QButtonGroup>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>

#include "base/numbers.h"
#include "desktop/dropped_files.h"
#include "desktop/qt_text.h"

namespace tul::desktop {

namespace {

template <class Object>
Object* named(QWidget& form, const QString& name) {
    return form.findChild<Object*>(name);
}

/// Controls that hold a value or do something are known by their names. What only decorates a form has
/// others.
bool isControlName(const QString& name) {
    static const QRegularExpression control(
        "^((cmd|cms|opt|chk|txt|lst|lbl|tab|mnu|pan)[a-z]{0,2}|[Oo]ption|Text)[A-Z0-9]");
    return control.match(name).hasMatch() && !name.endsWith("Title");
}

/// The form's text carries the mnemonic. A caption that the form does not know gets its first letter, unless
/// a label beside the button has one.
QString captionOf(const std::string& caption, const QString& formText, bool hasLabel) {
    const QString text = shown(caption);
    if (text.contains('&')) return text;
    if (withoutMnemonic(formText) == text) return formText;
    return text.isEmpty() || hasLabel ? text : '&' + text;
}

/// So that a form does not jump when it is hidden.
void keepSpace(QWidget& widget) {
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
}

/// The widget and the label that names it.
QList<QWidget*> withItsLabel(QWidget& form, QWidget& widget) {
    QList<QWidget*> widgets = {&widget};
    for (QLabel* const label : form.findChildren<QLabel*>())
        if (label->buddy() == &widget) widgets << label;
    return widgets;
}

/// A list or a bar may not be wanted now.
bool isUp(const Field& field) {
    if (const auto* const list = std::get_if<ListKind>(&field.kind)) return list->value->visible;
    if (const auto* const bar = std::get_if<ProgressKind>(&field.kind)) return bar->value->visible;
    return true;
}

/// A disabled control is no background, although clicks fall through it.
bool isBackground(const QWidget& widget, const QMouseEvent& event) {
    const QWidget* const child = widget.childAt(event.position().toPoint());
    return event.button() == Qt::LeftButton && (!child || child->isEnabled());
}

}  // namespace

Binder::Binder(QWidget& form, Panel& panel, Act act) : form_(form), panel_(panel), act_(std::move(act)) {
    for (Field& field : panel_.fields) bindField(field);
    for (Command& command : panel_.commands) bindCommand(command);
    for (QGroupBox* const frame : form_.findChildren<QGroupBox*>()) bindFrame(*frame);
    findUnknownControls();
    if (!panel_.takeFiles) return;
    form_.setAcceptDrops(true);
    form_.installEventFilter(this);
}

void Binder::refresh() {
    for (const auto& refresher : refreshers_) refresher();
    disableEmptyMenus();
}

void Binder::set(const std::string& field, const std::string& value) {
    act_([this, field, value] { panel_.set(field, value); });
}

void Binder::press(const std::string& command) {
    act_([this, command] { panel_.press(command); });
}

void Binder::bindField(Field& field) {
    if (const auto* const row = std::get_if<RowKind>(&field.kind)) return bindRow(field, *row);
    QWidget* const widget = named<QWidget>(form_, QString::fromStdString(field.name));
    if (!widget) {
        mismatches_ << "the form has no " + QString::fromStdString(field.name);
        return;
    }
    bound_ << widget->objectName();
    refreshers_.push_back([this, &field, widget, together = withItsLabel(form_, *widget)] {
        for (QWidget* const each : together) {
            each->setVisible(field.visible() && isUp(field));
            // A frame's caption says nothing about what is in it.
            if (!qobject_cast<QGroupBox*>(each)) each->setEnabled(panel_.isOffered(field));
        }
        // The tip of a tab strip is that of its tabs: what is on a page would show it as its own.
        auto* const tabs = qobject_cast<QTabWidget*>(widget);
        if (const std::string tip = field.toolTip(); !tip.empty())
            (tabs ? tabs->tabBar() : widget)->setToolTip(shown(tip));
    });
    std::visit([&](const auto& kind) { bind(field, kind, *widget); }, field.kind);
}

void Binder::bind(Field& field, const CheckKind& check, QWidget& widget) {
    auto* const button = qobject_cast<QAbstractButton*>(&widget);
    if (!button) return tellOtherKind(widget);
    bindFlag(field, *button);
    refreshers_.push_back([&check, button] { button->setChecked(*check.value); });
}

void Binder::bind(Field& field, const OptionKind& option, QWidget& widget) {
    auto* const button = qobject_cast<QAbstractButton*>(&widget);
    if (!button) return tellOtherKind(widget);
    bindFlag(field, *button);
    QButtonGroup*& group = groups_[QString::fromStdString(option.group)];
    if (!group) group = new QButtonGroup(this);
    group->addButton(button);
    refreshers_.push_back([&option, button, group] {
        if (button->isChecked() == *option.value) return;
        group->setExclusive(false);  // else the last one could not be switched off
        button->setChecked(*option.value);
        group->setExclusive(true);
    });
}

void Binder::bind(Field&, const ProgressKind& progress, QWidget& widget) {
    auto* const bar = qobject_cast<QProgressBar*>(&widget);
    if (!bar) return tellOtherKind(widget);
    for (QWidget* const each : withItsLabel(form_, widget)) keepSpace(*each);
    refreshers_.push_back([&progress, bar] { bar->setValue(progress.value->percent); });
}

void Binder::tellOtherKind(const QWidget& widget) {
    mismatches_ << widget.objectName() + " is of another kind in the form";
}

/// Options in a row, numbered from 0 behind the name: the field has the number of the one that is on.
void Binder::bindRow(Field& field, const RowKind& row) {
    auto* const group = new QButtonGroup(this);
    for (int number = 0; number < static_cast<int>(row.names.size()); ++number) {
        const QString name = QString::fromStdString(field.name) + '_' + QString::number(number);
        auto* const button = named<QAbstractButton>(form_, name);
        if (!button) {
            mismatches_ << "the form has no " + name;
            continue;
        }
        bound_ << name;
        group->addButton(button, number);
        connect(button, &QAbstractButton::clicked, this,
                [this, &field, number] { set(field.name, plain(number)); });
        refreshers_.push_back([this, &field, &row, button, number] {
            button->setEnabled(panel_.isOffered(field));
            if (*row.value == number) button->setChecked(true);
        });
    }
}

void Binder::bindFlag(Field& field, QAbstractButton& button) {
    connect(&button, &QAbstractButton::clicked, this,
            [this, &field](bool on) { set(field.name, on ? "1" : "0"); });
}

void Binder::bind(Field& field, const TabKind& tabs, QWidget& widget) {
    auto* const tab = qobject_cast<QTabWidget*>(&widget);
    if (!tab) return tellOtherKind(widget);
    if (static_cast<int>(tabs.names.size()) != tab->count())
        mismatches_ << widget.objectName() + " has other tabs in the form";
    connect(tab, &QTabWidget::currentChanged, this,
            [this, &field](int page) { set(field.name, plain(page)); });
    refreshers_.push_back([&tabs, tab] {
        const QSignalBlocker quiet(tab);
        tab->setCurrentIndex(*tabs.value);
    });
}

void Binder::bind(Field& field, const TextKind&, QWidget& widget) {
    if (auto* const edit = qobject_cast<QLineEdit*>(&widget)) return bindLine(field, *edit);
    bindLabel(field, widget);
}

void Binder::bind(Field& field, const LabelKind&, QWidget& widget) {
    if (auto* const edit = qobject_cast<QLineEdit*>(&widget)) return bindLine(field, *edit);
    bindLabel(field, widget);
}

void Binder::bindLine(Field& field, QLineEdit& edit) {
    if (field.isReadOnly() && !field.click) {
        QPalette flat = edit.palette();
        flat.setBrush(QPalette::Base, flat.brush(QPalette::Window));
        edit.setPalette(flat);
    } else {
        edit.setCursor(Qt::PointingHandCursor);
        edit.installEventFilter(this);
        clicked_[&edit] = [this, &field] { act_([this, &field] { panel_.click(field.name); }); };
    }
    refreshers_.push_back([&field, &edit] {
        const QString text = shown(field.text());
        if (edit.text() == text) return;
        edit.setText(text);
        edit.setCursorPosition(0);
        if (field.toolTip().empty()) edit.setToolTip(text);  // it may be longer than the field
    });
}

void Binder::bindLabel(Field& field, QWidget& widget) {
    if (auto* const label = qobject_cast<QLabel*>(&widget)) {
        label->setTextFormat(Qt::PlainText);
        refreshers_.push_back([&field, label] { label->setText(shown(field.text())); });
    } else if (auto* const frame = qobject_cast<QGroupBox*>(&widget)) {
        refreshers_.push_back([&field, frame] { frame->setTitle(asCaption(field.text())); });
    } else {
        tellOtherKind(widget);
    }
}

void Binder::bind(Field& field, const ListKind& kind, QWidget& widget) {
    if (auto* const title = named<QLabel>(form_, widget.objectName() + "Title"))
        refreshers_.push_back([&field, list = kind.value, title] {
            title->setText(shown(list->title));
            title->setVisible(field.visible() && list->visible && !list->title.empty());
        });
    if (auto* const list = qobject_cast<QListWidget*>(&widget)) {
        bindListWidget(field, kind, *list);
    } else if (auto* const choice = qobject_cast<QComboBox*>(&widget)) {
        bindChoice(field, kind, *choice);
    } else if (auto* const page = qobject_cast<QPlainTextEdit*>(&widget)) {
        refreshers_.push_back([&kind, page, last = std::string()]() mutable {
            if (std::string text = kind.text(); text != last) {
                page->setPlainText(shown(text));
                last = std::move(text);
            }
        });
    } else {
        tellOtherKind(widget);
    }
}

void Binder::bindListWidget(Field& field, const ListKind& kind, QListWidget& list) {
    refreshers_.push_back([&kind, &list, last = std::vector<std::string>()]() mutable {
        const auto& entries = kind.value->entries;
        if (entries == last) return;
        last = entries;
        list.clear();
        for (const std::string& entry : entries) list.addItem(shown(entry));
        list.setCurrentRow(0);
    });
    if (!kind.choose) return;
    refreshers_.push_back([&list, wasHidden = false]() mutable {
        if (wasHidden && !list.isHidden()) list.setFocus();
        wasHidden = list.isHidden();
    });
    chooses_[&list] = field.name;
    list.installEventFilter(this);
    list.viewport()->installEventFilter(this);
    chooses_[list.viewport()] = field.name;
}

/// A list that drops down: it always shows the entry that is chosen.
void Binder::bindChoice(Field& field, const ListKind& kind, QComboBox& choice) {
    const ListBox& list = *kind.value;
    for (const std::string& entry : list.entries) choice.addItem(shown(entry));
    connect(&choice, &QComboBox::activated, this,
            [this, &field, &list](int row) { set(field.name, list.entries[static_cast<std::size_t>(row)]); });
    refreshers_.push_back([&list, &choice] { choice.setCurrentIndex(list.selected); });
}

void Binder::bindCommand(Command& command) {
    const QString name = QString::fromStdString(command.name);
    if (name.startsWith("Timer")) return;  // the face fires it
    for (const auto& [suffix, clicks] : {std::pair{"DblClick", &twiceClicked_}, {"Click", &clicked_}}) {
        if (!name.endsWith(suffix)) continue;
        const QString target = name.chopped(QString(suffix).size());
        QObject* const widget = target == form_.objectName() ? &form_ : named<QWidget>(form_, target);
        if (!widget) break;
        bound_ << target;
        if (auto* const button = qobject_cast<QAbstractButton*>(widget)) return bindButton(command, *button);
        widget->installEventFilter(this);
        (*clicks)[widget] = [this, &command] { press(command.name); };
        return;
    }
    if (auto* const button = named<QAbstractButton>(form_, name)) {
        bound_ << name;
        bindButton(command, *button);
    } else if (auto* const entry = named<QAction>(form_, name)) {
        bound_ << name;
        connect(entry, &QAction::triggered, this, [this, &command] { press(command.name); });
        refreshers_.push_back([this, &command, entry] {
            entry->setText(shown(command.caption()));
            entry->setEnabled(panel_.isEnabled(command));
            entry->setVisible(command.visible());
            if (entry->isCheckable()) entry->setChecked(command.checked());
        });
    } else {
        mismatches_ << "the form has no " + name;
    }
}

void Binder::bindButton(Command& command, QAbstractButton& button) {
    connect(&button, &QAbstractButton::clicked, this, [this, &command] { press(command.name); });
    refreshers_.push_back(
        [this, &command, &button, formText = button.text(), together = withItsLabel(form_, button)] {
            button.setText(captionOf(command.caption(), formText, together.size() > 1));
            for (QWidget* const each : together) {
                each->setEnabled(panel_.isEnabled(command));
                each->setVisible(command.visible());
            }
            button.setToolTip(shown(command.toolTip()));
        });
}

/// A menu none of whose entries can be chosen is disabled itself.
void Binder::disableEmptyMenus() {
    for (QMenu* const menu : form_.findChildren<QMenu*>(QRegularExpression("^mnu"))) {
        const QList<QAction*> entries = menu->actions();
        menu->menuAction()->setEnabled(std::any_of(entries.begin(), entries.end(), [](const QAction* entry) {
            return entry->isEnabled() && !entry->isSeparator();
        }));
    }
}

/// A frame whose controls are all hidden goes with them. One without controls, or with a field of its own,
/// stays as it is.
void Binder::bindFrame(QGroupBox& frame) {
    QList<const QWidget*> controls;
    for (const QWidget* const widget : frame.findChildren<QWidget*>())
        if (bound_.contains(widget->objectName())) controls << widget;
    if (controls.isEmpty() || bound_.contains(frame.objectName())) return;
    refreshers_.push_back([&frame, controls, wasEmpty = false]() mutable {
        const bool isEmpty = std::all_of(controls.begin(), controls.end(),
                                         [](const QWidget* control) { return control->isHidden(); });
        if (isEmpty != wasEmpty) frame.setVisible(!isEmpty);
        wasEmpty = isEmpty;
    });
}

void Binder::findUnknownControls() {
    for (const QWidget* const widget : form_.findChildren<QWidget*>())
        if (isControlName(widget->objectName()) && !qobject_cast<const QMenu*>(widget) &&
            !bound_.contains(widget->objectName()))
            mismatches_ << "the panel has no " + widget->objectName();
    for (const QAction* const entry : form_.findChildren<QAction*>())
        if (isControlName(entry->objectName()) && !bound_.contains(entry->objectName()))
            mismatches_ << "the panel has no " + entry->objectName();
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &form_ && panel_.takeFiles && handleDrop(*event)) return true;
    if (const auto field = chooses_.constFind(watched); field != chooses_.constEnd()) {
        auto* list = qobject_cast<QListWidget*>(watched);
        if (!list) list = qobject_cast<QListWidget*>(watched->parent());
        return handleList(*list, *event);
    }
    const auto run = [watched](const QHash<QObject*, std::function<void()>>& actions) {
        const auto found = actions.constFind(watched);
        if (found == actions.constEnd()) return false;
        (*found)();
        return true;
    };
    if (event->type() == QEvent::MouseButtonDblClick || event->type() == QEvent::MouseButtonRelease) {
        const bool twice = event->type() == QEvent::MouseButtonDblClick;
        if (!isBackground(*static_cast<QWidget*>(watched), *static_cast<QMouseEvent*>(event))) return false;
        // One click on what waits for two is no click on the background behind it.
        return run(twice ? twiceClicked_ : clicked_) ||
               (watched != &form_ && twiceClicked_.contains(watched));
    }
    if (event->type() == QEvent::KeyPress && qobject_cast<QLineEdit*>(watched)) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const bool opens =
            key == Qt::Key_Space || key == Qt::Key_F2 || key == Qt::Key_Return || key == Qt::Key_Enter;
        return opens && run(clicked_);
    }
    return false;
}

/// A click or Enter chooses the entry; the right button and Escape leave the list without a choice.
bool Binder::handleList(QListWidget& list, const QEvent& event) {
    const std::string field = chooses_.value(&list);
    const QListWidgetItem* chosen = nullptr;
    if (event.type() == QEvent::MouseButtonRelease) {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        if (mouse.button() == Qt::LeftButton) {
            chosen = list.itemAt(mouse.position().toPoint());
            if (!chosen) return false;
        } else if (mouse.button() != Qt::RightButton) {
            return false;
        }
    } else if (event.type() == QEvent::KeyPress) {
        const int key = static_cast<const QKeyEvent&>(event).key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            chosen = list.currentItem();
            if (!chosen) return false;
        } else if (key != Qt::Key_Escape) {
            return false;
        }
    } else {
        return false;
    }
    const auto& entries = std::get<ListKind>(panel_.field(field)->kind).value->entries;
    set(field, chosen ? entries[static_cast<std::size_t>(list.row(chosen))] : std::string());
    return true;
}

/// The select button shows that the files are taken, wherever on the window they are let go.
void Binder::markDrop(bool on) {
    static const QRegularExpression selects("^cmd.*Select$");
    for (QAbstractButton* const button : form_.findChildren<QAbstractButton*>(selects)) button->setDown(on);
}

bool Binder::handleDrop(QEvent& event) {
    switch (event.type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove: {
            auto& drag = static_cast<QDragMoveEvent&>(event);
            if (!panel_.canTakeFiles() || !holdsFiles(drag.mimeData()->urls())) return false;
            drag.acceptProposedAction();
            markDrop(true);
            return true;
        }
        case QEvent::DragLeave:
            markDrop(false);
            return false;
        case QEvent::Drop: {
            auto& drop = static_cast<QDropEvent&>(event);
            markDrop(false);
            drop.acceptProposedAction();
            // The program that the files come from waits until this has returned.
            QMetaObject::invokeMethod(
                this,
                [this, urls = drop.mimeData()->urls()] {
                    act_([&] {
                        if (const std::vector<std::string> files = filesOf(urls); !files.empty())
                            panel_.drop(files);
                    });
                },
                Qt::QueuedConnection);
            return true;
        }
        default:
            return false;
    }
}

}  // namespace tul::desktop
