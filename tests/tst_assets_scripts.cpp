// The AppleScript manager: what is in Apple_Scripts, what is in the Workshop on the Desktop, which
// buttons link to which script, and the moves between the two folders.
#include "assets/winManageAS.h"
#include "tst_windows.h"

namespace {
const QString kCountMessage = " file(s) with the incorrect extension removed from the AppleScript Folder and "
                              "placed in AppleScriptWorkshop on Desktop.";
const QString kNotSelectable = "That file does not have the proper extension (.scpt) so not selectable.";

void link(int palette, int button, const QString& script) {
    (*ZOR::DP[size_t(palette)].a_Btn)[size_t(button)]->ASfile = script;
}
} // namespace

class AssetScriptsTest : public WindowTest {
    Q_OBJECT

    QString workshop() const { return home->desktop() + "/AppleScriptWorkshop"; }

private slots:
    void openingSortsOutTheFolderAndTheLinks() {
        startWith(3);
        for (const QString name :
             {"good.scpt", "orphan.scpt", "readme.txt", "a.b.scpt", "Mail.scpt", "Upper.SCPT"})
            home->writeInProgram("Apple_Scripts/" + name, name.toUtf8());
        home->write("Desktop/AppleScriptWorkshop/readme.txt", "the user's older readme");
        link(0, 3, "good");
        link(0, 5, "missing");
        link(0, 1, "mail"); // names compare without regard to case, as on the Mac's disks
        link(0, 2, "Upper");
        ZOR::DP[1].s_Alias = kNoShortcut; // a free slot in between: its links still count
        link(1, 9, "good");
        link(2, 7, "missing");
        const HomeFiles before = snapshot(home->home());
        auto w = opened<winManageAS>();
        QCOMPARE(dialogs->texts(), QStringList({"2" + kCountMessage}));
        // The moved ones show in the Workshop's list at the next refresh.
        QCOMPARE(rows(w->lbRemoved) + rows(w->lbAppleScript) + rows(w->lbWorkshop),
                 QStringList({"a.b.scpt", "readme.txt", "good.scpt", "Mail.scpt", "orphan.scpt:TANGERINE",
                              "Upper.SCPT", "readme.txt"}));
        QCOMPARE(rows(w->lbActiveAppleScripts, {0, 1, 2, 3}),
                 QStringList({"P00|Original|01|mail", "P00|Original|02|Upper", "P00|Original|03|good",
                              "P00|Original|05|missing:LAVENDER", "P01|" + kNoShortcut + "|09|good",
                              "P02|" + ZOR::DP[2].s_Alias + "|07|missing:LAVENDER"}));
        QCOMPARE(QDir(workshop()).entryList(QDir::Files, QDir::Name),
                 QStringList({"1_readme.txt", "a.b.scpt", "readme.txt"}));
        QCOMPARE(lostSince(before, home->home()), QStringList());

        // The orange is painted from the tag alone.
        w->show();
        const QRect cell = w->lbAppleScript->visualItemRect(w->lbAppleScript->topLevelItem(2));
        const QImage shot = w->lbAppleScript->viewport()->grab().toImage();
        QCOMPARE(shot.pixelColor(cell.right() - 2, cell.center().y()), QColor(0xFF8000));
    }

    void movesBetweenFolderAndWorkshop() {
        startWith(1);
        home->writeInProgram("Apple_Scripts/good.scpt", "mine");
        home->write("Desktop/AppleScriptWorkshop/notes.txt", "notes");
        home->write("Desktop/AppleScriptWorkshop/draft.scpt", "draft");
        link(0, 1, "good");
        auto w = opened<winManageAS>();

        // A file that is no script is refused at each press.
        w->lbWorkshop_CellPressed(1);
        w->lbWorkshop_CellPressed(1);
        QCOMPARE(dialogs->texts(), QStringList({kNotSelectable, kNotSelectable}));
        QVERIFY(!w->pbMoveToAppleScript->isEnabled());

        // A press selects, a second press on the same row lets go.
        const auto chosen = [&] { // the move enabled, the row selected
            return QList<bool>{w->pbMoveToWorkshop->isEnabled(), w->lbAppleScript->topLevelItem(0)->isSelected()};
        };
        pressRow(w->lbAppleScript, 0);
        QCOMPARE(chosen(), QList<bool>({true, true}));
        w->lbAppleScript_CellPressed(0);
        QCOMPARE(chosen(), QList<bool>({false, false}));

        // To the Workshop, where the button's link has no file and turns purple, and back.
        w->lbAppleScript_CellPressed(0);
        w->pbMoveToWorkshop_Pressed();
        QCOMPARE(rows(w->lbWorkshop) + rows(w->lbActiveAppleScripts, {3}),
                 QStringList({"draft.scpt", "good.scpt", "notes.txt", "good:LAVENDER"}));
        w->lbWorkshop_CellPressed(1);
        w->pbMoveToAppleScript_Pressed();
        QCOMPARE(rows(w->lbAppleScript) + rows(w->lbActiveAppleScripts, {3}),
                 QStringList({"good.scpt", "good"}));
        QVERIFY(!w->pbMoveToAppleScript->isEnabled() && !w->pbMoveToWorkshop->isEnabled());

        // A plain move never replaces a script of the same name.
        home->write("Desktop/AppleScriptWorkshop/good.scpt", "another good");
        const HomeFiles before = snapshot(home->home());
        w->ListboxRefresh();
        dialogs->clear();
        w->lbWorkshop_CellPressed(1);
        w->pbMoveToAppleScript_Pressed();
        const QString told = dialogs->texts().join('|');
        QVERIFY2(dialogs->texts().size() == 1 && told.startsWith("Could not move good.scpt to Apple_Scripts: "), qPrintable(told));
        QCOMPARE(lostSince(before, home->home()), QStringList());
    }
};

QTEST_MAIN(AssetScriptsTest)
#include "tst_assets_scripts.moc"
