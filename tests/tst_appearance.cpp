// The colours stay the program's own when the system gives the application a dark palette.
#include "tst_windows.h"

namespace {
// The lightness of each pixel of an area that differs from the colour at its corner, darkest first.
QList<int> inkOf(const QImage& image, const QRect& area) {
    QList<int> ink;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (image.pixel(x, y) != image.pixel(area.topLeft())) ink << image.pixelColor(x, y).lightness();
    std::sort(ink.begin(), ink.end());
    return ink;
}
} // namespace

class AppearanceTest : public WindowTest {
    Q_OBJECT

    QPalette systemPalette;

private slots:
    void initTestCase() { systemPalette = QApplication::palette(); }
    void init() {
        WindowTest::init();
        // What a dark system appearance hands the application before any window opens.
        QPalette dark(QColor(0x32, 0x32, 0x32), QColor(0x1E, 0x1E, 0x1E));
        for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            dark.setColor(role, QColor(0xF0, 0xF0, 0xF0));
        QApplication::setPalette(dark);
    }
    void cleanup() {
        WindowTest::cleanup();
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
        const QImage shot = w.centralWidget()->grab().toImage();
        const QRect area = w.centralWidget()->findChild<QWidget*>(widget)->geometry();
        QCOMPARE(shot.pixelColor(area.topLeft()), background);
        const QList<int> ink = inkOf(shot, area);
        QVERIFY2(ink.size() > 20, "no text was painted");
        QCOMPARE_LE(ink.last(), background.lightness()); // no ink lighter than the ground
        QCOMPARE_LT(ink.first(), 60);                    // the darkest ink is dark
    }
};

QTEST_MAIN(AppearanceTest)
#include "tst_appearance.moc"
