#include "common/FakeTools.h"
#include "common/ScriptedDialogs.h"
#include "common/TempHome.h"
#include "util/AppGlobals.h"
#include "util/Clock.h"
#include "util/FileTools.h"
#include "util/FileTypes.h"
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
QStringList none() {
    return {};
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
        const QStringList forms{"230523", "230523_19", "230523_1955", "230523_195507", "2305231955", "2023.05.23",
                                "230523_195507Aa", "05/23/2023 19:55:07", "20230523_195507", "230523_195507_042000000",
                                "230523_195507_042000", "230523_195507_042", "230523_16oxia", "195507"};
        for (int m = 1; m <= 14; ++m) QTest::addRow("mode %d", m) << qint64(m) << forms[m - 1];
        QTest::newRow("mode 0 as 4") << qint64(0) << "230523_195507";
        QTest::newRow("mode 99 as 4") << qint64(99) << "230523_195507";
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

    void viablePath_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("belowHome");
        QTest::newRow("Desktop") << "Desktop" << "/Schreibtisch";
        QTest::newRow("cleaned") << "a//b/.c:d" << "/a/b/_c_d";
        QTest::newRow("absolute outside home") << "/x/y" << "/x/y";
        QTest::newRow("already below home") << "@home/x" << "/x";
    }
    void viablePath() {
        QFETCH(QString, path);
        QFETCH(QString, belowHome);
        TempHome home;
        home.write(".config/user-dirs.dirs", "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n"); // not simply home + "/Desktop"
        QCOMPARE(FileTools::rsViablePath(path.replace("@home", home.home())), home.home() + belowHome);
    }

    void moveRename_data() {
        QTest::addColumn<QStringList>("inDestination");
        QTest::addColumn<QStringList>("inSource");
        QTest::addColumn<QString>("expected");
        QTest::newRow("no clash") << none() << none() << "p.png";
        QTest::newRow("clash") << QStringList{"p.png"} << none() << "1_p.png";
        QTest::newRow("1_ taken at source") << QStringList{"p.png"} << QStringList{"1_p.png"} << "2_p.png";
        QTest::newRow("1_ taken at destination") << QStringList{"p.png", "1_p.png"} << none() << "2_p.png";
    }
    void moveRename() {
        QFETCH(QStringList, inDestination);
        QFETCH(QStringList, inSource);
        QFETCH(QString, expected);
        TempHome home;
        const QString file = home.write("src/p.png", "moved");
        QDir().mkpath(home.home() + "/dst");
        for (const auto& n : inDestination) home.write("dst/" + n, "kept " + n.toUtf8());
        for (const auto& n : inSource) home.write("src/" + n, "source " + n.toUtf8());
        QCOMPARE(FileTools::MoveRenameIfNecessary(file, home.home() + "/dst"), home.home() + "/dst/" + expected);
        QCOMPARE(readAll(home.home() + "/dst/" + expected), "moved");
        QVERIFY(!QFile::exists(file));
        for (const auto& n : inDestination) QCOMPARE(readAll(home.home() + "/dst/" + n), "kept " + n.toUtf8());
    }

    void hasExtension_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("has");
        QTest::addColumn<QString>("message");
        QTest::newRow("tar.gz") << "archive.tar.gz" << true << "";
        QTest::newRow("markdown") << "readme.markdown" << false << "";
        QTest::newRow("one letter") << "a.c" << false << "";
        QTest::newRow("jpeg") << "a.jpeg" << true << "";
        QTest::newRow("too long") << QString(252, 'n') + ".txt" << false << "rbHasExtension passed a proposed file name that is too long";
        QTest::newRow("slash") << "a/b.txt" << false << "rbHasExtension passed a proposed file name that is not appropriate";
        QTest::newRow("line feed") << "a\nb.txt" << false << "rbHasExtension passed a proposed file name that is not appropriate";
    }
    void hasExtension() {
        QFETCH(QString, name);
        QFETCH(QString, message);
        ScriptedDialogs dialogs;
        QTEST(FileTools::rbHasExtension(name), "has");
        QCOMPARE(dialogs.texts(), message.isEmpty() ? none() : QStringList{message});
    }

    void stringToFileItem() {
        TempHome home;
        ScriptedDialogs dialogs;
        const QString text = QString::fromUtf8("{\"s_Alias\":\"Caf\xC3\xA9 \xE2\x90\x80\"}\n");
        for (const QString name : {"PreserveState", "notes.text"}) {
            const QString target = home.write("f/" + (name == "PreserveState" ? name + ".txt" : name), QByteArray(5000, 'x'));
            QVERIFY(FileTools::StringToFileItem(text, name, home.home() + "/f"));
            QCOMPARE(readAll(target), text.toUtf8()); // no BOM, nothing left of the longer old content
            QCOMPARE(FileTools::rsStringFile(target), text);
        }
        QCOMPARE(dialogs.texts(), none());
    }

    void stringToFileItemFailures() {
        TempHome home;
        ScriptedDialogs dialogs;
        const QString blocker = home.write("plain", "a file, not a folder");
        QVERIFY(!FileTools::StringToFileItem("x", "PreserveState", blocker + "/sub"));
        QCOMPARE(dialogs.beeps(), 1);
        QCOMPARE(dialogs.texts(), QStringList{"Somehow unable to create the PreserveState.txt file. Method: StringToFileItem"});
        QCOMPARE(FileTools::rsStringFile(home.home() + "/missing.txt"), QString());

        // A write that runs out of room (a file-size limit binds root too) must keep the old file.
        dialogs.clear();
        const QString target = home.write("f/PreserveState.txt", "old");
        const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit before{};
        getrlimit(RLIMIT_FSIZE, &before);
        rlimit tight = before;
        tight.rlim_cur = 16;
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &tight), 0);
        const bool written = FileTools::StringToFileItem(QString(4096, 'y'), "PreserveState", home.home() + "/f");
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, oldHandler);
        QVERIFY(!written);
        QCOMPARE(readAll(target), "old");
        QCOMPARE(dialogs.texts().size(), 1);
        const QString shown = dialogs.texts()[0];
        QVERIFY2(shown.startsWith("Could not save PreserveState.txt: ") && shown.endsWith(". The file that was there before is unchanged."), qPrintable(shown));
        QCOMPARE(QDir(home.home() + "/f").entryList(QDir::Files), QStringList{"PreserveState.txt"});
    }

    void textToFile_data() {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QString>("path");
        QTest::addColumn<qint64>("mode");
        QTest::addColumn<QString>("expected"); // below home
        QTest::newRow("mode 10 no prefix") << "WindowSizeInfo" << "Desktop" << qint64(10) << "/Desktop/WindowSizeInfo.txt";
        QTest::newRow("mode 4 prefix") << "Table" << "Desktop" << qint64(4) << "/Desktop/230523_195507Table.txt";
        QTest::newRow("Desktop sub-folder") << "a b:c" << "Desktop/Sub" << qint64(0) << "/Desktop/Sub/a_b_c.txt";
        QTest::newRow("path names the file") << "" << "x/y/z.txt" << qint64(0) << "/x/y/z.txt";
        QTest::newRow("no name, no txt") << "" << "x/y" << qint64(0) << "/Desktop/SavedFile.txt";
    }
    void textToFile() {
        QFETCH(QString, fileName);
        QFETCH(QString, path);
        QFETCH(qint64, mode);
        QFETCH(QString, expected);
        TempHome home;
        ScriptedDialogs dialogs;
        Clock::set(QDateTime(QDate(2023, 5, 23), QTime(19, 55, 7)));
        QCOMPARE(FileTools::TextToFile("line", fileName, path, mode), home.home() + expected);
        QCOMPARE(readAll(home.home() + expected), "line");
        QCOMPARE(dialogs.texts(), none());
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
        home.write("p/old/data.txt", "data");
        home.write("p/taken/x", "x");
        home.write("p/file", "f");
        for (const bool show : {true, false}) {
            ScriptedDialogs dialogs;
            QCOMPARE(FileTools::RenameFolder(home.home() + '/' + parent, now, future, show), message.isEmpty());
            QCOMPARE(dialogs.texts(), show && !message.isEmpty() ? QStringList{message} : none());
            QCOMPARE(readAll(home.home() + (message.isEmpty() ? "/p/new/data.txt" : "/p/old/data.txt")), "data");
            if (message.isEmpty()) break;
        }
    }

    void createFolders() {
        TempHome home;
        ScriptedDialogs dialogs;
        QVERIFY(FileTools::CreateAllFoldersInPath("r/s/"));
        QVERIFY(FileTools::CreateAllFoldersInPath(home.desktop() + "/Removed/P03"));
        QVERIFY(QFileInfo(home.home() + "/r/s").isDir() && QFileInfo(home.desktop() + "/Removed/P03").isDir());
        QCOMPARE(FileTools::CreateFolderInAppSupport("ButtonPictures"), QString()); // folder not set yet
        AppGlobals::appSupportFolder = home.programFolder();
        const QString pics = FileTools::CreateFolderInAppSupport("ButtonPictures");
        QCOMPARE(pics, home.programFolder() + "/ButtonPictures");
        QVERIFY(QFile(pics + "/00a.png").open(QIODevice::WriteOnly));
        QCOMPARE(FileTools::CreateFolderInAppSupport("ButtonPictures"), pics); // an existing folder is left alone
        QVERIFY(QFile::exists(pics + "/00a.png"));
        QCOMPARE(dialogs.texts(), QStringList{"Problem with FileTools CreateFolderInAppSupport"});
    }

    void createFolderKnownStart_data() {
        QTest::addColumn<QString>("known");
        QTest::addColumn<QString>("message");
        QTest::newRow("Desktop") << "Desktop" << "";
        QTest::newRow("native path") << "@home/Desktop" << "";
        QTest::newRow("unknown name") << "Downloads" << "CreateFolderKnownStart passed incorrect pathKnown parameter. Not a SpecialFolder.";
        QTest::newRow("missing") << "@home/nowhere" << "CreateFolderKnownStart passed incorrect pathKnown parameter. Does not exist.";
        QTest::newRow("file") << "@home/plain" << "CreateFolderKnownStart passed incorrect pathKnown parameter. Not a folder.";
    }
    void createFolderKnownStart() {
        QFETCH(QString, known);
        QFETCH(QString, message);
        TempHome home;
        ScriptedDialogs dialogs;
        home.write("plain", "p");
        const QString made = FileTools::CreateFolderKnownStart(known.replace("@home", home.home()), "x_Data//ButtonPictures/");
        QCOMPARE(made, message.isEmpty() ? home.desktop() + "/x_Data/ButtonPictures" : QString());
        QCOMPARE(QFileInfo(home.desktop() + "/x_Data/ButtonPictures").isDir(), message.isEmpty());
        QCOMPARE(dialogs.texts(), message.isEmpty() ? none() : QStringList{message});
    }

    void folderListsAndChoosing() {
        TempHome home;
        ScriptedDialogs dialogs;
        for (const char* path : {"d/b.png", "d/.hidden", "d/Zeta/x", "d/.git/x", "d/alpha/x"}) home.write(path, "x");
        QStringList files{"keep"};
        FileTools::FolderFilesToArray(home.home() + "/d", files);
        FileTools::FolderFilesToArray(home.home() + "/none", files);
        QCOMPARE(files, (QStringList{"keep", "b.png"}));
        QStringList folders;
        FileTools::FolderFolderToArray(home.home() + "/d", folders);
        QCOMPARE(folders, (QStringList{".git", "alpha", "Zeta"}));

        const QString scripts = home.home() + "/Apple_Scripts";
        QDir().mkpath(scripts);
        home.write("Apple_Scripts/Go.scpt", "older");
        dialogs.queueFile(home.write("Desktop/Go.scpt", "newer"));
        QCOMPARE(FileTools::ChooseFileAndMoveToSuppliedDestination(scripts, "Choose AppleScript", FileTypeAppleScript::All(), "Desktop"), scripts + "/1_Go.scpt");
        QCOMPARE(dialogs.requests.last().detail, home.desktop());
        QCOMPARE(readAll(scripts + "/Go.scpt"), "older");
        dialogs.queueFile({}); // cancelled
        QCOMPARE(FileTools::FolderItemSelect("Choose", "TextThing", home.home() + "/none"), QString());
        QCOMPARE(dialogs.requests.last().detail, home.home() + "/Documents"); // a missing start falls back
        QVERIFY(dialogs.unexpected.isEmpty());
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

    void strings_data() {
        QTest::addColumn<QString>("call");
        QTest::addColumn<QString>("in");
        QTest::addColumn<QString>("out");
        QTest::newRow("stamp") << "Stamp" << "230523_1955" << "true";
        QTest::newRow("stamp Feb 29 of a common year") << "Stamp" << "230229_1200" << "true";
        QTest::newRow("stamp Feb 30") << "Stamp" << "230230_1200" << "false";
        QTest::newRow("stamp Apr 31") << "Stamp" << "230431_1200" << "false";
        QTest::newRow("stamp Nov 31") << "Stamp" << "231131_1200" << "false";
        QTest::newRow("stamp month 13") << "Stamp" << "231301_1200" << "false";
        QTest::newRow("stamp day 0") << "Stamp" << "230500_1200" << "false";
        QTest::newRow("stamp dash") << "Stamp" << "230523-1955" << "false";
        QTest::newRow("stamp hour 24") << "Stamp" << "230523_2400" << "false";
        QTest::newRow("stamp minute 60") << "Stamp" << "230523_2360" << "false";
        QTest::newRow("stamp short") << "Stamp" << "230523_195" << "false";
        QTest::newRow("stamp long") << "Stamp" << "230523_19550" << "false";
        QTest::newRow("Remove single byte") << "Remove:a" << "a" << "a";
        QTest::newRow("Remove") << "Remove:a" << "ab" << "b";
        QTest::newRow("Remove ignores case") << "Remove: a" << "A cab" << "cb";
        QTest::newRow("IsPosInteger empty") << "IsPosInteger" << "" << "true";
        QTest::newRow("IsPosInteger sign") << "IsPosInteger" << "-1" << "false";
        QTest::newRow("IsUppercase empty") << "IsUppercase" << "" << "false";
        QTest::newRow("IsUppercase accent") << "IsUppercase" << "AÉ" << "false";
        QTest::newRow("doubled blanks") << "Doubled" << "a     b  c" << "a b c";
        QTest::newRow("correct name") << "CorrectFileName" << "a b:c/d" << "a_b_c";
        QTest::newRow("only digits") << "OnlyDigit" << " P07x " << "07";
        QTest::newRow("parent path") << "ParentFolderPath" << "//a//b/c.txt" << "/a/b/";
        QTest::newRow("html body only") << "HTML" << "<html><head><title>T</title></head><body><b>Hi</b></body></html>" << "Hi";
        QTest::newRow("html paragraphs") << "HTML" << "<p>One\ntwo</p><p>Three&nbsp;four<br/>five</p>" << "One two\n\nThree four\nfive";
        QTest::newRow("html white space runs") << "HTML" << "a \t \n  b" << "a \tb";
    }
    void strings() {
        QFETCH(QString, call);
        QFETCH(QString, in);
        auto b = [](bool v) { return QString(v ? "true" : "false"); };
        QString out;
        if (call == "Stamp") out = b(RtrnBoolean::rbValidYYMMDD_HHSS(in));
        else if (call.startsWith("Remove:")) out = StringUtils::Remove(in, call.mid(7));
        else if (call == "IsPosInteger") out = b(StringUtils::IsPosInteger(in));
        else if (call == "IsUppercase") out = b(StringUtils::IsUppercase(in));
        else if (call == "Doubled") out = StringUtils::ReplaceDoubledCharWithSingle(in, " ");
        else if (call == "CorrectFileName") out = RtrnString::rsCorrectFileName(in, 5);
        else if (call == "OnlyDigit") out = RtrnString::rsOnlyDigit(in);
        else if (call == "ParentFolderPath") out = RtrnString::rsParentFolderPath(in);
        else if (call == "HTML") out = RtrnString::rsRawTextFromHTML(in);
        QTEST(out, "out");
    }

    void applicationIsRunning() {
        FakeTools tools;
        const QString id = "com.stairways.keyboardmaestro.engine";
        tools.setAnswer("running:" + id, "true\n");
        QVERIFY(FileTools::ApplicationIsRunning(id));
        tools.setAnswer("running:" + id, "false\n");
        QVERIFY(!FileTools::ApplicationIsRunning(id));
        tools.remove("osascript");
        QVERIFY(!FileTools::ApplicationIsRunning(id));
    }

    void withinScreen() {
        QVERIFY(QGuiApplication::primaryScreen());
        const QRect a = QGuiApplication::primaryScreen()->availableGeometry();
        QVERIFY(WinScrn::IsWithinMainScreenTLBR(a.y(), a.x(), a.height(), a.width())); // the edges count as inside
        QVERIFY(!WinScrn::IsWithinMainScreenTLBR(a.y(), a.x(), a.height(), a.width() + 1));
        QVERIFY(!WinScrn::IsWithinMainScreenTLBR(a.y(), a.x(), a.height() + 1, a.width()));
        QVERIFY(!WinScrn::IsWithinMainScreenTLBR(a.y() - 1, a.x(), 10, 10));
        QVERIFY(!WinScrn::IsWithinMainScreenTLBR(a.y(), a.x() - 1, 10, 10));
    }
};
// clang-format on

QTEST_MAIN(TestUtil)
#include "tst_util.moc"
