// The palette window at work: painting, clicks, keys, menus, switching, the bar, the launchers.
#include "actions/Launchers.h"
#include "design/ccGC.h"
#include "design/winConstruct.h"
#include "tst_windows.h"
#include "util/MenuBars.h"
#include "util/Sharp.h"

#include <QElapsedTimer>
#include <QMimeData>

namespace {
const QString kEngine = "running:com.stairways.keyboardmaestro.engine";
const QString kLongTip = "Opens the quarterly report of the northern region in the spreadsheet program";
QColor barColour(const winMain& w) {
    return w.rectBackgroundTip->palette().color(QPalette::Window);
}

// The numbers of the palettes whose menu items are enabled.
QList<int> enabled(const MainMenuBar& bar) {
    QList<int> numbers;
    for (int p = 0; p < int(bar.miPalette.size()); ++p)
        if (bar.miPalette[size_t(p)]->isEnabled()) numbers << p;
    return numbers;
}
} // namespace

class PaletteTest : public WindowTest {
    Q_OBJECT

    QString resources = QDir::cleanPath(QCoreApplication::applicationDirPath() + "/../Resources");

    void click(int index, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(program->window()->cnButs[size_t(index)], Qt::LeftButton, modifiers, QPoint(10, 10));
    }
    QColor centre(int index) const {
        return program->window()->cnButs[size_t(index)]->grab().toImage().pixelColor(32, 32);
    }

private slots:
    void windowFollowsTheGrid_data() {
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("columns");
        QTest::addColumn<QSize>("size");
        QTest::newRow("1 x 1 is the smallest") << 1 << 1 << QSize(64, 94);
        QTest::newRow("3 x 4") << 3 << 4 << QSize(256, 222);
        QTest::newRow("no rows opens them all") << 0 << 4 << QSize(256, 670);
    }
    void windowFollowsTheGrid() {
        QFETCH(int, rows);
        QFETCH(int, columns);
        QFETCH(QSize, size);
        winMain& w = startWith(1, rows, columns);
        QCOMPARE(w.centralWidget()->size(), size);
        QCOMPARE(w.labTip->y(), size.height() - 30);
        QCOMPARE(w.cnButs[12]->geometry(), QRect(128, 64, 64, 64)); // row 1, column 2
        // The bar is painted over the row of canvases below the grid.
        const QImage shot = w.centralWidget()->grab().toImage();
        QCOMPARE(shot.pixelColor(size.width() / 2 + 3, w.labTip->y() + 26), QColor(0xFE, 0xFF, 0x96));
    }

    // Of two pictures for a button the later wins; a file that is no picture is told once a run.
    void paintingFollowsPicturesAndButtons() {
        for (const auto& [name, colour] : QList<std::pair<QString, QColor>>{
                 {"07a.png", Qt::red}, {"07b.png", Qt::blue}, {"x7.png", Qt::green}, {"12.png", Qt::red},
                 {"99 far out.png", Qt::green}})
            home->writeInProgram("ButtonPictures/P00/" + name, picture(64, 64, colour));
        home->writeInProgram("ButtonPictures/P00/10 text.png", "no picture at all");
        winMain& w = startWith(2, 3, 10);
        QCOMPARE(w.hasPicture, QList<int>({7, 7, 12, 99}));
        QCOMPARE(QList<QColor>({centre(7), centre(12)}), QList<QColor>({Qt::blue, Qt::red})); // 12 after the bad one
        QTRY_COMPARE(dialogs->texts(),
                     QStringList{"A picture of palette P00 cannot be shown, so its button shows its number:\n\n"
                                 "10 text.png: it is damaged, or it is no picture.\n\nButton Pictures, in the "
                                 "Configure menu, moves such files to RemovedZOR_PaletteButtonPictures on the Desktop."});
        ZOR::ChangeToPalette(1);
        ZOR::ChangeToPalette(0);

        // A picture placed from outside appears when the palette name is clicked.
        home->writeInProgram("ButtonPictures/P00/08.png", picture(64, 64));
        QTest::mouseClick(w.labSeeNum, Qt::LeftButton);
        QCOMPARE(centre(8), QColor(Qt::red));
        QCOMPARE(dialogs->texts().size(), 1); // the bad file told once a run

        button(4).Vis = false;
        button(5).ShortcutShow = button(6).ShortcutShow = true;
        button(6).Shortcut = kNoShortcut;
        w.RedrawGrid();
        QVERIFY(!w.cnButs[4]->isVisible());
        const QImage withLetter = w.cnButs[5]->grab().toImage(), noLetter = w.cnButs[6]->grab().toImage();
        QVERIFY(withLetter.pixelColor(52, 52).lightness() > noLetter.pixelColor(52, 52).lightness());
        QCOMPARE(noLetter.pixelColor(58, 58), noLetter.pixelColor(2, 2)); // no pale square without a letter
    }

