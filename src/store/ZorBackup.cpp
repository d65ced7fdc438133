#include "store/ZOR.h"

#include "util/AppGlobals.h"
#include "util/Dialogs.h"
#include "util/Guard.h"
#include "util/RtrnDateString.h"
#include "util/StdFolders.h"
#include "util/ZorError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
Guard::Where where(const char* method) { return Guard::Where::module("ZOR", method); }

QString stampedBackupName() { return RtrnDateString::rsAlphaDateTime(3) + "PreserveState" + "BU" + ".txt"; }

// A copy always passes through the plain name and is then given the stamped one; a plain name
// left over from an earlier failed rename is cleared first.
bool copyUnderStampedName(const QString& source, const QString& folder, const QString& stamped) {
    const QString plain = folder + "/PreserveState.txt";
    if (QFile::exists(plain) && !QFile::remove(plain)) return false;
    if (!QFile::copy(source, plain)) return false;
    return QFile::rename(plain, folder + '/' + stamped);
}
} // namespace

bool ZOR::PreserveStateBackUp(bool keepActive, bool toDesktop) {
    return Guard::run(where("PreserveStateBackUp"), [=] {
        const QString source = dataFilePath();
        const QString stamped = stampedBackupName();
        if (!QFile::exists(source)) return false;
        if (toDesktop) {
            const QString desktop = StdFolders::desktop();
            const QString plain = desktop + "/PreserveState.txt";
            try {
                if (!QFileInfo(desktop).isDir()) throw NilObjectException("There is no Desktop folder.");
                if (QFile::exists(plain) && !QFile::remove(plain))
                    throw IOException("The PreserveState.txt on the Desktop could not be removed.");
                if (!QFile::copy(source, plain)) throw IOException("PreserveState.txt could not be copied to the Desktop.");
            } catch (const std::exception& error) {
                Dialogs::message("An exception of type " + RuntimeExceptionExtension::Type(error) + " was caught.");
                return false;
            }
            if (!QFile::rename(plain, desktop + '/' + stamped)) return false;
        }
        const QString emergency = AppGlobals::appSupportFolder + '/' + kEmergencyFolder;
        QDir().mkpath(emergency);
        if (keepActive) return copyUnderStampedName(source, emergency, stamped);
        return QFile::rename(source, emergency + '/' + stamped);
    });
}

void ZOR::RemoveFilesFromEmergencyBackup(qint64 removeCount, qint64 threshold) {
    Guard::run(where("RemoveFilesFromEmergencyBackup"), [=] {
        QDir folder(AppGlobals::appSupportFolder + '/' + kEmergencyFolder);
        const QStringList names =
            folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
        if (names.size() < threshold) return;
        for (qsizetype i = 0; i < std::min<qsizetype>(removeCount, names.size()); ++i) {
            // Only plain files go: a folder someone put here is not a backup of ours to delete.
            const QString path = folder.filePath(names[i]);
            const QFileInfo item(path);
            const bool removed = (item.isFile() || item.isSymLink()) && !item.isDir() && QFile::remove(path);
            if (!removed) Dialogs::message("RemoveFilesFromEmergencyBackup: Could not remove " + names[i]);
        }
    });
}

QString ZOR::backupFileName() { return stampedBackupName(); }
