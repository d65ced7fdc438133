// Pictures are kept decoded at the size a button shows them, in memory and on disk between runs,
// within the cache folder's limit: a file changed on disk shows as it now is, a damaged kept copy
// never shows, and a file that is no picture (a FIFO among them) never holds anything up.
#include "common/Deadline.h"
#include "pictures/PictureCache.h"
#include "pictures/PictureDiskCache.h"
#include "pictures/PictureImport.h"
#include "pictures/PictureRead.h"
#include "tst_windows.h"
#include "util/StringUtils.h"

#include <sys/stat.h>

namespace {
enum class Change { LaterSameSize, SameTimeOtherSize, SameTimeSameSize, KeptCopyDamaged };

QString picturePath(const TempHome& home) {
    return home.programFolder() + "/ButtonPictures/P00/05 button.bmp";
}

// Uncompressed, so that a picture of the same size gives a file of the same length.
void paint(const QString& path, QColor colour, int side, const QDateTime& modified) {
    QImage picture(side, side, QImage::Format_RGB32);
    picture.fill(colour);
    QDir().mkpath(QFileInfo(path).path());
    QVERIFY(picture.save(path, "BMP"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(modified, QFileDevice::FileModificationTime));
}

void change(const QString& path, Change how, QColor colour) {
    const QFileInfo before(path);
    const int side = before.size() > 10000 ? 64 : 48, otherSide = side == 64 ? 48 : 64;
    if (how == Change::LaterSameSize)
        paint(path, colour, side, before.lastModified().addSecs(2));
    else
        paint(path, colour, how == Change::SameTimeSameSize ? side : otherSide, before.lastModified());
}

QColor shown(const winMain& w) {
    return w.cnButs[5]->grab().toImage().pixelColor(10, 10);
}

qint64 keptBytes(const QString& path) {
    return PictureDiskCache::keptBytes(PictureDiskCache::folder(), path, PictureDiskCache::stampOf(path),
                                       PictureCache::buttonSide());
}

qint64 folderBytes(const QString& folder) {
    qint64 total = 0;
    for (const QFileInfo& entry : QDir(folder).entryInfoList(QDir::Files | QDir::Hidden))
        total += entry.size();
    return total;
}
} // namespace

class PictureCacheTest : public QObject, ProgramFixture {
    Q_OBJECT
private slots:
    void init() { setUpProgram(); }
    void cleanup() {
        tearDownProgram();
        PictureDiskCache::setLimit(PictureDiskCache::kDefaultLimit);
    }

    // A damaged kept copy never shows: its pixels turned blue behind the program's back, its checksum left.
    void changedPictureIsShownChanged_data() {
        QTest::addColumn<Change>("how");
        QTest::newRow("same size, later time") << Change::LaterSameSize;
        QTest::newRow("other size, same time") << Change::SameTimeOtherSize;
        QTest::newRow("same size, same time") << Change::SameTimeSameSize;
        QTest::newRow("kept copy damaged") << Change::KeptCopyDamaged;
    }
    void changedPictureIsShownChanged() {
        QFETCH(Change, how);
        const QString path = picturePath(*home);
        paint(path, Qt::red, 64, QDateTime::currentDateTime().addSecs(-60));
        QCOMPARE(shown(startWith(1, 3, 3)), QColor(Qt::red));
        const auto kept = [] { return QDir(PictureDiskCache::folder()).entryInfoList({"*.pic"}, QDir::Files); };
        QTRY_COMPARE(kept().size(), 1); // written behind the shown window
        program->quit();
        const bool damaged = how == Change::KeptCopyDamaged;
        if (damaged) {
            QFile entry(kept().first().filePath());
            QVERIFY(entry.open(QIODevice::ReadWrite));
            QByteArray bytes = entry.readAll();
            QVERIFY(bytes.count(QByteArray("\x00\x00\xff\xff", 4)) >= 64 * 64);
            bytes.replace(QByteArray("\x00\x00\xff\xff", 4), QByteArray("\xff\x00\x00\xff", 4));
            QVERIFY(entry.seek(0));
            QCOMPARE(entry.write(bytes), bytes.size());
        } else
            change(path, how, Qt::blue);
        program = std::make_unique<Program>();
        winMain& w = startWith(1, 3, 3);
        QCOMPARE(shown(w), damaged ? QColor(Qt::red) : QColor(Qt::blue));
        if (damaged) return;

        // Within the run: a click on the palette name reloads the folder.
        change(path, how, Qt::green);
        QTest::mouseClick(w.labSeeNum, Qt::LeftButton);
        QCOMPARE(shown(w), QColor(Qt::green));
    }

