#include "store/ZOR.h"

#include "util/AppGlobals.h"
#include "util/FileTools.h"
#include "util/Guard.h"
#include "util/RtrnDateString.h"
#include "util/ZorError.h"

#include <QDir>
#include <QFileInfo>

namespace {
Guard::Where where(const char* method) { return Guard::Where::module("ZOR", method); }


bool exists(const QString& path) { return QFileInfo(path).exists() || QFileInfo(path).isSymLink(); }

// A folder for a name that already lies there: the stamp, then the name. Two deletes of one name
// within a second get a counter as well, so that nothing is ever moved onto an earlier folder.
QString stampedFolder(const QDir& removed, const QString& name) {
    const QString stamp = RtrnDateString::rsAlphaDateTime(4);
    QString candidate = stamp + name;
    for (int n = 2; exists(removed.filePath(candidate)); ++n)
        candidate = stamp + '_' + QString::number(n) + name;
    if (!removed.mkdir(candidate))
        throw IOException("Could not create the folder " + removed.filePath(candidate) + '.');
    return removed.filePath(candidate);
}
} // namespace

QString ZOR::movePalettePicturesAside(const QString& paletteName) {
    return Guard::run(where("movePalettePicturesAside"), [&]() -> QString {
        // A name from a hand-edited file must not lead out of the pictures folder.
        const QString folder = FileTools::childPath(AppGlobals::folderPathButFolder, paletteName);
        QDir pictures(folder);
        if (folder.isEmpty() || !pictures.exists()) return {};
        // Hidden files count: anything the user or Finder left there is kept.
        if (pictures.isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System)) {
            if (!QDir().rmdir(pictures.path()))
                throw IOException("Could not remove the empty folder " + pictures.path() + '.');
            return {};
        }
        // One report, with the reason, when the Desktop folder cannot be had.
        QString why;
        const QString removedPath = FileTools::desktopFolderOrWhy(AppGlobals::kRemovedPicturesFolder, &why);
        if (removedPath.isEmpty())
            throw IOException("The pictures of " + paletteName + " could not be moved to " +
                              AppGlobals::kRemovedPicturesFolder + " on the Desktop: " + why +
                              ". The palette and its pictures stay as they were.");
        const QDir removed(removedPath);
        const QString into =
            exists(removed.filePath(paletteName)) ? stampedFolder(removed, paletteName) : removedPath;
        const QString target = QDir(into).filePath(paletteName);
        if (!QDir().rename(pictures.path(), target))
            throw IOException("The pictures of " + paletteName + " could not be moved to " + into + '.');
        return into;
    });
}

bool ZOR::deleteActivePalette() {
    return Guard::run(where("deleteActivePalette"), [] {
        if (idxCP <= 0 || idxCP >= qint64(DP.size())) return false;
        // The pictures go first: should they stay where they are, the palette stays as well.
        const QString pictures = FileTools::childPath(AppGlobals::folderPathButFolder, paleName);
        movePalettePicturesAside(paleName);
        if (QFileInfo(pictures).isDir()) return false;
        BreakBtnLinkToDP();
        DefaultValuesPalette(idxCP);
        DP[size_t(idxCP)].s_Alias = kNoShortcut;
        ActivatePalette(0);
        paletteActiveChange = true;
        saveStore();
        viewFollows(PaletteView::Upto::RestingTexts);
        return true;
    });
}
