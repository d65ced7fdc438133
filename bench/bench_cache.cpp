// The cache folder of decoded pictures after the palette window has idled over 100 palettes of
// large pictures (two 4000 x 3000 JPEGs and a 512 x 512 PNG in each): how long the decoding ahead
// took, the folder's size against its limit (set low, so that the limit is reached), which
// palettes' copies are kept, and that once the pictures of ten kept palettes are deleted, no copy
// of them is left after the next idle.
#include "FullStore.h"
#include "app/App.h"
#include "palette_window/winMain.h"
#include "pictures/PictureCache.h"
#include "pictures/PictureDiskCache.h"
#include "util/AppGlobals.h"
#include "util/FileTools.h"
#include "util/StdFolders.h"
#include "util/StringUtils.h"

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>

namespace {
constexpr int kPalettes = 100;
const QStringList kNames = {"05 photo.jpg", "06 icon.png", "07 photo.jpg"};

QByteArray encoded(int width, int height, const char* format) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x * 255 / width, y * 255 / height, (x ^ y) & 255));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

QString picturePath(const QString& support, int palette, const QString& name) {
    return support + "/ButtonPictures/P" + StringUtils::twoDigits(palette) + '/' + name;
}

// The copies and their bytes; the sweep's marker is no copy.
std::pair<int, qint64> folderState(const QString& folder) {
    int files = 0;
    qint64 bytes = 0;
    for (const QFileInfo& entry : QDir(folder).entryInfoList(QDir::Files))
        ++files, bytes += entry.size();
    return {files, bytes};
}

// Idles until the folder has not changed for two seconds; the milliseconds idled until its last change.
double idleUntilSettled(const QString& folder) {
    QElapsedTimer idle, still;
    idle.start();
    still.start();
    double lastChange = 0;
    auto state = folderState(folder);
    while (still.elapsed() < 2000 && idle.elapsed() < 180000) {
        QTest::qWait(50);
        if (const auto now = folderState(folder); now != state) {
            state = now;
            lastChange = double(idle.elapsed());
            still.restart();
        }
    }
    return lastChange;
}
} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir home;
    qputenv("HOME", home.path().toUtf8());
    qputenv("XDG_DATA_HOME", (home.path() + "/share").toUtf8());
    qputenv("XDG_CACHE_HOME", (home.path() + "/cache").toUtf8());
    const QString support = StdFolders::applicationSupport() + '/' + AppGlobals::kAppFolderName;
    const QByteArray photo = encoded(4000, 3000, "JPG"), icon = encoded(512, 512, "PNG");
    for (int p = 0; p < kPalettes; ++p) {
        QDir().mkpath(QFileInfo(picturePath(support, p, {})).path());
        for (const QString& name : kNames) {
            QFile f(picturePath(support, p, name));
            if (!f.open(QIODevice::WriteOnly)) return 1;
            f.write(name.endsWith(".png") ? icon : photo);
        }
    }
    buildFullStore(0);
    AppGlobals::appSupportFolder = support;
    FileTools::StringToFileItem(ZOR::JSON_CreateData(), "PreserveState", support);
    ZOR::resetStore();
    AppGlobals::appSupportFolder.clear();

    QApplication app(argc, argv);
    const QString kept = PictureDiskCache::folder();
    const qint64 entry = PictureDiskCache::entryBytes(picturePath(support, 0, kNames[0]),
                                                      QImage(64, 64, QImage::Format_RGB32));
    const qint64 limit = 120 * entry; // room for the copies of 40 palettes
    PictureDiskCache::setLimit(limit);
    const std::unique_ptr<winMain> window = App::startPaletteWindow();
    const double warmedMs = idleUntilSettled(kept);

    const int side = PictureCache::buttonSide();
    const auto keptPalettes = [&] {
        QList<int> palettes;
        int copies = 0;
        for (int p = 0; p < kPalettes; ++p) {
            int here = 0;
            for (const QString& name : kNames) {
                const QString path = picturePath(support, p, name);
                here += PictureDiskCache::keptBytes(kept, path, PictureDiskCache::stampOf(path), side) > 0;
            }
            copies += here;
            if (here > 0) palettes << p;
        }
        return std::pair{palettes, copies};
    };
    // "P00, P11 to P49 (40 palettes)"
    const auto describe = [](const QList<int>& palettes) {
        QStringList runs;
        for (qsizetype i = 0; i < palettes.size();) {
            qsizetype j = i;
            while (j + 1 < palettes.size() && palettes[j + 1] == palettes[j] + 1)
                ++j;
            const QString first = 'P' + StringUtils::twoDigits(palettes[i]);
            runs << (j == i ? first : first + " to P" + StringUtils::twoDigits(palettes[j]));
            i = j + 1;
        }
        return runs.join(", ") + " (" + QString::number(palettes.size()) + " palettes)";
    };
    auto [palettes, copies] = keptPalettes();
    auto [files, bytes] = folderState(kept);
    std::printf("cache folder after idling over %d palettes of 3 large pictures (two 4000 x 3000 JPEGs, one "
                "512 x 512 PNG)\n",
                kPalettes);
    std::printf("  decoding ahead settled after     %8.0f ms of idling\n", warmedMs);
    std::printf("  folder                           %8lld bytes in %d files; limit %lld bytes (%s)\n",
                qlonglong(bytes), files, qlonglong(limit), bytes <= limit ? "within" : "OVER THE LIMIT");
    std::printf("  copies of live pictures          %8d, each %lld bytes; kept for %s\n", copies,
                qlonglong(entry), qPrintable(describe(palettes)));

    // The pictures of ten kept palettes deleted: their copies go at the next idle, and others take their
    // room.
    for (int p = 1; p <= 10; ++p)
        for (const QString& name : kNames)
            QFile::remove(picturePath(support, p, name));
    window->RedrawGrid();
    idleUntilSettled(kept);
    std::tie(palettes, copies) = keptPalettes();
    std::tie(files, bytes) = folderState(kept);
    std::printf("  after deleting the pictures of P01 to P10 and idling again:\n");
    std::printf("  folder                           %8lld bytes in %d files (%s)\n", qlonglong(bytes), files,
                bytes <= limit ? "within the limit" : "OVER THE LIMIT");
    std::printf("  copies of live pictures          %8d; kept for %s; copies of no live picture: %d\n",
                copies, qPrintable(describe(palettes)), files - copies);
    return bytes <= limit && files == copies ? 0 : 1;
}
