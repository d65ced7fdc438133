#include "common/ScriptedDialogs.h"
#include "common/TempHome.h"
#include "help/Help.h"
#include "help/HelpFit.h"
#include "help/HelpLabels.h"
#include "help/winExplainHTML.h"
#include "help/winHelp.h"
#include "help/winHelpSimple.h"

#include <QAbstractScrollArea>
#include <QDir>
#include <QEnterEvent>
#include <QtTest>

// Records like ScriptedDialogs, and notes each built window's title, class, place and shown text.
struct PeekingDialogs : ScriptedDialogs {
    struct Seen {
        QString title, className, shown;
        QRect geometry;
    };
    QList<Seen> seen;

    Dialogs::Answer answer(const Dialogs::Request& request) override {
        if (QDialog* d = request.dialog) // each has one text control
            seen.append({d->windowTitle(), d->metaObject()->className(),
                         d->findChild<QAbstractScrollArea*>()->property("plainText").toString(),
                         QRect(d->pos(), d->size())});
        return ScriptedDialogs::answer(request);
    }
};

using Heights = QList<int>; // text heights at 300, 400, 600, 800, 1000

static WindowFit::TextHeight heightsAt(const Heights& h) {
    return [h](int width) { return h.value(QList<int>{300, 400, 600, 800, 1000}.indexOf(width), -100000); };
}

static QRect placed(QSize size) { // help windows stand at the upper right of the screen, below its menu bar
    const QRect screen = HelpFit::AvailableArea();
    return {QPoint(screen.x() + screen.width() - size.width() - 4, screen.top() + 22), size};
}

