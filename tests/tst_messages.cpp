#include "common/FakeTools.h"
#include "common/ScriptedDialogs.h"
#include "help/ErrorHandling.h"
#include "help/GeneralMethods.h"
#include "help/MessageCanvas.h"
#include "help/WindowFit.h"
#include "help/winOKCancel.h"
#include "help/winReportError.h"
#include "help/winShowText.h"
#include "help/winTimed.h"
#include "util/AppGlobals.h"
#include "util/Guard.h"
#include "util/ZorError.h"

#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QtTest>
#include <memory>

Q_DECLARE_METATYPE(Guard::Where)

// Records like ScriptedDialogs, and lets a test look at the built window before it goes.
class PeekingDialogs : public ScriptedDialogs {
public:
    std::function<void(QDialog&)> peek;
    Dialogs::Answer answer(const Dialogs::Request& request) override {
        if (peek && request.dialog) peek(*request.dialog);
        return ScriptedDialogs::answer(request);
    }
};

namespace {
WindowFit::TextHeight constantHeight(int h) {
    return [h](int) { return h; };
}
} // namespace

class tst_messages : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { ErrorHandling::Install(); }
    void init() {
        AppGlobals::sGlobalMessage.clear();
        AppGlobals::sGlobalWindowTitle.clear();
    }

    void failureReports_data();
    void failureReports();
    void reportWindowStandsAlone();
    void fitting_data();
    void fitting();
    void windowsFitAndAnchor_data();
    void windowsFitAndAnchor();
    void timedDisk();
    void timedArcGrowsClockwiseFromTwelve();
    void timedClickKeepsWindowOpen();
    void okCancel_data();
    void okCancel();
    void mesDlg_data();
    void mesDlg();
    void helpersHandTheirTexts();
    void osMajorAskedOnce();
};

void tst_messages::failureReports_data() {
    QTest::addColumn<Guard::Where>("where");
    QTest::addColumn<bool>("ours"); // a RuntimeException with an error number, or a std one
    QTest::addColumn<QString>("expected");
    using W = Guard::Where;
    const QString tail = "\nTYPE: IOException\nERROR CODE: 42\nERROR MESSAGE: disk full";
    QTest::newRow("control event") << W::controlEvent("winTimed", "pbDone", "Pressed") << true
                                   << "IOException in winTimed.pbDone.Pressed\nWINDOW: winTimed\n"
                                      "CONTROL: pbDone\nEVENT: Pressed" +
                                          tail;
    QTest::newRow("window event")
        << W::windowEvent("winTimed", "Opening") << true
        << "IOException in winTimed.Opening\nWINDOW: winTimed\nEVENT NAME: Opening" + tail;
    QTest::newRow("window method") << W::windowMethod("winTimed", "AdjustWindowSize") << false
                                   << "std::out_of_range in winTimed.AdjustWindowSize\nWINDOW: winTimed\n"
                                      "METHOD: AdjustWindowSize\nTYPE: std::out_of_range\nERROR CODE: 0";
    QTest::newRow("module method")
        << W::module("GeneralMethods", "MesDlg") << true
        << "IOException in GeneralMethods.MesDlg\nMODULE: GeneralMethods\nMETHOD: MesDlg" + tail;
    QTest::newRow("direct form") << W::module("GeneralMethods", "ShowText").directForm() << true
                                 << "Oops! GeneralMethods.ShowText\nMODULE: GeneralMethods\nMETHOD: "
                                    "ShowText\nTYPE: IOException";
}

void tst_messages::failureReports() {
    QFETCH(Guard::Where, where);
    QFETCH(bool, ours);
    QFETCH(QString, expected);
    ScriptedDialogs dialogs;
    bool reached = false;
    const int result = Guard::run(where, [&]() -> int {
        if (ours) throw IOException("disk full", 42);
        (void)std::string("abc").at(7);
        reached = true;
        return 5;
    });
    QCOMPARE(result, 0);
    QVERIFY(!reached);
    QCOMPARE(dialogs.requests.size(), 1);
    const auto& request = dialogs.requests[0];
    QCOMPARE(request.kind, where.direct ? Dialogs::Kind::Message : Dialogs::Kind::Window);
    // The library words its own messages; ours stand exactly.
    QCOMPARE(ours ? request.text : request.text.section("\nERROR MESSAGE: ", 0, 0), expected);
    if (!where.direct) QCOMPARE(request.title, QString("Oops! Error Message"));
}

void tst_messages::reportWindowStandsAlone() {
    QVERIFY(
        ErrorHandling::HandleException(JSONException("bad file", 3), "ZOR.Load\nMODULE: ZOR\nMETHOD: Load"));
    QPointer<winReportError> window;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* report = qobject_cast<winReportError*>(w)) window = report;
    QVERIFY(window);
    QVERIFY(window->isVisible());
    QVERIFY(!window->isModal());
    QCOMPARE(window->windowTitle(), QString("Oops! Error Message"));
    QCOMPARE(window->labMessage->text(),
             QString("JSONException in ZOR.Load\nMODULE: ZOR\nMETHOD: Load\n"
                     "TYPE: JSONException\nERROR CODE: 3\nERROR MESSAGE: bad file"));
    window->close();
    QTRY_VERIFY(window.isNull()); // gone with its close
}