    // Every pair of kinds: the earlier runs alone. Shortcuts need a system of 12 or later.
    void clickRunsTheFirstKindThatHolds_data() {
        QTest::addColumn<QStringList>("kinds"); // ASfile, SCname, PaletteGo
        QTest::addColumn<QString>("system");
        QTest::addColumn<QStringList>("expected"); // empty and no message: the palette switched
        QTest::addColumn<QString>("message");
        const QStringList km{QString("osascript\t%1/FirePalette.scpt\tP00\t07").arg(resources)};
        const QStringList as{QString("osascript\t%1/FireAppleScript.scpt\tMail.scpt").arg(resources)};
        const QStringList sc{"sw_vers\t-productVersion", "shortcuts\tlist",
                             "open\tshortcuts://run-shortcut?name=Mail"};
        const auto row = [](const char* name, QString ASfile, QString SCname, QString PaletteGo,
                            QStringList expected, QString message = {}, QString system = "12.0") {
            QTest::newRow(name) << QStringList{ASfile, SCname, PaletteGo} << system << expected << message;
        };
        row("Keyboard Maestro", "", "", "", km);
        row("script before Keyboard Maestro", "Mail.txt", "", "", as);
        row("script before Shortcut", "Mail", "Mail", "", as);
        row("script before switch", "Mail", "", "1", as);
        row("Shortcut before switch", "", "Mail", "1", sc);
        row("Shortcut before Keyboard Maestro", "", "Mail", "", sc);
        row("switch before Keyboard Maestro", "", "", "1", {});
        row("Shortcut on a system too old", "", "Mail", "1", {"sw_vers\t-productVersion"},
            "You need a more recent operating system to deal with Shortcuts", "11.7");
    }
    void clickRunsTheFirstKindThatHolds() {
        QFETCH(QStringList, kinds);
        QFETCH(QString, system);
        QFETCH(QStringList, expected);
        QFETCH(QString, message);
        tools->setAnswer("sw_vers", system + "\n");
        tools->setAnswer("shortcuts", "Mail\n");
        tools->setAnswer(kEngine, "true");
        startWith(2);
        Btn& b = button(7);
        b.ASfile = kinds[0], b.SCname = kinds[1], b.PaletteGo = kinds[2], b.KM_Active = true;
        click(7);
        // Without the bundle checks, which every Keyboard Maestro click makes.
        QTRY_COMPARE(tools->log().filter(QRegularExpression("^(?!.* is running)")), expected);
        QCOMPARE(dialogs->texts(), message.isEmpty() ? QStringList() : QStringList{message});
        QCOMPARE(ZOR::idxCP, qint64(expected.isEmpty() && message.isEmpty() ? 1 : 0));
    }

    void autoMinimiseReadsTheButtonAfterTheAction() {
        tools->setAnswer(kEngine, "true");
        winMain& w = startWith(2);
        button(1).KM_Active = true, button(1).AutoMin = 2;
        const auto timer = [&w] {
            const QString state = w.tiMinimize->isActive() ? QString::number(w.tiMinimize->interval()) : "off";
            return state + (w.tiMinimize->isSingleShot() ? " once" : " again");
        };
        click(1);
        QCOMPARE(timer(), "2000 once");
        w.tiMinimize->stop();

        // A switch takes the delay from the same button of the palette it lands on.
        ZOR::DP[1].a_Btn->at(5)->AutoMin = 0;
        button(5).PaletteGo = "1", button(5).AutoMin = 10;
        click(5);
        QCOMPARE(ZOR::idxCP, 1);
        QCOMPARE(timer(), "off once");
        button(6).PaletteGo = "0";
        ZOR::DP[0].a_Btn->at(6)->AutoMin = 50;
        click(6);
        QCOMPARE(QString::number(ZOR::idxCP) + ' ' + timer(), "0 50000 once");
        w.tiMinimize->stop();

        // A button with nothing to run says so and leaves the window where it is.
        button(2).AutoMin = 10;
        click(2);
        QCOMPARE(dialogs->texts(Dialogs::Kind::ShowTimed).value(0).left(58) + '|' +
                     dialogs->requests.last().title + '|' + timer(),
                 "This button is not active. To change this, edit it in Grid|No Action for Button|off once");

        // The engine down: the message, and the window still minimises.
        tools->setAnswer(kEngine, "false");
        click(1);
        QCOMPARE(dialogs->texts().last() + '|' + timer(),
                 "Is Keyboard Maestro Engine running?. I cannot see that it is.|2000 once");
        w.tiMinimize_Action();
        QVERIFY2(w.isMinimized() || w.windowState().testFlag(Qt::WindowMinimized), printed(w.windowState()));
    }

