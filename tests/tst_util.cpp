#include "tst_windows.h"
#include "util/FileTools.h"
#include "util/RtrnDateString.h"
#include "util/StringUtils.h"
#include "util/WinScrn.h"

#include <csignal>
#include <sys/resource.h>

// Tables stay one row a line.
// clang-format off

class TestUtil : public QObject {
    Q_OBJECT
    std::optional<TempHome> home;
    std::optional<ScriptedDialogs> dialogs;
private slots:
    // Each test in a fresh home, its dialogs recorded.
    void init() { home.emplace(), dialogs.emplace(); }
    void cleanup() { dialogs.reset(), home.reset(), Clock::reset(); }

    void alphaDateTime() {
        Clock::set(QDateTime(QDate(2023, 5, 23), QTime(19, 55, 7, 42)));
        QStringList forms;
        for (int m = 0; m <= 14; ++m) { RtrnDateString::resetCounter(); forms << RtrnDateString::rsAlphaDateTime(m); }
        QCOMPARE(forms, (QStringList{"230523_195507", "230523", "230523_19", "230523_1955", "230523_195507", "2305231955", // 0 falls back to 4
                                     "2023.05.23", "230523_195507Aa", "05/23/2023 19:55:07", "20230523_195507", "230523_195507_042000000",
                                     "230523_195507_042000", "230523_195507_042", "230523_16oxia", "195507"}));
        Clock::set(QDateTime(QDate(2023, 5, 23), QTime(0, 0, 1)));
        QCOMPARE(RtrnDateString::rsAlphaDateTime(13), "230523_0000rs"); // leading zeros kept
        RtrnDateString::resetCounter();
        QStringList seen;
        for (int i = 0; i < 26 * 26 + 1; ++i) seen << RtrnDateString::rsAlphaDateTime(7).right(2);
        QCOMPARE(seen.mid(25, 2), (QStringList{"Az", "Ba"}));
        QCOMPARE(seen.mid(26 * 26 - 1, 2), (QStringList{"Zz", "Aa"})); // past Zz it starts again
    }


    void moveRenameNeverOverwrites() {
        const QString file = home->write("src/p.png", "moved");
        for (const QString n : {"dst/p.png", "dst/1_p.png", "src/2_p.png"}) home->write(n, n.toUtf8());
        // 1_ is taken where the file goes, 2_ where it comes from.
        QCOMPARE(FileTools::MoveRenameIfNecessary(file, home->home() + "/dst"), home->home() + "/dst/3_p.png");
        QStringList now;
        for (const QString n : {"src/p.png", "dst/p.png", "dst/1_p.png", "src/2_p.png", "dst/3_p.png"}) now << readAll(home->home() + '/' + n);
        QCOMPARE(now, (QStringList{"", "dst/p.png", "dst/1_p.png", "src/2_p.png", "moved"}));
    }

