#include "pictures/PictureCache.h"

#include "pictures/ButtonPictureFiles.h"
#include "pictures/PictureRead.h"

#include <QGuiApplication>
#include <QSet>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <future>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace {
PictureCache::Decoded decode(const QString& path, int side, const std::atomic<bool>* stop = nullptr) {
    QString why;
    QImage image = PictureRead::forButton(path, side, &why, stop);
    return {std::move(image), why};
}

// The decoded copy of an earlier run, or the file decoded now, which sets `decodedNow`.
PictureCache::Decoded obtain(const QString& folder, const QString& path, const PictureCache::Stamp& stamp,
                             int side, bool& decodedNow, const std::atomic<bool>* stop = nullptr) {
    QImage kept = PictureDiskCache::read(folder, path, stamp, side);
    decodedNow = kept.isNull();
    return decodedNow ? decode(path, side, stop) : PictureCache::Decoded{std::move(kept), {}};
}

// The same, and a picture decoded now is kept for the next run.
PictureCache::Decoded decodeKept(const QString& folder, const QString& path, const PictureCache::Stamp& stamp,
                                 int side) {
    bool decodedNow = false;
    PictureCache::Decoded decoded = obtain(folder, path, stamp, side, decodedNow);
    if (decodedNow && !decoded.image.isNull())
        PictureDiskCache::write(folder, path, stamp, side, decoded.image);
    return decoded;
}
} // namespace

// Files decoded by a few worker threads. Only decoding, and the decoded copies' files, happen
// there: the pixmaps, the cache and every widget stay on the GUI thread.
class DecodeBatch {
public:
    DecodeBatch(const QStringList& paths, int side) : keptFolder(PictureDiskCache::folder()), side(side) {
        for (const QString& path : paths) {
            auto slot = std::make_unique<Slot>();
            slot->path = path;
            slot->stamp = PictureDiskCache::stampOf(path);
            slot->result = slot->done.get_future();
            index.insert(path, files.size());
            files.push_back(std::move(slot));
        }
        const size_t cores = std::max(1u, std::thread::hardware_concurrency());
        const size_t count = std::min({cores, size_t(4), (files.size() + 7) / 8});
        for (size_t i = 0; i < count; ++i)
            workers.emplace_back([this] { work(); });
    }
    ~DecodeBatch() {
        next = files.size(); // no new files; those begun stop at their next read
        {
            const std::lock_guard lock(mutex);
            abandoned = true;
        }
        shownOrGone.notify_all();
        for (std::thread& t : workers)
            t.join();
    }
    bool holds(const QString& path) const { return index.contains(path); }

    // The file's decoded picture, when it is in the batch and unchanged since the batch began.
    std::optional<PictureCache::Decoded> take(const QString& path, const PictureCache::Stamp& now) {
        const auto found = index.constFind(path);
        if (found == index.constEnd()) return std::nullopt;
        Slot& slot = *files[*found];
        index.erase(found);
        if (index.isEmpty()) QTimer::singleShot(kKeepDelayMs, &timers, [this] { settle(); });
        if (!slot.claimed.exchange(true)) {
            // Decoded here, and kept later, as the workers keep theirs: no file is written while
            // the window waits for its pictures.
            bool decodedNow = false;
            PictureCache::Decoded decoded = obtain(keptFolder, slot.path, slot.stamp, side, decodedNow);
            if (decodedNow && !decoded.image.isNull()) keptByWindow.emplace_back(&slot, decoded.image);
            slot.done.set_value(std::move(decoded));
        }
        PictureCache::Decoded decoded = slot.result.get();
        if (slot.stamp != now) return std::nullopt;
        return decoded;
    }

private:
    struct Slot {
        QString path;
        PictureCache::Stamp stamp;
        std::atomic<bool> claimed{false};
        std::promise<PictureCache::Decoded> done;
        std::future<PictureCache::Decoded> result;
    };
    using ToKeep = std::vector<std::pair<const Slot*, QImage>>;
    void work() {
        // The copies for the next run are written a moment after the window has taken every
        // picture: it must not share the cores with them while it draws.
        ToKeep toKeep;
        for (size_t i = next++; i < files.size(); i = next++) {
            Slot& slot = *files[i];
            if (slot.claimed.exchange(true)) continue;
            bool decodedNow = false;
            PictureCache::Decoded decoded =
                obtain(keptFolder, slot.path, slot.stamp, side, decodedNow, &abandoned);
            if (decodedNow && !decoded.image.isNull()) toKeep.emplace_back(&slot, decoded.image);
            slot.done.set_value(std::move(decoded));
        }
        if (toKeep.empty()) return;
        {
            std::unique_lock lock(mutex);
            shownOrGone.wait(lock, [this] { return shown || abandoned; });
        }
        keep(toKeep);
    }
    void keep(const ToKeep& toKeep) {
        for (const auto& [slot, image] : toKeep) {
            if (abandoned) break; // the rest is written when next decoded
            PictureDiskCache::write(keptFolder, slot->path, slot->stamp, side, image);
        }
    }
    static constexpr int kKeepDelayMs = 300;
    void settle() {
        {
            const std::lock_guard lock(mutex);
            shown = true;
        }
        shownOrGone.notify_all();
        if (!keptByWindow.empty())
            workers.emplace_back([this, toKeep = std::move(keptByWindow)] { keep(toKeep); });
    }
    const QString keptFolder;
    const int side;
    std::vector<std::unique_ptr<Slot>> files; // fixed before the workers start
    QHash<QString, size_t> index;             // GUI thread only
    ToKeep keptByWindow;                      // GUI thread only
    std::atomic<size_t> next{0};
    std::mutex mutex; // for the two flags below, and the workers' wait on them
    std::condition_variable shownOrGone;
    bool shown = false;
    QObject timers; // ends the settling timer with the batch
    std::atomic<bool> abandoned{false};
    std::vector<std::thread> workers;
};

