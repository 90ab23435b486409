#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>

#include "desktop/desktop_session.h"

namespace tul {
namespace {

using testing::DesktopSession;

class TextViewer : public DesktopSession {
  protected:
    /// Shows a file of these bytes; `user` is what happens in its window.
    void show(const std::string& bytes, const std::function<void(QDialog&, QPlainTextEdit&)>& user) {
        host.write("LETTER.TXT", bytes);
        expectDialog([user](QDialog& dialog) { user(dialog, *dialog.findChild<QPlainTextEdit*>()); });
        face.showText(host.path("LETTER.TXT"));
    }
    static void trigger(const QDialog& dialog, const QString& caption) {
        for (QAction* const action : dialog.findChildren<QAction*>())
            if (action->text() == caption) return action->trigger();
        ADD_FAILURE() << "there is no " << caption.toStdString();
    }
};

TEST_F(TextViewer, SearchesOnFromThePresentPlaceAndAround) {
    show("page one\r\npage two\r\n", [](QDialog& dialog, QPlainTextEdit& text) {
        auto& search = *dialog.findChild<QLineEdit*>();
        search.setText("PAGE");
        std::vector<int> places;
        for (int time = 0; time < 3; ++time) {
            QTest::keyClick(&search, Qt::Key_Return);
            places.push_back(text.textCursor().selectionStart());
        }
        EXPECT_EQ(places, (std::vector<int>{0, 9, 0}));
        trigger(dialog, "Previous");
        EXPECT_EQ(text.textCursor().selectionStart(), 9);
        search.setText("three");
        QTest::keyClick(&search, Qt::Key_Return);
        EXPECT_EQ(text.textCursor().selectionStart(), 9) << "the place stays when nothing is found";
        dialog.reject();
    });
}

TEST_F(TextViewer, SavesBytesAndLineEndsAsTheyWere) {
    const auto append = [](QDialog& dialog, QPlainTextEdit& text) {
        text.appendPlainText("end");
        trigger(dialog, "Save");
        dialog.reject();
    };
    show("caf\xE9\xA0X\r\n", append);
    EXPECT_EQ(host.read("LETTER.TXT"), "caf\xE9\xA0X\r\n\r\nend") << "single bytes, the hard blank too";
    show("caf\xC3\xA9\n", append);
    EXPECT_EQ(host.read("LETTER.TXT"), "caf\xC3\xA9\n\nend");
}

TEST_F(TextViewer, LosesNoChangesUnasked) {
    show("old\r\n", [this](QDialog& dialog, QPlainTextEdit& text) {
        text.setPlainText("new");
        text.document()->setModified(true);
        expectAnswer(QMessageBox::Cancel);
        dialog.reject();
        EXPECT_TRUE(dialog.isVisible()) << "Cancel goes back to the text";
        host.faultyFiles().refusals["LETTER.TXT"] = FileError::readOnly;
        expectAnswer(QMessageBox::Save);
        expectMessage("LETTER.TXT is read-only.");
        dialog.reject();
        EXPECT_TRUE(dialog.isVisible()) << "what could not be saved is still there";
        host.faultyFiles().refusals.clear();
        expectAnswer(QMessageBox::Save);
        dialog.reject();
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(host.read("LETTER.TXT"), "new");
}

TEST_F(TextViewer, RefusesWhatTheFileCannotHold) {
    show("sharp ", [this](QDialog& dialog, QPlainTextEdit& text) {
        text.appendPlainText(QString::fromUtf8("\u266F"));
        expectDialog([](QDialog& message) { message.accept(); });
        trigger(dialog, "Save");
        expectAnswer(QMessageBox::Discard);
        dialog.reject();
    });
    EXPECT_EQ(host.read("LETTER.TXT"), "sharp ");
}

TEST_F(TextViewer, PrintsAndSavesACopyElsewhere) {
    const QString page = QString::fromStdString((host.nativeFolder() / "page.pdf").string());
    const QString copy = QString::fromStdString((host.nativeFolder() / "copy of it.txt").string());
    show("one\r\ntwo\r\n", [this, page, copy](QDialog& dialog, QPlainTextEdit&) {
        expectDialog([page](QDialog& printing) {
            dynamic_cast<QPrintDialog&>(printing).printer()->setOutputFileName(page);
            printing.QDialog::done(QDialog::Accepted);
        });
        trigger(dialog, "Print...");
        expectDialog([copy](QDialog& chooser) {
            dynamic_cast<QFileDialog&>(chooser).selectFile(copy);
            dynamic_cast<QFileDialog&>(chooser).QDialog::done(QDialog::Accepted);
        });
        trigger(dialog, "Save a copy...");
        dialog.reject();
    });
    EXPECT_EQ(host.read("copy of it.txt"), "one\r\ntwo\r\n");
    EXPECT_TRUE(host.read("page.pdf").starts_with("%PDF"));
}

}  // namespace
}  // namespace tul
