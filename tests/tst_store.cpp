// The palette store: records, the data file, start-up and the saving quit.
#include "assets/winButtonPics.h"
#include "common/LockedFolder.h"
#include "design/ccGC.h"
#include "design/winConstruct.h"
#include "manage/winChangeAlias.h"
#include "manage/winDeletePalette.h"
#include "manage/winNewPalette.h"
#include "pictures/PictureImport.h"
#include "tst_windows.h"
#include "util/ZorError.h"
#include "json/JsonText.h"

#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <sys/stat.h>

using ordered_json = nlohmann::ordered_json;

namespace {
// A disk of 256 KB (a tmpfs) on a folder for the life of the object, where the system lets the
// test mount one.
class SmallDisk {
    const QString at;
    const bool ok;

public:
    explicit SmallDisk(QString folder)
        : at((QDir().mkpath(folder), folder)),
          ok(QProcess::execute("mount", {"-t", "tmpfs", "-o", "size=256k", "tmpfs", at}) == 0) {}
    ~SmallDisk() {
        if (ok) QProcess::execute("umount", {"-l", at});
    }
    SmallDisk(const SmallDisk&) = delete;
    bool mounted() const { return ok; }
    void fill() const {
        QFile filler(at + "/filler");
        const QByteArray block(4096, 'f');
        while (filler.isOpen() || filler.open(QIODevice::WriteOnly))
            if (filler.write(block) != block.size() || !filler.flush()) return;
    }
};

// An older file of two palettes: the buttons lack `absent` keys, the palettes maybe paleParticulars.
QByteArray olderFile(const QStringList& absent, bool withParticulars) {
    ordered_json file = ordered_json::array();
    file.push_back({{"LastPaletteIndex", 1}, {"CurrentPalette", 0}, {"WinTop", 0}, {"WinLeft", 0},
                    {"WinHeight", 0}, {"WinWidth", 0}});
    for (int p = 0; p < 2; ++p) {
        for (int i = 0; i < 100; ++i) {
            ordered_json b = {{"sID", QString::asprintf("%02d", i).toStdString()}, {"Shortcut", "a"}, {"Tip", ""}, {"Info", ""}, {"ShortcutShow", false},
                              {"Vis", true}, {"ASfile", ""}, {"SCname", i == 1 ? "Mail" : ""}, {"AutoMin", 0},
                              {"Clipbrd", 0}, {"PaletteGo", ""}, {"KM_Active", false}};
            for (const QString& key : absent) b.erase(key.toStdString());
            file.push_back(b);
        }
        ordered_json pal = {{"numRows", 3}, {"numColumns", 4}, {"paleName", p ? "P01" : "P00"},
                            {"paleAlias", "Old"}, {"paleWinTitle", "Old title"}};
        if (withParticulars) pal["paleParticulars"] = "kept";
        file.push_back(pal);
    }
    return QByteArray::fromStdString(file.dump());
}
} // namespace

class StoreTest : public QObject, ProgramFixture {
    Q_OBJECT

    QStringList told() { // what the user was told since the last look
        const QStringList texts = dialogs->texts();
        dialogs->clear();
        return texts;
    }
    QStringList emergencyCopies() const {
        return QDir(home->programFolder() + "/EmergencyPreserveStateBU").entryList(QDir::Files, QDir::Name);
    }

private slots:
    void init() {
        setUpProgram();
        Clock::set(QDateTime(QDate(2026, 5, 8), QTime(23, 14)));
    }
    void cleanup() {
        QCOMPARE(told(), QStringList()); // nothing more than each test expects
        Clock::reset();
        tearDownProgram();
    }

    void activeArrayIsTheSlotsOwn() {
        ZOR::MakeAlphabetShortcuts();
        ZOR::CreateFirstPalette();
        ZOR::DP.emplace_back();
        ZOR::DefaultValuesPalette(1);
        const PaletteDict& fresh = ZOR::DP[1];
        QCOMPARE(QStringList({QString::number(fresh.i_NumRows * 100 + fresh.i_NumColumns), fresh.s_Name, fresh.s_WinTitle,
                              fresh.s_Particulars, fresh.a_Btn->at(51)->Shortcut + fresh.a_Btn->at(52)->Shortcut}),
                 QStringList({"1010", "P01", "ZOR P01", "", "Z" + kNoShortcut}));
        QVERIFY(QRegularExpression("^[a-z]{5}$").match(fresh.s_Alias).hasMatch());

        ZOR::ActivatePalette(1);
        ZOR::aBtn->at(7)->Tip = "edited";
        ZOR::ActivatePalette(0);
        QCOMPARE(ZOR::DP[1].a_Btn->at(7)->Tip, QString("edited")); // edited through aBtn, kept in the slot
        ZOR::BreakBtnLinkToDP();
        QCOMPARE(ZOR::aBtn->size(), size_t(0));
        QCOMPARE(ZOR::DP[0].a_Btn->size(), size_t(100));

        ZOR::DefaultValuesPalette(2);
        QCOMPARE(told(), QStringList{"Inappropriate index value passed for DefaultValuesPalette method."});
    }

