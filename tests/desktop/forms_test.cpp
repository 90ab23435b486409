
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QMenuBar>
#include <QTabWidget>
#include <map>

#include "desktop/panel_window.h"
#include "panels/panel_list.h"
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

}  // namespace
}  // namespace tul::desktop
