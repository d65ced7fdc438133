#include "common/ScriptedDialogs.h"
#include "common/TempHome.h"
#include "help/ExplanationHTML.h"
#include "help/Help.h"
#include "help/HelpFit.h"
#include "help/HelpLabels.h"
#include "help/winExplainHTML.h"
#include "help/winHelp.h"
#include "help/winHelpSimple.h"

#include <QDir>
#include <QEnterEvent>
#include <QPlainTextEdit>
#include <QTextBrowser>
#include <QtTest>

// Records like ScriptedDialogs, and notes what the built window looked like when it was shown.
class PeekingDialogs : public ScriptedDialogs {
public:
    struct Seen {
        QString className;
        QSize size;
        QPoint position;
        QString shown; // what its text control holds
    };
    QList<Seen> seen;

    Dialogs::Answer answer(const Dialogs::Request& request) override {
        if (QDialog* d = request.dialog) {
            QString shown;
            if (auto* browser = d->findChild<QTextBrowser*>()) shown = browser->toPlainText();
            if (auto* area = d->findChild<QPlainTextEdit*>()) shown = area->toPlainText();
            seen.append({QString::fromLatin1(d->metaObject()->className()), d->size(), d->pos(), shown});
        }
        return ScriptedDialogs::answer(request);
    }
};

