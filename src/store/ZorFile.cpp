#include "store/ZOR.h"

#include "help/GeneralMethods.h"
#include "store/JsonText.h"
#include "util/AppGlobals.h"
#include "util/Dialogs.h"
#include "util/Guard.h"
#include "util/StdFolders.h"
#include "util/ZorError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace {
Guard::Where where(const char* method) { return Guard::Where::module("ZOR", method); }

// Keys that older files lack, with the text the user sees once per key.
QString transitionMessage(const char* what) {
    return QStringLiteral("Transitioning to new format of stored JSON data: ") + QLatin1String(what);
}

void writeButton(JsonText::Writer& w, const Btn& b) {
    w.beginObject();
    w.member("sID", b.sID);
    w.member("Shortcut", b.Shortcut);
    w.member("Tip", b.Tip);
    w.member("Info", b.Info);
    w.member("ShortcutShow", b.ShortcutShow);
    w.member("Vis", b.Vis);
    w.member("ASfile", b.ASfile);
    w.member("SCname", b.SCname);
    w.member("AutoMin", b.AutoMin);
    w.member("Clipbrd", b.Clipbrd);
    w.member("PaletteGo", b.PaletteGo);
    w.member("KM_Active", b.KM_Active);
    w.endObject();
}

void writePalette(JsonText::Writer& w, const PaletteDict& p) {
    w.beginObject();
    w.member("numRows", p.i_NumRows);
    w.member("numColumns", p.i_NumColumns);
    w.member("paleName", p.s_Name);
    w.member("paleAlias", p.s_Alias);
    w.member("paleWinTitle", p.s_WinTitle);
    w.member("paleParticulars", p.s_Particulars);
    w.endObject();
}

// Bits for the keys of a button object, to find the absent ones.
enum ButtonKey : unsigned {
    kSID = 1u << 0, kShortcut = 1u << 1, kTip = 1u << 2, kInfo = 1u << 3, kShortcutShow = 1u << 4, kVis = 1u << 5,
    kASfile = 1u << 6, kSCname = 1u << 7, kAutoMin = 1u << 8, kClipbrd = 1u << 9, kPaletteGo = 1u << 10,
    kKM_Active = 1u << 11,
};
constexpr unsigned kObligatoryButtonKeys = kSID | kShortcut | kTip | kInfo | kShortcutShow | kVis;

[[noreturn]] void missingKey(const char* key) {
    throw JSONException(QStringLiteral("The key %1 is missing from the data.").arg(QLatin1String(key)));
}

