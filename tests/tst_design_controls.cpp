// The design window's small controls on their own: the up-downs' steps and limits, and the
// looks of a grid cell painted from the active palette.
#include "design/UpDownArrows.h"
#include "design/ccDataIntUpDown.h"
#include "design/ccDataStrUpDown.h"
#include "design/ccGC.h"
#include "store/ZOR.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTest>

namespace {
void press(UpDownArrows* arrows, bool up, bool shift) {
    QTest::mouseClick(arrows, Qt::LeftButton, shift ? Qt::ShiftModifier : Qt::NoModifier,
                      QPoint(arrows->width() / 2, up ? 3 : arrows->height() - 3));
}

// Whether any pixel of the rectangle has exactly that colour.
bool hasColour(const QImage& shot, const QRect& area, const QColor& colour) {
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (shot.pixelColor(x, y) == colour) return true;
    return false;
}
} // namespace

class DesignControlsTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        ZOR::ResetStore();
        ZOR::MakeAlphabetShortcuts();
        ZOR::aBtn = ZOR::NewButtonArray();
        ZOR::numRows = 3;
        ZOR::numColumns = 4;
        ZOR::idxCurrentBtn = -1;
    }

    void integerSteps_data() {
        QTest::addColumn<int>("start");
        QTest::addColumn<bool>("up");
        QTest::addColumn<bool>("shift");
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("events");
        QTest::newRow("up by one") << 4 << true << false << 5 << 1;
        QTest::newRow("Shift up stops at the top") << 9 << true << true << 10 << 1;
        QTest::newRow("up at the top: no event") << 10 << true << false << 10 << 0;
        QTest::newRow("Shift down by two") << 6 << false << true << 4 << 1;
        QTest::newRow("down at the bottom: no event") << 1 << false << false << 1 << 0;
        QTest::newRow("Shift down stops at the bottom") << 2 << false << true << 1 << 1;
    }
    void integerSteps() {
        QFETCH(int, start);
        QFETCH(bool, up);
        QFETCH(bool, shift);
        ccDataIntUpDown control;
        control.jump = 1, control.jumpShift = 2, control.minValue = 1, control.maxValue = 10;
        control.theValue = start;
        QSignalSpy changed(&control, &ccDataIntUpDown::ValueChanged);
        press(control.udChangeVal, up, shift);
        QTEST(control.theValue, "value");
        QCOMPARE(control.labValue->text(), QString::number(control.theValue));
        QTEST(int(changed.count()), "events");
    }

    void stringSteps_data() {
        QTest::addColumn<int>("start");
        QTest::addColumn<bool>("up");
        QTest::addColumn<bool>("shift");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("events");
        QTest::newRow("up at the first entry: no event") << 0 << true << false << 0 << QString("\u2400") << 0;
        QTest::newRow("down goes to the next letter") << 0 << false << false << 1 << "a" << 1;
        QTest::newRow("Shift down from the first entry") << 0 << false << true << 8 << "h" << 1;
        QTest::newRow("Shift down stops at the last") << 50 << false << true << 52 << "Z" << 1;
        QTest::newRow("down at the last: no event") << 52 << false << false << 52 << "Z" << 0;
        QTest::newRow("Shift up stops at the first") << 3 << true << true << 0 << QString("\u2400") << 1;
    }
    void stringSteps() {
        QFETCH(int, start);
        QFETCH(bool, up);
        QFETCH(bool, shift);
        ccDataStrUpDown control;
        control.aStrChoices << kNoShortcut << ZOR::aAlphabetShortcut;
        control.jump = 1, control.jumpShift = 8, control.minIndex = 0, control.maxIndex = 52;
        control.theValueIndex = start;
        control.theValue = control.aStrChoices[start];
        QSignalSpy changed(&control, &ccDataStrUpDown::ValueChanged);
        press(control.udChangeVal, up, shift);
        QTEST(control.theValueIndex, "index");
        QTEST(control.theValue, "value");
        QTEST(control.labValue->text(), "value");
        QTEST(int(changed.count()), "events");
        // Any press shows the value in black, also one that could not move.
        QCOMPARE(control.ValueColor(), QColor(Qt::black));
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
        QTest::newRow("used, palette switch") << 10 << C(0xFFFFFF) << C(0x7F7F7F) << C(0x8000FF) << true;
        QTest::newRow("outside the used columns") << 4 << C(0xFFFFFF) << C(0xCFCFCF) << C(0xE6E6E6) << false;
        QTest::newRow("selected, also when hidden") << 11 << C(0x6666FF) << C(0xCCCCCC) << C() << false;
    }
    void cellLooks() {
        QFETCH(int, index);
        QFETCH(QColor, fill);
        QFETCH(QColor, frame);
        QFETCH(QColor, kind);
        QFETCH(bool, tipMark);
        Btn* b = (*ZOR::aBtn)[1].get();
        b->Vis = false, b->ASfile = "Mail", b->SCname = "Ignored", b->Tip = "t";
        (*ZOR::aBtn)[2]->SCname = "Open", (*ZOR::aBtn)[2]->Info = "i";
        (*ZOR::aBtn)[10]->PaletteGo = "03", (*ZOR::aBtn)[10]->Tip = "t", (*ZOR::aBtn)[10]->Info = "i";
        (*ZOR::aBtn)[11]->Vis = false;
        (*ZOR::aBtn)[4]->KM_Active = true;
        ZOR::idxCurrentBtn = 11;
        ccGC cell;
        cell.butID = QStringLiteral("%1").arg(index, 2, 10, QLatin1Char('0'));
        const QImage shot = cell.grab().toImage();
        QCOMPARE(shot.pixelColor(48, 28), fill);
        const int edge = index == 11 ? 1 : 0;
        QCOMPARE(shot.pixelColor(27, edge), frame);
        if (kind.isValid()) QVERIFY(hasColour(shot, QRect(4, 3, 22, 15), kind));
        QCOMPARE(hasColour(shot, QRect(3, 38, 50, 14), QColor(0x0000FF)), tipMark);
    }

    void cellTellsItsIndexEvenWhenDraggedOff() {
        ccGC cell;
        cell.butID = "37";
        QSignalSpy clicked(&cell, &ccGC::MouseUp);
        QTest::mousePress(&cell, Qt::LeftButton, {}, QPoint(10, 10));
        QTest::mouseRelease(&cell, Qt::LeftButton, {}, QPoint(90, 90));
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(clicked.first().first().toInt(), 37);
    }
};

QTEST_MAIN(DesignControlsTest)
#include "tst_design_controls.moc"
