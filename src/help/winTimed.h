#pragma once
#include "help/WindowFit.h"

#include <QColor>
#include <QDialog>
#include <QTimer>

class MessageCanvas;
class QPainter;
class QPlainTextEdit;
class QPushButton;

// A message that closes by itself. A disk fills in 128 steps while the time runs; a click on
// the disk starts the time again.
class winTimed : public QDialog {
    Q_OBJECT

public:
    explicit winTimed(QWidget* parent = nullptr);

    // One of the two shapes of the disk. Angles in radians, growing clockwise from 3 o'clock;
    // colours carry their opacity in alpha.
    struct Shape {
        double startAngle = 0.0;
        double arcAngle = 0.0;
        QSize size{35, 35};
        QColor fill = Qt::transparent;
        QColor border = Qt::transparent;
        double borderWidth = 0.0;
    };

    static constexpr double kFullCircle = 6.2832;
    static constexpr double kAlmostFull = 6.2732; // a hair short, so that the arc never wraps

    Shape theArc;
    double deltaCircle = 0.0;
    Shape theOvalBoundary;
    double howLongMillisecond = 0.0;
    bool edge = false;

    QPushButton* pbDone;
    QPlainTextEdit* taMessage;
    MessageCanvas* cnvDisk;
    QTimer* tiAutoClose;
    QTimer* tiChangeCanvas;

    void Event_Opening();
    void taMessage_Opening();
    void pbDone_Pressed();
    void tiAutoClose_Action();
    void tiChangeCanvas_Action();
    void cnvDisk_Paint(QPainter& g);
    bool cnvDisk_MouseDown();
    void cnvDisk_MouseUp();

    void AdjustWindowSize();
    WindowFit::TextHeight textHeight; // empty: measure taMessage's text

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    WindowFit::Anchors anchors{{400, 250}};
};
