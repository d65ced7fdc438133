// The colours stay the program's own when the system gives the application a dark palette.
#include "common/Program.h"
#include "palette_window/cnBut.h"
#include "palette_window/winMain.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QTest>

#include <algorithm>

namespace {
// What a dark system appearance hands the application before any window opens.
QPalette darkSystemPalette() {
    QPalette dark(QColor(0x32, 0x32, 0x32), QColor(0x1E, 0x1E, 0x1E));
    for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(role, QColor(0xF0, 0xF0, 0xF0));
    return dark;
}

// The ink of an area: its pixels that differ from the colour at its corner.
QList<QColor> ink(const QImage& image, const QRect& area) {
    const QRgb background = image.pixel(area.topLeft());
    QList<QColor> pixels;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (image.pixel(x, y) != background) pixels << image.pixelColor(x, y);
    return pixels;
}
} // namespace

class AppearanceTest : public QObject, ProgramFixture {
    Q_OBJECT

    QPalette systemPalette;

private slots:
    void initTestCase() { systemPalette = QApplication::palette(); }
    void init() {
        setUpProgram();
        QApplication::setPalette(darkSystemPalette());
    }
    void cleanup() {
        tearDownProgram();
        QApplication::setPalette(systemPalette);
    }

    void textStaysDarkOnLight_data() {
        QTest::addColumn<QString>("widget");
        QTest::addColumn<QColor>("background");
        for (const char* button : {"cnBut00", "cnBut47"}) // the numbers of the first and last buttons
            QTest::newRow(button) << button << QColor(0xEC, 0xEC, 0xEC);
        QTest::newRow("resting text of labSeeNum") << "labSeeNum" << QColor(0xFE, 0xFF, 0x96);
    }
    void textStaysDarkOnLight() {
        QFETCH(QString, widget);
        QFETCH(QColor, background);
        winMain& w = startWith(1);
        // The grid area, with the bar painted behind the label as it is on screen.
        const auto* target = w.centralWidget()->findChild<QWidget*>(widget);
        QVERIFY(target);
        const QImage shot = w.centralWidget()->grab().toImage();
        const QRect area = target->geometry();
        QCOMPARE(shot.pixelColor(area.topLeft()), background);
        const QList<QColor> pixels = ink(shot, area);
        QVERIFY2(pixels.size() > 20, "no text was painted");
        const auto [darkest, lightest] =
            std::minmax_element(pixels.begin(), pixels.end(), [](const QColor& a, const QColor& b) {
                return a.lightness() < b.lightness();
            });
        QVERIFY2(lightest->lightness() <= background.lightness(),
                 qPrintable(lightest->name() + " is lighter than the ground"));
        QVERIFY2(darkest->lightness() < 60, qPrintable(darkest->name() + " is the darkest pixel"));
    }
};

QTEST_MAIN(AppearanceTest)
#include "tst_appearance.moc"
