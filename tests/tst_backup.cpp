// Backups of the data file, their restore, and the palette data export, on real files.
#include "common/Program.h"
#include "palette_window/MainMenuBar.h"
#include "palette_window/winMain.h"
#include "store/ZOR.h"
#include "store/winManageBU.h"
#include "util/AppGlobals.h"
#include "util/Clock.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QPushButton>
#include <QTest>
#include <functional>
#include <unistd.h>

namespace {
QByteArray readAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

QStringList namesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

// Presses a button of the backup window when the menu runs it, as the user would.
class PressingDialogs : public ScriptedDialogs {
public:
    std::function<void(winManageBU&)> press;
    Dialogs::Answer answer(const Dialogs::Request& request) override {
        auto* window = qobject_cast<winManageBU*>(request.dialog);
        if (!window || !press) return ScriptedDialogs::answer(request);
        ScriptedDialogs::answer(request);
        press(*window);
        return {window->result(), window->result() == QDialog::Accepted, {}};
    }
};

// A folder that refuses every change, to root as well; unlocked again when it goes.
class LockedFolder {
public:
    explicit LockedFolder(QString folder) : path(std::move(folder)) { set(true); }
    ~LockedFolder() { set(false); }
    bool holds() const {
        QFile probe(path + "/probe");
        return !probe.open(QIODevice::WriteOnly) || !probe.remove();
    }

private:
    void set(bool locked) {
        QFile::setPermissions(path, locked ? QFile::ReadOwner | QFile::ExeOwner
                                           : QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        if (geteuid() == 0) QProcess::execute("chattr", {locked ? "+i" : "-i", path});
    }
    QString path;
};
} // namespace

class BackupTest : public QObject, private ProgramFixture {
    Q_OBJECT

    PressingDialogs* pressing = nullptr;
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

    // Starts on three palettes, changes one thing, and restores `chosen` through the menu.
    // Gives the data file as it was.
    QByteArray restoreThroughMenu(const QString& chosen) {
        winMain& window = startWith(3);
        const QByteArray former = readAll(dataFile());
        ZOR::ChangeToPalette(2);
        dialogs->queueFile(chosen);
        pressing->press = [](winManageBU& w) { w.pbRestoreBU->click(); };
        window.mainMenuBar->miPreserveStateBU->trigger();
        return former;
    }

private slots:
    void init() {
        setUpProgram();
        dialogs.reset();
        auto script = std::make_unique<PressingDialogs>();
        pressing = script.get();
        dialogs = std::move(script);
        Clock::set(QDateTime(QDate(2023, 5, 8), QTime(23, 14, 7)));
    }
    void cleanup() {
        Clock::reset();
        tearDownProgram();
    }

    void makeBackupCopiesTheFileOnDiskAndQuitsSaving() {
        winMain& window = startWith(3);
        const QByteArray onDisk = readAll(dataFile());
        writeFile(home->desktop() + "/PreserveState.txt", "left over");
        ZOR::ChangeToPalette(1); // a change of this run, saved only by the quit
        pressing->press = [](winManageBU& w) { w.pbMakeBU->click(); };
        window.mainMenuBar->miPreserveStateBU->trigger();

        const QString made = "230508_2314PreserveStateBU.txt";
        QCOMPARE(namesIn(home->desktop()), QStringList{made});
        QCOMPARE(readAll(home->desktop() + '/' + made), onDisk);
        const QString text =
            "The application will quit. It can be restarted whenever you wish. A backup of the "
            "PreserveState.txt file has been created on the desktop.";
        QCOMPARE(dialogs->texts(Dialogs::Kind::ShowText), QStringList({text, text}));
        QVERIFY(!window.isVisible() && readAll(dataFile()).contains("\"CurrentPalette\":1"));
        // The backup's copy and the quit's copy share the minute: the second one stays plain.
        QCOMPARE(namesIn(emergency()), QStringList({made, "PreserveState.txt"}));
        QCOMPARE(readAll(emergency() + '/' + made), onDisk);
    }

    void restoreRefusesOtherFiles_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("message");
        const QString start = "You did not select an appropriate file. ";
        QTest::newRow("29 characters") << "230508_2314PreserveStatBU.txt" << start + "It should have a name like 230508_2314PreserveStateBU.txt";
        QTest::newRow("31 April") << "230431_2314PreserveStateBU.txt" << start + "It should start with a valid date stamp in the form YYMMDD_HHSS";
        QTest::newRow(".text") << "230508_2314PreserveStateB.text" << start + "It should have the extension .txt";
        QTest::newRow("PreserveStateBK") << "230508_2314PreserveStateBK.txt" << start + "It should have the basic name PreserveStateBU";
        QTest::newRow("cancelled") << "" << "";
    }
    void restoreRefusesOtherFiles() {
        QFETCH(QString, name);
        QFETCH(QString, message);
        const QString chosen = name.isEmpty() ? QString() : home->desktop() + '/' + name;
        if (!chosen.isEmpty()) writeBackup(chosen);
        startWith(2);
        const QByteArray before = readAll(dataFile());
        dialogs->queueFile(chosen);
        QVERIFY(!ZOR::PreserveStateRestore());
        QCOMPARE(dialogs->requests[0].title + '|' + dialogs->requests[0].detail + '|' + dialogs->texts(Dialogs::Kind::Message).join('|'),
                 "Choose Restoring File|" + home->desktop() + '|' + message);
        QCOMPARE(readAll(dataFile()), before);
        QVERIFY((chosen.isEmpty() || QFileInfo::exists(chosen)) && namesIn(emergency()).isEmpty() && ZOR::QuitSavePaletteChanges);
    }

