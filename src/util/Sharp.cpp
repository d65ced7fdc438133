#include "util/Sharp.h"

#include <QGuiApplication>
#include <QImage>

namespace {
std::optional<qreal> forced;
}

qreal Sharp::ratio() {
    if (forced) return *forced;
    return qGuiApp ? qGuiApp->devicePixelRatio() : 1.0;
}

void Sharp::setRatioForTesting(std::optional<qreal> value) {
    forced = value;
}

QPixmap Sharp::pixmap(const QString& source, QSize points) {
    const int scale = ratio() > 1 ? 2 : 1;
    QImage image(source);
    if (image.isNull()) return {};
    if (image.size() != points * scale)
        image = image.scaled(points * scale, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    image.setDevicePixelRatio(scale);
    return QPixmap::fromImage(image);
}
