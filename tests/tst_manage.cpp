// The palette management windows: switching by list and by two typed digits, new palettes and
// renaming, with the alias rules they share.
#include "common/Program.h"
#include "help/HelpLabels.h"
#include "help/MessageCanvas.h"
#include "manage/ccPalettePreview.h"
#include "manage/winChangeAlias.h"
#include "manage/winDeletePalette.h"
#include "manage/winNewPalette.h"
#include "manage/winSwitchPalette.h"
#include "palette_window/MainMenuBar.h"
#include "palette_window/winMain.h"
#include "store/ZOR.h"

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

namespace {
const QString kActive = "You have asked  to change to the currently active palette. There is nothing to do.";

void freeSlots(const QList<int>& indexes) {
    for (int k : indexes) ZOR::DP[size_t(k)].s_Alias = kNoShortcut;
}

QStringList rows(const QTreeWidget& list) {
    QStringList out;
    for (int i = 0; i < list.topLevelItemCount(); ++i) out << list.topLevelItem(i)->text(0);
    return out;
}

void pressRow(QTreeWidget& list, int row) {
    const QRect cell = list.visualItemRect(list.topLevelItem(row));
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, cell.center());
}
} // namespace

class ManageTest : public QObject, ProgramFixture {
    Q_OBJECT

private slots:
    void init() { setUpProgram(); }
    void cleanup() { tearDownProgram(); }

    void menuItemsOpenTheirWindows() {
        winMain& w = startWith(2);
        MainMenuBar& bar = *w.mainMenuBar;
        for (QAction* item : {bar.miSwitchPalette, bar.miNewPalette, bar.miRenamePalette, bar.miDeletePalette})
            item->trigger();
        QCOMPARE(dialogs->texts(Dialogs::Kind::Message), QStringList());
        QStringList titles;
        for (const auto& r : dialogs->requests)
            if (r.kind == Dialogs::Kind::Window) titles << r.title;
        QCOMPARE(titles, QStringList({"ZOR Palette", "New Palette", "Change Name/Alias", "Delete Palette"}));
    }

    void helpButtonsShowTheirRecords() {
        startWith(2);
        winSwitchPalette s;
        winNewPalette n;
        winChangeAlias c;
        winDeletePalette d;
        for (QDialog* w : std::initializer_list<QDialog*>{&s, &n, &c, &d})
            QTest::mouseClick(w->findChildren<QPushButton*>(QRegularExpression("^pbHelp")).value(0), Qt::LeftButton);
        QStringList titles;
        for (const auto& r : dialogs->requests) titles << r.title;
        QCOMPARE(titles, QStringList({"Switch to Another Palette", "New Palette", "Rename Palette", "Delete Palette"}));
    }

    // Keys go to the list, which has the focus when the window opens and would take digits as a search.
    void typedDigits_data() {
        QTest::addColumn<QList<int>>("freed");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<int>("active");
        QTest::addColumn<bool>("closed");
        QTest::addColumn<QString>("pending");
        QTest::addColumn<QStringList>("messages");
        QTest::newRow("1 and 2 switch to P12") << QList<int>{} << "12" << 12 << true << "" << QStringList();
        QTest::newRow("a non-digit clears the first") << QList<int>{} << "1x2" << 0 << false << "2" << QStringList();
        QTest::newRow("a free slot") << QList<int>{3} << "03" << 0 << false << ""
                                     << QStringList{"The palette requested, P03, does not exist"};
        QTest::newRow("a slot never made") << QList<int>{} << "99" << 0 << false << ""
                                           << QStringList{"The palette requested, P99, does not exist"};
        QTest::newRow("the active palette's own number") << QList<int>{} << "00" << 0 << true << ""
                                                         << QStringList{kActive};
    }
    void typedDigits() {
        QFETCH(QList<int>, freed);
        QFETCH(QString, keys);
        winMain& main = startWith(13);
        freeSlots(freed);
        winSwitchPalette w;
        w.show();
        QTest::keyClicks(w.lbPalette, keys);
        QTEST(int(ZOR::idxCP), "active");
        QTEST(!w.isVisible(), "closed");
        QTEST(w.firstTyped, "pending");
        QTEST(w.labType->text(), "pending");
        QTEST(dialogs->texts(), "messages");
        QCOMPARE(main.windowTitle(), ZOR::paleWinTitle);
        QCOMPARE(main.labSeeNum->text(), ZOR::paleName);
    }

    void aPauseOverTwoSecondsStartsOver() {
        startWith(13);
        winSwitchPalette w;
        w.show();
        QTest::keyClick(w.pbCancel, Qt::Key_1);
        QCOMPARE(w.labType->text(), QString("1"));
        QVERIFY(w.tiBothDigits->isActive() && w.tiBothDigits->isSingleShot());
        QCOMPARE(w.tiBothDigits->interval(), 2000);
        w.tiBothDigits->setInterval(1); // restarts it: the two seconds run out at once
        QTRY_VERIFY(w.firstTyped.isEmpty());
        QCOMPARE(w.labType->text(), QString());
        QTest::keyClick(&w, Qt::Key_2);
        QCOMPARE(w.labType->text(), QString("2"));
        QCOMPARE(ZOR::idxCP, 0);
        QVERIFY(w.isVisible());
    }