void readButton(JsonText::Reader& r, Btn& b, std::string_view& key, bool tellAbsentKeys) {
    unsigned seen = 0;
    r.beginObject();
    while (r.nextKey(key)) {
        // Dispatch on length first: the keys are few and fixed.
        if (key == "sID") b.sID = r.readString(), seen |= kSID;
        else if (key == "Shortcut") b.Shortcut = r.readString(), seen |= kShortcut;
        else if (key == "Tip") b.Tip = r.readString(), seen |= kTip;
        else if (key == "Info") b.Info = r.readString(), seen |= kInfo;
        else if (key == "ShortcutShow") b.ShortcutShow = r.readBool(), seen |= kShortcutShow;
        else if (key == "Vis") b.Vis = r.readBool(), seen |= kVis;
        else if (key == "ASfile") b.ASfile = r.readString(), seen |= kASfile;
        else if (key == "SCname") b.SCname = r.readString(), seen |= kSCname;
        else if (key == "AutoMin") b.AutoMin = r.readInteger(), seen |= kAutoMin;
        else if (key == "Clipbrd") b.Clipbrd = r.readInteger(), seen |= kClipbrd;
        else if (key == "PaletteGo") b.PaletteGo = r.readString(), seen |= kPaletteGo;
        else if (key == "KM_Active") b.KM_Active = r.readBool(), seen |= kKM_Active;
        else r.skipValue();
    }
    if ((seen & kObligatoryButtonKeys) != kObligatoryButtonKeys) {
        static const char* names[] = {"sID", "Shortcut", "Tip", "Info", "ShortcutShow", "Vis"};
        for (unsigned i = 0; i < 6; ++i)
            if (!(seen & (1u << i))) missingKey(names[i]);
    }
    if (tellAbsentKeys) {
        static const std::pair<unsigned, const char*> optional[] = {
            {kASfile, "ASfile"}, {kSCname, "SCname"},       {kAutoMin, "AutoMin"},
            {kClipbrd, "Clipbrd"}, {kPaletteGo, "PaletteGo"}, {kKM_Active, "KM_Active"}};
        for (const auto& [bit, name] : optional)
            if (!(seen & bit)) Dialogs::message(transitionMessage(name));
    }
    // A button of an older file that fired nothing else was a macro button.
    if (!(seen & kKM_Active)) b.KM_Active = b.SCname.isEmpty() && b.PaletteGo.isEmpty() && b.ASfile.isEmpty();
    auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; }; // other scripts' digits are no button number
    // Read through a const view: the reader shares one copy of each number among all palettes.
    const QString& sID = b.sID;
    if (sID.size() != 2 || !isDigit(sID[0]) || !isDigit(sID[1]))
        throw JSONException(QStringLiteral("The button number \"%1\" is not two digits.").arg(sID));
    b.Row = sID[0].digitValue();
    b.Col = sID[1].digitValue();
    b.ID = b.Row * 10 + b.Col;
}

void readPalette(JsonText::Reader& r, PaletteDict& p, std::string_view& key, bool tellAbsentKeys) {
    unsigned seen = 0;
    bool particulars = false;
    p.s_Particulars.clear();
    r.beginObject();
    while (r.nextKey(key)) {
        if (key == "numRows") p.i_NumRows = r.readInteger(), seen |= 1;
        else if (key == "numColumns") p.i_NumColumns = r.readInteger(), seen |= 2;
        else if (key == "paleName") p.s_Name = r.readString(), seen |= 4;
        else if (key == "paleAlias") p.s_Alias = r.readString(), seen |= 8;
        else if (key == "paleWinTitle") p.s_WinTitle = r.readString(), seen |= 16;
        else if (key == "paleParticulars") p.s_Particulars = r.readString(), particulars = true;
        else r.skipValue();
    }
    static const char* names[] = {"numRows", "numColumns", "paleName", "paleAlias", "paleWinTitle"};
    for (unsigned i = 0; i < 5; ++i)
        if (!(seen & (1u << i))) missingKey(names[i]);
    if (!particulars && tellAbsentKeys) Dialogs::message(transitionMessage("Particulars"));
}

void nextElementOrFail(JsonText::Reader& r) {
    if (!r.nextElement()) throw JSONException("The data ends before the last palette is complete.");
}
} // namespace

qint64 ZOR::PeekCurrentPalette() {
    QFile in(DataFilePath());
    if (!in.open(QIODevice::ReadOnly)) return -1;
    const QByteArray start = in.read(4096);
    const qsizetype headEnd = start.indexOf('}');
    if (headEnd < 0) return -1;
    try {
        JsonText::Reader r(std::string_view(start.constData(), size_t(headEnd + 1)));
        std::string_view key;
        r.beginArray();
        if (!r.nextElement()) return -1;
        r.beginObject();
        while (r.nextKey(key)) {
            if (key == "CurrentPalette") return r.readInteger();
            r.skipValue();
        }
    } catch (const JSONException&) {
    }
    return -1;
}

QString ZOR::DataFilePath() { return AppGlobals::appSupportFolder + '/' + kDataFileName + ".txt"; }

