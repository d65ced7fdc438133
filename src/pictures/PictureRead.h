#pragma once
#include <QFile>
#include <QImage>
#include <QSize>
#include <QString>

#include <atomic>

// Reading picture files. Only a regular file is opened (a link is followed to one), and opening
// never waits: a FIFO, a socket or a device where a picture is expected is refused at once, so
// that no start, switch, worker thread or quit can hang on one. Safe on any thread.
namespace PictureRead {

inline constexpr int kButtonSide = 64; // a button, in the window's pixels

// Opens `path` for reading, with `extra` flags, when it is a regular file; otherwise false, with
// `why` in the program's words ("it is not a regular file").
bool openRegular(const QString& path, QFile& file, QString* why, QIODevice::OpenMode extra = {});

// The kind of picture ("png", "jpeg", "gif", "bmp") by the file's first bytes; empty for another.
// A reader told the kind goes straight to its decoder, where one left to guess asks every image
// plugin in turn, loading each.
QByteArray kindOf(QIODevice& file);

// The width and height its header gives, never decoding the picture; invalid when it is no
// picture or no regular file.
QSize size(const QString& path);

// The whole picture, decoded; a null image, with `why`, when it cannot be read to its end.
QImage whole(const QString& path, QString* why);

// Both sides from 51 to 69 pixels: a button draws such a picture as it stands, from its corner.
bool fitsAsItStands(QSize size);

// `fitted` centred on a transparent square of `side` pixels.
QImage centredOnSquare(const QImage& fitted, int side);

// The picture as a button shows it, for a button of `side` device pixels: a picture that fits as
// it stands is decoded as it is; any other is decoded straight to the size that fits the square,
// its aspect kept, and centred on a transparent square of `side` (its device pixel ratio set, so
// that it covers one button). Either way in a format pixmaps are painted from. Reading stops,
// giving a null image, as soon as `stop` is set.
QImage forButton(const QString& path, int side, QString* why, const std::atomic<bool>* stop = nullptr);

} // namespace PictureRead
