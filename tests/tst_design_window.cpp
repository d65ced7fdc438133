// The design window driven as a user drives it: clicks on the grid and the arrows, typing into
// the fields, OK, Cancel and Done, checked against the buttons of the active palette.
#include "common/Program.h"
#include "design/UpDownArrows.h"
#include "design/ccDataIntUpDown.h"
#include "design/ccDataStrUpDown.h"
#include "design/ccGC.h"
#include "design/winConstruct.h"
#include "help/Help.h"
#include "help/HelpLabels.h"
#include "palette_window/MainMenuBar.h"
#include "palette_window/cnBut.h"
#include "palette_window/winMain.h"
#include "store/ZOR.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFocusEvent>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <memory>

namespace {
std::vector<Btn> snapshot() {
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

class DesignWindowTest : public QObject, ProgramFixture {
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
    void init() { setUpProgram(); }
    void cleanup() { tearDownProgram(); }

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
        QCOMPARE(state(*w), "1111 011 0");
        QCOMPARE(w->labID->text(), "05");
        QLineEdit* field = kind == "AS" ? w->tfAS : kind == "SC" ? w->tfSC : w->tfPaletteGo;
        const QString text = kind == "AS" ? "Mail" : kind == "SC" ? "Day" : "1";
        const auto begin = [&] {
            if (kind == "KM")
                QTest::mouseClick(w->cbKM, Qt::LeftButton);
            else
                QTest::keyClicks(field, text);
        };
        begin();
        QTEST(state(*w), "begun");
        if (kind == "KM")
            QTest::mouseClick(w->cbKM, Qt::LeftButton);
        else
            field->clear();
        QTEST(state(*w), "undone");
        begin();
        if (kind != "KM") leave(field);
        QTEST(w->labButtSpec->text(), "label");
        QTest::mouseClick(w->pbOK, Qt::LeftButton);
        QCOMPARE(state(*w), "0000 001 1");
        QCOMPARE(w->labButtSpec->text(), "Button Specification");
        QCOMPARE(ZOR::idxCurrentBtn, -1);
        const Btn& b = button(5);
        QCOMPARE(QStringList({b.KM_Active ? "KM" : "", b.ASfile, b.SCname, b.PaletteGo}).join('|'),
                 QStringList({kind == "KM" ? "KM" : "", kind == "AS" ? "Mail" : "", kind == "SC" ? "Day" : "",
                              kind == "PS" ? "01" : ""})
                     .join('|'));
        QVERIFY(ZOR::paletteContentChange);
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
        startWith(2);
        auto w = open();
        click(*w, 5);
        auto* edit = w->findChild<QLineEdit*>(field);
        QTest::keyClicks(edit, typed);
        leave(edit);
        QTEST(edit->text(), "kept");
        QTEST(w->tfTip->text(), "tip");
        QWidget* warning = field == "tfAS"   ? static_cast<QWidget*>(w->labZorAS_NotExist)
                           : field == "tfSC" ? static_cast<QWidget*>(w->labZorSC_NotExist)
                                             : static_cast<QWidget*>(w->labZorPaletteNum_NotExist);
        QTEST(!warning->isHidden(), "warning");

        // A tip that the user typed is never replaced.
        w->tfTip->setText("Mine");
        edit->setText(typed);
        leave(edit);
        QCOMPARE(w->tfTip->text(), "Mine");
    }

    void shortcutLetterMovesBetweenButtons() {
        startWith(1);
        for (const BtnRef& b : *ZOR::aBtn)
            b->Shortcut = kNoShortcut;
        button(3).Shortcut = "k";
        button(20).Shortcut = "K";
        auto w = open();
        click(*w, 12);
        arrows(w->ccShortcutUpDown->udChangeVal, false, 1, true); // h
        arrows(w->ccShortcutUpDown->udChangeVal, false, 3);       // k
        QCOMPARE(w->labShortcut->text(), "k");
        QCOMPARE(button(12).Shortcut, kNoShortcut); // only OK stores it
        QTest::mouseClick(w->pbOK, Qt::LeftButton);
        QCOMPARE(QStringList({button(3).Shortcut, button(12).Shortcut, button(20).Shortcut}),
                 QStringList({kNoShortcut, "k", "K"}));
        QCOMPARE(w->ccShortcutUpDown->theValueIndex, 0);

        // Back to none: only this button changes.
        const std::vector<Btn> before = snapshot();
        click(*w, 12);
        arrows(w->ccShortcutUpDown->udChangeVal, false);
        arrows(w->ccShortcutUpDown->udChangeVal, true);
        QCOMPARE(w->labShortcut->text(), kNoShortcut);
        QTest::mouseClick(w->pbOK, Qt::LeftButton);
        std::vector<Btn> expected = before;
        expected[12].Shortcut = kNoShortcut;
        QVERIFY(snapshot() == expected);
    }

    void cancelAndAnotherCellDropTheScratchCopy() {
        startWith(1);
        button(6).Tip = "Six";
        button(5).AutoMin = 7;
        auto w = open();
        const std::vector<Btn> before = snapshot();
        click(*w, 5);
        QCOMPARE(w->pumAutoMin->currentText(), "Never");
        QTest::keyClicks(w->tfTip, "Changed");
        QTest::mouseClick(w->cbKM, Qt::LeftButton);
        QTest::mouseClick(w->cbVisibleBtn, Qt::LeftButton);
        arrows(w->ccShortcutUpDown->udChangeVal, false, 2);
        click(*w, 6);
        QCOMPARE(w->tfTip->text(), "Six");
        QCOMPARE(state(*w), "1111 011 0");
        QCOMPARE(w->ccShortcutUpDown->labValue->text(), kNoShortcut);
        QCOMPARE(w->ccShortcutUpDown->theValueIndex, 2); // the arrows go on from where they were
        QTest::keyClicks(w->tfTip, "!");
        QTest::mouseClick(w->pbCancel, Qt::LeftButton);
        QVERIFY(snapshot() == before);
        QCOMPARE(ZOR::idxCurrentBtn, -1);
        QCOMPARE(w->accGC[6]->CurrentLook(), ccGC::Look::Used);
        QCOMPARE(state(*w), "0000 001 1");
        QVERIFY(w->tfTip->text().isEmpty() && !w->tfTip->isEnabled());

        // A stored delay that is none of the choices is stored as Never at OK.
        click(*w, 5);
        QTest::keyClicks(w->tfTip, "x");
        QTest::mouseClick(w->pbOK, Qt::LeftButton);
        QCOMPARE(button(5).AutoMin, 0);
        QCOMPARE(button(5).Tip, "x");
    }

    void clickOutsideTheUsedGridBeeps() {
        startWith(1, 3, 4);
        auto w = open();
        click(*w, 4);
        click(*w, 30);
        QCOMPARE(dialogs->beeps(), 2);
        QCOMPARE(ZOR::idxCurrentBtn, -1);
        for (const QLabel* icon : {w->cnvKM, w->cnvAS, w->cnvSC})
            QVERIFY(!icon->pixmap().isNull());
    }

    void shrinkingKeepsButtonsUntilTheNextOpening() {
        startWith(1, 5, 10);
        for (int i : {30, 45}) {
            Btn& b = button(i);
            b.Tip = "tip", b.Info = "info", b.ASfile = "Mail", b.SCname = "Day", b.PaletteGo = "02";
            b.Vis = false, b.ShortcutShow = false, b.Shortcut = "Q";
        }
        auto w = open();
        const std::vector<Btn> before = snapshot();
        arrows(w->ccRowUpDown->udChangeVal, false, 2);
        QCOMPARE(ZOR::numRows, 3);
        QCOMPARE(w->accGC[45]->CurrentLook(), ccGC::Look::Outside);
        arrows(w->ccRowUpDown->udChangeVal, true, 2);
        QCOMPARE(ZOR::numRows, 5);
        QVERIFY(snapshot() == before);

        arrows(w->ccRowUpDown->udChangeVal, false, 2);
        QTest::mouseClick(w->pbDone, Qt::LeftButton);
        QVERIFY(!button(30).Vis); // the row below the grid is hidden at Done
        w = open();
        for (int i : {30, 45}) {
            const Btn& b = button(i);
            QCOMPARE(QStringList({b.Tip, b.Info, b.ASfile, b.SCname, b.PaletteGo, b.Shortcut}),
                     QStringList({"", "", "", "Day", "02", "Q"}));
            QVERIFY(b.Vis && b.ShortcutShow);
        }
    }

    void assignAllOnAFullGrid() {
        startWith(1);
        auto w = open();
        QTest::mouseClick(w->pbAssignNoShortcut, Qt::LeftButton);
        QCOMPARE(w->ShortcutStatus(), 0);
        QVERIFY(!w->pbAssignNoShortcut->isEnabled() && w->pbAssignShortcuts->isEnabled());
        QTest::mouseClick(w->pbAssignShortcuts, Qt::LeftButton);
        QString letters;
        for (int i = 0; i < 100; ++i)
            letters += button(i).Shortcut;
        QCOMPARE(letters, ZOR::aAlphabetShortcut.join("") + QString(48, kNoShortcut[0]));
        QCOMPARE(w->ShortcutStatus(), 2);
        QVERIFY(!w->pbAssignShortcuts->isEnabled() && w->pbAssignNoShortcut->isEnabled());
    }

    void allVisibleFlips() {
        startWith(1);
        for (const BtnRef& b : *ZOR::aBtn)
            b->ShortcutShow = true;
        auto w = open();
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
        QTest::newRow("blank") << "   " << "P00";
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
        QCOMPARE(w->tfWinTitle->text(), title);
        QCOMPARE(ZOR::paleWinTitle, title);
        QCOMPARE(palette.windowTitle(), title);
        QCOMPARE(w->windowTitle(), "Grid Construct: ZOR Palette (P00)"); // its own title bar stays
    }

    void invisibleButtonsWithPictures_data() {
        QTest::addColumn<QList<int>>("hidden");
        QTest::addColumn<QString>("text");
        QTest::newRow("one") << QList<int>{5}
                             << "The following button has a picture assigned to it but is currently set as "
                                "invisible: 5";
        QTest::newRow("several") << QList<int>{5, 12}
                                 << "The following buttons have pictures assigned to them but are currently "
                                    "set as invisible: 5, 12";
        QTest::newRow("none") << QList<int>{7} << "";
    }
    void invisibleButtonsWithPictures() {
        QFETCH(QList<int>, hidden);
        QFETCH(QString, text);
        QImage picture(64, 64, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QDir().mkpath(home->programFolder() + "/ButtonPictures/P00");
        for (const char* name : {"05 five.png", "12 twelve.png", "40 forty.png"})
            picture.save(home->programFolder() + "/ButtonPictures/P00/" + name);
        startWith(1);
        for (int i : hidden)
            button(i).Vis = false;
        if (!text.isEmpty()) dialogs->queueOK(true);
        auto w = open();
        QCOMPARE(dialogs->texts(Dialogs::Kind::MesDlg), text.isEmpty() ? QStringList() : QStringList{text});
        QVERIFY(dialogs->unexpected.isEmpty());
        if (!text.isEmpty())
            QCOMPARE(dialogs->requests.last().detail, "This is legal but make sure this is your intent.");
    }

    void doneRedrawsThePaletteWindow() {
        winMain& palette = startWith(1, 0, 10);
        auto w = open();
        QCOMPARE(ZOR::numRows, 10); // a broken count opens as 10
        arrows(w->ccRowUpDown->udChangeVal, false, 3, true);
        arrows(w->ccColUpDown->udChangeVal, false, 4);
        QCOMPARE(palette.centralWidget()->height(), 94); // untouched until Done
        QTest::mouseClick(w->pbDone, Qt::LeftButton);
        QCOMPARE(palette.centralWidget()->size(), QSize(6 * 64, 4 * 64 + 30));
        QVERIFY(palette.cnButs[3]->isVisibleTo(&palette));
        QVERIFY(!palette.cnButs[40]->isVisibleTo(&palette)); // the row below the grid
        QCOMPARE(w->result(), int(QDialog::Accepted));
    }

    void menuOpensTheWindowModally() {
        winMain& palette = startWith(1);
        palette.mainMenuBar->miConstruct->trigger();
        QCOMPARE(dialogs->requests.size(), 1);
        QCOMPARE(dialogs->requests[0].kind, Dialogs::Kind::Window);
        QCOMPARE(dialogs->requests[0].title, "Grid Construct: ZOR Palette (P00)");
    }

    void helpLabelsOpenTheirRecords() {
        startWith(1);
        auto w = open();
        // clang-format off
        const std::pair<const char*, int> doors[] = {
            {"pbHelpGridCon", 10}, {"labPalePart", 12}, {"labNmAls", 13}, {"labAllShortcut", 15},
            {"labKeybrdShort", 16}, {"labPalette", 17}, {"labWinTitle", 20}, {"mabButton", 22},
            {"labKB_ShortcutInfo", 24}, {"labTip", 26}, {"labInformation", 28}, {"labAppleScript", 30},
            {"labKM", 31}, {"labMacShortcuts", 32}, {"labZorAS_NotExist", 34}, {"labZorPaletteSwitch", 35},
            {"labButtonVis", 36}, {"labZorSC_NotExist", 37}, {"labZorPaletteNum_NotExist", 38},
            {"labAutoMin", 0}};
        // clang-format on
        QStringList shown, expected;
        for (const auto& [name, id] : doors) {
            auto* door = w->findChild<QWidget*>(name);
            QVERIFY2(door, name);
            QTest::mouseClick(door, Qt::LeftButton);
            shown << QString(name) + ' ' +
                         (dialogs->requests.isEmpty() ? QString() : dialogs->requests.last().title);
            expected << QString(name) + ' ' + Help::helpDict.value(id).section('\t', 0, 0).trimmed();
            dialogs->clear();
        }
        QCOMPARE(shown, expected);
        QCOMPARE(shown.first(), "pbHelpGridCon Grid Construct Overview");
        QVERIFY(!shown.filter(QRegularExpression(" $")).size()); // every door found a record
    }

    void shortcutFieldHiddenOnOldSystems_data() {
        QTest::addColumn<QString>("version");
        QTest::addColumn<bool>("hidden");
        QTest::newRow("11") << "11.7.10" << true;
        QTest::newRow("14") << "14.2" << false;
    }
    void shortcutFieldHiddenOnOldSystems() {
        QFETCH(QString, version);
        tools->setAnswer("sw_vers", version + "\n");
        startWith(1);
        QTEST(open()->tfSC->isHidden(), "hidden");
    }

    void okLeavesTheFieldBeingTypedIn() {
        startWith(2);
        auto w = open();
        click(*w, 5);
        w->pbOK->setFocusPolicy(Qt::TabFocus); // as on the Mac, a click leaves the focus where it is
        QVERIFY(focus(*w, w->tfPaletteGo));
        QTest::keyClicks(w->tfPaletteGo, "1");
        QTest::mouseClick(w->pbOK, Qt::LeftButton);
        QCOMPARE(QStringList({button(5).PaletteGo, button(5).Tip}),
                 QStringList({"01", "Change palette to 01"}));
    }

    void editDeleteRemovesOnlyTheSelection() {
        winMain& palette = startWith(1);
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
    }
};

QTEST_MAIN(DesignWindowTest)
#include "tst_design_window.moc"