    // While the window idles, other palettes are decoded ahead: Cmd+0 to Cmd+9, the buttons'
    // targets, then the rest.
    void otherPalettesAreDecodedAheadNearestFirst() {
        const QDateTime old = QDateTime::currentDateTime().addSecs(-60);
        const QString folder = home->programFolder() + "/ButtonPictures/P";
        for (const char* palette : {"01", "10", "11"})
            paint(folder + palette + "/05 button.bmp", Qt::red, 64, old);
        winMain& w = startWith(12);
        ZOR::aBtn->at(3)->PaletteGo = " 11";
        QTest::mouseClick(w.labSeeNum, Qt::LeftButton); // a redraw, as after any change
        const QList<qint64> nearestFirst{1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 10};
        QCOMPARE(w.palettesToWarm(), nearestFirst);
        // At idle priority: slow on a busy machine.
        QTRY_COMPARE_WITH_TIMEOUT(QDir(PictureDiskCache::folder()).entryList({"*.pic"}).size(), 3, 60000);
    }

    // A picture of any size is decoded to the size it is shown at, and only that is kept: one of
    // 51 to 69 px as it stands from the button's corner, any other fitted to the button, its
    // aspect kept, centred on a transparent square. The next start shows it from the kept copy.
    void anySizeIsShownAtItsButtonsSize_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QSize>("backdrop");
        QTest::addColumn<QRect>("opaque");
        QTest::newRow("64 x 64 as it stands") << picture(64, 64) << QSize(64, 64) << QRect(0, 0, 64, 64);
        QTest::newRow("51 x 69 from the corner") << picture(51, 69) << QSize(51, 69) << QRect(0, 0, 51, 69);
        QTest::newRow("4000 x 3000 JPEG") << picture(4000, 3000, Qt::red, "JPG") << QSize(64, 64) << QRect(0, 8, 64, 48);
        QTest::newRow("512 x 512") << picture(512, 512) << QSize(64, 64) << QRect(0, 0, 64, 64);
        QTest::newRow("200 x 400, tall") << picture(200, 400) << QSize(64, 64) << QRect(16, 0, 32, 64);
        QTest::newRow("50 x 64") << picture(50, 64) << QSize(64, 64) << QRect(7, 0, 50, 64);
        QTest::newRow("16 x 16, scaled up") << picture(16, 16) << QSize(64, 64) << QRect(0, 0, 64, 64);
    }
    void anySizeIsShownAtItsButtonsSize() {
        QFETCH(QByteArray, bytes);
        QFETCH(QSize, backdrop);
        const QString path = home->writeInProgram("ButtonPictures/P00/05 picture.png", bytes);
        const auto check = [&](const winMain& w) {
            const QImage shownPicture = w.cnButs[5]->backdrop().toImage();
            QCOMPARE(shownPicture.size(), backdrop);
            QTEST(opaquePart(shownPicture), "opaque");
            QCOMPARE(w.hasPicture, QList<int>{5});
        };
        check(startWith(1));
        // Kept at the size shown: a header, the path and 4 bytes a pixel, whatever the file's size.
        const qint64 entry = PictureDiskCache::entryBytes(path, QImage(backdrop, QImage::Format_RGB32));
        QTRY_COMPARE(keptBytes(path), entry);
        QCOMPARE(folderBytes(PictureDiskCache::folder()), entry);
        program->quit();
        program = std::make_unique<Program>();
        check(startWith(1));
    }