void tst_messages::fitting_data() {
    QTest::addColumn<WindowFit::TextHeight>("heightAt");
    QTest::addColumn<QRect>("available");
    QTest::addColumn<QSize>("maximum");
    QTest::addColumn<int>("bestWidth");
    QTest::addColumn<QRect>("geometry");
    const QRect wide(0, 25, 1440, 875);
    QTest::newRow("short text widens, height stays")
        << constantHeight(17) << wide << QSize(800, 500) << 265 << QRect(574, 25 + 237, 291, 164);
    // 150 and 200 come equally near the ratio; the narrower wins and, being tall, grows by a tenth.
    QTest::newRow("tie keeps the narrower") << WindowFit::TextHeight([](int w) {
        return w == 150 ? 57 : w == 200 ? 87 : 10000;
    }) << wide << QSize(800, 500) << 291 << QRect(560, 25 + 231, 320, 180);
    const WindowFit::TextHeight endless = [](int w) { return 2000000 / w; };
    QTest::newRow("long text, window maximum")
        << endless << wide << QSize(1000, 800) << 1006 << QRect(220, 25 + 83, 1000, 624);
    QTest::newRow("long text, small screen")
        << endless << QRect(0, 0, 1024, 600) << QSize(1000, 800) << 1006 << QRect(102, 40, 819, 480);
}

void tst_messages::fitting() {
    QFETCH(WindowFit::TextHeight, heightAt);
    QFETCH(QRect, available);
    QFETCH(QSize, maximum);
    QFETCH(int, bestWidth);
    QFETCH(QRect, geometry);
    QCOMPARE(WindowFit::BestWidth(heightAt), bestWidth);
    QCOMPARE(WindowFit::FittedGeometry(heightAt, available, QSize(200, 125), maximum), geometry);
}

void tst_messages::windowsFitAndAnchor_data() {
    QTest::addColumn<int>("which");
    QTest::addColumn<QSize>("size");
    QTest::newRow("winOKCancel") << 0 << QSize(291, 164);
    QTest::newRow("winShowText, held at its minimum") << 1 << QSize(400, 250);
    QTest::newRow("winTimed") << 2 << QSize(291, 164);
}

template <class Window> std::unique_ptr<QDialog> fitted(QPushButton* Window::*button, QPushButton*& out) {
    auto window = std::make_unique<Window>();
    window->textHeight = constantHeight(17);
    window->AdjustWindowSize();
    out = (*window).*button;
    return window;
}

void tst_messages::windowsFitAndAnchor() {
    QFETCH(int, which);
    QFETCH(QSize, size);
    QPushButton* button = nullptr;
    const auto window = which == 0   ? fitted(&winOKCancel::pbOK, button)
                        : which == 1 ? fitted(&winShowText::pbOK, button)
                                     : fitted(&winTimed::pbDone, button);
    QCOMPARE(window->size(), size);
    window->resize(size + QSize(150, 100));
    window->show();
    // Buttons keep 20 pixels to the lower right corner whatever the size.
    QCOMPARE(window->width() - button->geometry().right() - 1, 20);
    QCOMPARE(window->height() - button->geometry().bottom() - 1, 20);
}

void tst_messages::timedDisk() {
    AppGlobals::iGlobalInteger = 12;
    winTimed w;
    QCOMPARE(w.tiChangeCanvas->interval(), 93); // 128 steps in 12 s
    QVERIFY(w.tiChangeCanvas->isActive() && !w.tiChangeCanvas->isSingleShot());
    QCOMPARE(w.tiAutoClose->interval(), 12000);
    QVERIFY(w.tiAutoClose->isActive() && w.tiAutoClose->isSingleShot());
    for (int i = 0; i < 124; ++i)
        w.tiChangeCanvas_Action();
    QCOMPARE(w.theArc.arcAngle, 125 * 0.0490875);
    w.tiChangeCanvas_Action(); // within a tenth of the full circle
    QCOMPARE(w.theArc.arcAngle, 6.2732);
    for (int i = 0; i < 50; ++i)
        w.tiChangeCanvas_Action();
    QCOMPARE(w.theArc.arcAngle, 6.2732);
}

void tst_messages::timedArcGrowsClockwiseFromTwelve() {
    AppGlobals::fGlobalBoolean = false; // the filled pie
    winTimed w;
    w.theArc.arcAngle = 1.5708; // a quarter: twelve to three o'clock
    const QImage disk = w.cnvDisk->grab().toImage();
    const QPoint centre(disk.width() / 2, disk.height() / 2);
    QCOMPARE(disk.pixelColor(centre + QPoint(8, -8)), QColor(0xFF, 0x93, 0x00));
    QVERIFY(disk.pixelColor(centre + QPoint(-8, -8)) != QColor(0xFF, 0x93, 0x00));
    QVERIFY(disk.pixelColor(centre + QPoint(8, 8)) != QColor(0xFF, 0x93, 0x00));
}

