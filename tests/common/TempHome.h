#pragma once
#include <QString>
#include <QTemporaryDir>

// A fresh home for one test: HOME and the XDG folders point into a temporary folder, so every
// file the program touches is real and thrown away afterwards.
class TempHome {
public:
    TempHome();
    ~TempHome();
    QString home() const { return dir.path(); }
    QString appSupport() const;  // the application-support folder (not the program's own)
    QString programFolder() const; // <application support>/net.lunvale.ZOR-Palette
    QString desktop() const;
    // Writes a file (creating its folders) and gives its path.
    QString write(const QString& relativeToHome, const QByteArray& content) const;
    // The same, relative to the program folder in application support.
    QString writeInProgram(const QString& relativePath, const QByteArray& content) const;

private:
    static QString writeFile(const QString& path, const QByteArray& content);
    QTemporaryDir dir;
    QByteArray oldHome, oldDataHome, oldConfigHome, oldCacheHome;
};
