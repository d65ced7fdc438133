#include "pictures/ButtonPictureFiles.h"

#include "util/AppGlobals.h"
#include "util/FileTools.h"

#include <QDir>
#include <QStringList>

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
    return name.size() == 3 && name.startsWith(u'P') && startsWithTwoDigits(name.mid(1));
}

QString palettePictureFolder(const QString& paletteName) {
    return FileTools::childPath(AppGlobals::folderPathButFolder, paletteName);
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