void tst_messages::timedClickKeepsWindowOpen() {
    AppGlobals::iGlobalInteger = 1;
    winTimed w;
    w.show();
    QTest::qWait(600);
    QVERIFY(w.theArc.arcAngle > 20 * w.deltaCircle);
    QTest::mousePress(w.cnvDisk, Qt::LeftButton);
    QTest::mouseRelease(w.cnvDisk, Qt::LeftButton);
    QVERIFY(w.theArc.arcAngle < 2.5 * w.deltaCircle);
    QTest::qWait(600); // past the first second
    QVERIFY(w.isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(!w.isVisible(), 1500);
}

void tst_messages::okCancel_data() {
    QTest::addColumn<int>("defaultButton");
    QTest::addColumn<bool>("ok");
    QTest::newRow("default 0, OK") << 0 << true;
    QTest::newRow("default 1, Cancel") << 1 << false;
    QTest::newRow("default 2, OK") << 2 << true;
    QTest::newRow("default 7, Cancel") << 7 << false;
}

void tst_messages::okCancel() {
    QFETCH(int, defaultButton);
    QFETCH(bool, ok);
    PeekingDialogs dialogs;
    dialogs.queueOK(ok);
    bool okDefault = false, cancelDefault = false;
    QString shownMessage;
    dialogs.peek = [&](QDialog& d) {
        auto& w = static_cast<winOKCancel&>(d);
        okDefault = w.pbOK->isDefault();
        cancelDefault = w.pbCancel->isDefault();
        shownMessage = w.labMessage->text();
    };
    AppGlobals::fGlobalBoolean = !ok;
    QCOMPARE(RtrnBoolean::rbOKCancel("Delete the palette?", defaultButton, "OK or Cancel"), ok);
    QCOMPARE(AppGlobals::fGlobalBoolean, ok);
    QCOMPARE(okDefault, defaultButton == 1);
    QCOMPARE(cancelDefault, defaultButton == 2);
    QCOMPARE(shownMessage, QString("Delete the palette?"));
    QCOMPARE(dialogs.requests[0].title, QString("OK or Cancel"));
}

void tst_messages::mesDlg_data() {
    QTest::addColumn<bool>("showCancel");
    QTest::addColumn<QString>("alternate");
    QTest::addColumn<int>("scripted");
    QTest::addColumn<QStringList>("buttons"); // caption=number
    QTest::newRow("action only") << false << "" << 1 << QStringList{"Save=1"};
    QTest::newRow("with cancel") << true << "" << 0 << QStringList{"Save=1", "Cancel=0"};
    QTest::newRow("all three") << true << "Discard" << 2 << QStringList{"Save=1", "Discard=2", "Cancel=0"};
}

void tst_messages::mesDlg() {
    QFETCH(bool, showCancel);
    QFETCH(QString, alternate);
    QFETCH(int, scripted);
    QFETCH(QStringList, buttons);
    PeekingDialogs dialogs;
    dialogs.queue({scripted, scripted == 1, {}});
    QStringList seen;
    dialogs.peek = [&](QDialog& d) {
        auto& box = static_cast<QMessageBox&>(d);
        QCOMPARE(box.icon(), QMessageBox::Information);
        QCOMPARE(box.informativeText(), QString("Make sure."));
        for (QAbstractButton* b : box.buttons())
            seen << b->text() + '=' + QString::number(GeneralMethods::MesDlgButtonNumber(box, b));
    };
    QCOMPARE(GeneralMethods::MesDlg("Keep it?", "Make sure.", "Save", showCancel, alternate), scripted);
    seen.sort();
    buttons.sort();
    QCOMPARE(seen, buttons);
}

void tst_messages::helpersHandTheirTexts() {
    PeekingDialogs dialogs;
    QStringList shown; // title: text, as the built window has them
    dialogs.peek = [&](QDialog& d) {
        const auto* area = d.findChild<QPlainTextEdit*>();
        shown << d.windowTitle() + ": " + area->toPlainText();
    };
    AppGlobals::sGlobalMessage = "left over";
    GeneralMethods::ShowText("line one\nline two", "Manage PreserveState Backup");
    GeneralMethods::ShowTimed("This button is not active.", "No Action for Button", true, 12);
    QCOMPARE(shown, QStringList({"Manage PreserveState Backup: line one\nline two",
                                 "No Action for Button: This button is not active."}));
    QCOMPARE(dialogs.requests[1].kind, Dialogs::Kind::ShowTimed);
    QCOMPARE(AppGlobals::iGlobalInteger, 12);
    QVERIFY(AppGlobals::fGlobalBoolean);
}

void tst_messages::osMajorAskedOnce() {
    FakeTools tools;
    tools.setAnswer("sw_vers", "14.6.1\n");
    QCOMPARE(GeneralMethods::VersionOS_Major(), 14);
    tools.setAnswer("sw_vers", "15.0\n");
    QCOMPARE(GeneralMethods::VersionOS_Major(), 14);
    QCOMPARE(tools.log(), QStringList{"sw_vers\t-productVersion"});
}

QTEST_MAIN(tst_messages)
#include "tst_messages.moc"
