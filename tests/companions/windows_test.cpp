#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "companions/folder_window.h"
#include "companions/message_window.h"
#include "companions/names_window.h"
#include "support/scripted_host.h"

namespace tul::companion {
namespace {

using testing::crlf;
using testing::ScriptedHost;

class ChoosingWindow : public ::testing::Test {
  protected:
    ChoosingWindow() {
        std::filesystem::create_directory(host.nativeFolder() / "music");
        for (const char* name : {"PAGE10.MUS", "PAGE2.MUS", "PAGE1.MUS", "SONG.MUS", "SONG.PMX"})
            host.write(std::string("music/") + name, "1");
    }

    NamesRequest request(const std::string& more = "") {
        return NamesRequest(ArgumentPairs("STARTDIR=" + host.folder() + ",SUFFIX=MUS,MUSFOLDER=" + music +
                                          ",NAMESFILE=NAMES.TUL,DEBUG=NO" + more));
    }
    template <class Widget>
    static Widget& child(QDialog& window, const char* name) {
        return *window.findChild<Widget*>(name);
    }
    static void press(QDialog& window, const char* button) {
        QTest::mouseClick(&child<QPushButton>(window, button), Qt::LeftButton);
    }
    static QString text(QDialog& window, const char* label) { return child<QLabel>(window, label).text(); }
    static void clickRow(QDialog& window, int row, Qt::KeyboardModifiers keys = {}) {
        auto& list = child<QListView>(window, "lstNames");
        QTest::mouseClick(list.viewport(), Qt::LeftButton, keys,
                          list.visualRect(list.model()->index(row, 0)).center());
    }
    std::string selection(std::initializer_list<const char*> names) {
        std::vector<std::string> lines;
        for (const std::string name : names) lines.push_back(music + "\\" + name + " 1");
        return crlf(lines);
    }

