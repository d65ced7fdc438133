#include "palette_window/PictureCache.h"

#include "util/ZorError.h"

#include <QFileInfo>
#include <QImageReader>

QPixmap PictureCache::Load(const QString& path) {
    const QFileInfo file(path);
    auto found = entries.constFind(path);
    if (found != entries.constEnd() && found->modified == file.lastModified() && found->size == file.size())
        return found->picture;
    QImageReader reader(path);
    const QImage image = reader.read();
    if (image.isNull())
        throw IOException("The picture " + file.fileName() + " could not be opened: " + reader.errorString());
    const QPixmap picture = QPixmap::fromImage(image);
    entries.insert(path, {file.lastModified(), file.size(), picture});
    return picture;
}
