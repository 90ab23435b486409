#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBrowser>
#include <set>

#include "centre/viewing.h"
#include "desktop/desktop_session.h"
#include "desktop/guide_window.h"
#include "panels/panel_list.h"
#include "shared/records.h"

namespace tul {
namespace {

using testing::DesktopSession;

class Guide : public DesktopSession {
  protected:
    Guide() {
        paths.ProgramFolder = host.folder();
        QDir(hostFolder()).mkdir("docs");
        const QDir docs(TUL_DOCS_FOLDER);
        for (const QString& name : docs.entryList({"*.md"}))
            QFile::copy(docs.filePath(name), hostFolder() + "/docs/" + name);
    }
    QString hostFolder() const { return QString::fromStdString(host.nativeFolder().string()); }
    QTextBrowser& page() { return *face.guide()->findChild<QTextBrowser*>(); }
};

TEST_F(Guide, OpensAtThePageOfTheTool) {
    open("frmResiz");
    QTest::keyClick(face.front(), Qt::Key_F1);
    ASSERT_NE(face.guide(), nullptr);
    EXPECT_TRUE(face.guide()->windowTitle().startsWith("Resize"));
    EXPECT_TRUE(face.front()->isVisible()) << "the tool can be used beside it";
    QFile::remove(hostFolder() + "/docs/guide.md");
    expectAnswer(QMessageBox::Ok);
    ShowUserGuide(guideStart);
}

TEST_F(Guide, LeadsToEveryPageAndHeading) {
    std::set<QString> reached;
    std::vector<QString> open = {guideStart};
    for (const PanelEntry& entry : panelList()) open.emplace_back(entry.guide);
    ShowUserGuide(guideStart);
    const QRegularExpression link("\\]\\(([^)]+)\\)");
    while (!open.empty()) {
        const QString target = open.back();
        open.pop_back();
        if (!reached.insert(target).second || target.contains("://") || target.startsWith("pictures/"))
            continue;
        const QString name = target.section('#', 0, 0);
        QFile file(hostFolder() + "/docs/" + name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << target.toStdString();
        page().setSource(QUrl(target));
        const int top = page().verticalScrollBar()->value();
        EXPECT_EQ(target.contains('#'), top > 0) << target.toStdString();
        for (const auto& found : link.globalMatch(QString::fromUtf8(file.readAll()))) {
            const QString next = found.captured(1);
            open.push_back(next.startsWith('#') ? name + next : next);
        }
    }
    EXPECT_GT(reached.size(), panelList().size());
}

}  // namespace
}  // namespace tul