    void rowsChooseAndOKSwitches() {
        startWith(4);
        freeSlots({1});
        ZOR::DP[2].s_WinTitle = "Writing";
        winSwitchPalette w;
        w.show();
        QCOMPARE(rows(*w.lbPalette), QStringList({"P00", "P02", "P03"}));
        QCOMPARE(w.labCurrentAlias->text(), QString("Original"));
        QCOMPARE(w.windowTitle(), QString("ZOR Palette"));
        QVERIFY(!w.pbOK->isEnabled());
        pressRow(*w.lbPalette, 1);
        QCOMPARE(QStringList({w.labChoiceName->text(), w.labChoiceAlias->text(), w.labChoiceTitle->text()}),
                 QStringList({"P02", ZOR::DP[2].s_Alias, "Writing"}));
        QVERIFY(w.pbOK->isEnabled());
        pressRow(*w.lbPalette, 0);
        QVERIFY(!w.pbOK->isEnabled());
        QCOMPARE(dialogs->texts(), QStringList{"This is the already chosen palette."});
        pressRow(*w.lbPalette, 2);
        QTest::mouseClick(w.pbOK, Qt::LeftButton);
        QCOMPARE(ZOR::idxCP, 3);
        QVERIFY(!w.isVisible());
    }

    // `window` new or rename; the active palette P00 is renamed, other palettes hold `inUse`.
    void aliasRules_data() {
        QTest::addColumn<QString>("window");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("inUse");
        QTest::addColumn<QString>("pattern");
        const QString thirty = "Thirty characters long alias";
        QTest::newRow("new: a digit first") << "new" << "3 Jobs" << QStringList() << "A3 Jobs";
        QTest::newRow("new: blanks run together") << "new" << "  My   Work " << QStringList() << "My Work";
        QTest::newRow("new: nothing but removed") << "new" << "(..)" << QStringList() << "[A-Z]{2}";
        QTest::newRow("new: empty") << "new" << "" << QStringList() << "[A-Z]{2}";
        QTest::newRow("new: case is no difference") << "new" << "WORK" << QStringList{"work"} << "WORK01";
        QTest::newRow("new: third try") << "new" << "Work" << QStringList{"work", "WORK01"} << "Work0102";
        QTest::newRow("new: keeps & and *") << "new" << "Work&Play*" << QStringList() << "Work&Play\\*";
        QTest::newRow("rename: drops & and *") << "rename" << "Work&Play*" << QStringList() << "WorkPlay";
        QTest::newRow("rename: cut to 23, then unique")
            << "rename" << "Thirty characters long alias" << QStringList{thirty.left(23)} << thirty.left(23) + "01";
        QTest::newRow("rename: an emoji is not split")
            << "rename" << QString(22, 'x') + "\U0001F600z" << QStringList() << QString(22, 'x');
    }
    void aliasRules() {
        QFETCH(QString, window);
        QFETCH(QString, typed);
        QFETCH(QStringList, inUse);
        QFETCH(QString, pattern);
        winMain& main = startWith(1 + int(inUse.size()));
        for (int k = 0; k < inUse.size(); ++k) ZOR::DP[size_t(k + 1)].s_Alias = inUse[k];
        if (window == "new") {
            winNewPalette w;
            w.tfAlias->setText(typed);
            QTest::mouseClick(w.pbOK, Qt::LeftButton);
        } else {
            winChangeAlias w;
            w.tfAlias->setText(typed);
            QTest::mouseClick(w.pbMakeChange, Qt::LeftButton);
        }
        const QString alias = ZOR::DP[size_t(ZOR::idxCP)].s_Alias;
        QVERIFY2(QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(alias).hasMatch(),
                 qPrintable(alias));
        QCOMPARE(ZOR::paleAlias, alias);
        QCOMPARE(main.labTip->text(), alias);
        QCOMPARE(dialogs->texts(), QStringList());
    }

    void newPalettesTakeTheLowestFreeSlot() {
        winMain& main = startWith(6);
        freeSlots({1, 3});
        ZOR::ChangeToPalette(2);
        ZOR::numRows = 4; // changed in the design window, so far only in the working set
        ZOR::paletteContentChange = true;
        QStringList made;
        for (const QString& alias : QStringList{"Mail", "Web", "Music"}) {
            winNewPalette w;
            w.tfAlias->setText(alias);
            QTest::mouseClick(w.pbOK, Qt::LeftButton);
            QCOMPARE(w.result(), int(QDialog::Accepted));
            QVERIFY(ZOR::aBtn == ZOR::DP[size_t(ZOR::idxCP)].a_Btn && ZOR::aBtn->size() == 100);
            made << ZOR::paleName + ' ' + main.windowTitle() + ' ' + main.labTip->text();
        }
        QCOMPARE(made, QStringList({"P01 ZOR P01 Mail", "P03 ZOR P03 Web", "P06 ZOR P06 Music"}));
        QCOMPARE(ZOR::DP.size(), size_t(7));
        QCOMPARE(ZOR::DP[2].i_NumRows, qint64(4));
        QVERIFY(ZOR::paletteContentChange);
    }

