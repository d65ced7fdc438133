#include "help/FittedText.h"

#include <QFontMetrics>
#include <QLabel>

void FittedText::set(QLabel* label, const QString& text) {
    const QString shown =
        QFontMetrics(label->font()).elidedText(text, Qt::ElideRight, label->contentsRect().width());
    label->setText(shown);
    label->setToolTip(shown == text ? QString() : text);
}
