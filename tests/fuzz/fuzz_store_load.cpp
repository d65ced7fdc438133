// The whole load of a data file on any bytes, as the start does it: no crash, no hang, no undefined
// behaviour. A file that is read gives a store that holds to what the windows can make, whose
// pictures' folders stay in ButtonPictures, and whose save reads back to the very same text; a file
// that is not read is left byte for byte.
#include "FuzzSupport.h"
#include "store/ZOR.h"
#include "util/AppGlobals.h"
#include "util/FileTools.h"
#include "util/StdFolders.h"

#include <QDir>
#include <QFile>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {
[[noreturn]] void fail(const char* what) {
    fprintf(stderr, "%s\n", what);
    std::abort();
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void load() {
    ZOR::resetStore();
    ZOR::MakeAlphabetShortcuts();
    ZOR::GetZOR_DataFromDisk();
}

// What a store that was read must hold to, whatever the file said.
void checkStore() {
    if (ZOR::DP.empty() || ZOR::idxCP < 0 || ZOR::idxCP >= qint64(ZOR::DP.size()))
        fail("a store was read without an active palette");
    const QString pictures = AppGlobals::appSupportFolder + "/ButtonPictures";
    for (size_t p = 0; p < ZOR::DP.size(); ++p) {
        const PaletteDict& slot = ZOR::DP[p];
        if (slot.s_Name != 'P' + ZOR::ButtonNumber(qint64(p))) fail("a palette's name is not its slot's");
        if (!FileTools::childPath(pictures, slot.s_Name).startsWith(pictures + '/'))
            fail("a palette's pictures' folder is not in ButtonPictures");
        if (slot.i_NumRows < 1 || slot.i_NumRows > 10 || slot.i_NumColumns < 1 || slot.i_NumColumns > 10)
            fail("rows or columns outside 1 to 10");
        for (const BtnRef& b : *slot.a_Btn)
            if (b->AutoMin < 0 || b->AutoMin > 24 * 60 * 60) fail("a minimizing delay outside 0 to a day");
    }
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    FuzzSupport::setUp();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString folder = StdFolders::applicationSupport() + '/' + AppGlobals::kAppFolderName;
    QDir().mkpath(folder);
    const QString file = folder + "/PreserveState.txt";
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    {
        QFile out(file);
        if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) || out.write(bytes) != bytes.size())
            fail("the input could not be written as the data file");
    }
    load();
    if (ZOR::dataFileUnreadable) {
        if (contentOf(file) != bytes) fail("a data file that was not read was changed");
        return 0;
    }
    checkStore();
    ZOR::ActivatePalette(ZOR::idxCP);
    ZOR::QuitSavePaletteChanges = true;
    if (!ZOR::saveStore()) fail("a store that was read could not be saved");
    const QByteArray written = contentOf(file);
    load();
    if (ZOR::dataFileUnreadable) fail("a saved store is not read back");
    checkStore();
    ZOR::ActivatePalette(ZOR::idxCP);
    ZOR::QuitSavePaletteChanges = true;
    if (!ZOR::saveStore() || contentOf(file) != written) fail("a saved store does not read back as written");
    return 0;
}
