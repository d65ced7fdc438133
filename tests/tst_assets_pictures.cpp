// The button picture window: the audit of the picture folders at opening, and review, removal
// and adding of the current palette's pictures. Nothing the user had may be lost on the way.
#include "assets/AssetControls.h"
#include "assets/winButtonPics.h"
#include "tst_windows.h"

namespace {
const QString kRemoved = "RemovedZOR_PaletteButtonPictures";
const QString kSize = "The file is supposed to be an ~ 64 pixel picture. File: ";
const QString kNoPicture = "The file is supposed to be a picture. File: ";
const QString kWide = " is too wide and is moved to ";

// The audit's message for a file it moves.
QString moved(const QString& what, const QString& how = " is moved to ") {
    return what + how + kRemoved + " on Desktop.";
}

enum class Mover { Audit, Remove, DeletePalette };

// A 20000 x 20000 picture by its header alone, far too big to decode; the window must not try.
QByteArray huge() {
    QByteArray bytes = picture(1, 1, Qt::red, "JPG");
    char* frame = bytes.data() + bytes.indexOf("\xFF\xC0") + 5; // the frame header's height and width
    qToBigEndian<quint16>(20000, frame);
    qToBigEndian<quint16>(20000, frame + 2);
    return bytes;
}
} // namespace

class AssetPicturesTest : public WindowTest {
    Q_OBJECT

    QString butFolder() const { return home->programFolder() + "/ButtonPictures"; }
    QString removed() const { return home->desktop() + '/' + kRemoved; }
    QString put(const QString& path, const QByteArray& bytes) const {
        return home->writeInProgram("ButtonPictures/" + path, bytes);
    }
    static QList<bool> enabled(const winButtonPics& w) {
        return {w.pbAdd->isEnabled(), w.pbCancelAdd->isEnabled(), w.pbSelectPicToAdd->isEnabled(),
                w.pbDone->isEnabled()};
    }

private slots:
    void auditTakesOutExactlyTheOffenders() {
        startWith(3);
        const QString longName = "16" + QString(249, 'a') + ".png"; // 255 bytes, the longest a name can be
        const QString unicode = QString::fromUtf8("15 B\xC3\xA4r \xF0\x9F\x98\x80 caf\xC3\xA9.png");
        const QByteArray ok = picture(64, 64);
        // clang-format off
        const QList<std::pair<QString, QByteArray>> files{
            {"P00/01 good.png", ok}, {"P00/02 edge.png", picture(51, 69, Qt::red, "JPG")}, {"P00/03 narrow.png", picture(50, 64)},
            {"P00/04 tall.png", picture(64, 70)}, {"P00/07.png", "just some text"}, {"P00/08.PNG", ok},
            {"P00/09.gif", ok}, {"P00/10.old.png", ok}, {"P00/11a.png", picture(60, 60)}, {"P00/11b.png", picture(61, 61)},
            {"P00/12 huge.png", huge()}, {"P00/13 empty.png", {}}, {"P00/" + unicode, picture(70, 70)},
            {"P00/" + longName, "no picture"}, {"P00/17 cut.png", cutShort()}, {"P00/7.png", ok}, {"P00/.hidden", "kept"},
            {"P00/Sub/05.png", "a folder inside is left alone"}, {"P01/05 big.png", picture(500, 500)},
            {"P01/06.txt", "text"}, {"P01/07.old.png", ok}, {"readme.txt", "loose file"}, {"Pics/01.png", ok},
            {"P100/01.png", ok}, {"Q01/01.png", ok}, {"p02/03 lower.png", ok}, {"P03/01.png", ok}, {"p03/02.png", ok}};
        // clang-format on
        for (const auto& [path, bytes] : files)
            put(path, bytes);
        // A link is what it leads to: a picture, or a palette's folder kept elsewhere.
        QFile::link(home->write("elsewhere/pic.png", ok), butFolder() + "/P00/14 link.png");
        QFile::link(home->home() + "/nowhere", butFolder() + "/dangling");
        home->write("synced/05 synced.png", ok);
        QFile::link(home->home() + "/synced", butFolder() + "/P05");
        home->write("Desktop/" + kRemoved + "/03 narrow.png", "was there first");
        home->write("Desktop/" + kRemoved + "/1_03 narrow.png", "was there too");
        const HomeFiles before = snapshot(home->home());
        auto w = opened<winButtonPics>();
        QCOMPARE(dialogs->texts(),
                 QStringList({moved(kSize + "03 narrow.png", kWide),
                              moved(kSize + "04 tall.png", "is too tall and is moved to "),
                              moved(kNoPicture + "07.png"), moved(kSize + "12 huge.png", kWide),
                              moved(kNoPicture + "13 empty.png"), moved(kSize + unicode, kWide),
                              moved(kNoPicture + longName), moved(kNoPicture + "17 cut.png"),
                              moved("The file name is supposed to start with two digits. File: 7.png"),
                              moved("There is already a picture for 11 File: 11b.png")}));
        // "p03" goes as the second folder of P03: on the Mac's disks the two are one.
        const QStringList removedRows{"03 narrow.png", "04 tall.png",  "06.txt",     "07.old.png",
                                      "07.png",        "09.gif",       "10.old.png", "11b.png",
                                      "12 huge.png",   "13 empty.png", unicode,      longName,
                                      "17 cut.png",    "7.png",        "P100",       "Pics",
                                      "Q01",           "dangling",     "p03",        "readme.txt"};
        // The earlier "03 narrow.png" and "1_03 narrow.png" stay; the new one takes the next free number.
        QStringList onDesktop = removedRows + QStringList{"1_03 narrow.png", "2_03 narrow.png"};
        onDesktop.sort();
        QCOMPARE(
            QDir(removed()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot, QDir::Name),
            onDesktop);
        QCOMPARE(lostSince(before, home->home()), QStringList()); // links too, by their targets

        QCOMPARE(rows(w->lbButPic) + rows(w->lbAllButton, {0, 1, 2}) + rows(w->lbRemoved),
                 QStringList({"01 good.png", "02 edge.png", "08.PNG", "11a.png", "14 link.png",
                              "P00|01|01 good.png", "P00|02|02 edge.png", "P00|08|08.PNG", "P00|11|11a.png",
                              "P00|14|14 link.png", "P01|05|05 big.png", "P03|01|01.png",
                              "P05|05|05 synced.png", "p02|03|03 lower.png"}) +
                     removedRows);
        QCOMPARE(w->labPathButFolder->text(), QDir::toNativeSeparators(butFolder()));

        // A second audit, as after an add, lists each folder and each removal once.
        dialogs->clear();
        w->PrepareWindow();
        QCOMPARE(dialogs->texts() + w->audit->asButFolders + rows(w->lbRemoved),
                 QStringList({"P00", "P01", "P03", "P05", "p02"}) + removedRows);
    }

