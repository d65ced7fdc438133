// Backups of the data file, their restore, and the palette data export, on real files.
#include "backup/winManageBU.h"
#include "common/Deadline.h"
#include "common/LockedFolder.h"
#include "tst_windows.h"

#include <sys/stat.h>

class BackupTest : public WindowTest {
    Q_OBJECT

    QString emergency() const { return home->programFolder() + "/EmergencyPreserveStateBU"; }
    QString dataFile() const { return home->programFolder() + "/PreserveState.txt"; }
    void writeFile(const QString& path, const QByteArray& content) const {
        home->write(QDir(home->home()).relativeFilePath(path), content);
    }

    // A store of one palette, with something of its own, as a backup file at `path`.
    QByteArray writeBackup(const QString& path) {
        const QString store = writeStoreFile(1, 4, 5);
        const QByteArray content = readAll(store).replace("\"Original\"", "\"Restored\"");
        QFile::remove(store);
        writeFile(path, content);
        return content;
    }

    void pressOnOpening(QPushButton* winManageBU::*button) {
        dialogs->onWindow = [button](QDialog& d) {
            if (auto* w = qobject_cast<winManageBU*>(&d)) (w->*button)->click();
        };
    }

private slots:
    void init() {
        setUpProgram();
        Clock::set(QDateTime(QDate(2023, 5, 8), QTime(23, 14, 7)));
    }

    void makeBackupCopiesTheFileOnDiskAndQuitsSaving() {
        winMain& window = startWith(3);
        ZOR::ChangeToPalette(1); // saved at once
        const QByteArray onDisk = readAll(dataFile());
        QVERIFY(onDisk.contains("\"CurrentPalette\":1"));
        writeFile(home->desktop() + "/PreserveState.txt", "left over");
        ZOR::paleWinTitle = "Typed, not yet saved", ZOR::paletteContentChange = true; // saved by the quit
        pressOnOpening(&winManageBU::pbMakeBU);
        window.mainMenuBar->miPreserveStateBU->trigger();

        const QString made = "230508_2314PreserveStateBU.txt";
        QCOMPARE(namesIn(home->desktop()), QStringList{made});
        QCOMPARE(readAll(home->desktop() + '/' + made), onDisk);
        const QString text =
            "The application will quit. It can be restarted whenever you wish. A backup of the "
            "PreserveState.txt file has been created on the desktop.";
        QCOMPARE(dialogs->texts(Dialogs::Kind::ShowText), QStringList({text, text}));
        QVERIFY(!window.isVisible());
        QVERIFY(readAll(dataFile()).contains("\"Typed, not yet saved\""));
        // The backup's copy and the quit's copy share the minute: the second one stays plain.
        QCOMPARE(namesIn(emergency()), QStringList({made, "PreserveState.txt"}));
        QCOMPARE(readAll(emergency() + '/' + made), onDisk);
    }