    void fullStoreRoundTripsExactly() {
        writeStoreFile(100);
        ZOR::MakeAlphabetShortcuts();
        QVERIFY(ZOR::JSON_ParseData(QString::fromUtf8(readAll(home->programFolder() + "/PreserveState.txt"))));
        ZOR::DP[37].s_Alias = kNoShortcut; // a free slot in the middle
        Btn& b = *ZOR::DP[5].a_Btn->at(23);
        b.Info = "first line\nsecond line\r\nthird\ttabbed";
        b.Tip = R"(She said "go" \ then C:\path\)";
        b.SCname = QString::fromUtf8("Grüße ✓ 日本語 🎹");
        b.ASfile = QStringLiteral("four") + QChar(0x1F) + "more"; // the highest control character, after a plain run
        b.AutoMin = 50, b.Clipbrd = 1, b.PaletteGo = "12", b.Vis = false, b.ShortcutShow = true;
        ZOR::idxCP = 42;
        ZOR::initialWinLeft = 11, ZOR::initialWinTop = 22, ZOR::initialWinWidth = 256, ZOR::initialWinHeight = 222;
        const QString text = ZOR::JSON_CreateData();

        const ordered_json parsed = ordered_json::parse(text.toStdString());
        QCOMPARE(parsed.size(), size_t(10101));
        QCOMPARE(parsed[0].dump(), R"({"LastPaletteIndex":99,"CurrentPalette":42,"ReuseablePalette":"","WinTop":22,)"
                                   R"("WinLeft":11,"WinHeight":222,"WinWidth":256})");
        const ordered_json button = {{"sID", "23"}, {"Shortcut", "x"}, {"Tip", b.Tip.toStdString()},
                                     {"Info", b.Info.toStdString()}, {"ShortcutShow", true}, {"Vis", false},
                                     {"ASfile", b.ASfile.toStdString()}, {"SCname", b.SCname.toStdString()}, {"AutoMin", 50},
                                     {"Clipbrd", 1}, {"PaletteGo", "12"}, {"KM_Active", false}};
        QCOMPARE(parsed[1 + 5 * 101 + 23].dump(), button.dump());
        ZOR::resetStore();
        QVERIFY(ZOR::JSON_ParseData(text));
        QVERIFY(!ZOR::IsPaletteExistant(37)); // a free slot is no palette
        QVERIFY(ZOR::IsPaletteExistant(36));
        QCOMPARE(ZOR::JSON_CreateData(), text); // all read back, and written the same again
    }

    void olderFilesAreMigratedWithOneMessagePerKey() {
        ordered_json data = ordered_json::parse(olderFile({"ASfile", "AutoMin", "Clipbrd", "KM_Active"}, false).toStdString());
        data[1 + 2]["PaletteGo"] = "1";
        data[1 + 3]["ASfile"] = "Mail.scpt";
        QVERIFY(ZOR::JSON_ParseData(QString::fromStdString(data.dump())));
        QStringList expected;
        for (const char* key : {"ASfile", "AutoMin", "Clipbrd", "KM_Active", "Particulars"})
            expected << QString("Transitioning to new format of stored JSON data: ") + key;
        QCOMPARE(told(), expected);
        // A button that fired nothing else was a macro button; a Shortcut, a switch or a script is not.
        QList<int> macros; // of the first five buttons
        for (int i = 0; i < 5; ++i)
            if (ZOR::DP[0].a_Btn->at(i)->KM_Active) macros << i;
        QCOMPARE(macros, QList<int>({0, 4}));
        QCOMPARE(ZOR::DP[1].a_Btn->at(7)->Row, 0);
        QCOMPARE(ZOR::DP[1].a_Btn->at(7)->Col, 7);
        QCOMPARE(ZOR::DP[0].s_Particulars, QString());
        QVERIFY(!ZOR::paletteContentChange);
    }

    void readerTellsValidFromInvalidAndDecodes() {
        const auto accepts = [](const QByteArray& text) {
            try {
                JsonText::Reader r(std::string_view(text.constData(), size_t(text.size())));
                return r.skipValue(), r.expectEnd(), true;
            } catch (const JSONException&) { return false; }
        };
        const QByteArray valid[] = {QByteArray(100000, '[') + "1" + QByteArray(100000, ']'),
                                    QByteArray("{\"k\":").repeated(100000) + "1" + QByteArray(100000, '}'),
                                    R"({"x":[],"y":{},"z":[[],{}]})",
                                    "[0,-0.5e+3,1E400,true,false,null,\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u0041\"]"};
        for (const QByteArray& text : valid) QVERIFY2(accepts(text), text.left(60));
        // Left open, a comma too many, a leading zero, a bare minus, short literals, unknown escapes,
        // a raw tab, bad UTF-8 (stray, overlong, surrogate, beyond U+10FFFF, cut), text after the end.
        const QByteArray invalid[] = {QByteArray(100000, '['), "[1,]", R"({"a":1,})", "[01]", "[-]", "[nul]",
                                      R"(["\u12"])", R"(["\x"])", "[\"a\tb\"]", "[\"a\x80\"]", "[\"\xC0\xAF\"]",
                                      "[\"\xED\xA0\x80\"]", "[\"\xF4\x90\x80\x80\"]", "[\"\xE2\x90\"]", "[1] x"};
        for (const QByteArray& text : invalid) QVERIFY2(!accepts(text), text.left(60));
        // What it reads from valid text.
        const std::pair<const char*, QString> strings[] = {
            {R"("\u2400")", QString::fromUtf8("␀")},
            {R"("\u00e9\u00C9")", QString::fromUtf8("éÉ")},
            {R"("\uD83C\uDFB9 \ud83d\ude00 \uDBFF\uDFFF")", QString::fromUtf8("🎹 😀 \xF4\x8F\xBF\xBF")},
            {R"("\uDC00|\uD800\u0041|\uD800")", QString::fromUtf8("\xEF\xBF\xBD|\xEF\xBF\xBD" "A|\xEF\xBF\xBD")},
            {"\"Gr\xC3\xBC\xC3\x9F" "e \xF0\x9F\x8E\xB9\"", QString::fromUtf8("Grüße 🎹")},
        };
        for (const auto& [json, expected] : strings) QCOMPARE(JsonText::Reader(json).readString(), expected);
        constexpr qint64 max = std::numeric_limits<qint64>::max(), min = std::numeric_limits<qint64>::min();
        const std::pair<const char*, qint64> numbers[] = {
            {"9223372036854775807", max}, {"9223372036854775808", max}, {"1e19", max}, {"1e308", max}, {"1e400", max},
            {"-1e308", min}, {"-9223372036854775809", min}, {"12.9", 12}, {"-0.5", 0}, {"0.5e1", 5}, {"123e-2", 1},
            {"1e-400", 0}, {"0.000e999", 0}, {"-0", 0}};
        for (const auto& [json, expected] : numbers) QCOMPARE(JsonText::Reader(json).readInteger(), expected);
    }


