#pragma once
#include "help/WindowFit.h"

#include <QDialog>

class QTextEdit;

// The report of an unexpected failure. It does not block: the program goes on while it stands,
// and several may stand at once.
class winReportError : public QDialog {
    Q_OBJECT

public:
    // Shows itself at once unless `show` is false.
    explicit winReportError(const QString& report, bool show = true);

    // The report, read-only. It wraps anywhere a line is too long, a long path too, and the window
    // takes the size that shows it whole, up to its maximum; beyond that it scrolls.
    QTextEdit* labMessage;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    WindowFit::Anchors anchors{{424, 200}};
};