bool ZOR::WriteDataFile(const QString& text) {
    return Guard::run(where("WriteDataFile"), [&] {
        // Written whole beside the backups, then renamed over the file in one step: a crash or a
        // kill at any instant leaves the old file or the new one, and nothing new beside them.
        const QString emergency = AppGlobals::appSupportFolder + '/' + kEmergencyFolder;
        const QString scratch = emergency + "/.PreserveState.saving";
        const QByteArray bytes = text.toUtf8();
        QFile out(scratch);
        bool ok = QDir().mkpath(emergency) && out.open(QIODevice::WriteOnly | QIODevice::Truncate);
        ok = ok && out.write(bytes) == bytes.size() && out.flush() && ::fsync(out.handle()) == 0;
        const QString why = ok ? QString() : out.errorString();
        out.close();
        if (ok && ::rename(QFile::encodeName(scratch).constData(), QFile::encodeName(DataFilePath()).constData()) == 0)
            return true;
        QFile::remove(scratch);
        Dialogs::message("Could not save PreserveState.txt: " + (why.isEmpty() ? QString::fromLocal8Bit(strerror(errno)) : why) +
                         ". The file that was there before is unchanged.");
        return false;
    });
}

QString ZOR::JSON_CreateData() {
    return Guard::run(where("JSON_CreateData"), [] {
        JsonText::Writer w(qsizetype(DP.size()) * 101 * 280 + 256);
        const QRect rect = View() ? View()->WindowRect()
                                  : QRect(int(initialWinLeft), int(initialWinTop), int(initialWinWidth),
                                          int(initialWinHeight));
        w.beginArray();
        w.beginObject();
        w.member("LastPaletteIndex", qint64(DP.size()) - 1);
        w.member("CurrentPalette", idxCP);
        w.member("ReuseablePalette", reusablePaletteName);
        w.member("WinTop", rect.top());
        w.member("WinLeft", rect.left());
        w.member("WinHeight", rect.height());
        w.member("WinWidth", rect.width());
        w.endObject();
        for (const PaletteDict& slot : DP) {
            for (const BtnRef& b : *slot.a_Btn) writeButton(w, *b);
            writePalette(w, slot);
        }
        w.endArray();
        QString text = w.take();
        if (text.size() < 20) Dialogs::message("Somehow no data to save to PreserveState at the end. Some bug.");
        return text;
    });
}

bool ZOR::JSON_ParseData(const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    return JSON_ParseData(std::string_view(utf8.constData(), size_t(utf8.size())));
}

bool ZOR::JSON_ParseData(std::string_view utf8) {
    return Guard::run(where("JSON_ParseData"), [utf8] {
        JsonText::Reader r(utf8);
        std::string_view key;
        qint64 lastPaletteIndex = -1;
        qint64 currentPalette = 0;
        bool haveLast = false, haveCurrent = false;
        r.beginArray();
        if (!r.nextElement()) throw JSONException("The data holds no head object.");
        r.beginObject();
        while (r.nextKey(key)) {
            if (key == "LastPaletteIndex") lastPaletteIndex = r.readInteger(), haveLast = true;
            else if (key == "CurrentPalette") currentPalette = r.readInteger(), haveCurrent = true;
            else if (key == "WinTop") initialWinTop = r.readInteger();
            else if (key == "WinLeft") initialWinLeft = r.readInteger();
            else if (key == "WinHeight") initialWinHeight = r.readInteger();
            else if (key == "WinWidth") initialWinWidth = r.readInteger();
            else r.skipValue();
        }
        if (!haveLast) missingKey("LastPaletteIndex");
        if (!haveCurrent) missingKey("CurrentPalette");
        if (lastPaletteIndex < 0 || lastPaletteIndex > 99)
            throw JSONException(QStringLiteral("LastPaletteIndex %1 is out of range.").arg(lastPaletteIndex));
        while (qint64(DP.size()) <= lastPaletteIndex) DP.emplace_back();
        for (qint64 p = 0; p <= lastPaletteIndex; ++p) {
            auto buttons = std::make_shared<std::vector<BtnRef>>();
            buttons->reserve(kButtonsPerPalette);
            for (int i = 0; i < kButtonsPerPalette; ++i) {
                nextElementOrFail(r);
                auto b = std::make_shared<Btn>();
                readButton(r, *b, key, p == 0 && i == 0);
                buttons->push_back(std::move(b));
            }
            DP[size_t(p)].a_Btn = std::move(buttons);
            nextElementOrFail(r);
            readPalette(r, DP[size_t(p)], key, p == 0);
        }
        // Elements beyond the last palette would be lost at the next save: such a file is not ours.
        if (r.nextElement()) throw JSONException("The data holds more than LastPaletteIndex tells.");
        r.expectEnd();
        // A current palette outside the store or on a free slot is no reason to lose the
        // palettes: start on P00, the palette the program always falls back to.
        const bool usable = currentPalette >= 0 && currentPalette <= lastPaletteIndex &&
                            DP[size_t(currentPalette)].s_Alias != kNoShortcut;
        idxCP = usable ? currentPalette : 0;
        return true;
    });
}

