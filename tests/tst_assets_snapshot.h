#pragma once
// Every file under a folder, by content: links by their target, folders not at all. Comparing a
// snapshot before and after shows whether anything the user had is gone or changed.
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QStringList>

class HomeSnapshot {
public:
    explicit HomeSnapshot(const QString& root) {
        QDirIterator it(root, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories); // it does not follow links into folders
        while (it.hasNext()) {
            const QFileInfo info(it.next());
            QFile file(info.filePath());
            if (!info.isSymLink() && (!info.isFile() || !file.open(QIODevice::ReadOnly))) continue;
            const QByteArray key = info.isSymLink() ? "link:" + info.symLinkTarget().toUtf8() : "file:" + file.readAll();
            ++count[key];
            where[key] = info.filePath();
        }
    }
    // Files of `before` that no longer exist byte for byte anywhere.
    static QStringList lost(const HomeSnapshot& before, const HomeSnapshot& after) {
        QStringList out;
        for (auto it = before.count.cbegin(); it != before.count.cend(); ++it)
            if (after.count.value(it.key()) < it.value()) out << before.where.value(it.key());
        return out;
    }

private:
    QMap<QByteArray, int> count;
    QMap<QByteArray, QString> where;
};