    ScriptedHost host;
    const std::string music = host.path("music");
};

TEST_F(ChoosingWindow, WritesTheChosenFilesInTheirOrder) {
    NamesWindow window(request(",MSG=Select Score music file(s)"));
    window.show();
    EXPECT_EQ(text(window, "lblNamesPrompt"), "Select Score music file(s)");
    EXPECT_FALSE(child<QPushButton>(window, "cmdNamesOk").isEnabled());
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_TRUE(window.isVisible()) << "nothing is chosen";
    clickRow(window, 3);
    clickRow(window, 0, Qt::ControlModifier);
    clickRow(window, 2, Qt::ControlModifier | Qt::ShiftModifier);
    clickRow(window, 1, Qt::ControlModifier);
    EXPECT_EQ(text(window, "lblNamesCount"), "3 of 4 files chosen");
    QTest::keyClick(&child<QListView>(window, "lstNames"), Qt::Key_Return);
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_EQ(host.read("NAMES.TUL"), selection({"PAGE1.MUS", "PAGE10.MUS", "SONG.MUS"}));
}

TEST_F(ChoosingWindow, BeginsWithThePresentSelectionAndKeepsItWhenCancelled) {
    const std::string present = "* mine\r\n" + selection({"page2.mus", "SONG.MUS"});
    host.write("NAMES.TUL", present);
    NamesWindow window(request());
    window.show();
    EXPECT_EQ(text(window, "lblNamesCount"), "2 of 4 files chosen");
    press(window, "cmdNamesAll");
    EXPECT_EQ(text(window, "lblNamesCount"), "4 of 4 files chosen");
    press(window, "cmdNamesNone");
    EXPECT_EQ(text(window, "lblNamesCount"), "0 of 4 files chosen");
    press(window, "cmdNamesAll");
    press(window, "cmdNamesCancel");
    EXPECT_EQ(window.result(), QDialog::Rejected);
    EXPECT_EQ(host.read("NAMES.TUL"), present);

    NamesWindow again(request());
    again.show();
    press(again, "cmdNamesOk");
    EXPECT_EQ(host.read("NAMES.TUL"), selection({"PAGE2.MUS", "SONG.MUS"})) << "as on disk";
}

TEST_F(ChoosingWindow, NeverTakesWhatItDoesNotShow) {
    host.write("NAMES.TUL", selection({"PAGE1.MUS", "SONG.MUS"}));
    NamesWindow window(request());
    window.show();
    auto& part = child<QLineEdit>(window, "txtNamesPart");
    QTest::keyClicks(&part, "page1");
    EXPECT_EQ(text(window, "lblNamesCount"), "1 of 2 files chosen; not shown and not taken: 1");
    press(window, "cmdNamesAll");
    part.setText("");
    EXPECT_EQ(text(window, "lblNamesCount"), "3 of 4 files chosen");
    press(window, "cmdNamesNone");
    child<QComboBox>(window, "lstNamesSuffix").setCurrentIndex(1);
    QTest::keyClicks(&part, "song");
    QTest::keyClick(&part, Qt::Key_Return);
    EXPECT_EQ(text(window, "lblNamesCount"), "1 of 2 files chosen") << "Enter takes the first that fits";
    QTest::keyClick(window.focusWidget(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(host.read("NAMES.TUL"), selection({"SONG.MUS", "SONG.PMX"}));
}

TEST_F(ChoosingWindow, GoesToAnotherFolderBeforeItAccepts) {
    host.write("A.MUS", "1");
    NamesWindow window(request());
    window.show();
    press(window, "cmdNamesAll");
    auto& folder = child<QLineEdit>(window, "txtNamesFolder");
    folder.setText("/no/such/folder");
    press(window, "cmdNamesOk");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(text(window, "lblNamesNotice"), "There is no such folder: /no/such/folder");
    folder.setText(QString::fromStdString(host.nativeFolder().string()));
    QTest::keyClick(&folder, Qt::Key_Return);
    EXPECT_EQ(folder.text().toStdString(), host.folder());
    EXPECT_EQ(text(window, "lblNamesCount"), "0 of 1 file chosen");
    folder.setText(QString::fromStdString(music));
    QTest::keyClick(&folder, Qt::Key_Return);
    press(window, "cmdNamesUp");
    auto& list = child<QListView>(window, "lstNames");
    clickRow(window, 0);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {},
                       list.visualRect(list.model()->index(0, 0)).center());
    EXPECT_EQ(host.read("NAMES.TUL"), crlf({host.path("A.MUS") + " 1"}));
}

TEST_F(ChoosingWindow, StaysOpenWithTheReasonWhenNothingWasWritten) {
    host.write("TULPROJ.PRO", "WarnOnPathLength=1\r\n");
    NamesWindow window(request());
    window.show();
    press(window, "cmdNamesAll");
    EXPECT_TRUE(text(window, "lblNamesNotice").startsWith("A path has")) << "all in here are long";
    host.faultyFiles().refusals["NAMES.TUL"] = FileError::readOnly;
    press(window, "cmdNamesOk");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(text(window, "lblNamesNotice").toStdString(),
              "The names file could not be written: " + host.path("NAMES.TUL"));
}

TEST_F(ChoosingWindow, ChoosesTheFolderThatStandsInItsField) {
    for (const char* name : {"music/deep", "more2", "more10"})
        std::filesystem::create_directory(host.nativeFolder() / name);
    FolderWindow window("Select AFM folder", host.folder());
    window.show();
    auto& list = child<QListWidget>(window, "lstFolders");
    ASSERT_EQ(list.count(), 3);
    EXPECT_EQ(list.item(0)->text(), "more2");
    EXPECT_EQ(list.item(1)->text(), "more10");
    QTest::keyClicks(&list, "mu");
    EXPECT_EQ(window.folder(), music);
    QTest::keyClick(&list, Qt::Key_Right);
    ASSERT_EQ(list.count(), 1);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(window.folder(), music + "\\deep");
    QTest::keyClick(&list, Qt::Key_Left);
    EXPECT_EQ(window.folder(), host.folder());
    child<QLineEdit>(window, "txtFolder").setText("nowhere");
    press(window, "cmdFolderOk");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(text(window, "lblFolderNotice"), "There is no such folder: nowhere");
    child<QLineEdit>(window, "txtFolder").setText(QString::fromStdString(music));
    press(window, "cmdFolderOk");
    press(window, "cmdFolderOk");
    EXPECT_EQ(window.result(), QDialog::Accepted);
    EXPECT_EQ(window.folder(), music);
}

TEST(ToldInAWindow, ReportsKeepTheirColumns) {
    const auto labelOf = [](const MessageWindow& window) {
        for (const QLabel* const label : window.findChildren<QLabel*>())
            if (!label->text().isEmpty()) return label;
        return static_cast<const QLabel*>(nullptr);
    };
    const MessageWindow report(false, "TULRECOV", "Kept:  56\nLost:   1\n");
    const QFontMetrics metrics(labelOf(report)->font());
    EXPECT_EQ(metrics.horizontalAdvance("iii1"), metrics.horizontalAdvance("MMM "));
    const MessageWindow refusal(true, "TULSKORE", "no <SCORE> is linked: Z:\\a");
    EXPECT_EQ(labelOf(refusal)->text(), "No <SCORE> is linked: Z:\\a");
    EXPECT_EQ(labelOf(refusal)->textFormat(), Qt::PlainText);
    EXPECT_EQ(refusal.windowTitle(), "TULSKORE");
}

}  // namespace
}  // namespace tul::companion