    // Saves write through a link: the link stays, and the file it leads to takes the new store
    // whole, keeping its mode; the emergency copy is a plain copy of it.
    void savesWriteThroughALink_data() {
        QTest::addColumn<QString>("link");   // as it is written in the link; %1: home
        QTest::addColumn<QString>("second"); // a link to the store that the first leads to, if any
        QTest::newRow("a link") << "%1/Sync/store.txt" << "";
        QTest::newRow("a relative link") << "../../../Sync/store.txt" << "";
        QTest::newRow("a link to a link") << "%1/Sync/link.txt" << "real/store.txt";
    }
    void savesWriteThroughALink() {
        QFETCH(QString, link);
        QFETCH(QString, second);
        const QString file = writeStoreFile(3);
        const QString store = home->home() + "/Sync/" + (second.isEmpty() ? "store.txt" : second);
        QDir().mkpath(QFileInfo(store).path());
        QVERIFY(QFile::rename(file, store));
        QVERIFY(QFile::setPermissions(store, QFile::ReadOwner | QFile::WriteOwner));
        if (!second.isEmpty()) QVERIFY(QFile::link(second, home->home() + "/Sync/link.txt"));
        QVERIFY(QFile::link(link.arg(home->home()), file));
        program->start();
        ZOR::ChangeToPalette(1);
        program->quit();
        QCOMPARE(QFile::symLinkTarget(file), QFileInfo(link.arg(home->home())).isAbsolute()
                                                 ? link.arg(home->home())
                                                 : QDir::cleanPath(home->programFolder() + '/' + link));
        QCOMPARE(ordered_json::parse(readAll(store).toStdString())[0]["CurrentPalette"].get<int>(), 1);
        struct stat st {};
        QCOMPARE(::stat(QFile::encodeName(store).constData(), &st), 0);
        QCOMPARE(st.st_mode & 0777, mode_t(0600));
        QCOMPARE(namesIn(QFileInfo(store).path()), QStringList{QFileInfo(store).fileName()});
        const QString copy =
            home->programFolder() + "/EmergencyPreserveStateBU/260508_2314PreserveStateBU.txt";
        QVERIFY(!QFileInfo(copy).isSymLink());
        QCOMPARE(readAll(copy), readAll(store));
    }

    // A save that fails says why, in words, and leaves the file as it was. The scratch copy of a save
    // is written beside the file it replaces: the emergency folder's state does not matter.
    void saveFailuresSayWhatHappened_data() {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QString>("told"); // %1: the program's folder; empty: saved
        const QString unchanged = " The file that was there before is unchanged.";
        QTest::newRow("emergency folder is a file") << "emergency file" << "";
        QTest::newRow("emergency folder locked") << "locked emergency" << "";
        QTest::newRow("data folder locked")
            << "locked data" << "Could not save PreserveState.txt: ZOR_Palette may not write in the folder %1." + unchanged;
        QTest::newRow("full disk") << "full disk" << "Could not save PreserveState.txt: the disk is full." + unchanged;
    }
    void saveFailuresSayWhatHappened() {
        QFETCH(QString, setting);
        QFETCH(QString, told);
        std::optional<SmallDisk> disk;
        if (setting == "full disk" && !disk.emplace(home->programFolder()).mounted())
            QSKIP("this system refuses to mount a small tmpfs");
        const QString file = writeStoreFile(2);
        const QByteArray before = readAll(file);
        if (setting == "emergency file")
            home->writeInProgram("EmergencyPreserveStateBU", "a file, not a folder");
        program->start();
        std::optional<LockedFolder> lock;
        if (setting.startsWith("locked") &&
            !lock.emplace(setting.endsWith("data") ? home->programFolder()
                                                   : home->programFolder() + "/EmergencyPreserveStateBU")
                 .holds())
            QSKIP("this system lets every change through a locked folder");
        this->told(); // the start may tell that it could not make the emergency folder; the save is looked at
        if (disk) disk->fill();
        ZOR::paletteContentChange = true;
        program->quit();
        if (told.contains("%1")) told = told.arg(home->programFolder());
        QCOMPARE(this->told(), told.isEmpty() ? QStringList() : QStringList{told});
        QCOMPARE(readAll(file) == before, !told.isEmpty());
        QCOMPARE(namesIn(home->programFolder()).filter(".saving"), QStringList());
        QCOMPARE(emergencyCopies(), QStringList());
    }

