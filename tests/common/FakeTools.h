#pragma once
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

// Fake Mac tools first on PATH for the life of the object: each logs its call and prints its answer.
class FakeTools {
public:
    FakeTools();
    ~FakeTools();
    QStringList log() const; // one line per call
    // "running:<bundle id>" answers osascript's check for that application.
    void setAnswer(const QString& key, const QString& text) const;
    void remove(const QString& tool) const; // the tool is absent

private:
    QString logPath() const { return dir.path() + "/tools.log"; }
    QTemporaryDir dir;
    QByteArray oldPath;
};
