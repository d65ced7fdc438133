#include "pictures/PictureDiskCache.h"

#include "util/AppGlobals.h"
#include "util/StdFolders.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QThread>

#include <cstdio>
#include <cstring>
#include <sys/stat.h>

namespace PictureDiskCache {

namespace {
constexpr char kMagic[8] = {'Z', 'O', 'R', 'P', 'I', 'C', '3', '\n'};
constexpr qint32 kLargestSide = 4096;

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
    qint32 reserved;
};
static_assert(sizeof(Header) == 56);

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

Stamp stampOf(const QString& path) {
    struct stat st {};
    if (::stat(QFile::encodeName(path).constData(), &st) != 0) return {};
#ifdef Q_OS_DARWIN
    const timespec modified = st.st_mtimespec, changed = st.st_ctimespec;
#else
    const timespec modified = st.st_mtim, changed = st.st_ctim;
#endif
    const auto ns = [](const timespec& t) { return qint64(t.tv_sec) * 1'000'000'000 + t.tv_nsec; };
    return {ns(modified), ns(changed), qint64(st.st_size)};
}

QString folder() {
    const QString caches = StdFolders::caches();
    return caches.isEmpty() ? QString() : caches + '/' + AppGlobals::kAppFolderName + "/ButtonPictures";
}

namespace {
// The entry of `path` opened, its header read and found to describe the file as it is at `stamp`.
bool openEntry(const QString& folder, const QByteArray& pathUtf8, const Stamp& stamp, QFile& file,
               Header& h) {
    if (folder.isEmpty()) return false;
    file.setFileName(entryPath(folder, pathUtf8));
    // Unbuffered: the pixels go from the file straight into the picture.
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ||
        file.read(reinterpret_cast<char*>(&h), sizeof h) != qint64(sizeof h))
        return false;
    if (std::memcmp(h.magic, kMagic, sizeof kMagic) != 0 || h.size != stamp.size ||
        h.modifiedNs != stamp.modified || h.changedNs != stamp.changed)
        return false;
    if (h.width <= 0 || h.height <= 0 || h.width > kLargestSide || h.height > kLargestSide ||
        !formatAllowed(h.format) || h.bytesPerLine != h.width * 4 || h.pathBytes != pathUtf8.size())
        return false;
    const qsizetype body = qsizetype(sizeof h) + h.pathBytes + qsizetype(h.bytesPerLine) * h.height;
    return file.size() == body + qsizetype(sizeof(quint64)) && file.read(h.pathBytes) == pathUtf8;
}
} // namespace

bool holds(const QString& folder, const QString& path, const Stamp& stamp) {
    QFile file;
    Header h;
    return openEntry(folder, path.toUtf8(), stamp, file, h);
}

QImage read(const QString& folder, const QString& path, const Stamp& stamp) {
    const QByteArray pathUtf8 = path.toUtf8();
    QFile file;
    Header h;
    if (!openEntry(folder, pathUtf8, stamp, file, h)) return {};
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
    return stored == finish(sum, qsizetype(sizeof h) + pathUtf8.size() + pixels) ? image : QImage();
}

void write(const QString& folder, const QString& path, const Stamp& stamp, const QImage& image) {
    if (folder.isEmpty() || image.isNull() || !formatAllowed(image.format()) ||
        image.width() > kLargestSide || image.height() > kLargestSide)
        return;
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
        std::rename(QFile::encodeName(aside).constData(), QFile::encodeName(entry).constData()) != 0)
        QFile::remove(aside);
}

} // namespace PictureDiskCache