    // Files that cannot be shown, a FIFO among them, never hold up a start, a switch, the
    // decoding ahead or the quit; they are told in one message per redraw, each once per run, and
    // their buttons show their numbers.
    void picturesThatCannotBeShownAreToldOnce() {
        const QString p00 = home->programFolder() + "/ButtonPictures/P00/",
                      p01 = home->programFolder() + "/ButtonPictures/P01/";
        home->writeInProgram("ButtonPictures/P00/01 fine.png", picture(64, 64));
        home->writeInProgram("ButtonPictures/P00/12 cut.png", cutShort());
        home->writeInProgram("ButtonPictures/P00/15 text.png", "just text");
        QCOMPARE(::mkfifo(QFile::encodeName(p00 + "07 pipe.png").constData(), 0600), 0);
        QVERIFY(QFile::link(home->home() + "/gone.png", p00 + "22 gone.png"));
        const QString fine = home->writeInProgram("ButtonPictures/P01/04 fine.png", picture(64, 64));
        QCOMPARE(::mkfifo(QFile::encodeName(p01 + "03 pipe.png").constData(), 0600), 0);
        const Deadline deadline(120, "a FIFO among the pictures");
        const QString advice = "\n\nButton Pictures, in the Configure menu, moves such files to "
                               "RemovedZOR_PaletteButtonPictures on the Desktop.";

        winMain& w = startWith(2);
        QTRY_COMPARE(
            dialogs->texts(),
            QStringList{"4 pictures of palette P00 cannot be shown, so their buttons show their numbers:\n\n"
                        "07 pipe.png: it is not a regular file.\n"
                        "12 cut.png: it is damaged, or it is no picture.\n"
                        "15 text.png: it is damaged, or it is no picture.\n"
                        "22 gone.png: it is not there." +
                        advice});
        QCOMPARE(w.hasPicture, QList<int>{1});
        QTest::mouseClick(w.labSeeNum, Qt::LeftButton); // a redraw
        // The palette not shown yet is decoded ahead, past its FIFO.
        QTRY_VERIFY_WITH_TIMEOUT(keptBytes(fine) > 0, 30000);

        ZOR::ChangeToPalette(1);
        ZOR::ChangeToPalette(0);
        ZOR::ChangeToPalette(1);
        QTRY_COMPARE(dialogs->texts().size(), 2);
        QTest::qWait(50);
        QCOMPARE(dialogs->texts().mid(1),
                 QStringList{"A picture of palette P01 cannot be shown, so its button shows its number:\n\n"
                             "03 pipe.png: it is not a regular file." +
                             advice});
        QCOMPARE(w.hasPicture, QList<int>{4});
        program->quit();
    }

    // With room to spare, a copy whose picture is gone goes all the same, while the window idles.
    void copyOfAGonePictureGoes() {
        const QString gone = home->writeInProgram("ButtonPictures/P00/05 gone.png", picture(64, 64));
        const QString stays = home->writeInProgram("ButtonPictures/P00/06 stays.png", picture(64, 64));
        winMain& w = startWith(1);
        QTRY_VERIFY_WITH_TIMEOUT(keptBytes(gone) > 0 && keptBytes(stays) > 0, 30000);
        QVERIFY(QFile::remove(gone));
        QTest::mouseClick(w.labSeeNum, Qt::LeftButton); // a redraw, and a warming after it
        QTRY_COMPARE_WITH_TIMEOUT(QDir(PictureDiskCache::folder()).entryList({"*.pic"}).size(), 1, 30000);
        QVERIFY(keptBytes(stays) > 0);
    }

