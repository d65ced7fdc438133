#include "util/Dialogs.h"
#include "util/FileTools.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

QString FileTools::moveRenameOrSay(const QString& filePath, const QString& destinationFolder) {
    const QFileInfo source(filePath);
    if (filePath.isEmpty() || !(source.exists() || source.isSymLink())) return {};
    const QString name = source.fileName();
    const QString there = QFileInfo(destinationFolder).fileName();
    // A rename needs to write both folders; asking first keeps the file whole and in place.
    auto cannotChange = [](const QString& folder) {
        const QFileInfo info(folder);
        // No write bit at all counts too: it is how a locked folder looks, even to root.
        const auto anyWrite = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
        return folder.isEmpty() || !info.isDir() || !info.isWritable() || !(info.permissions() & anyWrite);
    };
    QString why;
    if (cannotChange(source.absolutePath()))
        why = "the folder " + source.absoluteDir().dirName() + " cannot be changed";
    else if (cannotChange(destinationFolder))
        why = "the folder " + there + " cannot be changed";
    if (!why.isEmpty()) {
        Dialogs::message("Could not move " + name + " to " + there + ": " + why + ". " + name +
                         " stays where it was.");
        return {};
    }
    return MoveRenameIfNecessary(filePath, destinationFolder);
}
