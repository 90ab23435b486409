#include "desktop/scrolling.h"

#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QFontMetrics>
#include <QMainWindow>
#include <QScrollArea>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace tul::desktop {

namespace {

constexpr int fewestLines = 6;  // of a page that scrolls

/// Shows the contents of a page, or of a form, as if they were still in it.
class ScrollingPart : public QScrollArea {
  public:
    /// Takes the contents out of the page, and stands there in their place. `tabs` are those that the page
    /// belongs to, if any.
    ScrollingPart(QWidget& page, const QTabWidget* tabs);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void fitContents();

    const QTabWidget* tabs_;
};

/// What all tabs need side by side, and the widest page.
int widthOf(const QTabWidget& tabs) {
    int width = tabs.tabBar()->sizeHint().width();
    for (int page = 0; page < tabs.count(); ++page)
        width = std::max(width, tabs.widget(page)->findChild<QScrollArea*>()->widget()->sizeHint().width());
    return width;
}

ScrollingPart::ScrollingPart(QWidget& page, const QTabWidget* tabs) : tabs_(tabs) {
    auto* const contents = new QWidget;
    contents->resize(1, 1);  // else it would be asked for its size before it has any contents
    setWidget(contents);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    contents->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    contents->setLayout(page.layout());
    auto* const layout = new QVBoxLayout(&page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(this);

    for (QComboBox* const choice : contents->findChildren<QComboBox*>()) choice->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, QWidget* focused) {
        if (focused && widget()->isAncestorOf(focused)) ensureWidgetVisible(focused);
    });
}

QSize ScrollingPart::sizeHint() const {
    QSize wanted = widget()->sizeHint();
    if (!tabs_) return wanted;
    wanted.setWidth(widthOf(*tabs_));
    if (widget()->hasHeightForWidth()) wanted.setHeight(widget()->heightForWidth(wanted.width()));
    return wanted;
}

QSize ScrollingPart::minimumSizeHint() const {
    const QSize needed = widget()->minimumSizeHint();
    return {0, std::min(needed.height(), fewestLines * QFontMetrics(font()).lineSpacing())};
}

bool ScrollingPart::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        fitContents();
    }
    // The wheel scrolls; an entry of an edit's condition under the pointer must not change with it.
    if (event->type() == QEvent::Wheel && qobject_cast<QComboBox*>(watched)) {
        event->ignore();
        return true;
    }
    return QScrollArea::eventFilter(watched, event);
}

void ScrollingPart::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    fitContents();
}

/// The contents become as small as they can before they scroll. The toolkit's own way (`widgetResizable`)
/// gives contents in which some text is wrapped all the height that they would like to have.
void ScrollingPart::fitContents() {
    const QLayout& contents = *widget()->layout();
    const QSize least = contents.totalMinimumSize();
    const auto leastHeight = [&](int width) {
        return contents.hasHeightForWidth() ? contents.totalMinimumHeightForWidth(width) : least.height();
    };
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    QSize size = maximumViewportSize();
    if (leastHeight(std::max(size.width(), least.width())) > size.height()) size.rwidth() -= bar;
    if (least.width() > size.width()) size.rheight() -= bar;
    size.setWidth(std::max(size.width(), least.width()));
    size.setHeight(std::max(size.height(), leastHeight(size.width())));
    widget()->resize(size);
}

}  // namespace

void letScroll(QMainWindow& window) {
    for (QTabWidget* const tabs : window.findChildren<QTabWidget*>()) {
        tabs->setElideMode(Qt::ElideNone);
        tabs->setUsesScrollButtons(true);
        for (int page = 0; page < tabs->count(); ++page) new ScrollingPart(*tabs->widget(page), tabs);
    }
    new ScrollingPart(*window.centralWidget(), nullptr);
}

}  // namespace tul::desktop
