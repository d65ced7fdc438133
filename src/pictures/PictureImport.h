#pragma once
#include <QImage>
#include <QSize>
#include <QString>

// A picture of any size and name made into a button's picture. The file the user chose is only
// read: it is never moved, renamed or changed.
namespace PictureImport {

inline constexpr int kSide = 64; // a button's picture, in pixels
// Both sides from 51 to 69 pixels: the palette draws such a picture as it stands.
bool fitsAsItStands(QSize size);
// Smoothly scaled to fit kSide x kSide with its aspect kept, centred on a transparent square.
QImage squareCopy(const QImage& picture);
// The picture of a regular file (a link is followed), decoded no larger than it is needed for a
// square copy; a null image, with `why` in the program's words, when it cannot be read.
QImage readForCopy(const QString& path, QString* why);
// The name a copy of `sourceName` takes as button `button`'s picture: its two digits, a blank and
// the source's base name (dots made "_", so that the only dot is the suffix's), then `suffix`.
QString copyName(const QString& sourceName, int button, const QString& suffix);

struct Result {
    QString file;  // the button's picture as it now stands; empty when nothing was written
    QString error; // why not, in the program's words; empty on success
};
// Writes a kSide x kSide PNG copy of `source` into `paletteFolder` (made when missing) as button
// `button`'s picture, named by copyName. An existing file of that name is never overwritten.
Result writeSquareCopy(const QString& source, const QString& paletteFolder, int button);
// Makes `source` button `button`'s picture in palette `paletteName`'s folder: a PNG or JPEG whose
// sides fit is copied as it is, anything else becomes a square PNG copy. The button's present
// pictures first go aside to RemovedZOR_PaletteButtonPictures/<paletteName> on the Desktop, as
// Remove does in Button Pictures; a source that is already the button's picture stays as it is.
Result makeButtonPicture(const QString& source, const QString& paletteName, int button);

} // namespace PictureImport
