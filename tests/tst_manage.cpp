// Palette management: switching by list and by digits, new palettes, renaming, deleting.
#include "help/ErrorHandling.h"
#include "help/MessageCanvas.h"
#include "manage/ccPalettePreview.h"
#include "manage/winChangeAlias.h"
#include "manage/winDeletePalette.h"
#include "manage/winNewPalette.h"
#include "manage/winSwitchPalette.h"
#include "tst_windows.h"

namespace {
const QString kNoSuch = "The palette requested, P%1, does not exist";
const QString kActive = "You have asked  to change to the currently active palette. There is nothing to do.";

// Every file below `folder`, hidden ones too, by its path inside it.
QMap<QString, QByteArray> filesBelow(const QString& folder) {
    QMap<QString, QByteArray> out;
    for (QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); it.hasNext();) {
        QFile f(it.next());
        f.open(QIODevice::ReadOnly);
        out.insert(QDir(folder).relativeFilePath(f.fileName()), f.readAll());
    }
    return out;
}
} // namespace

class ManageTest : public WindowTest {
    Q_OBJECT

    QString pictures(const QString& palette) const {
        return home->programFolder() + "/ButtonPictures/" + palette;
    }
    QString removed() const { return home->desktop() + "/RemovedZOR_PaletteButtonPictures"; }

    // Pictures, a Finder file, a folder and an odd name; the colour tells one filling from another.
    void fillPictures(const QString& folder, QColor colour) {
        const QString inHome = QDir(home->home()).relativeFilePath(folder) + '/';
        for (const QString& name : QStringList{"00 mail.png", "12.png", "old/07.png"})
            home->write(inHome + name, picture(80, 80, colour));
        for (const QString& name : QStringList{".DS_Store", "notes émoji 😀.txt"})
            home->write(inHome + name, (colour.name() + name).toUtf8());
    }

    bool pressDelete() {
        winDeletePalette w;
        w.show();
        QTest::mouseClick(w.pbDelete, Qt::LeftButton);
        return w.result() == QDialog::Accepted && !w.isVisible();
    }

private slots:
    // Keys go to the list, which has the focus and would search on digits. "|" is a pause of 2 s.
    // Keyboard Maestro types Cmd+P and two digits at once: those the system still hands to the palette
    // window reach the switch window in the order typed. "^" is Cmd+1 to the palette window behind it.
    void typedDigits_data() {
        QTest::addColumn<bool>("toPalette"); // the keys go to the palette window
        QTest::addColumn<QString>("keys");
        QTest::addColumn<int>("active");
        QTest::addColumn<bool>("closed");
        QTest::addColumn<QString>("pending");
        QTest::addColumn<QStringList>("messages");
        // clang-format off
        QTest::newRow("1 and 2 switch to P12") << false << "12" << 12 << true << "" << QStringList();
        QTest::newRow("a non-digit clears the first") << false << "1x2" << 0 << false << "2" << QStringList();
        QTest::newRow("a pause clears the first") << false << "1|2" << 0 << false << "2" << QStringList();
        QTest::newRow("a free slot") << false << "03" << 0 << false << "" << QStringList{kNoSuch.arg("03")};
        QTest::newRow("a slot never made") << false << "99" << 0 << false << "" << QStringList{kNoSuch.arg("99")};
        QTest::newRow("the active palette's own number") << false << "00" << 0 << true << "" << QStringList{kActive};
        QTest::newRow("palette window: 1 2 lands on P12") << true << "12" << 12 << true << "" << QStringList();
        QTest::newRow("palette window: 2 1 lands on P21") << true << "21" << 21 << true << "" << QStringList();
        QTest::newRow("palette window: Escape closes, switches nothing") << true << "1\x1b" << 0 << true << "1" << QStringList();
        QTest::newRow("palette window: Cmd+1 behind it switches nothing") << true << "^" << 0 << false << "" << QStringList();
        // clang-format on
    }
    void typedDigits() {
        QFETCH(bool, toPalette);
        QFETCH(QString, keys);
        QFETCH(QString, pending);
        winMain& palette = startWith(22);
        ZOR::DP[3].s_Alias = kNoShortcut;
        winSwitchPalette w;
        w.show();
        for (QChar key : keys) {
            if (key == '^') QTest::keyClick(&palette, Qt::Key_1, Qt::ControlModifier);
            else if (toPalette) QTest::keyClick(&palette, key == '\x1b' ? Qt::Key_Escape : Qt::Key(key.unicode()));
            else if (key != '|') QTest::keyClick(w.lbPalette, key.toLatin1());
            else {
                w.tiBothDigits->setInterval(1); // restarts it: the two seconds run out at once
                QTRY_VERIFY(!w.tiBothDigits->isActive());
            }
        }
        QTEST(int(ZOR::idxCP), "active");
        QTEST(!w.isVisible(), "closed");
        QCOMPARE(QStringList({w.firstTyped, w.labType->text()}), QStringList({pending, pending}));
        QTEST(dialogs->texts(), "messages");
        QCOMPARE(dialogs->beeps(), 0);
    }

