#pragma once
#include "help/WindowFit.h"

#include <QDialog>

class QPushButton;
class QTextBrowser;

// A help record written in HTML. Built for one call and shown modally.
class winHelp : public QDialog {
    Q_OBJECT

public:
    explicit winHelp(QWidget* parent = nullptr);

    QTextBrowser* HV_Help;
    QPushButton* pbDone;

    QString html;    // as given
    QString rawText; // its text alone, for measuring
    int helpID = -1;

    void PrepareAndShowWindow(const QString& html, const QString& title, int width, int height, int id);
    QString RawTextFromHTML(const QString& html);
    // Both sizes above 0 are taken as they stand; otherwise the window fits itself to the text.
    void AdjustWindowSize(const QString& text, int width, int height);
    void pbDone_Pressed(Qt::KeyboardModifiers modifiers);

    WindowFit::TextHeight textHeight; // empty: measure the text in Helvetica 14

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    WindowFit::Anchors anchors{{414, 446}};
};
