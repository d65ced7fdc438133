// Keyboard Maestro macros made by the program: the palette's buttons against the editor's macros,
// Make Missing Macros, and what the user is told when the editor cannot be asked. The editor is a
// fake osascript that keeps its macros in a file and answers as MakeMacros.scpt would.
#include "assets/winMakeMacros.h"
#include "tst_windows.h"

namespace {
const QString kTitle = "Make Keyboard Maestro Macros";
const QString kAllow = "System Settings > Privacy & Security > Automation";
const QString kNotInstalled = QString::fromUtf8(
    "Keyboard Maestro is not installed on this Mac, so ZOR_Palette cannot make the macros of its buttons. "
    "Install Keyboard Maestro (version 8 or later) and choose Make Keyboard Maestro Macros… again. macOS then "
    "asks whether ZOR_Palette may control Keyboard Maestro: allow it, there or later in ") + kAllow + ".";
const QString kNotPermitted = "ZOR_Palette is not allowed to control Keyboard Maestro, so it can neither read nor "
                              "make macros. Allow it in " + kAllow + QString::fromUtf8(": under ZOR_Palette, "
                              "switch Keyboard Maestro on. Then choose Make Keyboard Maestro Macros… again.");
QString failed(const QString& reason) {
    return "Keyboard Maestro could not list or make the macros: " + reason + ". If macOS asked whether "
           "ZOR_Palette may control Keyboard Maestro and you refused, allow it in " + kAllow + ".";
}
const QString kError = "/x/MakeMacros.scpt: execution error: ";
const QString kTwice =
    "Keyboard Maestro cannot tell apart macros that carry the same name. In its editor, rename or "
    "delete all but one of each; Make Missing Macros leaves them alone.";

// What the window shows: its rows, summary, note and whether Make is enabled.
QStringList seen(const winMakeMacros& w) {
    return rows(w.lbMacros, {0, 1, 2}) << w.labSummary->text() << w.labNote->text()
                                       << (w.pbMake->isEnabled() ? "Make enabled" : "Make disabled");
}
} // namespace

class KmMacrosTest : public WindowTest {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> editor; // the fake editor, first on PATH
    QByteArray path;
    QString script =
        QDir::cleanPath(QCoreApplication::applicationDirPath() + "/../Resources/MakeMacros.scpt");

