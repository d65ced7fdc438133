#pragma once
#include <QFile>
#include <QProcess>
#include <QString>

#include <unistd.h>

// A folder that refuses every change, to root as well; unlocked again when it goes.
class LockedFolder {
public:
    explicit LockedFolder(QString folder) : path(std::move(folder)) { set(true); }
    ~LockedFolder() { set(false); }
    LockedFolder(const LockedFolder&) = delete;
    LockedFolder& operator=(const LockedFolder&) = delete;
    bool holds() const {
        QFile probe(path + "/probe");
        return !probe.open(QIODevice::WriteOnly) || !probe.remove();
    }

private:
    void set(bool locked) {
        QFile::setPermissions(path, locked ? QFile::ReadOwner | QFile::ExeOwner
                                           : QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        if (geteuid() == 0) QProcess::execute("chattr", {locked ? "+i" : "-i", path});
    }
    QString path;
};
