#include "actions/Launchers.h"
#include "tst_windows.h"

class tst_actions : public QObject {
    Q_OBJECT
private slots:
    // Without and with ".scpt": only the first full stop counts, and a "$" before it ends the name.
    void normalise() {
        QStringList forms;
        for (const char* name : {"Mail.scpt", " Mail\t", "Mail.txt", "", ".", ".scpt", "a.b.c", "x$y.scpt"})
            forms << ZOR::rsWithWithoutScpt(name, false) + '|' + ZOR::rsWithWithoutScpt(name, true);
        QCOMPARE(forms, (QStringList{"Mail|Mail.scpt", "Mail|Mail.scpt", "Mail|Mail.scpt", "|", "|", "|",
                                     "a|a.scpt", "x|x.scpt"}));
    }

    // Found in the scripts folder only, with its case as on disk.
    void scriptName() {
        TempHome home;
        ScriptedDialogs dialogs;
        home.writeInProgram("Apple_Scripts/Mail.scpt", "x");
        home.writeInProgram("Old.scpt", "x");
        QCOMPARE((QStringList{ZOR::rsScriptName("Mail.txt"), ZOR::rsScriptName("mail"), ZOR::rsScriptName("Old")}),
                 (QStringList{"Mail.scpt", "Mail.scpt", ""}));
    }

    void shortcut_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("openExit");
        QTest::addColumn<QString>("url"); // open's one argument; empty when open must not run
        QTest::addColumn<QStringList>("messages");
        const QString run = "shortcuts://run-shortcut?name=";
        QTest::newRow("one encoded argument")
            << "Café \"hi\"; rm ~" << 0 << run + "Caf%C3%A9%20%22hi%22%3B%20rm%20~" << QStringList();
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
        tools.setAnswer("shortcuts", "\nMail\nCafé \"hi\"; rm ~\nMy Day\n");
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
    void bridges() {
        const QString resources =
            QFileInfo(QCoreApplication::applicationDirPath()).dir().filePath("Resources");
        for (const QStringList& arguments : {QStringList{"P02", "07"}, QStringList{"Say \"hi\"; now.scpt"}}) {
            FakeTools tools;
            ScriptedDialogs dialogs;
            const QString script = arguments.size() == 2 ? "FirePalette.scpt" : "FireAppleScript.scpt";
            const auto fire = [&] {
                arguments.size() == 2 ? ZOR::FireKM(arguments[0], arguments[1]) : ZOR::FireAS(arguments[0]);
            };
            fire();
            QTRY_COMPARE(tools.log(),
                         QStringList{"osascript\t" + resources + '/' + script + '\t' + arguments.join('\t')});
            tools.remove("osascript");
            fire();
            QCOMPARE(dialogs.texts(),
                     QStringList{"Cannot run " + script + ": osascript could not be started."});
        }
    }
};

QTEST_MAIN(tst_actions)
#include "tst_actions.moc"