    QString call(const QStringList& arguments) const {
        return (QStringList{"osascript", script} + arguments).join('\t');
    }
    QStringList calls() const {
        return QString::fromUtf8(readAll(editor->filePath("calls.log"))).split('\n', Qt::SkipEmptyParts);
    }
    void editorHas(const QStringList& lines) const { write("macros.txt", lines.join('\n') + '\n'); }
    void editorFails(const QString& text) const { write("fails", text); }
    void write(const QString& name, const QString& text) const {
        QFile file(editor->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }

    // P00 of 2 rows and 4 columns; 07 and 20 are marked too but lie outside its grid.
    winMain& paletteMarking(const QList<int>& marked) {
        winMain& main = startWith(1, 2, 4);
        for (int b : marked)
            button(b).KM_Active = true;
        return main;
    }

    // Opens the window from the menu; `inside` runs while it is open. What it showed, or nothing.
    QStringList openFromMenu(winMain& main, const std::function<void(winMakeMacros&)>& inside = {}) {
        QStringList shown;
        dialogs->onWindow = [&](QDialog& d) {
            auto& w = static_cast<winMakeMacros&>(d);
            if (inside) inside(w);
            shown = seen(w);
        };
        main.mainMenuBar->miMakeMacros->trigger();
        return shown;
    }

private slots:
    void init() {
        WindowTest::init();
        editor = std::make_unique<QTemporaryDir>();
        QFile::copy(ZOR_FAKES_DIR "/keyboard_maestro_osascript", editor->filePath("osascript"));
        path = qgetenv("PATH");
        qputenv("PATH", editor->path().toUtf8() + ':' + path);
    }
    void cleanup() {
        qputenv("PATH", path);
        editor.reset();
        WindowTest::cleanup();
    }

    void listsEachButtonWithItsState_data() {
        QTest::addColumn<QList<int>>("marked");
        QTest::addColumn<QStringList>("macros"); // the editor's, group TAB name
        QTest::addColumn<QStringList>("shown");
        QTest::newRow("every state")
            << QList<int>{1, 2, 3, 12, 7, 20}
            << QStringList{"A\tZOR P00 01", "A\tOther", "B\tZOR P00 02", "A\tzor p00 02", "A\tZOR P01 03", "A\tZOR P00 03 old"}
            << QStringList{"01|ZOR P00 01|exists", "02|ZOR P00 02|more than one", "03|ZOR P00 03|missing",
                           "12|ZOR P00 12|missing", "1 exists, 2 missing, 1 more than one.", kTwice, "Make enabled"};
        QTest::newRow("all exist") << QList<int>{1, 12} << QStringList{"A\tZOR P00 12", "B\tZOR P00 01"}
                                   << QStringList{"01|ZOR P00 01|exists", "12|ZOR P00 12|exists",
                                                  "2 exists, 0 missing, 0 more than one.", "", "Make disabled"};
        QTest::newRow("an editor without macros")
            << QList<int>{3} << QStringList{}
            << QStringList{"03|ZOR P00 03|missing", "0 exists, 1 missing, 0 more than one.", "", "Make enabled"};
        // A palette without Keyboard Maestro buttons needs nothing of the editor.
        QTest::newRow("no buttons marked")
            << QList<int>{7, 20} << QStringList{"A\tZOR P00 07"}
            << QStringList{"No button of this palette is marked Keyboard Maestro. Mark buttons in Grid Construct first.",
                           "", "Make disabled"};
    }
    void listsEachButtonWithItsState() {
        QFETCH(QList<int>, marked);
        QFETCH(QStringList, macros);
        winMain& main = paletteMarking(marked);
        editorHas(macros);
        QTEST(openFromMenu(main), "shown");
        QCOMPARE(calls(), marked == QList<int>({7, 20}) ? QStringList() : QStringList{call({"names"})});
        QCOMPARE(dialogs->titles(), QStringList{kTitle});
        const QList<QAction*> items = main.mainMenuBar->muConfigure->actions();
        QCOMPARE(items.indexOf(main.mainMenuBar->miMakeMacros),
                 items.indexOf(main.mainMenuBar->miManageAS) + 1);
        QCOMPARE(main.mainMenuBar->miMakeMacros->text(), QString::fromUtf8("Make Keyboard Maestro Macros…"));
    }

    // Only the missing names are asked for, in the palette's group, each name and the alias whole.
    void makeAsksOnlyForTheMissing() {
        winMain& main = paletteMarking({1, 2, 3, 12});
        ZOR::paleAlias = QString::fromUtf8("Büro \"Ω\" \\ 東京 $(x)");
        const QString group = "ZOR P00 " + ZOR::paleAlias;
        const QStringList before{"Mine\tZOR P00 01", "Old\tZOR P00 02", "Old\tZOR P00 02"};
        editorHas(before);
        QString heading;
        const QStringList shown = openFromMenu(main, [&](winMakeMacros& w) {
            heading = w.labPalette->text() + '|' + w.labGroup->text();
            w.pbMake_Pressed();
            w.pbMake_Pressed(); // nothing is missing any more: nothing is asked
        });
        QCOMPARE(heading, "Palette P00  " + ZOR::paleAlias +
                              QString::fromUtf8("|Missing macros are made in the macro group “") + group +
                              QString::fromUtf8("”."));
        QCOMPARE(calls(), QStringList({call({"names"}), call({"make", group, "ZOR P00 03", "ZOR P00 12"}),
                                       call({"names"})}));
        QCOMPARE(shown, QStringList({"01|ZOR P00 01|exists", "02|ZOR P00 02|more than one",
                                     "03|ZOR P00 03|exists", "12|ZOR P00 12|exists",
                                     "3 exists, 0 missing, 1 more than one.", kTwice, "Make disabled"}));
        QCOMPARE(dialogs->texts(),
                 QStringList({"", QString::fromUtf8("Made 2 macros in the macro group “") + group +
                                      QString::fromUtf8("”. The Keyboard Maestro editor shows the "
                                                        "group: give each new macro its actions there.")}));
        QCOMPARE(QString::fromUtf8(readAll(editor->filePath("macros.txt"))).split('\n', Qt::SkipEmptyParts),
                 before + QStringList({group + "\tZOR P00 03", group + "\tZOR P00 12"}));
    }

    // One message that says which, and nothing else: no window at the opening, no list anew after Make.
    void failuresAreToldAlone_data() {
        QTest::addColumn<bool>("atMake");
        QTest::addColumn<QString>("error"); // osascript's standard error
        QTest::addColumn<QString>("message");
        const auto row = [](const char* name, bool atMake, const QString& error, const QString& message) {
            QTest::newRow(name) << atMake << error << message;
        };
        const QString refused = kError + "Not authorized to send Apple events to Keyboard Maestro. (-1743)\n";
        row("permission refused", false, refused, kNotPermitted);
        row("permission refused at Make", true, refused, kNotPermitted);
        // clang-format off
        row("application not found", false, kError + QString::fromUtf8("Can’t get application \"Keyboard Maestro\". (-1728)\n"), kNotInstalled);
        row("application not running", true, kError + QString::fromUtf8("Application isn’t running. (-600)"), kNotInstalled);
        row("no application of that identifier", false, kError + QString::fromUtf8("The application can’t be found. (-10814)"), kNotInstalled);
        const QString noGroup = QString::fromUtf8("Keyboard Maestro got an error: Can’t get macro group 1.");
        row("an object of the editor not found", true, kError + noGroup + " (-1728)", failed(noGroup));
        const QString handler = "Keyboard Maestro got an error: AppleEvent handler failed.";
        row("the script failed", false, "warning: slow\n" + kError + handler + " (-10000)\n", failed(handler));
        row("no number", true, "osascript: couldn't read the script\n", failed("osascript: couldn't read the script"));
        // clang-format on
    }
    void failuresAreToldAlone() {
        QFETCH(bool, atMake);
        QFETCH(QString, error);
        QFETCH(QString, message);
        winMain& main = paletteMarking({1, 3});
        editorHas({"A\tZOR P00 01"});
        const QStringList listed{"01|ZOR P00 01|exists", "03|ZOR P00 03|missing",
                                 "1 exists, 1 missing, 0 more than one.", "", "Make enabled"};
        if (!atMake) editorFails(error);
        const QStringList shown = openFromMenu(main, [&](winMakeMacros& w) {
            editorFails(error);
            w.pbMake_Pressed();
        });
        QCOMPARE(shown, atMake ? listed : QStringList());
        QCOMPARE(dialogs->texts(), atMake ? QStringList({"", message}) : QStringList{message});
        QCOMPARE(calls(), QStringList{call({"names"})} +
                              (atMake ? QStringList{call({"make", "ZOR P00 Original", "ZOR P00 03"})}
                                      : QStringList()));
    }
};

QTEST_MAIN(KmMacrosTest)
#include "tst_km_macros.moc"
