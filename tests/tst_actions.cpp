#include "actions/Launchers.h"
#include "common/FakeTools.h"
#include "common/ScriptedDialogs.h"
#include "common/TempHome.h"
#include "store/ZOR.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QtTest>

namespace {
void row(const char* tag, const QString& a, const QString& b) {
    QTest::newRow(tag) << a << b;
}
} // namespace

class tst_actions : public QObject {
    Q_OBJECT
private slots:
    void normalise_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("stem"); // with the extension: stem + ".scpt", or empty
        for (const char* name : {"Mail.scpt", " Mail\t", "Mail.txt"})
            row(name, name, "Mail");
        row("empty", "", "");
        row("full stop", ".", "");
        row("extension only", ".scpt", "");
        row("a.b.c", "a.b.c", "a");
        row("dollar ends the name", "x$y.scpt", "x");
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
        row("present", "Mail.txt", "Mail.scpt");
        row("case as on disk", "mail", "Mail.scpt");
        row("absent", "Notes", "");
        row("only in another folder", "Old", "");
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
        QTest::addColumn<QString>("openExit");
        QTest::addColumn<QString>("url"); // open's one argument; empty when open must not run
        QTest::addColumn<QString>("message");
        const QString run = "shortcuts://run-shortcut?name=";
        auto fire = [](const char* name, QString exit, QString url, QString message) {
            QTest::newRow(name) << QString(name) << exit << url << message;
        };
        fire("My Café Day", "0", run + "My%20Caf%C3%A9%20Day", {});
        fire("Say \"hi\"; rm -rf ~", "0", run + "Say%20%22hi%22%3B%20rm%20-rf%20~", {});
        for (const char* name : {"mail", "My"}) // listed are "Mail" and "My Day"
            fire(name, "0", {}, QString("The Shortcut, %1 does not exist on this computer.").arg(name));
        fire("Mail", "3", run + "Mail", "Error Code: 3");
    }
    void shortcut() {
        QFETCH(QString, name);
        QFETCH(QString, openExit);
        QFETCH(QString, url);
        QFETCH(QString, message);
        FakeTools tools;
        ScriptedDialogs dialogs;
        tools.setAnswer("shortcuts", "\nMail\nMy Café Day\nSay \"hi\"; rm -rf ~\nMy Day\n");
        tools.setAnswer("open.exit", openExit);
        ZOR::FireSC(name);
        QStringList calls{"shortcuts\tlist"};
        if (!url.isEmpty()) calls << "open\t" + url;
        QCOMPARE(tools.log(), calls);
        QCOMPARE(dialogs.texts(), message.isEmpty() ? QStringList() : QStringList{message});
    }

    void engineCheck_data() {
        QTest::addColumn<QString>("engine");
        QTest::addColumn<QString>("editorEngine");
        QTest::addColumn<bool>("runs");
        QTest::addColumn<int>("checks");
        QTest::newRow("engine") << QString("true") << QString("true") << true << 1;
        QTest::newRow("only the editor's engine") << QString("false") << QString("true") << true << 2;
        QTest::newRow("neither") << QString("false") << QString("false") << false << 2;
    }
    void engineCheck() {
        QFETCH(QString, engine);
        QFETCH(QString, editorEngine);
        FakeTools tools;
        ScriptedDialogs dialogs;
        tools.setAnswer("running:com.stairways.keyboardmaestro.engine", engine);
        tools.setAnswer("running:com.stairways.keyboardmaestro.editor.engine", editorEngine);
        QTEST(ZOR::KeyboardMaestroEngineRuns(), "runs");
        QTEST(int(tools.log().size()), "checks");
        QVERIFY(tools.log().first().endsWith("\"com.stairways.keyboardmaestro.engine\" is running"));
    }

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
        if (arguments.size() == 2)
            ZOR::FireKM(arguments[0], arguments[1]);
        else
            ZOR::FireAS(arguments[0]);
        const QString resources =
            QFileInfo(QCoreApplication::applicationDirPath()).dir().filePath("Resources");
        const QString call =
            QStringList{"osascript", resources + '/' + script, arguments.join('\t')}.join('\t');
        QTRY_COMPARE(tools.log(), QStringList{call});

        tools.remove("osascript");
        FirePalette({"P00", "00"});
        QCOMPARE(dialogs.texts(),
                 QStringList{"Cannot run FirePalette.scpt: osascript could not be started."});
    }

    void shortcutKeys_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("sID");
        row("lower case", "a", "00");
        row("upper case", "A", "26");
        row("same letter twice: lower index", "q", "40");
        row("hidden button", "h", "99");
        row("no button", "z", "");
    }
    void shortcutKeys() {
        QFETCH(QString, key);
        ZOR::aBtn = std::make_shared<std::vector<BtnRef>>();
        for (int i = 0; i < kButtonsPerPalette; ++i)
            ZOR::aBtn->push_back(
                std::make_shared<Btn>(Btn{.Shortcut = kNoShortcut, .sID = QString::asprintf("%02d", i)}));
        for (auto [index, letter] : {std::pair{0, "a"}, {26, "A"}, {73, "q"}, {40, "q"}, {99, "h"}})
            (*ZOR::aBtn)[index]->Shortcut = letter;
        (*ZOR::aBtn)[99]->Vis = false;
        QTEST(ZOR::sID_FromShortcut(key), "sID");
    }
};

QTEST_MAIN(tst_actions)
#include "tst_actions.moc"
