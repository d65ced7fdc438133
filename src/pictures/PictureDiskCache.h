#pragma once
#include <QImage>
#include <QString>

#include <atomic>

// Decoded button pictures kept in the platform's cache folder between runs, so that a start
// shows its palette without decoding the files again. An entry names its picture file by path,
// size, modification and status-change times, and the button size it was made for, and holds a
// checksum of all it says: an entry that differs in any of them is not used, so a changed or
// damaged entry never shows a wrong picture. Each use of an entry renews its time, so that the
// least recently used go first when the folder outgrows its limit.
// Safe to use from worker threads: it touches no widget and no shared state.
namespace PictureDiskCache {

// Times in nanoseconds since 1970, as the file system keeps them.
struct Stamp {
    qint64 modified = 0;
    qint64 changed = 0; // the status-change time: a file written anew changes it, whatever its dates say
    qint64 size = -1;   // -1: no such file
    bool operator==(const Stamp&) const = default;
};
// The stamp of the file at `path` as it is now. Asked of the file system directly: a start asks
// it of every picture of the palette twice, and dates in local time would cost ten times more.
Stamp stampOf(const QString& path);

// The folder of the entries, asked on the GUI thread; empty when there is no cache folder.
QString folder();
// The most the folder holds, in bytes; a test may set it lower.
inline constexpr qint64 kDefaultLimit = 64 * 1024 * 1024;
qint64 limit();
void setLimit(qint64 bytes);

// The bytes of the copy of a picture decoded earlier from `path` as it is at `stamp`, for buttons
// of `side` device pixels (its pixels unchecked); 0 when none is kept.
qint64 keptBytes(const QString& folder, const QString& path, const Stamp& stamp, int side);
// Marks the copy of `path` as used now.
void renew(const QString& folder, const QString& path);
// That picture, or a null image. Its copy counts as used now.
QImage read(const QString& folder, const QString& path, const Stamp& stamp, int side);
// Keeps `image` for the next run; a failure to write only loses the time it would have saved.
// The bytes the entry takes on disk, 0 when nothing was written.
qint64 write(const QString& folder, const QString& path, const Stamp& stamp, int side, const QImage& image);
// The bytes an entry of `image` for `path` takes.
qint64 entryBytes(const QString& path, const QImage& image);

// The folder's entries, least recently used first, for keeping the folder within its limit.
// Made by a sweep, which removes on the way what can never be used again: entries whose picture
// file is gone, entries of another format or torn, and pieces of writes that never finished.
class Sweep {
public:
    // Stops early, leaving the rest for the next sweep, once `stop` is set.
    Sweep(const QString& folder, const std::atomic<bool>* stop = nullptr);
    qint64 total() const { return bytes; }
    // Removes entries, oldest use first, until `more` bytes fit within `limit`; entries used
    // since the sweep began (renewed or written) are left alone. False when they are all that is left.
    bool makeRoom(qint64 more, qint64 limit);
    qint64 added(qint64 more) {
        bytes += more;
        return more;
    }

private:
    struct Entry {
        qint64 usedNs;
        qint64 bytes;
        QString path;
    };
    QList<Entry> oldestFirst;
    qsizetype next = 0;
    qint64 bytes = 0;
    qint64 startNs = 0; // as the file system's times go
};

} // namespace PictureDiskCache
