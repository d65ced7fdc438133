#include "design/ccDataIntUpDown.h"

#include "design/UpDownArrows.h"
#include "util/Fonts.h"
#include "util/Guard.h"

#include <QLabel>
#include <algorithm>

namespace {
Guard::Where arrowEvent(const char* event) {
    return Guard::Where::controlEvent("ccDataIntUpDown", "udChangeVal", event);
}

void colour(QLabel* label, const QColor& c) {
    QPalette p = label->palette();
    p.setColor(QPalette::WindowText, c);
    label->setPalette(p);
}
} // namespace

ccDataIntUpDown::ccDataIntUpDown(QWidget* parent) : QWidget(parent) {
    resize(155, 40);
    labTitle = new QLabel(this);
    labTitle->setObjectName("labTitle");
    labTitle->setFont(Fonts::sized("System", 13));
    labTitle->setGeometry(0, 10, 80, 20);
    colour(labTitle, QColor(0x42, 0x42, 0x42));
    labValue = new QLabel(this);
    labValue->setObjectName("labValue");
    labValue->setFont(Fonts::sized("System", 13));
    labValue->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    labValue->setGeometry(80, 10, 40, 20);
    colour(labValue, Qt::black);
    udChangeVal = new UpDownArrows(this);
    udChangeVal->move(128, 8);
    connect(udChangeVal, &UpDownArrows::upPressed, this, &ccDataIntUpDown::udChangeVal_UpPressed);
    connect(udChangeVal, &UpDownArrows::downPressed, this, &ccDataIntUpDown::udChangeVal_DownPressed);
}

void ccDataIntUpDown::showValue() {
    labValue->setText(QString::number(theValue));
}

void ccDataIntUpDown::udChangeVal_UpPressed(bool shift) {
    Guard::run(arrowEvent("UpPressed"), [&] { step(shift ? jumpShift : jump); });
}

void ccDataIntUpDown::udChangeVal_DownPressed(bool shift) {
    Guard::run(arrowEvent("DownPressed"), [&] { step(-(shift ? jumpShift : jump)); });
}

void ccDataIntUpDown::step(int delta) {
    const int old = theValue;
    theValue = delta > 0 ? std::min(theValue + delta, maxValue) : std::max(theValue + delta, minValue);
    showValue();
    if (theValue != old) emit ValueChanged();
}
