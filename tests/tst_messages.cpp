#include "help/ErrorHandling.h"
#include "help/GeneralMethods.h"
#include "help/MessageCanvas.h"
#include "help/winOKCancel.h"
#include "help/winReportError.h"
#include "help/winShowText.h"
#include "help/winTimed.h"
#include "tst_windows.h"
#include "util/Guard.h"
#include "util/ZorError.h"

Q_DECLARE_METATYPE(Guard::Where)

// The text format of every label that shows text.
static QString labelFormats(QDialog& d) {
    QString formats;
    for (QLabel* label : d.findChildren<QLabel*>())
        if (!label->text().isEmpty()) formats += QString::number(label->textFormat());
    return formats;
}

class tst_messages : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { ErrorHandling::Install(); }

    void failureReports_data() {
        QTest::addColumn<Guard::Where>("where");
        QTest::addColumn<QString>("expected");
        using W = Guard::Where;
        const QString tail = "\nTYPE: IOException\nERROR CODE: 42\nERROR MESSAGE: disk full";
        // clang-format off
        QTest::newRow("control event") << W::controlEvent("winTimed", "pbDone", "Pressed") << "IOException in winTimed.pbDone.Pressed\nWINDOW: winTimed\nCONTROL: pbDone\nEVENT: Pressed" + tail;
        QTest::newRow("window event") << W::windowEvent("winTimed", "Opening") << "IOException in winTimed.Opening\nWINDOW: winTimed\nEVENT NAME: Opening" + tail;
        QTest::newRow("window method") << W::windowMethod("winTimed", "AdjustWindowSize") << "std::out_of_range in winTimed.AdjustWindowSize\nWINDOW: winTimed\nMETHOD: AdjustWindowSize\nTYPE: std::out_of_range\nERROR CODE: 0";
        QTest::newRow("module method") << W::module("GeneralMethods", "MesDlg") << "IOException in GeneralMethods.MesDlg\nMODULE: GeneralMethods\nMETHOD: MesDlg" + tail;
        QTest::newRow("direct form") << W::module("GeneralMethods", "ShowText").directForm() << "Oops! GeneralMethods.ShowText\nMODULE: GeneralMethods\nMETHOD: ShowText\nTYPE: IOException";
        // clang-format on
    }
    void failureReports() {
        QFETCH(Guard::Where, where);
        QFETCH(QString, expected);
        const bool ours = !expected.startsWith("std::"); // a RuntimeException with an error number
        ScriptedDialogs dialogs;
        const auto failing = [&] {
            return ours ? throw IOException("disk full", 42) : int(std::string("abc").at(7));
        };
        QCOMPARE(Guard::run(where, failing), 0); // the result's default value
        // One report: a titled window, or a message when direct. The library words its own messages.
        const auto r = dialogs.requests.value(0);
        QCOMPARE(QString::number(dialogs.requests.size()) + ' ' + (r.kind == Dialogs::Kind::Window ? r.title : "-") + ": " +
                     (ours ? r.text : r.text.section("\nERROR MESSAGE: ", 0, 0)),
                 (where.direct ? "1 -: " : "1 Oops! Error Message: ") + expected);
    }

    void reportWindowStandsAlone() {
        QVERIFY(ErrorHandling::HandleException(JSONException("bad file", 3),
                                               "ZOR.Load\nMODULE: ZOR\nMETHOD: Load"));
        QPointer<winReportError> window;
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* report = qobject_cast<winReportError*>(w)) window = report;
        QVERIFY(window && window->isVisible() && !window->isModal());
        QCOMPARE(window->windowTitle() + ": " + window->labMessage->text(),
                 "Oops! Error Message: JSONException in ZOR.Load\nMODULE: ZOR\nMETHOD: Load\n"
                 "TYPE: JSONException\nERROR CODE: 3\nERROR MESSAGE: bad file");
        window->close();
        QTRY_VERIFY(window.isNull()); // gone with its close
    }

    // The window placed in the middle of the area available, its width chosen from the text's height.
    void fitting() {
        const QRect wide(0, 25, 1440, 875);
        const WindowFit::TextHeight line = [](int) { return 17; }, many = [](int w) { return 2000000 / w; };
        // 150 and 200 come equally near the ratio; the narrower wins and, being tall, grows by a tenth.
        const WindowFit::TextHeight tie = [](int w) { return w == 150 ? 57 : w == 200 ? 87 : 10000; };
        const auto fit = [](const WindowFit::TextHeight& heightAt, QRect available, QSize maximum) {
            return WindowFit::FittedGeometry(heightAt, available, QSize(200, 125), maximum);
        };
        const auto best = &WindowFit::BestWidth;
        QCOMPARE((QList<int>{best(line), best(tie), best(many)}), (QList<int>{265, 291, 1006}));
        // A short text widens, keeping its height; a long one stops at the window's or the screen's limit.
        QCOMPARE((QList<QRect>{fit(line, wide, {800, 500}), fit(tie, wide, {800, 500}),
                               fit(many, wide, {1000, 800}), fit(many, {0, 0, 1024, 600}, {1000, 800})}),
                 (QList<QRect>{QRect(574, 25 + 237, 291, 164), QRect(560, 25 + 231, 320, 180),
                               QRect(220, 25 + 83, 1000, 624), QRect(102, 40, 819, 480)}));
    }

    void windowsFitAndAnchor() {
        winOKCancel okCancel;
        winShowText showText;
        winTimed timed;
        okCancel.textHeight = showText.textHeight = timed.textHeight = [](int) { return 17; };
        okCancel.AdjustWindowSize(), showText.AdjustWindowSize(), timed.AdjustWindowSize();
        // A short text: the width the ratio asks for, but winShowText is held at its minimum.
        const std::tuple<QDialog*, QPushButton*, QSize> windows[]{{&okCancel, okCancel.pbOK, {291, 164}},
                                                                  {&showText, showText.pbOK, {400, 250}},
                                                                  {&timed, timed.pbDone, {291, 164}}};
        for (const auto& [window, button, size] : windows) {
            QCOMPARE(window->size(), size);
            window->resize(size + QSize(150, 100));
            window->show();
            // Buttons keep 20 pixels to the lower right corner whatever the size.
            QCOMPARE(window->rect().bottomRight() - button->geometry().bottomRight(), QPoint(20, 20));
        }
    }

    void timedDisk() {
        AppGlobals::iGlobalInteger = 12;
        AppGlobals::fGlobalBoolean = false; // the filled pie
        winTimed w;
        QCOMPARE(QList<int>({w.tiChangeCanvas->interval(), w.tiAutoClose->interval()}),
                 QList<int>({93, 12000})); // 128 steps in 12 s
        const auto steps = [&w](int n) {   // the angle afterwards, in ten-thousandths
            while (n-- > 0) w.tiChangeCanvas_Action();
            return qRound(w.theArc.arcAngle * 10000);
        };
        // Steps of 0.0490875 from one step's worth, held short of the full circle by a tenth of a step.
        QCOMPARE(QList<int>({steps(124), steps(1), steps(50)}), QList<int>({61359, 62732, 62732}));
        w.theArc.arcAngle = 1.5708; // a quarter, clockwise from twelve to three o'clock
        const QImage disk = w.cnvDisk->grab().toImage();
        const auto orange = [&disk](int x, int y) {
            return disk.pixelColor(disk.width() / 2 + x, disk.height() / 2 + y) == QColor(0xFF, 0x93, 0x00);
        };
        QVERIFY(orange(8, -8) && !orange(-8, -8) && !orange(8, 8)); // only the upper right quarter
    }

    void timedClickKeepsWindowOpen() {
        AppGlobals::iGlobalInteger = 1;
        winTimed w;
        w.show();
        QTest::qWait(600);
        QVERIFY(w.theArc.arcAngle > 20 * w.deltaCircle);
        QTest::mouseClick(w.cnvDisk, Qt::LeftButton);
        QVERIFY(w.theArc.arcAngle < 2.5 * w.deltaCircle);
        QTest::qWait(600); // past the first second
        QVERIFY(w.isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(!w.isVisible(), 1500);
    }

    // Each helper's window as built: users' texts show as written, every label that shows text plain.
    void helpersBuildTheirWindows() {
        ScriptedDialogs dialogs;
        QStringList seen;
        dialogs.onWindow = [&seen](QDialog& d) {
            QString text = d.windowTitle() + '|';
            if (auto* w = qobject_cast<winOKCancel*>(&d)) // the message|whether OK, then Cancel, is the default
                text += w->labMessage->text() + '|' + QString::number(w->pbOK->isDefault()) +
                        QString::number(w->pbCancel->isDefault());
            else if (auto* box = qobject_cast<QMessageBox*>(&d)) { // explanation|icon|caption=number of each button
                QStringList captions;
                for (QAbstractButton* b : box->buttons())
                    captions << b->text() + '=' + QString::number(GeneralMethods::MesDlgButtonNumber(*box, b));
                captions.sort();
                text += box->text() + '|' + box->informativeText() + '|' + QString::number(box->icon()) + '|' +
                        captions.join(',');
            } else
                text += QString(d.metaObject()->className()) + '|' + d.findChild<QPlainTextEdit*>()->toPlainText();
            seen << text + '|' + labelFormats(d);
        };
        for (const bool ok : {true, false, true}) dialogs.queueOK(ok);
        QVERIFY(RtrnBoolean::rbOKCancel("Delete <b>x</b>?", 0, "Palette") &&
                !RtrnBoolean::rbOKCancel("Delete <b>x</b>?", 1, "Palette") &&
                RtrnBoolean::rbOKCancel("Delete <b>x</b>?", 2, "Palette"));
        GeneralMethods::MesDlg("Keep <b>x</b>?", "<i>Make sure.</i>", "Save", true, "Discard");
        GeneralMethods::MesDlg("Keep it?", "", "", false, "");
        GeneralMethods::ShowText("line one\nline two", "Manage PreserveState Backup");
        GeneralMethods::ShowTimed("This button is not active.", "No Action for Button", true, 12);
        QCOMPARE(seen, QStringList({"Palette|Delete <b>x</b>?|00|0", "Palette|Delete <b>x</b>?|10|0",
                                    "Palette|Delete <b>x</b>?|01|0",
                                    "|Keep <b>x</b>?|<i>Make sure.</i>|1|Cancel=0,Discard=2,Save=1|00",
                                    "|Keep it?||1|OK=1|0",
                                    "Manage PreserveState Backup|winShowText|line one\nline two|",
                                    "No Action for Button|winTimed|This button is not active.|"}));
        QVERIFY(AppGlobals::iGlobalInteger == 12 && AppGlobals::fGlobalBoolean);
        QCOMPARE(Dialogs::plainMessageBox("<b>x</b>")->textFormat(), Qt::PlainText);
    }

    void osMajorRemembersOnlyAnAnswer() {
        FakeTools tools;
        GeneralMethods::ForgetVersionOS_Major();
        QList<int> majors{GeneralMethods::VersionOS_Major()}; // no sw_vers at all
        // No version in its answer, a version from a run that failed, then one to remember.
        for (const auto& [answer, exit] : {std::pair{"\n", "0"}, {"14.6.1\n", "1"}, {"14.6.1\n", "0"}, {"15.0\n", "0"}}) {
            tools.setAnswer("sw_vers", answer);
            tools.setAnswer("sw_vers.exit", exit);
            majors << GeneralMethods::VersionOS_Major();
        }
        QCOMPARE(majors, (QList<int>{0, 0, 0, 14, 14}));
        QCOMPARE(tools.log(), QStringList(3, "sw_vers\t-productVersion"));
    }
};

QTEST_MAIN(tst_messages)
#include "tst_messages.moc"
