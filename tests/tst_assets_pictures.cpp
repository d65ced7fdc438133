// The button picture window: the audit of the picture folders at opening, and review, removal
// and adding of the current palette's pictures. Nothing the user had may be lost on the way.
#include "assets/AssetControls.h"
#include "assets/winButtonPics.h"
#include "common/Program.h"
#include "help/HelpLabels.h"
#include "palette_window/MainMenuBar.h"
#include "palette_window/winMain.h"
#include "store/ZOR.h"
#include "tst_assets_snapshot.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <QtEndian>

namespace {
const QString kRemoved = "RemovedZOR_PaletteButtonPictures";
const QString kMoved = " is moved to RemovedZOR_PaletteButtonPictures on Desktop.";
const QString kSize = "The file is supposed to be an ~ 64 pixel picture. File: ";

QByteArray picture(int width, int height, const char* format = "PNG") {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(QColor(width % 256, height % 256, 90));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

QByteArray pngChunk(const QByteArray& type, const QByteArray& data) {
    const QByteArray body = type + data;
    quint32 crc = 0xFFFFFFFF;
    for (char c : body) {
        crc ^= quint8(c);
        for (int k = 0; k < 8; ++k)
            crc = (crc >> 1) ^ (0xEDB88320 & (0 - (crc & 1)));
    }
    char length[4], sum[4];
    qToBigEndian(quint32(data.size()), length), qToBigEndian(crc ^ 0xFFFFFFFF, sum);
    return QByteArray(length, 4) + body + QByteArray(sum, 4);
}

// A 20000 x 20000 PNG by its header alone, far too big to decode; the window must not try.
QByteArray pngHuge() {
    char header[13] = {0, 0, 0x4E, 0x20, 0, 0, 0x4E, 0x20, 8, 2}; // bit depth 8, truecolour
    return QByteArray("\x89PNG\r\n\x1a\n", 8) + pngChunk("IHDR", QByteArray(header, 13)) +
           pngChunk("IDAT", QByteArray(16, '\0')) + pngChunk("IEND", {});
}

QStringList rows(const QAbstractItemView* list, int columns = 1) {
    const QAbstractItemModel* model = list->model();
    QStringList out;
    for (int r = 0; r < model->rowCount(); ++r) {
        QStringList cells;
        for (int c = 0; c < columns; ++c)
            cells << model->index(r, c).data().toString();
        out << cells.join('|');
    }
    return out;
}

QStringList names(const QString& folder) {
    QStringList out =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    out.sort();
    return out;
}
} // namespace

class AssetPicturesTest : public QObject, ProgramFixture {
    Q_OBJECT

    QString butFolder() const { return home->programFolder() + "/ButtonPictures"; }
    QString removed() const { return home->desktop() + '/' + kRemoved; }
    QString put(const QString& path, const QByteArray& bytes) const {
        return home->writeInProgram("ButtonPictures/" + path, bytes);
    }
    std::unique_ptr<winButtonPics> open() {
        auto window = std::make_unique<winButtonPics>();
        window->Event_Opening();
        return window;
    }
    static QList<bool> enabled(const winButtonPics& w) {
        return {w.pbAdd->isEnabled(), w.pbCancelAdd->isEnabled(), w.pbSelectPicToAdd->isEnabled(),
                w.pbDone->isEnabled()};
    }

private slots:
    void init() { setUpProgram(); }
    void cleanup() { tearDownProgram(); }

