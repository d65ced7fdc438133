#include "pictures/PictureImport.h"

#include "pictures/ButtonPictureFiles.h"
#include "pictures/PictureRead.h"
#include "util/AppGlobals.h"
#include "util/FileTools.h"
#include "util/StdFolders.h"
#include "util/StringUtils.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QSaveFile>
#include <functional>

namespace {
const QString kNotAPicture = QStringLiteral("The chosen file is supposed to be a picture.");

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
    QString why;
    QFile in;
    if (!PictureRead::openRegular(source, in, &why)) return {{}, {}, kNotAPicture};
    QImageReader header(&in, PictureRead::kindOf(in));
    const QByteArray format = header.format().toLower();
    const bool asItStands = PictureImport::fitsAsItStands(header.size()) &&
                            (format == "png" || format == "jpeg" || format == "jpg");
    const QImage picture = PictureImport::readForCopy(source, &why);
    if (picture.isNull()) return {{}, {}, why};
    if (asItStands) {
        in.seek(0);
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
    return PictureRead::fitsAsItStands(size);
}

QImage PictureImport::squareCopy(const QImage& picture) {
    if (picture.isNull()) return PictureRead::centredOnSquare({}, kSide);
    const QSize fitted = picture.size().scaled(kSide, kSide, Qt::KeepAspectRatio).expandedTo({1, 1});
    return PictureRead::centredOnSquare(
        picture.scaled(fitted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation), kSide);
}

QImage PictureImport::readForCopy(const QString& path, QString* why) {
    QFile file;
    if (!PictureRead::openRegular(path, file, why)) {
        *why = kNotAPicture;
        return {};
    }
    QImageReader reader(&file, PictureRead::kindOf(file));
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
    if (nameTakenIn(paletteFolder, QFileInfo(target).fileName()))
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
