#include "help/winReportError.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>

winReportError::winReportError(const QString& report, bool show) : QDialog(nullptr, Qt::Window) {
    setWindowTitle(QStringLiteral("Oops! Error Message"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(false);
    resize(424, 200);
    setMinimumSize(200, 100);
    setMaximumSize(600, 600);

    labMessage = new QLabel(QStringLiteral("The error message"), this);
    labMessage->setObjectName(QStringLiteral("labMessage"));
    labMessage->setGeometry(20, 20, 384, 160);
    labMessage->setStyleSheet(QStringLiteral("color: #000000;"));
    labMessage->setWordWrap(true);
    labMessage->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    labMessage->setTextFormat(Qt::PlainText);
    // The user may want to copy the report into a mail.
    labMessage->setTextInteractionFlags(Qt::TextSelectableByMouse);
    anchors.toAllSides(labMessage);

    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        QRect frame(QPoint(), size());
        frame.moveCenter(screen->availableGeometry().center());
        move(frame.topLeft());
    }

    labMessage->setText(report);
    if (show) this->show();
}

void winReportError::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    anchors.apply(size());
}
