#include "assets/ButtonPictureAudit.h"

#include "pictures/ButtonPictureFiles.h"
#include "pictures/PictureRead.h"
#include "util/AppGlobals.h"
#include "util/Dialogs.h"
#include "util/FileTools.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <algorithm>
#include <vector>

namespace {
bool isHidden(const QString& name) {
    return name.startsWith('.');
}

// A link to a folder is a folder (a palette's pictures may live in a synced folder).
bool isFolder(const QFileInfo& info) {
    return info.isDir();
}

struct Child {
    QString name;
    QFileInfo info; // filled from the listing itself: no further look at the disk for its kind
};

// The children of a folder sorted by name, so that the first of two pictures for one button is
// the same one on every file system.
std::vector<Child> children(const QString& folder) {
    std::vector<Child> found;
    if (folder.isEmpty()) return found; // no folder, never the working one
    QDirIterator it(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (it.hasNext()) {
        it.next();
        found.push_back({it.fileName(), it.fileInfo()});
    }
    std::vector<const Child*> order;
    order.reserve(found.size());
    for (const Child& child : found)
        order.push_back(&child);
    std::sort(order.begin(), order.end(), [](const Child* a, const Child* b) { return a->name < b->name; });
    std::vector<Child> sorted;
    sorted.reserve(found.size());
    for (const Child* child : order)
        sorted.push_back(*child);
    return sorted;
}

QString movedText(const QString& what, const QString& name, const QString& how) {
    return what + " File: " + name + how + AppGlobals::kRemovedPicturesFolder + " on Desktop.";
}

// The folders are Finder-filled and may be long: keep the window's events flowing, now and then.
void breathe() {
    static unsigned passes = 0;
    if (++passes % 1024 == 0) QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
} // namespace

ButtonPictureAudit::ButtonPictureAudit(QString butFolder_, QString paletteFolder_)
    : butFolder(std::move(butFolder_)), paletteFolder(std::move(paletteFolder_)) {}

bool ButtonPictureAudit::IsNameOfButtonOK(const QString& name) {
    if (buttonOfPicture(name) < 0) return false;
    const qsizetype dot = name.indexOf('.');
    if (dot < 0) return false;
    const QStringView rest = QStringView(name).mid(dot);
    return rest.compare(u".png", Qt::CaseInsensitive) == 0 ||
           rest.compare(u".jpeg", Qt::CaseInsensitive) == 0 ||
           rest.compare(u".jpg", Qt::CaseInsensitive) == 0;
}

QSize ButtonPictureAudit::pictureSize(const QString& path) {
    return PictureRead::size(path); // invalid for a format whose header does not tell it
}

bool ButtonPictureAudit::moveOut(const QString& path) {
    if (stuck.contains(path)) return false;
    QString why;
    if (removedFolder.isEmpty() || !QFileInfo(removedFolder).isDir())
        removedFolder = FileTools::desktopFolderOrWhy(AppGlobals::kRemovedPicturesFolder, &why);
    const QString name = QFileInfo(path).fileName();
    if (removedFolder.isEmpty()) {
        noFolder = why;
    } else if (FileTools::moveRenameOrWhy(path, removedFolder, &why).isEmpty()) {
        if (why.isEmpty()) return false; // gone meanwhile
    } else {
        asRemoved << name;
        return true;
    }
    stuck.insert(path);
    stays << (noFolder.isEmpty() ? name + ": " + why + '.' : name);
    return false;
}

void ButtonPictureAudit::tellWhatStays() {
    if (stays.isEmpty()) return;
    const bool one = stays.size() == 1;
    const QString where = AppGlobals::kRemovedPicturesFolder + " on the Desktop";
    QString text;
    if (!noFolder.isEmpty())
        text = "Nothing could be moved to " + where + ": " + noFolder + ". " +
               (one ? "This breaks the rules of the picture folders and stays where it was:\n"
                    : "These break the rules of the picture folders and stay where they were:\n");
    else
        text = (one ? "This breaks the rules of the picture folders but could not be moved to " + where +
                          ", so it stays where it was:\n"
                    : "These break the rules of the picture folders but could not be moved to " + where +
                          ", so they stay where they were:\n");
    Dialogs::message(text + stays.join('\n'));
    stays.clear();
    noFolder.clear();
}

void ButtonPictureAudit::checkCurrentPalette() {
    for (const auto& [name, file] : children(paletteFolder)) {
        breathe();
        if (isFolder(file) || isHidden(name)) continue;
        QString message;
        const bool named = buttonOfPicture(name) >= 0;
        const QSize size = named ? pictureSize(file.filePath()) : QSize();
        QString why;
        if (!named)
            message = movedText("The file name is supposed to start with two digits.", name, " is moved to ");
        else if (!size.isValid())
            message = movedText("The file is supposed to be a picture.", name, " is moved to ");
        else if (!isSideOK(size.width()))
            message = movedText("The file is supposed to be an ~ 64 pixel picture.", name,
                                " is too wide and is moved to ");
        else if (!isSideOK(size.height()))
            message = movedText("The file is supposed to be an ~ 64 pixel picture.", name,
                                "is too tall and is moved to ");
        // A header can be whole over a body that is not: the picture is decoded to its end.
        else if (PictureRead::whole(file.filePath(), &why).isNull())
            message = movedText("The file is supposed to be a picture.", name, " is moved to ");
        if (!message.isEmpty() && moveOut(file.filePath())) Dialogs::message(message);
    }
}

void ButtonPictureAudit::RemoveFilesInButtonFolder() {
    if (!QFileInfo(butFolder).isDir()) return;
    for (const auto& [name, item] : children(butFolder)) {
        breathe();
        if (!isFolder(item) && !isHidden(name)) moveOut(item.filePath());
    }
}

void ButtonPictureAudit::GetFoldersInButFolder() {
    asButFolders.clear(); // a second audit lists each folder once
    for (const auto& [name, item] : children(butFolder))
        if (isFolder(item)) asButFolders << name;
}

void ButtonPictureAudit::removeBadFolderNames() {
    // On the Mac's disks "p02" is the folder of P02, and there cannot be both: on a disk that
    // tells case apart, the second by name goes like any folder of a wrong name.
    QSet<QString> first, seen;
    for (const QString& name : asButFolders)
        if (isPaletteFolderName(name) && !seen.contains(name.toUpper())) {
            seen.insert(name.toUpper());
            first.insert(name);
        }
    for (qsizetype i = asButFolders.size() - 1; i >= 0; --i) {
        breathe();
        const QString& name = asButFolders[i];
        if (first.contains(name)) continue;
        if (moveOut(QDir(butFolder).filePath(name))) asButFolders.removeAt(i);
    }
}

QStringList ButtonPictureAudit::listAllPictures() {
    // The Desktop folder is there from here on, also when nothing is wrong.
    if (removedFolder.isEmpty() || !QFileInfo(removedFolder).isDir())
        removedFolder = FileTools::desktopFolderOrWhy(AppGlobals::kRemovedPicturesFolder, &noFolder);
    QStringList rows;
    for (const QString& palette : asButFolders) {
        const QString folder = QDir(butFolder).filePath(palette);
        // Offenders move in name order, so that clashes on the Desktop come out alike on every file
        // system; the rows need no order here, they are sorted once below.
        QStringList offenders;
        QDirIterator it(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
        while (it.hasNext()) {
            it.next();
            breathe();
            const QString name = it.fileName();
            if (isHidden(name) || isFolder(it.fileInfo())) continue;
            if (IsNameOfButtonOK(name))
                rows << palette + '*' + name;
            else
                offenders << name;
        }
        offenders.sort();
        for (const QString& name : offenders)
            moveOut(folder + '/' + name);
    }
    rows.sort();
    return rows;
}

bool ButtonPictureAudit::fillDictionary() {
    diFile.clear();
    bool moved = false;
    for (const auto& [name, file] : children(paletteFolder)) {
        breathe();
        if (isFolder(file) || isHidden(name)) continue; // they belong to no button
        const QString key = name.left(2);
        if (!diFile.contains(key)) {
            diFile.insert(key, file.filePath());
            continue;
        }
        if (!moveOut(file.filePath())) continue;
        Dialogs::message(movedText("There is already a picture for " + key, name, " is moved to "));
        moved = true;
    }
    return moved;
}

QStringList ButtonPictureAudit::currentPalettePictures() const {
    QStringList names;
    FileTools::FolderFilesToArray(paletteFolder, names);
    names.sort();
    return names;
}
