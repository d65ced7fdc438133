#include "util/WinScrn.h"

#include "util/Guard.h"

#include <QGuiApplication>
#include <QScreen>

bool WinScrn::IsWithinMainScreenTLBR(int top, int left, int height, int width) {
    return Guard::run(Guard::Where::module("WinScrn", "IsWithinMainScreenTLBR"), [&] {
        const QScreen* screen = QGuiApplication::primaryScreen();
        if (!screen) return false;
        const QRect area = screen->availableGeometry();
        // Edges as coordinates: x + width is the right edge, not QRect::right() (one less).
        return left >= area.x() && top >= area.y() &&
               qint64(top) + height <= qint64(area.y()) + area.height() &&
               qint64(left) + width <= qint64(area.x()) + area.width();
    });
}
