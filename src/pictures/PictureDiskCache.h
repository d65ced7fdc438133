#pragma once
#include <QImage>
#include <QString>

// Decoded button pictures kept in the platform's cache folder between runs, so that a start
// shows its palette without decoding the files again. An entry names its picture file by path,
// size, modification and status-change times, and holds a checksum of all it says: an entry that
// differs in any of them is not used, so a changed or damaged entry never shows a wrong picture.
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
// Whether a picture decoded earlier from `path` as it is at `stamp` is kept (its pixels unchecked).
bool holds(const QString& folder, const QString& path, const Stamp& stamp);
// The picture decoded earlier from `path` as it was at `stamp`, or a null image.
QImage read(const QString& folder, const QString& path, const Stamp& stamp);
// Keeps `image` for the next run; a failure to write only loses the time it would have saved.
void write(const QString& folder, const QString& path, const Stamp& stamp, const QImage& image);

} // namespace PictureDiskCache
