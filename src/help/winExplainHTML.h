#pragma once
#include "help/WindowFit.h"

#include <QDialog>

class QPushButton;
class QTextBrowser;

// An explanation in HTML that a routine wants the user to read, such as where an export went.
class winExplainHTML : public QDialog {
    Q_OBJECT

public:
    explicit winExplainHTML(QWidget* parent = nullptr);

    QTextBrowser* HV_Explain;
    QPushButton* pbDone;

    // A width or height of 0 lets the window fit itself to the text.
    void PrepareAndShowWindow(const QString& html, const QString& title, int width, int height);
    void AdjustWindowSize(const QString& html, int width, int height);
    void PositionWindow();
    void pbDone_Pressed();
    void growToShowWhole(); // taller, until the text needs no scrolling

    WindowFit::TextHeight textHeight; // empty: measure the text in Helvetica 14

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    WindowFit::Anchors anchors{{350, 250}};
};
