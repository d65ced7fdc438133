#include "util/PlatformTools.h"

#include <QProcess>
#include <QStandardPaths>

namespace {
QString locate(const QString& tool) { return QStandardPaths::findExecutable(tool); }
} // namespace

PlatformTools::Result PlatformTools::run(const QString& tool, const QStringList& arguments, int timeoutMs) {
    Result result;
    const QString program = locate(tool);
    if (program.isEmpty()) return result;
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForStarted()) return result;
    result.started = true;
    if (!process.waitForFinished(timeoutMs)) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.out = QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    result.err = QString::fromUtf8(process.readAllStandardError()).trimmed();
    return result;
}

bool PlatformTools::startDetached(const QString& tool, const QStringList& arguments) {
    const QString program = locate(tool);
    if (program.isEmpty()) return false;
    // The tool lives on after us; what it prints is not ours to show.
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}
