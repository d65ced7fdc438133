#include "palette_window/cnBut.h"

#include "palette_window/winMain.h"
#include "util/StringUtils.h"

#include <QMouseEvent>
#include <QPainter>

cnBut::cnBut(winMain* owner, int buttonIndex, QWidget* parent) : QWidget(parent), window(owner), index(buttonIndex) {
    setObjectName("cnBut" + StringUtils::twoDigits(buttonIndex));
    setGeometry((buttonIndex % 10) * winMain::kCell, (buttonIndex / 10) * winMain::kCell, winMain::kCell,
                winMain::kCell);
}

void cnBut::setBackdrop(const QPixmap& backdrop) {
    picture = backdrop;
    update();
}

void cnBut::paintEvent(QPaintEvent*) {
    QPainter g(this);
    // The backdrop stands at the origin at its own size, neither scaled nor centred.
    if (!picture.isNull()) g.drawPixmap(0, 0, picture);
    window->cnBut_Paint(*this, g);
}

void cnBut::enterEvent(QEnterEvent*) { window->cnBut_MouseEnter(index); }
void cnBut::leaveEvent(QEvent*) { window->cnBut_MouseExit(index); }

void cnBut::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    window->cnBut_MouseDown(index);
}

void cnBut::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    window->cnBut_MouseUp(index, event->modifiers());
}
