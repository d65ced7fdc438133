// The AppleScript manager: what is in Apple_Scripts, what is in the Workshop on the Desktop, which
// buttons link to which script, and the moves between the two folders.
#include "assets/winManageAS.h"
#include "common/Program.h"
#include "help/HelpLabels.h"
#include "palette_window/MainMenuBar.h"
#include "palette_window/winMain.h"
#include "store/ZOR.h"
#include "tst_assets_snapshot.h"

#include <QDir>
#include <QRegularExpression>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

namespace {
const QString kCountMessage = " file(s) with the incorrect extension removed from the AppleScript Folder and "
                              "placed in AppleScriptWorkshop on Desktop.";
const QString kNotSelectable = "That file does not have the proper extension (.scpt) so not selectable.";

// Each row's text in `column` and its tag, as "text:tag".
QStringList cells(const QTreeWidget* list, int column) {
    QStringList out;
    for (int r = 0; r < list->topLevelItemCount(); ++r)
        out << list->topLevelItem(r)->text(column) + ':' +
                   list->topLevelItem(r)->data(column, Qt::UserRole).toString();
    return out;
}

QStringList texts(const QTreeWidget* list) { return cells(list, 0).replaceInStrings(QRegularExpression(":.*$"), ""); }

void link(int palette, int button, const QString& script) {
    (*ZOR::DP[size_t(palette)].a_Btn)[size_t(button)]->ASfile = script;
}
} // namespace

class AssetScriptsTest : public QObject, ProgramFixture {
    Q_OBJECT

    QString scripts() const { return home->programFolder() + "/Apple_Scripts"; }
    QString workshop() const { return home->desktop() + "/AppleScriptWorkshop"; }
    QString script(const QString& name, const QByteArray& bytes = "compiled") const {
        return home->writeInProgram("Apple_Scripts/" + name, bytes);
    }
    std::unique_ptr<winManageAS> open() {
        auto window = std::make_unique<winManageAS>();
        window->Event_Opening();
        return window;
    }

private slots:
    void init() { setUpProgram(); }
    void cleanup() { tearDownProgram(); }

    void openingSortsOutTheFolderAndTheLinks() {
        startWith(3);
        script("good.scpt");
        script("orphan.scpt");
        script("readme.txt", "read me");
        script("a.b.scpt", "dotted");
        home->write("Desktop/AppleScriptWorkshop/readme.txt", "the user's older readme");
        link(0, 3, "good");
        link(0, 5, "missing");
        ZOR::DP[1].s_Alias = kNoShortcut; // a free slot in between: its links still count
        link(1, 9, "good");
        link(2, 7, "missing");
        const HomeSnapshot before(home->home());
        auto w = open();
        QCOMPARE(dialogs->texts(), QStringList({"2" + kCountMessage}));
        QCOMPARE(texts(w->lbRemoved), QStringList({"a.b.scpt", "readme.txt"}));
        QCOMPARE(cells(w->lbAppleScript, 0), QStringList({"good.scpt:", "orphan.scpt:TANGERINE"}));
        QCOMPARE(cells(w->lbActiveAppleScripts, 3),
                 QStringList({"good:", "missing:LAVENDER", "good:", "missing:LAVENDER"}));
        QCOMPARE(cells(w->lbActiveAppleScripts, 0).join(' ') + ' ' +
                     cells(w->lbActiveAppleScripts, 2).join(' '),
                 QString("P00: P00: P01: P02: 03: 05: 09: 07:"));
        QCOMPARE(texts(w->lbWorkshop), QStringList({"readme.txt"})); // the moved ones show at the next refresh
        QCOMPARE(QDir(workshop()).entryList(QDir::Files, QDir::Name),
                 QStringList({"1_readme.txt", "a.b.scpt", "readme.txt"}));
        QCOMPARE(HomeSnapshot::lost(before, HomeSnapshot(home->home())), QStringList());

        // The orange is painted from the tag alone.
        w->show();
        const QRect cell = w->lbAppleScript->visualItemRect(w->lbAppleScript->topLevelItem(1));
        const QImage shot = w->lbAppleScript->viewport()->grab().toImage();
        QCOMPARE(shot.pixelColor(cell.right() - 2, cell.center().y()), QColor(0xFF8000));
    }

