#pragma once
// What the two halves of the design window share when they build their controls.
#include "help/HelpLabels.h"
#include "util/Fonts.h"
#include "util/Guard.h"

#include <QColor>
#include <QLabel>
#include <QRect>
#include <QWidget>

namespace ConstructParts {

inline Guard::Where controlEvent(const char* control, const char* event) {
    return Guard::Where::controlEvent("winConstruct", control, event);
}
inline Guard::Where windowMethod(const char* method) {
    return Guard::Where::windowMethod("winConstruct", method);
}

template <class T, class... Args>
T* make(QWidget* parent, const char* name, const QRect& place, Args&&... args) {
    auto* control = new T(std::forward<Args>(args)..., parent);
    control->setObjectName(name);
    control->setGeometry(place);
    return control;
}

inline void setTextColour(QWidget* w, const QColor& colour) {
    QPalette p = w->palette();
    p.setColor(QPalette::WindowText, colour);
    w->setPalette(p);
}

inline QColor textColour(const QWidget* w) {
    return w->palette().color(QPalette::WindowText);
}

// A help label that changes colour under the pointer.
inline labZor* helpLabel(QWidget* parent, const char* name, const QString& text, int id, QColor rest,
                         const QRect& place, double size = 13) {
    auto* label = make<labZor>(parent, name, place);
    label->setText(text);
    label->setID(id);
    label->setExitColor(rest);
    label->setFont(Fonts::sized("System", size));
    return label;
}

inline labInfo* infoLabel(QWidget* parent, const char* name, int id, const QRect& place) {
    auto* label = make<labInfo>(parent, name, place);
    label->setID(id);
    label->setFont(Fonts::sized("System", 15));
    return label;
}

inline QLabel* plainLabel(QWidget* parent, const char* name, const QString& text, const QRect& place,
                          double size, bool bold = false) {
    auto* label = make<QLabel>(parent, name, place);
    label->setText(text);
    QFont font = Fonts::sized("System", size);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

} // namespace ConstructParts
