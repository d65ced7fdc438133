#include "util/StdFolders.h"

#include <QDir>
#include <QStandardPaths>

namespace {
QString location(QStandardPaths::StandardLocation which) {
    return QDir::cleanPath(QStandardPaths::writableLocation(which));
}
} // namespace

QString StdFolders::applicationSupport() { return location(QStandardPaths::GenericDataLocation); }
QString StdFolders::desktop() { return location(QStandardPaths::DesktopLocation); }
QString StdFolders::documents() { return location(QStandardPaths::DocumentsLocation); }
QString StdFolders::home() { return QDir::cleanPath(QDir::homePath()); }
QString StdFolders::applications() { return location(QStandardPaths::ApplicationsLocation); }
