#include "store/ItemCopy.h"

#include "util/ZorError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

void ItemCopy::copyInto(const QString& item, const QString& folder) {
    const QFileInfo source(item);
    const QString target = QDir(folder).filePath(source.fileName());
    if (source.isDir() && !source.isSymLink()) {
        if (!QFileInfo(target).isDir() && !QDir().mkpath(target))
            throw IOException("Could not create the folder " + target + '.');
        const QDir dir(item);
        for (const QString& name :
             dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name))
            copyInto(dir.filePath(name), target);
        return;
    }
    if (QFileInfo(target).isDir())
        throw IOException("A folder named " + source.fileName() + " is in the way in " + folder + '.');
    if (QFileInfo::exists(target) && !QFile::remove(target))
        throw IOException("Could not replace " + target + '.');
    QFile file(item);
    if (!file.copy(target))
        throw IOException("Could not copy " + source.fileName() + ": " + file.errorString());
}
