// Deleting a palette: its pictures are kept whole on the Desktop, its slot is freed, P00 takes over.
#include "common/Program.h"
#include "help/HelpLabels.h"
#include "manage/ccPalettePreview.h"
#include "manage/winDeletePalette.h"
#include "manage/winNewPalette.h"
#include "palette_window/MainMenuBar.h"
#include "palette_window/winMain.h"
#include "store/ZOR.h"
#include "util/Clock.h"

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <nlohmann/json.hpp>

namespace {
const QString kRemoved = "RemovedZOR_PaletteButtonPictures";

// Every file below `folder`, hidden ones too, by its path inside it.
QMap<QString, QByteArray> filesBelow(const QString& folder) {
    QMap<QString, QByteArray> out;
    QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile f(it.next());
        f.open(QIODevice::ReadOnly);
        out.insert(QDir(folder).relativeFilePath(f.fileName()), f.readAll());
    }
    return out;
}

// Real pictures, a Finder file, a folder and an odd name; `mark` makes every byte string its own.
void fillPictureFolder(const TempHome& home, const QString& palette, const QString& mark) {
    for (const QString& name : QStringList{"00 mail.png", "12.png", ".DS_Store", "old/07.png", "notes émoji 😀.txt"}) {
        QByteArray bytes = (mark + name).toUtf8();
        if (name.endsWith(".png")) {
            QImage picture(64, 64, QImage::Format_RGB32);
            picture.fill(Qt::blue);
            picture.setText("mark", mark + name);
            QBuffer buffer(&bytes);
            picture.save(&buffer, "PNG");
        }
        home.writeInProgram("ButtonPictures/" + palette + '/' + name, bytes);
    }
}
} // namespace

class ManageDeleteTest : public QObject, ProgramFixture {
    Q_OBJECT

    QString pictures(const QString& palette) const { return home->programFolder() + "/ButtonPictures/" + palette; }
    QString removed() const { return home->desktop() + '/' + kRemoved; }

    // Opens the delete window on the active palette and presses Delete.
    bool pressDelete() {
        winDeletePalette w;
        w.show();
        QTest::mouseClick(w.pbDelete, Qt::LeftButton);
        return w.result() == QDialog::Accepted && !w.isVisible();
    }

private slots:
    void init() { setUpProgram(); }
    void cleanup() {
        Clock::reset();
        tearDownProgram();
    }