    void stringToFileItem() {
        const QString text = QString::fromUtf8("{\"s_Alias\":\"Caf\xC3\xA9 \xE2\x90\x80\"}\n");
        for (const QString name : {"PreserveState", "notes.text"}) { // .txt added only where no extension
            const QString target = home->write("f/" + (name == "PreserveState" ? name + ".txt" : name), QByteArray(5000, 'x'));
            QVERIFY(FileTools::StringToFileItem(text, name, home->home() + "/f"));
            QCOMPARE(readAll(target), text.toUtf8()); // no BOM, nothing left of the longer old content
        }
        QVERIFY(!FileTools::StringToFileItem("x", "PreserveState", home->home() + "/f/notes.text/sub"));
        QCOMPARE(dialogs->beeps(), 1);
        QCOMPARE(dialogs->texts(), QStringList{"Somehow unable to create the PreserveState.txt file. Method: StringToFileItem"});

        // A write that runs out of room (a file-size limit binds root too) must keep the old file.
        dialogs->clear();
        const QString target = home->write("f/PreserveState.txt", "old");
        const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit before{};
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit tight{16, before.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &tight), 0);
        const bool written = FileTools::StringToFileItem(QString(4096, 'y'), "PreserveState", home->home() + "/f");
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, oldHandler);
        QVERIFY(!written);
        QCOMPARE(readAll(target), "old");
        const QString shown = dialogs->texts().join('|');
        QVERIFY2(QRegularExpression("^Could not save PreserveState.txt: [^|]+\\. The file that was there before is unchanged\\.$").match(shown).hasMatch(), qPrintable(shown));
        QCOMPARE(QDir(home->home() + "/f").entryList(QDir::Files), (QStringList{"notes.text", "PreserveState.txt"}));
    }

    void textToFile() {
        home->write(".config/user-dirs.dirs", "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n"); // not simply home + "/Desktop"
        Clock::set(QDateTime(QDate(2023, 5, 23), QTime(19, 55, 7)));
        const struct { QString fileName, path; qint64 mode; QString expected; } rows[] = { // expected below home
            {"Table", "Desktop", 4, "/Schreibtisch/230523_195507Table.txt"}, {"WindowSizeInfo", "Desktop", 10, "/Schreibtisch/WindowSizeInfo.txt"},
            {"a b:c", "Desktop/Sub", 0, "/Schreibtisch/Sub/a_b_c.txt"}, {"", "a//b/.c.txt", 0, "/a/b/_c.txt"},
            {"", home->home() + "/x/z.txt", 0, "/x/z.txt"}, {"", "x/y", 0, "/Schreibtisch/SavedFile.txt"}}; // no name, no .txt
        for (auto [fileName, path, mode, expected] : rows) {
#ifdef Q_OS_MACOS
            expected.replace("/Schreibtisch/", "/Desktop/"); // the Mac's Desktop has one name
#endif
            QCOMPARE(FileTools::TextToFile("line", fileName, path, mode), home->home() + expected);
            QCOMPARE(readAll(home->home() + expected), "line");
        }
        // ".." never climbs out of home; a folder that cannot be made stops with the message.
        const QString outside = QFileInfo(home->home()).path();
        QCOMPARE(FileTools::TextToFile("x", "up", "../../zor_up", 0), home->home() + "/zor_up/up.txt");
        QCOMPARE(FileTools::TextToFile("x", "up", home->home() + "/../zor_up", 0), home->home() + outside + "/zor_up/up.txt");
        QVERIFY(!QFileInfo::exists(outside + "/zor_up")); // the folder beside home is shared: look only for ours
        home->write("blocker", "mine");
        QCOMPARE(FileTools::TextToFile("x", "n", "blocker/sub", 0), QString());
        QCOMPARE(dialogs->beeps(), 1);
        QCOMPARE(readAll(home->home() + "/blocker"), "mine");
        QCOMPARE(dialogs->texts(), (QStringList{"Oops! FileTools.CreateAllFoldersInPath\nMODULE: FileTools\nMETHOD: CreateAllFoldersInPath\nTYPE: IOException",
                                               "Somehow unable to create the n.txt file. Method: TextToFile"})); // the rows above told nothing
    }

    void removeWordToFit() {
        // maxWidth: the width of fitsJust and a little; with no fitsJust, 1 pixel
        const auto fit = [](const QString& text, const QString& fitsJust = {}) {
            return StringUtils::RemoveWordToFit(text, "Helvetica", 14, fitsJust.isEmpty() ? 1.0 : StringUtils::MeasureString(fitsJust, "Helvetica", 14) + 0.5);
        };
        // Short; cut at a word; that word alone, though "Hello…" would fit; white space only, as a hand-edited tip may be.
        QCOMPARE((QStringList{fit("abcd"), fit("Open the\nmail  program now", "Open the mail…"), fit("Hello world", "Hello…"), fit("  \n \r\n \t  ")}),
                 (QStringList{"abcd", "Open the mail…", "Hello", ""}));
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
