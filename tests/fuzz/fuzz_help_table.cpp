// The help table's cleaning and dictionary on any text: no crash, no hang, no undefined
// behaviour, and a table it has cleaned is clean: cleaning it again changes nothing.
#include "FuzzSupport.h"
#include "help/Help.h"

#include <QString>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    FuzzSupport::setUp();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString table = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    Help::FillDictionaryFromHELP_TEXT(table);
    const QString cleaned = Help::cleanedHelpText;
    if (cleaned.isEmpty()) return 0;
    Help::CleanHelpText(cleaned);
    if (Help::cleanedHelpText != cleaned) {
        fprintf(stderr, "a cleaned table is changed by a second cleaning\n");
        std::abort();
    }
    return 0;
}
