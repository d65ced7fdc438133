#include "help/winOKCancel.h"

#include "help/MessageCanvas.h"
#include "help/WindowFit.h"
#include "util/AppGlobals.h"
#include "util/Guard.h"

#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <algorithm>

winOKCancel::winOKCancel(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setWindowTitle(QStringLiteral("OK or Cancel"));
    setModal(true);
    resize(400, 250);
    setMinimumSize(200, 125);
    setMaximumSize(800, 500);

    QFont buttonFont = font();
    buttonFont.setPointSize(12);

    pbOK = WindowFit::pushButton(this, "pbOK", QStringLiteral("OK"), {311, 210, 69, 20});
    pbOK->setFont(buttonFont);

    pbCancel = WindowFit::pushButton(this, "pbCancel", QStringLiteral("Cancel"), {230, 210, 69, 20});
    pbCancel->setFont(buttonFont);

    // Only the caller's choice may make a button the default, never the focus.
    pbOK->setAutoDefault(false);
    pbCancel->setAutoDefault(false);

    cnCaution = new MessageCanvas(this);
    cnCaution->setObjectName(QStringLiteral("cnCaution"));
    cnCaution->setGeometry(20, 20, 55, 49);
    cnCaution->onPaint = [this](QPainter& g) { cnCaution_Paint(g); };

    labMessage = new QLabel(QStringLiteral("Message"), this);
    labMessage->setObjectName(QStringLiteral("labMessage"));
    labMessage->setGeometry(90, 20, 285, 170);
    QFont messageFont = labMessage->font();
    messageFont.setBold(true);
    messageFont.setPointSize(13);
    labMessage->setFont(messageFont);
    labMessage->setStyleSheet(QStringLiteral("color: #000000;"));
    labMessage->setTextFormat(Qt::PlainText); // the message may carry a user's names
    labMessage->setWordWrap(true);
    labMessage->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    anchors.toAllSides(labMessage);
    anchors.toLowerRight(pbOK);
    anchors.toLowerRight(pbCancel);

    connect(pbOK, &QPushButton::clicked, this, [this] { pbOK_Pressed(); });
    connect(pbCancel, &QPushButton::clicked, this, [this] { pbCancel_Pressed(); });
}

void winOKCancel::pbOK_Pressed() {
    Guard::run(Guard::Where::controlEvent("winOKCancel", "pbOK", "Pressed"), [&] {
        AppGlobals::fGlobalBoolean = true;
        done(QDialog::Accepted);
    });
}

void winOKCancel::pbCancel_Pressed() {
    Guard::run(Guard::Where::controlEvent("winOKCancel", "pbCancel", "Pressed"), [&] {
        AppGlobals::fGlobalBoolean = false;
        done(QDialog::Rejected);
    });
}

void winOKCancel::reject() {
    pbCancel_Pressed();
}

void winOKCancel::cnCaution_Paint(QPainter& g) {
    Guard::run(Guard::Where::controlEvent("winOKCancel", "cnCaution", "Paint").directForm(), [&] {
        const int side = std::min(cnCaution->width(), cnCaution->height());
        const QIcon caution = style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this);
        g.drawPixmap(0, 0, caution.pixmap(side, side));
    });
}

void winOKCancel::AdjustWindowSize() {
    Guard::run(Guard::Where::windowMethod("winOKCancel", "AdjustWindowSize"), [&] {
        WindowFit::AdjustWindowSize(*this, textHeight ? textHeight
                                                      : WindowFit::helveticaHeight(labMessage->text(), 14));
    });
}

void winOKCancel::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    anchors.apply(size());
}