    void optionClickShowsInformation_data() {
        QTest::addColumn<QStringList>("fields"); // Info, Tip, SCname, ASfile
        QTest::addColumn<QString>("shown");      // the window's title and text, or the message
        const QString title = "Button Information: ";
        QTest::newRow("Info first") << QStringList{"Line 1\nLine 2", "tip", "Day", "Mail"}
                                    << title + "Line 1\nLine 2";
        QTest::newRow("then the tip") << QStringList{"", "tip", "Day", "Mail"} << title + "tip";
        QTest::newRow("then the Shortcut") << QStringList{"", "", "Day", "Mail.scpt"} << title + "Day";
        QTest::newRow("only a script") << QStringList{"", "", "", "Mail.scpt"} << title + "Mail.scpt";
        QTest::newRow("only Keyboard Maestro")
            << QStringList{"", "", "", ""} << ": No Additional Information about this button.";
    }
    void optionClickShowsInformation() {
        QFETCH(QStringList, fields);
        startWith(1);
        Btn& b = button(9);
        b.Info = fields[0], b.Tip = fields[1], b.SCname = fields[2], b.ASfile = fields[3];
        b.KM_Active = true, b.AutoMin = 2;
        click(9, Qt::AltModifier);
        // Only the information: nothing runs, and the window stays.
        QTEST(dialogs->titles().join('|') + ": " + dialogs->texts().join('|'), "shown");
        QCOMPARE(tools->log(), QStringList());
        QVERIFY(!program->window()->tiMinimize->isActive());
    }

    // On a grid of 3 rows: the first row and column outside beep, the last inside fire.
    void lettersFireThroughKeyboardMaestro_data() {
        QTest::addColumn<int>("columns"); // 0: 10, with no Keyboard Maestro Engine running
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("fired"); // empty: a beep
        const auto row = [](const char* name, int columns, const char* key, const char* fired) {
            QTest::newRow(name) << columns << QString(key) << QString(fired);
        };
        row("a is button 00", 10, "a", "00");
        row("A is button 26", 10, "A", "26");
        row("a digit", 10, "7", "");
        row("a letter on a hidden button", 10, "c", "");
        row("duplicate letter: the lower index", 10, "d", "03");
        row("an AppleScript button goes to Keyboard Maestro too", 10, "e", "04");
        row("the first row outside", 10, "E", "");
        row("the first column outside", 4, "e", "");
        row("the last row and column inside", 4, "x", "23");
        row("no engine running: nothing handed over", 0, "a", "");
    }
    void lettersFireThroughKeyboardMaestro() {
        QFETCH(int, columns);
        QFETCH(QString, key);
        QFETCH(QString, fired);
        tools->setAnswer(kEngine, columns == 0 ? "false" : "true");
        startWith(1, 3, columns == 0 ? 10 : columns);
        button(2).Vis = false;
        program->window()->RedrawGrid();
        button(13).Shortcut = "d";
        button(4).ASfile = "Mail.scpt";
        button(51).Shortcut = kNoShortcut;
        QTest::keyClicks(program->window(), key);
        const QString fire = QString("osascript\t%1/FirePalette.scpt\tP00\t%2").arg(resources, fired);
        QTRY_COMPARE(tools->log().filter("FirePalette"), fired.isEmpty() ? QStringList{} : QStringList{fire});
        QCOMPARE(dialogs->beeps(), fired.isEmpty() ? 1 : 0);
        QCOMPARE(dialogs->texts(), QStringList{});
    }

