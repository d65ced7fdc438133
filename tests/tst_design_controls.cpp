// The design window's small controls on their own: the up-downs' steps and limits, and the
// looks of a grid cell painted from the active palette.
#include "design/UpDownArrows.h"
#include "design/ccDataIntUpDown.h"
#include "design/ccDataStrUpDown.h"
#include "design/ccGC.h"
#include "tst_windows.h"

namespace {
// One press on the arrows ("up", "Shift down", ...): the value shown after it and how many
// changes were told.
template <class Control> std::pair<QString, int> press(Control& control, const QString& arrow) {
    QSignalSpy changed(&control, &Control::ValueChanged);
    UpDownArrows* arrows = control.udChangeVal;
    QTest::mouseClick(arrows, Qt::LeftButton, arrow.startsWith("Shift") ? Qt::ShiftModifier : Qt::NoModifier,
                      QPoint(arrows->width() / 2, arrow.endsWith("up") ? 3 : arrows->height() - 3));
    return {control.labValue->text(), int(changed.count())};
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

    // Numbers 1 to 10 by 1 or 2 (Shift); letters by 1 or 8 from none through a..Z, down the list.
    void steps_data() {
        QTest::addColumn<bool>("letters");
        QTest::addColumn<int>("start");
        QTest::addColumn<QString>("arrow");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<int>("events");
        QTest::newRow("up by one") << false << 4 << "up" << "5" << 1;
        QTest::newRow("Shift up stops at the top") << false << 9 << "Shift up" << "10" << 1;
        QTest::newRow("down at the bottom: no event") << false << 1 << "down" << "1" << 0;
        QTest::newRow("letter up at none: no event") << true << 0 << "up" << QString(kNoShortcut) << 0;
        QTest::newRow("letter down to a") << true << 0 << "down" << "a" << 1;
        QTest::newRow("letter Shift down stops at Z") << true << 50 << "Shift down" << "Z" << 1;
    }
    void steps() {
        QFETCH(bool, letters);
        QFETCH(int, start);
        QFETCH(QString, arrow);
        std::pair<QString, int> seen;
        if (letters) {
            ccDataStrUpDown control;
            control.aStrChoices << kNoShortcut << ZOR::aAlphabetShortcut;
            control.jump = 1, control.jumpShift = 8, control.minIndex = 0, control.maxIndex = 52;
            control.theValueIndex = start;
            control.theValue = control.aStrChoices[start];
            seen = press(control, arrow);
            QCOMPARE(control.ValueColor(), QColor(Qt::black)); // also after a press that could not move
        } else {
            ccDataIntUpDown control;
            control.jump = 1, control.jumpShift = 2, control.minValue = 1, control.maxValue = 10;
            control.theValue = start;
            seen = press(control, arrow);
        }
        QTEST(seen.first, "shown");
        QTEST(seen.second, "events");
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
        QFETCH(QColor, kind);
        const auto& b = *ZOR::aBtn;
        b[1]->Vis = false, b[1]->ASfile = "Mail", b[1]->SCname = "Ignored", b[1]->Tip = "t";
        b[2]->SCname = "Open", b[2]->Info = "i", b[4]->KM_Active = true, b[11]->Vis = false;
        b[10]->PaletteGo = "03", b[10]->Tip = "t", b[10]->Info = "i";
        ZOR::idxCurrentBtn = 11;
        ccGC cell;
        cell.butID = QStringLiteral("%1").arg(index, 2, 10, QLatin1Char('0'));
        const QImage shot = cell.grab().toImage();
        QTEST(shot.pixelColor(48, 28), "fill");
        QTEST(shot.pixelColor(27, index == 11 ? 1 : 0), "frame");
        if (kind.isValid()) QVERIFY(hasColour(shot, QRect(4, 3, 22, 15), kind));
        QTEST(hasColour(shot, QRect(3, 38, 50, 14), QColor(0x0000FF)), "tipMark");
        // A press let go off the cell still counts.
        QSignalSpy clicked(&cell, &ccGC::MouseUp);
        QTest::mousePress(&cell, Qt::LeftButton, {}, QPoint(10, 10));
        QTest::mouseRelease(&cell, Qt::LeftButton, {}, QPoint(90, 90));
        QVERIFY(clicked.count() == 1 && clicked[0][0].toInt() == index);
    }
};

QTEST_MAIN(DesignControlsTest)
#include "tst_design_controls.moc"
