#include "util/Fonts.h"

#include <QGuiApplication>

QFont Fonts::sized(const QString& family, double size) {
    QFont font = QGuiApplication::font();
    if (family.compare("System", Qt::CaseInsensitive) != 0) font.setFamily(family);
    if (size > 0) font.setPixelSize(qRound(size));
    return font;
}