    void auditTakesOutExactlyTheOffenders() {
        startWith(3);
        const QString longName = "16" + QString(249, 'a') + ".png"; // 255 bytes, the longest a name can be
        const QString unicodeName = QString::fromUtf8("15 B\xC3\xA4r \xF0\x9F\x98\x80 caf\xC3\xA9.png");
        const QByteArray ok = picture(64, 64);
        for (const auto& [name, bytes] : QList<std::pair<QString, QByteArray>>{
                 {"01 good.png", ok},          {"02 edge.png", picture(51, 69, "JPG")}, {"03 narrow.png", picture(50, 64)},
                 {"04 tall.png", picture(64, 70)}, {"07.png", "just some text"},      {"08.PNG", ok},
                 {"09.gif", ok},               {"10.old.png", ok},                      {"11a.png", picture(60, 60)},
                 {"11b.png", picture(61, 61)}, {"12 huge.png", pngHuge()},              {"13 empty.png", {}},
                 {unicodeName, picture(70, 70)}, {longName, "not a picture"},           {"7.png", ok}})
            put("P00/" + name, bytes);
        put("P00/.hidden", "kept");
        put("P00/Sub/05.png", "a folder inside is left alone");
        const QString outside = home->write("elsewhere/pic.png", picture(64, 64));
        QFile::link(outside, butFolder() + "/P00/14 link.png");
        put("P01/05 big.png", picture(500, 500));
        put("P01/06.txt", "text");
        put("P01/07.old.png", picture(64, 64));
        put("readme.txt", "loose file");
        put("Pics/01.png", picture(64, 64));
        put("P100/01.png", picture(64, 64));
        put("Q01/01.png", picture(64, 64));
        QFile::link(home->home() + "/nowhere", butFolder() + "/dangling");
        QFile::link(home->home() + "/elsewhere", butFolder() + "/P05"); // a link is never a palette folder
        home->write("Desktop/" + kRemoved + "/03 narrow.png", "was there first");
        home->write("Desktop/" + kRemoved + "/1_03 narrow.png", "was there too");
        const HomeSnapshot before(home->home());
        auto w = open();
        QCOMPARE(dialogs->texts(),
                 QStringList({
                     kSize + "03 narrow.png is too wide and is moved to " + kRemoved + " on Desktop.",
                     kSize + "04 tall.pngis too tall and is moved to " + kRemoved + " on Desktop.",
                     "The file is supposed to be a picture. File: 07.png" + kMoved,
                     kSize + "12 huge.png is too wide and is moved to " + kRemoved + " on Desktop.",
                     "The file is supposed to be a picture. File: 13 empty.png" + kMoved,
                     "The file is supposed to be a picture. File: 14 link.png" + kMoved,
                     kSize + unicodeName + " is too wide and is moved to " + kRemoved + " on Desktop.",
                     "The file is supposed to be a picture. File: " + longName + kMoved,
                     "The file name is supposed to start with two digits. File: 7.png" + kMoved,
                     "There is already a picture for 11 File: 11b.png" + kMoved,
                 }));
        QCOMPARE(names(butFolder()), QStringList({"P00", "P01"}));
        QCOMPARE(names(butFolder() + "/P00"),
                 QStringList({".hidden", "01 good.png", "02 edge.png", "08.PNG", "11a.png", "Sub"}));
        QCOMPARE(names(butFolder() + "/P01"), QStringList({"05 big.png"}));
        QStringList removedRows{"03 narrow.png", "04 tall.png", "06.txt",  "07.old.png",  "07.png",
                                "09.gif",        "10.old.png",  "11b.png", "12 huge.png", "13 empty.png",
                                "14 link.png",   unicodeName,   longName,  "7.png",       "P05",
                                "P100",          "Pics",        "Q01",     "dangling",    "readme.txt"};
        removedRows.sort();
        // The earlier "03 narrow.png" and "1_03 narrow.png" stay; the new one takes the next free number.
        QStringList onDesktop = removedRows + QStringList{"1_03 narrow.png", "2_03 narrow.png"};
        onDesktop.sort();
        QCOMPARE(names(removed()), onDesktop);
        for (const QString link : {"14 link.png", "dangling", "P05"})
            QVERIFY2(QFileInfo(removed() + '/' + link).isSymLink(), qPrintable(link));
        QCOMPARE(HomeSnapshot::lost(before, HomeSnapshot(home->home())), QStringList());

        QCOMPARE(rows(w->lbButPic), QStringList({"01 good.png", "02 edge.png", "08.PNG", "11a.png"}));
        QCOMPARE(rows(w->lbAllButton, 3),
                 QStringList({"P00|01|01 good.png", "P00|02|02 edge.png", "P00|08|08.PNG", "P00|11|11a.png",
                              "P01|05|05 big.png"}));
        QCOMPARE(rows(w->lbRemoved), removedRows);
        QCOMPARE(w->audit->diFile.keys(), QStringList({"01", "02", "08", "11"}));
        QCOMPARE(w->labPathButFolder->text(), QDir::toNativeSeparators(butFolder()));

        // A second audit, as after an add, lists each folder and each removal once.
        dialogs->clear();
        w->PrepareWindow();
        QCOMPARE(dialogs->texts(), QStringList());
        QCOMPARE(w->audit->asButFolders, QStringList({"P00", "P01"}));
        QCOMPARE(rows(w->lbRemoved), removedRows);
    }

