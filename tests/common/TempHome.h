#pragma once
#include <QString>
#include <QTemporaryDir>

// HOME and the XDG folders in a temporary folder: every file the program touches is real, and goes.
class TempHome {
public:
    TempHome();
    ~TempHome();
    QString home() const { return dir.path(); }
    QString appSupport() const;  // the application-support folder (not the program's own)
    QString programFolder() const; // <application support>/net.lunvale.ZOR-Palette
    QString desktop() const;
    QString write(const QString& relativeToHome, const QByteArray& content) const;
    QString writeInProgram(const QString& relativePath, const QByteArray& content) const;

private:
    static QString writeFile(const QString& path, const QByteArray& content);
    QTemporaryDir dir;
    QByteArray oldHome, oldDataHome, oldConfigHome, oldCacheHome;
};
