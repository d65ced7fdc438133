#include "util/StdFolders.h"

#include <QDir>
#include <QStandardPaths>

namespace {
// Set by tests. Linux finds the folders from $HOME and $XDG_*, which tests point elsewhere;
// the Mac asks the user database, which does not follow $HOME, so there the test home is used.
QString testHome;

QString location(QStandardPaths::StandardLocation which) {
    return QDir::cleanPath(QStandardPaths::writableLocation(which));
}

#ifdef Q_OS_MACOS
QString underTestHome(QStandardPaths::StandardLocation which) {
    switch (which) {
    case QStandardPaths::GenericDataLocation: return testHome + "/Library/Application Support";
    case QStandardPaths::DesktopLocation: return testHome + "/Desktop";
    case QStandardPaths::DocumentsLocation: return testHome + "/Documents";
    case QStandardPaths::ApplicationsLocation: return testHome + "/Applications";
    case QStandardPaths::GenericCacheLocation: return testHome + "/Library/Caches";
    default: return testHome;
    }
}
#endif

QString folder(QStandardPaths::StandardLocation which) {
#ifdef Q_OS_MACOS
    if (!testHome.isEmpty()) return underTestHome(which);
#endif
    return location(which);
}
} // namespace

void StdFolders::setHomeForTests(const QString& home) { testHome = QDir::cleanPath(home); }
QString StdFolders::applicationSupport() { return folder(QStandardPaths::GenericDataLocation); }
QString StdFolders::desktop() { return folder(QStandardPaths::DesktopLocation); }
QString StdFolders::documents() { return folder(QStandardPaths::DocumentsLocation); }
QString StdFolders::home() {
#ifdef Q_OS_MACOS
    if (!testHome.isEmpty()) return testHome;
#endif
    return QDir::cleanPath(QDir::homePath());
}
QString StdFolders::applications() { return folder(QStandardPaths::ApplicationsLocation); }
QString StdFolders::caches() { return folder(QStandardPaths::GenericCacheLocation); }
