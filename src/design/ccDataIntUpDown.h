#pragma once
#include <QWidget>

class QLabel;
class QLineEdit;
class UpDownArrows;

// A titled whole number with up and down arrows. The owner sets the limits and steps; the value
// stops at the limits and never wraps. The number can be typed too: a number within the limits
// is taken as it is typed, and one beyond them is held to the nearer limit when the field is left
// or Return is pressed. ValueChanged comes only when the value moved.
class ccDataIntUpDown : public QWidget {
    Q_OBJECT
public:
    explicit ccDataIntUpDown(QWidget* parent = nullptr);

    void udChangeVal_UpPressed(bool shift);
    void udChangeVal_DownPressed(bool shift);
    void labValue_TextEdited();
    void labValue_EditingFinished();
    void showValue(); // labValue follows theValue

    int theValue = 0;
    int jump = 1;
    int jumpShift = 1; // the step while Shift is held
    int maxValue = 0;
    int minValue = 0;

    QLabel* labTitle;
    QLineEdit* labValue; // shows the value and takes a typed one
    UpDownArrows* udChangeVal;

signals:
    void ValueChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override; // the arrow keys step as the arrows do

private:
    void step(int delta);
    void setValue(int value);
};
