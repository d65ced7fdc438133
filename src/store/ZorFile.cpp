#include "store/ZOR.h"

#include "help/GeneralMethods.h"
#include "json/JsonText.h"
#include "store/DataFileObjects.h"
#include "store/PaletteButtons.h"
#include "util/AppGlobals.h"
#include "util/Dialogs.h"
#include "util/FileTools.h"
#include "util/Guard.h"
#include "util/StdFolders.h"
#include "util/ZorError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {
Guard::Where where(const char* method) { return Guard::Where::module("ZOR", method); }

constexpr qint64 kLongestAutoMin = 24 * 60 * 60; // seconds

template <bool keep> void readButton(JsonText::Reader& r, Btn& b, std::string_view& key, bool tellAbsentKeys) {
    DataFileKeys::ButtonNumber v;
    DataFileKeys::readObject<DataFileKeys::kButtonKeys, keep>(r, b, v, key, tellAbsentKeys);
    if (v.id < 0) throw JSONException(QStringLiteral("The button number \"%1\" is not two digits.").arg(v.badSID));
    if constexpr (keep) {
        b.ID = v.id;
        b.Row = v.id / 10;
        b.Col = v.id % 10;
        b.sID = ZOR::ButtonNumber(v.id);
        // A delay the minimizing timer cannot hold (or a negative one) is held to a day at most.
        b.AutoMin = std::clamp<qint64>(b.AutoMin, 0, kLongestAutoMin);
    }
}

void readPalette(JsonText::Reader& r, PaletteDict& p, qint64 slot, std::string_view& key,
                 bool tellAbsentKeys) {
    DataFileKeys::ButtonNumber none;
    DataFileKeys::readObject<DataFileKeys::kPaletteKeys, true>(r, p, none, key, tellAbsentKeys);
    p.i_NumRows = usableGridCount(p.i_NumRows);
    p.i_NumColumns = usableGridCount(p.i_NumColumns);
    // The name is the palette's folder in ButtonPictures: only the slot's own name may stand here.
    const QString own = 'P' + ZOR::ButtonNumber(slot);
    if (p.s_Name != own)
        throw JSONException(
            QStringLiteral("The palette in place %1 is named \"%2\"; its name can only be %3.")
                .arg(slot)
                .arg(p.s_Name.left(80), own));
}

void nextElementOrFail(JsonText::Reader& r) {
    if (!r.nextElement()) throw JSONException("The data ends before the last palette is complete.");
}
} // namespace

qint64 ZOR::peekCurrentPalette() {
    const std::unique_ptr<QFile> in = FileTools::openRegularFile(dataFilePath(), nullptr);
    if (!in) return -1;
    const QByteArray start = in->read(4096);
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

QString ZOR::dataFilePath() { return AppGlobals::appSupportFolder + '/' + kDataFileName + ".txt"; }

QString ZOR::JSON_CreateData() {
    return Guard::run(where("JSON_CreateData"), [] {
        JsonText::Writer w(qsizetype(DP.size()) * 101 * 280 + 256);
        const QRect rect = view() ? view()->windowRect()
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
            for (const BtnRef& b : *slot.a_Btn) DataFileKeys::writeObject<DataFileKeys::kButtonKeys>(w, *b);
            DataFileKeys::writeObject<DataFileKeys::kPaletteKeys>(w, slot);
        }
        w.endArray();
        QString text = w.take();
        if (text.size() < 20) Dialogs::message("Somehow no data to save to PreserveState at the end. Some bug.");
        return text;
    });
}

void PaletteButtons::read() const {
    const std::string_view all = text->view();
    JsonText::Reader r(all.substr(begin, end - begin));
    std::string_view key;
    auto buttons = std::make_shared<std::vector<BtnRef>>();
    buttons->reserve(kButtonsPerPalette);
    for (int i = 0; i < kButtonsPerPalette; ++i) {
        if (i > 0) r.expect(',');
        auto b = std::make_shared<Btn>();
        readButton<true>(r, *b, key, false);
        buttons->push_back(std::move(b));
    }
    array = std::move(buttons);
    text.reset();
}

