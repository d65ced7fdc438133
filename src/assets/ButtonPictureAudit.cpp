#include "assets/ButtonPictureAudit.h"

#include "pictures/ButtonPictureFiles.h"
#include "util/AppGlobals.h"
#include "util/Dialogs.h"
#include "util/FileTools.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QImageReader>
#include <algorithm>
#include <vector>


namespace {
bool isHidden(const QString& name) {
    return name.startsWith('.');
}

// A link is never taken for the folder it may point to.
bool isFolder(const QFileInfo& info) {
    return info.isDir() && !info.isSymLink();
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
    const QFileInfo info(path);
    if (info.isSymLink() || !info.isFile() || info.size() == 0) return {};
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead()) return {};
    return reader.size(); // the header's size; invalid for a format that does not tell it
}

bool ButtonPictureAudit::moveOut(const QString& path) {
    if (removedFolder.isEmpty() || !QFileInfo(removedFolder).isDir())
        removedFolder = FileTools::CreateFolderOnDesktop(AppGlobals::kRemovedPicturesFolder);
    if (removedFolder.isEmpty() || stuck.contains(path)) return false;
    if (FileTools::moveRenameOrSay(path, removedFolder).isEmpty()) {
        stuck.insert(path);
        return false;
    }
    asRemoved << QFileInfo(path).fileName();
    return true;
}

void ButtonPictureAudit::checkCurrentPalette() {
    for (const auto& [name, file] : children(paletteFolder)) {
        breathe();
        if (isFolder(file) || isHidden(name)) continue;
        QString message;
        const bool named = buttonOfPicture(name) >= 0;
        const QSize size = named ? pictureSize(file.filePath()) : QSize();
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
        if (message.isEmpty()) continue;
        Dialogs::message(message);
        moveOut(file.filePath());
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
    for (qsizetype i = asButFolders.size() - 1; i >= 0; --i) {
        breathe();
        const QString& name = asButFolders[i];
        if (isPaletteFolderName(name)) continue;
        if (moveOut(QDir(butFolder).filePath(name))) asButFolders.removeAt(i);
    }
}

QStringList ButtonPictureAudit::listAllPictures() {
    if (removedFolder.isEmpty() || !QFileInfo(removedFolder).isDir())
        removedFolder = FileTools::CreateFolderOnDesktop(AppGlobals::kRemovedPicturesFolder);
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
        Dialogs::message(movedText("There is already a picture for " + key, name, " is moved to "));
        moved = moveOut(file.filePath()) || moved;
    }
    return moved;
}

QStringList ButtonPictureAudit::currentPalettePictures() const {
    QStringList names;
    FileTools::FolderFilesToArray(paletteFolder, names);
    names.sort();
    return names;
}
