#include "pictures/PictureDiskCache.h"

#include "pictures/PictureRead.h"
#include "util/AppGlobals.h"
#include "util/StdFolders.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace PictureDiskCache {

namespace {
constexpr char kMagic[8] = {'Z', 'O', 'R', 'P', 'I', 'C', '4', '\n'};
// Copies are of a button's size: a picture that fits as it stands, or a square of the button.
constexpr qint32 kLargestSide = 1024;
std::atomic<qint64> folderLimit{kDefaultLimit};

// What an entry says about its picture, in the order written.
struct Header {
    char magic[8];
    qint64 size;
    qint64 modifiedNs;
    qint64 changedNs;
    qint32 width;
    qint32 height;
    qint32 format;
    qint32 bytesPerLine;
    qint32 pathBytes;
    qint32 side;       // the button, in device pixels, that the copy was made for
    qint32 ratioMilli; // the copy's device pixel ratio, in thousandths
    qint32 reserved;
};
static_assert(sizeof(Header) == 64);

// A checksum of the whole entry, taken over its parts in turn, eight bytes at a time: a torn or
// altered entry does not match.
constexpr quint64 kSeed = 0x9E3779B97F4A7C15ull, kPrime = 0x100000001B3ull;
quint64 checksum(const char* data, qsizetype n, quint64 h) {
    qsizetype i = 0;
    for (; i + 8 <= n; i += 8) {
        quint64 word;
        std::memcpy(&word, data + i, 8);
        h = (h ^ word) * kPrime;
        h ^= h >> 29;
    }
    for (; i < n; ++i)
        h = (h ^ quint8(data[i])) * kPrime;
    return h;
}
quint64 finish(quint64 h, qsizetype length) {
    return (h ^ quint64(length)) * kPrime;
}

QString entryPath(const QString& folder, const QByteArray& pathUtf8) {
    return folder + '/' +
           QString::fromLatin1(QCryptographicHash::hash(pathUtf8, QCryptographicHash::Sha1).toHex()) + ".pic";
}

bool formatAllowed(qint32 format) {
    return format == QImage::Format_ARGB32_Premultiplied || format == QImage::Format_RGB32;
}
} // namespace

namespace {
qint64 ns(const timespec& t) {
    return qint64(t.tv_sec) * 1'000'000'000 + t.tv_nsec;
}
qint64 modifiedNs(const struct stat& st) {
#ifdef Q_OS_DARWIN
    return ns(st.st_mtimespec);
#else
    return ns(st.st_mtim);
#endif
}
} // namespace

Stamp stampOf(const QString& path) {
    struct stat st {};
    if (::stat(QFile::encodeName(path).constData(), &st) != 0) return {};
#ifdef Q_OS_DARWIN
    const timespec changed = st.st_ctimespec;
#else
    const timespec changed = st.st_ctim;
#endif
    return {modifiedNs(st), ns(changed), qint64(st.st_size)};
}

qint64 limit() {
    return folderLimit;
}

void setLimit(qint64 bytes) {
    folderLimit = bytes;
}

QString folder() {
    const QString caches = StdFolders::caches();
    return caches.isEmpty() ? QString() : caches + '/' + AppGlobals::kAppFolderName + "/ButtonPictures";
}

