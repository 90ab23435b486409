#include <QAbstractButton>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QTabWidget>
#include <QTimer>
#include <QUrl>

#include "centre/panel_place.h"
#include "desktop/desktop_session.h"
#include "support/mus_bytes.h"

namespace tul {
namespace {

using desktop::PanelWindow;
using testing::bytesOf;
using testing::crlf;
using testing::DesktopSession;
using testing::pageOf;
using testing::words;

class ToolWindows : public DesktopSession {
  protected:
    /// A page of `notes` notes.
    void writePage(const std::string& name, int notes = 1) {
        std::string items;
        for (int note = 0; note < notes; ++note) items += words({6.0F, 1.0F, 1.0F, 10.0F, 5.0F, 10.0F, 0.0F});
        host.write(name, pageOf(items));
    }

    void dropOn(const char* button, const std::vector<std::string>& names) {
        QList<QUrl> urls;
        for (const std::string& name : names)
            urls << QUrl::fromLocalFile(QString::fromStdString((host.nativeFolder() / name).string()));
        QMimeData data;
        data.setUrls(urls);
        auto& target = child<QWidget>(button);
        QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop(QPointF(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &drop);
        QApplication::processEvents();
    }

    /// The next dialog is a text, which is put into `text` and closed.
    void expectText(std::string& text) {
        expectDialog([&text](QDialog& dialog) {
            text = dialog.findChild<QPlainTextEdit*>()->toPlainText().toStdString();
            dialog.reject();
        });
    }
};

TEST_F(ToolWindows, DroppedPagesAreValidatedAndReported) {
    writePage("first.mus");
    writePage("second.mus");
    PanelWindow& window = open("frmValid");
    EXPECT_FALSE(child<QAbstractButton>("cmdValidateRun").isEnabled());
    EXPECT_FALSE(child<QProgressBar>("panValidFloodFile").isVisible());
    dropOn("cmdValidateSelect", {"first.mus", "second.mus"});
    EXPECT_TRUE(child<QAbstractButton>("cmdValidateRun").isEnabled());
    EXPECT_TRUE(child<QLineEdit>("panValidFileName").text().endsWith("\\FIRST.MUS"));
    EXPECT_TRUE(child<QAbstractButton>("cmdValidateView").toolTip().contains(" 2 filenames"));
    EXPECT_EQ(child<QAbstractButton>("cmdValidateView").text(), "&View 2 files");

    std::string report;
    expectText(report);
    EXPECT_EQ(window.focusWidget()->objectName(), "cmdValidateRun") << "Enter runs, now that it can";
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(window.focusWidget()->objectName(), "cmdValidateRun") << "and once more after the run";
    EXPECT_NE(report.find("2 file(s)"), std::string::npos) << report;

    click("cmdValidateReturn");
    EXPECT_EQ(face.front()->panel().name, "frmLogo");
    EXPECT_TRUE(face.front()->isVisible());
    EXPECT_EQ(face.frontCaption(), face.front()->windowTitle().toStdString());
}

TEST_F(ToolWindows, ARunIsShownAndCancelled) {
    writePage("long.mus", 2000);
    host.write("NAMES.TUL", crlf({host.path("long.mus") + " 1"}));
    open("frmValid");
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&] {
        if (!child<QProgressBar>("panValidFloodFile").isVisible()) return;
        user.stop();
        EXPECT_FALSE(child<QAbstractButton>("cmdValidateRun").isEnabled());
        EXPECT_EQ(child<QAbstractButton>("cmdValidateReturn").text(), "&Cancel");
        EXPECT_TRUE(child<QLabel>("lblValidStatus").text().contains(" 1 of 1"));
        click("cmdValidateReturn");
    });
    user.start();
    std::string report;
    expectText(report);
    click("cmdValidateRun");
    EXPECT_NE(report.find("(Processing interrupted by user)"), std::string::npos) << report;
    EXPECT_EQ(face.front()->panel().name, "frmValid") << "the click that cancels does not close";
    EXPECT_EQ(child<QAbstractButton>("cmdValidateReturn").text(), "Retur&n");
    face.front()->close();
    EXPECT_EQ(face.front()->panel().name, "frmLogo");
}

TEST_F(ToolWindows, AQuestionFindsThePanelAtItsPage) {
    writePage("first.mus");
    host.write("second.mus", std::string(40, '\0'));
    host.write("NAMES.TUL", crlf({host.path("first.mus") + " 1", host.path("second.mus") + " 1"}));
    PanelWindow& window = open("frmValid");
    for (int message = 0; message < 2; ++message)
        expectDialog([&](QDialog& dialog) {
            EXPECT_TRUE(child<QLabel>("lblValidStatus").text().contains(" 2 of 2"));
            EXPECT_TRUE(child<QLineEdit>("panValidFileName").text().endsWith("\\SECOND.MUS"));
            EXPECT_EQ(window.focusWidget(), &window) << "Enter cancels nothing";
            EXPECT_EQ(dialog.windowTitle(), "TulValid");
            dialog.accept();
        });
    expectAnswer(QMessageBox::Cancel);
    std::string report;
    expectText(report);
    click("cmdValidateRun");
}

TEST_F(ToolWindows, AFaultOfTheProgramIsToldAndTheWindowCanBeLeft) {
    host.write("broken.mus", std::string(40, '\0'));
    host.write("NAMES.TUL", crlf({host.path("broken.mus") + " 1"}));
    host.write("TULRECOV.EXE", "x");
    host.programs["TULRECOV.EXE"] = [](const std::string&) -> int { throw std::runtime_error("no memory"); };
    open("frmValid");
    for (int dialog = 0; dialog < 3; ++dialog) expectAnswer(QMessageBox::Ok);  // two messages and the offer
    expectMessage("a fault of its own: no memory");
    click("cmdValidateRun");
    EXPECT_TRUE(child<QAbstractButton>("cmdValidateRun").isEnabled());
    EXPECT_FALSE(QApplication::overrideCursor());
    click("cmdValidateReturn");
    EXPECT_EQ(face.front()->panel().name, "frmLogo");
}

TEST_F(ToolWindows, ConditionsAreChosenByKeys) {
    writePage("page.mus", 2);
    host.write("NAMES.TUL", crlf({host.path("page.mus") + " 1"}));
    open("frmEdit");
    child<QTabWidget>("tabEdit").setCurrentIndex(6);
    auto& relation = child<QComboBox>("lstr1");
    EXPECT_EQ(relation.currentIndex(), -1) << "no relation is chosen for the user";
    for (const auto& [field, value] : {std::pair{"txtp1", "3"}, {"txtv1", "30"}}) {
        expectInput("", value);
        click(field);
    }
    QTest::keyClick(&relation, Qt::Key_End);
    QTest::keyClick(&relation, Qt::Key_Up);
    EXPECT_EQ(panelText("lstr1"), ">");
    auto& logic = child<QComboBox>("lstl2");
    EXPECT_EQ(logic.currentText(), "--------");
    QTest::keyClick(&logic, Qt::Key_Down);
    EXPECT_EQ(panelText("lstl2"), "AND");
    QTest::keyClick(&logic, Qt::Key_Up);
    EXPECT_TRUE(child<QWidget>("labelOfTxtp4").isVisible());
    click("optEditGeneralLocate");
    EXPECT_FALSE(child<QWidget>("labelOfTxtp4").isVisible());
    EXPECT_FALSE(child<QAbstractButton>("chkEditBackup").isChecked());
    child<QTabWidget>("tabEdit").setCurrentIndex(9);
    EXPECT_FALSE(child<QLineEdit>("txtRVBheight").isEnabled()) << "nothing chosen reads it";
    click("optLineRVB");
    EXPECT_TRUE(child<QLineEdit>("txtRVBheight").isEnabled());
    std::string profile;
    expectText(profile);
    QTest::keyClick(&child<QWidget>("lblViewTulEditProfile"), Qt::Key_Space);
    EXPECT_NE(profile.find("RVBheight=-1.0"), std::string::npos) << profile;
}

class OptionsWindow : public DesktopSession {
  protected:
    OptionsWindow() {
        host.write("TULPROJ.PRO", crlf({"Project=Quartet", "PageNumberFont=3", "StaffRange=32"}));
    }
};

TEST_F(OptionsWindow, FieldsAreFilledThroughInputBoxesAndSaved) {
    PanelWindow& window = open("frmGlobalOptions");
    child<QTabWidget>("SSTab1").setCurrentIndex(1);
    expectInput("3", "200");
    expectMessage("Value not 00-99, 100-199, 1000-1099, 1100-1199. Assumed 0.");
    click("txtPageFont");
    EXPECT_EQ(titles.back(), window.windowTitle().toStdString()) << "the dialog tells which tool speaks";
    EXPECT_EQ(child<QLineEdit>("txtPageFont").text(), "0");

    child<QTabWidget>("SSTab1").setCurrentIndex(0);
    expectInput("Quartet", QString::fromUtf8("Müller – \u266F"));
    QTest::keyClick(&child<QWidget>("txtProjectName"), Qt::Key_Space);
    EXPECT_EQ(child<QLineEdit>("txtProjectName").text(), QString::fromUtf8("Müller – \u266F"));
    expectInput(QString::fromUtf8("Müller – \u266F"), QString::fromUtf8("Müller – neu"));
    QTest::keyClick(&child<QWidget>("txtProjectName"), Qt::Key_F2);
    click("opt99");
    EXPECT_FALSE(child<QAbstractButton>("opt32").isChecked());
    child<QTabWidget>("SSTab1").setCurrentIndex(5);
    click("optPanelPreference_2");
    EXPECT_TRUE(child<QAbstractButton>("optPanelPreference_2").isChecked());
    click("cmdGlobalOptionsReturn");

    EXPECT_EQ(face.front()->panel().name, "frmLogo");
    EXPECT_EQ(child<QTabWidget>("tabLogo").currentIndex(), 2) << "the preferred tab is shown at once";
    const std::string file = host.read("TULPROJ.PRO");
    for (const char* line : {"Project=M\xFCller \x96 neu\r\n", "PageNumberFont=0\r\n", "StaffRange=200\r\n"})
        EXPECT_NE(file.find(line), std::string::npos) << line << file;
}

TEST_F(OptionsWindow, AFontIsChosenFromTheList) {
    open("frmGlobalOptions");
    child<QTabWidget>("SSTab1").setCurrentIndex(2);
    EXPECT_FALSE(child<QWidget>("lstFont").isVisible());
    const std::string present = panelText("txtLyricsFont");
    click("txtLyricsFont");
    auto& list = child<QListWidget>("lstFont");
    EXPECT_TRUE(list.isVisible());
    EXPECT_EQ(child<QLabel>("lstFontTitle").text(), "Select any Score font or '(cancel)'");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(0)).center());
    EXPECT_FALSE(list.isVisible());
    EXPECT_EQ(panelText("txtLyricsFont"), present);
}

