// The design window driven as a user drives it, checked against the active palette's buttons;
// and its small controls on their own: the up-downs' steps and a grid cell's looks.
#include "design/UpDownArrows.h"
#include "design/ccDataIntUpDown.h"
#include "design/ccDataStrUpDown.h"
#include "design/ccGC.h"
#include "design/winConstruct.h"
#include "tst_windows.h"
#include "util/AppGlobals.h"
#include "util/StringUtils.h"

namespace {
const QString kFlag = QStringLiteral("🇩🇪");

// A one-line field's or a text area's text, and where its cursor stands.
std::pair<QString, int> content(QWidget* w) {
    if (auto* line = qobject_cast<QLineEdit*>(w)) return {line->text(), line->cursorPosition()};
    auto* area = qobject_cast<QPlainTextEdit*>(w);
    return {area->toPlainText(), area->textCursor().position()};
}
void setContent(QWidget* w, const QString& text, int cursor = -1) {
    if (auto* line = qobject_cast<QLineEdit*>(w)) {
        line->setText(text);
        if (cursor >= 0) line->setCursorPosition(cursor);
        return;
    }
    auto* area = qobject_cast<QPlainTextEdit*>(w);
    area->setPlainText(text);
    QTextCursor at = area->textCursor();
    at.setPosition(cursor >= 0 ? cursor : int(text.size()));
    area->setTextCursor(at);
}
bool inButtonHalf(const QString& field) {
    return field != "tfWinTitle" && field != "taParticulars";
}

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

// The indices of the buttons that differ from a copy taken before.
QList<int> changedSince(const std::vector<Btn>& before) {
    const std::vector<Btn> now = buttons();
    QList<int> changed;
    for (size_t i = 0; i < std::max(now.size(), before.size()); ++i)
        if (i >= now.size() || i >= before.size() || !(now[i] == before[i])) changed << int(i);
    return changed;
}

// One press on the arrows ("up", "Shift down"...): the value shown and the number of changes told.
template <class Control> std::pair<QString, int> press(Control& control, const QString& arrow) {
    QSignalSpy changed(&control, &Control::ValueChanged);
    arrows(control.udChangeVal, arrow.endsWith("up"), 1, arrow.startsWith("Shift"));
    return {control.labValue->text(), int(changed.count())};
}


// Everything the button half shows, by name, for a row to state as the user sees it.
QStringList buttonHalf(const winConstruct& w) {
    const auto on = [](const QAbstractButton* box) { return box->isChecked() ? "on" : "off"; };
    QStringList warnings, enabled;
    for (const QWidget* warning : {w.labZorAS_NotExist, w.labZorSC_NotExist, w.labZorPaletteNum_NotExist})
        if (!warning->isHidden()) warnings << warning->objectName().mid(6).section('_', 0, 0);
    const std::pair<const char*, const QWidget*> controls[] = {
        {"KM", w.cbKM}, {"AS", w.tfAS}, {"SC", w.tfSC}, {"PS", w.tfPaletteGo}, {"tip", w.tfTip},
        {"letters", w.ccShortcutUpDown->udChangeVal}, {"OK", w.pbOK}, {"Cancel", w.pbCancel},
        {"Done", w.pbDone}, {"grid", w.ccRowUpDown}};
    QStringList selected; // the cells that look chosen
    for (int i = 0; i < 100; ++i)
        if (w.accGC[i]->currentLook() == ccGC::Look::Selected) selected << StringUtils::twoDigits(i);
    for (const auto& [name, control] : controls)
        if (control->isEnabled()) enabled << name;
    return {"ID=" + w.labID->text(),
            "heading=" + w.labButtSpec->text(),
            "letter=" + (w.labShortcut->isHidden() ? "hidden"
                                                   : w.labShortcut->text() + ' ' +
                                                         w.labShortcut->palette().color(QPalette::WindowText).name()),
            QString("visible=") + on(w.cbVisibleBtn),
            QString("onButton=") + on(w.cbVisOnBtn),
            QString("KM=") + on(w.cbKM),
            QString("clipboard=") + on(w.cbUseClip),
            "tip=" + w.tfTip->text(),
            "info=" + w.taInfo->toPlainText(),
            "AS=" + w.tfAS->text(),
            "SC=" + w.tfSC->text(),
            "PS=" + w.tfPaletteGo->text(),
            "delay=" + w.pumAutoMin->currentText(),
            "grid=" + w.ccRowUpDown->labValue->text() + 'x' + w.ccColUpDown->labValue->text(),
            "warnings=" + warnings.join(' '),
            "arrows=" + w.ccShortcutUpDown->labValue->text() + ' ' + QString::number(w.ccShortcutUpDown->theValueIndex),
            "selected=" + selected.join(' '),
            "enabled=" + enabled.join(' ')};
}

// `base` with the "name=value" lines of `changed` put in place of those of the same name.
QStringList with(QStringList base, const QStringList& changed) {
    for (const QString& line : changed) {
        const QString name = line.section('=', 0, 0) + '=';
        auto at = std::find_if(base.begin(), base.end(), [&](const QString& l) { return l.startsWith(name); });
        if (at == base.end()) base << line;
        else *at = line;
    }
    return base;
}

void store(Btn& b, const QString& key, const QString& value) {
    if (key == "AutoMin") b.AutoMin = value.toInt();
    else if (key == "ShortcutShow") b.ShortcutShow = value == "true";
    else *std::map<QString, QString*>{{"Tip", &b.Tip}, {"Info", &b.Info}, {"SCname", &b.SCname},
                                      {"ASfile", &b.ASfile}, {"PaletteGo", &b.PaletteGo}}.at(key) = value;
}

bool hasColour(const QImage& shot, const QRect& area, const QColor& colour) {
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (shot.pixelColor(x, y) == colour) return true;
    return false;
}
} // namespace