    // A refused or failed restore leaves all as it was; a done one keeps the data file in the
    // emergency folder, under the latest free minute up to now, and quits without writing.
    void restoreThroughTheMenu_data() {
        QTest::addColumn<QString>("name");        // chosen on the Desktop; empty: cancelled
        QTest::addColumn<QString>("setting");     // a folder that refuses every change, or "unreadable"
        QTest::addColumn<QStringList>("earlier"); // in the emergency folder
        QTest::addColumn<QString>("told");        // the message, or the name the data file is kept under
        // clang-format off
        const QString bad = "You did not select an appropriate file. ", good = "230101_0900PreserveStateBU.txt";
        QTest::newRow("29 characters") << "230508_2314PreserveStatBU.txt" << "" << QStringList() << bad + "It should have a name like 230508_2314PreserveStateBU.txt";
        const QString stamp = bad + "It should start with a valid date stamp in the form YYMMDD_HHSS";
        for (const char* wrong : {"230431_2314", "230931_2314", "231131_2314", "230230_2314", "231301_0000", "230100_0000", "230508_2400"})
            QTest::newRow(wrong) << QString(wrong) + "PreserveStateBU.txt" << "" << QStringList() << stamp;
        QTest::newRow("34 characters, .txt twice") << "230508_2314PreserveStateBU.txt.txt" << "" << QStringList() << bad + "It should have a name like 230508_2314PreserveStateBU.txt";
        QTest::newRow(".text") << "230508_2314PreserveStateB.text" << "" << QStringList() << bad + "It should have the extension .txt";
        QTest::newRow("PreserveStateBK") << "230508_2314PreserveStateBK.txt" << "" << QStringList() << bad + "It should have the basic name PreserveStateBU";
        QTest::newRow("cancelled") << "" << "" << QStringList() << "";
        QTest::newRow("the backup cannot be moved") << good << "locked backups" << QStringList() << "The backup 230101_0900PreserveStateBU.txt could not be moved into place, so it was not restored. The PreserveState.txt in use before is still in its place, unchanged.";
        QTest::newRow("the data file cannot be kept") << good << "locked emergency" << QStringList() << "The backup 230101_0900PreserveStateBU.txt was not restored: the PreserveState.txt in use could not be kept in the folder EmergencyPreserveStateBU first, so it stays in its place, unchanged.";
        QTest::newRow("not a store") << good << "damaged" << QStringList() << "The backup 230101_0900PreserveStateBU.txt was not restored: it cannot be read as a store of palettes. Invalid JSON at character 23: unexpected end of the text. Nothing was moved.";
        QTest::newRow("a FIFO") << good << "fifo" << QStringList() << "The backup 230101_0900PreserveStateBU.txt was not restored: it cannot be read as a store of palettes. 230101_0900PreserveStateBU.txt could not be opened: it is a FIFO (a named pipe), not a file. Nothing was moved.";
        QTest::newRow("restored") << good << "" << QStringList() << "230508_2314PreserveStateBU.txt";
        QTest::newRow("restored: 29 February of any year, 23:59") << "230229_2359PreserveStateBU.txt" << "" << QStringList() << "230508_2314PreserveStateBU.txt";
        QTest::newRow("restored: the first minute of a year") << "230101_0000PreserveStateBU.txt" << "" << QStringList() << "230508_2314PreserveStateBU.txt";
        QTest::newRow("offered at the start") << good << "unreadable" << QStringList() << "230508_2314PreserveStateBU.txt";
        QTest::newRow("restored, this minute taken") << good << "" << QStringList{"230508_2314PreserveStateBU.txt", "230508_2315PreserveStateBU.txt"} << "230508_2313PreserveStateBU.txt";
        QTest::newRow("restored, this minute and the one before taken") << good << "" << QStringList{"230508_2313PreserveStateBU.txt", "230508_2314PreserveStateBU.txt"} << "230508_2312PreserveStateBU.txt";
        // clang-format on
    }
    void restoreThroughTheMenu() {
        QFETCH(QString, name);
        QFETCH(QString, setting);
        QFETCH(QStringList, earlier);
        QFETCH(QString, told);
        // A folder of that name on the Desktop is a copy, never the program's own.
        const QString backups = home->desktop() + "/EmergencyPreserveStateBU";
        const QString chosen = name.isEmpty() ? QString() : backups + '/' + name;
        QByteArray backup = chosen.isEmpty() ? QByteArray() : writeBackup(chosen);
        if (setting == "damaged") writeFile(chosen, backup = R"([{"LastPaletteIndex":0,)");
        if (setting == "fifo") {
            QFile::remove(chosen);
            QCOMPARE(::mkfifo(QFile::encodeName(chosen).constData(), 0644), 0);
            backup.clear();
        }
        writeFile(backups + "/PreserveState.txt", "a leftover beside the backup");
        QDir().mkpath(emergency());
        for (const QString& file : earlier)
            writeFile(emergency() + '/' + file, "earlier");
        std::optional<LockedFolder> lock;
        if (setting.startsWith("locked") &&
            !lock.emplace(setting.endsWith("backups") ? backups : emergency()).holds())
            QSKIP("this system lets every change through a locked folder");
        const bool offered = setting == "unreadable"; // by the start, for a data file it cannot read
        offered ? home->writeInProgram("PreserveState.txt", "not a palette store") : writeStoreFile(3);
        const QByteArray former = readAll(dataFile());
        if (offered) dialogs->queueOK(true);
        dialogs->queueFile(chosen);
        pressOnOpening(&winManageBU::pbRestoreBU);
        const Deadline limit(30, "A restore of the chosen file");
        winMain& window = program->start();
        if (!offered) { // a change in progress, never saved, then the menu
            ZOR::paleWinTitle = "Typed, not yet saved", ZOR::paletteContentChange = true;
            window.mainMenuBar->miPreserveStateBU->trigger();
        }

        QTRY_VERIFY(dialogs->titles().contains("Choose Restoring File"));
        QCOMPARE(dialogs->questions().size(), int(offered));
        if (offered) QVERIFY2(dialogs->questions()[0].endsWith(" → OK"), qPrintable(dialogs->questions()[0]));
        QCOMPARE(dialogs->defaults[dialogs->titles().lastIndexOf("Manage PreserveState Backup")], "Cancel");
        QCOMPARE(dialogs->requests[dialogs->titles().indexOf("Choose Restoring File")].detail,
                 home->desktop());
        if (told.isEmpty() || told.contains(' ')) { // refused or failed, with a message if any
            QCOMPARE(dialogs->texts(Dialogs::Kind::Message),
                     told.isEmpty() ? QStringList() : QStringList{told});
            QVERIFY(window.isVisible());
            QVERIFY(ZOR::QuitSavePaletteChanges);
            QCOMPARE(readAll(dataFile()), former);
            struct stat st {};
            if (setting == "fifo")
                QVERIFY(::stat(QFile::encodeName(chosen).constData(), &st) == 0 && S_ISFIFO(st.st_mode));
            else if (!chosen.isEmpty())
                QCOMPARE(readAll(chosen), backup);
            QCOMPARE(namesIn(emergency()), earlier);
            return;
        }
        QTRY_VERIFY(!window.isVisible());
        QCOMPARE(readAll(dataFile()), backup);
        QCOMPARE(namesIn(backups), QStringList{"PreserveState230508_231407.txt"});
        earlier << told;
        earlier.sort();
        QCOMPARE(namesIn(emergency()), earlier); // never under a stamp still to come
        QCOMPARE(readAll(emergency() + '/' + told), former);
        QCOMPARE(dialogs->requests.last().title + ": " + dialogs->texts(Dialogs::Kind::ShowText).join('|'),
                 "Backup Data Restored: A backup, " + name + ", was used to restore the active "
                 "PreserveState.txt file.\nThe application is quitting. Restart to access the "
                 "PreserveState.txt file that was restored.");
    }

