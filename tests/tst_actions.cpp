#include "actions/Launchers.h"
#include "common/FakeTools.h"
#include "common/ScriptedDialogs.h"
#include "common/TempHome.h"
#include "store/ZOR.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QtTest>

class tst_actions : public QObject {
    Q_OBJECT
private slots:
    void normalise_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("stem"); // with the extension: stem + ".scpt", or empty
        for (const char* name : {"Mail.scpt", " Mail\t", "Mail.txt"})
            QTest::newRow(name) << name << "Mail";
        // Only the first full stop counts, and a "$" before it ends the name.
        for (auto [name, stem] :
             {std::pair{"", ""}, {".", ""}, {".scpt", ""}, {"a.b.c", "a"}, {"x$y.scpt", "x"}})
            QTest::newRow(*name ? name : "empty") << name << stem;
    }
    void normalise() {
        QFETCH(QString, name);
        QFETCH(QString, stem);
        QCOMPARE(ZOR::rsWithWithoutScpt(name, false), stem);
        QCOMPARE(ZOR::rsWithWithoutScpt(name, true), stem.isEmpty() ? stem : stem + ".scpt");
    }

    void scriptName_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("expected");
        // Found in the scripts folder only, with its case as on disk.
        for (auto [name, file] : {std::pair{"Mail.txt", "Mail.scpt"}, {"mail", "Mail.scpt"}, {"Old", ""}})
            QTest::newRow(name) << name << file;
    }
    void scriptName() {
        QFETCH(QString, name);
        TempHome home;
        ScriptedDialogs dialogs;
        const QString folder = QDir(home.home()).relativeFilePath(home.programFolder());
        home.write(folder + "/Apple_Scripts/Mail.scpt", "x");
        home.write(folder + "/Old.scpt", "x");
        QTEST(ZOR::rsScriptName(name), "expected");
    }

    void shortcut_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("openExit");
        QTest::addColumn<QString>("url"); // open's one argument; empty when open must not run
        QTest::addColumn<QStringList>("messages");
        const QString run = "shortcuts://run-shortcut?name=";
        QTest::newRow("percent-encoded")
            << "My Café Day" << 0 << run + "My%20Caf%C3%A9%20Day" << QStringList();
        QTest::newRow("one argument, never a command line")
            << "Say \"hi\"; rm -rf ~" << 0 << run + "Say%20%22hi%22%3B%20rm%20-rf%20~" << QStringList();
        for (const char* name : {"mail", "My"}) // listed are "Mail" and "My Day"
            QTest::newRow(name)
                << name << 0 << QString()
                << QStringList{QString("The Shortcut, %1 does not exist on this computer.").arg(name)};
        QTest::newRow("open fails") << "Mail" << 3 << run + "Mail" << QStringList{"Error Code: 3"};
    }
    void shortcut() {
        QFETCH(QString, name);
        QFETCH(int, openExit);
        QFETCH(QString, url);
        FakeTools tools;
        ScriptedDialogs dialogs;
        tools.setAnswer("shortcuts", "\nMail\nMy Café Day\nSay \"hi\"; rm -rf ~\nMy Day\n");
        tools.setAnswer("open.exit", QString::number(openExit));
        ZOR::FireSC(name);
        QCOMPARE(tools.log(), QStringList{"shortcuts\tlist"} +
                                  (url.isEmpty() ? QStringList() : QStringList{"open\t" + url}));
        QTEST(dialogs.texts(), "messages");
    }

    // Either Keyboard Maestro engine will do: its own, or the one inside the editor.
    void engineCheck() {
        FakeTools tools;
        ScriptedDialogs dialogs;
        QList<bool> runs;
        for (auto [engine, editor] : {std::pair{"true", "false"}, {"false", "true"}, {"false", "false"}}) {
            tools.setAnswer("running:com.stairways.keyboardmaestro.engine", engine);
            tools.setAnswer("running:com.stairways.keyboardmaestro.editor.engine", editor);
            runs << ZOR::KeyboardMaestroEngineRuns();
        }
        QCOMPARE(runs, (QList<bool>{true, true, false}));
    }

    // Each argument reaches the bundled script whole; without osascript the user is told.
    void bridges_data() {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("FireKM") << "FirePalette.scpt" << QStringList{"P02", "07"};
        QTest::newRow("FireAS") << "FireAppleScript.scpt" << QStringList{"Say \"hi\"; now.scpt"};
    }
    void bridges() {
        QFETCH(QString, script);
        QFETCH(QStringList, arguments);
        FakeTools tools;
        ScriptedDialogs dialogs;
        const auto fire = [&] {
            arguments.size() == 2 ? ZOR::FireKM(arguments[0], arguments[1]) : ZOR::FireAS(arguments[0]);
        };
        fire();
        const QString resources =
            QFileInfo(QCoreApplication::applicationDirPath()).dir().filePath("Resources");
        QTRY_COMPARE(tools.log(),
                     QStringList{"osascript\t" + resources + '/' + script + '\t' + arguments.join('\t')});
        tools.remove("osascript");
        fire();
        QCOMPARE(dialogs.texts(), QStringList{"Cannot run " + script + ": osascript could not be started."});
    }
};

QTEST_MAIN(tst_actions)
#include "tst_actions.moc"
