#include "design/ccDataStrUpDown.h"

#include "design/UpDownArrows.h"
#include "util/Fonts.h"
#include "util/Guard.h"

#include <QLabel>
#include <algorithm>

namespace {
Guard::Where arrowEvent(const char* event) {
    return Guard::Where::controlEvent("ccDataStrUpDown", "udChangeVal", event);
}
} // namespace

ccDataStrUpDown::ccDataStrUpDown(QWidget* parent) : QWidget(parent) {
    resize(200, 40);
    labTitle = new QLabel(this);
    labTitle->setObjectName("labTitle");
    labTitle->setFont(Fonts::sized("System", 13));
    labTitle->setGeometry(0, 10, 125, 20);
    QPalette p = labTitle->palette();
    p.setColor(QPalette::WindowText, QColor(0x42, 0x42, 0x42));
    labTitle->setPalette(p);
    labValue = new QLabel(this);
    labValue->setObjectName("labValue");
    labValue->setFont(Fonts::sized("System", 15));
    labValue->setAlignment(Qt::AlignCenter);
    labValue->setGeometry(125, 10, 40, 20);
    setValueColour(QColor(0xA9, 0xA9, 0xA9));
    udChangeVal = new UpDownArrows(this);
    udChangeVal->move(172, 8);
    connect(udChangeVal, &UpDownArrows::upPressed, this, &ccDataStrUpDown::udChangeVal_UpPressed);
    connect(udChangeVal, &UpDownArrows::downPressed, this, &ccDataStrUpDown::udChangeVal_DownPressed);
}

void ccDataStrUpDown::setValueColour(const QColor& colour) {
    QPalette p = labValue->palette();
    p.setColor(QPalette::WindowText, colour);
    labValue->setPalette(p);
}

QColor ccDataStrUpDown::valueColour() const {
    return labValue->palette().color(QPalette::WindowText);
}

void ccDataStrUpDown::udChangeVal_UpPressed(bool shift) {
    Guard::run(arrowEvent("UpPressed"), [&] { step(-(shift ? jumpShift : jump)); });
}

void ccDataStrUpDown::udChangeVal_DownPressed(bool shift) {
    Guard::run(arrowEvent("DownPressed"), [&] { step(shift ? jumpShift : jump); });
}

void ccDataStrUpDown::step(int delta) {
    setValueColour(Qt::black);
    const int old = theValueIndex;
    theValueIndex =
        delta < 0 ? std::max(theValueIndex + delta, minIndex) : std::min(theValueIndex + delta, maxIndex);
    if (theValueIndex >= 0 && theValueIndex < aStrChoices.size()) theValue = aStrChoices[theValueIndex];
    labValue->setText(theValue);
    if (theValueIndex != old) emit ValueChanged();
}
