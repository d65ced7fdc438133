#pragma once
#include "help/WindowFit.h"

#include <QDialog>

class MessageCanvas;
class QLabel;
class QPainter;
class QPushButton;

// The OK or Cancel question. It has no close box: it ends only through its two buttons, which
// leave the answer in AppGlobals::fGlobalBoolean.
class winOKCancel : public QDialog {
    Q_OBJECT

public:
    explicit winOKCancel(QWidget* parent = nullptr);

    QPushButton* pbOK;
    QPushButton* pbCancel;
    MessageCanvas* cnCaution;
    QLabel* labMessage;

    void pbOK_Pressed();
    void pbCancel_Pressed();
    void cnCaution_Paint(QPainter& g);

    void AdjustWindowSize();
    WindowFit::TextHeight textHeight; // empty: measure labMessage's text

    void reject() override; // Escape answers as Cancel does

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    WindowFit::Anchors anchors{{400, 250}};
};