    void firstStartMakesTheFoldersQuietly() {
        startWith(3);
        ZOR::ChangeToPalette(2);
        auto w = open();
        QVERIFY(dialogs->requests.isEmpty() && QFileInfo(removed()).isDir());
        QCOMPARE(names(butFolder()), QStringList({"P00", "P02"}));
        QCOMPARE(rows(w->lbAllButton) + rows(w->lbButPic) + rows(w->lbRemoved), QStringList());
        QCOMPARE(w->labCurrentName->text(), QString("P02"));
    }

    void aMoveThatCannotBeDoneLeavesTheFile() {
        startWith(1);
        const QString bad = put("P00/7.png", picture(64, 64));
        QFile::setPermissions(butFolder() + "/P00", QFile::ReadOwner | QFile::ExeOwner);
        auto w = open();
        QFile::setPermissions(butFolder() + "/P00", QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QCOMPARE(dialogs->texts(), QStringList({"The file name is supposed to start with two digits. File: 7.png" + kMoved,
                                                 "Could not move 7.png to " + kRemoved +
                                                     ": the folder P00 cannot be changed. 7.png stays where it was."}));
        QVERIFY(QFileInfo::exists(bad) && rows(w->lbRemoved).isEmpty());
    }

    void choosingAPictureChecksItInOrder_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QStringList>("messages");
        QTest::addColumn<bool>("addable");
        QTest::newRow("good") << "05 new.png" << picture(64, 64) << QStringList() << true;
        QTest::newRow("button taken") << "01 new.png" << picture(64, 64)
                                      << QStringList{"There is already a picture for the button 01"} << false;
        QTest::newRow("no digits")
            << "cat.png" << picture(64, 64)
            << QStringList{"The selected picture must have a name starting with two digits."} << false;
        QTest::newRow("wide") << "05 wide.png" << picture(70, 64)
                              << QStringList{kSize + "05 wide.png is too wide."} << false;
        QTest::newRow("tall") << "05 tall.jpg" << picture(64, 50, "JPG")
                              << QStringList{kSize + "05 tall.jpgis too tall."} << false;
        QTest::newRow("huge, never decoded") << "05 huge.png" << pngHuge()
                                             << QStringList{kSize + "05 huge.png is too wide."} << false;
        QTest::newRow("no picture") << "05 text.png" << QByteArray("text")
                                    << QStringList{"The chosen file is supposed to be a picture."} << false;
    }
    void choosingAPictureChecksItInOrder() {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QStringList, messages);
        QFETCH(bool, addable);
        startWith(1);
        put("P00/01 old.png", picture(64, 64));
        const QString chosen = home->write("Desktop/" + name, bytes);
        auto w = open();
        dialogs->queueFile(chosen);
        w->pbSelectPicToAdd_Pressed();
        QCOMPARE(dialogs->texts(Dialogs::Kind::Message), messages);
        QCOMPARE(w->labPicToAdd->text(), name);
        QCOMPARE(enabled(*w), (QList<bool>{addable, true, false, false}));
        if (!addable) return;
        QCOMPARE(w->labAddWthValue->text() + 'x' + w->labAddHtValue->text(), QString("64x64"));
        w->pbAdd_Pressed();
        QVERIFY(QFileInfo::exists(chosen)); // a copy, never a move
        QCOMPARE(rows(w->lbButPic), QStringList({"01 old.png", name}));
        QCOMPARE(enabled(*w), (QList<bool>{false, false, true, true}));
    }

