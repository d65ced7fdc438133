// Help records and their windows, labels and links, messages, failure reports, the about box.
#include "help/ErrorHandling.h"
#include "help/GeneralMethods.h"
#include "help/Help.h"
#include "help/HelpFit.h"
#include "help/MessageCanvas.h"
#include "help/winAboutBox.h"
#include "help/winExplainHTML.h"
#include "help/winHelp.h"
#include "help/winHelpSimple.h"
#include "help/winOKCancel.h"
#include "help/winTimed.h"
#include "tst_windows.h"
#include "util/Guard.h"
#include "util/ZorError.h"

Q_DECLARE_METATYPE(Guard::Where)

// The text format of each label that shows text, by name.
static QString labelFormats(QDialog& d) {
    QStringList formats;
    for (QLabel* label : d.findChildren<QLabel*>())
        if (!label->text().isEmpty())
            formats << QStringList{"plain", "rich", "auto", "markdown"}.value(label->textFormat());
    return formats.join(',');
}

// Records like ScriptedDialogs, and notes each built window's title, class, place and shown text.
struct PeekingDialogs : ScriptedDialogs {
    struct Seen {
        QString title, className, shown;
        QRect geometry;
    };
    QList<Seen> seen;
    PeekingDialogs() {
        onWindow = [this](QDialog& d) { // each has one text control
            seen.append({d.windowTitle(), d.metaObject()->className(),
                         d.findChild<QAbstractScrollArea*>()->property("plainText").toString(),
                         QRect(d.pos(), d.size())});
        };
    }
};

static WindowFit::TextHeight heightsAt(const QList<int>& h) { // text heights at 300, 400, 600, 800, 1000
    return [h](int width) { return h.value(QList<int>{300, 400, 600, 800, 1000}.indexOf(width), -100000); };
}

static QRect placed(QSize size) { // help windows stand at the upper right of the screen, below its menu bar
    const QRect screen = HelpFit::availableArea();
    return {QPoint(screen.x() + screen.width() - size.width() - 4, screen.top() + 22), size};
}

// The files on the Desktop, each as "name: text", the name without its date stamp.
static QStringList desktopFiles(const TempHome& home) {
    QStringList files;
    for (const QFileInfo& info : QDir(home.desktop()).entryInfoList(QDir::Files)) {
        QFile file(info.filePath());
        files << info.fileName().remove(QRegularExpression("^\\d{6}_\\d{6}")) + ": " +
                     (file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : "unreadable");
    }
    return files.sort(), files;
}