    // Items up to the last palette are enabled but for freed ones and an active one up to P09.
    void paletteMenuFollowsTheStore() {
        winMain& w = startWith(5);
        MainMenuBar* bar = w.mainMenuBar;
        const QString freedText = bar->miPalette[1]->text();
        ZOR::DP[1].s_Alias = kNoShortcut;
        ZOR::DP[2].s_Alias = "Mail tools";
        ZOR::DP[0].s_Particulars.clear();
        ZOR::paletteContentChange = true;
        w.Event_MenuBarSelected();
        QCOMPARE(enabled(*bar), QList<int>({2, 3, 4}));
        QCOMPARE(QStringList({bar->miPalette[1]->text(), bar->miPalette[2]->text()}),
                 QStringList({freedText, "P02     Mail tools"}));
        QCOMPARE(QList<bool>({bar->miPaletteParticulars->isEnabled(), bar->FileMenu->menuAction()->isVisible()}),
                 QList<bool>({false, false}));

        for (int p = 5; p < 12; ++p)
            ZOR::DP.emplace_back(), ZOR::DefaultValuesPalette(p);
        ZOR::ChangeToPalette(9);
        w.Event_MenuBarSelected();
        QCOMPARE(enabled(*bar), QList<int>({0, 2, 3, 4, 5, 6, 7, 8}));
        ZOR::DP[11].s_Particulars = "notes";
        ZOR::ChangeToPalette(11);
        w.Event_MenuBarSelected();
        QCOMPARE(enabled(*bar),
                 QList<int>({0, 2, 3, 4, 5, 6, 7, 8, 9})); // beyond P09 none is disabled for being active
        QVERIFY(bar->miPaletteParticulars->isEnabled());
        QCOMPARE(QStringList({w.windowTitle(), w.labSeeNum->text()}), QStringList({"ZOR P11", "P11"}));

        bar->miPalette[2]->trigger();
        QCOMPARE(ZOR::idxCP, qint64(2));
        // The keys follow the palette at once, without the menu being opened in between.
        QApplication::setActiveWindow(&w);
        QTest::keyClick(&w, Qt::Key_3, Qt::ControlModifier);
        QCOMPARE(ZOR::idxCP, qint64(3)); // the digit is the palette's number
        QTest::keyClick(&w, Qt::Key_2, Qt::ControlModifier);
        QCOMPARE(QString::number(ZOR::idxCP) + ' ' + w.labTip->text(), "2 Mail tools");

        // No change to the active palette, a freed one or one past the last; an alias found in any case.
        for (int p : {2, 1, 12})
            ZOR::ChangeToPalette(p);
        const QString none =
            "You have asked  to change to a palette, P%1, that does not exist. There is nothing to do.";
        QCOMPARE(
            dialogs->texts(),
            QStringList({"You have asked  to change to the currently active palette. There is nothing to do.",
                         none.arg("01"), none.arg("12")}));
        QCOMPARE(QList<qint64>({ZOR::IndexFromAlias("MAIL TOOLS"), ZOR::IndexFromAlias("nobody"),
                             ZOR::IsPaletteExistant(-1), ZOR::IsPaletteExistant(100)}),
                 QList<qint64>({2, -1, 0, 0}));
    }

    // The menu bar stands in the palette window, or, where the platform's bar is the Mac's, at the
    // top of the screen owned by no window; there each window of the menus that has text fields
    // carries an Edit menu of its own, which Qt shows while that window is in front.
    void menuBarsFollowThePlatform_data() {
        QTest::addColumn<bool>("global");
        QTest::addColumn<QStringList>("withEditMenu"); // the windows of the menus that have one
        QTest::newRow("in the window") << false << QStringList();
        QTest::newRow("at the top of the screen")
            << true << QStringList{"winConstruct", "winNewPalette", "winChangeAlias", "winAboutBox"};
    }
    void menuBarsFollowThePlatform() {
        QFETCH(bool, global);
        MenuBars::setGlobalForTesting(global);
        const auto platformAgain = qScopeGuard([] { MenuBars::setGlobalForTesting(std::nullopt); });
        winMain& w = startWith(2);
        const MainMenuBar& bar = *w.mainMenuBar;
        QCOMPARE(bar.parent() == &w, !global);
        QCOMPARE(w.menuBar() == &bar, !global);
        QStringList found, items;
        dialogs->onWindow = [&](QDialog& window) {
            const QMenuBar* own = window.findChild<QMenuBar*>();
            if (!own) return;
            found << window.objectName();
            items.clear();
            for (const QAction* item : own->findChild<QMenu*>("EditMenu")->actions())
                items << item->text() + ' ' + item->shortcut().toString();
        };
        for (QAction* item : {bar.miSwitchPalette, bar.miConstruct, bar.miNewPalette, bar.miRenamePalette,
                              bar.miDeletePalette, bar.miHelpAbout})
            item->trigger();
        // Each opens its window, with the button Return presses.
        QCOMPARE(dialogs->titles() + dialogs->defaults,
                 QStringList({"Switch Palette", "Grid Construct: ZOR Palette (P00)", "New Palette", "Change Name/Alias",
                              "Delete Palette", "About ZOR_Palette", "", "", "OK", "Accept Change", "Cancel", "Done"}));
        QTEST(found, "withEditMenu");
        if (global)
            QCOMPARE(items, QStringList({"&Undo Ctrl+Z", " ", "Cu&t Ctrl+X", "&Copy Ctrl+C", "&Paste Ctrl+V",
                                         "&Delete ", " ", "Select &All Ctrl+A"}));
    }

