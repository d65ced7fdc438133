#pragma once
#include <QByteArrayView>
#include <QImage>
#include <QSize>

// A PNG decoder for the kind nearly every button picture is: 8 bits a channel, RGB or RGBA, not
// interlaced. It inflates with libdeflate and undoes the row filters itself, in about half the
// time libpng takes for such a picture; a very first start decodes a hundred.
namespace PngDecode {

// The eight bytes every PNG file begins with.
inline constexpr char kSignature[] = "\x89PNG\r\n\x1a\n";

// True when the program was built with libdeflate; otherwise `common` always declines.
bool available();

// The width and height in the header of a PNG that starts with `head` (its first 24 bytes);
// invalid when it is no PNG.
QSize sizeOf(QByteArrayView head);

// The picture held whole in `png`, as Format_RGBA8888 or Format_RGB888. A null image when it is
// another kind (palette, grey, 16 bits, interlaced, a palette or transparency chunk) or anything in it is
// wrong (a checksum, a length, the data's size): the caller then gives the file to Qt's reader,
// which decodes every kind and reports the damage.
QImage common(QByteArrayView png);

} // namespace PngDecode