static QString hover(labZor* label, bool enter) { // what the label shows afterwards
    QEnterEvent in(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QEvent out(QEvent::Leave);
    QCoreApplication::sendEvent(label, enter ? static_cast<QEvent*>(&in) : &out);
    return label->text() + ' ' + label->textColour().name();
}

// The records of the table as "id title", in order, and those whose window has a fixed size.
// clang-format off
const QStringList kRecords = QString(
    "0 Overview|3 Keyboard Shortcut|4 Switch to Another Palette|5 Information Bar|10 Grid Construct Overview|11 Individual Button|"
    "12 Palette Particulars|13 Name/Alias|14 Grid Button|15 The Grid|16 Grid Palette|17 Palette ID|18 Name Alias|19 Plain Palette|"
    "20 Palette Window Title|22 Button ID|24 Keyboard Shortcut|26 Tip|28 Information|30 AppleScript|31 Launch Keyboard Maestro|"
    "32 Shortcuts|34 No AppleScript|35 Palette Switch|36 Automatic Minimization|37 No Apple Shortcut|38 No Palette|"
    "40 Button Pictures Overview|42 Select Pictures to Add|44 All Button Pictures|46 Removed From Button Pictures|47 Complete Path|"
    "50 Manage AppleScript Overview|52 Linked AppleScripts|54 Applescripts Folder|60 New Palette|64 Rename Palette|66 Delete Palette|"
    "67 Make Keyboard Maestro Macros").split('|');
// clang-format on
const QMap<int, QSize> kSized{{5, {600, 400}}, {10, {340, 350}}, {32, {640, 400}}, {40, {640, 600}}};

const QString kSeparators = "HELP_TEXT is incorrectly formatted. Some entries not correctly broken up by "
                            "unit separators.";
const QString kDigits = "HELP_TEXT is incorrectly formatted. Does not have digits in right place.";
const QString kContent = "HELP_TEXT is incorrectly formatted. No appropriate data for content.";

class tst_help : public QObject {
    Q_OBJECT
    TempHome home; // for whatever a test writes without a home of its own

private slots:
    void initTestCase() {
        ErrorHandling::install();
        ScriptedDialogs dialogs; // the first help asked for in a run reads the table itself
        Help::ShowHelp(0);
        QCOMPARE(dialogs.titles(), QStringList{"Overview"});
    }
    // The compiled table, any complaint about it recorded.
    void init() { (ScriptedDialogs(), Help::FillDictionaryFromHELP_TEXT()); }

    void cleaning_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("cleaned"); // empty: refused
        QTest::addColumn<QString>("message"); // empty: none
        const auto row = [](const char* name, QString table, QString cleaned, QString message = {}) {
            QTest::newRow(name) << table << cleaned << message;
        };
        row("the compiled table", Help::HELP_TEXT(), Help::HELP_TEXT());
        row("2 fields: id and content", "7\tSome text<#CR>", "7\t\tSome text\t0\t0<#CR>");
        row("4 fields, the zero side set to 100", "7\tT\tText\t340<#CR>", "7\tT\tText\t340\t100<#CR>");
        row("below 100 raised", "7\tT\tText\t20\t45<#CR>", "7\tT\tText\t100\t100<#CR>");
        row("empty content takes the title", "7\tTitle\t\t0\t0<#CR>", "7\t\tTitle\t0\t0<#CR>");
        row("blanks, no final marker, lines in content", "  3\tA\tOne\n\nTwo\t0\t0<#CR>\n4\tB\tC\t0\t0\n\n",
            "3\tA\tOne\n\nTwo\t0\t0<#CR>\n4\tB\tC\t0\t0<#CR>");
        row("6 fields", "7\tT\tText\t0\t0\t0<#CR>", "", kSeparators);
        row("a bad second record stops all", "3\tT\tText\t0\t0<#CR>\n4\tonly<#CR>\n5<#CR>", "", kSeparators);
        row("id not digits", "x7\tT\tText\t0\t0<#CR>", "", kDigits);
        row("negative height", "7\tT\tText\t300\t-5<#CR>", "", kDigits);
        row("content of digits", "7\tT\t12345\t0\t0<#CR>", "", kContent);
        row("no content, no title", "7\t\t\t0\t0<#CR>", "", kContent);
    }
    void cleaning() {
        QFETCH(QString, table);
        QFETCH(QString, cleaned);
        QFETCH(QString, message);
        TempHome fresh;
        ScriptedDialogs dialogs;
        Help::FillDictionaryFromHELP_TEXT(table);
        const bool refused = !message.isEmpty();
        QCOMPARE(Help::helpDict.isEmpty(), refused); // a refused table leaves no help at all
        // What was refused or changed is left on the Desktop for the table's author.
        QCOMPARE(QStringList({Help::cleanedHelpText, dialogs.texts().join('|')}) + desktopFiles(fresh),
                 QStringList({cleaned, message}) +
                     (refused            ? QStringList{"BadOriginal.txt: " + table}
                      : cleaned == table ? QStringList()
                                         : QStringList{"Cleaned.txt: " + cleaned, "Original.txt: " + table}));
    }

    void everyRecordOpens_data() {
        QTest::addColumn<int>("id"); // the row's name is "id title"
        for (const QString& record : kRecords)
            QTest::newRow(qPrintable(record)) << record.section(' ', 0, 0).toInt();
    }
    void everyRecordOpens() {
        QFETCH(int, id);
        PeekingDialogs dialogs;
        Help::ShowHelp(id);
        const auto seen = dialogs.seen.value(0);
        // The window itself and no failure report; the compiled table holds only the records walked here.
        QCOMPARE(QList<qsizetype>({dialogs.requests.size(), Help::helpDict.size()}),
                 QList<qsizetype>({1, kRecords.size()}));
        // A plain text that happened to hold a tag would be shown as HTML, its line breaks lost.
        QCOMPARE(QString::number(id) + ' ' + seen.title + ' ' + seen.className,
                 QTest::currentDataTag() + QString(id == 40 || id == 46 ? " winHelp" : " winHelpSimple"));
        QVERIFY2(!seen.shown.contains('<'), qPrintable(seen.shown));
        if (id != 14 && id != 19) QCOMPARE_GT(seen.shown.size(), 80); // two records are short
        // A record's own size stands; a fitted one stays on the screen.
        const QSize size = kSized.value(id, seen.geometry.size());
        QCOMPARE(seen.geometry, placed(size.boundedTo(HelpFit::availableArea().size())));
    }

    void messagesAndTitles() {
        ScriptedDialogs dialogs;
        Help::FillDictionaryFromHELP_TEXT("7\tSome text<#CR>"); // a record without a title
        Help::ShowHelp(7);
        Help::ShowHelpTextProvided(" \n\t ");
        Help::ShowHelpTextProvided(" My notes\n");
        Help::ShowHelp(3);
        QStringList shown;
        for (const auto& r : dialogs.requests) shown << (r.kind == Dialogs::Kind::Message ? r.text : r.title + ": " + r.text);
        QCOMPARE(shown,
                 (QStringList{"Help: Some text",
                              "You have not provided any particulars for this palette. Use Configure >> "
                              "Grid Contruct to enter this information.",
                              "Palette Particulars:  My notes\n", "No Dictionary Entry for Key 3"}));
    }

    // Any "<h" counts, even in plain text; a break or a division alone does not.
    void isHTML() {
        const QStringList texts{"<p>a</p>", "a <I>b</I>", "<style=\"color:red\">", "Type <home> to go back",
                                "Plain text, 3 < 4 and 5 > 2", "a<br/>b<div>c</div>"}; // the first four are HTML
        QStringList html;
        for (const QString& text : texts) if (Help::IsHTML(text)) html << text;
        QCOMPARE(html, texts.mid(0, 4));
    }

    // A wider step must save 80 pixels of height; a small screen gives 80% of itself.
    void choosingTheWidth() {
        const auto fit = [](const QList<int>& h, QRect available = QRect(0, 25, 2560, 1575)) {
            return HelpFit::fittedSize(heightsAt(h), available);
        };
        QCOMPARE((QList<QSize>{fit({180, 100, 90, 80, 70}), fit({600, 400, 350, 320, 300}),
                               fit({900, 850, 700, 650, 500}),
                               fit({6000, 4000, 3000, 2000, 1500}, {0, 0, 1024, 600})}),
                 (QList<QSize>{{340, 396}, {440, 696}, {1040, 816}, {819, 480}}));
    }

    // Asked sizes are held within 350 x 250 to 2000 x 1600; a zero side is fitted, then raised.
    void explanationWindow() {
        PeekingDialogs dialogs;
        QList<QRect> placedAt;
        for (const QSize asked : {QSize(500, 270), QSize(2500, 1700), QSize(500, 0)}) {
            winExplainHTML window;
            window.textHeight = heightsAt({17, 17, 17, 17, 17}); // one line, whatever the width
            window.PrepareAndShowWindow("<p>A</p><p> <i>X</i></p>", "Why", asked.width(), asked.height());
            QCOMPARE(dialogs.seen.last().title + ": " + dialogs.seen.last().shown, "Why: A\nX");
            placedAt << dialogs.seen.last().geometry;
        }
        QCOMPARE(placedAt, (QList<QRect>{placed({500, 270}), placed({2000, 1600}), placed({350, 250})}));
    }

    // Done with Option held notes the window's size on the Desktop, for whoever sizes the records.
    void doneWritesSizeInfoWithOption() {
        ScriptedDialogs dialogs;
        const auto done = [](auto&& window, Qt::KeyboardModifiers keys) {
            TempHome fresh;
            window.resize(523, 311);
            window.setWindowTitle("T");
            window.pbDone_Pressed(keys);
            return window.result() == QDialog::Accepted ? desktopFiles(fresh).join('|') : "open";
        };
        const auto option = Qt::AltModifier | Qt::ShiftModifier;
        const QString written = "WindowSizeInfo.txt: Width: 523   Height: 311  Title: T";
        QCOMPARE((QStringList{done(winHelp(), option), done(winHelpSimple(), option),
                              done(winHelp(), Qt::ShiftModifier), done(winHelpSimple(), Qt::ShiftModifier)}),
                 (QStringList{written, written, "", ""}));
    }

    // With the shift rule, only a click with Shift or Option opens help; the information mark always does.
    void labZorShiftRule() {
        ScriptedDialogs dialogs;
        labZor tip;
        labInfo info;
        tip.setID(26), info.setID(28);
        for (bool rule : {false, true}) {
            tip.setRequireShift(rule);
            for (auto keys : {Qt::NoModifier, Qt::ShiftModifier, Qt::AltModifier, Qt::ControlModifier}) {
                QTest::mouseClick(&tip, Qt::LeftButton, keys);
                QTest::mouseClick(&info, Qt::LeftButton, keys);
            }
        }
        QCOMPARE(dialogs.titles().join(' '),
                 "Tip Information Tip Information Tip Information Tip Information "
                 "Information Tip Information Tip Information Information");
    }

    void labelHover() {
        labZorVisible shortcut; // rests empty, and shows its mark under the pointer
        shortcut.invisibleDefaultText = "*";
        shortcut.setFont(QFont(shortcut.font().family(), -1, QFont::Bold));
        shortcut.setEnterColor(QColor(0x941100));
        shortcut.setExitColor(QColor(0x945200)); // the resting colour shows at once
        QStringList shown{shortcut.textColour().name(), hover(&shortcut, true), hover(&shortcut, false)};
        shortcut.setText("k"); // a letter stays
        shown << hover(&shortcut, true) << hover(&shortcut, false);
        QCOMPARE(shown, (QStringList{"#945200", "* #941100", " #945200", "k #941100", "k #945200"}));
        QVERIFY(shortcut.font().bold()); // a label designed bold stays so
    }

    // The about box's texts, then the window that shows them.
    void aboutBox() {
        QCOMPARE(winAboutBox::versionText("1.4.0", QString()), "Version 1.4");
        const QDate built = winAboutBox::compilerDate("Mar  5 2026"); // shown alone: no weekday, no time
        QCOMPARE(winAboutBox::releaseDateText(built, QLocale("en_US")) + '|' + winAboutBox::releaseDateText(built, QLocale("de_DE")),
                 "Release Date: March 5, 2026|Release Date: 5. März 2026");
        QCoreApplication::setApplicationVersion("2.12");
        qApp->setProperty("versionString", "beta 2");
        ScriptedDialogs dialogs;
        winAboutBox box;
        QCOMPARE(box.findChild<QLabel*>("labVersion")->text(), "Version 2.12 beta 2");
        QFile plist(ZOR_TESTS_DIR "/../resources/Info.plist.in"); // the copyright line is the bundle's
        const QByteArray copyright = box.findChild<QLabel*>("labCopyright")->text().toUtf8();
        QVERIFY(plist.open(QIODevice::ReadOnly));
        QVERIFY2(plist.readAll().contains("NSHumanReadableCopyright</key><string>" + copyright + '<'),
                 copyright);
        // The picture is compiled in and is Icon64's backdrop.
        QCOMPARE(box.findChild<QWidget*>("Icon64")->grab().toImage().pixel(32, 32),
                 QImage(":/about/AppIcon64.png").pixel(32, 32));
        QTest::mouseClick(box.findChild<QPushButton*>("pbDone"), Qt::LeftButton);
        QCOMPARE(box.result(), int(QDialog::Accepted));
        QVERIFY(dialogs.requests.isEmpty()); // no failure was reported
    }

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


    // The window placed in the middle of the area available, its width chosen from the text's height.
    void fitting() {
        const QRect wide(0, 25, 1440, 875);
        const WindowFit::TextHeight line = [](int) { return 17; }, many = [](int w) { return 2000000 / w; };
        // 150 and 200 come equally near the ratio; the narrower wins and, being tall, grows by a tenth.
        const WindowFit::TextHeight tie = [](int w) { return w == 150 ? 57 : w == 200 ? 87 : 10000; };
        const auto fit = [](const WindowFit::TextHeight& heightAt, QRect available, QSize maximum) {
            return WindowFit::fittedGeometry(heightAt, available, QSize(200, 125), maximum);
        };
        const auto best = &WindowFit::BestWidth;
        QCOMPARE((QList<int>{best(line), best(tie), best(many)}), (QList<int>{265, 291, 1006}));
        // A short text widens, keeping its height; a long one stops at the window's or the screen's limit.
        QCOMPARE((QList<QRect>{fit(line, wide, {800, 500}), fit(tie, wide, {800, 500}),
                               fit(many, wide, {1000, 800}), fit(many, {0, 0, 1024, 600}, {1000, 800})}),
                 (QList<QRect>{QRect(574, 25 + 237, 291, 164), QRect(560, 25 + 231, 320, 180),
                               QRect(220, 25 + 83, 1000, 624), QRect(102, 40, 819, 480)}));
    }

    void timedClickKeepsWindowOpen() {
        AppGlobals::iGlobalInteger = 1;
        winTimed w;
        QCOMPARE(w.tiAutoClose->interval(), 1000);
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
            if (auto* w = qobject_cast<winOKCancel*>(&d)) // the message|the default buttons
                text += w->labMessage->text() + "|default:" + (w->pbOK->isDefault() ? "OK" : "") +
                        (w->pbCancel->isDefault() ? "Cancel" : "");
            else if (auto* box = qobject_cast<QMessageBox*>(&d)) { // explanation|icon|caption=number of each button
                QStringList captions;
                for (QAbstractButton* b : box->buttons())
                    captions << b->text() + '=' + QString::number(GeneralMethods::mesDlgButtonNumber(*box, b));
                captions.sort();
                text += box->text() + '|' + box->informativeText() + '|' + QString::number(box->icon()) + '|' +
                        captions.join(',');
            } else
                text += QString(d.metaObject()->className()) + '|' + d.findChild<QPlainTextEdit*>()->toPlainText();
            seen << text + '|' + labelFormats(d);
        };
        for (const bool ok : {true, false, true}) dialogs.queueOK(ok);
        const auto ask = [](int b) { return RtrnBoolean::rbOKCancel("Delete <b>x</b>?", b, "Palette"); };
        QCOMPARE((QList<bool>{ask(0), ask(1), ask(2)}), (QList<bool>{true, false, true}));
        GeneralMethods::MesDlg("Keep <b>x</b>?", "<i>Make sure.</i>", "Save", true, "Discard");
        GeneralMethods::MesDlg("Keep it?", "", "", false, "");
        GeneralMethods::ShowText("line one\nline two", "Manage PreserveState Backup");
        GeneralMethods::ShowTimed("This button is not active.", "No Action for Button", true, 12);
        QCOMPARE(seen,
                 QStringList({"Palette|Delete <b>x</b>?|default:|plain",
                              "Palette|Delete <b>x</b>?|default:OK|plain",
                              "Palette|Delete <b>x</b>?|default:Cancel|plain",
                              "|Keep <b>x</b>?|<i>Make sure.</i>|1|Cancel=0,Discard=2,Save=1|plain,plain",
                              "|Keep it?||1|OK=1|plain",
                              "Manage PreserveState Backup|winShowText|line one\nline two|",
                              "No Action for Button|winTimed|This button is not active.|"}));
        QCOMPARE(AppGlobals::iGlobalInteger, 12);
        QVERIFY(AppGlobals::fGlobalBoolean);
        QCOMPARE(Dialogs::plainMessageBox("<b>x</b>")->textFormat(), Qt::PlainText);
    }

    void osMajorRemembersOnlyAnAnswer() {
        FakeTools tools;
        GeneralMethods::forgetVersionOS_Major();
        tools.remove("sw_vers"); // not there at all, though the Mac's own stands later on PATH
        QList<int> majors{GeneralMethods::VersionOS_Major()};
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

QTEST_MAIN(tst_help)
#include "tst_help.moc"