    // Every completed change is on the disk at once, with no quit: a kill after it loses nothing.
    // What the file holds is read back from the disk after each.
    void completedChangesAreSavedAtOnce_data() {
        QTest::addColumn<QString>("change");
        QTest::addColumn<QString>("saved"); // in the data file's text right after it
        QTest::newRow("a palette switch") << "switch" << R"("CurrentPalette":2)";
        QTest::newRow("New Palette") << "new" << R"("paleName":"P03","paleAlias":"Fresh")";
        QTest::newRow("Rename Palette") << "rename" << R"("paleAlias":"Renamed","paleWinTitle":"Retitled")";
        QTest::newRow("Delete Palette") << "delete" << R"("CurrentPalette":0)";
        QTest::newRow("OK in Grid Construct") << "design ok" << R"("Tip":"Saved by OK")";
        QTest::newRow("Grid Construct's close box") << "design close" << R"("paleWinTitle":"Designed")";
        // Pictures are files of their own: what these save is the store as it stands.
        QTest::newRow("Add in Button Pictures") << "add picture" << R"("paleWinTitle":"Typed before")";
        QTest::newRow("Remove in Button Pictures") << "remove picture" << R"("paleWinTitle":"Typed before")";
    }
    void completedChangesAreSavedAtOnce() {
        QFETCH(QString, change);
        QFETCH(QString, saved);
        winMain& window = startWith(3);
        if (change == "delete") ZOR::ChangeToPalette(2);
        const QString file = home->programFolder() + "/PreserveState.txt";
        QVERIFY(!readAll(file).contains(saved.toUtf8()));
        QByteArray after; // for OK in Grid Construct: the file between OK and the close box
        if (change == "switch") {
            ZOR::DP[2].i_NumRows = 2, ZOR::DP[2].i_NumColumns = 3; // smaller than the palette it leaves
            ZOR::ChangeToPalette(2);
        } else if (change.endsWith("picture")) {
            home->writeInProgram("ButtonPictures/P00/01 one.png", picture(64, 64));
            const QString chosen = home->write("Desktop/05 five.png", picture(64, 64));
            auto w = opened<winButtonPics>();
            ZOR::paleWinTitle = "Typed before", ZOR::paletteContentChange = true;
            change == "add picture" ? (dialogs->queueFile(chosen), w->pbSelectPicToAdd_Pressed(), w->pbAdd_Pressed())
                                    : (pressRow(w->lbButPic, 0), w->pbToDesktop_Pressed());
        } else if (change == "new") {
            winNewPalette w;
            w.tfAlias->setText("Fresh"), w.pbOK->click();
        } else if (change == "rename") {
            winChangeAlias w;
            w.tfAlias->setText("Renamed"), w.tfWinTitle->setText("Retitled"), w.pbMakeChange->click();
        } else if (change == "delete") {
            dialogs->queueOK(true);
            winDeletePalette().pbDelete->click();
        } else {
            dialogs->onWindow = [&](QDialog& d) {
                auto& w = dynamic_cast<winConstruct&>(d);
                w.show();
                if (change == "design ok") {
                    QTest::mouseClick(w.accGC[5], Qt::LeftButton);
                    w.tfTip->setText("Saved by OK"), w.pbOK->click();
                    after = readAll(file);
                }
                w.tfWinTitle->setText("Designed"), w.tfWinTitle_FocusLost(), w.close();
            };
            window.mainMenuBar->miConstruct->trigger();
            dialogs->onWindow = nullptr;
        }
        if (change != "design ok") after = readAll(file);
        QVERIFY2(after.contains(saved.toUtf8()), after.left(300));
        if (change == "switch") { // the next start opens at the size of the palette switched to
            const QString size =
                QString(R"("WinHeight":%1,"WinWidth":%2)").arg(window.minimumHeight()).arg(window.minimumWidth());
            QVERIFY2(after.contains(size.toUtf8()), after.left(300));
        }
        QCOMPARE(namesIn(home->programFolder()).filter(".saving"), QStringList());
        QCOMPARE(emergencyCopies(), QStringList()); // the quit keeps its copy; a change makes none
        told();
    }

    // A save cut short by a kill leaves its scratch copy beside the data file; the next start clears it.
    void unfinishedSaveIsClearedAtStart() {
        const QString file = writeStoreFile(2);
        const QByteArray before = readAll(file);
        home->writeInProgram(".PreserveState.txt.saving", "[{\"LastPaletteIndex\":1,");
        program->start();
        QCOMPARE(namesIn(home->programFolder()).filter(".saving"), QStringList());
        QCOMPARE(readAll(file), before);
    }