TEST_F(DesktopSession, TextFilesAreListedOverTheTabs) {
    host.write("notes.txt", "The second page\r\n");
    host.write("TULPROJ.PRO", crlf({"MusDirectory=" + host.folder()}));
    face.openPanel("frmLogo");
    const auto list = [this]() -> QListWidget& { return child<QListWidget>("lstTextFiles"); };
    face.front()->findChild<QAction*>("mnuSeeTextFile")->trigger();
    ASSERT_TRUE(list().isVisible());
    EXPECT_FALSE(child<QWidget>("tabLogo").isVisible());
    list().setCurrentItem(list().findItems("notes.txt", Qt::MatchExactly).value(0));
    EXPECT_EQ(face.front()->focusWidget(), &list());
    QTest::keyClick(&list(), Qt::Key_Return);
    ASSERT_EQ(face.front()->panel().name, "frmNotepad");
    EXPECT_EQ(face.front()->size(), face.front()->screen()->availableSize()) << "it fills the screen";
    EXPECT_EQ(child<QPlainTextEdit>("lstTulboard").toPlainText(), "The second page");
    face.front()->findChild<QAction*>("mnuReturn")->trigger();
    ASSERT_EQ(face.front()->panel().name, "frmLogo");
    QTest::mouseClick(list().viewport(), Qt::RightButton);
    EXPECT_FALSE(list().isVisible());
    EXPECT_TRUE(child<QWidget>("tabLogo").isVisible());
}

