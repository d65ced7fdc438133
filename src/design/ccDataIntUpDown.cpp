#include "design/ccDataIntUpDown.h"

#include "design/UpDownArrows.h"
#include "util/Fonts.h"
#include "util/Guard.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <algorithm>

namespace {
Guard::Where arrowEvent(const char* event) {
    return Guard::Where::controlEvent("ccDataIntUpDown", "udChangeVal", event);
}
Guard::Where fieldEvent(const char* event) {
    return Guard::Where::controlEvent("ccDataIntUpDown", "labValue", event);
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
    labValue = new QLineEdit(this);
    labValue->setObjectName("labValue");
    labValue->setFont(Fonts::sized("System", 13));
    labValue->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    labValue->setGeometry(80, 8, 40, 24);
    labValue->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,2}"), labValue));
    labValue->installEventFilter(this);
    connect(labValue, &QLineEdit::textEdited, this, &ccDataIntUpDown::labValue_TextEdited);
    connect(labValue, &QLineEdit::editingFinished, this, &ccDataIntUpDown::labValue_EditingFinished);
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
    setValue(delta > 0 ? std::min(theValue + delta, maxValue) : std::max(theValue + delta, minValue));
    showValue();
}

void ccDataIntUpDown::setValue(int value) {
    const int old = theValue;
    theValue = value;
    if (theValue != old) emit ValueChanged();
}

void ccDataIntUpDown::labValue_TextEdited() {
    Guard::run(fieldEvent("TextEdited"), [&] {
        bool number = false;
        const int typed = labValue->text().toInt(&number);
        if (number && typed >= minValue && typed <= maxValue) setValue(typed);
    });
}

void ccDataIntUpDown::labValue_EditingFinished() {
    Guard::run(fieldEvent("EditingFinished"), [&] {
        bool number = false;
        const int typed = labValue->text().toInt(&number);
        if (number) setValue(std::clamp(typed, minValue, maxValue));
        showValue(); // an empty field shows the value again
    });
}

bool ccDataIntUpDown::eventFilter(QObject* watched, QEvent* event) {
    if (watched == labValue && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool shift = key->modifiers() & Qt::ShiftModifier;
        if (key->key() == Qt::Key_Up) udChangeVal_UpPressed(shift);
        if (key->key() == Qt::Key_Down) udChangeVal_DownPressed(shift);
        if (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down) return true;
    }
    return QWidget::eventFilter(watched, event);
}
