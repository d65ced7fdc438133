#include "help/HelpLabels.h"

#include "help/Help.h"
#include "util/Guard.h"

#include <QMouseEvent>

namespace {
// Failures are reported under the window and control names that the labels were given.
Guard::Where where(const QWidget& label, const QString& event) {
    const QWidget* window = label.window();
    QString windowName = window ? window->objectName() : QString();
    if (windowName.isEmpty() && window) windowName = QString::fromLatin1(window->metaObject()->className());
    const QString control = label.objectName().isEmpty()
                                ? QString::fromLatin1(label.metaObject()->className())
                                : label.objectName();
    return Guard::Where::controlEvent(windowName, control, event);
}
} // namespace

labInfo::labInfo(QWidget* parent) : QLabel(QStringLiteral("ⓘ"), parent) {}

void labInfo::MouseUp(Qt::KeyboardModifiers) {
    Guard::run(where(*this, QStringLiteral("MouseUp")), [&] { Help::ShowHelp(helpID); });
}

void labInfo::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

void labInfo::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() == Qt::LeftButton) MouseUp(event->modifiers());
}

labZor::labZor(QWidget* parent) : QLabel(parent) {
    setTextColour(exit);
}

void labZor::setExitColor(const QColor& colour) {
    exit = colour;
    setTextColour(colour);
}

void labZor::setTextColour(const QColor& colour) {
    QPalette p = palette();
    p.setColor(foregroundRole(), colour);
    setPalette(p);
}

QColor labZor::textColour() const {
    return palette().color(foregroundRole());
}

bool labZor::opensHelp(Qt::KeyboardModifiers modifiers) const {
    // Option is Qt's Alt modifier on the Mac.
    return !shiftRule || (modifiers & (Qt::AltModifier | Qt::ShiftModifier));
}

void labZor::MouseEnter() {
    Guard::run(where(*this, QStringLiteral("MouseEnter")), [&] {
        setTextColour(enter);
        if (bold) {
            QFont f = font();
            f.setBold(true);
            setFont(f);
        }
        MouseEnterInstance();
    });
}

void labZor::MouseExit() {
    Guard::run(where(*this, QStringLiteral("MouseExit")), [&] {
        setTextColour(exit);
        // Only undo our own bold: a label designed bold stays bold.
        if (bold) {
            QFont f = font();
            f.setBold(false);
            setFont(f);
        }
        MouseExitInstance();
    });
}

void labZor::MouseUp(Qt::KeyboardModifiers modifiers) {
    Guard::run(where(*this, QStringLiteral("MouseUp")), [&] {
        if (opensHelp(modifiers)) Help::ShowHelp(helpID);
    });
}

void labZor::enterEvent(QEnterEvent* event) {
    QLabel::enterEvent(event);
    MouseEnter();
}

void labZor::leaveEvent(QEvent* event) {
    QLabel::leaveEvent(event);
    MouseExit();
}

void labZor::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

void labZor::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() == Qt::LeftButton) MouseUp(event->modifiers());
}

labZorVisible::labZorVisible(QWidget* parent) : labZor(parent) {}

void labZorVisible::MouseEnterInstance() {
    statusVisible = !isHidden();
    statusTextEmpty = text().isEmpty();
    if (statusTextEmpty) setText(invisibleDefaultText);
    if (!statusVisible) show();
    labZor::MouseEnterInstance();
}

void labZorVisible::MouseExitInstance() {
    if (!statusVisible) hide();
    if (statusTextEmpty) clear();
    labZor::MouseExitInstance();
}