namespace {
// The entry at `entry` opened and its header read, when it is an entry of this format at all.
bool openHeader(const QString& entry, QFile& file, Header& h) {
    QString why;
    // Unbuffered: the pixels go from the file straight into the picture.
    if (!PictureRead::openRegular(entry, file, &why, QIODevice::Unbuffered) ||
        file.read(reinterpret_cast<char*>(&h), sizeof h) != qint64(sizeof h))
        return false;
    if (std::memcmp(h.magic, kMagic, sizeof kMagic) != 0 || h.width <= 0 || h.height <= 0 ||
        h.width > kLargestSide || h.height > kLargestSide || !formatAllowed(h.format) ||
        h.bytesPerLine != h.width * 4 || h.pathBytes <= 0 || h.pathBytes > 65536 || h.ratioMilli <= 0)
        return false;
    const qsizetype body = qsizetype(sizeof h) + h.pathBytes + qsizetype(h.bytesPerLine) * h.height;
    return file.size() == body + qsizetype(sizeof(quint64));
}

// The entry of `path` opened, its header read and found to describe the file as it is at `stamp`,
// made for buttons of `side`.
bool openEntry(const QString& folder, const QByteArray& pathUtf8, const Stamp& stamp, int side, QFile& file,
               Header& h) {
    if (folder.isEmpty() || !openHeader(entryPath(folder, pathUtf8), file, h)) return false;
    if (h.size != stamp.size || h.modifiedNs != stamp.modified || h.changedNs != stamp.changed ||
        h.side != side || h.pathBytes != pathUtf8.size())
        return false;
    return file.read(h.pathBytes) == pathUtf8;
}

// Marks the entry as used now, for the least recently used to go first.
void renew(QFile& file) {
    ::futimens(file.handle(), nullptr);
}
} // namespace

qint64 keptBytes(const QString& folder, const QString& path, const Stamp& stamp, int side) {
    QFile file;
    Header h;
    return openEntry(folder, path.toUtf8(), stamp, side, file, h) ? file.size() : 0;
}

void renew(const QString& folder, const QString& path) {
    ::utimensat(AT_FDCWD, QFile::encodeName(entryPath(folder, path.toUtf8())).constData(), nullptr, 0);
}

QImage read(const QString& folder, const QString& path, const Stamp& stamp, int side) {
    const QByteArray pathUtf8 = path.toUtf8();
    QFile file;
    Header h;
    if (!openEntry(folder, pathUtf8, stamp, side, file, h)) return {};
    // The pixels go straight into the picture; the checksum covers all that was read.
    QImage image(h.width, h.height, QImage::Format(h.format));
    if (image.isNull() || image.bytesPerLine() != h.bytesPerLine) return {};
    const qint64 pixels = qint64(h.bytesPerLine) * h.height;
    quint64 stored = 0;
    if (file.read(reinterpret_cast<char*>(image.bits()), pixels) != pixels ||
        file.read(reinterpret_cast<char*>(&stored), sizeof stored) != qint64(sizeof stored))
        return {};
    quint64 sum = checksum(reinterpret_cast<const char*>(&h), sizeof h, kSeed);
    sum = checksum(pathUtf8.constData(), pathUtf8.size(), sum);
    sum = checksum(reinterpret_cast<const char*>(image.constBits()), pixels, sum);
    if (stored != finish(sum, qsizetype(sizeof h) + pathUtf8.size() + pixels)) return {};
    renew(file);
    image.setDevicePixelRatio(h.ratioMilli / 1000.0);
    return image;
}

qint64 entryBytes(const QString& path, const QImage& image) {
    return qint64(sizeof(Header)) + path.toUtf8().size() + qint64(image.width()) * 4 * image.height() +
           qint64(sizeof(quint64));
}