    void copyEmergencyFolder() {
        winManageBU window;
        AppGlobals::appSupportFolder = home->programFolder();
        window.pbCopyEmergency->click();
        writeFile(emergency() + "/230101_0900PreserveStateBU.txt", "one");
        writeFile(emergency() + "/.hidden", "two");
        window.pbCopyEmergency->click(); // copied without a word
        const QString copy = home->desktop() + "/EmergencyPreserveStateBU";
        QCOMPARE(namesIn(copy), QStringList({".hidden", "230101_0900PreserveStateBU.txt"}));
        QCOMPARE(readAll(copy + "/230101_0900PreserveStateBU.txt") + readAll(copy + "/.hidden"), QByteArray("onetwo"));
        window.pbCopyEmergency->click();
        QCOMPARE(dialogs->texts(), QStringList({"Could not find the folder EmergencyPreserveStateBU",
                                                "EmergencyPreserveStateBU is already on the Desktop."}));
        // The safe button is the default one, and leaves without quitting.
        QVERIFY(window.pbCancel->isDefault() && !window.pbMakeBU->isDefault());
        window.pbCancel->click();
        QCOMPARE(window.windowTitle() + ' ' + QString::number(window.result()), "Manage PreserveState Backup 0");
    }

    void exportOfAPalette() {
        winMain& window = startWith(1, 2, 3);
        ZOR::paleAlias = "My Tools";
        ZOR::paleWinTitle = "Tools";
        button(1).Info = "first line\nsecond line";
        button(2).Info = "one\rtwo";
        button(10).ASfile = "Mail.scpt";
        button(11).KM_Active = true;
        button(12).Tip = "Open \"notes\"";
        button(13).Tip = "outside the grid";
        writeFile(home->programFolder() + "/ButtonPictures/P00/01.png", "picture");
        writeFile(home->programFolder() + "/ButtonPictures/P00/.DS_Store", "hidden");
        Clock::set(QDateTime(QDate(2023, 5, 23), QTime(19, 55, 7)));
        window.mainMenuBar->miPaletteData->trigger();

        const QString folder = home->desktop() + "/230523_195507MyTools_P00Data";
        const QStringList expected = {
            "Rows\tCols\tTitle\tP_Name\tAlias",
            "2\t3\tTools\tP00\tMy Tools",
            "sID\tRow\tCol\tVis\tShortcutShow\tShortcut\tASFile\tSCname\tKM_"
            "Active\tPaletteGo\tClipbrd\tAutoMin\tTip\tInfo",
            "00\t0\t0\tTrue\tFalse\ta\t\t\tFalse\t\t0\t0\t\t",
            "01\t0\t1\tTrue\tFalse\tb\t\t\tFalse\t\t0\t0\t\tfirst line<r>second line",
            "02\t0\t2\tTrue\tFalse\tc\t\t\tFalse\t\t0\t0\t\tone\rtwo",
            "10\t1\t0\tTrue\tFalse\tk\tMail.scpt\t\tFalse\t\t0\t0\t\t",
            "11\t1\t1\tTrue\tFalse\tl\t\t\tTrue\t\t0\t0\t\t",
            "12\t1\t2\tTrue\tFalse\tm\t\t\tFalse\t\t0\t0\tOpen \"notes\"\t",
            "", // every line ends with a line feed
        };
        QCOMPARE(QString::fromUtf8(readAll(folder + "/TextData.txt")).split('\n'), expected);
        QCOMPARE(namesIn(folder + "/ButtonPictures"), QStringList({".DS_Store", "01.png"}));
        const Dialogs::Request& told = dialogs->requests.last();
        QVERIFY2(told.kind == Dialogs::Kind::ExplainHTML &&
                     told.detail.startsWith("<p>A folder</p><p> <i>230523_195507MyTools_P00Data</i></p><p>has been created on the Desktop"),
                 qPrintable(told.detail));

        // A second export in the same second writes into the same folder.
        button(0).Tip = "again";
        window.mainMenuBar->miPaletteData->trigger();
        QCOMPARE(namesIn(home->desktop()), QStringList{"230523_195507MyTools_P00Data"});
        const QByteArray text = readAll(folder + "/TextData.txt");
        QVERIFY2(text.contains("\tagain\t"), text);
        QCOMPARE(dialogs->texts(Dialogs::Kind::Message), QStringList());
    }

