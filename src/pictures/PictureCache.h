#pragma once
#include "pictures/PictureDiskCache.h"

#include <QCache>
#include <QImage>
#include <QPixmap>
#include <QString>
#include <QStringList>

#include <memory>

class DecodeBatch;

// Decoded button pictures, so that switching back to a palette does not decode its files again.
// Each is decoded straight to the size a button shows it at (PictureRead::forButton), and only
// that is kept: in memory up to kMemoryLimit, the least recently used going first, and between
// runs in the cache folder, up to PictureDiskCache::limit(). A file counts as the same while its
// size and times are; a changed file is read anew. Files named ahead with prefetch are decoded on
// worker threads, or taken from the decoded copies of earlier runs; load takes each one as it is
// done, or decodes it itself when no worker has begun it yet.
//
// Threads. Every member is called on the GUI thread, and the cache's entries and every QPixmap
// stay there. Beside it run only the few workers of a prefetch, which decode its files, and the
// one thread of idle priority of a warmAhead. They read picture files into QImages and read,
// write and remove the kept copies (PictureDiskCache); never a widget, a pixmap or a member of
// the cache. A worker hands each picture to load through a promise of its own; load waits only
// for a file that a worker has begun. No thread can hang on a file: only regular files are
// opened, and opening never waits. A new prefetch or warmAhead stops what the one before began,
// and so does the cache's end, when the palette window goes at quit: no file is begun any more,
// the one at hand stops at its next read, copies not yet written wait for a later run; then the
// threads are joined, so none outlives the window, and none keeps the quit waiting.
class PictureCache {
public:
    static constexpr qint64 kMemoryLimit = 32 * 1024 * 1024; // bytes of pictures kept in memory

    PictureCache();
    ~PictureCache();
    PictureCache(const PictureCache&) = delete;
    PictureCache& operator=(const PictureCache&) = delete;

    // The picture in `path` as a button shows it; a null pixmap, with `why` in the program's
    // words, when the file cannot be shown.
    QPixmap load(const QString& path, QString* why);
    // Starts decoding the files that are neither cached nor under way.
    void prefetch(const QStringList& paths);
    // The same before any window exists, on the GUI thread: the first cache made adopts the work.
    static void prefetchAtStart(const QStringList& paths);
    // Decodes, at idle priority and folder by folder, those of the folders' pictures that no kept
    // copy of an earlier run holds, and keeps them for the next load, in this run or the next: the
    // pictures of palettes that may be shown next, nearest first. Before that it sweeps the kept
    // copies: those whose picture is gone or changed go. Within the folder's limit, a copy of a
    // nearer picture takes the place of the least recently used; once only copies used in this
    // warming are left, it stops. Stops what an earlier call began.
    void warmAhead(const QStringList& folders);

    // A button's side in device pixels, on the screen of the highest pixel ratio.
    static int buttonSide();

    using Stamp = PictureDiskCache::Stamp;
    struct Decoded {
        QImage image;
        QString error;
    };

private:
    struct Entry {
        Stamp stamp;
        QPixmap picture;
    };
    class Warmer;
    QCache<QString, Entry> entries;
    std::unique_ptr<DecodeBatch> batch;
    std::unique_ptr<Warmer> warmer;
    QString keptFolder = PictureDiskCache::folder();
    int side = buttonSide();
};