    void barTellsTheKind_data() {
        QTest::addColumn<QStringList>("kinds"); // ASfile, SCname, PaletteGo
        QTest::addColumn<QColor>("colour");
        const QColor script(0xFF, 0xB3, 0xB0), palette(0xF0, 0xDB, 0xFF);
        QTest::newRow("Keyboard Maestro or nothing") << QStringList{"", "", ""} << QColor(0xFE, 0xFF, 0x96);
        QTest::newRow("Shortcut") << QStringList{"", "Mail", ""} << QColor(0xE1, 0xFF, 0xFF);
        QTest::newRow("AppleScript") << QStringList{"Mail.scpt", "", ""} << script;
        QTest::newRow("palette switch") << QStringList{"", "", "2"} << palette;
        QTest::newRow("Shortcut and switch: the switch colours") << QStringList{"", "Mail", "2"} << palette;
        QTest::newRow("script and Shortcut: the script colours") << QStringList{"a", "Mail", ""} << script;
        QTest::newRow("script and switch: the switch colours") << QStringList{"a", "", "2"} << palette;
    }
    void barTellsTheKind() {
        QFETCH(QStringList, kinds);
        QFETCH(QColor, colour);
        winMain& w = startWith(1, 3, 10);
        Btn& b = button(12);
        b.ASfile = kinds[0], b.SCname = kinds[1], b.PaletteGo = kinds[2], b.Tip = "Mail";
        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QApplication::sendEvent(w.cnButs[12], &enter); // the canvas's own event reaches the handler
        QCOMPARE(QStringList({barColour(w).name(), w.labSeeNum->text(), w.labTip->text(), w.labSeeSC->text(),
                              w.labSeeSC->textColour().name()}),
                 QStringList({colour.name(), "P00 12", "Mail", "m", "#797979"}));

        b.ShortcutShow = true;
        w.cnBut_MouseEnter(12);
        QCOMPARE(w.labSeeSC->textColour(), QColor(0xDC, 0x6E, 0x00));
        button(60).Vis = false; // a hidden button leaves the colour as it was
        button(60).ASfile = "x";
        w.cnBut_MouseEnter(60);
        QCOMPARE(barColour(w).name() + w.labSeeSC->text(), colour.name() + kNoShortcut);

        const auto bar = [&w] {
            return QStringList({barColour(w).name(), w.labTip->text(), w.labSeeNum->text(), w.labSeeSC->text()});
        };
        const QStringList resting{"#feff96", "Original", "P00", ""};
        w.cnBut_MouseExit(60);
        QCOMPARE(bar(), resting);
        // A switch made by the button under the pointer: the window follows, the pointer stays.
        w.cnBut_MouseEnter(12);
        w.follow(PaletteView::Upto::RestingTexts);
        QCOMPARE(bar(), resting);
        QVERIFY(dialogs->texts().isEmpty());
    }

    void tipFitsTheWidth_data() {
        QTest::addColumn<int>("columns");
        QTest::addColumn<QString>("tip");
        QTest::addColumn<QString>("shown"); // "cut": the first words and "…"
        QTest::addColumn<bool>("small");    // drawn at size 10
        // clang-format off
        QTest::newRow("one column has no room") << 1 << "Mail" << "" << false;
        QTest::newRow("narrow, no tip") << 3 << "" << "no tip" << false;
        QTest::newRow("wide, no tip") << 4 << "" << "no tip for this button" << false;
        QTest::newRow("narrow, short tip at size 10") << 3 << "Mail" << "Mail" << true;
        QTest::newRow("narrow, long tip cut at a word") << 3 << kLongTip << "cut" << true;
        QTest::newRow("narrow, one long word") << 2 << "Supercalifragilisticexpialidocious" << QString::fromUtf8("…") << true;
        QTest::newRow("narrow, two long words") << 2 << "Supercalifragilistic Expialidocious" << "Supercalifragilistic" << true;
        QTest::newRow("wide, a tip that fits") << 10 << "Open the mail" << "Open the mail" << false;
        QTest::newRow("wide, a tip too long for default size") << 5 << kLongTip << "cut" << true;
        // clang-format on
    }
    void tipFitsTheWidth() {
        QFETCH(int, columns);
        QFETCH(QString, tip);
        QFETCH(QString, shown);
        QFETCH(bool, small);
        winMain& w = startWith(1, 3, columns);
        button(1).Tip = tip;
        w.cnBut_MouseEnter(1);
        const QString text = w.labTip->text();
        if (shown == "cut") { // the first words, as many as fit
            QVERIFY2(text.endsWith(QString::fromUtf8("…")), qPrintable(text));
            QVERIFY2(tip.startsWith(text.chopped(1)), qPrintable(text));
            QCOMPARE_LT(text.size(), tip.size());
            QCOMPARE_LT(QFontMetricsF(w.labTip->font()).horizontalAdvance(text), w.labTip->width());
        } else
            QCOMPARE(text, shown);
        if (columns > 1) QCOMPARE(w.labTip->font().pixelSize() == 10, small);
        w.cnBut_MouseExit(1); // the alias at rest: size 10 below four columns
        QCOMPARE(w.labTip->font().pixelSize() == 10, columns < 4);
        QCOMPARE(dialogs->texts(), QStringList());
    }