    // Never over a data file that could not be read, nor over a restored one before the next start.
    void completedChangesKeepTheGuards_data() {
        QTest::addColumn<QString>("setting");
        QTest::newRow("after a restore") << "restored";
        QTest::newRow("beside an unreadable data file") << "unreadable";
    }
    void completedChangesKeepTheGuards() {
        QFETCH(QString, setting);
        const QString file = writeStoreFile(3);
        if (setting == "unreadable") home->writeInProgram("PreserveState.txt", "not a palette store");
        const QByteArray before = readAll(file);
        program->start();
        if (setting == "restored") ZOR::QuitSavePaletteChanges = false;
        if (setting == "unreadable")
            ZOR::CreateNewPalette("Fresh");
        else
            ZOR::ChangeToPalette(2);
        QCOMPARE(ZOR::saveStore(), false);
        QCOMPARE(readAll(file), before);
        told();
    }


    // Values no window could have made are held to what the windows offer when they are read.
    void valuesOutOfRangeAreHeld_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<double>("value");
        QTest::addColumn<qint64>("held");
        QTest::newRow("numRows 0") << "numRows" << 0.0 << qint64(10);
        QTest::newRow("numRows -5") << "numRows" << -5.0 << qint64(10);
        QTest::newRow("numRows 99999") << "numRows" << 99999.0 << qint64(10);
        QTest::newRow("numColumns 0") << "numColumns" << 0.0 << qint64(10);
        QTest::newRow("numColumns 99999") << "numColumns" << 99999.0 << qint64(10);
        QTest::newRow("AutoMin -1") << "AutoMin" << -1.0 << qint64(0);
        QTest::newRow("AutoMin 2147484") << "AutoMin" << 2147484.0 << qint64(86400);
        QTest::newRow("AutoMin 50") << "AutoMin" << 50.0 << qint64(50);
    }
    void valuesOutOfRangeAreHeld() {
        QFETCH(QString, key);
        QFETCH(double, value);
        QFETCH(qint64, held);
        ordered_json store = ordered_json::parse(readAll(writeStoreFile(2)).toStdString());
        store[key == "AutoMin" ? 1 + 7 : 101][key.toStdString()] = qint64(value);
        home->writeInProgram("PreserveState.txt", QByteArray::fromStdString(store.dump()));
        program->start();
        const qint64 read = key == "numRows"      ? ZOR::numRows
                            : key == "numColumns" ? ZOR::numColumns
                                                  : button(7).AutoMin;
        QCOMPARE(read, held);
    }

    // A NUL would end the window's title there: it shows as the program shows it elsewhere.
    void nulInTheTitleIsShown() {
        ordered_json store = ordered_json::parse(readAll(writeStoreFile(1)).toStdString());
        store[101]["paleWinTitle"] = std::string("Before\0After", 12);
        home->writeInProgram("PreserveState.txt", QByteArray::fromStdString(store.dump()));
        QCOMPARE(program->start().windowTitle(), "Before\u2400After");
    }

    // A hostile file loads with a clear meaning (the palette it starts on) or is told once and kept.
    void hostileDataFiles_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("startsOn"); // -1: refused
        const QByteArray full = [] {
            TempHome home;
            return readAll(writeStoreFile(100));
        }();
        const ordered_json base = ordered_json::parse(olderFile({}, true).toStdString());
        // The head, a button or the first palette's object (at 0, 4, 101), one key changed; no key: all of it.
        const auto edited = [&](int at, const char* key, ordered_json value) {
            ordered_json j = base;
            (key ? j[at][key] : j[at]) = value;
            return QByteArray::fromStdString(j.dump());
        };
        const auto head = [&](const char* key, ordered_json value) { return edited(0, key, value); };
        const auto button = [&](const char* key, ordered_json value) { return edited(4, key, value); };
        const auto palette = [&](const char* key, ordered_json value) { return edited(101, key, value); };
        // clang-format off
        QTest::newRow("not JSON") << QByteArray("this is not JSON {") << -1;
        QTest::newRow("array ends early") << olderFile({}, true).left(5000) + "]" << -1;
        QTest::newRow("obligatory key missing") << olderFile({"Tip"}, true) << -1;
        QTest::newRow("head only") << QByteArray(R"([{"LastPaletteIndex":0,"CurrentPalette":0}])") << -1;
        QTest::newRow("not UTF-8") << olderFile({}, true).replace("Old title", "Old t\xEFtle") << -1;
        QTest::newRow("more than it tells") << olderFile({}, true).chopped(1) + ",{}]" << -1;
        QTest::newRow("CurrentPalette the last") << head("CurrentPalette", 1) << 1;
        QTest::newRow("CurrentPalette -1") << head("CurrentPalette", -1) << 0;
        QTest::newRow("LastPaletteIndex 1e9") << head("LastPaletteIndex", 1000000000) << -1;
        QTest::newRow("LastPaletteIndex -1") << head("LastPaletteIndex", -1) << -1;
        QTest::newRow("LastPaletteIndex a string") << head("LastPaletteIndex", "1") << -1;
        QTest::newRow("CurrentPalette outside") << head("CurrentPalette", 7) << 0;
        // Another JSON tool's output: a free slot in an ASCII escape, empty and deep values under keys we do not know.
        QByteArray other = head("CurrentPalette", 1);
        other.replace(other.lastIndexOf(R"("paleAlias":"Old")"), 17, R"("paleAlias":"\u2400")");
        other.insert(other.indexOf('{') + 1, R"("x":[],"y":{},"deep":)" + QByteArray(100000, '[') + QByteArray(100000, ']') + ",");
        QTest::newRow("CurrentPalette on a free slot") << other << 0;
        QTest::newRow("sID xx") << button("sID", "xx") << -1;
        QTest::newRow("sID 7") << button("sID", "7") << -1;
        QTest::newRow("sID in Arabic-Indic digits") << button("sID", "٠٧") << -1;
        QTest::newRow("numRows 0") << palette("numRows", 0) << 0;
        QTest::newRow("numRows 11") << palette("numRows", 11) << 0;
        QTest::newRow("numColumns beyond any int") << palette("numColumns", 1e300) << 0;
        QTest::newRow("a tip of 10 MB") << button("Tip", std::string(10'000'000, 'w')) << 0;
        // A palette's name is its pictures' folder: only its slot's own name is read.
        QTest::newRow("paleName leads out") << palette("paleName", "../../../../victim") << -1;
        QTest::newRow("paleName a path") << palette("paleName", "/../../tmp/x/ESCAPED") << -1;
        QTest::newRow("paleName of another slot") << palette("paleName", "P01") << -1;
        QTest::newRow("paleName in lower case") << palette("paleName", "p00") << -1;
        QTest::newRow("paleName of the last palette") << edited(1 + 101 + 100, "paleName", "P1") << -1;
        QTest::newRow("an object for the array") << QByteArray::fromStdString(base[0].dump()) << -1;
        QTest::newRow("an object for a button") << edited(5, nullptr, ordered_json::array()) << -1;
        QTest::newRow("a number for a string") << button("Tip", 5) << -1;
        // The same faults in a palette the start does not show.
        const auto hidden = [&](const char* key, ordered_json value) { return edited(1 + 101 + 3, key, value); };
        QTest::newRow("not shown: sID xx") << hidden("sID", "xx") << -1;
        QTest::newRow("not shown: a number for a string") << hidden("Tip", 5) << -1;
        QTest::newRow("not shown: not UTF-8") << hidden("Tip", "t\u00e9p").replace("t\xC3\xA9p", "t\xE9p") << -1;
        QTest::newRow("not shown: a bad escape") << hidden("Tip", "t\\p").replace(R"(t\\p)", R"(t\p)") << -1;
        // clang-format on
        for (int i = 1; i <= 200; ++i) {
            const qsizetype at = full.size() * i / 201;
            QTest::addRow("full store cut at %lld", qlonglong(at)) << full.left(at) << -1;
        }
    }
    void hostileDataFiles() {
        QFETCH(QByteArray, content);
        QFETCH(int, startsOn);
        const QString file = home->writeInProgram("PreserveState.txt", content);
        const QDateTime written = QFileInfo(file).lastModified();
        program->start();
        program->window()->grab(); // usable, and paints without reports
        const QStringList shown = told();
        if (startsOn < 0) {
            QCOMPARE(shown.size(), 2);
            QVERIFY2(shown[0].contains(" in ZOR.JSON_ParseData\nMODULE: ZOR\nMETHOD: JSON_ParseData"),
                     qPrintable(shown[0].left(500)));
            QVERIFY2(shown[1].contains("Manage PreserveState Backup"), qPrintable(shown[1].left(500)));
            QCOMPARE(ZOR::paleAlias, QString("Original"));
        } else {
            QVERIFY2(shown.isEmpty(), qPrintable(shown.join('|').left(500)));
            QCOMPARE(ZOR::idxCP, qint64(startsOn));
        }
        program->quit();
        if (startsOn < 0) {
            QCOMPARE(readAll(file), content);
            QCOMPARE(QFileInfo(file).lastModified(), written);
            QCOMPARE(emergencyCopies(), QStringList());
        } else
            QCOMPARE(ordered_json::parse(readAll(file).toStdString())[0]["CurrentPalette"].get<int>(),
                     startsOn);
    }


    // Every path made from a store value stays in its folder, even for a palette name that got past
    // the load (set here in memory): nothing of the user's is moved, shown or made elsewhere.
    void storeValuesChooseNoPath_data() {
        QTest::addColumn<QString>("site");
        QTest::addColumn<QString>("name"); // "~" stands for the home folder
        for (const char* site : {"palette window", "Button Pictures", "export", "delete", "picture import"})
            for (const char* name : {"../../../../victim", "~/victim", ".."})
                QTest::addRow("%s, %s", site, name) << QString(site) << QString(name);
    }
    void storeValuesChooseNoPath() {
        QFETCH(QString, site);
        QFETCH(QString, name);
        const QString victim = home->write("victim/taxes2024.pdf", "mine").section('/', 0, -2);
        home->write("victim/07 x.png", picture(64, 64));
        winMain& w = startWith(2);
        ZOR::ChangeToPalette(1);
        ZOR::paleName = QString(name).replace("~", home->home());
        if (site == "palette window") {
            ZOR::viewFollows();
            QCOMPARE(w.hasPicture, QList<int>());
        } else if (site == "Button Pictures") {
            opened<winButtonPics>();
        } else if (site == "export") {
            w.mainMenuBar->miPaletteData->trigger();
        } else if (site == "delete") {
            ZOR::deleteActivePalette();
        } else {
            QVERIFY(
                !PictureImport::makeButtonPicture(victim + "/07 x.png", ZOR::paleName, 3).error.isEmpty());
        }
        told();
        QCOMPARE(namesIn(victim), QStringList({"07 x.png", "taxes2024.pdf"}));
        QVERIFY(namesIn(home->programFolder()).contains("PreserveState.txt"));
        QStringList made; // anything else that names the victim, under home or beside it
        QDirIterator it(home->home(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext())
            if (const QString path = it.next(); path.contains("victim") && !path.startsWith(victim))
                made << path;
        made << QDir(home->home() + "/..")
                    .entryList({"*victimData*"}, QDir::AllEntries | QDir::NoDotAndDotDot);
        QCOMPARE(made, QStringList());
    }

    // A button's script runs only as a plain file of Apple_Scripts: a name that cleans down to
    // nothing, or that names a path, is told and runs nothing.
    void scriptNamesRunOnlyFilesOfAppleScripts() {
        winMain& w = startWith(1);
        const QStringList names = {" .scpt", "..", "x/../../../evil", "/Users/me/evil.scpt", "Mail"};
        for (int i = 0; i < names.size(); ++i) {
            button(i).ASfile = names[i];
            QTest::mouseClick(w.cnButs[size_t(i)], Qt::LeftButton, {}, QPoint(10, 10));
        }
        const QString resources = QDir::cleanPath(QCoreApplication::applicationDirPath() + "/../Resources");
        QTRY_COMPARE(tools->log(),
                     QStringList{"osascript\t" + resources + "/FireAppleScript.scpt\tMail.scpt"});
        const QString none =
            "This button names no AppleScript file, so nothing was run. To change this, edit it in "
            "Grid Construct.";
        const auto path = [](const char* name) {
            return QString(
                       "The AppleScript name %1 is not the name of a file in the folder Apple_Scripts, so "
                       "nothing was run. To change this, edit the button in Grid Construct.")
                .arg(name);
        };
        QCOMPARE(told(), QStringList({none, none, path("x/.scpt"), path("/Users/me/evil.scpt")}));
    }

    // Palettes not yet shown are read from the data file's text as it was at the start.
    void palettesNotShownKeepTheTextTheyStartedWith() {
        const QString file = writeStoreFile(3);
        program->start().grab();
        QCoreApplication::processEvents();
        const QByteArray before = readAll(file);
        QFile overwritten(file);
        QVERIFY(overwritten.open(QIODevice::WriteOnly | QIODevice::Truncate)); // the same file, not a new one
        overwritten.write(QByteArray(before.size() / 2, ' '));
        overwritten.close();
        QCOMPARE(ZOR::DP[2].a_Btn->at(0)->Shortcut, QString("a"));
        const QByteArray after = ZOR::JSON_CreateData().toUtf8();
        QCOMPARE(after.mid(after.indexOf("},")), before.mid(before.indexOf("},"))); // all but the window's place
    }

    void firstStartEver() {
        QCOMPARE(program->start().windowTitle(), QString("ZOR Palette"));
        for (const char* folder : {"ButtonPictures", "Apple_Scripts", "EmergencyPreserveStateBU"})
            QVERIFY(QFileInfo(home->programFolder() + '/' + folder).isDir());
        program->quit();
        const QByteArray saved = readAll(home->programFolder() + "/PreserveState.txt");
        QVERIFY(!saved.startsWith("\xEF\xBB\xBF"));
        QVERIFY(!saved.endsWith('\n'));
        const ordered_json data = ordered_json::parse(saved.toStdString());
        QCOMPARE(data.size(), size_t(102));
        QCOMPARE(data[101].dump(), R"({"numRows":10,"numColumns":10,"paleName":"P00","paleAlias":"Original",)"
                                   R"("paleWinTitle":"ZOR Palette","paleParticulars":"No Content"})");
        QCOMPARE(data[1 + 51].dump(),
                 R"({"sID":"51","Shortcut":"Z","Tip":"","Info":"","ShortcutShow":false,"Vis":true,"ASfile":"",)"
                 R"("SCname":"","AutoMin":0,"Clipbrd":0,"PaletteGo":"","KM_Active":false})");
        QCOMPARE(emergencyCopies(), QStringList{"260508_2314PreserveStateBU.txt"});
    }

    void oldFolderIsCarriedOver_data() {
        QTest::addColumn<bool>("newFolderExists");
        QTest::addColumn<bool>("oldFolderEmpty");
        QTest::newRow("only the old folder") << false << false;
        QTest::newRow("both, old one empty") << true << true;
        QTest::newRow("both, old one holds data") << true << false;
    }
    void oldFolderIsCarriedOver() {
        QFETCH(bool, newFolderExists);
        QFETCH(bool, oldFolderEmpty);
        const QString support = home->appSupport();
        if (oldFolderEmpty) {
            QDir().mkpath(support + "/ZOR_Palette");
        } else {
            writeStoreFile(2, 3, 4);
            QVERIFY(QDir(support).rename("net.lunvale.ZOR-Palette", "ZOR_Palette"));
        }
        if (newFolderExists) home->writeInProgram("Help_ZOR_Palette.sqlite", "old help");
        program->start();
        QVERIFY(!QFileInfo::exists(support + "/ZOR_Palette"));
        QVERIFY(!QFileInfo::exists(home->programFolder() + "/Help_ZOR_Palette.sqlite"));
        if (!newFolderExists) { // the old data, loaded from the new name
            QCOMPARE(ZOR::DP.size(), size_t(2));
            QCOMPARE(ZOR::numRows, 3);
        }
        const QStringList kept = QDir(home->programFolder()).entryList({"OldZOR_PaletteFolder_*"}, QDir::Dirs);
        const bool aside = newFolderExists && !oldFolderEmpty; // old data is kept aside, never dropped
        QCOMPARE(kept.size(), aside ? 1 : 0);
        if (aside) QVERIFY(QFile::exists(home->programFolder() + '/' + kept[0] + "/PreserveState.txt"));
    }


    // A run that changes nothing leaves the file alone; a move, a switch and the working set are saved.
    void quitSavesOnlyWhatChanged() {
        const QString file = writeStoreFile(3, 3, 4, QRect(100, 120, 256, 222));
        const QDateTime written = QFileInfo(file).lastModified();
        const auto run = [&](const std::function<void(winMain&)>& act) { // a whole run; the file saved
            program.reset();
            program = std::make_unique<Program>();
            act(program->start());
            program->quit();
            return ordered_json::parse(readAll(file).toStdString());
        };
        run([](winMain& w) { QCOMPARE(w.geometry(), QRect(100, 120, 256, 222)); });
        QCOMPARE(QFileInfo(file).lastModified(), written);
        QCOMPARE(emergencyCopies(), QStringList());
        QCOMPARE(run([](winMain& w) { w.move(w.x() + 40, w.y()); })[0]["WinLeft"].get<int>(), 140);
        QCOMPARE(emergencyCopies().size(), 1);
        const auto edit = [](const QString& mark) {
            ZOR::numRows = 2, ZOR::numColumns = 5, ZOR::paleName = "N" + mark, ZOR::paleAlias = "A" + mark;
            ZOR::paleWinTitle = "T" + mark, ZOR::paleParticulars = "P" + mark, ZOR::paletteContentChange = true;
        };
        const ordered_json saved = run([&](winMain&) {
            edit("0");
            ZOR::ChangeToPalette(1);
            const PaletteDict& left = ZOR::DP[0];
            QCOMPARE(QStringList({QString::number(left.i_NumRows * 10 + left.i_NumColumns), left.s_Name, left.s_Alias,
                                  left.s_WinTitle, left.s_Particulars, ZOR::paleName}),
                     QStringList({"25", "N0", "A0", "T0", "P0", "P01"}));
            edit("1");
        });
        QCOMPARE(saved[0]["CurrentPalette"].get<int>(), 1);
        QCOMPARE(saved[1 + 101 + 100].dump(), R"({"numRows":2,"numColumns":5,"paleName":"N1","paleAlias":"A1",)"
                                              R"("paleWinTitle":"T1","paleParticulars":"P1"})");
    }

    // A plain PreserveState.txt left in the emergency folder by an earlier failed rename is cleared first.
    void backupsClearALeftoverPlainFile() {
        const QString file = writeStoreFile(1);
        home->writeInProgram("EmergencyPreserveStateBU/PreserveState.txt", "left over");
        program->start();
        program->quit();
        QCOMPARE(emergencyCopies(), QStringList{"260508_2314PreserveStateBU.txt"});
        QCOMPARE(readAll(home->programFolder() + "/EmergencyPreserveStateBU/260508_2314PreserveStateBU.txt"),
                 readAll(file)); // what was just saved
    }

    void emergencyCopiesAreTrimmed_data() {
        QTest::addColumn<int>("before");
        QTest::addColumn<bool>("handFolder");
        QTest::addColumn<int>("after");
        QTest::newRow("9 become 8") << 9 << false << 8;
        QTest::newRow("8 become 9") << 8 << false << 9;
        QTest::newRow("a folder is no copy") << 9 << true << 9; // the oldest copy still goes
    }
    void emergencyCopiesAreTrimmed() {
        QFETCH(int, before);
        QFETCH(bool, handFolder);
        QFETCH(int, after);
        writeStoreFile(1);
        if (handFolder) home->writeInProgram("EmergencyPreserveStateBU/000 kept by hand/note.txt", "mine");
        for (int i = 0; i < before; ++i)
            home->writeInProgram(QString("EmergencyPreserveStateBU/2301%1_1200PreserveStateBU.txt").arg(i + 10), "old");
        program->start();
        program->quit(); // first palette loaded, window placed anew: the geometry changed, so it saves
        const QStringList copies = emergencyCopies();
        QCOMPARE(copies.size(), after);
        QCOMPARE(copies.last(), QString("260508_2314PreserveStateBU.txt"));
        if (before == 9) QCOMPARE(copies.first(), QString(handFolder ? "230111_1200PreserveStateBU.txt" : "230112_1200PreserveStateBU.txt"));
        QCOMPARE(told(), handFolder ? QStringList{"RemoveFilesFromEmergencyBackup: Could not remove 000 kept by hand"} : QStringList());
        if (handFolder) QCOMPARE(readAll(home->programFolder() + "/EmergencyPreserveStateBU/000 kept by hand/note.txt"), "mine");
    }

};

QTEST_MAIN(StoreTest)
#include "tst_store.moc"