    // Presses on the list and OK, checked against all the window shows: both columns of the list
    // (its first and last rows, and how many), the labels, OK, and the palette active afterwards.
    // Every palette is named by its number ("Pal 02"), P01 is free and P02 is titled "Writing".
    void switchScenarios_data() {
        QTest::addColumn<int>("palettes");
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QStringList>("shown");
        QTest::addColumn<QStringList>("messages");
        QTest::addColumn<int>("active");
        const QString again = "This is the already chosen palette.";
        // clang-format off
        QTest::newRow("nothing pressed") << 4 << "" << QStringList{"rows=3: P00:0|Pal 00 .. P03:3|Pal 03", "choice=||", "OK=off", "open=yes"} << QStringList() << 0;
        QTest::newRow("another palette") << 4 << "press 1" << QStringList{"rows=3: P00:0|Pal 00 .. P03:3|Pal 03", "choice=P02|Pal 02|Writing", "OK=on", "open=yes"} << QStringList() << 0;
        QTest::newRow("another, then the active one") << 4 << "press 1; press 0" << QStringList{"rows=3: P00:0|Pal 00 .. P03:3|Pal 03", "choice=P00|Pal 00|ZOR Palette", "OK=off", "open=yes"} << QStringList{again} << 0;
        QTest::newRow("the last row, OK") << 4 << "press 2; OK" << QStringList{"rows=3: P00:0|Pal 00 .. P03:3|Pal 03", "choice=P03|Pal 03|ZOR P03", "OK=on", "open=no"} << QStringList() << 3;
        QTest::newRow("100 palettes: the 100th, OK") << 100 << "press 98; OK" << QStringList{"rows=99: P00:0|Pal 00 .. P99:99|Pal 99", "choice=P99|Pal 99|ZOR P99", "OK=on", "open=no"} << QStringList() << 99;
        QTest::newRow("one palette in use") << 1 << "press 0" << QStringList{"rows=1: P00:0|Pal 00 .. P00:0|Pal 00", "choice=P00|Pal 00|ZOR Palette", "OK=off", "open=yes"} << QStringList{again} << 0;
        // clang-format on
    }
    void switchScenarios() {
        QFETCH(int, palettes);
        QFETCH(QString, steps);
        QFETCH(QStringList, shown);
        startWith(palettes);
        for (size_t k = 0; k < ZOR::DP.size(); ++k)
            ZOR::DP[k].s_Alias = QString::asprintf("Pal %02d", int(k));
        if (palettes > 1) ZOR::DP[1].s_Alias = kNoShortcut, ZOR::DP[2].s_WinTitle = "Writing";
        ZOR::paleAlias = ZOR::DP[0].s_Alias;
        winSwitchPalette w;
        w.show();
        for (const QString& step : steps.split("; ", Qt::SkipEmptyParts))
            step == "OK" ? QTest::mouseClick(w.pbOK, Qt::LeftButton) : pressRow(w.lbPalette, step.mid(6).toInt());
        const QStringList all = rows(w.lbPalette, {0, 1});
        QStringList seen{"current=" + w.labCurrentAlias->text(), "title=" + w.windowTitle(),
                         "rows=" + QString::number(all.size()) + ": " + all.first() + " .. " + all.last(),
                         "choice=" + w.labChoiceName->text() + '|' + w.labChoiceAlias->text() + '|' +
                             w.labChoiceTitle->text(),
                         QString("OK=") + (w.pbOK->isEnabled() ? "on" : "off"),
                         QString("open=") + (w.isVisible() ? "yes" : "no"), "typed=" + w.labType->text()};
        QCOMPARE(seen, QStringList({"current=Pal 00", "title=Switch Palette"}) + shown + QStringList{"typed="});
        QTEST(dialogs->texts(), "messages");
        QTEST(int(ZOR::idxCP), "active");
    }