    // The cache folder keeps to its limit: the copies wanted most (the pictures shown, then the
    // palettes nearest at hand) take the place of the least recently used; copies whose picture
    // is gone, and what is no copy at all, go while the window idles.
    void keptCopiesStayWithinTheLimit() {
        constexpr int kPalettes = 30, kRoom = 12;
        const auto path = [&](int p) {
            return home->programFolder() + "/ButtonPictures/P" + StringUtils::twoDigits(p) + "/05 big.png";
        };
        for (int p = 0; p < kPalettes; ++p)
            home->writeInProgram(path(p).mid(home->programFolder().size() + 1), picture(600, 400));
        const qint64 entry = PictureDiskCache::entryBytes(path(0), QImage(64, 64, QImage::Format_RGB32));
        PictureDiskCache::setLimit(kRoom * entry);
        const QString kept = PictureDiskCache::folder();
        const auto keptPalettes = [&] {
            QList<int> palettes;
            for (int p = 0; p < kPalettes; ++p)
                if (keptBytes(path(p)) > 0) palettes << p;
            return palettes;
        };
        QList<int> nearest;
        for (int p = 0; p < kRoom; ++p)
            nearest << p;

        winMain& w = startWith(kPalettes);
        QTRY_COMPARE_WITH_TIMEOUT(keptPalettes(), nearest, 60000);
        // Another palette shown: its copy is wanted most, and the least recently used goes for it.
        ZOR::ChangeToPalette(25);
        nearest.replace(kRoom - 1, 25);
        QTRY_COMPARE_WITH_TIMEOUT(keptPalettes(), nearest, 60000);
        QVERIFY(folderBytes(kept) <= kRoom * entry);

        // A picture gone, a piece of an old write and a file of no kept format: all go.
        QVERIFY(QFile::remove(path(3)));
        QFile torn(kept + "/1234.pic.part5");
        QVERIFY(torn.open(QIODevice::WriteOnly));
        QVERIFY(
            torn.setFileTime(QDateTime::currentDateTime().addSecs(-3600), QFileDevice::FileModificationTime));
        torn.close();
        home->write(".cache/net.lunvale.ZOR-Palette/ButtonPictures/old.pic", "ZORPIC3\nformer entries");
        QTest::mouseClick(w.labSeeNum, Qt::LeftButton); // a redraw, and a warming after it
        nearest.removeOne(3);
        nearest.insert(kRoom - 2, 11);
        QTRY_COMPARE_WITH_TIMEOUT(keptPalettes(), nearest, 60000);
        QTRY_COMPARE(QDir(kept).entryList(QDir::Files).size(), kRoom);
        QVERIFY(folderBytes(kept) <= kRoom * entry);
    }