class DesignWindowTest : public WindowTest {
    Q_OBJECT

    std::unique_ptr<winConstruct> open() { return std::make_unique<winConstruct>(program->window()); }
    static void click(winConstruct& w, int index) { QTest::mouseClick(w.accGC[index], Qt::LeftButton); }
    // The keyboard focus put into the field, as a click into it would.
    static bool focus(winConstruct& w, QWidget* field) {
        w.show();
        QApplication::setActiveWindow(&w);
        field->setFocus();
        return QTest::qWaitFor([&] { return QApplication::focusWidget() == field; });
    }

    // A store without a program: one palette's buttons on a grid of 3 x 4, none chosen.
    static void bareStore() {
        ZOR::MakeAlphabetShortcuts();
        ZOR::aBtn = ZOR::newButtonArray();
        ZOR::numRows = 3, ZOR::numColumns = 4, ZOR::idxCurrentBtn = -1;
    }

private slots:
    // The button half as a user drives it, then everything it shows and everything the saved
    // store keeps. A row's look is that of a freshly loaded button of the cell last clicked, but for
    // the lines it names; `saved` is every line of PreserveState.txt that the steps changed.
    // Steps: "click 5"; "given 5 Tip=x" (stored before the window opens); "tip x", "info", "AS",
    // "SC", "PS" (typed); "leave AS", "clear AS"; "visible", "onButton", "clipboard", "KM" (ticked or
    // unticked); "delay 2" (its row); "letter [Shift] up|down"; "OK", "Cancel"; "reopen" (Done, then
    // the menu again).
    void buttonHalfScenarios_data() {
        QTest::addColumn<QString>("grid");
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QStringList>("shown");
        QTest::addColumn<QStringList>("saved");
        const QString back = "; OK; reopen; click 5";
        const QString tip80 = QString(79, 't') + kFamily + "+", info = QString(2100, 'i');
        // clang-format off
        QTest::newRow("delay 2 seconds") << "10x10" << "click 5; delay 1" + back << QStringList{"delay=2 seconds"} << QStringList{"P00 05 AutoMin=2"};
        QTest::newRow("delay 10 seconds") << "10x10" << "click 5; delay 2" + back << QStringList{"delay=10 seconds"} << QStringList{"P00 05 AutoMin=10"};
        QTest::newRow("delay 50 seconds") << "10x10" << "click 5; delay 3" + back << QStringList{"delay=50 seconds"} << QStringList{"P00 05 AutoMin=50"};
        QTest::newRow("delay back to Never") << "10x10" << "given 5 AutoMin=50; click 5; delay 0" + back << QStringList() << QStringList{"P00 05 AutoMin=0"};
        QTest::newRow("a stored delay of none of the choices: Never, 0 at OK") << "10x10" << "given 5 AutoMin=7; click 5; tip x" + back << QStringList{"tip=x"} << QStringList{"P00 05 Tip=x", "P00 05 AutoMin=0"};
        QTest::newRow("button hidden alone") << "10x10" << "click 5; visible" + back << QStringList{"visible=off"} << QStringList{"P00 05 Vis=false"};
        QTest::newRow("letter shown on the button alone") << "10x10" << "click 5; onButton" + back << QStringList{"onButton=on", "letter=f #dc6e00"} << QStringList{"P00 05 ShortcutShow=true"};
        QTest::newRow("letter taken off the button, not yet confirmed") << "10x10" << "given 5 ShortcutShow=true; click 5; onButton" << QStringList{"letter=f #797979", "enabled=KM AS SC PS tip letters OK Cancel"} << QStringList();
        QTest::newRow("hidden button, letter on it") << "10x10" << "given 5 ShortcutShow=true; click 5; visible" + back << QStringList{"visible=off", "onButton=on", "letter=f #dc6e00"} << QStringList{"P00 05 Vis=false"};
        QTest::newRow("clipboard") << "10x10" << "click 5; clipboard" + back << QStringList{"clipboard=on"} << QStringList{"P00 05 Clipbrd=1"};
        QTest::newRow("every field but the kind, back after reopening") << "10x10" << "click 5; tip Hi; info More; delay 2; visible; onButton; clipboard" + back << QStringList{"tip=Hi", "info=More", "delay=10 seconds", "visible=off", "onButton=on", "letter=f #dc6e00", "clipboard=on"} << QStringList{"P00 05 Tip=Hi", "P00 05 Info=More", "P00 05 AutoMin=10", "P00 05 Vis=false", "P00 05 ShortcutShow=true", "P00 05 Clipbrd=1"};
        QTest::newRow("Keyboard Maestro, last cell of 3 x 7") << "3x7" << "click 26; KM; OK; reopen; click 26" << QStringList{"ID=26", "letter=A #a9a9a9", "KM=on", "grid=3x7", "enabled=KM tip letters Cancel Done"} << QStringList{"P00 26 KM_Active=true"};
        QTest::newRow("3 x 7: an 8th column and a 4th row beep") << "3x7" << "click 26; click 27; click 30; Cancel; reopen; click 36; click 6" << QStringList{"ID=06", "letter=g #a9a9a9", "grid=3x7", "beeps=3"} << QStringList();
        QTest::newRow("1 x 1: the one cell") << "1x1" << "click 1; click 10; click 0; tip One; OK; reopen; click 0" << QStringList{"ID=00", "letter=a #a9a9a9", "grid=1x1", "tip=One", "beeps=2"} << QStringList{"P00 00 Tip=One"};
        QTest::newRow("10 x 10: the last cell") << "10x10" << "click 99; tip Last; info Far; OK; reopen; click 99" << QStringList{"ID=99", "letter=␀ #a9a9a9", "tip=Last", "info=Far"} << QStringList{"P00 99 Tip=Last", "P00 99 Info=Far"};
        QTest::newRow("AppleScript typed") << "10x10" << "click 5; AS mail; leave AS" + back << QStringList{"heading=AppleScript", "AS=Mail", "tip=Run AS Mail", "enabled=AS tip letters Cancel Done"} << QStringList{"P00 05 Tip=Run AS Mail", "P00 05 ASfile=Mail"};
        QTest::newRow("Shortcut typed") << "10x10" << "click 5; SC MorningMail; leave SC" + back << QStringList{"heading=Shortcut", "SC=MorningMail", "tip=Run Shortcut MorningMail", "warnings=SC", "enabled=SC tip letters Cancel Done"} << QStringList{"P00 05 Tip=Run Shortcut MorningMail", "P00 05 SCname=MorningMail"};
        QTest::newRow("palette switch typed") << "10x10" << "click 5; PS 0; leave PS" + back << QStringList{"heading=Palette Switcher", "PS=00", "tip=Go to Original", "enabled=PS tip letters Cancel Done"} << QStringList{"P00 05 Tip=Go to Original", "P00 05 PaletteGo=00"};
        QTest::newRow("Keyboard Maestro ticked") << "10x10" << "click 5; KM" << QStringList{"KM=on", "enabled=KM tip letters OK Cancel"} << QStringList();
        QTest::newRow("Keyboard Maestro ticked and unticked: still a change") << "10x10" << "click 5; KM; KM" << QStringList{"enabled=KM AS SC PS tip letters OK Cancel"} << QStringList();
        QTest::newRow("a script begun") << "10x10" << "click 5; AS M" << QStringList{"AS=M", "enabled=AS tip letters OK Cancel"} << QStringList();
        QTest::newRow("a script begun and emptied: no change") << "10x10" << "click 5; AS M; clear AS" << QStringList() << QStringList();
        QTest::newRow("a Shortcut begun and emptied: no change") << "10x10" << "click 5; SC M; clear SC" << QStringList() << QStringList();
        QTest::newRow("a palette begun and emptied: no change") << "10x10" << "click 5; PS 1; clear PS" << QStringList() << QStringList();
        QTest::newRow("a palette begun") << "10x10" << "click 5; PS 1" << QStringList{"PS=1", "enabled=PS tip letters OK Cancel"} << QStringList();
        QTest::newRow("OK blanks the half") << "10x10" << "click 5; KM; OK" << QStringList{"ID=ID", "heading=Button Specification", "letter=hidden", "delay=", "selected=", "enabled=Done grid"} << QStringList{"P00 05 KM_Active=true"};
        QTest::newRow("script name filtered") << "10x10" << "click 5; AS 9 my-script.b2; leave AS" << QStringList{"heading=AppleScript", "AS=myscriptb2", "tip=Run AS myscriptb2", "warnings=AS", "enabled=AS tip letters OK Cancel"} << QStringList();
        QTest::newRow("script of digits only") << "10x10" << "click 5; AS 123; leave AS" << QStringList() << QStringList();
        QTest::newRow("script with blanks, ends trimmed") << "10x10" << "click 5; AS 9 morning mail ; leave AS" << QStringList{"heading=AppleScript", "AS=Morning Mail", "tip=Run AS Morning Mail", "enabled=AS tip letters OK Cancel"} << QStringList();
        QTest::newRow("Shortcut with blanks, ends trimmed") << "10x10" << "click 5; SC  Morning Mail ; leave SC" << QStringList{"heading=Shortcut", "SC=Morning Mail", "tip=Run Shortcut Morning Mail", "enabled=SC tip letters OK Cancel"} << QStringList();
        QTest::newRow("palette of one digit") << "10x10" << "click 5; PS 7; leave PS" << QStringList{"heading=Palette Switcher", "PS=07", "tip=Change palette to 07", "warnings=PaletteNum", "enabled=PS tip letters OK Cancel"} << QStringList();
        QTest::newRow("a tip typed first stays by a palette switch") << "10x10" << "click 5; tip Mine; PS 0; leave PS" << QStringList{"heading=Palette Switcher", "PS=00", "tip=Mine", "enabled=PS tip letters OK Cancel"} << QStringList();
        QTest::newRow("a tip typed first stays by a Shortcut") << "10x10" << "click 5; tip Mine; SC Other; leave SC" << QStringList{"heading=Shortcut", "SC=Other", "tip=Mine", "warnings=SC", "enabled=SC tip letters OK Cancel"} << QStringList();
        QTest::newRow("a tip typed first is never replaced") << "10x10" << "click 5; tip Mine; AS mail; leave AS" << QStringList{"heading=AppleScript", "AS=Mail", "tip=Mine", "enabled=AS tip letters OK Cancel"} << QStringList();
        QTest::newRow("a tip typed past 42 keeps 42") << "10x10" << "click 5; tip " + QString(45, 'x') + back << QStringList{"tip=" + QString(42, 'x')} << QStringList{"P00 05 Tip=" + QString(42, 'x')};
        QTest::newRow("stored tip and info past their limits stay whole") << "10x10" << "given 5 Tip=" + tip80 + "; given 5 Info=" + info + "; click 5; leave tip; leave info; visible" + back << QStringList{"tip=" + tip80, "info=" + info, "visible=off"} << QStringList{"P00 05 Vis=false"};
        QTest::newRow("stored tip past its limit: a key typed at its end is refused, the tip stays whole") << "10x10" << "given 5 Tip=" + tip80 + "; click 5; tip y" + back << QStringList{"tip=" + tip80} << QStringList();
        QTest::newRow("a stored tip with blanks at its ends stays") << "10x10" << "given 5 Tip= Hi ; click 5; leave tip; visible" + back << QStringList{"tip= Hi ", "visible=off"} << QStringList{"P00 05 Vis=false"};
        QTest::newRow("a stored Shortcut with blanks stays") << "10x10" << "given 5 SCname=My Shortcut ✓; click 5; leave SC; visible" + back << QStringList{"heading=Shortcut", "SC=My Shortcut ✓", "visible=off", "enabled=SC tip letters Cancel Done"} << QStringList{"P00 05 Vis=false"};
        QTest::newRow("a stored script with a blank and a hyphen stays") << "10x10" << "given 5 ASfile=My Script-2; click 5; leave AS; visible" + back << QStringList{"heading=AppleScript", "AS=My Script-2", "visible=off", "warnings=AS", "enabled=AS tip letters Cancel Done"} << QStringList{"P00 05 Vis=false"};
        QTest::newRow("a stored palette of one digit stays") << "10x10" << "given 5 PaletteGo=7; click 5; leave PS; visible" + back << QStringList{"heading=Palette Switcher", "PS=7", "visible=off", "warnings=PaletteNum", "enabled=PS tip letters Cancel Done"} << QStringList{"P00 05 Vis=false"};
        QTest::newRow("a letter taken from the button that had it, case apart") << "10x10" << "click 12; letter Shift down; letter down; letter down; letter down; OK; reopen; click 12" << QStringList{"ID=12", "letter=k #a9a9a9"} << QStringList{"P00 10 Shortcut=␀", "P00 12 Shortcut=k"};
        QTest::newRow("a letter back to none") << "10x10" << "click 12; letter down; letter up; OK; reopen; click 12" << QStringList{"ID=12", "letter=␀ #a9a9a9"} << QStringList{"P00 12 Shortcut=␀"};
        QTest::newRow("Cancel after changing everything") << "10x10" << "click 5; tip x; info y; visible; onButton; clipboard; delay 3; KM; Cancel; click 5" << QStringList() << QStringList();
        QTest::newRow("another cell drops the changes") << "10x10" << "click 5; tip x; KM; click 6; click 5" << QStringList() << QStringList();
        QTest::newRow("another cell: the arrows go on from where they were") << "10x10" << "click 5; letter down; letter down; click 6" << QStringList{"ID=06", "letter=g #a9a9a9", "arrows=␀ 2"} << QStringList();
        QTest::newRow("Cancel: nothing chosen, the arrows from none") << "10x10" << "click 5; letter down; tip x; Cancel" << QStringList{"ID=ID", "heading=Button Specification", "letter=hidden", "delay=", "selected=", "enabled=Done grid"} << QStringList();
        // clang-format on
    }
    void buttonHalfScenarios() {
        QFETCH(QString, grid);
        QFETCH(QString, steps);
        QFETCH(QStringList, saved);
        home->writeInProgram("Apple_Scripts/Mail.scpt", "compiled");
        home->writeInProgram("Apple_Scripts/Morning Mail.scpt", "compiled");
        tools->setAnswer("shortcuts", "My Shortcut ✓\nMorning Mail\n");
        startWith(1, grid.section('x', 0, 0).toInt(), grid.section('x', 1).toInt());
        const QString file = home->programFolder() + "/PreserveState.txt";
        std::unique_ptr<winConstruct> w;
        QStringList before;
        int cell = -1;
        for (const QString& step : steps.split("; ")) {
            const QString verb = step.section(' ', 0, 0), rest = step.section(' ', 1);
            if (verb == "given") { // a value stored before the window opens
                store(button(rest.section(' ', 0, 0).toInt()), rest.section(' ', 1).section('=', 0, 0),
                      rest.section('=', 1));
                continue;
            }
            if (!w) { // what the opening tidies outside the grid is resizingTheGrid's business
                w = open();
                QVERIFY(ZOR::saveStore());
                before = storeLines(file);
            }
            const std::map<QString, QWidget*> fields{{"tip", w->tfTip}, {"info", w->taInfo}, {"AS", w->tfAS},
                                                     {"SC", w->tfSC}, {"PS", w->tfPaletteGo}};
            const std::map<QString, QAbstractButton*> boxes{
                {"visible", w->cbVisibleBtn}, {"onButton", w->cbVisOnBtn}, {"clipboard", w->cbUseClip},
                {"KM", w->cbKM}, {"OK", w->pbOK}, {"Cancel", w->pbCancel}};
            if (verb == "click") {
                if (rest.toInt() / 10 < ZOR::numRows && rest.toInt() % 10 < ZOR::numColumns) cell = rest.toInt();
                click(*w, rest.toInt());
            } else if (verb == "leave") {
                leave(fields.at(rest));
            } else if (verb == "clear") {
                setContent(fields.at(rest), "");
            } else if (fields.count(verb)) {
                QTest::keyClicks(fields.at(verb), rest);
            } else if (boxes.count(verb)) {
                boxes.at(verb)->click();
            } else if (verb == "delay") {
                w->pumAutoMin->setCurrentIndex(rest.toInt());
            } else if (verb == "letter") {
                arrows(w->ccShortcutUpDown->udChangeVal, rest.endsWith("up"), 1, rest.startsWith("Shift"));
            } else if (verb == "reopen") { // Done, and the menu again
                QTest::mouseClick(w->pbDone, Qt::LeftButton);
                QCOMPARE(w->result(), int(QDialog::Accepted));
                w = open();
            } else {
                QFAIL(qPrintable("no such step: " + step));
            }
        }
        const QString letter = cell < 52 ? QString(QChar(cell < 26 ? 'a' + cell : 'A' + cell - 26)) : kNoShortcut;
        const QStringList fresh = {"ID=" + StringUtils::twoDigits(cell), "heading=Keyboard Maestro",
                                   "letter=" + letter + " #a9a9a9", "visible=on", "onButton=off", "KM=off",
                                   "clipboard=off", "tip=", "info=", "AS=", "SC=", "PS=", "delay=Never",
                                   "grid=" + grid, "warnings=", "arrows=␀ 0", "selected=" + StringUtils::twoDigits(cell),
                                   "enabled=KM AS SC PS tip letters Cancel Done",
                                   "beeps=0"};
        QFETCH(QStringList, shown);
        QCOMPARE(buttonHalf(*w) << "beeps=" + QString::number(dialogs->beeps()), with(fresh, shown));
        QStringList kept = changes(before, storeLines(file));
        kept.sort(), saved.sort();
        QCOMPARE(kept, saved);
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
        QVERIFY(!w->pbAssignNoShortcut->isEnabled());
        QVERIFY(w->pbAssignShortcuts->isEnabled());
        QTest::mouseClick(w->pbAssignShortcuts, Qt::LeftButton);
        QString letters;
        for (int i : {3, 4, 10, 23, 51, 52})
            letters += button(i).Shortcut;
        QTEST(letters, "letters");
        w = open();
        QVERIFY(!w->pbAssignShortcuts->isEnabled());
        QVERIFY(w->pbAssignNoShortcut->isEnabled());

        QCOMPARE(w->pbAllVisibleOnButton->text(), "All Invisible on Button");
        QTest::mouseClick(w->pbAllVisibleOnButton, Qt::LeftButton);
        QCOMPARE(w->pbAllVisibleOnButton->text(), "All Visible on Button");
        QVERIFY(!button(0).ShortcutShow);
        QVERIFY(!button(99).ShortcutShow);
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

    // Cells outside a smaller grid beep; their buttons are kept until Done and reset at the next
    // opening. Hidden buttons with a picture are told.
    void resizingTheGrid() {
        for (const char* name : {"05 five.png", "12 twelve.png", "40 forty.png"})
            home->writeInProgram(QString("ButtonPictures/P00/") + name, picture(64, 64));
        winMain& palette = startWith(1, 0, 10);
        ZOR::numRows = 0; // past the load, which mends it too: the window opens a broken count whole
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
        QCOMPARE(ZOR::numRows * 10 + ZOR::numColumns, 46);
        QString looks; // the grid as drawn, a line a row: used or outside
        for (int i = 0; i < 100; ++i)
            looks += QString(w->accGC[i]->currentLook() == ccGC::Look::Outside ? "-" : "#") + (i % 10 == 9 ? "\n" : "");
        QCOMPARE(looks, QString("######----\n").repeated(4) + QString("----------\n").repeated(6));
        click(*w, 40); // the first row and the first column outside the grid
        click(*w, 6);
        QCOMPARE(dialogs->beeps(), 2);
        QCOMPARE(ZOR::idxCurrentBtn, -1);
        arrows(w->ccRowUpDown->udChangeVal, true, 1, true);
        QCOMPARE(ZOR::numRows, 6);
        QCOMPARE(changedSince(before), QList<int>());
        arrows(w->ccRowUpDown->udChangeVal, false, 1, true);
        click(*w, 12);
        w->cbVisibleBtn->click();
        QTest::mouseClick(w->pbOK, Qt::LeftButton);
        QCOMPARE(palette.centralWidget()->size(), QSize(6 * 64, 4 * 64 + 30)); // the palette follows each OK
        QTest::mouseClick(w->pbDone, Qt::LeftButton);
        QCOMPARE(w->result(), int(QDialog::Accepted));
        QCOMPARE(palette.centralWidget()->size(), QSize(6 * 64, 4 * 64 + 30));
        QVERIFY(palette.cnButs[3]->isVisibleTo(&palette));
        QVERIFY(!palette.cnButs[40]->isVisibleTo(&palette));
        QVERIFY(!button(40).Vis); // the row below the grid is hidden at Done
        w = open();
        for (const Btn& b : {button(40), button(46)})
            QCOMPARE(QStringList({b.Tip, b.Info, b.ASfile, b.SCname, b.PaletteGo, b.Shortcut,
                                  b.Vis ? "Vis" : "", b.ShortcutShow ? "ShortcutShow" : ""}),
                     QStringList({"", "", "", "Day", "02", "Q", "Vis", "ShortcutShow"}));
        QCOMPARE(dialogs->questions(),
                 QStringList({"The following button has a picture assigned to it but is currently set as "
                              "invisible: 40 → OK",
                              "The following buttons have pictures assigned to them but are currently set as "
                              "invisible: 12, 40 → OK"}));
        QCOMPARE(dialogs->requests.last().detail, "This is legal but make sure this is your intent.");
        arrows(w->ccRowUpDown->udChangeVal, true); // and it follows when the close box ends the design
        w->close();
        QCOMPARE(palette.centralWidget()->height(), 5 * 64 + 30);
    }

    // The menu, and no Shortcuts field on an old system.
    void menuAndOldSystem() {
        tools->setAnswer("sw_vers", "11.7.10\n");
        startWith(1).mainMenuBar->miConstruct->trigger();
        auto w = open();
        for (const QWidget* shortcuts :
             std::initializer_list<const QWidget*>{w->tfSC, w->labMacShortcuts, w->cnvSC})
            QVERIFY(shortcuts->isHidden());
        for (const QLabel* icon : {w->cnvKM, w->cnvAS, w->cnvSC})
            QVERIFY(!icon->pixmap().isNull());
        QCOMPARE(dialogs->titles(), QStringList({"Grid Construct: ZOR Palette (P00)"}));
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
        w->tfTip->clear();
        w->pbOK->setFocusPolicy(Qt::TabFocus); // as on the Mac, a click leaves the focus where it is
        QVERIFY(focus(*w, w->tfPaletteGo));
        QTest::keyClicks(w->tfPaletteGo, "1");
        QTest::mouseClick(w->pbOK, Qt::LeftButton);
        QCOMPARE(button(5).PaletteGo + " " + button(5).Tip, "01 Go to " + ZOR::DP[1].s_Alias);
    }

    // A limit counts what a user sees as one character: the last that fits is taken whole, however
    // many units it has, and the next is refused with the text and the cursor as they were.
    void fieldsHoldCharacters_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("limit");
        QTest::newRow("window title") << "tfWinTitle" << 37;
        QTest::newRow("particulars") << "taParticulars" << 3100;
        QTest::newRow("tip") << "tfTip" << 42;
        QTest::newRow("shortcut") << "tfSC" << 32;
    }
    void fieldsHoldCharacters() {
        QFETCH(QString, field);
        QFETCH(int, limit);
        startWith(1);
        auto w = open();
        if (inButtonHalf(field)) click(*w, 5);
        auto* edit = w->findChild<QWidget*>(field);
        const QString full(limit - 1, 'x');
        setContent(edit, full, 2);
        type(edit, kFamily);
        type(edit, "y");
        QCOMPARE(content(edit), std::pair(full.left(2) + kFamily + full.mid(2), 2 + int(kFamily.size())));
    }