    void aMoveThatCannotBeDoneLeavesTheFile() {
        startWith(1);
        const QString bad = put("P00/7.png", picture(64, 64));
        QFile::setPermissions(butFolder() + "/P00", QFile::ReadOwner | QFile::ExeOwner);
        auto w = opened<winButtonPics>();
        QFile::setPermissions(butFolder() + "/P00", QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        // Never a word that it moved: once, what stays where it was, and why.
        QCOMPARE(
            dialogs->texts(),
            QStringList(
                {"This breaks the rules of the picture folders but could not be moved to " + kRemoved +
                 " on the Desktop, so it stays where it was:\n7.png: the folder P00 cannot be changed."}));
        QVERIFY(QFileInfo::exists(bad));
        QCOMPARE(rows(w->lbRemoved), QStringList());
    }

    // A file of the user's where the Desktop folder should be: each way of moving pictures there
    // says once what failed and what stays, and claims no move.
    void aFileWhereTheDesktopFolderShouldBe_data() {
        QTest::addColumn<Mover>("mover");
        QTest::addColumn<QString>("said");
        const QString blocked = "a file named " + kRemoved + " stands where that folder should be";
        QTest::newRow("audit")
            << Mover::Audit
            << "Nothing could be moved to " + kRemoved + " on the Desktop: " + blocked +
                   ". These break the rules of the picture folders and stay where they were:\n"
                   "03 narrow.png\n7.png\nreadme.txt";
        QTest::newRow("remove") << Mover::Remove
                                << "Could not move 01 one.png to " + kRemoved +
                                       " on the Desktop: " + blocked + ". 01 one.png stays where it was.";
        QTest::newRow("delete palette")
            << Mover::DeletePalette
            << "ERROR MESSAGE: The pictures of P01 could not be moved to " + kRemoved +
                   " on the Desktop: " + blocked + ". The palette and its pictures stay as they were.";
    }
    void aFileWhereTheDesktopFolderShouldBe() {
        QFETCH(Mover, mover);
        QFETCH(QString, said);
        startWith(2);
        put("P00/01 one.png", picture(64, 64));
        put("P01/01 one.png", picture(64, 64));
        if (mover == Mover::Audit) {
            put("P00/03 narrow.png", picture(50, 64));
            put("P00/7.png", picture(64, 64));
            put("readme.txt", "loose");
        }
        std::unique_ptr<winButtonPics> w;
        if (mover == Mover::Remove) w = opened<winButtonPics>();
        if (mover == Mover::DeletePalette) ZOR::ChangeToPalette(1); // a switch saves the data file
        QDir(home->desktop()).rmdir(kRemoved); // made empty by the audit
        home->write("Desktop/" + kRemoved, "the user's own file");
        // The kept copies of the pictures in the cache folder aside, every file stays as it was.
        const auto files = [&] {
            return snapshot(home->desktop()).toStdMap(), snapshot(home->programFolder());
        };
        const HomeFiles before = files();
        if (mover == Mover::Audit) w = opened<winButtonPics>();
        if (mover == Mover::Remove) {
            w->lbButPic_CellPressed(0);
            w->pbToDesktop_Pressed();
            QCOMPARE(rows(w->lbButPic), QStringList{"01 one.png"});
        }
        if (mover == Mover::DeletePalette) {
            QVERIFY(!ZOR::deleteActivePalette());
            QCOMPARE(ZOR::paleName, QString("P01"));
        }
        QCOMPARE(dialogs->texts().size(), 1);
        QVERIFY2(dialogs->texts()[0].endsWith(said), qPrintable(dialogs->texts()[0]));
        if (w) QCOMPARE(rows(w->lbRemoved), QStringList());
        QCOMPARE(files(), before);
    }

    // A picture of another size than about 64 px is not refused outright: a 64 x 64 copy is
    // offered, and the chosen file stays as it was.
    void choosingAPictureChecksItInOrder_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("message"); // a plain message, if any
        QTest::addColumn<QString>("offer");   // the offer of a copy, if any
        QTest::addColumn<bool>("takeCopy");
        QTest::addColumn<QString>("added"); // the file Add makes; empty when Add is disabled
        QTest::addColumn<QRect>("drawn");   // the opaque part of a copy; none for a file copied as it is
        const QString tooWide = " is too wide.";
        // clang-format off
        const auto row = [](const char* why, const QString& name, const QByteArray& bytes, const QString& message,
                            const QString& offer, const QString& added, QRect drawn = {}) {
            QTest::newRow(why) << name << bytes << message << offer << drawn.isValid() << added << drawn;
        };
        row("good", "05 new.png", picture(64, 64), "", "", "05 new.png");
        row("taken", "01 new.png", picture(64, 64), "There is already a picture for the button 01", "", "");
        row("no digits", "cat.png", picture(64, 64), "The selected picture must have a name starting with two digits.", "", "");
        row("wide, no copy", "05 wide.png", picture(70, 64), "", kSize + "05 wide.png" + tooWide, "");
        row("tall, no copy", "05 tall.jpg", picture(64, 50, Qt::red, "JPG"), "", kSize + "05 tall.jpgis too tall.", "");
        row("512 px icon, copy", "05 icon.png", picture(512, 512), "", kSize + "05 icon.png" + tooWide, "05 icon.png", QRect(0, 0, 64, 64));
        row("4000 x 3000 JPEG, copy", "05 photo.jpg", picture(4000, 3000, Qt::red, "JPG"), "", kSize + "05 photo.jpg" + tooWide, "05 photo.png", QRect(0, 8, 64, 48));
        row("tall, copy", "05 tall.png", picture(60, 80), "", kSize + "05 tall.pngis too tall.", "05 tall.png", QRect(8, 0, 48, 64));
        const QString nameEnding = "A button's picture must have a name that ends in .png, .jpeg or .jpg and holds no "
                                   "other dot, such as 05 Mail.png. Rename the file in the Finder and choose it again.";
        for (const char* kind : {"jfif", "jpe", "old.png", "jpeg", "jpg", "JPG", "PNG", "Jpeg"}) { // every kind the chooser lets through
            const bool kept = QRegularExpression("^(png|jpe?g)$", QRegularExpression::CaseInsensitiveOption).match(kind).hasMatch();
            row(kind, QString("05 a.") + kind, picture(64, 64, Qt::red, QString(kind).contains('P') ? "PNG" : "JPG"),
                kept ? "" : nameEnding, "", kept ? QString("05 a.") + kind : "");
        }
        row("wide, named .jpe, copy", "05 wide.jpe", picture(70, 64, Qt::red, "JPG"), "", kSize + "05 wide.jpe" + tooWide, "05 wide.png", QRect(0, 3, 64, 58));
        row("no picture", "05 text.png", QByteArray("text"), "The chosen file is supposed to be a picture.", "", "");
        // clang-format on
    }
    void choosingAPictureChecksItInOrder() {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, message);
        QFETCH(QString, offer);
        QFETCH(bool, takeCopy);
        QFETCH(QString, added);
        QFETCH(QRect, drawn);
        startWith(1);
        put("P00/01 old.png", picture(64, 64));
        const QString chosen = home->write("Desktop/" + name, bytes);
        auto w = opened<winButtonPics>();
        dialogs->queueFile(chosen);
        if (takeCopy) dialogs->queue({1, true, {}});
        w->pbSelectPicToAdd_Pressed();
        QCOMPARE(dialogs->texts(Dialogs::Kind::Message),
                 message.isEmpty() ? QStringList() : QStringList{message});
        QCOMPARE(dialogs->questions(), offer.isEmpty() ? QStringList() : QStringList{offer + " → Make a 64 x 64 copy"});
        if (!offer.isEmpty())
            QCOMPARE(dialogs->requests.last().detail,
                     "A copy of it can be made instead: 64 x 64 pixels, smoothly scaled with its proportions kept and "
                     "centred on a transparent square, saved as a PNG picture of button 05. The file you chose stays as it is.");
        QCOMPARE(w->labPicToAdd->text() + '|' + w->labID_Add->text(), name + '|' + (name.front().isDigit() ? name.left(2) : ""));
        QCOMPARE(enabled(*w), (QList<bool>{!added.isEmpty(), true, false, false}));
        if (added.isEmpty()) return;
        const QImage original = QImage::fromData(bytes);
        QCOMPARE(w->labAddWthValue->text() + 'x' + w->labAddHtValue->text(),
                 QString::number(original.width()) + 'x' + QString::number(original.height()));
        QCOMPARE(w->cnShowPicAdd->backdrop().size(), drawn.isValid() ? QSize(64, 64) : original.size());
        w->pbAdd_Pressed();
        QCOMPARE(readAll(chosen), bytes); // a copy, never a move nor a change
        QCOMPARE(rows(w->lbButPic) + rows(w->lbRemoved), QStringList({"01 old.png", added}));
        QCOMPARE(enabled(*w), (QList<bool>{false, false, true, true}));
        const QString made = butFolder() + "/P00/" + added;
        if (!drawn.isValid()) QCOMPARE(readAll(made), bytes);
        else QCOMPARE(QImage(made).size() == QSize(64, 64) ? opaquePart(QImage(made)) : QRect(), drawn);
        if (name != "05 new.png") return;

