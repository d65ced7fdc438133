// The information bar: what it tells about the button under the pointer, and how it fits tips.
#include "tst_windows.h"

namespace {
QColor barColour(const winMain& w) { return w.rectBackgroundTip->palette().color(QPalette::Window); }
const QString kLongTip = "Opens the quarterly report of the northern region in the spreadsheet program";
} // namespace

class InfoBarTest : public WindowTest {
    Q_OBJECT

    winMain& startWith(int columns) { return ProgramFixture::startWith(1, 3, columns); }

private slots:
    void cleanup() {
        QVERIFY(dialogs->texts().isEmpty());
        WindowTest::cleanup();
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
        winMain& w = startWith(10);
        Btn& b = button(12);
        b.ASfile = kinds[0], b.SCname = kinds[1], b.PaletteGo = kinds[2], b.Tip = "Mail";
        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QApplication::sendEvent(w.cnButs[12], &enter); // the canvas's own event reaches the handler
        QCOMPARE(QStringList({barColour(w).name(), w.labSeeNum->text(), w.labTip->text(), w.labSeeSC->text(),
                              w.labSeeSC->textColor().name()}),
                 QStringList({colour.name(), "P00 12", "Mail", "m", "#797979"}));

        b.ShortcutShow = true;
        w.cnBut_MouseEnter(12);
        QCOMPARE(w.labSeeSC->textColor(), QColor(0xDC, 0x6E, 0x00));
        button(60).Vis = false; // a hidden button leaves the colour as it was
        button(60).ASfile = "x";
        w.cnBut_MouseEnter(60);
        QCOMPARE(barColour(w).name() + w.labSeeSC->text(), colour.name() + kNoShortcut);

        w.cnBut_MouseExit(60);
        QCOMPARE(QStringList({barColour(w).name(), w.labTip->text(), w.labSeeNum->text(), w.labSeeSC->text()}),
                 QStringList({"#feff96", "Original", "P00", ""}));
    }

    void tipFitsTheWidth_data() {
        QTest::addColumn<int>("columns");
        QTest::addColumn<QString>("tip");
        QTest::addColumn<QString>("shown"); // "cut": the first words and "…"
        QTest::addColumn<bool>("small");    // drawn at size 10
        QTest::newRow("one column has no room") << 1 << "Mail" << "" << false;
        QTest::newRow("narrow, no tip") << 3 << "" << "no tip" << false;
        QTest::newRow("wide, no tip") << 4 << "" << "no tip for this button" << false;
        QTest::newRow("narrow, short tip at size 10") << 3 << "Mail" << "Mail" << true;
        QTest::newRow("narrow, long tip cut at a word") << 3 << kLongTip << "cut" << true;
        QTest::newRow("narrow, one long word") << 2 << "Supercalifragilisticexpialidocious" << QString::fromUtf8("…") << true;
        QTest::newRow("narrow, two long words") << 2 << "Supercalifragilistic Expialidocious" << "Supercalifragilistic" << true;
        QTest::newRow("wide, a tip that fits") << 10 << "Open the mail" << "Open the mail" << false;
        QTest::newRow("wide, a tip too long for default size") << 5 << kLongTip << "cut" << true;
    }
    void tipFitsTheWidth() {
        QFETCH(int, columns);
        QFETCH(QString, tip);
        QFETCH(QString, shown);
        QFETCH(bool, small);
        winMain& w = startWith(columns);
        button(1).Tip = tip;
        w.cnBut_MouseEnter(1);
        const QString text = w.labTip->text();
        if (shown == "cut") // the first words, as many as fit
            QVERIFY2(text.endsWith(QString::fromUtf8("…")) && text.size() < tip.size() && tip.startsWith(text.chopped(1)) &&
                         QFontMetricsF(w.labTip->font()).horizontalAdvance(text) < w.labTip->width(), qPrintable(text));
        else QCOMPARE(text, shown);
        if (columns > 1) QCOMPARE(w.labTip->font().pixelSize() == 10, small);
        w.cnBut_MouseExit(1); // the alias at rest: size 10 below four columns
        QCOMPARE(w.labTip->font().pixelSize() == 10, columns < 4);
    }
};

QTEST_MAIN(InfoBarTest)
#include "tst_infobar.moc"
