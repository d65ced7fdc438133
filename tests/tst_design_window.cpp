// The design window driven as a user drives it: clicks on the grid and the arrows, typing into
// the fields, OK, Cancel and Done, checked against the buttons of the active palette.
#include "design/UpDownArrows.h"
#include "design/ccDataIntUpDown.h"
#include "design/ccDataStrUpDown.h"
#include "design/ccGC.h"
#include "design/winConstruct.h"
#include "help/Help.h"
#include "tst_windows.h"

namespace {
std::vector<Btn> buttons() {
    std::vector<Btn> copy;
    for (const BtnRef& b : *ZOR::aBtn)
        copy.push_back(*b);
    return copy;
}

void leave(QWidget* field) {
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(field, &out);
}

void arrows(UpDownArrows* control, bool up, int times = 1, bool shift = false) {
    for (int i = 0; i < times; ++i)
        QTest::mouseClick(control, Qt::LeftButton, shift ? Qt::ShiftModifier : Qt::NoModifier,
                          QPoint(control->width() / 2, up ? 3 : control->height() - 3));
}

// The enabled state of the four kinds, the three push buttons and the palette half, as
// "KM AS SC PS / OK Cancel Done / palette", 1 for on.
QString state(const winConstruct& w) {
    QString s;
    for (const QWidget* c : {(QWidget*)w.cbKM, (QWidget*)w.tfAS, (QWidget*)w.tfSC, (QWidget*)w.tfPaletteGo,
                             (QWidget*)nullptr, (QWidget*)w.pbOK, (QWidget*)w.pbCancel, (QWidget*)w.pbDone,
                             (QWidget*)nullptr, (QWidget*)w.ccRowUpDown})
        s += !c ? ' ' : c->isEnabled() ? '1' : '0';
    return s;
}
} // namespace

class DesignWindowTest : public WindowTest {
    Q_OBJECT

    std::unique_ptr<winConstruct> open() { return std::make_unique<winConstruct>(program->window()); }
    static void click(winConstruct& w, int index) { QTest::mouseClick(w.accGC[index], Qt::LeftButton); }
    // Shows the window and puts the keyboard focus into the field, as a click into it would.
    static bool focus(winConstruct& w, QWidget* field) {
        w.show();
        QApplication::setActiveWindow(&w);
        field->setFocus();
        return QTest::qWaitFor([&] { return QApplication::focusWidget() == field; });
    }

private slots:
    // A kind begun, taken away and begun again, then OK with the button hidden and a delay.
    void editOfEachKind_data() {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("begun");  // state once the kind is begun
        QTest::addColumn<QString>("undone"); // after taking it away again
        QTest::addColumn<QString>("label");
        QTest::newRow("Keyboard Maestro") << "KM" << "1000 110 0" << "1111 110 0" << "Keyboard Maestro";
        QTest::newRow("AppleScript") << "AS" << "0100 110 0" << "1111 011 0" << "AppleScript";
        QTest::newRow("Shortcut") << "SC" << "0010 110 0" << "1111 011 0" << "Shortcut";
        QTest::newRow("palette switch") << "PS" << "0001 110 0" << "1111 011 0" << "Palette Switcher";
    }
    void editOfEachKind() {
        QFETCH(QString, kind);
        startWith(2);
        auto w = open();
        QCOMPARE(state(*w), "0000 001 1");
        click(*w, 5);
        QCOMPARE(state(*w) + w->labID->text(), "1111 011 005");
        QLineEdit* field = kind == "AS" ? w->tfAS : kind == "SC" ? w->tfSC : w->tfPaletteGo;
        const QString text = kind == "AS" ? "Mail" : kind == "SC" ? "Day" : "1";
        const auto begin = [&](bool on) { kind == "KM" ? w->cbKM->click() : field->setText(on ? text : ""); };
        begin(true);
        QTEST(state(*w), "begun");
        begin(false);
        QTEST(state(*w), "undone");
        begin(true);
        if (kind != "KM") leave(field);
        QTEST(w->labButtSpec->text(), "label");
        w->cbVisibleBtn->click();
        w->pumAutoMin->setCurrentIndex(3);
        QTest::mouseClick(w->pbOK, Qt::LeftButton);
        QCOMPARE(state(*w) + w->labButtSpec->text(), "0000 001 1Button Specification");
        QVERIFY(ZOR::idxCurrentBtn == -1 && ZOR::paletteContentChange);
        const Btn& b = button(5);
        QCOMPARE(QStringList({b.KM_Active ? "KM" : "", b.ASfile, b.SCname, b.PaletteGo, QString::number(b.AutoMin),
                              b.Vis ? "shown" : "hidden"}),
                 QStringList({kind == "KM" ? "KM" : "", kind == "AS" ? "Mail" : "", kind == "SC" ? "Day" : "",
                              kind == "PS" ? "01" : "", "50", "hidden"}));
    }