    // A cut at a limit keeps the character at its edge whole.
    void cutsKeepCharacters_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("cut");
        QTest::newRow("window title at 35") << "tfWinTitle" << 35;
        QTest::newRow("particulars at 3000") << "taParticulars" << 3000;
        QTest::newRow("info at 2000") << "taInfo" << 2000;
    }
    void cutsKeepCharacters() {
        QFETCH(QString, field);
        QFETCH(int, cut);
        startWith(1);
        auto w = open();
        if (inButtonHalf(field)) click(*w, 5);
        auto* edit = w->findChild<QWidget*>(field);
        const QString kept = "A" + QString(cut - 2, 'x') + kFlag; // `cut` characters
        setContent(edit, kept + "zz");
        leave(edit);
        if (field == "taInfo") QTest::mouseClick(w->pbOK, Qt::LeftButton);
        QCOMPARE(field == "tfWinTitle" ? ZOR::paleWinTitle
                 : field == "taInfo"   ? button(5).Info
                                       : ZOR::paleParticulars,
                 kept);
    }

    // A title or particulars stored as typing could not make them stay, entered, left and Done.
    void storedPaletteTextsStay_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("stored");
        QTest::newRow("a title with a colon") << "tfWinTitle" << "Work: Home";
        QTest::newRow("particulars past the field's limit") << "taParticulars" << " " + QString(3200, 'p');
    }
    void storedPaletteTextsStay() {
        QFETCH(QString, field);
        QFETCH(QString, stored);
        startWith(1);
        QString& value = field == "tfWinTitle" ? ZOR::paleWinTitle : ZOR::paleParticulars;
        value = stored;
        auto w = open();
        auto* edit = w->findChild<QWidget*>(field);
        QCOMPARE(content(edit).first, stored);
        leave(edit);
        QTest::mouseClick(w->pbDone, Qt::LeftButton);
        QCOMPARE(value, stored);
    }

    // A user's alias is shown whole where it fits, else cut with "…" and whole in its tooltip.
    void aliasLabelFits_data() {
        QTest::addColumn<QString>("alias");
        QTest::addColumn<QString>("shown");
        QTest::newRow("forty characters") << "Photoshop Actions Set 2 and Lightroom ✍"
                                          << "whole";
        QTest::newRow("longer than the window")
            << QString(30, 'W') + kFamily + QString(60, 'W') << "cut, whole in its tooltip";
    }
    void aliasLabelFits() {
        QFETCH(QString, alias);
        startWith(1);
        ZOR::paleAlias = alias;
        QTEST(fitted(open()->labNameAlias, alias), "shown");
    }

    // Once a kind is begun, the fields of the others look as they are, off; the two headings are
    // set alike; and a button names the Keyboard Maestro macro it runs, to copy.
    void buttonHalfLooks() {
        startWith(1);
        auto w = open();
        QCOMPARE(w->labButtSpec->font(), w->labPaleSpec->font());
        QVERIFY(w->labMacroName->isHidden());
        click(*w, 5);
        w->cbKM->click();
        const auto middle = [](QWidget* field) {
            const QImage shot = field->grab().toImage();
            return shot.pixelColor(shot.rect().center());
        };
        QCOMPARE(QList<QColor>({middle(w->tfTip), middle(w->tfAS), middle(w->tfSC)}),
                 QList<QColor>({QColor(0xFFFFFF), QColor(0xECECEC), QColor(0xECECEC)}));
        QCOMPARE(w->labMacroName->text(), "ZOR P00 05");
        QTest::mouseClick(w->pbCopyMacro, Qt::LeftButton);
        QCOMPARE(QGuiApplication::clipboard()->text(), "ZOR P00 05");
    }

    // A picture of any size chosen for the button, or dropped on its cell, becomes its picture: a
    // square copy under its number, the file chosen untouched, the older picture on the Desktop.
    void picturesWhereTheButtonIsDesigned_data() {
        QTest::addColumn<bool>("dropped");
        QTest::newRow("chosen") << false;
        QTest::newRow("dropped on its cell") << true;
    }
    void picturesWhereTheButtonIsDesigned() {
        QFETCH(bool, dropped);
        const QByteArray photo = picture(512, 512, Qt::blue);
        const QString chosen = home->desktop() + "/Big photo.png";
        home->write("Desktop/Big photo.png", photo);
        home->writeInProgram("ButtonPictures/P00/05 old.png", picture(64, 64));
        startWith(1);
        const QString folder = home->programFolder() + "/ButtonPictures/P00";
        const QString aside = home->desktop() + "/RemovedZOR_PaletteButtonPictures/P00";
        auto w = open();
        if (dropped) {
            QMimeData data;
            data.setUrls({QUrl::fromLocalFile(chosen)});
            QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(w->accGC[5], &enter);
            QApplication::sendEvent(w->accGC[5], &drop);
        } else {
            click(*w, 5);
            dialogs->queueFile(chosen);
            QTest::mouseClick(w->pbChoosePicture, Qt::LeftButton);
        }
        QCOMPARE(QStringList({w->labID->text(), w->labPictureFile->text()}) + namesIn(folder) +
                     namesIn(aside),
                 QStringList({"05", "05 Big photo.png", "05 Big photo.png", "05 old.png"}));
        QCOMPARE(QImage(folder + "/05 Big photo.png").size(), QSize(64, 64));
        QCOMPARE(w->cnvPicture->pixmap().size(), QSize(64, 64));
        QCOMPARE(readAll(chosen), photo);
        QTest::mouseClick(w->pbRemovePicture, Qt::LeftButton);
        QCOMPARE(QStringList({w->labPictureFile->text()}) + namesIn(folder) + namesIn(aside),
                 QStringList({"No picture", "05 Big photo.png", "05 old.png"}));
        QVERIFY(w->cnvPicture->pixmap().isNull());
        QVERIFY(!w->pbRemovePicture->isEnabled());
    }

    // Where the program knows the answer, it offers it: the user's Shortcuts as they are typed, the
    // scripts folder, the palettes in use by number and alias.
    void choicesOffered() {
        tools->setAnswer("shortcuts", "Morning Mail\nOther\n");
        home->writeInProgram("Apple_Scripts/Morning Mail.scpt", "compiled");
        home->write("Desktop/Elsewhere.scpt", "compiled");
        startWith(3);
        ZOR::DP[2].s_Alias = "Writing ✍";
        auto w = open();
        click(*w, 5);
        QCompleter* names = w->tfSC->completer();
        names->setCompletionPrefix("mail");
        QCOMPARE(names->currentCompletion(), "Morning Mail");
        for (const QString& chosen :
             {home->desktop() + "/Elsewhere.scpt", AppGlobals::folderPathAS + "/Morning Mail.scpt"}) {
            dialogs->queueFile(chosen);
            QTest::mouseClick(w->pbChooseAS, Qt::LeftButton);
        }
        QCOMPARE(dialogs->texts(Dialogs::Kind::Message), QStringList{winConstruct::kScriptOutsideFolder});
        QCOMPARE(dialogs->requests.first().detail, AppGlobals::folderPathAS);
        QCOMPARE(w->tfAS->text() + '|' + w->tfTip->text(), "Morning Mail|Run AS Morning Mail");
        QVERIFY(!w->pbPaletteList->isEnabled()); // as the field of another kind
        w->tfAS->clear();
        w->tfTip->clear();
        w->fillPaletteList();
        QStringList offered;
        for (const QAction* item : w->pbPaletteList->menu()->actions())
            offered << item->text();
        QCOMPARE(offered, QStringList({"00  Original", "01  " + ZOR::DP[1].s_Alias, "02  Writing ✍"}));
        QVERIFY(w->pbPaletteList->isEnabled());
        w->pbPaletteList->menu()->actions().last()->trigger();
        QCOMPARE(w->tfPaletteGo->text() + '|' + w->tfTip->text(), "02|Go to Writing ✍");
    }

    // Numbers 1 to 10 by 1 or 2 (Shift); letters by 1 or 8 from none through a..Z, down the list.
    void steps_data() {
        QTest::addColumn<bool>("letters");
        QTest::addColumn<int>("start");
        QTest::addColumn<QString>("arrow");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<int>("changes"); // told
        // clang-format off
        QTest::newRow("up by one") << false << 4 << "up" << "5" << 1;
        QTest::newRow("Shift up stops at the top") << false << 9 << "Shift up" << "10" << 1;
        QTest::newRow("down at the bottom: no event") << false << 1 << "down" << "1" << 0;
        QTest::newRow("letter up at none: no event") << true << 0 << "up" << kNoShortcut << 0;
        QTest::newRow("letter down to a") << true << 0 << "down" << "a" << 1;
        QTest::newRow("letter Shift down stops at Z") << true << 50 << "Shift down" << "Z" << 1;
        QTest::newRow("typed: taken as it is typed") << false << 4 << "type 7" << "7" << 1;
        QTest::newRow("typed past the top: the top at Return") << false << 4 << "type 12\n" << "10" << 2;
        QTest::newRow("typed 0: the bottom at Return") << false << 4 << "type 0\n" << "1" << 1;
        QTest::newRow("emptied: the value again at Return") << false << 4 << "type \b\n" << "4" << 0;
        // clang-format on
    }
    void steps() {
        bareStore();
        QFETCH(bool, letters);
        QFETCH(int, start);
        QFETCH(QString, arrow);
        std::pair<QString, int> seen;
        if (letters) {
            ccDataStrUpDown control;
            control.aStrChoices << kNoShortcut << ZOR::aAlphabetShortcut;
            control.jump = 1, control.jumpShift = 8, control.minIndex = 0, control.maxIndex = 52;
            control.theValueIndex = start, control.theValue = control.aStrChoices[start];
            seen = press(control, arrow);
            QCOMPARE(control.valueColour(), QColor(Qt::black)); // also after a press that could not move
        } else {
            ccDataIntUpDown control;
            control.jump = 1, control.jumpShift = 2, control.minValue = 1, control.maxValue = 10;
            control.theValue = start;
            control.showValue();
            if (arrow.startsWith("type ")) { // digits typed over the value, as a user selects and types
                QSignalSpy changed(&control, &ccDataIntUpDown::ValueChanged);
                control.labValue->selectAll();
                QTest::keyClicks(control.labValue, arrow.mid(5).remove('\n'));
                if (arrow.endsWith('\n')) QTest::keyClick(control.labValue, Qt::Key_Return);
                seen = {control.labValue->text(), int(changed.count())};
            } else {
                seen = press(control, arrow);
            }
        }
        QTEST(seen.first, "shown");
        QTEST(seen.second, "changes");
    }

    void cellLooks_data() {
        QTest::addColumn<int>("index");
        QTest::addColumn<QColor>("fill");
        QTest::addColumn<QColor>("frame");
        QTest::addColumn<QColor>("kind"); // a colour the upper left mark is drawn in
        QTest::addColumn<bool>("tipMark");
        using C = QColor;
        QTest::newRow("used, no action shows KM") << 0 << C(0xFFFFFF) << C(0x7F7F7F) << C(0xCFCFCF) << false;
        QTest::newRow("used, hidden button") << 1 << C(0xCDFFF2) << C(0x7F7F7F) << C(0xFF0000) << true;
        QTest::newRow("used, shortcut") << 2 << C(0xFFFFFF) << C(0x7F7F7F) << C(0x008080) << true;
        QTest::newRow("used, no letter: the wide mark drawn whole") << 3 << C(0xFFFFFF) << C(0x7F7F7F) << C(0xCFCFCF) << false;
        QTest::newRow("used, palette switch") << 10 << C(0xFFFFFF) << C(0x7F7F7F) << C(0x8000FF) << true;
        QTest::newRow("outside the used columns") << 4 << C(0xFFFFFF) << C(0xCFCFCF) << C(0xE6E6E6) << false;
        QTest::newRow("selected, also when hidden") << 11 << C(0x6666FF) << C(0xCCCCCC) << C() << false;
    }
    void cellLooks() {
        bareStore();
        QFETCH(int, index);
        QFETCH(QColor, kind);
        const auto& b = *ZOR::aBtn;
        b[1]->Vis = false, b[1]->ASfile = "Mail", b[1]->SCname = "Ignored", b[1]->Tip = "t";
        b[2]->SCname = "Open", b[2]->Info = "i", b[4]->KM_Active = true, b[11]->Vis = false;
        b[10]->PaletteGo = "03", b[10]->Tip = "t", b[10]->Info = "i", b[3]->Shortcut = kNoShortcut;
        ZOR::idxCurrentBtn = 11;
        ccGC cell;
        cell.butID = StringUtils::twoDigits(index);
        const QImage shot = cell.grab().toImage();
        QTEST(shot.pixelColor(48, 28), "fill");
        QTEST(shot.pixelColor(27, index == 11 ? 1 : 0), "frame");
        if (kind.isValid()) QVERIFY(hasColour(shot, QRect(4, 3, 22, 15), kind));
        QTEST(hasColour(shot, QRect(3, 38, 50, 14), QColor(0x0000FF)), "tipMark");
        QFETCH(QColor, fill); // the letter at the top right stays inside the frame
        for (int y = 6; y < 19; ++y) QCOMPARE(shot.pixelColor(ccGC::kSize - 3, y), fill);
        // A press let go off the cell still counts.
        QSignalSpy clicked(&cell, &ccGC::MouseUp);
        QTest::mousePress(&cell, Qt::LeftButton, {}, QPoint(10, 10));
        QTest::mouseRelease(&cell, Qt::LeftButton, {}, QPoint(90, 90));
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(clicked[0][0].toInt(), index);
    }
};

QTEST_MAIN(DesignWindowTest)
#include "tst_design_window.moc"
