#pragma once
#include "help/WindowFit.h"

#include <QDialog>

class QPlainTextEdit;
class QPushButton;

// Shows a text that may be long, in a scrolling area.
class winShowText : public QDialog {
    Q_OBJECT

public:
    explicit winShowText(QWidget* parent = nullptr);

    QPlainTextEdit* taShow;
    QPushButton* pbOK;

    void Event_Opening();
    void taShow_Opening();
    void pbOK_Pressed();

    void AdjustWindowSize();
    WindowFit::TextHeight textHeight; // empty: measure taShow's text

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    WindowFit::Anchors anchors{{400, 250}};
};
