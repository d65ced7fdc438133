#include "common/TempHome.h"

#include "util/AppGlobals.h"
#include "util/StdFolders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

TempHome::TempHome()
    : oldHome(qgetenv("HOME")), oldDataHome(qgetenv("XDG_DATA_HOME")), oldConfigHome(qgetenv("XDG_CONFIG_HOME")),
      oldCacheHome(qgetenv("XDG_CACHE_HOME")) {
    qputenv("HOME", dir.path().toUtf8());
    qputenv("XDG_DATA_HOME", (dir.path() + "/.local/share").toUtf8());
    qputenv("XDG_CONFIG_HOME", (dir.path() + "/.config").toUtf8());
    qputenv("XDG_CACHE_HOME", (dir.path() + "/.cache").toUtf8());
    QDir(dir.path()).mkpath(".local/share");
    QDir(dir.path()).mkpath("Desktop");
    StdFolders::setHomeForTests(dir.path());
    AppGlobals::appSupportFolder.clear();
}

TempHome::~TempHome() {
    StdFolders::setHomeForTests({});
    qputenv("HOME", oldHome);
    qputenv("XDG_DATA_HOME", oldDataHome);
    qputenv("XDG_CONFIG_HOME", oldConfigHome);
    qputenv("XDG_CACHE_HOME", oldCacheHome);
}

QString TempHome::appSupport() const { return StdFolders::applicationSupport(); }
QString TempHome::programFolder() const { return appSupport() + '/' + AppGlobals::kAppFolderName; }
QString TempHome::desktop() const { return StdFolders::desktop(); }

QString TempHome::write(const QString& relativeToHome, const QByteArray& content) const {
    return writeFile(dir.path() + '/' + relativeToHome, content);
}

QString TempHome::writeInProgram(const QString& relativePath, const QByteArray& content) const {
    return writeFile(programFolder() + '/' + relativePath, content);
}

QString TempHome::writeFile(const QString& path, const QByteArray& content) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(content);
    return path;
}