namespace {
using Heights = QList<int>; // text heights at 300, 400, 600, 800, 1000

WindowFit::TextHeight heightsAt(const Heights& h) {
    return [h](int width) { return h.value(QList<int>{300, 400, 600, 800, 1000}.indexOf(width), -100000); };
}

WindowFit::TextHeight mustNotMeasure() {
    return [](int) -> int { qFatal("a window with its size given measured its text"); };
}

QString desktopText(const TempHome& home, const QString& name) { // the file behind its date stamp
    const QStringList names = QDir(home.desktop()).entryList({"??????_??????" + name}, QDir::Files);
    if (names.size() != 1) return QStringLiteral("<%1 files>").arg(names.size());
    QFile file(QDir(home.desktop()).filePath(names[0]));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QPoint upperRight(int windowWidth) {
    return HelpFit::UpperRight(HelpFit::AvailableArea(), windowWidth);
}

void sendHover(QWidget* label, bool enter) {
    QEnterEvent in(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QEvent out(QEvent::Leave);
    QCoreApplication::sendEvent(label, enter ? static_cast<QEvent*>(&in) : &out);
}

// The records of the table as "id title", in order, and those whose window has a fixed size.
const QStringList kRecords =
    QString(
        "0 Overview|3 Keyboard Shortcut|4 Switch to Another Palette|5 Information Bar|10 Grid Construct "
        "Overview|11 Individual Button|12 Palette Particulars|13 Name/Alias|14 Grid Button|15 The Grid|16 "
        "Grid Palette|17 Palette ID|18 Name Alias|19 Plain Palette|20 Palette Window Title|22 Button ID|24 "
        "Keyboard Shortcut|26 Tip|28 Information|30 AppleScript|31 Launch Keyboard Maestro|32 Shortcuts|34 "
        "No AppleScript|35 Palette Switch|36 Automatic Minimization|37 No Apple Shortcut|38 No Palette|40 "
        "Button Pictures Overview|42 Select Pictures to Add|44 All Button Pictures|46 Removed From Button "
        "Pictures|47 Complete Path|50 Manage AppleScript Overview|52 Linked AppleScripts|54 Applescripts "
        "Folder|60 New Palette|64 Rename Palette|66 Delete Palette")
        .split('|');
const QMap<int, QSize> kSized{{5, {600, 400}}, {10, {340, 350}}, {32, {640, 400}}, {40, {640, 600}}};

const QString kSeparators = "HELP_TEXT is incorrectly formatted. Some entries not correctly broken up by "
                            "unit separators.";
const QString kDigits = "HELP_TEXT is incorrectly formatted. Does not have digits in right place.";
const QString kContent = "HELP_TEXT is incorrectly formatted. No appropriate data for content.";
} // namespace

class tst_help : public QObject {
    Q_OBJECT
private slots:
    void cleaning_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("cleaned"); // empty: refused
        QTest::addColumn<QString>("message"); // empty: none
        const auto row = [](const char* name, QString table, QString cleaned, QString message = {}) {
            QTest::newRow(name) << table << cleaned << message;
        };
        row("clean", "3\tT\tText\t0\t0<#CR>\n4\t\tMore\t340\t350<#CR>",
            "3\tT\tText\t0\t0<#CR>\n4\t\tMore\t340\t350<#CR>");
        row("2 fields: id and content", "7\tSome text<#CR>", "7\t\tSome text\t0\t0<#CR>");
        row("3 fields", "7\tTitle\tText<#CR>", "7\tTitle\tText\t0\t0<#CR>");
        row("4 fields, the zero side set to 100", "7\tT\tText\t340<#CR>", "7\tT\tText\t340\t100<#CR>");
        row("50 x 0 gives 100 x 100", "7\tT\tText\t50\t0<#CR>", "7\tT\tText\t100\t100<#CR>");
        row("below 100 raised", "7\tT\tText\t20\t450<#CR>", "7\tT\tText\t100\t450<#CR>");
        row("empty content takes the title", "7\tTitle\t\t0\t0<#CR>", "7\t\tTitle\t0\t0<#CR>");
        row("blanks, no final marker, lines in content", "  3\tA\tOne\n\nTwo\t0\t0<#CR>\n4\tB\tC\t0\t0\n\n",
            "3\tA\tOne\n\nTwo\t0\t0<#CR>\n4\tB\tC\t0\t0<#CR>");
        row("6 fields", "7\tT\tText\t0\t0\t0<#CR>", "", kSeparators);
        row("a bad second record stops all", "3\tT\tText\t0\t0<#CR>\n4\tonly<#CR>\n5<#CR>", "", kSeparators);
        row("id not digits", "x7\tT\tText\t0\t0<#CR>", "", kDigits);
        row("width not digits", "7\tT\tText\t4a\t0<#CR>", "", kDigits);
        row("negative height", "7\tT\tText\t300\t-5<#CR>", "", kDigits);
        row("content of digits", "7\tT\t12345\t0\t0<#CR>", "", kContent);
        row("no content, no title", "7\t\t\t0\t0<#CR>", "", kContent);
    }
    void cleaning() {
        QFETCH(QString, table);
        QFETCH(QString, cleaned);
        QFETCH(QString, message);
        TempHome home;
        ScriptedDialogs dialogs;
        Help::CleanHelpText(table);
        QCOMPARE(Help::cleanedHelpText, cleaned);
        QCOMPARE(dialogs.texts(), message.isEmpty() ? QStringList() : QStringList{message});
        // The author of the table sees what was refused, or what was changed; a clean table writes nothing.
        QCOMPARE(desktopText(home, "BadOriginal.txt"), message.isEmpty() ? "<0 files>" : table);
        const bool changed = message.isEmpty() && cleaned != table;
        QCOMPARE(desktopText(home, "Cleaned.txt"), changed ? cleaned : "<0 files>");
        QCOMPARE(desktopText(home, "Original.txt"), changed ? table : "<0 files>");
    }

    void refusedTableLeavesNoHelp() {
        TempHome home;
        ScriptedDialogs dialogs;
        Help::FillDictionaryFromHELP_TEXT("3\tT\tText\t0\t0<#CR>\n4\tT\t99\t0\t0<#CR>");
        QVERIFY(Help::helpDict.isEmpty());
        Help::ShowHelp(3);
        QCOMPARE(dialogs.texts(), (QStringList{kContent, "No Dictionary Entry for Key 3"}));
    }

    void compiledTableIsCleanAndComplete() {
        TempHome home;
        ScriptedDialogs dialogs;
        Help::FillDictionaryFromHELP_TEXT();
        QVERIFY(!Help::HELP_TEXT().isEmpty());
        QCOMPARE(Help::cleanedHelpText, Help::HELP_TEXT());
        QCOMPARE(QDir(home.desktop()).entryList(QDir::Files), QStringList());
        QVERIFY(dialogs.requests.isEmpty());
        QList<int> ids;
        for (const QString& record : kRecords)
            ids << record.section(' ', 0, 0).toInt();
        QCOMPARE(Help::helpDict.keys(), ids);
    }

    void everyRecordOpens_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("title");
        for (const QString& record : kRecords)
            QTest::newRow(qPrintable(record)) << record.section(' ', 0, 0).toInt() << record.section(' ', 1);
    }
    void everyRecordOpens() {
        QFETCH(int, id);
        QFETCH(QString, title);
        TempHome home;
        Help::FillDictionaryFromHELP_TEXT();
        PeekingDialogs dialogs;
        Help::ShowHelp(id);
        QCOMPARE(dialogs.requests.size(), 1); // the window itself, and no failure report
        QCOMPARE(dialogs.requests[0].kind, Dialogs::Kind::Help);
        QCOMPARE(dialogs.requests[0].title, title);
        const auto& seen = dialogs.seen.value(0);
        // A plain text that happened to hold a tag would be shown as HTML, its line breaks lost.
        QCOMPARE(seen.className, QString(id == 40 || id == 46 ? "winHelp" : "winHelpSimple"));
        QVERIFY(seen.shown.size() > 80 || id == 14 || id == 19);
        QVERIFY(!seen.shown.contains('<'));
        if (kSized.contains(id)) QCOMPARE(seen.size, kSized[id]);
        QCOMPARE(seen.size.boundedTo(HelpFit::AvailableArea().size()), seen.size);
        QCOMPARE(seen.position, upperRight(seen.size.width()));
    }