    // A new palette takes the alias, or the active palette P00 is renamed; other palettes hold `inUse`.
    void aliasRules_data() {
        QTest::addColumn<bool>("rename");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("inUse");
        QTest::addColumn<QString>("pattern");
        const QString thirty = "Thirty characters long alias";
        QTest::newRow("a digit first") << false << "3 Jobs" << QStringList() << "A3 Jobs";
        QTest::newRow("blanks run together") << false << "  My   Work " << QStringList() << "My Work";
        QTest::newRow("nothing but removed") << false << "(..)" << QStringList() << "[A-Z]{2}";
        QTest::newRow("case is no difference") << false << "WORK" << QStringList{"work"} << "WORK01";
        QTest::newRow("third try") << false << "Work" << QStringList{"work", "WORK01"} << "Work0102";
        QTest::newRow("new keeps a long alias whole") << false << QString(60, 'L') + "\U0001F600" << QStringList() << QString(60, 'L') + "\U0001F600";
        QTest::newRow("new keeps & and *") << false << "Work&Play*" << QStringList() << "Work&Play\\*";
        QTest::newRow("rename drops & and *") << true << "Work&Play*" << QStringList() << "WorkPlay";
        QTest::newRow("rename cuts to 23, then makes unique")
            << true << thirty << QStringList{thirty.left(23)} << thirty.left(23) + "01";
        QTest::newRow("an emoji is one character")
            << true << QString(22, 'x') + "\U0001F600z" << QStringList() << QString(22, 'x') + "\U0001F600";
    }
    void aliasRules() {
        QFETCH(bool, rename);
        QFETCH(QString, typed);
        QFETCH(QStringList, inUse);
        QFETCH(QString, pattern);
        winMain& main = startWith(1 + int(inUse.size()));
        for (int k = 0; k < inUse.size(); ++k)
            ZOR::DP[size_t(k + 1)].s_Alias = inUse[k];
        winNewPalette made;
        winChangeAlias renamed;
        (rename ? renamed.tfAlias : made.tfAlias)->setText(typed);
        QTest::mouseClick(rename ? renamed.pbMakeChange : made.pbOK, Qt::LeftButton);
        const QString alias = ZOR::DP[size_t(ZOR::idxCP)].s_Alias;
        QVERIFY2(QRegularExpression("^" + pattern + "$").match(alias).hasMatch(), qPrintable(alias));
        QCOMPARE(QStringList({ZOR::paleAlias, main.labTip->text()}) + dialogs->texts(), QStringList({alias, alias}));
    }

    // Free slots are taken lowest first; with none left among P00 to P99 a new palette is refused.
    void newPalettesTakeTheLowestFreeSlot() {
        winMain& main = startWith(100);
        ZOR::DP[1].s_Alias = ZOR::DP[3].s_Alias = kNoShortcut;
        ZOR::ChangeToPalette(2);
        ZOR::numRows = 4; // changed in the design window, so far only in the working set
        ZOR::paletteContentChange = true;
        QStringList made, proposed;
        for (const QString& alias : QStringList{"Mail", "Web", "Music"}) {
            winNewPalette w;
            w.show();
            proposed << w.tfAlias->text();
            w.tfAlias->setText(alias);
            QTest::mouseClick(w.pbOK, Qt::LeftButton);
            made << (w.isVisible() ? "refused"
                                   : ZOR::paleName + ' ' + main.windowTitle() + ' ' + main.labTip->text());
        }
        QCOMPARE(made, QStringList({"P01 ZOR P01 Mail", "P03 ZOR P03 Web", "refused"}));
        QCOMPARE(proposed.mid(0, 2), QStringList({"Palette 01", "Palette 03"})); // named by the number it takes
        QCOMPARE(dialogs->texts(), QStringList{winNewPalette::kAllInUse});
        // P02's rows kept, and the active palette is the very array of its slot.
        QCOMPARE(QList<qint64>({qint64(ZOR::DP.size()), ZOR::DP[2].i_NumRows, ZOR::paletteContentChange, ZOR::idxCP,
                                ZOR::aBtn == ZOR::DP[3].a_Btn}),
                 QList<qint64>({100, 4, 1, 3, 1}));
    }