    // A chosen file of any size and name becomes button 07's picture; the file itself stays as
    // it was, and the button's earlier picture goes aside to the Desktop, never away.
    void anyPictureBecomesTheButtonsPicture_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("made"); // the button's picture afterwards, empty for none new
        QTest::addColumn<QSize>("drawn");  // the part of the 64 x 64 square that is not transparent
        QTest::addColumn<QString>("error");
        const QSize asItStands(-1, -1);
        QTest::newRow("512 px icon") << "icon.png" << picture(512, 512) << "07 icon.png" << QSize(64, 64)
                                     << "";
        QTest::newRow("wide: aspect kept, centred")
            << "Wide Logo.png" << picture(400, 200) << "07 Wide Logo.png" << QSize(64, 32) << "";
        QTest::newRow("4000 x 3000 JPEG")
            << "photo.jpg" << picture(4000, 3000, Qt::red, "JPG") << "07 photo.png" << QSize(64, 48) << "";
        QTest::newRow("small: scaled up")
            << "tiny.png" << picture(16, 16) << "07 tiny.png" << QSize(64, 64) << "";
        QTest::newRow("64 px JPEG as it stands")
            << "07 cat.JPG" << picture(64, 60, Qt::red, "JPG") << "07 cat.jpg" << asItStands << "";
        QTest::newRow("64 px BMP becomes PNG") << "dots.in.name.bmp" << picture(64, 64, Qt::red, "BMP")
                                               << "07 dots_in_name.png" << QSize(64, 64) << "";
        QTest::newRow("no picture") << "notes.png" << QByteArray("just text") << "" << QSize()
                                    << "The chosen file is supposed to be a picture.";
        QTest::newRow("a pipe") << "pipe.png" << QByteArray() << "" << QSize()
                                << "The chosen file is supposed to be a picture.";
    }
    void anyPictureBecomesTheButtonsPicture() {
        QFETCH(QString, source);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, made);
        QFETCH(QSize, drawn);
        QFETCH(QString, error);
        const QString chosen = home->desktop() + "/Chosen/" + source;
        QDir().mkpath(QFileInfo(chosen).path());
        if (source == "pipe.png")
            QCOMPARE(::mkfifo(QFile::encodeName(chosen).constData(), 0600), 0);
        else
            home->write("Desktop/Chosen/" + source, bytes);
        startWith(1, 3, 3);
        const QString folder = AppGlobals::folderPathButFolder + "/P00";
        const QByteArray old = picture(64, 64, Qt::blue);
        home->writeInProgram("ButtonPictures/P00/07 old.png", old);

        const PictureImport::Result result = PictureImport::makeButtonPicture(chosen, "P00", 7);
        QCOMPARE(result.error, error);
        if (source != "pipe.png") QCOMPARE(readAll(chosen), bytes);
        const QString aside = home->desktop() + "/RemovedZOR_PaletteButtonPictures/P00";
        if (made.isEmpty()) {
            QCOMPARE(namesIn(folder), QStringList{"07 old.png"});
            QVERIFY(!QFileInfo::exists(aside));
            return;
        }
        QCOMPARE(namesIn(folder), QStringList{made});
        QCOMPARE(result.file, folder + '/' + made);
        QCOMPARE(readAll(aside + "/07 old.png"), old);
        const QImage image(result.file);
        if (!drawn.isValid()) {
            QCOMPARE(readAll(result.file), bytes);
            return;
        }
        QCOMPARE(image.size(), QSize(64, 64));
        const QRect opaque = opaquePart(image);
        QCOMPARE(opaque.size(), drawn);
        QCOMPARE(opaque.center(), QRect(0, 0, 64, 64).center());
    }

    // The common PNG (8 bits, RGB or RGBA) is decoded by the program itself, any other kind by
    // Qt's reader: each shows as Qt's reader reads it, and a spoiled one not at all.
    void everyKindOfPngShowsAsQtReadsIt() {
        QImage rgba(64, 64, QImage::Format_ARGB32);
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x) // enough texture for every kind of row filter
                rgba.setPixel(x, y, qRgba(x * 4 ^ y, 255 - y * 4, (x * x * 7 + y * 13) & 255, x > 50 ? 0 : 255 - y));
        const QList<std::pair<QString, QImage>> kinds = {
            {"RGBA", rgba},
            {"RGB", rgba.convertToFormat(QImage::Format_RGB32)},
            {"palette", rgba.convertToFormat(QImage::Format_Indexed8)},
            {"grey", rgba.convertToFormat(QImage::Format_Grayscale8)},
            {"16 bits", rgba.convertToFormat(QImage::Format_RGBA64)},
            {"60 x 51", rgba.copy(0, 0, 60, 51)},
        };
        QStringList paths;
        for (const auto& [kind, image] : kinds) {
            paths << home->home() + '/' + kind + ".png";
            QVERIFY(image.save(paths.last()));
        }
        // Made by hand, a row of each filter in turn, with ties and odd sums for the filters' rules.
        const QString made = ZOR_TESTS_DIR "/fuzz/corpus/png/";
        paths << made + "every_filter_rgba_64x64.png" << made + "every_filter_rgb_60x51.png";
        for (const QString& path : paths) {
            QString why;
            const QImage shown = PictureRead::forButton(path, 64, &why);
            const QImage read(path);
            QVERIFY2(!shown.isNull(), qPrintable(path + ": " + why));
            QCOMPARE(shown, read.convertToFormat(read.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                                        : QImage::Format_RGB32));
        }
        const QByteArray png = readAll(home->home() + "/RGBA.png");
        const qsizetype data = png.indexOf("IDAT"), length = qFromBigEndian<quint32>(png.constData() + data - 4);
        for (const qsizetype spoilt : {data + 10, data + 4 + length}) { // a byte of the data, of its checksum
            QByteArray spoiled = png;
            spoiled[spoilt] = char(spoiled[spoilt] ^ 0x55);
            QString why;
            QVERIFY(PictureRead::forButton(home->write("spoiled.png", spoiled), 64, &why).isNull());
            QCOMPARE(why, "it is damaged, or it is no picture");
        }
    }
};

QTEST_MAIN(PictureCacheTest)
#include "tst_picture_cache.moc"
