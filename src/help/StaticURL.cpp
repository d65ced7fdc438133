#include "help/StaticURL.h"

#include "util/Guard.h"

#include <QDesktopServices>
#include <QMouseEvent>

std::function<void(const QUrl&)> StaticURL::opener;

StaticURL::StaticURL(QWidget* parent) : QLabel(parent) {
    setCursor(Qt::PointingHandCursor);
    setTextFormat(Qt::PlainText);
}

void StaticURL::Opening() {
    setTextColour(kLink);
    QFont underlined = font();
    underlined.setUnderline(true);
    setFont(underlined);
    if (onOpening) onOpening();
    if (text().isEmpty()) setText(url);
    if (url.isEmpty()) hide();
}

QColor StaticURL::textColour() const {
    return palette().color(QPalette::WindowText);
}

void StaticURL::setTextColour(QRgb rgb) {
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, QColor::fromRgb(rgb));
    setPalette(colours);
}

QString StaticURL::handlerOwner() const {
    const QWidget* top = window();
    return top && top != this ? QString::fromLatin1(top->metaObject()->className())
                              : QStringLiteral("StaticURL");
}

void StaticURL::enterEvent(QEnterEvent* event) {
    QLabel::enterEvent(event);
    setTextColour(kHover);
}

void StaticURL::leaveEvent(QEvent* event) {
    QLabel::leaveEvent(event);
    setTextColour(kLink);
}

void StaticURL::mousePressEvent(QMouseEvent* event) {
    setTextColour(kPressed);
    // Claimed, so that the release comes back to this label.
    event->accept();
}

void StaticURL::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    Guard::run(Guard::Where::controlEvent(handlerOwner(), objectName(), QStringLiteral("MouseUp")), [&] {
        const QPoint at = event->position().toPoint();
        // A press dragged off the link and let go is the user changing their mind.
        if (at.x() > 0 && at.y() > 0 && at.x() < width() && at.y() < height()) {
            const QUrl address = QUrl::fromUserInput(url.isEmpty() ? text() : url);
            if (opener)
                opener(address);
            else
                QDesktopServices::openUrl(address);
        }
    });
    setTextColour(kLink);
}