    void addNeverReplacesAFileOfTheSameName() {
        startWith(1);
        const QString chosen = home->write("Desktop/05 free.png", picture(64, 64));
        auto w = open();
        dialogs->queueFile(chosen);
        w->pbSelectPicToAdd_Pressed();
        dialogs->clear();
        put("P00/05 free.png", "the user's own");
        const HomeSnapshot before(home->home());
        w->pbAdd_Pressed();
        QCOMPARE(dialogs->texts(), QStringList({"A picture with this same name has already been assigned."}));
        w->pbCancelAdd_Pressed();
        QCOMPARE(w->labSelect->text(), QString("Review Picture"));
        QCOMPARE(enabled(*w), (QList<bool>{false, false, true, true}));
        QCOMPARE(HomeSnapshot::lost(before, HomeSnapshot(home->home())), QStringList()); // not on cancel either
    }

    void reviewRemoveAndDone() {
        winMain& main = startWith(1);
        put("P00/01 one.png", picture(64, 64));
        put("P00/02 two.png", picture(60, 52));
        main.EraseAllPictures();
        main.RedrawGrid();
        QVERIFY(main.hasPicture.contains(1));
        auto w = open();
        w->lbButPic_CellPressed(1);
        QCOMPARE(w->labID->text() + ' ' + w->labRevWthValue->text() + 'x' + w->labRevHtValue->text(),
                 QString("02 60x52"));
        QVERIFY(!w->cnShow->backdrop().isNull());
        QTest::mouseClick(w->lbButPic->viewport(), Qt::LeftButton, {},
                          w->lbButPic->visualItemRect(w->lbButPic->topLevelItem(0)).center());
        QCOMPARE(w->labSelect->text(), QString("01 one.png"));
        w->pbToDesktop_Pressed();
        QVERIFY(QFileInfo::exists(removed() + "/P00/01 one.png"));
        QCOMPARE(rows(w->lbButPic) + rows(w->lbRemoved) + rows(w->lbAllButton, 3),
                 QStringList({"02 two.png", "01 one.png", "P00|02|02 two.png"}));
        QVERIFY(!w->pbToDesktop->isEnabled() && w->cnShow->backdrop().isNull());
        w->pbDone_Pressed();
        QVERIFY(!main.hasPicture.contains(1) && main.hasPicture.contains(2));
        QCOMPARE(main.windowTitle(), ZOR::paleWinTitle);
    }

    void menuAndHelp() {
        winMain& main = startWith(1);
        put("P00/7.png", picture(64, 64));
        main.mainMenuBar->miButPic->trigger();
        QVERIFY(dialogs->requests.size() == 2 && dialogs->requests[1].kind == Dialogs::Kind::Window);
        QCOMPARE(dialogs->requests[0].text + '|' + dialogs->requests[1].title, // the audit runs first
                 "The file name is supposed to start with two digits. File: 7.png" + kMoved + "|Button Pictures: " +
                     ZOR::paleWinTitle);
        auto w = open();
        w->pbHelpButGraphics_Pressed({});
        for (QLabel* label : {static_cast<QLabel*>(w->labRSelectPic), static_cast<QLabel*>(w->labAllButton),
                              static_cast<QLabel*>(w->labRemove), static_cast<QLabel*>(w->labPathButFolder)})
            QTest::mouseClick(label, Qt::LeftButton);
        QStringList titles;
        for (const auto& r : dialogs->requests)
            if (r.kind == Dialogs::Kind::Help) titles << r.title;
        QCOMPARE(titles,
                 QStringList({"Button Pictures Overview", "Select Pictures to Add", "All Button Pictures",
                              "Removed From Button Pictures", "Complete Path"}));
    }
};

QTEST_MAIN(AssetPicturesTest)
#include "tst_assets_pictures.moc"