        // A name that turns up in the folder meanwhile, in any case, is never replaced, nor touched by
        // Cancel.
        dialogs->queueFile(home->write("Desktop/06 late.png", picture(64, 64)));
        w->pbSelectPicToAdd_Pressed();
        put("P00/06 LATE.png", "the user's own");
        const HomeFiles before = snapshot(home->home());
        w->pbAdd_Pressed();
        w->pbCancelAdd_Pressed();
        QCOMPARE(dialogs->texts(Dialogs::Kind::Message),
                 QStringList({"A picture with this same name has already been assigned."}));
        QCOMPARE(w->labSelect->text() + ' ' + w->labPicToAdd->text(), QString("Review Picture "));
        QCOMPARE(lostSince(before, home->home()), QStringList());
    }

    void reviewRemoveAndDone() {
        winMain& main = startWith(1);
        put("P00/01 one.png", picture(64, 64));
        put("P00/02 two.png", picture(60, 52));
        auto w = opened<winButtonPics>();
        w->lbButPic_CellPressed(1);
        QCOMPARE(w->labID->text() + ' ' + w->labRevWthValue->text() + 'x' + w->labRevHtValue->text() +
                     (w->cnShow->backdrop().isNull() ? " none" : " shown"),
                 QString("02 60x52 shown"));
        pressRow(w->lbButPic, 0);
        QCOMPARE(w->labSelect->text(), QString("01 one.png"));
        w->pbToDesktop_Pressed();
        QVERIFY(QFileInfo::exists(removed() + "/P00/01 one.png"));
        QCOMPARE(rows(w->lbButPic) + rows(w->lbRemoved) + rows(w->lbAllButton, {0, 1, 2}),
                 QStringList({"02 two.png", "01 one.png", "P00|02|02 two.png"}));
        // Nothing under review, nothing marked.
        QCOMPARE(QList<bool>({w->lbButPic->selectedItems().isEmpty(), w->pbToDesktop->isEnabled(),
                              w->cnShow->backdrop().isNull()}),
                 QList<bool>({true, false, true}));
        w->pbDone_Pressed();
        QCOMPARE(main.hasPicture, QList<int>{2});
        QCOMPARE(main.windowTitle(), ZOR::paleWinTitle);
    }

    // With nothing to audit, the menu opens the window quietly on the folders it makes.
    void menuAndFolders() {
        winMain& main = startWith(3);
        ZOR::ChangeToPalette(2);
        main.mainMenuBar->miButPic->trigger();
        auto w = opened<winButtonPics>();
        QVERIFY(QFileInfo(removed()).isDir());
        QCOMPARE(QStringList{w->labCurrentName->text()} +
                     QDir(butFolder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name) +
                     rows(w->lbAllButton) + rows(w->lbButPic) + rows(w->lbRemoved),
                 QStringList({"P02", "P00", "P02"}));
        QCOMPARE(dialogs->titles(), QStringList({"Button Pictures: " + ZOR::paleWinTitle}));
    }
};

QTEST_MAIN(AssetPicturesTest)
#include "tst_assets_pictures.moc"
