#include "pictures/PictureRead.h"
#include "pictures/PngDecode.h"

#include <QImageReader>
#include <QPainter>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
const QString kNotRegular = QStringLiteral("it is not a regular file");
const QString kNoPicture = QStringLiteral("it is damaged, or it is no picture");

// A file whose reads fail once `stop` is set: a decoder reading a large picture gives up at its
// next read instead of finishing.
class StoppableFile : public QFile {
public:
    explicit StoppableFile(const std::atomic<bool>* stop) : stop(stop) {}

protected:
    qint64 readData(char* data, qint64 maxSize) override {
        if (stop && stop->load(std::memory_order_relaxed)) return -1;
        return QFile::readData(data, maxSize);
    }

private:
    const std::atomic<bool>* stop;
};

bool isSideOK(int side) {
    return side > 50 && side < 70;
}

} // namespace

QByteArray PictureRead::kindOf(QIODevice& file) {
    const QByteArray start = file.peek(8);
    if (start.startsWith(PngDecode::kSignature)) return "png";
    if (start.startsWith("\xFF\xD8\xFF")) return "jpeg";
    if (start.startsWith("GIF8")) return "gif";
    if (start.startsWith("BM")) return "bmp";
    return {};
}

namespace {
QImage paintable(QImage image) {
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    return image;
}
} // namespace

bool PictureRead::openRegular(const QString& path, QFile& file, QString* why, QIODevice::OpenMode extra) {
    const QByteArray name = QFile::encodeName(path);
    struct stat st {};
    // Asked before opening: opening some devices does something, and a FIFO would wait for a writer.
    if (path.isEmpty() || ::stat(name.constData(), &st) != 0) {
        *why = path.isEmpty() || errno == ENOENT
                   ? QStringLiteral("it is not there")
                   : "it cannot be opened: " + QString::fromLocal8Bit(std::strerror(errno));
        return false;
    }
    if (!S_ISREG(st.st_mode)) {
        *why = kNotRegular;
        return false;
    }
    // Without waiting all the same, and asked again of what was opened: the name may have been
    // given to something else in between.
    const int fd = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        *why = "it cannot be opened: " + QString::fromLocal8Bit(std::strerror(errno));
        return false;
    }
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        *why = kNotRegular;
        return false;
    }
    if (!file.open(fd, QIODevice::ReadOnly | extra, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        *why = "it cannot be opened: " + file.errorString();
        return false;
    }
    return true;
}

QSize PictureRead::size(const QString& path) {
    QFile file;
    QString why;
    if (!openRegular(path, file, &why)) return {};
    QImageReader reader(&file, kindOf(file));
    return reader.canRead() ? reader.size() : QSize();
}

QImage PictureRead::whole(const QString& path, QString* why) {
    QFile file;
    if (!openRegular(path, file, why)) return {};
    QImageReader reader(&file, kindOf(file));
    QImage image = reader.read();
    if (image.isNull()) *why = kNoPicture;
    return image;
}

bool PictureRead::fitsAsItStands(QSize size) {
    return size.isValid() && isSideOK(size.width()) && isSideOK(size.height());
}

QImage PictureRead::centredOnSquare(const QImage& fitted, int side) {
    QImage square(side, side, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    QPainter painter(&square);
    painter.drawImage((side - fitted.width()) / 2, (side - fitted.height()) / 2, fitted);
    return square;
}

namespace {
// A PNG that fits as it stands, decoded without libpng when it is of the common kind; null for
// any other, the file then read again from its start.
QImage quickPng(QFile& file) {
    constexpr qint64 kLargest = 1 << 20; // more than a picture of 69 x 69 and its notes need
    if (!PngDecode::available() || file.size() > kLargest || !PictureRead::fitsAsItStands(PngDecode::sizeOf(file.peek(24))))
        return {};
    QImage image = PngDecode::common(file.readAll());
    if (image.isNull()) file.seek(0);
    return image;
}
} // namespace

QImage PictureRead::forButton(const QString& path, int side, QString* why, const std::atomic<bool>* stop) {
    StoppableFile file(stop);
    if (!openRegular(path, file, why)) return {};
    const QByteArray kind = kindOf(file);
    if (kind == "png")
        if (QImage image = quickPng(file); !image.isNull()) return paintable(std::move(image));
    QImageReader reader(&file, kind);
    const QSize size = reader.size();
    if (fitsAsItStands(size)) {
        QImage image = reader.read();
        if (image.isNull()) *why = kNoPicture;
        return image.isNull() ? image : paintable(std::move(image));
    }
    // Decoded straight to the size it is shown at: a JPEG decodes many times faster so, and no
    // more than the button's pixels are ever kept. A photo is turned upright first.
    reader.setAutoTransform(true);
    if (size.isValid()) reader.setScaledSize(size.scaled(side, side, Qt::KeepAspectRatio).expandedTo({1, 1}));
    QImage image = reader.read();
    if (image.isNull()) {
        *why = kNoPicture;
        return {};
    }
    if (!size.isValid() && fitsAsItStands(image.size())) return paintable(std::move(image));
    // Scaled here when the reader could not (a kind whose header gives no size).
    const QSize fitted = image.size().scaled(side, side, Qt::KeepAspectRatio).expandedTo({1, 1});
    if (image.size() != fitted) image = image.scaled(fitted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QImage square = centredOnSquare(image, side);
    square.setDevicePixelRatio(qreal(side) / kButtonSide);
    return square;
}
