#include "help/winTimed.h"

#include "help/MessageCanvas.h"
#include "help/WindowFit.h"
#include "util/AppGlobals.h"
#include "util/Guard.h"

#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <cmath>
#include <numbers>

namespace {
const QColor kOrange(0xFF, 0x93, 0x00);

QColor withOpacity(QColor colour, double opacity) {
    colour.setAlphaF(float(opacity));
    return colour;
}

// Qt counts sixteenths of a degree, counter-clockwise.
int qtAngle(double radians) {
    return int(std::lround(-radians * 180.0 / std::numbers::pi * 16.0));
}
} // namespace

winTimed::winTimed(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setWindowTitle(QStringLiteral("Explanation"));
    setModal(true);
    resize(400, 250);
    setMinimumSize(200, 125);
    setMaximumSize(1000, 800);

    pbDone = WindowFit::pushButton(this, "pbDone", QStringLiteral("Done"), {311, 210, 69, 20});
    QFont buttonFont = pbDone->font();
    buttonFont.setPointSize(12);
    pbDone->setFont(buttonFont);
    pbDone->setDefault(true);

    taMessage = new QPlainTextEdit(this);
    taMessage->setObjectName(QStringLiteral("taMessage"));
    taMessage->setGeometry(90, 20, 285, 170);
    taMessage->setReadOnly(true);
    QFont messageFont = taMessage->font();
    messageFont.setPointSize(18);
    taMessage->setFont(messageFont);
    taMessage->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    taMessage->setStyleSheet(QStringLiteral("QPlainTextEdit { color: #000000; background: #FFFFFF; }"));
    taMessage->setToolTip(QStringLiteral("Provided Explanation. This area will scroll."));

    cnvDisk = new MessageCanvas(this);
    cnvDisk->setObjectName(QStringLiteral("cnvDisk"));
    cnvDisk->setGeometry(20, 20, 50, 47);
    cnvDisk->setToolTip(QStringLiteral("You can restart the close window timer by clicking here."));
    cnvDisk->onPaint = [this](QPainter& g) { cnvDisk_Paint(g); };
    cnvDisk->onMouseDown = [this] { return cnvDisk_MouseDown(); };
    cnvDisk->onMouseUp = [this] { cnvDisk_MouseUp(); };

    tiAutoClose = new QTimer(this);
    tiAutoClose->setObjectName(QStringLiteral("tiAutoClose"));
    tiAutoClose->setSingleShot(true);
    tiAutoClose->setInterval(10000);
    tiChangeCanvas = new QTimer(this);
    tiChangeCanvas->setObjectName(QStringLiteral("tiChangeCanvas"));
    tiChangeCanvas->setInterval(1000);
    connect(tiAutoClose, &QTimer::timeout, this, [this] { tiAutoClose_Action(); });
    connect(tiChangeCanvas, &QTimer::timeout, this, [this] { tiChangeCanvas_Action(); });

    anchors.toAllSides(taMessage);
    anchors.toLowerRight(pbDone);
    connect(pbDone, &QPushButton::clicked, this, [this] { pbDone_Pressed(); });

    taMessage_Opening();
    Event_Opening();
}

void winTimed::Event_Opening() {
    Guard::run(Guard::Where::windowEvent("winTimed", "Opening"), [&] {
        howLongMillisecond = double(AppGlobals::iGlobalInteger) * 1000.0;
        tiAutoClose->start(int(howLongMillisecond));
        edge = AppGlobals::fGlobalBoolean;
        // 128 steps whatever the time.
        tiChangeCanvas->start(int(tiAutoClose->interval() / 128.0));
        deltaCircle = 0.0490875;

        theArc = Shape{};
        theArc.startAngle = -1.5708; // twelve o'clock
        theArc.arcAngle = deltaCircle;
        theOvalBoundary = Shape{};

        if (edge) {
            theArc.border = kOrange;
            theArc.borderWidth = 4;
            theOvalBoundary.border = withOpacity(kOrange, 0.25);
            theOvalBoundary.borderWidth = 3;
        } else {
            theArc.fill = kOrange;
            theOvalBoundary.border = withOpacity(kOrange, 0.50);
            theOvalBoundary.borderWidth = 2;
        }
    });
}

void winTimed::taMessage_Opening() {
    Guard::run(Guard::Where::controlEvent("winTimed", "taMessage", "Opening").directForm(),
               [&] { taMessage->setPlainText(AppGlobals::sGlobalMessage); });
}

void winTimed::pbDone_Pressed() {
    Guard::run(Guard::Where::controlEvent("winTimed", "pbDone", "Pressed").directForm(), [&] {
        AppGlobals::fGlobalBoolean = true;
        done(QDialog::Accepted);
    });
}

void winTimed::tiAutoClose_Action() {
    Guard::run(Guard::Where::controlEvent("winTimed", "tiAutoClose", "Action"), [&] {
        tiChangeCanvas->stop();
        done(QDialog::Rejected);
    });
}

void winTimed::tiChangeCanvas_Action() {
    Guard::run(Guard::Where::controlEvent("winTimed", "tiChangeCanvas", "Action"), [&] {
        theArc.arcAngle += deltaCircle;
        if (kFullCircle - theArc.arcAngle < 0.1) theArc.arcAngle = kAlmostFull;
        cnvDisk->update();
    });
}

void winTimed::cnvDisk_Paint(QPainter& g) {
    Guard::run(Guard::Where::controlEvent("winTimed", "cnvDisk", "Paint"), [&] {
        g.setRenderHint(QPainter::Antialiasing);
        // The disk sits in the middle of its canvas, inset so that the widest border stays inside.
        const QSizeF canvas = cnvDisk->size();
        const QSizeF disk = QSizeF(theArc.size).boundedTo(canvas - QSizeF(4, 4));
        const QRectF box(QPointF((canvas.width() - disk.width()) / 2, (canvas.height() - disk.height()) / 2),
                         disk);
        const int start = qtAngle(theArc.startAngle);
        const int span = qtAngle(theArc.arcAngle);
        if (edge) {
            g.setPen(QPen(theArc.border, theArc.borderWidth, Qt::SolidLine, Qt::FlatCap));
            g.setBrush(Qt::NoBrush);
            g.drawArc(box, start, span);
        } else {
            g.setPen(Qt::NoPen);
            g.setBrush(theArc.fill);
            g.drawPie(box, start, span);
        }
        g.setPen(QPen(theOvalBoundary.border, theOvalBoundary.borderWidth));
        g.setBrush(Qt::NoBrush);
        g.drawEllipse(box);
    });
}

bool winTimed::cnvDisk_MouseDown() {
    return Guard::run(Guard::Where::controlEvent("winTimed", "cnvDisk", "MouseDown"), [] { return true; });
}

void winTimed::cnvDisk_MouseUp() {
    Guard::run(Guard::Where::controlEvent("winTimed", "cnvDisk", "MouseUp"), [&] {
        tiAutoClose->start(int(howLongMillisecond));
        theArc.arcAngle = deltaCircle;
        cnvDisk->update();
    });
}

void winTimed::AdjustWindowSize() {
    Guard::run(Guard::Where::windowMethod("winTimed", "AdjustWindowSize"), [&] {
        WindowFit::AdjustWindowSize(
            *this, textHeight ? textHeight : WindowFit::helveticaHeight(taMessage->toPlainText(), 18));
    });
}

void winTimed::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    anchors.apply(size());
}
