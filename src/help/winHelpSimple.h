#pragma once
#include "help/WindowFit.h"

#include <QDialog>

class QPlainTextEdit;
class QPushButton;

// A help record in plain text, or a text the caller provides. Built for one call, shown modally.
class winHelpSimple : public QDialog {
    Q_OBJECT

public:
    explicit winHelpSimple(QWidget* parent = nullptr);

    QPlainTextEdit* taHelp;
    QPushButton* pbDone;

    QString text;
    int helpID = -1; // -1: a text from no record

    void PrepareAndShowWindow(const QString& text, const QString& title, int width, int height, int id);
    // Both sizes above 0 are taken as they stand; otherwise the window fits itself to the text.
    void AdjustWindowSize(int width, int height);
    void pbDone_Pressed(Qt::KeyboardModifiers modifiers);

    WindowFit::TextHeight textHeight; // empty: measure the text in the system font, 14

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    WindowFit::Anchors anchors{{414, 446}};
};
