#pragma once
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

// Fake Mac tools (osascript, shortcuts, open, sw_vers) first on PATH for the life of the object.
// Each appends "<tool> <arg>|<arg>..." to the log and prints the answer scripted for it.
class FakeTools {
public:
    FakeTools();
    ~FakeTools();
    QStringList log() const; // one line per call
    // The text the tool prints to standard output; for osascript a key such as
    // "running:com.stairways.keyboardmaestro.engine" answers the bundle check for that identifier.
    void setAnswer(const QString& key, const QString& text) const;
    void remove(const QString& tool) const; // the tool is absent

private:
    QString logPath() const { return dir.path() + "/tools.log"; }
    QTemporaryDir dir;
    QByteArray oldPath;
};