    void renameTitles_data() {
        QTest::addColumn<QString>("stored"); // the alias before
        QTest::addColumn<QString>("alias");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QStringList>("saved"); // alias, title
        QTest::addColumn<bool>("changed");
        const QStringList same{"Original", "ZOR Palette"};
        const QString made = "A long alias that New Palette made, longer than a rename makes it 🖋";
        // clang-format off
        QTest::newRow("nothing changed") << "Original" << "Original" << "ZOR Palette" << same << false;
        QTest::newRow("only the case of the alias") << "Original" << "ORIGINAL" << "ZOR Palette" << same << false;
        QTest::newRow("only the title, cleaned") << "Original" << "Original" << " 1st & (best)* " << QStringList{"Original", "A1st best"} << true;
        QTest::newRow("a title cut to 25") << "Original" << "Mine" << QString(30, 'T') << QStringList{"Mine", QString(25, 'T')} << true;
        QTest::newRow("a long alias accepted as it stands") << made << made << "ZOR Palette" << QStringList{made, "ZOR Palette"} << false;
        // clang-format on
    }
    void renameTitles() {
        QFETCH(QString, stored);
        QFETCH(QString, alias);
        QFETCH(QString, title);
        QFETCH(QStringList, saved);
        winMain& main = startWith(2);
        ZOR::DP[0].s_Alias = ZOR::paleAlias = stored;
        winChangeAlias w;
        QCOMPARE(QStringList({w.labNameID->text(), w.tfAlias->text(), w.tfWinTitle->text()}),
                 QStringList({"P00", stored, "ZOR Palette"}));
        w.tfAlias->setText(alias);
        w.tfWinTitle->setText(title); // never left: the rule runs at Accept Change
        QTest::mouseClick(w.pbMakeChange, Qt::LeftButton);
        QCOMPARE(w.result(), int(QDialog::Accepted));
        QCOMPARE(QStringList({ZOR::DP[0].s_Alias, ZOR::DP[0].s_WinTitle, main.windowTitle()}), saved << saved[1]);
        QTEST(ZOR::paletteContentChange, "changed");
    }

