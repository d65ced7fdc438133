#include "common/FakeTools.h"
#include "common/ScriptedDialogs.h"
#include "common/TempHome.h"
#include "util/AppGlobals.h"
#include "util/Clock.h"
#include "util/FileTools.h"
#include "util/RtrnBoolean.h"
#include "util/RtrnDateString.h"
#include "util/RtrnString.h"
#include "util/StringUtils.h"
#include "util/WinScrn.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QtTest>

#include <csignal>
#include <sys/resource.h>

namespace {
QByteArray readAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}
} // namespace

// Data tables stay one row a line.
// clang-format off
class TestUtil : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { Clock::reset(); }

    void alphaDateTime_data() {
        QTest::addColumn<qint64>("mode");
        QTest::addColumn<QString>("expected");
        const QStringList forms{"230523_195507", "230523", "230523_19", "230523_1955", "230523_195507", "2305231955",
                                "2023.05.23", "230523_195507Aa", "05/23/2023 19:55:07", "20230523_195507",
                                "230523_195507_042000000", "230523_195507_042000", "230523_195507_042", "230523_16oxia", "195507"};
        for (int m = 0; m <= 14; ++m) QTest::addRow("mode %d", m) << qint64(m) << forms[m]; // 0 falls back to 4
    }
    void alphaDateTime() {
        QFETCH(qint64, mode);
        Clock::set(QDateTime(QDate(2023, 5, 23), QTime(19, 55, 7, 42)));
        RtrnDateString::ResetCounter();
        QTEST(RtrnDateString::rsAlphaDateTime(mode), "expected");
    }

    void alphaDateTimeEdges() {
        Clock::set(QDateTime(QDate(2023, 5, 23), QTime(0, 0, 1)));
        QCOMPARE(RtrnDateString::rsAlphaDateTime(13), "230523_0000rs"); // leading zeros kept
        QCOMPARE((RtrnDateString::rsAlphaDateTime(3) + "PreserveStateBU.txt").size(), 30);
        RtrnDateString::ResetCounter();
        QStringList seen;
        for (int i = 0; i < 26 * 26 + 1; ++i) seen << RtrnDateString::rsAlphaDateTime(7).right(2);
        QCOMPARE(seen.mid(25, 2), (QStringList{"Az", "Ba"}));
        QCOMPARE(seen.mid(26 * 26 - 1, 2), (QStringList{"Zz", "Aa"})); // past Zz it starts again
    }

    void validDateStamp() {
        for (const char* stamp : {"230523_1955", "230229_1200", "231231_2359", "230930_0000"})
            QVERIFY2(RtrnBoolean::rbValidYYMMDD_HHSS(stamp), stamp);
        for (const char* stamp : {"230230_1200", "230431_1200", "231131_1200", "231301_1200", "230500_1200",
                                  "230523-1955", "230523_2400", "230523_2360", "230523_195", "230523_19550"})
            QVERIFY2(!RtrnBoolean::rbValidYYMMDD_HHSS(stamp), stamp);
    }

    void moveRenameNeverOverwrites() {
        TempHome home;
        const QString file = home.write("src/p.png", "moved");
        for (const QString n : {"dst/p.png", "dst/1_p.png", "src/2_p.png"}) home.write(n, n.toUtf8());
        // 1_ is taken where the file goes, 2_ where it comes from.
        QCOMPARE(FileTools::MoveRenameIfNecessary(file, home.home() + "/dst"), home.home() + "/dst/3_p.png");
        QCOMPARE(readAll(home.home() + "/dst/3_p.png"), "moved");
        QVERIFY(!QFile::exists(file));
        for (const QString n : {"dst/p.png", "dst/1_p.png", "src/2_p.png"}) QCOMPARE(readAll(home.home() + '/' + n), n.toUtf8());
    }

    void hasExtension() {
        ScriptedDialogs dialogs;
        for (const char* name : {"archive.tar.gz", "a.jpeg"}) QVERIFY2(FileTools::rbHasExtension(name), name);
        for (const char* name : {"readme.markdown", "a.c"}) QVERIFY2(!FileTools::rbHasExtension(name), name);
        for (const QString& name : {QString(252, 'n') + ".txt", QString("a/b.txt"), QString("a\nb.txt")}) QVERIFY(!FileTools::rbHasExtension(name));
        QCOMPARE(dialogs.texts(), (QStringList{"rbHasExtension passed a proposed file name that is too long",
                                               "rbHasExtension passed a proposed file name that is not appropriate",
                                               "rbHasExtension passed a proposed file name that is not appropriate"}));
    }

    void stringToFileItem() {
        TempHome home;
        ScriptedDialogs dialogs;
        const QString text = QString::fromUtf8("{\"s_Alias\":\"Caf\xC3\xA9 \xE2\x90\x80\"}\n");
        for (const QString name : {"PreserveState", "notes.text"}) { // .txt added only where no extension
            const QString target = home.write("f/" + (name == "PreserveState" ? name + ".txt" : name), QByteArray(5000, 'x'));
            QVERIFY(FileTools::StringToFileItem(text, name, home.home() + "/f"));
            QCOMPARE(readAll(target), text.toUtf8()); // no BOM, nothing left of the longer old content
        }
        QVERIFY(!FileTools::StringToFileItem("x", "PreserveState", home.home() + "/f/notes.text/sub"));
        QCOMPARE(dialogs.beeps(), 1);
        QCOMPARE(dialogs.texts(), QStringList{"Somehow unable to create the PreserveState.txt file. Method: StringToFileItem"});

        // A write that runs out of room (a file-size limit binds root too) must keep the old file.
        dialogs.clear();
        const QString target = home.write("f/PreserveState.txt", "old");
        const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit before{};
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit tight{16, before.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &tight), 0);
        const bool written = FileTools::StringToFileItem(QString(4096, 'y'), "PreserveState", home.home() + "/f");
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, oldHandler);
        QVERIFY(!written);
        QCOMPARE(readAll(target), "old");
        const QString shown = dialogs.texts().join('|');
        QVERIFY2(shown.startsWith("Could not save PreserveState.txt: ") && shown.endsWith(". The file that was there before is unchanged.") && dialogs.texts().size() == 1, qPrintable(shown));
        QCOMPARE(QDir(home.home() + "/f").entryList(QDir::Files), (QStringList{"notes.text", "PreserveState.txt"}));
    }

    void textToFile_data() {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QString>("path");
        QTest::addColumn<qint64>("mode");
        QTest::addColumn<QString>("expected"); // below home
        QTest::newRow("mode 4 prefix") << "Table" << "Desktop" << qint64(4) << "/Schreibtisch/230523_195507Table.txt";
        QTest::newRow("mode 10 no prefix") << "WindowSizeInfo" << "Desktop" << qint64(10) << "/Schreibtisch/WindowSizeInfo.txt";
        QTest::newRow("Desktop sub-folder") << "a b:c" << "Desktop/Sub" << qint64(0) << "/Schreibtisch/Sub/a_b_c.txt";
        QTest::newRow("path names the file") << "" << "x/y/z.txt" << qint64(0) << "/x/y/z.txt";
        QTest::newRow("path cleaned") << "" << "a//b/.c.txt" << qint64(0) << "/a/b/_c.txt";
        QTest::newRow("path already below home") << "" << "@home/x/z.txt" << qint64(0) << "/x/z.txt";
        QTest::newRow("no name, no txt") << "" << "x/y" << qint64(0) << "/Schreibtisch/SavedFile.txt";
    }
    void textToFile() {
        QFETCH(QString, fileName);
        QFETCH(QString, path);
        QFETCH(qint64, mode);
        QFETCH(QString, expected);
        TempHome home;
        home.write(".config/user-dirs.dirs", "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n"); // not simply home + "/Desktop"
        ScriptedDialogs dialogs;
        Clock::set(QDateTime(QDate(2023, 5, 23), QTime(19, 55, 7)));
#ifdef Q_OS_MACOS
        expected.replace("/Schreibtisch/", "/Desktop/"); // the Mac's Desktop has one name
#endif
        QCOMPARE(FileTools::TextToFile("line", fileName, path.replace("@home", home.home()), mode), home.home() + expected);
        QCOMPARE(readAll(home.home() + expected), "line");
    }

    void renameFolder_data() {
        QTest::addColumn<QString>("parent");
        QTest::addColumn<QString>("now");
        QTest::addColumn<QString>("future");
        QTest::addColumn<QString>("message");
        QTest::newRow("renamed") << "p" << "old" << "new" << "";
        QTest::newRow("no parent") << "nothing" << "old" << "new" << "RenameFolder: The parent folder does not exist.";
        QTest::newRow("no now") << "p" << "gone" << "new" << "RenameFolder: The now folder does not exist.";
        QTest::newRow("now is a file") << "p" << "file" << "new" << "RenameFolder: The now folder does not exist.";
        QTest::newRow("faulty") << "p" << "old" << "a/b" << "RenameFolder: The futureName, a/b, is faulty.";
        QTest::newRow("taken") << "p" << "old" << "taken" << "RenameFolder: The futureName, taken, is already taken.";
    }
    void renameFolder() {
        QFETCH(QString, parent);
        QFETCH(QString, now);
        QFETCH(QString, future);
        QFETCH(QString, message);
        TempHome home;
        for (const char* path : {"p/old/data.txt", "p/taken/x", "p/file"}) home.write(path, "data");
        for (const bool show : {true, false}) {
            ScriptedDialogs dialogs;
            QCOMPARE(FileTools::RenameFolder(home.home() + '/' + parent, now, future, show), message.isEmpty());
            QCOMPARE(dialogs.texts(), show && !message.isEmpty() ? QStringList{message} : QStringList());
            QCOMPARE(readAll(home.home() + (message.isEmpty() ? "/p/new/data.txt" : "/p/old/data.txt")), "data");
            if (message.isEmpty()) break;
        }
    }

    void foldersOfTheProgram() {
        TempHome home;
        ScriptedDialogs dialogs;
        QCOMPARE(FileTools::CreateFolderInAppSupport("ButtonPictures"), QString()); // folder not set yet
        QCOMPARE(dialogs.texts(), QStringList{"Problem with FileTools CreateFolderInAppSupport"});
        AppGlobals::appSupportFolder = home.programFolder();
        const QString pics = FileTools::CreateFolderInAppSupport("ButtonPictures");
        QCOMPARE(pics, home.programFolder() + "/ButtonPictures");
        for (const char* name : {"/b.png", "/.hidden", "/Zeta/x"}) home.write(pics.mid(home.home().size() + 1) + name, "x");
        QCOMPARE(FileTools::CreateFolderInAppSupport("ButtonPictures"), pics); // an existing folder is left alone
        QStringList files{"keep"};
        FileTools::FolderFilesToArray(pics, files);
        FileTools::FolderFilesToArray(home.home() + "/none", files);
        QCOMPARE(files, (QStringList{"keep", "b.png"})); // no hidden files, no folders
    }

    void createFolderKnownStart() {
        TempHome home;
        ScriptedDialogs dialogs;
        const QString plain = home.write("plain", "p");
        for (const QString& start : {QString("Downloads"), home.home() + "/nowhere", plain}) QCOMPARE(FileTools::CreateFolderKnownStart(start, "x"), QString());
        const QString problem = "CreateFolderKnownStart passed incorrect pathKnown parameter. ";
        QCOMPARE(dialogs.texts(), QStringList({problem + "Not a SpecialFolder.", problem + "Does not exist.", problem + "Not a folder."}));
        for (const QString& start : {QString("Desktop"), home.desktop()}) QCOMPARE(FileTools::CreateFolderKnownStart(start, "x_Data//ButtonPictures/"), home.desktop() + "/x_Data/ButtonPictures");
        QVERIFY(QFileInfo(home.desktop() + "/x_Data/ButtonPictures").isDir() && !QFileInfo::exists(home.home() + "/nowhere"));
    }

    void removeWordToFit_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("fitsJust"); // maxWidth: this text's width and a little; empty: 1 pixel
        QTest::addColumn<QString>("expected");
        QTest::newRow("short") << "abcd" << "" << "abcd";
        QTest::newRow("fits") << "Open the mail" << "Open the mail" << "Open the mail";
        QTest::newRow("cut at a word") << "Open the\nmail  program now" << "Open the mail…" << "Open the mail…";
        QTest::newRow("one word left") << "Supercalifragilistic expialidocious words" << "" << "Supercalifragilistic";
    }
    void removeWordToFit() {
        QFETCH(QString, text);
        QFETCH(QString, fitsJust);
        const double width = fitsJust.isEmpty() ? 1.0 : StringUtils::MeasureString(fitsJust, "Helvetica", 14) + 0.5;
        QTEST(StringUtils::RemoveWordToFit(text, "Helvetica", 14, width), "expected");
    }

    void rawTextFromHTML_data() {
        QTest::addColumn<QString>("html");
        QTest::addColumn<QString>("text");
        QTest::newRow("body only") << "<html><head><title>T</title></head><body><b>Hi</b></body></html>" << "Hi";
        QTest::newRow("paragraphs") << "<p>One\ntwo</p><p>Three&nbsp;four<br/>five</p>" << "One two\n\nThree four\nfive";
        QTest::newRow("white space runs") << "a \t \n  b" << "a \tb";
    }
    void rawTextFromHTML() {
        QFETCH(QString, html);
        QTEST(RtrnString::rsRawTextFromHTML(html), "text");
    }

    void applicationIsRunning() {
        FakeTools tools;
        const QString id = "com.stairways.keyboardmaestro.engine";
        tools.setAnswer("running:" + id, "true\n"); // as osascript prints it
        QVERIFY(FileTools::ApplicationIsRunning(id));
        tools.remove("osascript");
        QVERIFY(!FileTools::ApplicationIsRunning(id));
    }

    void withinScreen() {
        const QRect a = QGuiApplication::primaryScreen()->availableGeometry();
        QVERIFY(WinScrn::IsWithinMainScreenTLBR(a.y(), a.x(), a.height(), a.width())); // the edges count as inside
        for (const QRect r : {a.adjusted(0, 0, 1, 0), a.adjusted(0, 0, 0, 1), QRect(a.x(), a.y() - 1, 10, 10), QRect(a.x() - 1, a.y(), 10, 10)})
            QVERIFY(!WinScrn::IsWithinMainScreenTLBR(r.y(), r.x(), r.height(), r.width()));
    }
};
// clang-format on

QTEST_MAIN(TestUtil)
#include "tst_util.moc"
