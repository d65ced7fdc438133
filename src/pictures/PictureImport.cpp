#include "pictures/PictureImport.h"

#include "pictures/ButtonPictureFiles.h"
#include "util/AppGlobals.h"
#include "util/FileTools.h"
#include "util/StdFolders.h"
#include "util/StringUtils.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QSaveFile>
#include <functional>

namespace {
const QString kNotAPicture = QStringLiteral("The chosen file is supposed to be a picture.");

bool isSideOK(int side) {
    return side > 50 && side < 70;
}

// Both readers of a file start here: a pipe or a device where a picture is expected would block.
bool isRegularFile(const QString& path) {
    return !path.isEmpty() && QFileInfo(path).isFile();
}

QByteArray pngOf(const QImage& picture) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return png;
}

// The bytes the button's picture takes, and the suffix of its name.
struct Prepared {
    QByteArray bytes;
    QString suffix;
    QString error;
};

Prepared prepare(const QString& source) {
    if (!isRegularFile(source)) return {{}, {}, kNotAPicture};
    QImageReader header(source);
    const QByteArray format = header.format().toLower();
    const bool asItStands = PictureImport::fitsAsItStands(header.size()) &&
                            (format == "png" || format == "jpeg" || format == "jpg");
    QString why;
    const QImage picture = PictureImport::readForCopy(source, &why);
    if (picture.isNull()) return {{}, {}, why};
    if (asItStands) {
        QFile in(source);
        if (!in.open(QIODevice::ReadOnly)) return {{}, {}, kNotAPicture};
        return {in.readAll(), QFileInfo(source).suffix().toLower(), {}};
    }
    return {pngOf(PictureImport::squareCopy(picture)), QStringLiteral("png"), {}};
}

// Writes `bytes` as `target` once `ready` has run; nothing is written when it fails.
QString writeThen(const QString& target, const QByteArray& bytes, const std::function<QString()>& ready) {
    QSaveFile out(target);
    if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size())
        return "Could not write the picture " + QFileInfo(target).fileName() + ": " + out.errorString() + ".";
    if (const QString why = ready(); !why.isEmpty()) {
        out.cancelWriting();
        out.commit();
        return why;
    }
    if (!out.commit())
        return "Could not write the picture " + QFileInfo(target).fileName() + ": " + out.errorString() + ".";
    return {};
}
} // namespace

bool PictureImport::fitsAsItStands(QSize size) {
    return size.isValid() && isSideOK(size.width()) && isSideOK(size.height());
}

QImage PictureImport::squareCopy(const QImage& picture) {
    QImage square(kSide, kSide, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    if (picture.isNull()) return square;
    const QSize fitted = picture.size().scaled(kSide, kSide, Qt::KeepAspectRatio).expandedTo({1, 1});
    QPainter painter(&square);
    painter.drawImage((kSide - fitted.width()) / 2, (kSide - fitted.height()) / 2,
                      picture.scaled(fitted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    return square;
}

QImage PictureImport::readForCopy(const QString& path, QString* why) {
    if (!isRegularFile(path)) {
        *why = kNotAPicture;
        return {};
    }
    QImageReader reader(path);
    reader.setAutoTransform(true);
    // Decoded at twice the square's side at most: smooth scaling from there loses nothing that
    // shows, and a large JPEG decodes many times faster.
    const QSize size = reader.size();
    if (size.isValid() && (size.width() > 2 * kSide || size.height() > 2 * kSide))
        reader.setScaledSize(size.scaled(2 * kSide, 2 * kSide, Qt::KeepAspectRatio).expandedTo({1, 1}));
    QImage picture = reader.read();
    if (picture.isNull()) *why = kNotAPicture;
    return picture;
}

QString PictureImport::copyName(const QString& sourceName, int button, const QString& suffix) {
    const QString digits = StringUtils::twoDigits(button);
    QString base = QFileInfo(sourceName).completeBaseName();
    if (base.startsWith(digits)) base = base.mid(digits.size()); // "07 cat.png" stays "07 cat.png"
    base = base.replace('.', '_').trimmed();
    // The file system takes 255 bytes; the cut falls between characters.
    while (base.toUtf8().size() > 200)
        base.chop(base.size() > 1 && base.back().isLowSurrogate() ? 2 : 1);
    return digits + (base.isEmpty() ? QString() : ' ' + base) + '.' + suffix;
}

PictureImport::Result PictureImport::writeSquareCopy(const QString& source, const QString& paletteFolder,
                                                     int button) {
    QString why;
    const QImage picture = readForCopy(source, &why);
    if (picture.isNull()) return {{}, why};
    if (!QDir().mkpath(paletteFolder)) return {{}, "Could not make the folder " + paletteFolder + "."};
    const QString target =
        QDir(paletteFolder).filePath(copyName(QFileInfo(source).fileName(), button, "png"));
    if (QFileInfo(target).exists() || QFileInfo(target).isSymLink())
        return {{}, QStringLiteral("A picture with this same name has already been assigned.")};
    if (const QString failed = writeThen(target, pngOf(squareCopy(picture)), [] { return QString(); });
        !failed.isEmpty())
        return {{}, failed};
    return {target, {}};
}

PictureImport::Result PictureImport::makeButtonPicture(const QString& source, const QString& paletteName,
                                                       int button) {
    const QString folder = palettePictureFolder(paletteName);
    const QString real = QFileInfo(source).canonicalFilePath();
    QStringList present;
    for (const auto& [number, path] : buttonPictureFiles(folder)) {
        if (number != button) continue;
        if (!real.isEmpty() && QFileInfo(path).canonicalFilePath() == real) return {path, {}};
        present << path;
    }
    const Prepared prepared = prepare(real.isEmpty() ? source : real);
    if (!prepared.error.isEmpty()) return {{}, prepared.error};
    if (!QDir().mkpath(folder)) return {{}, "Could not make the folder " + folder + "."};
    const QString target =
        QDir(folder).filePath(copyName(QFileInfo(source).fileName(), button, prepared.suffix));
    // The earlier pictures go aside only once the new one is written whole, just before it takes
    // their place; if one cannot go, the button keeps what it had.
    const QString aside = FileTools::childPath(
        QDir(StdFolders::desktop()).filePath(AppGlobals::kRemovedPicturesFolder), paletteName);
    const QString failed = writeThen(target, prepared.bytes, [&]() -> QString {
        if (present.isEmpty()) return {};
        if (!QFileInfo(aside).isDir()) FileTools::CreateAllFoldersInPath(aside);
        for (const QString& path : present)
            if (FileTools::MoveRenameIfNecessary(path, aside).isEmpty())
                return "The picture " + QFileInfo(path).fileName() + " of button " +
                       StringUtils::twoDigits(button) + " could not be moved to " +
                       AppGlobals::kRemovedPicturesFolder +
                       " on the Desktop, so it stays the button's picture.";
        return {};
    });
    if (!failed.isEmpty()) return {{}, failed};
    return {target, {}};
}
