// The quick PNG decoder on any bytes: no crash, no hang, no undefined behaviour, and a picture it
// decodes is the one Qt's reader decodes, pixel for pixel. Whatever it declines goes to Qt's
// reader in the program, so declining is always allowed.
#include "FuzzSupport.h"
#include "pictures/PngDecode.h"

#include <QImage>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    FuzzSupport::setUp();
    return 0;
}

namespace {
// Pixels and format as the palette paints them; the colour space Qt's reader takes from a gamma
// chunk is left out, as painting leaves it out.
bool samePixels(QImage a, QImage b) {
    for (QImage* image : {&a, &b})
        image->convertTo(image->hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    if (a.format() != b.format() || a.size() != b.size()) return false;
    for (int y = 0; y < a.height(); ++y)
        if (std::memcmp(a.constScanLine(y), b.constScanLine(y), size_t(a.width()) * 4) != 0) return false;
    return true;
}

// Every chunk's checksum made right, so that a mutation reaches the decoding instead of stopping
// at the checksum (whose check is one comparison).
QByteArray withChunksChecked(const uint8_t* data, size_t size) {
    QByteArray png(reinterpret_cast<const char*>(data), qsizetype(size));
    auto* p = reinterpret_cast<unsigned char*>(png.data());
    for (size_t at = 8; at + 12 <= size;) {
        const size_t length = size_t(p[at]) << 24 | size_t(p[at + 1]) << 16 | size_t(p[at + 2]) << 8 | p[at + 3];
        if (length > size - at - 12) break;
        uint32_t crc = 0xFFFFFFFFu;
        for (size_t i = at + 4; i < at + 8 + length; ++i) {
            crc ^= p[i];
            for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (0xEDB88320u & (0u - (crc & 1u)));
        }
        crc = ~crc;
        for (int i = 0; i < 4; ++i) p[at + 8 + length + size_t(i)] = uint8_t(crc >> (24 - 8 * i));
        at += 12 + length;
    }
    return png;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray png = withChunksChecked(data, size);
    const QSize header = PngDecode::sizeOf(png);
    const QImage quick = PngDecode::common(png);
    if (quick.isNull()) return 0;
    const QImage qt = QImage::fromData(png, "png");
    if (quick.size() != header || qt.isNull() || !samePixels(quick, qt)) {
        fprintf(stderr, "decoded %dx%d where Qt's reader gives %dx%d%s\n", quick.width(), quick.height(), qt.width(),
                qt.height(), qt.isNull() ? " (none)" : ", or other pixels");
        std::abort();
    }
    return 0;
}
