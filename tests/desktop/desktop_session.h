#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QTest>
#include <deque>
#include <functional>
#include <stdexcept>
#include <string>

#include "base/text.h"
#include "centre/main_panel.h"
#include "desktop/desktop_face.h"
#include "desktop/panel_window.h"
#include "desktop/qt_text.h"
#include "support/scripted_host.h"

namespace tul::testing {

/// The desktop on a scripted machine. Dialogs are real ones; what the user does in each is queued, and a
/// dialog that nobody expects fails the test.
class DesktopSession : public ::testing::Test {
  protected:
    DesktopSession() {
        host.install();
        // As the program of that name does with the files that were dropped.
        host.programs["TULOLE.EXE"] = [this](const std::string& arguments) {
            std::vector<std::string> lines;
            std::string_view rest = std::string_view(arguments).substr(arguments.find("LIST=") + 5);
            for (SplitText part = splitAtFirst(rest, ','); part.found; part = splitAtFirst(rest, ',')) {
                lines.push_back(std::string(part.before) + " 1");
                rest = part.behind;
            }
            host.write("NAMES.TUL", crlf(lines));
            return 0;
        };
        installHost({&files(), &processes(), &profile(), &clock(), &platform(), &face});
    }
    ~DesktopSession() override { EXPECT_TRUE(users.empty()) << users.size() << " dialogs did not come"; }

    /// Opens the panel in front of the main panel.
    desktop::PanelWindow& open(const std::string& name) {
        face.openPanel("frmLogo");
        face.openPanel(name);
        return *face.front();
    }

    template <class Widget>
    Widget& child(const char* name) {
        auto* const widget = face.front()->findChild<Widget*>(name);
        if (!widget) throw std::runtime_error(std::string("there is no ") + name);
        return *widget;
    }
    /// At the left, where the mark of an option is.
    void click(const char* name) {
        auto& widget = child<QWidget>(name);
        QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(widget.height() / 2, widget.height() / 2));
    }
    std::string panelText(const char* field) { return face.front()->panel().field(field)->text(); }

    /// What the user does in the next dialog, and the result of that dialog.
    void expectDialog(std::function<void(QDialog&)> user) { users.push_back(std::move(user)); }

    /// The next dialog is a question, which the user answers with this button.
    void expectAnswer(QMessageBox::StandardButton button) {
        expectDialog(
            [button](QDialog& dialog) { dynamic_cast<QMessageBox&>(dialog).button(button)->click(); });
    }

    /// The next dialog is a message with this in it, which the user accepts.
    void expectMessage(const QString& part) {
        expectDialog([part](QDialog& dialog) {
            const QString text = dynamic_cast<QMessageBox&>(dialog).text();
            EXPECT_TRUE(text.contains(part)) << text.toStdString();
            dialog.accept();
        });
    }

    /// The next dialog is an input box with `present` in it; the user types `text`.
    void expectInput(const QString& present, const QString& text) {
        expectDialog([=](QDialog& dialog) {
            auto& box = dynamic_cast<QInputDialog&>(dialog);
            EXPECT_EQ(box.textValue(), present);
            box.setTextValue(text);
            box.accept();
        });
    }

    ScriptedHost host;
    std::deque<std::function<void(QDialog&)>> users;
    std::vector<std::string> titles;  // of all dialogs
    desktop::DesktopFace face{[this](QDialog& dialog) {
        titles.push_back(dialog.windowTitle().toStdString());
        if (users.empty()) {
            ADD_FAILURE() << "unexpected dialog: " << dialog.windowTitle().toStdString();
            return static_cast<int>(QDialog::Rejected);
        }
        const auto user = users.front();
        users.pop_front();
        dialog.show();
        user(dialog);
        return dialog.result();
    }};
};

}  // namespace tul::testing
