// The data file reader on any bytes: no crash, no hang, no undefined behaviour, and whatever
// it accepts is written back and read again to the very same text.
#include "FuzzSupport.h"
#include "store/ZOR.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    FuzzSupport::setUp();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ZOR::resetStore();
    ZOR::MakeAlphabetShortcuts();
    if (!ZOR::JSON_ParseData(std::string_view(reinterpret_cast<const char*>(data), size))) return 0;
    if (ZOR::DP.empty() || ZOR::idxCP < 0 || ZOR::idxCP >= qint64(ZOR::DP.size())) {
        fprintf(stderr, "accepted a store without an active palette\n");
        std::abort();
    }
    const QString written = ZOR::JSON_CreateData();
    ZOR::resetStore();
    ZOR::MakeAlphabetShortcuts();
    if (!ZOR::JSON_ParseData(written) || ZOR::JSON_CreateData() != written) {
        fprintf(stderr, "a store that was read does not read back as written\n");
        std::abort();
    }
    return 0;
}