namespace {
// Reads the head and every palette object, and checks every button; the buttons themselves stay
// text in `source` until they are first asked for. Throws what it cannot read.
bool parseStoreOrThrow(const std::shared_ptr<StoreText>& source) {
    using namespace ZOR;
    JsonText::Reader r(source->view());
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
    if (!haveLast) DataFileKeys::missingKey("LastPaletteIndex");
    if (!haveCurrent) DataFileKeys::missingKey("CurrentPalette");
    if (lastPaletteIndex < 0 || lastPaletteIndex > 99)
        throw JSONException(QStringLiteral("LastPaletteIndex %1 is out of range.").arg(lastPaletteIndex));
    while (qint64(DP.size()) <= lastPaletteIndex) DP.emplace_back();
    Btn unused;
    for (qint64 p = 0; p <= lastPaletteIndex; ++p) {
        nextElementOrFail(r);
        const size_t begin = r.position();
        for (int i = 0; i < kButtonsPerPalette; ++i) {
            if (i > 0) nextElementOrFail(r);
            readButton<false>(r, unused, key, p == 0 && i == 0);
        }
        DP[size_t(p)].a_Btn = PaletteButtons(source, begin, r.position());
        nextElementOrFail(r);
        readPalette(r, DP[size_t(p)], p, key, p == 0);
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
}

bool parseStore(const std::shared_ptr<StoreText>& source) {
    return Guard::run(where("JSON_ParseData"), [&source] { return parseStoreOrThrow(source); });
}
} // namespace

QString ZOR::whyNotAStore(const QString& path) {
    // Read into a store of its own: the one in use stays as it is, whatever the file holds.
    Properties inUse = std::move(properties);
    properties = Properties();
    QString why;
    try {
        parseStoreOrThrow(StoreText::fromFile(path));
    } catch (const std::exception& error) {
        why = QString::fromStdString(error.what());
    }
    properties = std::move(inUse);
    return why;
}

bool ZOR::JSON_ParseData(const QString& text) { return parseStore(std::make_shared<StoreText>(text.toUtf8())); }

bool ZOR::JSON_ParseData(std::string_view utf8) {
    return parseStore(std::make_shared<StoreText>(QByteArray(utf8.data(), qsizetype(utf8.size()))));
}

void ZOR::keepDataText() {
    for (const PaletteDict& slot : DP) slot.a_Btn.keepText();
}

namespace {
// A data file that cannot be read is reported, left as it is, and never overwritten at the quit.
// The program goes on with a first palette in memory so that it can be used and quit cleanly.
void startBesideUnreadableFile() {
    ZOR::DP.clear();
    ZOR::idxCP = -1;
    ZOR::dataFileUnreadable = true;
    ZOR::CreateFirstPalette();
}

// Every way the file can fail, from opening to the last palette, reports once and gives false.
bool readDataFile(const QFileInfo& file) {
    const bool read = Guard::run(where("GetZOR_DataFromDisk"),
                                 [&] { return parseStore(StoreText::fromFile(file.filePath())); });
    return read && !ZOR::DP.empty() && ZOR::idxCP >= 0 && ZOR::idxCP < qint64(ZOR::DP.size());
}
} // namespace

void ZOR::GetZOR_DataFromDisk() {
    Guard::run(where("GetZOR_DataFromDisk"), [] {
        AppGlobals::appSupportFolder = StdFolders::applicationSupport() + '/' + AppGlobals::kAppFolderName;
        QDir().mkpath(AppGlobals::appSupportFolder);
        clearUnfinishedSave();
        const QFileInfo file(dataFilePath());
        // A link whose file is not there (an unmounted volume) is a data file that cannot be read.
        if (!file.exists() && !file.isSymLink()) {
            CreateFirstPalette();
            return;
        }
        if (file.size() > 0 || !file.isFile()) {
            if (!readDataFile(file)) startBesideUnreadableFile();
            return;
        }
        // An empty file at the end of a link stays, for the saves to write through the link.
        if (file.isSymLink() || QFile::remove(file.filePath())) {
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