namespace {
// A data file that cannot be read is reported, left as it is, and never overwritten at the quit.
// The program goes on with a first palette in memory so that it can be used and quit cleanly.
void startBesideUnreadableFile() {
    ZOR::DP.clear();
    ZOR::idxCP = -1;
    ZOR::dataFileUnreadable = true;
    ZOR::CreateFirstPalette();
    ZOR::OfferBackupWindowAtStart(
        "ZOR_Palette could not read its data file, PreserveState.txt, so it shows a fresh first palette for now. The "
        "file stays exactly as it is: nothing will be saved over it when you quit.\n\nTo get your palettes back, "
        "press OK to open Manage PreserveState Backup (it is also in the Help menu) and restore a backup, for "
        "instance one from the folder EmergencyPreserveStateBU.");
}

// Every way the file can fail, from opening to the last palette, reports once and gives false.
bool readDataFile(const QFileInfo& file) {
    const bool read = Guard::run(where("GetZOR_DataFromDisk"), [&] {
        QFile in(file.filePath());
        if (!file.isFile() || !in.open(QIODevice::ReadOnly))
            throw IOException("PreserveState.txt could not be opened: " + in.errorString());
        const QByteArray bytes = in.readAll();
        if (in.error() != QFileDevice::NoError || bytes.size() != file.size())
            throw IOException("PreserveState.txt could not be read whole: " + in.errorString());
        return ZOR::JSON_ParseData(std::string_view(bytes.constData(), size_t(bytes.size())));
    });
    return read && !ZOR::DP.empty() && ZOR::idxCP >= 0 && ZOR::idxCP < qint64(ZOR::DP.size());
}
} // namespace

void ZOR::GetZOR_DataFromDisk() {
    Guard::run(where("GetZOR_DataFromDisk"), [] {
        AppGlobals::appSupportFolder = StdFolders::applicationSupport() + '/' + AppGlobals::kAppFolderName;
        QDir().mkpath(AppGlobals::appSupportFolder);
        const QFileInfo file(DataFilePath());
        if (!file.exists()) {
            CreateFirstPalette();
            return;
        }
        if (file.size() > 0 || !file.isFile()) {
            if (!readDataFile(file)) startBesideUnreadableFile();
            return;
        }
        if (QFile::remove(file.filePath())) {
            GeneralMethods::ShowText(
                QStringLiteral("Starting over. The PreserveState.txt does not have any data in it, so I am restarting "
                               "from scratch. ") +
                    "You might want to go to the Help menu and chose the menu item: Manage PreserveState Backup. " +
                    "This would allow you to restore the " + "PreserveState" + ".txt " +
                    "file from a Backup that you might have.",
                "Manage PreserveState Backup");
        } else {
            Dialogs::message("The empty PreserveState.txt could not be removed.");
        }
        CreateFirstPalette();
    });
}