TEST_F(DesktopSession, TheMainPanelStandsWhereItWasPut) {
    mainPanel.place.left = 0;
    mainPanel.place.top = 30 * 15;
    face.openPanel("frmLogo");
    EXPECT_EQ(face.front()->pos(), QPoint(0, 30));
    click("cmdTopLeft");
    EXPECT_EQ(face.front()->pos(), QPoint(0, 0));
    face.front()->move(55, 66);
    EXPECT_EQ(mainPanel.place.left, 55 * 15);
    EXPECT_EQ(mainPanel.place.top, 66 * 15);

    face.front()->showMinimized();
    face.openPanel("frmColor");
    face.front()->close();
    EXPECT_FALSE(face.front()->isMinimized()) << "it comes back from behind a tool";

    mainPanel.enabled["cmdTulClean"] = false;
    mainPanel.cmdLogoInputCaption = "TulInputW";
    face.settle();
    EXPECT_EQ(child<QAbstractButton>("cmdLogoInput").text(), "TulInputW") << "the label has the key";
    EXPECT_FALSE(child<QAbstractButton>("cmdTulClean").isEnabled());
    expectMessage("TUL build date: ");
    QTest::mouseDClick(&child<QWidget>("labelWelcome"), Qt::LeftButton);
}

TEST_F(DesktopSession, PanelsStandInTheMiddleByTheSizeThatTheyHave) {
    positionPanel(mainPanel.place);
    face.openPanel("frmLogo");
    const QRect screen = face.front()->screen()->geometry();
    const auto isCentred = [&] {
        const QPoint off = face.front()->frameGeometry().center() - screen.center();
        return off.manhattanLength() <= 8;  // the frame is known once the window is shown
    };
    if (face.front()->width() > screen.width())
        GTEST_SKIP() << "in this system's font it is wider than the screen";
    ASSERT_GT(face.front()->width() * 15, PanelPlace().width);
    EXPECT_TRUE(isCentred()) << "at the first start";
    click("cmdTopLeft");
    QTest::mouseClick(&child<QWidget>("Picture1"), Qt::LeftButton);
    EXPECT_EQ(face.front()->pos(), QPoint(0, 0)) << "the picture, which is clicked twice, is no background";
    QTest::mouseClick(&child<QWidget>("labelWelcome"), Qt::LeftButton);
    EXPECT_TRUE(isCentred());
}

