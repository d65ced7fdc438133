#include "actions/KeyboardMaestroMacros.h"

#include "actions/Launchers.h"
#include "util/PlatformTools.h"

#include <QApplication>
#include <QCursor>
#include <QRegularExpression>

namespace {
using KeyboardMaestroMacros::Answer;
using KeyboardMaestroMacros::Outcome;

const QString kScript = QStringLiteral("MakeMacros.scpt");
// The first time, macOS asks the user whether the program may control Keyboard Maestro, and the
// script waits for the answer.
constexpr int kWaitMs = 180'000;

// AppleScript's and macOS's numbers for what osascript reports.
constexpr int kNotPermitted = -1743;   // the user refused the permission to control the application
constexpr int kNotRunning = -600;      // the application cannot be reached
constexpr int kNoSuchObject = -1728;   // "Can't get ...", an application among others
constexpr int kNoApplication = -10814; // no application has that identifier

// osascript ends a failure with "execution error: <what> (<number>)" on its standard error.
Answer failure(const PlatformTools::Result& result) {
    Answer answer;
    if (!result.started) {
        answer.reason = "osascript could not be started";
        return answer;
    }
    if (result.exitCode == -1 && result.err.isEmpty()) {
        answer.reason =
            "Keyboard Maestro did not answer within " + QString::number(kWaitMs / 60'000) + " minutes";
        return answer;
    }
    static const QRegularExpression numbered(
        QStringLiteral("^(?:.*?(?:execution|syntax) error: )?(.*?)\\s*\\((-?\\d+)\\)\\s*$"));
    const QString lastLine = result.err.section('\n', -1).trimmed();
    const QRegularExpressionMatch match = numbered.match(lastLine);
    answer.reason = match.hasMatch() ? match.captured(1) : lastLine;
    if (answer.reason.isEmpty())
        answer.reason = "osascript ended with the code " + QString::number(result.exitCode);
    const int number = match.hasMatch() ? match.captured(2).toInt() : 0;
    const bool absentApplication =
        number == kNotRunning || number == kNoApplication ||
        (number == kNoSuchObject && answer.reason.contains("application", Qt::CaseInsensitive));
    if (number == kNotPermitted)
        answer.outcome = Outcome::NotPermitted;
    else if (absentApplication)
        answer.outcome = Outcome::NotInstalled;
    return answer;
}

PlatformTools::Result runScript(const QStringList& arguments) {
    // The program waits for the editor: a busy pointer says so.
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const PlatformTools::Result result = PlatformTools::run(
        QStringLiteral("osascript"), QStringList{bundleResources() + '/' + kScript} + arguments, kWaitMs);
    QApplication::restoreOverrideCursor();
    return result;
}

const QString kAllow = QStringLiteral("System Settings > Privacy & Security > Automation");
} // namespace

QString KeyboardMaestroMacros::macroName(const QString& paletteName, const QString& buttonID) {
    return "ZOR " + paletteName + ' ' + buttonID;
}

QString KeyboardMaestroMacros::groupName(const QString& paletteName, const QString& alias) {
    return "ZOR " + paletteName + ' ' + alias;
}

Answer KeyboardMaestroMacros::listNames() {
    const PlatformTools::Result result = runScript({QStringLiteral("names")});
    if (!result.started || result.exitCode != 0) return failure(result);
    Answer answer;
    answer.outcome = Outcome::Done;
    answer.names = result.out.split('\n', Qt::SkipEmptyParts);
    return answer;
}

Answer KeyboardMaestroMacros::makeMacros(const QString& group, const QStringList& names) {
    const PlatformTools::Result result = runScript(QStringList{QStringLiteral("make"), group} + names);
    if (!result.started || result.exitCode != 0) return failure(result);
    Answer answer;
    answer.outcome = Outcome::Done;
    answer.made = result.out.toInt();
    return answer;
}

QString KeyboardMaestroMacros::failureMessage(const Answer& answer) {
    switch (answer.outcome) {
    case Outcome::NotInstalled:
        return "Keyboard Maestro is not installed on this Mac, so ZOR_Palette cannot make the macros of "
               "its buttons. Install Keyboard Maestro (version 8 or later) and choose Make Keyboard "
               "Maestro Macros… again. macOS then asks whether ZOR_Palette may control Keyboard "
               "Maestro: allow it, there or later in " +
               kAllow + ".";
    case Outcome::NotPermitted:
        return "ZOR_Palette is not allowed to control Keyboard Maestro, so it can neither read nor make "
               "macros. Allow it in " +
               kAllow +
               ": under ZOR_Palette, switch Keyboard Maestro on. Then choose Make Keyboard Maestro "
               "Macros… again.";
    case Outcome::Failed:
        return "Keyboard Maestro could not list or make the macros: " + answer.reason +
               ". If macOS asked whether ZOR_Palette may control "
               "Keyboard Maestro and you refused, allow it in " +
               kAllow + ".";
    case Outcome::Done:
        break;
    }
    return {};
}