    void fieldFilters_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("kept"); // after focus loss
        QTest::addColumn<QString>("tip");
        QTest::addColumn<bool>("warning");
        QTest::newRow("script name") << "tfAS" << "9 my-script.b2" << "myscriptb2" << "Run AS myscriptb2" << true;
        QTest::newRow("script that exists") << "tfAS" << "mail" << "Mail" << "Run AS Mail" << false;
        QTest::newRow("only digits") << "tfAS" << "123" << "" << "" << false;
        QTest::newRow("shortcut without blanks")
            << "tfSC" << "My Shortcut" << "MyShortcut" << "Run Shortcut MyShortcut" << false;
        QTest::newRow("unknown shortcut") << "tfSC" << "Gone" << "Gone" << "Run Shortcut Gone" << true;
        QTest::newRow("one digit palette") << "tfPaletteGo" << "7" << "07" << "Change palette to 07" << true;
        QTest::newRow("existing palette") << "tfPaletteGo" << "1" << "01" << "Change palette to 01" << false;
    }
    void fieldFilters() {
        QFETCH(QString, field);
        QFETCH(QString, typed);
        home->writeInProgram("Apple_Scripts/Mail.scpt", "compiled");
        tools->setAnswer("shortcuts", "MyShortcut\nOther\n");
        tools->setAnswer("sw_vers", "14.2\n");
        startWith(2);
        auto w = open();
        QVERIFY(!w->tfSC->isHidden());
        click(*w, 5);
        auto* edit = w->findChild<QLineEdit*>(field);
        QTest::keyClicks(edit, typed);
        leave(edit);
        QTEST(edit->text(), "kept");
        QTEST(w->tfTip->text(), "tip");
        const QString warning = field == "tfPaletteGo" ? "PaletteNum" : field.mid(2);
        QTEST(!w->findChild<QWidget*>("labZor" + warning + "_NotExist")->isHidden(), "warning");
        // A tip that the user typed is never replaced.
        w->tfTip->setText("Mine");
        edit->setText(typed);
        leave(edit);
        QCOMPARE(w->tfTip->text(), "Mine");
    }

    // A letter is on one button at most, "k" and "K" being two; only OK stores it.
    void shortcutLetterMovesBetweenButtons() {
        startWith(1);
        for (const BtnRef& b : *ZOR::aBtn)
            b->Shortcut = kNoShortcut;
        button(3).Shortcut = "k";
        button(20).Shortcut = "K";
        auto w = open();
        const auto letters = [] { return button(3).Shortcut + button(12).Shortcut + button(20).Shortcut; };
        click(*w, 12);
        arrows(w->ccShortcutUpDown->udChangeVal, false, 1, true); // h
        arrows(w->ccShortcutUpDown->udChangeVal, false, 3);       // k
        QTest::mouseClick(w->pbOK, Qt::LeftButton);
        QCOMPARE(letters(), kNoShortcut + "kK");
        click(*w, 12); // back to none
        arrows(w->ccShortcutUpDown->udChangeVal, false);
        arrows(w->ccShortcutUpDown->udChangeVal, true);
        QTest::mouseClick(w->pbOK, Qt::LeftButton);
        QCOMPARE(letters(), kNoShortcut + kNoShortcut + "K");
    }

    void cancelAndAnotherCellDropTheScratchCopy() {
        startWith(1);
        button(6).Tip = "Six";
        button(5).AutoMin = 7;
        auto w = open();
        const std::vector<Btn> before = buttons();
        click(*w, 5);
        QCOMPARE(w->pumAutoMin->currentText(), "Never");
        QTest::keyClicks(w->tfTip, "Changed");
        QTest::mouseClick(w->cbKM, Qt::LeftButton);
        w->cbVisibleBtn->click();
        arrows(w->ccShortcutUpDown->udChangeVal, false, 2);
        click(*w, 6);
        QCOMPARE(w->tfTip->text() + ' ' + state(*w), "Six 1111 011 0");
        // The arrows go on from where they were.
        QCOMPARE(w->ccShortcutUpDown->labValue->text() + QString::number(w->ccShortcutUpDown->theValueIndex),
                 kNoShortcut + "2");
        QTest::keyClicks(w->tfTip, "!");
        QTest::mouseClick(w->pbCancel, Qt::LeftButton);
        QVERIFY(buttons() == before);
        QVERIFY(ZOR::idxCurrentBtn == -1 && w->accGC[6]->CurrentLook() == ccGC::Look::Used);
        QCOMPARE(state(*w), "0000 001 1");

        // A stored delay that is none of the choices is stored as Never at OK.
        click(*w, 5);
        QTest::keyClicks(w->tfTip, "x");
        QTest::mouseClick(w->pbOK, Qt::LeftButton);
        QCOMPARE(QString::number(button(5).AutoMin) + button(5).Tip, "0x");
    }

    // The palette-wide buttons; letters of buttons 3, 4, 10, 23, 51 and 52 after Assign All.
    void paletteWideButtons_data() {
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("columns");
        QTest::addColumn<QString>("letters");
        const QString none = kNoShortcut;
        QTest::newRow("3 x 4: the used cells only") << 3 << 4 << "d" + none + "el" + none + none;
        QTest::newRow("10 x 10: no more than 52") << 10 << 10 << "dekxZ" + none;
    }
    void paletteWideButtons() {
        QFETCH(int, rows);
        QFETCH(int, columns);
        startWith(1, rows, columns);
        for (const BtnRef& b : *ZOR::aBtn)
            b->ShortcutShow = true;
        auto w = open();
        QVERIFY(!w->pbAssignShortcuts->isEnabled()); // every used cell has its letter at first
        QTest::mouseClick(w->pbAssignNoShortcut, Qt::LeftButton);
        QVERIFY(!w->pbAssignNoShortcut->isEnabled() && w->pbAssignShortcuts->isEnabled());
        QTest::mouseClick(w->pbAssignShortcuts, Qt::LeftButton);
        QString letters;
        for (int i : {3, 4, 10, 23, 51, 52})
            letters += button(i).Shortcut;
        QTEST(letters, "letters");
        w = open();
        QVERIFY(!w->pbAssignShortcuts->isEnabled() && w->pbAssignNoShortcut->isEnabled());

        QCOMPARE(w->pbAllVisibleOnButton->text(), "All Invisible on Button");
        QTest::mouseClick(w->pbAllVisibleOnButton, Qt::LeftButton);
        QCOMPARE(w->pbAllVisibleOnButton->text(), "All Visible on Button");
        QVERIFY(!button(0).ShortcutShow && !button(99).ShortcutShow);
    }

    void windowTitleRule_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("title");
        QTest::newRow("begins with a digit") << "1 Work" << "A1 Work";
        QTest::newRow("only removed characters") << "(.)" << "P00";
        QTest::newRow("marks and blanks") << "  My, (big)   palette " << "My big palette";
        QTest::newRow("cut at 35") << "1234567890123456789012345678901234567"
                                   << "A1234567890123456789012345678901234";
    }
    void windowTitleRule() {
        QFETCH(QString, typed);
        QFETCH(QString, title);
        winMain& palette = startWith(1);
        auto w = open();
        w->tfWinTitle->clear();
        QTest::keyClicks(w->tfWinTitle, typed);
        QVERIFY(!w->tfWinTitle->text().contains('(')); // taken out while typing
        leave(w->tfWinTitle);
        // The design window's own title bar stays as it opened.
        QCOMPARE(QStringList({w->tfWinTitle->text(), ZOR::paleWinTitle, palette.windowTitle(), w->windowTitle()}),
                 QStringList({title, title, title, "Grid Construct: ZOR Palette (P00)"}));
    }

    // Fewer rows and columns: cells outside beep; the buttons there are kept until Done and
    // set back to their defaults at the next opening. Hidden buttons with a picture are told.
    void resizingTheGrid() {
        for (const char* name : {"05 five.png", "12 twelve.png", "40 forty.png"})
            home->writeInProgram(QString("ButtonPictures/P00/") + name, picture(64, 64));
        winMain& palette = startWith(1, 0, 10);
        for (int i : {40, 46}) {
            Btn& b = button(i);
            b.Tip = "tip", b.Info = "info", b.ASfile = "Mail", b.SCname = "Day", b.PaletteGo = "02";
            b.Vis = false, b.ShortcutShow = false, b.Shortcut = "Q";
        }
        dialogs->queueOK(true);
        dialogs->queueOK(true);
        auto w = open();
        QCOMPARE(ZOR::numRows, 10); // a broken count opens as 10
        const std::vector<Btn> before = buttons();
        arrows(w->ccRowUpDown->udChangeVal, false, 3, true);
        arrows(w->ccColUpDown->udChangeVal, false, 4);
        QCOMPARE(w->accGC[46]->CurrentLook(), ccGC::Look::Outside);
        click(*w, 40); // the first row and the first column outside the grid
        click(*w, 6);
        QVERIFY(dialogs->beeps() == 2 && ZOR::idxCurrentBtn == -1);
        arrows(w->ccRowUpDown->udChangeVal, true, 1, true);
        QVERIFY(ZOR::numRows == 6 && buttons() == before);
        arrows(w->ccRowUpDown->udChangeVal, false, 1, true);
        click(*w, 12);
        w->cbVisibleBtn->click();
        QTest::mouseClick(w->pbOK, Qt::LeftButton);
        QCOMPARE(palette.centralWidget()->height(), 94); // untouched until Done
        QTest::mouseClick(w->pbDone, Qt::LeftButton);
        QCOMPARE(w->result(), int(QDialog::Accepted));
        QCOMPARE(palette.centralWidget()->size(), QSize(6 * 64, 4 * 64 + 30));
        QVERIFY(palette.cnButs[3]->isVisibleTo(&palette) && !palette.cnButs[40]->isVisibleTo(&palette));
        QVERIFY(!button(40).Vis); // the row below the grid is hidden at Done
        w = open();
        for (const Btn& b : {button(40), button(46)})
            QCOMPARE(QStringList({b.Tip, b.Info, b.ASfile, b.SCname, b.PaletteGo, b.Shortcut, b.Vis && b.ShortcutShow ? "shown" : ""}),
                     QStringList({"", "", "", "Day", "02", "Q", "shown"}));
        QCOMPARE(dialogs->texts(Dialogs::Kind::MesDlg),
                 QStringList({"The following button has a picture assigned to it but is currently set as "
                              "invisible: 40",
                              "The following buttons have pictures assigned to them but are currently set as "
                              "invisible: 12, 40"}));
        QCOMPARE(dialogs->requests.last().detail, "This is legal but make sure this is your intent.");
    }

    // The menu, an old system's missing Shortcuts field, and labels that open help records.
    void menuAndHelp() {
        tools->setAnswer("sw_vers", "11.7.10\n");
        winMain& palette = startWith(1);
        palette.mainMenuBar->miConstruct->trigger();
        QVERIFY(dialogs->requests.size() == 1 && dialogs->requests[0].kind == Dialogs::Kind::Window &&
                dialogs->requests[0].title == "Grid Construct: ZOR Palette (P00)");
        dialogs->clear();
        auto w = open();
        QVERIFY(w->tfSC->isHidden());
        for (const QLabel* icon : {w->cnvKM, w->cnvAS, w->cnvSC})
            QVERIFY(!icon->pixmap().isNull());
        for (const auto& [name, id] : {std::pair<const char*, int>{"pbHelpGridCon", 10}, {"labPalePart", 12},
                                       {"labAllShortcut", 15}, {"labAutoMin", 0}}) {
            dialogs->clear();
            QTest::mouseClick(w->findChild<QWidget*>(name), Qt::LeftButton);
            const QString title = Help::helpDict.value(id).section('\t', 0, 0).trimmed();
            QVERIFY2(!title.isEmpty() && dialogs->requests.value(0).title == title, name);
        }
    }

    // OK takes the field being typed in, and Clear in the Edit menu removes only the selection.
    void focusedFields() {
        winMain& palette = startWith(2);
        auto w = open();
        click(*w, 5);
        QVERIFY(focus(*w, w->tfTip));
        w->tfTip->setText("Hello world");
        w->tfTip->setSelection(5, 6);
        palette.mainMenuBar->EditClear->trigger();
        QCOMPARE(w->tfTip->text(), "Hello");
        QVERIFY(focus(*w, w->taInfo));
        w->taInfo->setPlainText("one two");
        QTextCursor cursor = w->taInfo->textCursor();
        cursor.setPosition(3);
        cursor.setPosition(7, QTextCursor::KeepAnchor);
        w->taInfo->setTextCursor(cursor);
        palette.mainMenuBar->EditClear->trigger();
        QCOMPARE(w->taInfo->toPlainText(), "one");
        w->tfTip->clear();
        w->pbOK->setFocusPolicy(Qt::TabFocus); // as on the Mac, a click leaves the focus where it is
        QVERIFY(focus(*w, w->tfPaletteGo));
        QTest::keyClicks(w->tfPaletteGo, "1");
        QTest::mouseClick(w->pbOK, Qt::LeftButton);
        QCOMPARE(QStringList({button(5).PaletteGo, button(5).Tip, button(5).Info}),
                 QStringList({"01", "Change palette to 01", "one"}));
    }
};

QTEST_MAIN(DesignWindowTest)
#include "tst_design_window.moc"