TEST_F(DesktopSession, QuestionsAreAnsweredByTheirButtons) {
    const auto ask = [this](Buttons buttons) { return face.msgBox({.text = "?", .buttons = buttons}); };
    expectAnswer(QMessageBox::Ok);
    EXPECT_EQ(ask(Buttons::okCancel), Answer::ok);
    expectAnswer(QMessageBox::Yes);
    EXPECT_EQ(ask(Buttons::yesNo), Answer::yes);
    expectAnswer(QMessageBox::No);
    EXPECT_EQ(ask(Buttons::yesNoCancel), Answer::no);
    const auto closed = [](QDialog& dialog) { dialog.done(0); };
    expectDialog(closed);
    EXPECT_EQ(ask(Buttons::yesNo), Answer::no) << "a closed question is refused";
    expectDialog(closed);
    EXPECT_EQ(ask(Buttons::yesNoCancel), Answer::cancel);
    expectDialog(closed);
    EXPECT_EQ(face.inputBox("Plate number", "12"), std::nullopt);
    expectDialog([](QDialog& dialog) { dialog.accept(); });
    EXPECT_EQ(face.inputBox("Plate number", "\xC3\xBC\xFC"), "\xC3\xBC\xFC") << "untouched bytes stay";
}

}  // namespace
}  // namespace tul
