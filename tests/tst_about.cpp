#include "help/StaticURL.h"
#include "help/winAboutBox.h"
#include "tst_windows.h"

class tst_about : public QObject {
    Q_OBJECT

private slots:
    // The texts, then the window that shows them.
    void window() {
        QCOMPARE(winAboutBox::VersionText("1.4.0", QString()), "Version 1.4");
        QCOMPARE(winAboutBox::DescriptionText(QString()),
                 "Palette Button Launcher for AppleScript, Shortcuts, and Keyboard Maestro");
        const QDate built = winAboutBox::CompilerDate("Mar  5 2026"); // shown alone: no weekday, no time
        QCOMPARE(winAboutBox::ReleaseDateText(built, QLocale("en_US")), "Release Date: March 5, 2026");
        QCOMPARE(winAboutBox::ReleaseDateText(built, QLocale("de_DE")), "Release Date: 5. März 2026");
        QCoreApplication::setApplicationVersion("2.12");
        qApp->setProperty("versionString", "beta 2");
        ScriptedDialogs dialogs;
        winAboutBox box;
        QCOMPARE(box.findChild<QLabel*>("labVersion")->text(), "Version 2.12 beta 2");
        QCOMPARE(box.findChild<StaticURL*>("suHomePage")->URL(), "https://lunvale.net/zor-palette");
        QFile plist(ZOR_TESTS_DIR "/../resources/Info.plist.in"); // the copyright line is the bundle's
        const QByteArray copyright = box.findChild<QLabel*>("labCopyright")->text().toUtf8();
        QVERIFY(plist.open(QIODevice::ReadOnly) &&
                plist.readAll().contains("NSHumanReadableCopyright</key><string>" + copyright + '<'));
        // The picture is compiled in and is Icon64's backdrop.
        QCOMPARE(box.findChild<QWidget*>("Icon64")->grab().toImage().pixel(32, 32),
                 QImage(":/about/AppIcon64.png").pixel(32, 32));
        QTest::mouseClick(box.findChild<QPushButton*>("pbDone"), Qt::LeftButton);
        QCOMPARE(box.result(), int(QDialog::Accepted));
        QVERIFY(dialogs.requests.isEmpty()); // no failure was reported
    }

    void link() {
        static QList<QUrl> opened;
        StaticURL::opener = [](const QUrl& url) { opened << url; };
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
        for (QEvent* event : {static_cast<QEvent*>(&enter), &leave})
            colours << (QApplication::sendEvent(&link, event), link.textColour());
        // Only a release on the link opens it: not a press alone, nor a release off it, even on its edge.
        for (QPoint releaseAt : {QPoint(100, 5), QPoint(0, 5), QPoint(10, 17), QPoint(10, 5)}) {
            QTest::mousePress(&link, Qt::LeftButton, {}, QPoint(10, 5));
            colours << link.textColour();
            QTest::mouseRelease(&link, Qt::LeftButton, {}, releaseAt);
            colours << link.textColour();
        }
        const QColor blue(0x0000FF), red(0xFF0000);
        QCOMPARE(colours, (QList<QColor>{blue, 0x800080, blue, red, blue, red, blue, red, blue, red, blue}));
        QCOMPARE(opened, QList<QUrl>{QUrl("https://example.org/x")});
    }
};

QTEST_MAIN(tst_about)
#include "tst_about.moc"