    // The pictures the program ships are drawn from sources at twice their size: at ratio 2 on a
    // Retina screen, halved smoothly elsewhere.
    void shippedPicturesFollowTheScreen_data() {
        QTest::addColumn<qreal>("ratio");
        QTest::addColumn<int>("scale"); // the device pixel ratio of the pictures
        QTest::newRow("Retina") << qreal(2) << 2;
        QTest::newRow("Retina at 1.5") << qreal(1.5) << 2;
        QTest::newRow("not Retina") << qreal(1) << 1;
    }
    void shippedPicturesFollowTheScreen() {
        QFETCH(qreal, ratio);
        QFETCH(int, scale);
        Sharp::setRatioForTesting(ratio);
        const auto screenAgain = qScopeGuard([] { Sharp::setRatioForTesting(std::nullopt); });
        winMain& w = startWith(1);
        QStringList seen;
        dialogs->onWindow = [&](QDialog& window) {
            for (const char* name : {"cnvKM", "cnvAS", "cnvSC"}) {
                const QPixmap shown = window.findChild<QLabel*>(name)->pixmap();
                seen << name + QString(" %1x%2 @%3").arg(shown.width()).arg(shown.height()).arg(shown.devicePixelRatio());
            }
        };
        w.mainMenuBar->miConstruct->trigger();
        const QString size = QString::number(24 * scale);
        const QString at = size + 'x' + size + " @" + QString::number(scale);
        QCOMPARE(seen, QStringList({"cnvKM " + at, "cnvAS " + at, "cnvSC " + at}));
        const QPixmap about = Sharp::pixmap(":/about/AppIcon128.png", QSize(64, 64));
        QCOMPARE(about.size(), QSize(64, 64) * scale);
        QCOMPARE(about.devicePixelRatio(), scale);
    }

    // A first start tells in the bar where to begin, until a button of its palette does something.
    void firstStartTellsWhereToBegin_data() {
        QTest::addColumn<QString>("change"); // what the user did before the pointer left a button
        QTest::addColumn<QString>("resting");
        const QString hint = "To begin, design this palette: Configure >> Grid Construct";
        QTest::newRow("nothing yet") << "" << hint;
        QTest::newRow("a letter is no design") << "letter" << hint;
        // Grid Construct's OK, Done and close box each bring the bar up to date, with no pointer over a button.
        for (const auto& [name, change] :
             {std::pair("a macro button", "macro"), {"a tip", "tip"}, {"a second palette", "palette"},
              {"OK in Grid Construct", "design ok"}, {"Done in Grid Construct", "design done"},
              {"Grid Construct's close box", "design close"}})
            QTest::newRow(name) << QString(change) << "Original";
    }
    void firstStartTellsWhereToBegin() {
        QFETCH(QString, change);
        winMain& w = program->start(); // no data file: a first start
        QCOMPARE(w.labTip->text(), "To begin, design this palette: Configure >> Grid Construct");
        if (change == "letter") button(5).Shortcut = "q";
        if (change == "macro") button(5).KM_Active = true;
        if (change == "tip") button(5).Tip = "Mail";
        if (change == "palette") ZOR::CreateNewPalette("Second"), ZOR::ChangeToPalette(0);
        if (change.startsWith("design")) {
            if (change != "design ok") button(5).KM_Active = true; // as if by an earlier OK
            dialogs->onWindow = [change, &w](QDialog& d) {
                auto& design = dynamic_cast<winConstruct&>(d);
                design.show();
                if (change == "design ok") {
                    QTest::mouseClick(design.accGC[5], Qt::LeftButton);
                    design.tfTip->setText("Mail");
                    design.pbOK->click();
                    QCOMPARE(w.labTip->text(), "Original"); // at once, before Done
                }
                if (change == "design close") design.close();
                else design.pbDone->click();
            };
            w.mainMenuBar->miConstruct->trigger();
            dialogs->onWindow = nullptr;
        } else {
            w.cnBut_MouseEnter(5);
            w.cnBut_MouseExit(5);
        }
        QTEST(w.labTip->text(), "resting");
    }

