#include "help/winReportError.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTextDocument>
#include <QTextEdit>
#include <algorithm>
#include <cmath>

namespace {
constexpr int kMargin = 20; // round the report
constexpr int kWidest = 600, kHighest = 600;
} // namespace

winReportError::winReportError(const QString& report, bool show) : QDialog(nullptr, Qt::Window) {
    setWindowTitle(QStringLiteral("Oops! Error Message"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(false);
    resize(424, 200);
    setMinimumSize(200, 100);
    setMaximumSize(kWidest, kHighest);

    labMessage = new QTextEdit(this);
    labMessage->setObjectName(QStringLiteral("labMessage"));
    labMessage->setGeometry(kMargin, kMargin, 384, 160);
    labMessage->setReadOnly(true); // the user may still select it, to copy the report into a mail
    labMessage->setFrameShape(QFrame::NoFrame);
    labMessage->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    labMessage->setStyleSheet(QStringLiteral("QTextEdit { color: #000000; background: transparent; }"));
    labMessage->setPlainText(report);
    anchors.toAllSides(labMessage);

    // As wide as the longest line needs, then as high as the wrapped report needs.
    QTextDocument* text = labMessage->document();
    text->setTextWidth(-1); // unwrapped, to find the longest line
    const int width = std::clamp(int(std::ceil(text->idealWidth())) + 2 * kMargin, 424, kWidest);
    text->setTextWidth(width - 2 * kMargin);
    const int height = std::clamp(int(std::ceil(text->size().height())) + 2 * kMargin, 200, kHighest);
    resize(width, height);

    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        QRect frame(QPoint(), size());
        frame.moveCenter(screen->availableGeometry().center());
        move(frame.topLeft());
    }
    if (show) this->show();
}

void winReportError::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    anchors.apply(size());
}
