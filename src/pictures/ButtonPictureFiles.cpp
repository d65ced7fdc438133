#include "pictures/ButtonPictureFiles.h"

#include "util/AppGlobals.h"
#include "util/FileTools.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace {
bool isDigit(QChar c) {
    return c >= '0' && c <= '9';
}

bool startsWithTwoDigits(QStringView name) {
    return name.size() >= 2 && isDigit(name[0]) && isDigit(name[1]);
}

int asNumber(QStringView name) {
    bool number = false;
    const int n = name.left(2).toInt(&number);
    return number && n >= 0 ? n : -1;
}
} // namespace

int buttonOfPicture(QStringView fileName) {
    if (!startsWithTwoDigits(fileName)) return -1;
    return (fileName[0].unicode() - '0') * 10 + (fileName[1].unicode() - '0');
}

bool isPaletteFolderName(QStringView name) {
    return name.size() == 3 && name.startsWith(u'P', Qt::CaseInsensitive) && startsWithTwoDigits(name.mid(1));
}

QString palettePictureFolder(const QString& paletteName) {
    const QString exact = FileTools::childPath(AppGlobals::folderPathButFolder, paletteName);
    if (exact.isEmpty() || QFileInfo(exact).isDir()) return exact;
    // The Mac's disks ignore case, so that "p02" there is the folder of P02; on a disk that tells
    // case apart it is looked for among the folders by plain comparison (a name filter would build
    // a pattern for each of the palettes the window warms ahead).
    const QStringList folders = QDir(AppGlobals::folderPathButFolder)
                                    .entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& folder : folders)
        if (folder.compare(paletteName, Qt::CaseInsensitive) == 0)
            return AppGlobals::folderPathButFolder + '/' + folder;
    return exact;
}

bool nameTakenIn(const QString& folder, const QString& name) {
    const QFileInfo exact(QDir(folder).filePath(name));
    if (exact.exists() || exact.isSymLink()) return true;
    const QStringList names =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    return std::any_of(names.begin(), names.end(),
                       [&](const QString& other) { return other.compare(name, Qt::CaseInsensitive) == 0; });
}

QList<std::pair<int, QString>> buttonPictureFiles(const QString& folder, LeadingDigits reading) {
    if (folder.isEmpty()) return {};
    // Asked of QDir alone: the warming thread lists folders too.
    QStringList names = QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Unsorted);
    names.sort();
    QList<std::pair<int, QString>> files;
    for (const QString& name : names) {
        if (name.startsWith('.')) continue;
        const int n = reading == LeadingDigits::Two ? buttonOfPicture(name) : asNumber(name);
        if (n >= 0) files.append({n, folder + '/' + name});
    }
    return files;
}
