// Pictures are kept decoded, in memory and on disk between runs: a file changed on disk shows as
// it now is, and a damaged kept copy never shows.
#include "pictures/PictureDiskCache.h"
#include "pictures/PictureImport.h"
#include "tst_windows.h"

#include <sys/stat.h>

namespace {
enum class Change { LaterSameSize, SameTimeOtherSize, SameTimeSameSize };

QString picturePath(const TempHome& home) { return home.programFolder() + "/ButtonPictures/P00/05 button.bmp"; }

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
    if (how == Change::LaterSameSize) paint(path, colour, side, before.lastModified().addSecs(2));
    else paint(path, colour, how == Change::SameTimeSameSize ? side : otherSide, before.lastModified());
}

void writeFile(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile out(path);
    QVERIFY(out.open(QIODevice::WriteOnly));
    QCOMPARE(out.write(bytes), bytes.size());
}

QColor shown(const winMain& w) { return w.cnButs[5]->grab().toImage().pixelColor(10, 10); }
} // namespace

class PictureCacheTest : public QObject, ProgramFixture {
    Q_OBJECT
private slots:
    void init() { setUpProgram(); }
    void cleanup() { tearDownProgram(); }

    void changedPictureIsShownChanged_data() {
        QTest::addColumn<Change>("how");
        QTest::newRow("same size, later time") << Change::LaterSameSize;
        QTest::newRow("other size, same time") << Change::SameTimeOtherSize;
        QTest::newRow("same size, same time") << Change::SameTimeSameSize;
    }
    void changedPictureIsShownChanged() {
        QFETCH(Change, how);
        const QString path = picturePath(*home);
        paint(path, Qt::red, 64, QDateTime::currentDateTime().addSecs(-60));
        QCOMPARE(shown(startWith(1, 3, 3)), QColor(Qt::red));
        program->quit();

        change(path, how, Qt::blue);
        program = std::make_unique<Program>();
        winMain& w = startWith(1, 3, 3);
        QCOMPARE(shown(w), QColor(Qt::blue));

        // Within the run: a click on the palette name reloads the folder.
        change(path, how, Qt::green);
        QTest::mouseClick(w.labSeeNum, Qt::LeftButton);
        QCOMPARE(shown(w), QColor(Qt::green));
    }

    void damagedKeptCopyIsNotShown() {
        const QString path = picturePath(*home);
        paint(path, Qt::red, 64, QDateTime::currentDateTime().addSecs(-60));
        QCOMPARE(shown(startWith(1, 3, 3)), QColor(Qt::red));
        const auto kept = [] { return QDir(PictureDiskCache::folder()).entryInfoList({"*.pic"}, QDir::Files); };
        QTRY_COMPARE(kept().size(), 1); // written behind the shown window
        program->quit();

        // The kept copy's pixels turned blue behind the program's back, its checksum left as it was.
        QFile entry(kept().first().filePath());
        QVERIFY(entry.open(QIODevice::ReadWrite));
        QByteArray bytes = entry.readAll();
        QVERIFY(bytes.count(QByteArray("\x00\x00\xff\xff", 4)) >= 64 * 64);
        bytes.replace(QByteArray("\x00\x00\xff\xff", 4), QByteArray("\xff\x00\x00\xff", 4));
        QVERIFY(entry.seek(0));
        QCOMPARE(entry.write(bytes), bytes.size());
        entry.close();

        program = std::make_unique<Program>();
        QCOMPARE(shown(startWith(1, 3, 3)), QColor(Qt::red));
    }

    // While the window idles, other palettes are decoded ahead: Cmd+0 to Cmd+9, the buttons'
    // targets, then the rest.
    void otherPalettesAreDecodedAheadNearestFirst() {
        const QDateTime old = QDateTime::currentDateTime().addSecs(-60);
        const QString folder = home->programFolder() + "/ButtonPictures/P";
        for (const char* palette : {"01", "10", "11"}) paint(folder + palette + "/05 button.bmp", Qt::red, 64, old);
        winMain& w = startWith(12);
        ZOR::aBtn->at(3)->PaletteGo = " 11";
        QTest::mouseClick(w.labSeeNum, Qt::LeftButton); // a redraw, as after any change
        const QList<qint64> nearestFirst{1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 10};
        QCOMPARE(w.palettesToWarm(), nearestFirst);
        // At idle priority: slow on a busy machine.
        QTRY_COMPARE_WITH_TIMEOUT(QDir(PictureDiskCache::folder()).entryList({"*.pic"}).size(), 3, 60000);
    }

    // A chosen file of any size and name becomes button 07's picture; the file itself stays as
    // it was, and the button's earlier picture goes aside to the Desktop, never away.
    void anyPictureBecomesTheButtonsPicture_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("made");     // the button's picture afterwards, empty for none new
        QTest::addColumn<QSize>("drawn");      // the part of the 64 x 64 square that is not transparent
        QTest::addColumn<QString>("error");
        const QSize asItStands(-1, -1);
        QTest::newRow("512 px icon") << "icon.png" << picture(512, 512) << "07 icon.png" << QSize(64, 64) << "";
        QTest::newRow("wide: aspect kept, centred") << "Wide Logo.png" << picture(400, 200) << "07 Wide Logo.png"
                                                    << QSize(64, 32) << "";
        QTest::newRow("4000 x 3000 JPEG") << "photo.jpg" << picture(4000, 3000, Qt::red, "JPG") << "07 photo.png"
                                          << QSize(64, 48) << "";
        QTest::newRow("small: scaled up") << "tiny.png" << picture(16, 16) << "07 tiny.png" << QSize(64, 64) << "";
        QTest::newRow("64 px JPEG as it stands") << "07 cat.JPG" << picture(64, 60, Qt::red, "JPG")
                                                 << "07 cat.jpg" << asItStands << "";
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
        if (source == "pipe.png") QCOMPARE(::mkfifo(QFile::encodeName(chosen).constData(), 0600), 0);
        else writeFile(chosen, bytes);
        startWith(1, 3, 3);
        const QString folder = AppGlobals::folderPathButFolder + "/P00";
        const QByteArray old = picture(64, 64, Qt::blue);
        writeFile(folder + "/07 old.png", old);

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
        QRect opaque;
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x)
                if (qAlpha(image.pixel(x, y)) == 255) opaque |= QRect(x, y, 1, 1);
        QCOMPARE(opaque.size(), drawn);
        QCOMPARE(opaque.center(), QRect(0, 0, 64, 64).center());
    }
};

QTEST_MAIN(PictureCacheTest)
#include "tst_picture_cache.moc"