    // The last palette of a full store, on a full grid: the 10th row and column are written too.
    void exportOfTheHundredthPalette() {
        winMain& window = startWith(100, 10, 10);
        ZOR::ChangeToPalette(99);
        ZOR::paleAlias = "Last";
        button(99).Tip = "far corner";
        Clock::set(QDateTime(QDate(2024, 2, 29), QTime(0, 0, 0)));
        window.mainMenuBar->miPaletteData->trigger();
        const QStringList lines =
            QString::fromUtf8(readAll(home->desktop() + "/240229_000000Last_P99Data/TextData.txt")).split('\n');
        QCOMPARE(lines.size(), 3 + 100 + 1);
        QCOMPARE(lines[1], "10\t10\tZOR P99\tP99\tLast");
        QCOMPARE(lines[3 + 90], "90\t9\t0\tTrue\tFalse\t" + kNoShortcut + "\t\t\tFalse\t\t0\t0\t\t");
        QCOMPARE(lines[3 + 99], "99\t9\t9\tTrue\tFalse\t" + kNoShortcut + "\t\t\tFalse\t\t0\t0\tfar corner\t");
    }


    // The folder's name fits the file system's 255 bytes: a long alias gives up whole characters.
    void exportWithALongAlias_data() {
        QTest::addColumn<QString>("alias");
        QTest::addColumn<QString>("kept");            // of the alias, in the folder's name
        const QString flag = QString::fromUtf8("🇫🇷"); // 8 bytes, one character
        QTest::newRow("250 letters") << QString(250, 'a') << QString(234, 'a');
        QTest::newRow("emoji") << QString::fromUtf8("😀").repeated(70) << QString::fromUtf8("😀").repeated(58);
        QTest::newRow("flags") << flag.repeated(40) << flag.repeated(29);
        QTest::newRow("letters, then a flag at the cut")
            << QString(230, 'b') + flag.repeated(3) << QString(230, 'b');
    }
    void exportWithALongAlias() {
        QFETCH(QString, alias);
        QFETCH(QString, kept);
        winMain& window = startWith(1);
        ZOR::paleAlias = alias;
        Clock::set(QDateTime(QDate(2023, 5, 23), QTime(19, 55, 7)));
        window.mainMenuBar->miPaletteData->trigger();
        const QString name = "230523_195507" + kept + "_P00Data";
        QVERIFY(name.toUtf8().size() <= 255);
        QCOMPARE(namesIn(home->desktop()), QStringList{name});
        QVERIFY(QFileInfo(home->desktop() + '/' + name + "/TextData.txt").isFile());
        QCOMPARE(dialogs->texts(Dialogs::Kind::Message), QStringList());
    }
};

QTEST_MAIN(BackupTest)
#include "tst_backup.moc"
