#include "common/ScriptedDialogs.h"
#include "help/StaticURL.h"
#include "help/winAboutBox.h"

#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

class tst_about : public QObject {
    Q_OBJECT
    QList<QUrl> opened;

private slots:
    void initTestCase() {
        StaticURL::opener = [this](const QUrl& url) { opened << url; };
    }

    void texts() {
        QCOMPARE(winAboutBox::VersionText("1.4.0", QString()), "Version 1.4");
        QCOMPARE(winAboutBox::VersionText("2.12", "beta 2"), "Version 2.12 beta 2");
        QCOMPARE(winAboutBox::DescriptionText(QString()),
                 "Palette Button Launcher for AppleScript, Shortcuts, and Keyboard Maestro");
        QCOMPARE(winAboutBox::CompilerDate("Mar  5 2026"), QDate(2026, 3, 5));
        // A date alone: no weekday, no time.
        const QDate day(2026, 3, 5);
        QCOMPARE(winAboutBox::ReleaseDateText(day, QLocale(QLocale::English, QLocale::UnitedStates)),
                 "Release Date: March 5, 2026");
        QCOMPARE(winAboutBox::ReleaseDateText(day, QLocale(QLocale::German, QLocale::Germany)),
                 "Release Date: 5. März 2026");
    }

    void window() {
        QCoreApplication::setApplicationVersion("1.4.0");
        qApp->setProperty("versionString", "rc1");
        ScriptedDialogs dialogs;
        winAboutBox box;
        qApp->setProperty("versionString", QVariant());
        QCOMPARE(box.findChild<QLabel*>("labVersion")->text(), "Version 1.4 rc1");
        QCOMPARE(box.findChild<StaticURL*>("suHomePage")->URL(), "https://lunvale.net/zor-palette");
        // The copyright line is the bundle's.
        QFile plist(ZOR_TESTS_DIR "/../resources/Info.plist.in");
        const QString copyright = box.findChild<QLabel*>("labCopyright")->text();
        QVERIFY(
            plist.open(QIODevice::ReadOnly) &&
            plist.readAll().contains("NSHumanReadableCopyright</key><string>" + copyright.toUtf8() + '<'));
        // The picture is compiled in and is Icon64's backdrop.
        QCOMPARE(box.findChild<QWidget*>("Icon64")->grab().toImage().pixel(32, 32),
                 QImage(":/about/AppIcon64.png").pixel(32, 32));
        box.show();
        QTest::mouseClick(box.findChild<QPushButton*>("pbDone"), Qt::LeftButton);
        QCOMPARE(box.result(), int(QDialog::Accepted));
        QVERIFY(dialogs.requests.isEmpty()); // no failure was reported
    }

    void link() {
        StaticURL bare, link;
        bare.setText("https://example.org/text");
        link.setURL("https://example.org/x");
        link.resize(100, 17);
        for (StaticURL* label : {&bare, &link}) {
            label->show();
            label->Opening();
        }
        QVERIFY(bare.isHidden() && link.isVisible() && link.font().underline()); // a text alone is no link
        QCOMPARE(link.text(), "https://example.org/x"); // an empty text shows the address
        // Blue at rest, purple under the pointer, red while pressed.
        QEnterEvent enter(QPointF(10, 5), QPointF(10, 5), QPointF(10, 5));
        QEvent leave(QEvent::Leave);
        QList<QColor> colours{link.textColour()};
        QApplication::sendEvent(&link, &enter);
        colours << link.textColour();
        QTest::mousePress(&link, Qt::LeftButton, {}, QPoint(10, 5));
        colours << link.textColour();
        QTest::mouseRelease(&link, Qt::LeftButton, {}, QPoint(10, 5));
        colours << link.textColour();
        QApplication::sendEvent(&link, &enter);
        QApplication::sendEvent(&link, &leave);
        colours << link.textColour();
        QCOMPARE(colours, (QList<QColor>{0x0000FF, 0x800080, 0xFF0000, 0x0000FF, 0x0000FF}));
        // Let go off the link, even on its very edge, a press opens nothing; a press alone never does.
        for (QPoint releaseAt : {QPoint(100, 5), QPoint(0, 5), QPoint(10, 17)}) {
            QTest::mousePress(&link, Qt::LeftButton, {}, QPoint(10, 5));
            QTest::mouseRelease(&link, Qt::LeftButton, {}, releaseAt);
        }
        QCOMPARE(opened, QList<QUrl>{QUrl("https://example.org/x")});
    }
};

QTEST_MAIN(tst_about)
#include "tst_about.moc"