namespace {
std::unique_ptr<DecodeBatch>& startBatch() {
    static std::unique_ptr<DecodeBatch> batch;
    return batch;
}
} // namespace

// Decoding ahead on one thread of idle priority: it takes only time that nothing else wants.
// The folders are listed there too, as listing a hundred of them would hold up the window.
class PictureCache::Warmer {
public:
    Warmer(const QString& keptFolder, const QStringList& shown, const QStringList& folders, int side) {
        thread.reset(QThread::create(
            [this, keptFolder, shown, folders, side] { warm(keptFolder, shown, folders, side); }));
        thread->start(QThread::IdlePriority);
    }
    ~Warmer() {
        stop = true;
        thread->wait();
    }

private:
    void warm(const QString& into, const QStringList& shown, const QStringList& folders, int pixels) {
        PictureDiskCache::Sweep kept(into, &stop);
        // The copies wanted most come first and are renewed, so that none of them goes to make
        // room: those of the pictures shown in this run, then of the folders in their order. Once
        // the wanted fill the limit, the rest waits.
        const qint64 limit = PictureDiskCache::limit();
        qint64 wanted = 0;
        QSet<QString> counted;
        const auto want = [&](const QString& path, qint64 bytes) {
            if (wanted + bytes > limit) return false;
            counted.insert(path);
            wanted += bytes;
            return true;
        };
        for (const QString& path : shown) {
            if (stop) return;
            const qint64 bytes =
                PictureDiskCache::keptBytes(into, path, PictureDiskCache::stampOf(path), pixels);
            if (bytes == 0 || counted.contains(path)) continue;
            if (!want(path, bytes)) break;
            PictureDiskCache::renew(into, path);
        }
        for (const QString& folder : folders)
            for (const auto& file : buttonPictureFiles(folder)) {
                if (stop) return;
                const QString& path = file.second;
                if (counted.contains(path)) continue;
                const Stamp stamp = PictureDiskCache::stampOf(path);
                if (const qint64 bytes = PictureDiskCache::keptBytes(into, path, stamp, pixels); bytes > 0) {
                    if (!want(path, bytes)) return finish(kept, limit);
                    PictureDiskCache::renew(into, path);
                    continue;
                }
                const Decoded decoded = decode(path, pixels, &stop);
                if (decoded.image.isNull()) continue;
                const qint64 bytes = PictureDiskCache::entryBytes(path, decoded.image);
                if (wanted + bytes > limit || !kept.makeRoom(bytes, limit)) return finish(kept, limit);
                want(path, kept.added(PictureDiskCache::write(into, path, stamp, pixels, decoded.image)));
            }
        finish(kept, limit);
    }
    // What is not wanted goes, least recently used first, until the folder is within its limit.
    void finish(PictureDiskCache::Sweep& kept, qint64 limit) {
        if (!stop) kept.makeRoom(0, limit);
    }
    std::atomic<bool> stop{false};
    std::unique_ptr<QThread> thread;
};

int PictureCache::buttonSide() {
    const qreal ratio = qGuiApp ? qGuiApp->devicePixelRatio() : 1.0;
    return qRound(PictureRead::kButtonSide * ratio);
}

PictureCache::PictureCache() : batch(std::move(startBatch())) {
    entries.setMaxCost(int(kMemoryLimit / 1024));
}

PictureCache::~PictureCache() = default;

void PictureCache::warmAhead(const QStringList& folders) {
    warmer.reset();
    // Also with no other palette: the sweep of the kept copies comes first.
    warmer = std::make_unique<Warmer>(keptFolder, entries.keys(), folders, side);
}

void PictureCache::prefetchAtStart(const QStringList& paths) {
    startBatch() = paths.isEmpty() ? nullptr : std::make_unique<DecodeBatch>(paths, buttonSide());
}

void PictureCache::prefetch(const QStringList& paths) {
    QStringList wanted;
    // A file met before is left to load, which checks its stamp anyway: a changed picture is rare,
    // and asking each file for its time twice per switch is not.
    for (const QString& path : paths)
        if (!entries.contains(path) && !(batch && batch->holds(path))) wanted << path;
    if (wanted.isEmpty()) return;
    batch.reset(); // its workers are done or nearly so
    batch = std::make_unique<DecodeBatch>(wanted, side);
}

QPixmap PictureCache::load(const QString& path, QString* why) {
    const Stamp now = PictureDiskCache::stampOf(path);
    if (const Entry* found = entries.object(path); found && found->stamp == now) return found->picture;
    std::optional<Decoded> decoded = batch ? batch->take(path, now) : std::nullopt;
    if (!decoded) decoded = decodeKept(keptFolder, path, now, side);
    if (decoded->image.isNull()) {
        *why = decoded->error;
        return {};
    }
    const qint64 bytes = decoded->image.sizeInBytes();
    auto* entry = new Entry{now, QPixmap::fromImage(std::move(decoded->image))};
    const QPixmap picture = entry->picture;
    entries.insert(path, entry, int(std::max<qint64>(1, bytes / 1024)));
    return picture;
}