    // A right-click, or Control-click on either platform, opens the button's menu and fires nothing;
    // Command-click on the Mac and a plain click fire. The Mac sends Control-click as a right-button
    // press with Meta (its Control) held.
    void buttonMenuOpensOnRightOrControlClick_data() {
        QTest::addColumn<bool>("mac");
        QTest::addColumn<Qt::MouseButton>("mouse");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<bool>("menu"); // else the button fires
        QTest::newRow("right-click") << false << Qt::RightButton << Qt::KeyboardModifiers() << true;
        QTest::newRow("Control-click, elsewhere")
            << false << Qt::LeftButton << Qt::KeyboardModifiers(Qt::ControlModifier) << true;
        QTest::newRow("Control-click, as the Mac sends it")
            << true << Qt::RightButton << Qt::KeyboardModifiers(Qt::MetaModifier) << true;
        QTest::newRow("Command-click on the Mac fires")
            << true << Qt::LeftButton << Qt::KeyboardModifiers(Qt::ControlModifier) << false;
        QTest::newRow("a plain click fires") << false << Qt::LeftButton << Qt::KeyboardModifiers() << false;
    }
    void buttonMenuOpensOnRightOrControlClick() {
        QFETCH(bool, mac);
        QFETCH(Qt::MouseButton, mouse);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(bool, menu);
        MenuBars::setGlobalForTesting(mac);
        const auto platformAgain = qScopeGuard([] { MenuBars::setGlobalForTesting(std::nullopt); });
        winMain& w = startWith(1);
        tools->setAnswer(kEngine, "true");
        button(7).KM_Active = true;
        cnBut* canvas = w.cnButs[7];
        const QColor atRest = centre(7);
        QTest::mousePress(canvas, mouse, modifiers, QPoint(10, 10));
        QCOMPARE(centre(7) != atRest, !menu); // pressed: drawn darker while the mouse is down
        if (!menu) QCOMPARE_LT(centre(7).lightness(), atRest.lightness());
        QTest::mouseRelease(canvas, mouse, modifiers, QPoint(10, 10));
        QCOMPARE(centre(7), atRest);
        QTRY_COMPARE(tools->log().filter("FirePalette").size(), menu ? 0 : 1);
        QCOMPARE(w.buttonMenu && w.buttonMenu->isVisible(), menu);
        if (!menu) return;
        QStringList items{QString::number(w.menuButton)};
        for (const QAction* item : w.buttonMenu->actions())
            items << item->text();
        QCOMPARE(items, QStringList({"7", "Edit Button…", "Choose Picture…"}));

        // Edit Button opens Grid Construct on that button; its Done is a completed change: on the disk at
        // once, and the window follows it.
        QString opened;
        dialogs->onWindow = [&](QDialog& window) {
            opened = window.objectName() + ' ' + window.findChild<QLabel*>("labID")->text();
            ZOR::paleWinTitle = "Designed", ZOR::paletteContentChange = true; // as the palette's half leaves it at Done
        };
        w.buttonMenu->findChild<QAction*>("miEditButton")->trigger();
        QCOMPARE(opened + ' ' + QString::number(ZOR::idxCurrentBtn), "winConstruct 07 7");
        QVERIFY(storeLines(home->programFolder() + "/PreserveState.txt").contains("P00 paleWinTitle=Designed"));
        QCOMPARE(w.windowTitle(), "Designed");
    }

    // A picture of any size, dropped on a button or chosen from its menu, becomes the button's
    // picture as a 64 px copy named by the button; the file itself is left as it was.
    void buttonTakesAPicture_data() {
        QTest::addColumn<bool>("dropped"); // else chosen
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("shown"); // the message, if any
        QTest::newRow("dropped") << true << picture(512, 512, Qt::blue) << "";
        QTest::newRow("chosen") << false << picture(512, 300, Qt::blue) << "";
        QTest::newRow("not a picture")
            << true << QByteArray("plain words") << "The chosen file is supposed to be a picture.";
    }
    void buttonTakesAPicture() {
        QFETCH(bool, dropped);
        QFETCH(QByteArray, content);
        QFETCH(QString, shown);
        winMain& w = startWith(1);
        const QString file = home->write("Desktop/My Holiday.photo.png", content);
        if (dropped) {
            QMimeData data;
            data.setUrls({QUrl::fromLocalFile(file)});
            QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(w.cnButs[7], &enter);
            QVERIFY(enter.isAccepted());
            QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
            QApplication::sendEvent(w.cnButs[7], &drop);
        } else {
            w.cnBut_Menu(7, QPoint(5, 5));
            dialogs->queueFile(file);
            w.buttonMenu->findChild<QAction*>("miChoosePicture")->trigger();
            QCOMPARE(dialogs->titles().value(0), "Choose Picture for Button 07");
        }
        QCOMPARE(readAll(file), content);
        const QString folder = home->programFolder() + "/ButtonPictures/P00";
        if (!shown.isEmpty()) {
            QCOMPARE(dialogs->texts(Dialogs::Kind::Message), QStringList{shown});
            QCOMPARE(namesIn(folder), QStringList());
            return;
        }
        QCOMPARE(namesIn(folder), QStringList({"07 My Holiday_photo.png"}));
        QCOMPARE(QImage(folder + "/07 My Holiday_photo.png").size(), QSize(64, 64));
        QCOMPARE(centre(7), QColor(Qt::blue));
        QCOMPARE(w.hasPicture, QList<int>({7}));
    }

