#pragma once
#include <QWidget>

class QLabel;
class UpDownArrows;

// A titled whole number with up and down arrows. The owner sets the limits and steps; the value
// stops at the limits and never wraps. ValueChanged comes only when a press moved the value.
class ccDataIntUpDown : public QWidget {
    Q_OBJECT
public:
    explicit ccDataIntUpDown(QWidget* parent = nullptr);

    void udChangeVal_UpPressed(bool shift);
    void udChangeVal_DownPressed(bool shift);
    void showValue(); // labValue follows theValue

    int theValue = 0;
    int jump = 1;
    int jumpShift = 1; // the step while Shift is held
    int maxValue = 0;
    int minValue = 0;

    QLabel* labTitle;
    QLabel* labValue;
    UpDownArrows* udChangeVal;

signals:
    void ValueChanged();

private:
    void step(int delta);
};
