#pragma once
#include <QWidget>

// A pair of small arrows, one above the other, as the Mac's stepper. A press on the upper half
// is an up press, on the lower half a down press; Shift is read from the press itself.
class UpDownArrows : public QWidget {
    Q_OBJECT
public:
    explicit UpDownArrows(QWidget* parent = nullptr);
    QSize sizeHint() const override { return {15, 24}; }

signals:
    void upPressed(bool shift);
    void downPressed(bool shift);

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* event) override;
};
