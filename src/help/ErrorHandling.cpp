#include "help/ErrorHandling.h"

#include "help/winReportError.h"
#include "util/Dialogs.h"
#include "util/Guard.h"
#include "util/ZorError.h"

#include <QStringList>

bool ErrorHandling::HandleException(const std::exception& error, const QString& context) {
    try {
        const QString type = RuntimeExceptionExtension::Type(error);
        const QString report =
            QStringList{type + " in " + context, "TYPE: " + type,
                        "ERROR CODE: " + QString::number(RuntimeExceptionExtension::errorNumber(error)),
                        "ERROR MESSAGE: " + QString::fromUtf8(error.what())}
                .join('\n');
        const QString title = QStringLiteral("Oops! Error Message");
        if (Dialogs::Script* script = Dialogs::installedScript()) {
            // Under a script the report is recorded, not shown.
            winReportError window(report, false);
            window.setAttribute(Qt::WA_DeleteOnClose, false); // it lives on this stack
            script->answer({Dialogs::Kind::Window, title, report, {}, &window});
            return true;
        }
        new winReportError(report); // deletes itself when the user closes it
    } catch (...) {
        Dialogs::message(QStringLiteral("HandleException Error"));
    }
    return true;
}

void ErrorHandling::install() {
    Guard::setReporter(&ErrorHandling::HandleException);
}