qint64 write(const QString& folder, const QString& path, const Stamp& stamp, int side, const QImage& image) {
    if (folder.isEmpty() || image.isNull() || !formatAllowed(image.format()) ||
        image.width() > kLargestSide || image.height() > kLargestSide)
        return 0;
    const QByteArray pathUtf8 = path.toUtf8();
    Header h{};
    std::memcpy(h.magic, kMagic, sizeof kMagic);
    h.size = stamp.size;
    h.modifiedNs = stamp.modified;
    h.changedNs = stamp.changed;
    h.width = image.width();
    h.height = image.height();
    h.format = image.format();
    h.bytesPerLine = image.width() * 4;
    h.pathBytes = qint32(pathUtf8.size());
    h.side = side;
    h.ratioMilli = qRound(image.devicePixelRatio() * 1000);
    const qsizetype pixels = qsizetype(h.bytesPerLine) * h.height;
    QByteArray bytes;
    bytes.reserve(qsizetype(sizeof h) + pathUtf8.size() + pixels + 8);
    bytes.append(reinterpret_cast<const char*>(&h), sizeof h);
    bytes.append(pathUtf8);
    for (int y = 0; y < image.height(); ++y)
        bytes.append(reinterpret_cast<const char*>(image.constScanLine(y)), h.bytesPerLine);
    quint64 sum = checksum(bytes.constData(), qsizetype(sizeof h), kSeed);
    sum = checksum(bytes.constData() + sizeof h, pathUtf8.size(), sum);
    sum = finish(checksum(bytes.constData() + sizeof h + pathUtf8.size(), pixels, sum), bytes.size());
    bytes.append(reinterpret_cast<const char*>(&sum), sizeof sum);
    QDir().mkpath(folder);
    // Written aside and renamed into place, so that a reader never meets half an entry; not
    // synced to disk, as a copy torn by a crash fails its checksum and is only written again.
    const QString entry = entryPath(folder, pathUtf8);
    const QString aside = entry + ".part" + QString::number(quintptr(QThread::currentThreadId()), 16);
    QFile file(aside);
    bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    file.close();
    written = written && file.error() == QFileDevice::NoError;
    if (!written ||
        std::rename(QFile::encodeName(aside).constData(), QFile::encodeName(entry).constData()) != 0) {
        QFile::remove(aside);
        return 0;
    }
    return bytes.size();
}

Sweep::Sweep(const QString& folder, const std::atomic<bool>* stop) {
    if (folder.isEmpty()) return;
    // The time of the sweep's start as the file system gives it, so that it compares with the
    // times of the copies renewed or written after it, whatever the file system's precision.
    QDir().mkpath(folder);
    const QByteArray marker = QFile::encodeName(folder + "/.sweep");
    const int fd = ::open(marker.constData(), O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0600);
    struct stat began {};
    if (fd < 0 || ::futimens(fd, nullptr) != 0 || ::fstat(fd, &began) != 0) {
        if (fd >= 0) ::close(fd);
        return; // a folder that cannot be written is left as it is
    }
    ::close(fd);
    startNs = modifiedNs(began);
    constexpr qint64 kTornAfterNs = 600'000'000'000; // a write that long under way has failed
    QDirIterator it(folder, QDir::Files | QDir::System);
    while (it.hasNext() && !(stop && *stop)) {
        const QString entry = it.next();
        struct stat st {};
        if (::lstat(QFile::encodeName(entry).constData(), &st) != 0) continue;
        const qint64 used = modifiedNs(st);
        QFile file;
        Header h;
        bool keep = entry.endsWith(".pic") && openHeader(entry, file, h);
        if (keep) {
            // Kept only while its picture is as it was when the copy was made.
            const QString path = QString::fromUtf8(file.read(h.pathBytes));
            const Stamp picture = stampOf(path);
            keep =
                h.size == picture.size && h.modifiedNs == picture.modified && h.changedNs == picture.changed;
        } else if (entry.contains(".pic.part") && startNs - used < kTornAfterNs) {
            continue; // a write under way
        }
        file.close();
        if (!keep) {
            QFile::remove(entry);
            continue;
        }
        oldestFirst.append({used, qint64(st.st_size), entry});
        bytes += st.st_size;
    }
    std::sort(oldestFirst.begin(), oldestFirst.end(),
              [](const Entry& a, const Entry& b) { return a.usedNs < b.usedNs; });
}

bool Sweep::makeRoom(qint64 more, qint64 most) {
    while (bytes + more > most) {
        if (next >= oldestFirst.size()) return false;
        const Entry& entry = oldestFirst[next++];
        struct stat st {};
        if (::lstat(QFile::encodeName(entry.path).constData(), &st) != 0) {
            bytes -= entry.bytes; // gone already
            continue;
        }
        if (modifiedNs(st) >= startNs) continue; // used or written since the sweep began
        if (QFile::remove(entry.path)) bytes -= entry.bytes;
    }
    return true;
}

} // namespace PictureDiskCache