    void picturesMoveWholeAndTheSlotIsFreed() {
        winMain& main = startWith(4);
        ZOR::ChangeToPalette(3);
        const QString alias = ZOR::paleAlias;
        fillPictureFolder(*home, "P03", "first ");
        const auto before = filesBelow(pictures("P03"));
        {
            winDeletePalette w;
            QCOMPARE(QStringList({w.labNameID->text(), w.labNameAlias->text(), w.labWindowTitle->text()}),
                     QStringList({"P03", alias, "ZOR P03"}));
            QVERIFY(!w.preview->myPict[0].isNull());
        }
        dialogs->queueOK(true);
        QVERIFY(pressDelete());
        QCOMPARE(dialogs->requests.first().kind, Dialogs::Kind::OKCancel);
        QCOMPARE(dialogs->requests.first().title, QString("OK or Cancel"));
        QCOMPARE(dialogs->texts(), QStringList{winDeletePalette::kConfirm});
        QCOMPARE(filesBelow(removed() + "/P03"), before);
        QVERIFY(!QDir(pictures("P03")).exists());

        QCOMPARE(ZOR::DP.size(), size_t(4));
        QCOMPARE(ZOR::DP[3].s_Alias, kNoShortcut);
        QCOMPARE(ZOR::DP[3].s_Name, QString("P03"));
        QVERIFY(!ZOR::IsPaletteExistant(3));
        QCOMPARE(ZOR::idxCP, 0);
        QVERIFY(ZOR::aBtn == ZOR::DP[0].a_Btn);
        QCOMPARE(QStringList({main.windowTitle(), main.labTip->text(), main.labSeeNum->text()}),
                 QStringList({"ZOR Palette", "Original", "P00"}));
        main.Event_MenuBarSelected();
        QAction* item = main.mainMenuBar->miPalette[3];
        QVERIFY(!item->isEnabled());
        QCOMPARE(item->text(), "P03     " + alias);

        // The next new palette takes P03 again; its pictures, deleted in turn, go beside the first.
        winNewPalette made;
        made.tfAlias->setText("Again");
        QTest::mouseClick(made.pbOK, Qt::LeftButton);
        QCOMPARE(ZOR::paleName, QString("P03"));
        fillPictureFolder(*home, "P03", "second ");
        const auto later = filesBelow(pictures("P03"));
        Clock::set(QDateTime(QDate(2026, 11, 23), QTime(9, 8, 7)));
        dialogs->queueOK(true);
        QVERIFY(pressDelete());
        QCOMPARE(filesBelow(removed() + "/P03"), before);
        QCOMPARE(filesBelow(removed() + "/261123_090807P03/P03"), later);
        QCOMPARE(QDir(removed()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList({"261123_090807P03", "P03"}));
        QCOMPARE(dialogs->unexpected, QStringList());
    }

    void whatStaysAndWhatGoes_data() {
        QTest::addColumn<int>("active");
        QTest::addColumn<QString>("folder"); // files, hidden (only a Finder file), empty, none
        QTest::addColumn<bool>("answer");
        QTest::addColumn<bool>("deleted");
        QTest::addColumn<QStringList>("messages");
        QTest::newRow("P00 is refused before the question")
            << 0 << "files" << false << false << QStringList{winDeletePalette::kKeepP00};
        QTest::newRow("Cancel at the question") << 1 << "files" << false << false
                                                << QStringList{winDeletePalette::kConfirm};
        QTest::newRow("an empty folder is removed") << 1 << "empty" << true << true
                                                    << QStringList{winDeletePalette::kConfirm};
        QTest::newRow("a Finder file alone is kept") << 1 << "hidden" << true << true
                                                     << QStringList{winDeletePalette::kConfirm};
        QTest::newRow("no folder at all") << 1 << "none" << true << true << QStringList{winDeletePalette::kConfirm};
    }
    void whatStaysAndWhatGoes() {
        QFETCH(int, active);
        QFETCH(QString, folder);
        QFETCH(bool, answer);
        QFETCH(bool, deleted);
        startWith(2);
        if (active) ZOR::ChangeToPalette(active);
        const QString name = ZOR::paleName, alias = ZOR::paleAlias;
        if (folder == "files") fillPictureFolder(*home, name, "");
        if (folder == "empty") QDir().mkpath(pictures(name));
        if (folder == "hidden") home->writeInProgram("ButtonPictures/" + name + "/.DS_Store", "Finder");
        const auto before = filesBelow(pictures(name));
        if (active) dialogs->queueOK(answer);
        QCOMPARE(pressDelete(), deleted);
        QTEST(dialogs->texts(), "messages");
        QCOMPARE(ZOR::idxCP, deleted ? 0 : active);
        QCOMPARE(ZOR::DP[size_t(active)].s_Alias, deleted ? kNoShortcut : alias);
        QCOMPARE(QDir(pictures(name)).exists(), folder != "none" && !deleted);
        const bool aside = deleted && folder == "hidden";
        QCOMPARE(filesBelow(aside ? removed() + '/' + name : pictures(name)), before);
        QCOMPARE(QDir(removed()).exists(), aside);
    }

    // An older or hand-edited file may have freed P00: it still starts there, and a new palette takes it.
    void aFreeP00StillStarts() {
        const QString path = writeStoreFile(3);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        auto data = nlohmann::ordered_json::parse(file.readAll().toStdString());
        file.close();
        data[1 + 100]["paleAlias"] = "\u2400";
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(QByteArray::fromStdString(data.dump()));
        file.close();
        winMain& main = program->start();
        QCOMPARE(ZOR::idxCP, 0);
        QCOMPARE(main.windowTitle(), QString("ZOR Palette"));
        QCOMPARE(dialogs->texts(), QStringList());
        winNewPalette w;
        w.tfAlias->setText("Home");
        QTest::mouseClick(w.pbOK, Qt::LeftButton);
        QCOMPARE(ZOR::paleName + ' ' + ZOR::DP[0].s_Alias, QString("P00 Home"));
    }
};

QTEST_MAIN(ManageDeleteTest)
#include "tst_manage_delete.moc"
