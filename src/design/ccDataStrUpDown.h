#pragma once
#include <QStringList>
#include <QWidget>

class QLabel;
class UpDownArrows;

// A titled choice from a list of strings with up and down arrows. The list runs downward: the up
// arrow goes towards index 0. It stops at the ends and never wraps; ValueChanged comes only when
// a press moved the index.
class ccDataStrUpDown : public QWidget {
    Q_OBJECT
public:
    explicit ccDataStrUpDown(QWidget* parent = nullptr);

    void udChangeVal_UpPressed(bool shift);
    void udChangeVal_DownPressed(bool shift);
    void setValueColour(const QColor& colour);
    QColor valueColour() const;

    QString theValue;
    int jump = 1;
    int jumpShift = 1; // the step while Shift is held
    int maxIndex = 0;
    int minIndex = 0;
    QStringList aStrChoices;
    int theValueIndex = 0;

    QLabel* labTitle;
    QLabel* labValue;
    UpDownArrows* udChangeVal;

signals:
    void ValueChanged();

private:
    void step(int delta);
};
