#include "util/Dialogs.h"
#include "util/FileTools.h"
#include "util/StdFolders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
bool exists(const QString& path) {
    const QFileInfo info(path);
    return info.exists() || info.isSymLink(); // a dangling link still takes its name
}
} // namespace

QString FileTools::moveRenaming(const QString& filePath, const QString& destinationFolder, QString* why) {
    if (filePath.isEmpty() || !exists(filePath)) return {};
    if (destinationFolder.isEmpty() || !QFileInfo(destinationFolder).isDir()) return {};
    const QFileInfo source(filePath);
    const QDir from = source.absoluteDir();
    const QDir to(destinationFolder);
    if (from.canonicalPath() == to.canonicalPath()) return filePath; // already there

    const QString name = source.fileName();
    QString target = name;
    if (exists(to.filePath(name))) {
        // The numbered name must be free where the file is as well, so the move never clobbers.
        int n = 1;
        auto numbered = [&] { return QString::number(n) + '_' + name; };
        while (exists(to.filePath(numbered())) || exists(from.filePath(numbered())))
            ++n;
        target = numbered();
    }
    const QString newPath = to.filePath(target);
    if (source.isDir() && !source.isSymLink()) {
        if (!QDir().rename(filePath, newPath)) {
            *why = "the folder could not be renamed to " + newPath;
            return {};
        }
    } else {
        QFile file(filePath);
        if (!file.rename(newPath)) {
            *why = file.errorString();
            return {};
        }
    }
    return newPath;
}

QString FileTools::moveRenameOrWhy(const QString& filePath, const QString& destinationFolder, QString* why) {
    const QFileInfo source(filePath);
    if (filePath.isEmpty() || !(source.exists() || source.isSymLink())) return {};
    const QString there = QFileInfo(destinationFolder).fileName();
    // A rename needs to write both folders; asking first keeps the file whole and in place.
    auto cannotChange = [](const QString& folder) {
        const QFileInfo info(folder);
        // No write bit at all counts too: it is how a locked folder looks, even to root.
        const auto anyWrite = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
        return folder.isEmpty() || !info.isDir() || !info.isWritable() || !(info.permissions() & anyWrite);
    };
    if (cannotChange(source.absolutePath())) {
        *why = "the folder " + source.absoluteDir().dirName() + " cannot be changed";
        return {};
    }
    if (cannotChange(destinationFolder)) {
        *why = "the folder " + there + " cannot be changed";
        return {};
    }
    const QString moved = moveRenaming(filePath, destinationFolder, why);
    if (moved.isEmpty() && why->isEmpty()) *why = "it could not be moved";
    return moved;
}

QString FileTools::moveRenameOrSay(const QString& filePath, const QString& destinationFolder) {
    QString why;
    const QString moved = moveRenameOrWhy(filePath, destinationFolder, &why);
    if (moved.isEmpty() && !why.isEmpty()) {
        const QString name = QFileInfo(filePath).fileName();
        Dialogs::message("Could not move " + name + " to " + QFileInfo(destinationFolder).fileName() + ": " +
                         why + ". " + name + " stays where it was.");
    }
    return moved;
}

QString FileTools::desktopFolderOrWhy(const QString& name, QString* why) {
    const QString desktop = StdFolders::desktop();
    if (desktop.isEmpty()) {
        *why = "there is no Desktop folder";
        return {};
    }
    QString at = desktop;
    for (const QString& part : name.split('/', Qt::SkipEmptyParts)) {
        at = QDir(at).filePath(part);
        if (QFileInfo(at).isDir()) continue;
        if (exists(at)) {
            *why = "a file named " + part + " stands where that folder should be";
            return {};
        }
        if (!QDir().mkdir(at)) {
            *why = "the folder " + part + " could not be made";
            return {};
        }
    }
    return at;
}