    void showHelpEdges() {
        TempHome home;
        PeekingDialogs dialogs;
        Help::FillDictionaryFromHELP_TEXT("7\tSome text<#CR>");
        Help::ShowHelp(7);
        Help::ShowHelp(99);
        Help::ShowHelpTextProvided(" \n\t ");
        Help::ShowHelpTextProvided(" My notes\n");
        QCOMPARE(dialogs.requests.size(), 4);
        QCOMPARE(dialogs.requests[0].title, QString("Help")); // a record without a title
        QCOMPARE(dialogs.requests[0].text, QString("Some text"));
        QCOMPARE(dialogs.requests[1].text, QString("No Dictionary Entry for Key 99"));
        QCOMPARE(dialogs.requests[2].kind, Dialogs::Kind::Message);
        QCOMPARE(dialogs.requests[2].text,
                 QString("You have not provided any particulars for this palette. Use "
                         "Configure >> Grid Contruct to enter this information."));
        QCOMPARE(dialogs.requests[3].title, QString("Palette Particulars"));
        QCOMPARE(dialogs.requests[3].text, QString(" My notes\n")); // trimmed for the test only
        QCOMPARE(dialogs.seen[1].className, QString("winHelpSimple"));
    }

    void isHTML_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("html");
        QTest::newRow("paragraph") << "<p>One</p>" << true;
        QTest::newRow("italics, upper case") << "a <I>b</I>" << true;
        QTest::newRow("style") << "<style=\"color:red\">" << true;
        QTest::newRow("heading") << "<h2>Title</h2>" << true;
        QTest::newRow("any <h, even in plain text") << "Type <home> to go back" << true;
        QTest::newRow("plain") << "Plain text, 3 < 4 and 5 > 2" << false;
        QTest::newRow("break and div alone") << "a<br/>b<div>c</div>" << false;
    }
    void isHTML() {
        QFETCH(QString, text);
        QFETCH(bool, html);
        QCOMPARE(Help::IsHTML(text), html);
    }

    void choosingTheWidth_data() {
        QTest::addColumn<Heights>("heights");
        QTest::addColumn<QRect>("available");
        QTest::addColumn<QSize>("size");
        const QRect large(0, 25, 2560, 1575);
        QTest::newRow("one line stays narrow") << Heights{17, 17, 17, 17, 17} << large << QSize(340, 200);
        QTest::newRow("exactly 80 shorter is not enough")
            << Heights{180, 100, 90, 80, 70} << large << QSize(340, 396);
        QTest::newRow("only the first step pays")
            << Heights{600, 400, 350, 320, 300} << large << QSize(440, 696);
        QTest::newRow("first and third pay: 800")
            << Heights{900, 700, 650, 500, 480} << large << QSize(840, 816);
        QTest::newRow("every step pays") << Heights{1000, 800, 600, 400, 200} << large << QSize(1040, 456);
        QTest::newRow("small screen: 80% of it")
            << Heights{6000, 4000, 3000, 2000, 1500} << QRect(0, 0, 1024, 600) << QSize(819, 480);
    }
    void choosingTheWidth() {
        QFETCH(Heights, heights);
        QFETCH(QRect, available);
        QFETCH(QSize, size);
        QCOMPARE(HelpFit::FittedSize(heightsAt(heights), available), size);
    }

    void windowSizedThroughTheSeam() {
        winHelp window;
        window.textHeight = heightsAt({17, 17, 17, 17, 17});
        window.AdjustWindowSize("one line", 0, 350);
        QCOMPARE(window.size(), QSize(340, 200));
        QCOMPARE(window.pos(), upperRight(340));
        window.textHeight = mustNotMeasure(); // a record's size stands whatever the text
        window.AdjustWindowSize("anything", 50, 5000);
        QCOMPARE(window.size(), QSize(200, 3000)); // the window's own limits still hold
        QCOMPARE(window.pos(), upperRight(200));
    }

    void explanationWindow_data() {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<QSize>("size");
        QTest::newRow("as asked") << 500 << 270 << QSize(500, 270);
        QTest::newRow("raised to its minimum") << 100 << 100 << QSize(350, 250);
        QTest::newRow("held at its maximum") << 2500 << 1700 << QSize(2000, 1600);
        QTest::newRow("a zero side: fitted, then raised") << 500 << 0 << QSize(350, 250);
    }
    void explanationWindow() {
        QFETCH(int, width);
        QFETCH(int, height);
        QFETCH(QSize, size);
        PeekingDialogs dialogs;
        winExplainHTML window;
        window.textHeight = height == 0 ? heightsAt({17, 17, 17, 17, 17}) : mustNotMeasure();
        window.PrepareAndShowWindow("<p>A folder</p><p> <i>X</i></p>", "Explanation", width, height);
        QCOMPARE(dialogs.requests.value(0).kind, Dialogs::Kind::ExplainHTML);
        QCOMPARE(dialogs.requests[0].title, QString("Explanation"));
        QCOMPARE(dialogs.seen[0].size, size);
        QCOMPARE(dialogs.seen[0].position, upperRight(size.width()));
        QCOMPARE(dialogs.seen[0].shown, QString("A folder\nX"));
        GeneralMethods::ShowExplanationHTML("<p>Done.</p>", "Explanation", 500, 270); // the same way
        QCOMPARE(dialogs.seen.value(1).size, QSize(500, 270));
    }

    void doneWritesSizeInfoWithOption_data() {
        QTest::addColumn<bool>("simple");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("written");
        QTest::newRow("winHelp, Option") << false << int(Qt::AltModifier) << true;
        QTest::newRow("winHelpSimple, Option Shift")
            << true << int(Qt::AltModifier | Qt::ShiftModifier) << true;
        QTest::newRow("winHelp, Shift") << false << int(Qt::ShiftModifier) << false;
    }
    void doneWritesSizeInfoWithOption() {
        QFETCH(bool, simple);
        QFETCH(int, modifiers);
        QFETCH(bool, written);
        TempHome home;
        ScriptedDialogs dialogs;
        winHelp html;
        winHelpSimple plain;
        QDialog& window = simple ? static_cast<QDialog&>(plain) : html;
        window.resize(523, 311);
        window.setWindowTitle("Tip");
        simple ? plain.pbDone_Pressed(Qt::KeyboardModifiers(modifiers))
               : html.pbDone_Pressed(Qt::KeyboardModifiers(modifiers));
        QCOMPARE(window.result(), int(QDialog::Accepted));
        QCOMPARE(desktopText(home, "WindowSizeInfo.txt"),
                 written ? QString("Width: 523   Height: 311  Title: Tip") : QString("<0 files>"));
        QVERIFY(dialogs.requests.isEmpty());
    }

    void labZorShiftRule_data() {
        QTest::addColumn<bool>("requireShift");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("opens");
        QTest::newRow("plain click") << false << int(Qt::NoModifier) << true;
        QTest::newRow("shift rule, plain click") << true << int(Qt::NoModifier) << false;
        QTest::newRow("shift rule, Shift") << true << int(Qt::ShiftModifier) << true;
        QTest::newRow("shift rule, Option") << true << int(Qt::AltModifier) << true;
        QTest::newRow("shift rule, Cmd") << true << int(Qt::ControlModifier) << false;
    }
    void labZorShiftRule() {
        QFETCH(bool, requireShift);
        QFETCH(int, modifiers);
        QFETCH(bool, opens);
        TempHome home;
        Help::FillDictionaryFromHELP_TEXT();
        ScriptedDialogs dialogs;
        QWidget window;
        auto* tip = new labZor(&window);
        tip->setText("Tip");
        tip->setID(5);
        tip->setRequireShift(requireShift);
        auto* info = new labInfo(&window); // no rule: any click opens its help
        info->setID(42);
        info->move(0, 40);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTest::mouseClick(tip, Qt::LeftButton, Qt::KeyboardModifiers(modifiers));
        QTest::mouseClick(info, Qt::LeftButton, Qt::KeyboardModifiers(modifiers));
        QStringList titles;
        for (const auto& request : dialogs.requests)
            titles << request.title;
        const QStringList expected{"Information Bar", "Select Pictures to Add"};
        QCOMPARE(titles, opens ? expected : expected.mid(1));
    }

    void labelHover() {
        QWidget window;
        auto* tip = new labZor(&window);
        tip->setEnterColor(QColor(0x941100));
        tip->setExitColor(QColor(0x945200));
        QCOMPARE(tip->textColor(), QColor(0x945200)); // the resting colour shows at once
        sendHover(tip, true);
        QCOMPARE(tip->textColor(), QColor(0x941100));
        sendHover(tip, false);
        QCOMPARE(tip->textColor(), QColor(0x945200));

        auto* shortcut = new labZorVisible(&window);
        shortcut->invisibleDefaultText = "*";
        QFont bold = shortcut->font();
        bold.setBold(true);
        shortcut->setFont(bold);
        sendHover(shortcut, true); // empty: shows its mark under the pointer
        QCOMPARE(shortcut->text(), QString("*"));
        QCOMPARE(shortcut->textColor(), QColor(0x0096FF));
        sendHover(shortcut, false);
        QCOMPARE(shortcut->text(), QString());
        QVERIFY(shortcut->font().bold()); // a label designed bold stays so
        shortcut->setText("k");
        sendHover(shortcut, true); // a letter stays
        sendHover(shortcut, false);
        QCOMPARE(shortcut->text(), QString("k"));
    }
};

QTEST_MAIN(tst_help)
#include "tst_help.moc"
