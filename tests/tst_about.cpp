#include "common/ScriptedDialogs.h"
#include "help/StaticURL.h"
#include "help/winAboutBox.h"

#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

class tst_about : public QObject {
    Q_OBJECT
private slots:
    void init() {
        opened.clear();
        StaticURL::opener = [this](const QUrl& url) { opened << url; };
    }
    void cleanup() { StaticURL::opener = nullptr; }

    void texts();
    void window();
    void link_data();
    void link();
    void linkWithoutURL();

private:
    QList<QUrl> opened;
};

void tst_about::texts() {
    QCOMPARE(winAboutBox::VersionText("1.4.0", QString()), "Version 1.4");
    QCOMPARE(winAboutBox::VersionText("1.4.0", "beta 2"), "Version 1.4 beta 2");
    QCOMPARE(winAboutBox::VersionText("2.12", QString()), "Version 2.12");
    QCOMPARE(winAboutBox::DescriptionText(QString()),
             "Palette Button Launcher for AppleScript, Shortcuts, and Keyboard Maestro");
    QCOMPARE(winAboutBox::DescriptionText("Launcher"), "Launcher");

    QCOMPARE(winAboutBox::CompilerDate("Mar  5 2026"), QDate(2026, 3, 5));
    QVERIFY(winAboutBox::BuildDate().isValid());
    // A date alone: no weekday, no time.
    const QDate day(2026, 3, 5);
    QCOMPARE(winAboutBox::ReleaseDateText(day, QLocale(QLocale::English, QLocale::UnitedStates)),
             "Release Date: March 5, 2026");
    QCOMPARE(winAboutBox::ReleaseDateText(day, QLocale(QLocale::German, QLocale::Germany)),
             "Release Date: 5. März 2026");
}

void tst_about::window() {
    QCoreApplication::setApplicationVersion("1.4.0");
    qApp->setProperty("versionString", "rc1");
    ScriptedDialogs dialogs;
    winAboutBox box;
    qApp->setProperty("versionString", QVariant());
    QCOMPARE(box.size(), QSize(320, 400));
    QCOMPARE(box.findChild<QLabel*>("labName")->text(), "ZOR_Palette");
    QCOMPARE(box.findChild<QLabel*>("labVersion")->text(), "Version 1.4 rc1");
    QVERIFY(box.findChild<QLabel*>("labReleaseDate")->text().startsWith("Release Date: "));
    QVERIFY(box.findChild<QPlainTextEdit*>("taCredits")->toPlainText().contains("zor-palette@lunvale.net"));
    const auto* link = box.findChild<StaticURL*>("suHomePage");
    QCOMPARE(link->text(), "ZOR_Palette Site");
    QCOMPARE(link->URL(), "https://lunvale.net/zor-palette");

    // The copyright line is the bundle's.
    QFile plist(ZOR_TESTS_DIR "/../resources/Info.plist.in");
    QVERIFY(plist.open(QIODevice::ReadOnly));
    QVERIFY(QString::fromUtf8(plist.readAll())
                .contains("<key>NSHumanReadableCopyright</key><string>" +
                          box.findChild<QLabel*>("labCopyright")->text() + "</string>"));

    // The picture is compiled in and is Icon64's backdrop.
    const QIcon icon = ApplicationIcon();
    QCOMPARE(icon.availableSizes(), (QList<QSize>{{64, 64}, {512, 512}}));
    const QImage drawn = box.findChild<QWidget*>("Icon64")->grab().toImage();
    QCOMPARE(drawn.pixel(32, 32), QImage(":/about/AppIcon64.png").pixel(32, 32));

    box.show();
    QTest::mouseClick(box.findChild<QPushButton*>("pbDone"), Qt::LeftButton);
    QCOMPARE(box.result(), int(QDialog::Accepted));
    QVERIFY(dialogs.requests.isEmpty()); // no failure was reported
}

void tst_about::link_data() {
    QTest::addColumn<QPoint>("releaseAt");
    QTest::addColumn<bool>("opens");
    QTest::newRow("inside") << QPoint(10, 5) << true;
    QTest::newRow("dragged off to the right") << QPoint(200, 5) << false;
    QTest::newRow("on the left edge") << QPoint(0, 5) << false;
    QTest::newRow("on the bottom edge") << QPoint(10, 17) << false;
}

void tst_about::link() {
    QFETCH(QPoint, releaseAt);
    QFETCH(bool, opens);
    StaticURL link;
    link.resize(100, 17);
    link.setURL("https://example.org/x");
    link.Opening();
    QCOMPARE(link.textColour(), QColor(0x0000FF));
    QVERIFY(link.font().underline());
    link.show();

    QEnterEvent enter(QPointF(10, 5), QPointF(10, 5), QPointF(10, 5));
    QApplication::sendEvent(&link, &enter);
    QCOMPARE(link.textColour(), QColor(0x800080));
    QTest::mousePress(&link, Qt::LeftButton, {}, QPoint(10, 5));
    QCOMPARE(link.textColour(), QColor(0xFF0000));
    QVERIFY(opened.isEmpty()); // the press alone opens nothing
    QTest::mouseRelease(&link, Qt::LeftButton, {}, releaseAt);
    QCOMPARE(link.textColour(), QColor(0x0000FF));
    QCOMPARE(opened, opens ? QList<QUrl>{QUrl("https://example.org/x")} : QList<QUrl>{});

    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&link, &enter);
    QApplication::sendEvent(&link, &leave);
    QCOMPARE(link.textColour(), QColor(0x0000FF));
}

void tst_about::linkWithoutURL() {
    QWidget holder;
    auto* bare = new StaticURL(&holder);
    bare->setText("https://example.org/text");
    bare->setGeometry(0, 0, 100, 17);
    auto* addressOnly = new StaticURL(&holder);
    addressOnly->setURL("https://example.org/");
    bare->Opening();
    addressOnly->Opening();
    holder.show();
    QVERIFY(bare->isHidden());
    QVERIFY(!addressOnly->isHidden());
    QCOMPARE(addressOnly->text(), "https://example.org/"); // an empty text shows the address

    // Shown anyway, a link with no address opens its text.
    bare->show();
    QTest::mouseClick(bare, Qt::LeftButton, {}, QPoint(10, 5));
    QCOMPARE(opened, QList<QUrl>{QUrl("https://example.org/text")});
}

QTEST_MAIN(tst_about)
#include "tst_about.moc"
