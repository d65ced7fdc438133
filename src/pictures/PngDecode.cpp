#include "pictures/PngDecode.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#if ZOR_HAS_LIBDEFLATE
#include <libdeflate.h>
#endif

namespace {

uint32_t bigEndian(const unsigned char* p) {
    return uint32_t(p[0]) << 24 | uint32_t(p[1]) << 16 | uint32_t(p[2]) << 8 | uint32_t(p[3]);
}

} // namespace

QSize PngDecode::sizeOf(QByteArrayView head) {
    const auto* p = reinterpret_cast<const unsigned char*>(head.data());
    if (head.size() < 24 || std::memcmp(p, PngDecode::kSignature, 8) != 0 || std::memcmp(p + 12, "IHDR", 4) != 0) return {};
    const uint32_t width = bigEndian(p + 16), height = bigEndian(p + 20);
    return width > 0 && height > 0 && width <= 0x7fffffff && height <= 0x7fffffff ? QSize(int(width), int(height)) : QSize();
}

#if ZOR_HAS_LIBDEFLATE

namespace {

bool isChunk(const unsigned char* type, const char (&name)[5]) {
    return std::memcmp(type, name, 4) == 0;
}

bool isChunkName(const unsigned char* type) {
    for (int i = 0; i < 4; ++i)
        if (!((type[i] >= 'A' && type[i] <= 'Z') || (type[i] >= 'a' && type[i] <= 'z'))) return false;
    return true;
}

// Without branches: which neighbour is nearest depends on the picture, and a mispredicted
// branch a byte costs more than the three sums.
int paeth(int a, int b, int c) {
    const int pa = std::abs(b - c);
    const int pb = std::abs(a - c);
    const int pc = std::abs(a + b - 2 * c);
    const int nearer = pa <= pb ? a : b;
    return (pa <= pb ? pa : pb) <= pc ? nearer : c;
}

// Undoes the filter of one row of `bytes` bytes in place; `above` is the row before, already
// undone (zeros for the first). False for a filter that does not exist.
template <int Bpp>
bool unfilter(int filter, unsigned char* row, const unsigned char* above, int bytes) {
    switch (filter) {
    case 0:
        return true;
    case 1:
        for (int i = Bpp; i < bytes; ++i) row[i] = uint8_t(row[i] + row[i - Bpp]);
        return true;
    case 2:
        for (int i = 0; i < bytes; ++i) row[i] = uint8_t(row[i] + above[i]);
        return true;
    case 3:
        for (int i = 0; i < Bpp; ++i) row[i] = uint8_t(row[i] + (above[i] >> 1));
        for (int i = Bpp; i < bytes; ++i) row[i] = uint8_t(row[i] + ((row[i - Bpp] + above[i]) >> 1));
        return true;
    case 4:
        for (int i = 0; i < Bpp; ++i) row[i] = uint8_t(row[i] + above[i]);
        for (int i = Bpp; i < bytes; ++i)
            row[i] = uint8_t(row[i] + paeth(row[i - Bpp], above[i], above[i - Bpp]));
        return true;
    default:
        return false;
    }
}

constexpr uint32_t kLargestSide = 4096;

template <int Bpp>
bool unfilterAll(const unsigned char* data, QImage& image) {
    const int bytes = image.width() * Bpp;
    static const unsigned char zeros[Bpp * kLargestSide] = {};
    const unsigned char* above = zeros;
    for (int y = 0; y < image.height(); ++y, data += bytes + 1) {
        unsigned char* row = image.scanLine(y);
        std::memcpy(row, data + 1, size_t(bytes));
        if (!unfilter<Bpp>(data[0], row, above, bytes)) return false;
        above = row;
    }
    return true;
}

} // namespace

bool PngDecode::available() {
    return true;
}

QImage PngDecode::common(QByteArrayView png) {
    const auto* p = reinterpret_cast<const unsigned char*>(png.data());
    const auto* end = p + png.size();
    if (png.size() < 8 + 25 || std::memcmp(p, PngDecode::kSignature, 8) != 0) return {};
    p += 8;
    QByteArray deflated;
    int width = 0, height = 0, bpp = 0;
    bool dataEnded = false; // the picture's data chunks stand together, one after the other
    for (bool ended = false; !ended;) {
        if (end - p < 12) return {};
        const uint32_t length = bigEndian(p);
        const unsigned char* type = p + 4;
        if (length > uint32_t(end - p - 12) || !isChunkName(type)) return {};
        const unsigned char* body = p + 8;
        if (libdeflate_crc32(0, type, length + 4) != bigEndian(body + length)) return {};
        p = body + length + 4;
        if (width == 0) {
            // IHDR first: width, height, 8 bits, RGB (2) or RGBA (6), compression 0, filter 0, not interlaced.
            if (!isChunk(type, "IHDR") || length != 13 || body[8] != 8 || (body[9] != 2 && body[9] != 6) ||
                body[10] != 0 || body[11] != 0 || body[12] != 0)
                return {};
            const uint32_t w = bigEndian(body), h = bigEndian(body + 4);
            if (w == 0 || h == 0 || w > kLargestSide || h > kLargestSide) return {};
            width = int(w);
            height = int(h);
            bpp = body[9] == 6 ? 4 : 3;
        } else if (isChunk(type, "IDAT")) {
            if (dataEnded) return {};
            deflated.append(reinterpret_cast<const char*>(body), qsizetype(length));
        } else {
            dataEnded = !deflated.isEmpty();
            ended = isChunk(type, "IEND");
            // Transparency by colour changes the pixels; any other critical chunk (a palette among
            // them, which libpng holds to rules of its own) is Qt's to judge.
            if (isChunk(type, "tRNS") || (!ended && (type[0] & 0x20) == 0)) return {};
        }
    }
    const size_t rowBytes = size_t(width) * size_t(bpp) + 1;
    const size_t filteredBytes = rowBytes * size_t(height);
    // Deflate shrinks at most about 1:1032, so a larger picture in so few bytes is damaged: it is
    // left to Qt's reader without a buffer of its size.
    if (deflated.isEmpty() || filteredBytes / 1032 > size_t(deflated.size())) return {};
    QByteArray filtered(qsizetype(filteredBytes), Qt::Uninitialized);
    const std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor*)> inflater(
        libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    if (!inflater ||
        libdeflate_zlib_decompress(inflater.get(), deflated.constData(), size_t(deflated.size()), filtered.data(),
                                   filteredBytes, nullptr) != LIBDEFLATE_SUCCESS)
        return {};
    QImage image(width, height, bpp == 4 ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    if (image.isNull()) return {};
    const auto* data = reinterpret_cast<const unsigned char*>(filtered.constData());
    if (!(bpp == 4 ? unfilterAll<4>(data, image) : unfilterAll<3>(data, image))) return {};
    return image;
}

#else

bool PngDecode::available() {
    return false;
}

QImage PngDecode::common(QByteArrayView) {
    return {};
}

#endif