static QString desktopText(const TempHome& home, const QString& name) { // the file behind its date stamp
    const QStringList names = QDir(home.desktop()).entryList({"??????_??????" + name}, QDir::Files);
    if (names.size() != 1) return QStringLiteral("<%1 files>").arg(names.size());
    QFile file(QDir(home.desktop()).filePath(names[0]));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

static QString hover(labZor* label, bool enter) { // what the label shows afterwards
    QEnterEvent in(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QEvent out(QEvent::Leave);
    QCoreApplication::sendEvent(label, enter ? static_cast<QEvent*>(&in) : &out);
    return label->text() + ' ' + label->textColor().name();
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

class tst_help : public QObject {
    Q_OBJECT
    TempHome home; // for whatever a test writes without a home of its own

private slots:
    void init() { // the compiled table, with any complaint about it kept off the screen
        ScriptedDialogs quiet;
        Help::FillDictionaryFromHELP_TEXT();
    }

    void cleaning_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("cleaned"); // empty: refused
        QTest::addColumn<QString>("message"); // empty: none
        const auto row = [](const char* name, QString table, QString cleaned, QString message = {}) {
            QTest::newRow(name) << table << cleaned << message;
        };
        row("clean", "3\tT\tA\t0\t0<#CR>\n4\t\tB\t0\t0<#CR>", "3\tT\tA\t0\t0<#CR>\n4\t\tB\t0\t0<#CR>");
        row("2 fields: id and content", "7\tSome text<#CR>", "7\t\tSome text\t0\t0<#CR>");
        row("4 fields, the zero side set to 100", "7\tT\tText\t340<#CR>", "7\tT\tText\t340\t100<#CR>");
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
        TempHome fresh;
        ScriptedDialogs dialogs;
        Help::FillDictionaryFromHELP_TEXT(table);
        QCOMPARE(Help::cleanedHelpText, cleaned);
        QCOMPARE(Help::helpDict.isEmpty(), !message.isEmpty()); // a refused table leaves no help at all
        QCOMPARE(dialogs.texts(), message.isEmpty() ? QStringList() : QStringList{message});
        // The author of the table sees what was refused, or what was changed; a clean table writes nothing.
        QCOMPARE(desktopText(fresh, "BadOriginal.txt"), message.isEmpty() ? "<0 files>" : table);
        const bool changed = message.isEmpty() && cleaned != table;
        QCOMPARE(desktopText(fresh, "Cleaned.txt"), changed ? cleaned : "<0 files>");
        QCOMPARE(desktopText(fresh, "Original.txt"), changed ? table : "<0 files>");
    }

    void compiledTableIsCleanAndComplete() { // and holds only the records that the walk below opens
        QCOMPARE(Help::cleanedHelpText, Help::HELP_TEXT());
        QCOMPARE(Help::helpDict.size(), kRecords.size());
    }

    void everyRecordOpens_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("title");
        for (const QString& record : kRecords)
            QTest::newRow(qPrintable(record)) << record.section(' ', 0, 0).toInt() << record.section(' ', 1);
    }
    void everyRecordOpens() {
        QFETCH(int, id);
        PeekingDialogs dialogs;
        Help::ShowHelp(id);
        QCOMPARE(dialogs.requests.size(), 1); // the window itself, and no failure report
        const auto seen = dialogs.seen.value(0);
        QTEST(seen.title, "title");
        // A plain text that happened to hold a tag would be shown as HTML, its line breaks lost.
        QCOMPARE(seen.className, QString(id == 40 || id == 46 ? "winHelp" : "winHelpSimple"));
        QVERIFY(!seen.shown.contains('<') && (seen.shown.size() > 80 || id == 14 || id == 19));
        // A record's own size stands; a fitted one stays on the screen.
        const QSize size = kSized.value(id, seen.geometry.size());
        QCOMPARE(seen.geometry, placed(size.boundedTo(HelpFit::AvailableArea().size())));
    }

    void messagesAndTitles() {
        ScriptedDialogs dialogs;
        Help::FillDictionaryFromHELP_TEXT("7\tSome text<#CR>"); // a record without a title
        Help::ShowHelp(7);
        Help::ShowHelpTextProvided(" \n\t ");
        Help::ShowHelpTextProvided(" My notes\n");
        Help::ShowHelp(3);
        QStringList shown;
        for (const auto& r : dialogs.requests)
            shown << (r.kind == Dialogs::Kind::Message ? r.text : r.title + ": " + r.text);
        QCOMPARE(shown,
                 (QStringList{"Help: Some text",
                              "You have not provided any particulars for this palette. Use Configure >> "
                              "Grid Contruct to enter this information.",
                              "Palette Particulars:  My notes\n", "No Dictionary Entry for Key 3"}));
    }

    void isHTML_data() {
        QTest::addColumn<bool>("html"); // of the row's name
        // Any "<h" counts, even in plain text; a break or a division alone does not.
        for (const char* text : {"<p>a</p>", "a <I>b</I>", "<style=\"color:red\">", "Type <home> to go back"})
            QTest::newRow(text) << true;
        for (const char* text : {"Plain text, 3 < 4 and 5 > 2", "a<br/>b<div>c</div>"})
            QTest::newRow(text) << false;
    }
    void isHTML() { QTEST(Help::IsHTML(QString::fromUtf8(QTest::currentDataTag())), "html"); }

    void choosingTheWidth_data() {
        QTest::addColumn<Heights>("heights");
        QTest::addColumn<QRect>("available");
        QTest::addColumn<QSize>("size");
        const QRect large(0, 25, 2560, 1575);
        QTest::newRow("80 less is no gain") << Heights{180, 100, 90, 80, 70} << large << QSize(340, 396);
        QTest::newRow("first step pays") << Heights{600, 400, 350, 320, 300} << large << QSize(440, 696);
        QTest::newRow("2nd and 4th pay") << Heights{900, 850, 700, 650, 500} << large << QSize(1040, 816);
        QTest::newRow("80% of a small screen")
            << Heights{6000, 4000, 3000, 2000, 1500} << QRect(0, 0, 1024, 600) << QSize(819, 480);
    }
    void choosingTheWidth() {
        QFETCH(Heights, heights);
        QFETCH(QRect, available);
        QTEST(HelpFit::FittedSize(heightsAt(heights), available), "size");
    }

    void explanationWindow_data() { // asked sizes are held within 350 x 250 to 2000 x 1600
        QTest::addColumn<QSize>("asked");
        QTest::addColumn<QSize>("size");
        QTest::newRow("as asked") << QSize(500, 270) << QSize(500, 270);
        QTest::newRow("raised to its minimum") << QSize(100, 100) << QSize(350, 250);
        QTest::newRow("held at its maximum") << QSize(2500, 1700) << QSize(2000, 1600);
        QTest::newRow("a zero side: fitted, then raised") << QSize(500, 0) << QSize(350, 250);
    }
    void explanationWindow() {
        QFETCH(QSize, asked);
        PeekingDialogs dialogs;
        winExplainHTML window;
        window.textHeight = heightsAt({17, 17, 17, 17, 17}); // one line, whatever the width
        window.PrepareAndShowWindow("<p>A</p><p> <i>X</i></p>", "Why", asked.width(), asked.height());
        QCOMPARE(dialogs.seen.value(0).title + ": " + dialogs.seen.value(0).shown, "Why: A\nX");
        QFETCH(QSize, size);
        QCOMPARE(dialogs.seen.value(0).geometry, placed(size));
    }

    // Done with Option held notes the window's size on the Desktop, for whoever sizes the records.
    void doneWritesSizeInfoWithOption_data() {
        QTest::addColumn<Qt::KeyboardModifiers>("keys");
        QTest::addColumn<QString>("written");
        QTest::newRow("Option") << (Qt::AltModifier | Qt::ShiftModifier)
                                << "Width: 523   Height: 311  Title: T";
        QTest::newRow("Shift") << Qt::KeyboardModifiers(Qt::ShiftModifier) << "<0 files>";
    }
    void doneWritesSizeInfoWithOption() {
        QFETCH(Qt::KeyboardModifiers, keys);
        ScriptedDialogs dialogs;
        const auto done = [keys](auto&& window) {
            TempHome fresh;
            window.resize(523, 311);
            window.setWindowTitle("T");
            window.pbDone_Pressed(keys);
            return window.result() == QDialog::Accepted ? desktopText(fresh, "WindowSizeInfo.txt") : "open";
        };
        QTEST(done(winHelp()), "written");
        QTEST(done(winHelpSimple()), "written");
    }

    // With the shift rule, only a click with Shift or Option opens help; the information mark always does.
    void labZorShiftRule() {
        ScriptedDialogs dialogs;
        labZor tip;
        labInfo info;
        tip.setID(26);
        info.setID(28);
        for (bool rule : {false, true}) {
            tip.setRequireShift(rule);
            for (auto keys : {Qt::NoModifier, Qt::ShiftModifier, Qt::AltModifier, Qt::ControlModifier}) {
                QTest::mouseClick(&tip, Qt::LeftButton, keys);
                QTest::mouseClick(&info, Qt::LeftButton, keys);
            }
        }
        QStringList titles;
        for (const auto& request : dialogs.requests)
            titles << request.title;
        QCOMPARE(titles.join(' '), "Tip Information Tip Information Tip Information Tip Information "
                                   "Information Tip Information Tip Information Information");
    }

    void labelHover() {
        QWidget window;
        auto* shortcut = new labZorVisible(&window); // rests empty, and shows its mark under the pointer
        shortcut->invisibleDefaultText = "*";
        shortcut->setFont(QFont(shortcut->font().family(), -1, QFont::Bold));
        shortcut->setEnterColor(QColor(0x941100));
        shortcut->setExitColor(QColor(0x945200)); // the resting colour shows at once
        QStringList shown{shortcut->textColor().name(), hover(shortcut, true), hover(shortcut, false)};
        shortcut->setText("k"); // a letter stays
        shown << hover(shortcut, true) << hover(shortcut, false);
        QCOMPARE(shown, (QStringList{"#945200", "* #941100", " #945200", "k #941100", "k #945200"}));
        QVERIFY(shortcut->font().bold()); // a label designed bold stays so
    }
};

QTEST_MAIN(tst_help)
#include "tst_help.moc"