    // A palette's alias and title are shown whole where they fit, else cut at their end with "…" and
    // whole in their tooltips: in the switch window (current, choice, its title) and the delete window.
    void longTextsAreCutWithTheirWholeInTooltips_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("shown");
        const QString cut = "cut, whole in its tooltip";
        QTest::newRow("short") << "Mail" << QStringList(5, "whole");
        QTest::newRow("23 characters") << "Photoshop Actions Set 2" << QStringList({cut, "whole", "whole", "whole", "whole"});
        for (const auto& [name, emoji] : {std::pair("long, with a family emoji", kFamily),
                                           std::pair("long, with a camera emoji", QString::fromUtf8("\xF0\x9F\x93\xB8"))})
            QTest::newRow(name) << "Photoshop Actions Set 2 " + emoji + " for the quarterly reports of the northern region"
                                << QStringList(5, cut);
    }
    void longTextsAreCutWithTheirWholeInTooltips() {
        QFETCH(QString, text);
        startWith(2);
        for (size_t p : {0, 1})
            ZOR::DP[p].s_Alias = ZOR::DP[p].s_WinTitle = text;
        ZOR::ChangeToPalette(1);
        winSwitchPalette switchTo;
        switchTo.show();
        pressRow(switchTo.lbPalette, 0);
        QCOMPARE(switchTo.lbPalette->topLevelItem(0)->toolTip(1), text);
        winDeletePalette deleting;
        QStringList shown;
        for (QLabel* label : {switchTo.labCurrentAlias, switchTo.labChoiceAlias, switchTo.labChoiceTitle,
                              deleting.labNameAlias, deleting.labWindowTitle}) {
            shown << fitted(label, text);
            QVERIFY2(text.startsWith(label->text().chopped(label->toolTip().isEmpty() ? 0 : 1)), qPrintable(label->text()));
        }
        QTEST(shown, "shown");
    }

    // The export's explanation shows its last paragraph without scrolling; a failure report shows
    // a long path whole, wrapped within its window.
    void exportAndReportShowWholeTexts() {
        startWith(1);
        QList<bool> whole;
        dialogs->onWindow = [&](QDialog& window) {
            window.show(); // laid out as the user sees it
            const auto* viewer = qobject_cast<QTextEdit*>(window.findChild<QAbstractScrollArea*>());
            whole << (viewer && viewer->verticalScrollBar()->maximum() == 0 &&
                      viewer->horizontalScrollBar()->maximum() == 0);
            window.hide();
        };
        QVERIFY(ZOR::paletteDataToDesktop());
        ErrorHandling::HandleException(
            std::runtime_error(
                ("Could not make the folder " + home->desktop() + '/' + QString(240, 'P')).toStdString()),
            "ZOR.paletteDataToDesktop\nMODULE: ZOR\nMETHOD: paletteDataToDesktop");
        QCOMPARE(dialogs->titles(), QStringList({"Explanation", "Oops! Error Message"}));
        QCOMPARE(whole, QList<bool>({true, true}));
    }

    // Of the files below, only 00 and 12 give pictures; the cells fade away from the first.
    void previewShowsTheFirstPicturesFading() {
        startWith(1);
        for (const QString& name :
             QStringList{"00 first.png", "05a.png", "12b.png", ".12hidden.png", "1x.png", "01dir/a.png"})
            home->writeInProgram("ButtonPictures/P00/" + name, picture(80, 80));
        home->writeInProgram("ButtonPictures/P00/02 broken.png", "not a picture");
        winChangeAlias w;
        QList<bool> shown;
        for (const QPixmap& picture : w.preview->myPict)
            shown << !picture.isNull();
        QCOMPARE(shown, QList<bool>({true, false, false, false, false, true}));
        QCOMPARE(w.preview->cnBut[0]->grab().toImage().pixelColor(63, 63), QColor(Qt::red)); // cut by the cell
        const int faded = w.preview->cnBut[5]->grab().toImage().pixelColor(10, 10).red();
        QVERIFY(qAbs(faded - (255 * 10 + w.palette().color(QPalette::Window).red() * 90) / 100) <= 2);
    }

    void deleteKeepsEveryPictureAndFreesTheSlot() {
        winMain& main = startWith(4);
        ZOR::ChangeToPalette(3);
        fillPictures(pictures("P03"), Qt::blue);
        {
            winDeletePalette w;
            QCOMPARE(QStringList({w.labNameID->text(), w.labNameAlias->text(), w.labWindowTitle->text()}),
                     QStringList({"P03", ZOR::paleAlias, "ZOR P03"}));
            QVERIFY(!w.preview->myPict[0].isNull());
        }
        // The pictures of an earlier P03 stay; these go beside them.
        fillPictures(removed() + "/P03", Qt::green);
        QMap<QString, QByteArray> all = filesBelow(removed());
        for (auto [path, bytes] : filesBelow(pictures("P03")).asKeyValueRange())
            all.insert("261123_090807P03/P03/" + path, bytes);
        Clock::set(QDateTime(QDate(2026, 11, 23), QTime(9, 8, 7)));
        dialogs->queueOK(true);
        QVERIFY(pressDelete());
        QCOMPARE(dialogs->requests.first().kind, Dialogs::Kind::OKCancel);
        QCOMPARE(filesBelow(removed()), all);
        QCOMPARE(QList<bool>({QDir(pictures("P03")).exists(), ZOR::DP.size() == 4, ZOR::aBtn == ZOR::DP[0].a_Btn}),
                 QList<bool>({false, true, true}));
        QCOMPARE(QStringList({main.windowTitle(), main.labTip->text(), main.labSeeNum->text()}),
                 QStringList({"ZOR Palette", "Original", "P00"}));

        // Then a new palette: it takes the freed P03 afresh, with none of the old pictures.
        const QStringList fresh = storeLines(home->programFolder() + "/PreserveState.txt").filter(QRegularExpression("^P03 \\d\\d "));
        winNewPalette made;
        made.tfAlias->setText("Again");
        QTest::mouseClick(made.pbOK, Qt::LeftButton);
        QCOMPARE(QStringList({ZOR::paleName, main.windowTitle(), main.labTip->text()}), QStringList({"P03", "ZOR P03", "Again"}));
        QVERIFY(!QDir(pictures("P03")).exists());
        const QStringList saved = storeLines(home->programFolder() + "/PreserveState.txt"); // at once
        QCOMPARE(saved.filter(QRegularExpression("^P03 \\d\\d ")), fresh);
        QVERIFY(saved.contains("P03 paleAlias=Again"));
    }

    void deleteRefusesCancelsAndTidies_data() {
        QTest::addColumn<int>("active");
        QTest::addColumn<QString>("folder"); // files, finder (a Finder file alone), empty, none
        QTest::addColumn<bool>("answer");
        QTest::addColumn<QStringList>("messages");
        const QStringList asked{winDeletePalette::kConfirm};
        QTest::newRow("P00 is refused before the question")
            << 0 << "files" << false << QStringList{winDeletePalette::kKeepP00};
        QTest::newRow("Cancel at the question") << 1 << "files" << false << asked;
        QTest::newRow("pictures go to the Desktop") << 1 << "files" << true << asked;
        QTest::newRow("a Finder file alone is kept") << 1 << "finder" << true << asked;
        QTest::newRow("an empty folder is removed") << 1 << "empty" << true << asked;
        QTest::newRow("no folder at all") << 1 << "none" << true << asked;
    }
    void deleteRefusesCancelsAndTidies() {
        QFETCH(int, active);
        QFETCH(QString, folder);
        QFETCH(bool, answer);
        startWith(2);
        ZOR::ChangeToPalette(active);
        const QString name = ZOR::paleName, alias = ZOR::paleAlias;
        if (folder == "files") fillPictures(pictures(name), Qt::blue);
        if (folder == "finder") home->writeInProgram("ButtonPictures/" + name + "/.DS_Store", "Finder");
        if (folder == "empty") QDir().mkpath(pictures(name));
        const auto before = filesBelow(pictures(name));
        dialogs->queueOK(answer);
        dialogs->clear();
        QCOMPARE(pressDelete(), answer);
        QTEST(dialogs->texts(), "messages");
        QCOMPARE(dialogs->questions(), active ? QStringList{winDeletePalette::kConfirm + " → Cancel"} : QStringList());
        QCOMPARE(ZOR::idxCP, answer ? 0 : active);
        QCOMPARE(ZOR::DP[size_t(active)].s_Alias, answer ? kNoShortcut : alias);
        QCOMPARE(QDir(pictures(name)).exists(), folder != "none" && !answer);
        const bool aside = answer && (folder == "finder" || folder == "files");
        QCOMPARE(filesBelow(aside ? removed() + '/' + name : pictures(name)), before);
        QCOMPARE(QDir(removed()).exists(), aside);
    }

    // An older or hand-edited file may have freed P00: it still starts there, and a new palette takes it.
    void aFreeP00StillStarts() {
        QFile file(writeStoreFile(3));
        QVERIFY(file.open(QIODevice::ReadWrite));
        const QByteArray text = file.readAll().replace("\"Original\"", "\"\\u2400\"");
        file.resize(0), file.write(text), file.close();
        winMain& main = program->start();
        QCOMPARE(QStringList({QString::number(ZOR::idxCP), ZOR::DP[0].s_Alias, main.windowTitle()}) + dialogs->texts(),
                 QStringList({"0", kNoShortcut, "ZOR Palette"}));
        winNewPalette w;
        w.tfAlias->setText("Home");
        QTest::mouseClick(w.pbOK, Qt::LeftButton);
        QCOMPARE(ZOR::paleName + ' ' + ZOR::DP[0].s_Alias, QString("P00 Home"));
    }

    // Alias and title take 30 characters each, an emoji counted as one.
    void renameFieldsHoldThirtyCharacters() {
        startWith(1);
        winChangeAlias w;
        for (QLineEdit* field : {w.tfAlias, w.tfWinTitle}) {
            field->clear();
            for (int i = 0; i < 31; ++i)
                type(field, kFamily);
            QCOMPARE(field->text(), kFamily.repeated(30));
        }
    }
};

QTEST_MAIN(ManageTest)
#include "tst_manage.moc"
