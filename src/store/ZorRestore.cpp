#include "store/ZOR.h"

#include "help/GeneralMethods.h"
#include "util/AppGlobals.h"
#include "util/Clock.h"
#include "util/Dialogs.h"
#include "util/FileTools.h"
#include "util/Guard.h"
#include "util/RtrnBoolean.h"
#include "util/RtrnDateString.h"
#include "util/StdFolders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
const QString kNotAppropriate = QStringLiteral("You did not select an appropriate file. ");

// Why a chosen file is no backup; empty when it is one. The tests run in this order.
QString refusal(const QString& name) {
    if (name.size() != 30)
        return kNotAppropriate + "It should have a name like 230508_2314PreserveStateBU.txt";
    if (!RtrnBoolean::rbValidYYMMDD_HHSS(name.left(11)))
        return kNotAppropriate + "It should start with a valid date stamp in the form YYMMDD_HHSS";
    if (name.right(4).compare(".txt", Qt::CaseInsensitive) != 0)
        return kNotAppropriate + "It should have the extension .txt";
    if (name.mid(11, 15).compare("PreserveStateBU", Qt::CaseInsensitive) != 0)
        return kNotAppropriate + "It should have the basic name PreserveStateBU";
    return {};
}

QString emergencyPath(const QString& name) {
    return AppGlobals::appSupportFolder + '/' + ZOR::kEmergencyFolder + '/' + name;
}

// The data file goes into the emergency folder under the stamp of now. Gives its new path,
// empty when it could not be moved. The stamp is taken on both sides of the move, since a
// minute may turn while it runs.
QString setAsideDataFile() {
    const QString before = emergencyPath(ZOR::backupFileName());
    const bool wasTaken = QFileInfo::exists(before);
    if (ZOR::PreserveStateBackUp(false, false)) {
        if (!wasTaken && QFileInfo::exists(before)) return before;
        return emergencyPath(ZOR::backupFileName());
    }
    // A quit or a backup a moment ago took the stamp of this minute. The latest free minute before
    // it keeps the data file apart from that copy, under a name that can be restored, that never
    // tells a time to come, and that no later quit can take.
    if (!wasTaken || !QFileInfo::exists(ZOR::dataFilePath())) return {};
    const QDateTime now = Clock::now();
    for (int minutes = 1; minutes <= 60; ++minutes) {
        const QString name =
            emergencyPath(now.addSecs(-60 * minutes).toString("yyMMdd_HHmm") + "PreserveStateBU.txt");
        if (!QFileInfo::exists(name)) return QFile::rename(ZOR::dataFilePath(), name) ? name : QString();
    }
    return {};
}

// A plain PreserveState.txt beside the backup steps aside, then the backup takes the data file's place.
bool moveIntoPlace(const QFileInfo& chosen) {
    const QString beside = chosen.dir().filePath("PreserveState.txt");
    if (QFileInfo::exists(beside) &&
        !QFile::rename(beside,
                       chosen.dir().filePath("PreserveState" + RtrnDateString::rsAlphaDateTime(4) + ".txt")))
        return false;
    return QFile::rename(chosen.filePath(), ZOR::dataFilePath());
}

void tellNotRestored(const QString& name, const QString& keptAt) {
    const QString start = "The backup " + name + " could not be moved into place, so it was not restored. ";
    if (keptAt.isEmpty() || QFile::rename(keptAt, ZOR::dataFilePath())) {
        Dialogs::message(start + "The PreserveState.txt in use before is still in its place, unchanged.");
        return;
    }
    Dialogs::message(start +
                     "The PreserveState.txt in use before could not be put back either. It is kept in "
                     "the folder EmergencyPreserveStateBU as " +
                     QFileInfo(keptAt).fileName() + ": restore that file to have it in use again.");
}
} // namespace

bool ZOR::PreserveStateRestore() {
    return Guard::run(Guard::Where::module("ZOR", "PreserveStateRestore"), [] {
        const QString path =
            FileTools::FolderItemSelect("Choose Restoring File", "TextThing", StdFolders::desktop());
        if (path.isEmpty()) return false;
        const QFileInfo chosen(path);
        const QString name = chosen.fileName();
        if (const QString why = refusal(name); !why.isEmpty()) {
            Dialogs::message(why);
            return false;
        }
        // Read whole before it takes the data file's place: a file that does not load moves nothing.
        if (QString why = whyNotAStore(path); !why.isEmpty()) {
            if (!why.endsWith('.')) why += '.';
            Dialogs::message("The backup " + name +
                             " was not restored: it cannot be read as a store of palettes. " + why +
                             " Nothing was moved.");
            return false;
        }
        QString keptAt;
        if (QFileInfo::exists(dataFilePath())) {
            keptAt = setAsideDataFile();
            if (keptAt.isEmpty()) {
                Dialogs::message(
                    "The backup " + name +
                    " was not restored: the PreserveState.txt in use could not be kept in the folder "
                    "EmergencyPreserveStateBU first, so it stays in its place, unchanged.");
                return false;
            }
        }
        if (!moveIntoPlace(chosen)) {
            tellNotRestored(name, keptAt);
            return false;
        }
        // From here on the restored file is the data file: no quit may write over it.
        QuitSavePaletteChanges = false;
        GeneralMethods::ShowText(
            "A backup, " + name + ", was used to restore the active PreserveState.txt file.\n" +
                "The application is quitting. Restart to access the PreserveState.txt file "
                "that was restored.",
            "Backup Data Restored");
        return true;
    });
}
