#include "util/Guard.h"

#include "util/Dialogs.h"
#include "util/ZorError.h"

#include <QDebug>

namespace {
Guard::Reporter reporter;
}

using Guard::Kind;
using Guard::Where;

Where Where::controlEvent(QString window, QString control, QString event) {
    return {Kind::ControlEvent, std::move(window), std::move(control), std::move(event), false};
}
Where Where::windowEvent(QString window, QString event) {
    return {Kind::WindowEvent, std::move(window), {}, std::move(event), false};
}
Where Where::windowMethod(QString window, QString method) {
    return {Kind::WindowMethod, std::move(window), {}, std::move(method), false};
}
Where Where::module(QString module, QString method) {
    return {Kind::ModuleMethod, std::move(module), {}, std::move(method), false};
}
Where Where::appEvent(QString event) { return {Kind::AppEvent, QStringLiteral("App"), {}, std::move(event), false}; }
Where Where::directForm() const {
    Where copy = *this;
    copy.direct = true;
    return copy;
}

QString Where::dottedName() const {
    if (kind == Kind::ControlEvent) return owner + '.' + control + '.' + name;
    return owner + '.' + name;
}

QString Where::reportLines() const {
    QStringList lines{(direct ? QStringLiteral("Oops! ") : QString()) + dottedName()};
    switch (kind) {
    case Kind::ControlEvent:
        lines << "WINDOW: " + owner << "CONTROL: " + control << "EVENT: " + name;
        break;
    case Kind::WindowEvent:
        lines << "WINDOW: " + owner << "EVENT NAME: " + name;
        break;
    case Kind::WindowMethod:
        lines << "WINDOW: " + owner << "METHOD: " + name;
        break;
    case Kind::ModuleMethod:
        lines << "MODULE: " + owner << "METHOD: " + name;
        break;
    case Kind::AppEvent:
        lines << "EVENT HANDLER: " + owner << "EVENT NAME: " + name;
        break;
    }
    return lines.join('\n');
}

void Guard::setReporter(Reporter r) { reporter = std::move(r); }

bool Guard::report(const Where& where, const std::exception& error) {
    if (where.direct) {
        Dialogs::message(where.reportLines() + "\nTYPE: " + RuntimeExceptionExtension::Type(error));
        const bool isEvent = where.kind == Kind::ControlEvent || where.kind == Kind::WindowEvent;
        if (where.kind == Kind::AppEvent)
            qDebug().noquote() << "Exception: " + where.owner + ": " + where.name;
        else
            qDebug().noquote() << (isEvent ? "Exception: " : "Exception - ") + where.dottedName();
        return true;
    }
    const bool handled = reporter ? reporter(error, where.reportLines())
                                  : (Dialogs::message(where.reportLines() + "\nERROR MESSAGE: " +
                                                      QString::fromUtf8(error.what())),
                                     true);
    qDebug().noquote() << "Exception - " + where.dottedName();
    return handled;
}
