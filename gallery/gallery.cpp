#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QStyleFactory>
#include <QTabWidget>
#include <iostream>
#include <utility>

#include "centre/global_options.h"
#include "centre/main_panel.h"
#include "centre/start_up.h"
#include "centre/viewing.h"
#include "check/validation.h"
#include "companions/folder_window.h"
#include "companions/message_window.h"
#include "companions/names_window.h"
#include "desktop/desktop_face.h"
#include "desktop/guide_window.h"
#include "desktop/panel_window.h"
#include "host/host.h"
#include "panels/fresh_process.h"
#include "panels/panel_list.h"
#include "shared/records.h"

// Renders every window and every tab into a picture, for a designer's eye.
namespace {

using namespace tul;
using desktop::PanelWindow;

QPalette darkPalette() {
    const QColor window(0x2D, 0x2F, 0x33);
    const QColor text(0xE6, 0xE6, 0xE6);
    QPalette dark(QColor(0x3A, 0x3D, 0x42), window);
    dark.setColor(QPalette::Base, QColor(0x1F, 0x21, 0x24));
    dark.setColor(QPalette::Disabled, QPalette::Base, window);
    dark.setColor(QPalette::AlternateBase, window);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        dark.setColor(role, text);
        dark.setColor(QPalette::Disabled, role, QColor(0x9C, 0x9E, 0xA2));
    }
    dark.setColor(QPalette::PlaceholderText, QColor(0x90, 0x92, 0x96));
    dark.setColor(QPalette::Highlight, QColor(0x4C, 0x8D, 0xD6));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::ToolTipBase, window);
    return dark;
}

class Gallery {
  public:
    Gallery(const QString& folder, bool dark)
        : folder_(folder),
          look_(QString("-%1-%2.png")
                    .arg(qRound(qApp->devicePixelRatio() * 100))
                    .arg(dark ? "dark" : "light")) {}

    void take(QWidget& window, const QString& name) {
        QApplication::processEvents();
        const QString file = folder_.filePath(name + look_);
        if (!window.grab().save(file)) std::cerr << file.toStdString() << " could not be written\n";
    }

    /// The window, once for each page of its tabs.
    void takePages(QWidget& window, const QString& name) {
        auto* const tab = window.findChild<QTabWidget*>();
        for (int page = 0; tab && page < tab->count(); ++page) {
            tab->setCurrentIndex(page);
            take(window, name + QString("-%1").arg(page));
        }
        if (!tab) take(window, name);
    }

  private:
    QDir folder_;
    QString look_;
};

/// An example of the guide.
constexpr std::pair<const char*, const char*> slursThinnerThan[] = {
    {"tabEdit", "6"}, {"optEditGeneralLocate", "1"},
    {"txtp1", "1"},   {"lstr1", "="},
    {"txtv1", "5"},   {"lstl2", "AND"},
    {"txtp2", "13"},  {"lstr2", "<"},
    {"txtv2", ".8"},  {"lstl3", "&not"},
    {"txtp3", "13"},  {"lstr3", "="},
    {"txtv3", "0"},
};

/// What a panel looks like apart from its tabs.
void takeStates(PanelWindow& window, Gallery& gallery) {
    if (window.panel().name == "frmValid") {
        RunView& run = valid::validation.view;
        run.control.begin();
        run.status = "File being processed: 3 of 7";
        run.overFiles = {.percent = 28, .visible = true};
        run.inFile = {.percent = 64, .visible = true};
        window.refresh();
        gallery.take(window, "frmValid-run");
        valid::resetValidation();
    }
    if (window.panel().name == "frmResiz") {
        RunResult run{.changesPages = true};
        for (const char* const page : {"A.MUS", "B.MUS", "C.MUS"})
            run.pages.push_back({.path = page, .isReached = true, .isDone = true, .isWritten = true});
        run.pages.back().reading = Reading::broken;
        window.showResult(run);
        gallery.take(window, "frmResiz-result");
    }
    if (window.panel().name == "frmRenum") {
        window.findChild<QTabWidget*>()->setCurrentIndex(1);
        window.panel().press("cmdRenumPreview");
        window.refresh();
        gallery.take(window, "frmRenum-preview");
    }
    if (window.panel().name == "frmGlobalOptions") {
        openFontList(&GlobalOptions::txtLyricsFont);
        window.findChild<QTabWidget*>()->setCurrentIndex(2);
        window.refresh();
        gallery.take(window, "frmGlobalOptions-fonts");
        chooseFont({});
    }
    if (window.panel().name == "frmEdit") {
        for (const auto& [field, value] : slursThinnerThan) window.panel().set(field, value);
        window.refresh();
        gallery.take(window, "frmEdit-example");
        identity.DeveloperMode = true;
        window.refresh();
        for (const int page : {4, 13}) {
            window.findChild<QTabWidget*>()->setCurrentIndex(page);
            gallery.take(window, QString("frmEdit-developer-%1").arg(page));
        }
        identity.DeveloperMode = false;
    }
}

