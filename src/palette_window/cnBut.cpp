#include "palette_window/cnBut.h"

#include "palette_window/winMain.h"
#include "util/MenuBars.h"
#include "util/StringUtils.h"

#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>

namespace {
// The one local file of a drag, or nothing.
QString droppedFile(const QMimeData* data) {
    const QList<QUrl> urls = data ? data->urls() : QList<QUrl>();
    return urls.size() == 1 && urls[0].isLocalFile() ? urls[0].toLocalFile() : QString();
}
} // namespace

cnBut::cnBut(winMain* owner, int buttonIndex, QWidget* parent) : QWidget(parent), window(owner), index(buttonIndex) {
    setObjectName("cnBut" + StringUtils::twoDigits(buttonIndex));
    setGeometry((buttonIndex % 10) * winMain::kCell, (buttonIndex / 10) * winMain::kCell, winMain::kCell,
                winMain::kCell);
    setAcceptDrops(true);
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
    if (pressed) g.fillRect(rect(), QColor(0, 0, 0, 70));
}

void cnBut::enterEvent(QEnterEvent*) { window->cnBut_MouseEnter(index); }
void cnBut::leaveEvent(QEvent*) { window->cnBut_MouseExit(index); }

void cnBut::mousePressEvent(QMouseEvent* event) {
    // The Mac turns a Control-click into a right-button press; elsewhere it comes as it is.
    const bool menu = event->button() == Qt::RightButton ||
                      (event->button() == Qt::LeftButton && event->modifiers() & MenuBars::controlKey());
    if (menu) {
        window->cnBut_Menu(index, event->globalPosition().toPoint());
        return;
    }
    if (event->button() != Qt::LeftButton) return;
    pressed = true;
    update();
    window->cnBut_MouseDown(index);
}

void cnBut::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !pressed) return;
    pressed = false;
    update();
    window->cnBut_MouseUp(index, event->modifiers());
}

void cnBut::dragEnterEvent(QDragEnterEvent* event) {
    if (!droppedFile(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void cnBut::dropEvent(QDropEvent* event) {
    const QString file = droppedFile(event->mimeData());
    if (file.isEmpty()) return;
    event->acceptProposedAction();
    window->cnBut_TakePicture(index, file);
}