    void movesBetweenFolderAndWorkshop() {
        startWith(1);
        script("good.scpt", "mine");
        home->write("Desktop/AppleScriptWorkshop/notes.txt", "notes");
        home->write("Desktop/AppleScriptWorkshop/draft.scpt", "draft");
        link(0, 1, "good");
        auto w = open();
        QCOMPARE(texts(w->lbWorkshop), QStringList({"draft.scpt", "notes.txt"}));

        // A file that is no script is refused at each press.
        w->lbWorkshop_CellPressed(1);
        w->lbWorkshop_CellPressed(1);
        QCOMPARE(dialogs->texts(), QStringList({kNotSelectable, kNotSelectable}));
        QVERIFY(!w->pbMoveToAppleScript->isEnabled());

        // A press selects, a second press on the same row lets go.
        QTest::mouseClick(w->lbAppleScript->viewport(), Qt::LeftButton, {},
                          w->lbAppleScript->visualItemRect(w->lbAppleScript->topLevelItem(0)).center());
        QVERIFY(w->pbMoveToWorkshop->isEnabled() && w->lbAppleScript->topLevelItem(0)->isSelected());
        w->lbAppleScript_CellPressed(0);
        QVERIFY(!w->pbMoveToWorkshop->isEnabled() && !w->lbAppleScript->topLevelItem(0)->isSelected());

        // To the Workshop: the button's link now has no file and turns purple.
        w->lbAppleScript_CellPressed(0);
        w->pbMoveToWorkshop_Pressed();
        QCOMPARE(cells(w->lbActiveAppleScripts, 3), QStringList({"good:LAVENDER"}));
        QCOMPARE(texts(w->lbWorkshop), QStringList({"draft.scpt", "good.scpt", "notes.txt"}));

        // And back.
        w->lbWorkshop_CellPressed(1);
        w->pbMoveToAppleScript_Pressed();
        QCOMPARE(cells(w->lbAppleScript, 0), QStringList({"good.scpt:"}));
        QCOMPARE(cells(w->lbActiveAppleScripts, 3), QStringList({"good:"}));
        QVERIFY(!w->pbMoveToAppleScript->isEnabled() && !w->pbMoveToWorkshop->isEnabled());

        // A plain move never replaces a script of the same name.
        home->write("Desktop/AppleScriptWorkshop/good.scpt", "another good");
        const HomeSnapshot before(home->home());
        w->ListboxRefresh();
        dialogs->clear();
        w->lbWorkshop_CellPressed(1);
        w->pbMoveToAppleScript_Pressed();
        QCOMPARE(dialogs->texts().size(), 1);
        QVERIFY(dialogs->texts().first().startsWith("Could not move good.scpt to Apple_Scripts: "));
        QCOMPARE(HomeSnapshot::lost(before, HomeSnapshot(home->home())), QStringList());
    }

    void addScriptMovesTheChosenFileIn() {
        startWith(1);
        const QString chosen = home->write("Desktop/new.scpt", "new");
        auto w = open();
        QVERIFY(dialogs->requests.isEmpty() && !QFileInfo::exists(workshop())); // nothing to move, no folder
        dialogs->queueFile(chosen);
        w->pbAddToDF_Pressed();
        QCOMPARE(dialogs->requests.first().title + ' ' + dialogs->requests.first().detail,
                 "Choose AppleScript " + home->desktop());
        QVERIFY(!QFileInfo::exists(chosen));
        QCOMPARE(cells(w->lbAppleScript, 0), QStringList({"new.scpt:TANGERINE"}));
    }

    void helpAndMenu() {
        winMain& main = startWith(1);
        main.mainMenuBar->miManageAS->trigger(); // opens the window, whose title comes first below
        auto w = open();
        w->pbHelpManageAS_Pressed();
        QTest::mouseClick(w->labLinked, Qt::LeftButton);
        QTest::mouseClick(w->labDF, Qt::LeftButton);
        QStringList titles;
        for (const auto& r : dialogs->requests)
            titles << r.title;
        QCOMPARE(titles, QStringList({"Manage AppleScript", "Manage AppleScript Overview", "Linked AppleScripts",
                                      "Applescripts Folder"}));
    }
};

QTEST_MAIN(AssetScriptsTest)
#include "tst_assets_scripts.moc"
