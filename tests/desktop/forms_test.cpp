
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTabBar>
#include <QTabWidget>
#include <map>

#include "desktop/panel_window.h"
#include "desktop/staff_picture.h"
#include "panels/panel_list.h"
#include "shared/records.h"
#include "support/scripted_host.h"

namespace tul::desktop {
namespace {

using testing::ScriptedHost;

void noAct(const std::function<void()>&) {}

QStringList mismatchesOf(Panel panel) {
    const PanelWindow window(std::move(panel), noAct, runModally);
    return window.binder().mismatches();
}

TEST(Forms, HaveTheControlsOfTheirPanels) {
    ScriptedHost host;
    for (const PanelEntry& entry : panelList())
        EXPECT_EQ(mismatchesOf(entry.make()).join("\n").toStdString(), "") << entry.form;
}

TEST(Forms, OfAnotherPanelAreSeen) {
    ScriptedHost host;
    Panel panel = findPanel("frmPmx")->make();
    panel.commands.front().name = "cmdPmxChoose";
    panel.field("chkPMXshow")->name = "panPmxFileName";
    std::erase_if(panel.fields, [](const Field& field) { return field.name == "chkPMXcomment"; });
    const QString wrong = mismatchesOf(std::move(panel)).join("\n");
    for (const char* part :
         {"the form has no cmdPmxChoose", "the panel has no cmdPmxSelect", "the panel has no chkPMXcomment",
          "panPmxFileName is of another kind in the form"})
        EXPECT_TRUE(wrong.contains(part)) << part << "\n" << wrong.toStdString();

    Panel edit = findPanel("frmEdit")->make();
    std::erase_if(edit.fields, [](const Field& field) { return field.name == "lstr1"; });
    EXPECT_EQ(mismatchesOf(std::move(edit)).join("\n").toStdString(), "the panel has no lstr1");
}

TEST(Forms, TellOfEachKindOfFieldThatItsControlCannotShow) {
    bool flag = false;
    int number = 0;
    std::string text;
    ListBox list;
    Progress progress;
    for (const Field& field :
         {textField("x", text, ""), labelField("x", text), checkField("x", flag),
          optionField("fraX", "x", flag), tabField("x", number, {"one"}), rowField("x", number, {"one"}),
          listField("x", list), progressField("x", progress)}) {
        QWidget form;
        (new QSlider(&form))->setObjectName("x");
        Panel panel;
        panel.fields = {field};
        EXPECT_EQ(Binder(form, panel, noAct).mismatches().size(), 1) << field.kindName();
    }
}

/// Letters that are reached with Alt while `page` of the tabs is in front, each with those who claim it.
std::map<QChar, QStringList> mnemonics(PanelWindow& window, const QWidget* page) {
    std::map<QChar, QStringList> claims;
    const auto claim = [&claims](const QString& text) {
        const QKeySequence key = QKeySequence::mnemonic(text);
        if (!key.isEmpty()) claims[key.toString().back()] << text;
    };
    const auto* const tab = window.findChild<QTabWidget*>();
    for (const QWidget* const widget : window.centralWidget()->findChildren<QWidget*>()) {
        if (tab && widget != tab && tab->isAncestorOf(widget) && !page->isAncestorOf(widget)) continue;
        if (const auto* const button = qobject_cast<const QAbstractButton*>(widget)) claim(button->text());
        const auto* const label = qobject_cast<const QLabel*>(widget);
        if (label && label->buddy()) claim(label->text());
    }
    for (int other = 0; tab && other < tab->count(); ++other) claim(tab->tabText(other));
    if (const auto* const bar = window.findChild<QMenuBar*>())
        for (const QAction* const entry : bar->actions()) claim(entry->text());
    return claims;
}

TEST(Forms, GiveEachMnemonicOnce) {
    for (const PanelEntry& entry : panelList()) {
        Panel panel;
        panel.name = entry.form;
        PanelWindow window(std::move(panel), noAct, runModally);
        const auto* const tab = window.findChild<QTabWidget*>();
        for (int page = 0; page < (tab ? tab->count() : 1); ++page)
            for (const auto& [letter, who] : mnemonics(window, tab ? tab->widget(page) : nullptr))
                EXPECT_EQ(who.size(), 1)
                    << entry.form << ", page " << page << ": " << who.join(", ").toStdString();
    }
}

/// What a reader for the blind has no words for.
QStringList namelessIn(const PanelWindow& window) {
    QStringList nameless;
    QList<const QWidget*> labelled;
    for (const QLabel* const label : window.findChildren<QLabel*>()) labelled << label->buddy();
    for (const QWidget* const widget : window.centralWidget()->findChildren<QWidget*>()) {
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        bool isMute = (button && button->text().isEmpty()) || dynamic_cast<const StaffPicture*>(widget);
        for (const char* kind : {"QLineEdit", "QListWidget", "QComboBox", "QPlainTextEdit", "QProgressBar"})
            isMute = isMute || widget->inherits(kind);
        if (isMute && widget->accessibleName().isEmpty() && !labelled.contains(widget))
            nameless << widget->objectName();
    }
    return nameless;
}

TEST(Forms, NameWhatShowsNoTextOfItsOwn) {
    ScriptedHost host;
    for (const PanelEntry& entry : panelList()) {
        PanelWindow window(entry.make(), noAct, runModally);
        window.refresh();
        EXPECT_EQ(namelessIn(window).join("\n").toStdString(), "") << entry.form;
    }
    PanelWindow window(findPanel("frmPmx")->make(), noAct, runModally);
    window.findChild<QWidget*>("panPmxFileName")->setAccessibleName({});
    window.findChild<QLabel*>("labelOfPanPmxFloodRun")->setBuddy(nullptr);
    window.findChild<QPushButton*>("cmdPmxView")->setText({});
    EXPECT_EQ(namelessIn(window).join(" ").toStdString(), "cmdPmxView panPmxFileName panPmxFloodRun");
}

TEST(Forms, HideAFrameWithTheLastOfItsControls) {
    ScriptedHost host;
    PanelWindow window(findPanel("frmEdit")->make(), noAct, runModally);
    window.show();
    for (const bool isDeveloper : {false, true, false}) {
        identity.DeveloperMode = isDeveloper;
        window.refresh();
        EXPECT_EQ(window.findChild<QWidget*>("fraEditHouseStyles")->isHidden(), !isDeveloper);
        EXPECT_FALSE(window.findChild<QWidget*>("fraEditDelete")->isHidden());
    }
}

/// What the user cannot reach or read: buttons and fields that are cut (on a page when they have the focus),
/// and tabs.
QStringList cutIn(const PanelWindow& window, const QTabWidget* tab) {
    QStringList cut;
    for (QWidget* const widget : window.centralWidget()->findChildren<QWidget*>()) {
        if (!widget->isVisible() || !widget->isEnabled() || !(widget->focusPolicy() & Qt::TabFocus)) continue;
        if (tab && tab->isAncestorOf(widget)) widget->setFocus();
        if (widget->visibleRegion().boundingRect() != widget->rect()) cut << widget->objectName();
    }
    for (int page = 0; tab && page < tab->count(); ++page)
        if (tab->fontMetrics().size(Qt::TextShowMnemonic, tab->tabText(page)).width() >
            tab->tabBar()->tabRect(page).width())
            cut << tab->tabText(page);
    return cut;
}

TEST(Forms, ScrollOnASmallScreenOnly) {
    ScriptedHost host;
    for (const PanelEntry& entry : panelList()) {
        PanelWindow window(entry.make(), noAct, runModally);
        window.refresh();
        window.show();
        for (int layer = 0; layer < 3; ++layer) QApplication::processEvents();  // sizes go up through layouts
        const QSize whole = window.sizeHint();
        auto* const tab = window.findChild<QTabWidget*>();
        for (int page = 0; page < (tab ? tab->count() : 1); ++page) {
            if (tab) tab->setCurrentIndex(page);
            for (const QSize& size : {whole, QSize(900, 480)}) {
                window.resize(size);
                QApplication::processEvents();
                EXPECT_EQ(cutIn(window, tab).join(" ").toStdString(), "") << entry.form << ", page " << page;
                for (const QScrollArea* const area : window.findChildren<QScrollArea*>())
                    EXPECT_FALSE(size == whole && area->verticalScrollBar()->isVisible()) << entry.form;
            }
        }
        EXPECT_EQ(window.sizeHint(), whole) << entry.form;
    }
}

}  // namespace
}  // namespace tul::desktop
