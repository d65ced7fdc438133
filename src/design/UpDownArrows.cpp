#include "design/UpDownArrows.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

UpDownArrows::UpDownArrows(QWidget* parent) : QWidget(parent) {
    setObjectName("udChangeVal");
    resize(sizeHint());
}

void UpDownArrows::paintEvent(QPaintEvent*) {
    QPainter g(this);
    g.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    g.setPen(QColor(0xB5, 0xB5, 0xB5));
    g.setBrush(isEnabled() ? QColor(0xFF, 0xFF, 0xFF) : QColor(0xF4, 0xF4, 0xF4));
    g.drawRoundedRect(frame, 4, 4);
    g.drawLine(QPointF(frame.left() + 2, height() / 2.0), QPointF(frame.right() - 2, height() / 2.0));
    g.setPen(Qt::NoPen);
    g.setBrush(isEnabled() ? QColor(0x3A, 0x3A, 0x3A) : QColor(0xC4, 0xC4, 0xC4));
    const qreal cx = width() / 2.0, quarter = height() / 4.0;
    for (int sign : {-1, 1}) {
        const qreal cy = height() / 2.0 + sign * quarter;
        QPainterPath arrow;
        arrow.moveTo(cx - 3.5, cy - sign * 2);
        arrow.lineTo(cx + 3.5, cy - sign * 2);
        arrow.lineTo(cx, cy + sign * 2);
        arrow.closeSubpath();
        g.drawPath(arrow);
    }
}

void UpDownArrows::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const bool shift = event->modifiers() & Qt::ShiftModifier;
    if (event->position().y() < height() / 2.0)
        emit upPressed(shift);
    else
        emit downPressed(shift);
}