    // A hand-edited data file may hold a tip or an Info of 50 MB: the hover and the Info window show
    // its beginning at once, and the button keeps the whole text.
    void hugeTextsShowTheirBeginningAtOnce_data() {
        QTest::addColumn<bool>("info"); // else the tip
        QTest::newRow("a tip on hover") << false;
        QTest::newRow("an Info by Option-click") << true;
    }
    void hugeTextsShowTheirBeginningAtOnce() {
        QFETCH(bool, info);
        winMain& w = startWith(1);
        // Unit 5,000, where the Info window cuts, is the first half of an emoji.
        const QString huge = "x" + QString::fromUtf8("😀 Word").repeated(50 * 1024 * 1024 / 7);
        (info ? button(4).Info : button(4).Tip) = huge;
        QElapsedTimer took;
        took.start();
        if (info)
            click(4, Qt::AltModifier);
        else
            w.cnBut_MouseEnter(4);
        QCOMPARE_LT(took.elapsed(), 500); // it took minutes; a few dozen ms now, more under a sanitizer
        const QString shown = info ? dialogs->texts().value(0) : w.labTip->text();
        const QString ending =
            info ? QString::fromUtf8(
                       "…\n\n(This text is too long to show whole: only its beginning is shown here.)")
                 : QString::fromUtf8("…");
        QVERIFY2(shown.endsWith(ending) && huge.startsWith(shown.chopped(ending.size())),
                 qPrintable(shown.right(80)));
        QVERIFY(!shown.chopped(ending.size()).back().isHighSurrogate());
        QCOMPARE_LT(shown.size(), 5100);
        QCOMPARE((info ? button(4).Info : button(4).Tip).size(), huge.size());
    }

    // Without and with ".scpt": only the first full stop counts, and a "$" before it ends the name.
    // A script is found in the scripts folder only, with its case as on disk.
    void scriptNames() {
        QStringList forms;
        for (const char* name : {"Mail.scpt", " Mail\t", "Mail.txt", "", ".", ".scpt", "a.b.c", "x$y.scpt"})
            forms << ZOR::rsWithWithoutScpt(name, false) + '|' + ZOR::rsWithWithoutScpt(name, true);
        QCOMPARE(forms, (QStringList{"Mail|Mail.scpt", "Mail|Mail.scpt", "Mail|Mail.scpt", "|", "|", "|",
                                     "a|a.scpt", "x|x.scpt"}));
        home->writeInProgram("Apple_Scripts/Mail.scpt", "x");
        home->writeInProgram("Old.scpt", "x");
        QCOMPARE(
            (QStringList{ZOR::rsScriptName("Mail.txt"), ZOR::rsScriptName("mail"), ZOR::rsScriptName("Old")}),
            (QStringList{"Mail.scpt", "Mail.scpt", ""}));
    }

    void shortcutRuns_data() {
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
    void shortcutRuns() {
        QFETCH(QString, name);
        QFETCH(int, openExit);
        QFETCH(QString, url);
        tools->setAnswer("shortcuts", "\nMail\nCafé \"hi\"; rm ~\nMy Day\n");
        tools->setAnswer("open.exit", QString::number(openExit));
        ZOR::FireSC(name);
        QCOMPARE(tools->log(), QStringList{"shortcuts\tlist"} +
                                   (url.isEmpty() ? QStringList() : QStringList{"open\t" + url}));
        QTEST(dialogs->texts(), "messages");
    }

    // Either Keyboard Maestro engine will do: its own, or the one inside the editor.
    void keyboardMaestroEngineCheck() {
        QList<bool> runs;
        for (const char* editor : {"true", "false"}) { // the engine's own answer is false
            tools->setAnswer("running:com.stairways.keyboardmaestro.editor.engine", editor);
            runs << ZOR::keyboardMaestroEngineRuns();
        }
        QCOMPARE(runs, (QList<bool>{true, false}));
    }

    // Each argument reaches the bundled script whole; without osascript the user is told.
    void scriptBridges() {
        const auto fire = [] { ZOR::FireKM("P02", "07"), ZOR::FireAS("Say \"hi\"; now.scpt"); };
        fire();
        QTRY_COMPARE(tools->log().size(), 2); // the two run side by side
        QStringList log = tools->log();
        log.sort();
        QCOMPARE(log, QStringList({"osascript\t" + resources + "/FireAppleScript.scpt\tSay \"hi\"; now.scpt",
                                   "osascript\t" + resources + "/FirePalette.scpt\tP02\t07"}));
        tools->remove("osascript");
        fire();
        QCOMPARE(dialogs->texts(),
                 QStringList({"Cannot run FirePalette.scpt: osascript could not be started.",
                              "Cannot run FireAppleScript.scpt: osascript could not be started."}));
    }
};

QTEST_MAIN(PaletteTest)
#include "tst_palette.moc"