    void noPaletteBeyondP99() {
        startWith(100);
        winNewPalette w;
        w.show();
        w.tfAlias->setText("More");
        QTest::mouseClick(w.pbOK, Qt::LeftButton);
        QCOMPARE(dialogs->texts(), QStringList{winNewPalette::kAllInUse});
        QCOMPARE(ZOR::DP.size(), size_t(100));
        QCOMPARE(ZOR::idxCP, 0);
        QVERIFY(w.isVisible());
        freeSlots({57});
        QTest::mouseClick(w.pbOK, Qt::LeftButton);
        QCOMPARE(ZOR::paleName, QString("P57"));
        QCOMPARE(ZOR::DP.size(), size_t(100));
    }

    void renameTitles_data() {
        QTest::addColumn<QString>("alias");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("savedAlias");
        QTest::addColumn<QString>("savedTitle");
        QTest::addColumn<bool>("changed");
        QTest::newRow("nothing changed") << "Original" << "ZOR Palette" << "Original" << "ZOR Palette" << false;
        QTest::newRow("only the case of the alias") << "ORIGINAL" << "ZOR Palette" << "Original" << "ZOR Palette"
                                                    << false;
        QTest::newRow("only the title, cleaned") << "Original" << " 1st & (best)* " << "Original" << "A1st best"
                                                 << true;
        QTest::newRow("a title cut to 25") << "Mine" << QString(30, 'T') << "Mine" << QString(25, 'T') << true;
    }
    void renameTitles() {
        QFETCH(QString, alias);
        QFETCH(QString, title);
        winMain& main = startWith(2);
        winChangeAlias w;
        QCOMPARE(QStringList({w.labNameID->text(), w.tfAlias->text(), w.tfWinTitle->text()}),
                 QStringList({"P00", "Original", "ZOR Palette"}));
        w.tfAlias->setText(alias);
        w.tfWinTitle->setText(title); // never left: the rule runs at Accept Change
        QTest::mouseClick(w.pbMakeChange, Qt::LeftButton);
        QCOMPARE(w.result(), int(QDialog::Accepted));
        QTEST(ZOR::DP[0].s_Alias, "savedAlias");
        QTEST(ZOR::DP[0].s_WinTitle, "savedTitle");
        QTEST(main.windowTitle(), "savedTitle");
        QTEST(ZOR::paletteContentChange, "changed");
    }

    void titleRuleRunsWhenTheFieldLosesFocus() {
        startWith(1);
        winChangeAlias w;
        w.show();
        QApplication::setActiveWindow(&w);
        QVERIFY(QTest::qWaitForWindowActive(&w));
        w.tfWinTitle->setFocus();
        w.tfWinTitle->setText("[Home];");
        w.tfAlias->setFocus();
        QCOMPARE(w.tfWinTitle->text(), QString("Home"));
        QTest::mouseClick(w.pbCancel, Qt::LeftButton);
        QCOMPARE(ZOR::DP[0].s_WinTitle, QString("ZOR Palette"));
    }

    // Of the files below, only 00 and 12 give pictures; the cells fade away from the first.
    void previewShowsTheFirstPicturesFading() {
        startWith(1);
        QImage red(80, 80, QImage::Format_RGB32);
        red.fill(Qt::red);
        QByteArray png;
        QBuffer buffer(&png);
        red.save(&buffer, "PNG");
        for (const QString& name : QStringList{"00 first.png", "05a.png", "12b.png", ".12hidden.png", "1x.png", "01dir/a.png"})
            home->writeInProgram("ButtonPictures/P00/" + name, png);
        home->writeInProgram("ButtonPictures/P00/02 broken.png", "not a picture");
        winChangeAlias w;
        QList<bool> shown;
        for (const QPixmap& picture : w.preview->myPict) shown << !picture.isNull();
        QCOMPARE(shown, QList<bool>({true, false, false, false, false, true}));
        QCOMPARE(w.preview->findChild<QWidget*>("cnBut12")->geometry(), QRect(152, 76, 64, 64));
        const QColor background = w.palette().color(QPalette::Window);
        const QImage first = w.preview->cnBut[0]->grab().toImage(), last = w.preview->cnBut[5]->grab().toImage();
        QCOMPARE(first.pixelColor(63, 63), QColor(Qt::red)); // drawn at its own size, cut by the cell
        const QColor faded = last.pixelColor(10, 10);
        QVERIFY(qAbs(faded.red() - (255 * 10 + background.red() * 90) / 100) <= 2);
        QVERIFY(qAbs(faded.green() - background.green() * 90 / 100) <= 2);
    }
};

QTEST_MAIN(ManageTest)
#include "tst_manage.moc"
