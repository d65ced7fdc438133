#pragma once
#include <QString>
#include <QStringList>

// The Mac is reached only through its command-line tools (osascript, shortcuts, open, sw_vers),
// each found on PATH and run with an argument list, never through a shell.
namespace PlatformTools {

struct Result {
    bool started = false; // false when the tool is absent or could not start
    int exitCode = -1;
    QString out; // standard output, trimmed
    QString err;
};

Result run(const QString& tool, const QStringList& arguments, int timeoutMs = 30000);
// Starts a tool and does not wait for it.
bool startDetached(const QString& tool, const QStringList& arguments);

} // namespace PlatformTools
