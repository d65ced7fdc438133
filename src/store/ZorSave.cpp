#include "store/ZOR.h"

#include "util/AppGlobals.h"
#include "util/Dialogs.h"
#include "util/Guard.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
Guard::Where where(const char* method) {
    return Guard::Where::module("ZOR", method);
}

// What went wrong, in the user's words where the system's are unclear.
QString failure(int error, const QString& folder) {
    switch (error) {
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return QStringLiteral("the disk is full");
    case EROFS:
        return QStringLiteral("the disk is read-only");
    case EACCES:
    case EPERM:
        return "ZOR_Palette may not write in the folder " + QDir::toNativeSeparators(folder);
    default:
        return QString::fromLocal8Bit(std::strerror(error));
    }
}

// Writes `bytes` whole to `path`, created with `mode`, and makes them stand on the disk. Gives errno,
// 0 when written.
int writeAndSync(const QString& path, const QByteArray& bytes, mode_t mode) {
    const int fd =
        ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, mode);
    if (fd < 0) return errno;
    int error = 0;
    for (qsizetype done = 0; done < bytes.size() && !error;) {
        const ssize_t n = ::write(fd, bytes.constData() + done, size_t(bytes.size() - done));
        if (n < 0 && errno != EINTR) error = errno;
        if (n > 0) done += n;
    }
    // The mode asked for at creation is cut by the umask; the file replaced had its own.
    if (!error && ::fchmod(fd, mode) != 0) error = errno;
    if (!error && ::fsync(fd) != 0) error = errno;
    if (::close(fd) != 0 && !error) error = errno;
    return error;
}
} // namespace

namespace {
// The scratch copy of a save, beside the file it is to replace.
QString scratchFor(const QString& target) {
    const QFileInfo file(target);
    return QDir(file.absolutePath()).filePath('.' + file.fileName() + ".saving");
}
} // namespace

void ZOR::clearUnfinishedSave() {
    if (const QString target = dataFileTarget(); !target.isEmpty()) QFile::remove(scratchFor(target));
}

QString ZOR::dataFileTarget() {
    const QFileInfo file(dataFilePath());
    if (!file.isSymLink()) return file.filePath();
    return file.canonicalFilePath(); // the end of the chain of links; empty when it leads nowhere
}

bool ZOR::saveStore() {
    return Guard::run(where("saveStore"), [] {
        if (!QuitSavePaletteChanges || dataFileUnreadable) return false;
        if (DP.empty() || idxCP < 0 || idxCP >= qint64(DP.size())) return false;
        SavePaletteToDP();
        return writeDataFile(JSON_CreateData());
    });
}

bool ZOR::writeDataFile(const QString& text) {
    return Guard::run(where("writeDataFile"), [&] {
        const QString target = dataFileTarget();
        const QString shown = QStringLiteral("Could not save PreserveState.txt: ");
        if (target.isEmpty()) {
            Dialogs::message(shown + "it is a link to " + QFileInfo(dataFilePath()).symLinkTarget() +
                             ", which is not there. Nothing was written.");
            return false;
        }
        // Written whole beside the file it replaces, then renamed over it in one step: a crash or a
        // kill at any instant leaves the old file or the new one. A link stays a link; its target is
        // what is replaced.
        const QFileInfo was(target);
        const QString folder = was.absolutePath();
        const QString scratch = scratchFor(target);
        struct stat st {};
        const bool existed = ::stat(QFile::encodeName(target).constData(), &st) == 0;
        const mode_t mode = existed ? (st.st_mode & 07777) : 0644;
        int error = writeAndSync(scratch, text.toUtf8(), mode);
        if (!error &&
            ::rename(QFile::encodeName(scratch).constData(), QFile::encodeName(target).constData()) != 0)
            error = errno;
        if (!error) return true;
        QFile::remove(scratch);
        Dialogs::message(
            shown + failure(error, folder) + '.' +
            (existed ? QStringLiteral(" The file that was there before is unchanged.") : QString()));
        return false;
    });
}