void takePanel(const PanelEntry& entry, desktop::DesktopFace& face, Gallery& gallery) {
    const QString name = entry.form;
    if (name == "frmNotepad") ViewInPanel(paths.OptionsFilePath);
    face.openPanel(entry.form);
    PanelWindow& window = *face.front();
    gallery.takePages(window, name);
    takeStates(window, gallery);
    if (name != "frmLogo") window.close();
}

void takeAll(desktop::DesktopFace& face, Gallery& gallery) {
    for (const PanelEntry& entry : panelList()) takePanel(entry, face, gallery);
    ShowUserGuide(guideStart);
    gallery.take(*face.guide(), "guide");
    ShowUserGuide("settings.md");
    gallery.take(*face.guide(), "guide-settings");
    SeeTextFile();
    face.front()->refresh();
    gallery.take(*face.front(), "frmLogo-files");
    MsgBox("File S:\\SCORES\\PAGE1.MUS may not be a MUS file. ", Buttons::ok, Icon::information);
    InputBox("Page number size (Code10, Par6. Value between 0 and 10). 200 will be added to this value.",
             "1.1");
    valid::cmdValidateRun();
}

void takeCompanions(Gallery& gallery) {
    using namespace companion;
    const auto take = [&gallery](QDialog& window, const QString& name) {
        window.show();
        gallery.take(window, name);
    };
    const ArgumentPairs arguments("STARTDIR=" + paths.ProgramFolder + ",NAMESFILE=" + paths.NamesFileName +
                                  ",SUFFIX=MUS,MUSFOLDER=S:\\SCORES,MSG=Select Score music file(s)");
    NamesWindow names{NamesRequest(arguments)};
    take(names, "TULNAMES");
    names.findChild<QLineEdit*>("txtNamesPart")->setText("s");
    gallery.take(names, "TULNAMES-part");
    names.findChild<QLineEdit*>("txtNamesPart")->setText("none");
    gallery.take(names, "TULNAMES-none");
    names.findChild<QLineEdit*>("txtNamesPart")->clear();
    names.findChild<QLineEdit*>("txtNamesFolder")->setText("S:\\SCORES\\SONATA");
    names.accept();
    gallery.take(names, "TULNAMES-notice");
    FolderWindow folder("Select AFM folder", "S:\\");
    take(folder, "TULFOLDR");
    MessageWindow refusal(true, "TULSKORE",
                          "no SCORE is linked. Enter its path as ScorePath= in TULCNTRL.INI.");
    take(refusal, "TULTELL-refusal");
    MessageWindow report(false, "TULRECOV",
                         "Recovered S:\\SCORES\\PAGE1.MUS\nBackup:            S:\\SCORES\\PAGE1.BKU\n"
                         "Items kept:        56\nItems found again: 12\nItems lost:        none\n");
    take(report, "TULTELL-report");
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList words = QApplication::arguments();
    if (words.size() < 3) {
        std::cerr << "usage: tulgallery INSTALLATION PICTURES [--dark]\n";
        return 2;
    }
    const bool dark = words.value(3) == "--dark";
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    if (dark) QApplication::setPalette(darkPalette());
    QDir().mkpath(words[2]);
    Gallery gallery(words[2], dark);

    int dialogs = 0;
    const auto machine = openNativeMachine();
    desktop::DesktopFace face([&](QDialog& dialog) {
        dialog.show();
        gallery.take(dialog, QString("dialog-%1").arg(++dialogs));
        return static_cast<int>(QDialog::Rejected);
    });
    Host host = machine->host();
    host.face = &face;
    installHost(host);
    freshProcess();
    files().enterIfThere(files().fromNative(words[1].toStdString()).value_or("."));
    StartUp();
    face.settle();
    takeAll(face, gallery);
    takeCompanions(gallery);
    return 0;
}