    void restoreReplacesTheDataFileAndQuitsWithoutWriting_data() {
        QTest::addColumn<QStringList>("before");
        QTest::addColumn<QString>("keptAs");
        QTest::newRow("the stamp of now") << QStringList() << "230508_2314PreserveStateBU.txt";
        // A quit a moment ago holds the stamp of this minute: the data file is kept under the next one.
        QTest::newRow("a copy of this minute")
            << QStringList{"230508_2314PreserveStateBU.txt", "230508_2315PreserveStateBU.txt"}
            << "230508_2316PreserveStateBU.txt";
    }
    void restoreReplacesTheDataFileAndQuitsWithoutWriting() {
        QFETCH(QStringList, before);
        QFETCH(QString, keptAs);
        for (const QString& name : before)
            writeFile(emergency() + '/' + name, "earlier");
        const QString backups = home->desktop() + "/EmergencyPreserveStateBU";
        const QString chosen = backups + "/230101_0900PreserveStateBU.txt";
        const QByteArray backup = writeBackup(chosen);
        writeFile(backups + "/PreserveState.txt", "a leftover beside the backup");
        const QByteArray former = restoreThroughMenu(chosen);

        QVERIFY(!program->window()->isVisible());
        QCOMPARE(readAll(dataFile()), backup);
        QCOMPARE(namesIn(backups), QStringList{"PreserveState230508_231407.txt"});
        QCOMPARE(namesIn(emergency()), QStringList(before) << keptAs);
        QCOMPARE(readAll(emergency() + '/' + keptAs), former);
        QCOMPARE(dialogs->requests.last().title + ": " + dialogs->texts(Dialogs::Kind::ShowText).join('|'),
                 "Backup Data Restored: A backup, 230101_0900PreserveStateBU.txt, was used to restore the active "
                 "PreserveState.txt file.\nThe application is quitting. Restart to access the "
                 "PreserveState.txt file that was restored.");
    }

    void failedRestoreKeepsTheDataFileAndTheProgram_data() {
        QTest::addColumn<bool>("lockEmergency");
        QTest::addColumn<QString>("message");
        QTest::newRow("the backup cannot be moved") << false << "The backup 230101_0900PreserveStateBU.txt could not be moved into place, so it was not restored. The PreserveState.txt in use before is still in its place, unchanged.";
        QTest::newRow("the data file cannot be kept") << true << "The backup 230101_0900PreserveStateBU.txt was not restored: the PreserveState.txt in use could not be kept in the folder EmergencyPreserveStateBU first, so it stays in its place, unchanged.";
    }
    void failedRestoreKeepsTheDataFileAndTheProgram() {
        QFETCH(bool, lockEmergency);
        QFETCH(QString, message);
        const QString backups = home->desktop() + "/Backups";
        const QString chosen = backups + "/230101_0900PreserveStateBU.txt";
        const QByteArray backup = writeBackup(chosen);
        QDir().mkpath(emergency());
        LockedFolder locked(lockEmergency ? emergency() : backups);
        if (!locked.holds()) QSKIP("this system lets every change through a locked folder");
        const QByteArray former = restoreThroughMenu(chosen);

        QCOMPARE(dialogs->texts(Dialogs::Kind::Message), QStringList{message});
        QVERIFY(program->window()->isVisible() && ZOR::QuitSavePaletteChanges);
        QVERIFY(readAll(dataFile()) == former && readAll(chosen) == backup && namesIn(emergency()).isEmpty());
    }

    void unreadableDataFileOffersTheRestore() {
        const QString chosen = home->desktop() + "/230101_0900PreserveStateBU.txt";
        const QByteArray backup = writeBackup(chosen);
        home->writeInProgram("PreserveState.txt", "not a palette store");
        dialogs->queueOK(true);
        dialogs->queueFile(chosen);
        pressing->press = [](winManageBU& w) { w.pbRestoreBU->click(); };
        winMain& window = program->start();
        QTRY_VERIFY(!window.isVisible());
        QCOMPARE(readAll(dataFile()), backup);
        QCOMPARE(readAll(emergency() + "/230508_2314PreserveStateBU.txt"), QByteArray("not a palette store"));
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
        QVERIFY(dialogs->requests.last().kind == Dialogs::Kind::ExplainHTML && dialogs->requests.last().detail.startsWith(
            "<p>A folder</p><p> <i>230523_195507MyTools_P00Data</i></p><p>has been created on the Desktop"));

        // A second export in the same second writes into the same folder.
        button(0).Tip = "again";
        window.mainMenuBar->miPaletteData->trigger();
        QCOMPARE(namesIn(home->desktop()), QStringList{"230523_195507MyTools_P00Data"});
        QVERIFY(readAll(folder + "/TextData.txt").contains("\tagain\t"));
        QCOMPARE(dialogs->texts(Dialogs::Kind::Message), QStringList());
    }
};

QTEST_MAIN(BackupTest)
#include "tst_backup.moc"
