#include "desktop/staff_picture.h"

#include <QFontMetrics>
#include <QPainter>

namespace tul::desktop {

namespace {

struct Note {
    double place;  // across the staff, 0 to 1
    int step;      // half spaces above the lowest line
};
constexpr Note notes[] = {{0.16, 1}, {0.36, 4}, {0.56, 6}, {0.76, 3}};
constexpr int lines = 5;

}  // namespace

StaffPicture::StaffPicture(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize StaffPicture::sizeHint() const {
    const int line = QFontMetrics(font()).height();
    return {line * 7, line * 3};
}

void StaffPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double space = height() / 9.0;
    const double bottom = height() - 2 * space;
    const double right = width() - 1.0;
    const auto lineAt = [&](double x1, double y1, double x2, double y2) {
        painter.drawLine(QPointF(x1, y1), QPointF(x2, y2));
    };
    painter.setPen(QPen(palette().color(QPalette::WindowText), space / 8));
    for (int line = 0; line < lines; ++line) lineAt(0, bottom - line * space, right, bottom - line * space);
    for (const double x : {0.5, right}) lineAt(x, bottom, x, bottom - (lines - 1) * space);

    const QColor colour = palette().color(QPalette::Highlight);
    for (const Note& note : notes) {
        const QPointF head(note.place * width(), bottom - note.step * space / 2);
        painter.setPen(QPen(colour, space / 5));
        lineAt(head.x() + space * 0.6, head.y(), head.x() + space * 0.6, head.y() - 3 * space);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.save();
        painter.translate(head);
        painter.rotate(-20);
        painter.drawEllipse(QPointF(0, 0), space * 0.68, space * 0.46);
        painter.restore();
    }
}

}  // namespace tul::desktop
