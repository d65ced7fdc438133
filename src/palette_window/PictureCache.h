#pragma once
#include <QDateTime>
#include <QHash>
#include <QPixmap>
#include <QString>

// Decoded button pictures, so that switching back to a palette does not decode its files again.
// A file counts as the same while its size and modification time are; a changed file is read anew.
class PictureCache {
public:
    // The picture in `path`; throws IOException when the file is no picture.
    QPixmap Load(const QString& path);

private:
    struct Entry {
        QDateTime modified;
        qint64 size = 0;
        QPixmap picture;
    };
    QHash<QString, Entry> entries;
};
