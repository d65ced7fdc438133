#pragma once
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

// Fake Mac tools first on PATH for the life of the object (osascript, shortcuts, open, sw_vers):
// each logs its call and prints its answer; without an answer it prints nothing and succeeds.
class FakeTools {
public:
    FakeTools();
    ~FakeTools();
    QStringList log() const; // one line per call
    // "running:<bundle id>" answers osascript's check for that application.
    void setAnswer(const QString& key, const QString& text) const;
    // The tool cannot be started, as where it is absent, though a real one stands later on PATH.
    void remove(const QString& tool) const;

private:
    QString logPath() const { return dir.path() + "/tools.log"; }
    QTemporaryDir dir;
    QByteArray oldPath;
};
