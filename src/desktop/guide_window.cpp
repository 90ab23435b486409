#include "desktop/guide_window.h"

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFontMetrics>
#include <QImage>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolBar>
#include <QUrl>

#include "centre/viewing.h"
#include "host/host.h"

namespace tul::desktop {

namespace {

constexpr int columns = 120;
constexpr int rows = 40;
constexpr int margin = 16;

/// How the pages' links name a heading: small letters, without punctuation, hyphens for blanks.
QString anchorOf(const QString& heading) {
    static const QRegularExpression punctuation("[^a-z0-9 -]");
    return heading.toLower().remove(punctuation).replace(' ', '-');
}

/// Some platforms go dark and keep the links' dark blue. A page takes their colour from the application.
void makeLinksLegible() {
    QPalette palette = QApplication::palette();
    const bool isDark = palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
    if (!isDark || qGray(palette.color(QPalette::Link).rgb()) > 127) return;
    palette.setColor(QPalette::Link, QColor(0x7A, 0xB8, 0xF5));
    QApplication::setPalette(palette);
}

/// A page whose pictures are no wider than its text.
class GuidePage : public QTextBrowser {
  public:
    using QTextBrowser::QTextBrowser;
    QVariant loadResource(int type, const QUrl& name) override {
        const QVariant resource = QTextBrowser::loadResource(type, name);
        if (type != QTextDocument::ImageResource) return resource;
        const QImage picture(name.isRelative() ? source().resolved(name).toLocalFile() : name.toLocalFile());
        const int widest = width() - verticalScrollBar()->sizeHint().width() - 2 * margin;
        return picture.width() > widest ? picture.scaledToWidth(widest, Qt::SmoothTransformation) : resource;
    }
};

}  // namespace

GuideWindow::GuideWindow() : page_(new GuidePage(this)) {
    makeLinksLegible();
    page_->setOpenExternalLinks(true);
    page_->setFrameShape(QFrame::NoFrame);
    page_->document()->setDocumentMargin(margin);
    setCentralWidget(page_);
    addTools();
    connect(page_, &QTextBrowser::sourceChanged, this, [this](const QUrl& source) {
        setWindowTitle(page_->document()->firstBlock().text() + " - TUL user guide");
        scrollTo(source.fragment());
    });
    const QFontMetrics metrics(page_->font());
    const QSize wanted(metrics.averageCharWidth() * columns, metrics.lineSpacing() * rows);
    resize(wanted.boundedTo(QApplication::primaryScreen()->availableSize() * 9 / 10));
}

void GuideWindow::addTools() {
    QToolBar* const bar = addToolBar("Guide");
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    const auto add = [this, bar](const QString& caption, const QKeySequence& key, auto handler) {
        QAction* const action = bar->addAction(caption);
        action->setShortcut(key);
        action->setToolTip(caption + " (" + key.toString(QKeySequence::NativeText) + ")");
        connect(action, &QAction::triggered, this, handler);
        return action;
    };
    QAction* const back = add("Back", QKeySequence("Alt+Left"), [this] { page_->backward(); });
    QAction* const forward = add("Forward", QKeySequence("Alt+Right"), [this] { page_->forward(); });
    add("Contents", QKeySequence("Alt+Home"), [] { ShowUserGuide(guideStart); });
    add("Close", QKeySequence::Close, [this] { close(); });
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(page_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(page_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    bar->addSeparator();
    auto* const search = new QLineEdit(bar);
    search->setPlaceholderText("Find on this page (Ctrl+F)");
    search->setClearButtonEnabled(true);
    search->setMaximumWidth(search->fontMetrics().averageCharWidth() * 40);
    bar->addWidget(search);
    connect(search, &QLineEdit::returnPressed, this, [this, search] { find(search->text()); });
    auto* const toSearch = new QAction(this);
    toSearch->setShortcut(QKeySequence::Find);
    connect(toSearch, &QAction::triggered, search, [search] {
        search->setFocus();
        search->selectAll();
    });
    addAction(toSearch);
}

void GuideWindow::turnTo(const std::string& path) {
    page_->setSource(
        QUrl::fromLocalFile(QFile::decodeName(QByteArray::fromStdString(files().toNative(path)))));
    show();
    raise();
    activateWindow();
    page_->setFocus();
}

/// The text of a page has no anchors: a link leads to the heading of that name.
void GuideWindow::scrollTo(const QString& anchor) {
    for (QTextBlock block = page_->document()->begin(); !anchor.isEmpty() && block.isValid();
         block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || anchorOf(block.text()) != anchor) continue;
        const double top = page_->document()->documentLayout()->blockBoundingRect(block).top();
        return page_->verticalScrollBar()->setValue(static_cast<int>(top));
    }
}

/// The next place, and the first one behind the last.
void GuideWindow::find(const QString& wanted) {
    if (page_->find(wanted)) return;
    page_->moveCursor(QTextCursor::Start);
    page_->find(wanted);
}

}  // namespace tul::desktop
