#include "store/PaletteButtons.h"

#include "util/FileTools.h"
#include "util/ZorError.h"

#include <QFile>
#include <QFileInfo>

StoreText::StoreText(QByteArray bytes) : owned(std::move(bytes)), text(owned.constData(), size_t(owned.size())) {}

StoreText::~StoreText() = default;

std::shared_ptr<StoreText> StoreText::fromFile(const QString& path) {
    // Mapped rather than read: the start touches only the pages it reads, and makes no copy.
    std::shared_ptr<StoreText> result(new StoreText);
    QString why;
    std::unique_ptr<QFile> file = FileTools::openRegularFile(path, &why);
    if (!file) throw IOException(QFileInfo(path).fileName() + " could not be opened: " + why + '.');
    const qint64 size = file->size();
    if (uchar* bytes = size > 0 ? file->map(0, size) : nullptr) {
        result->text = std::string_view(reinterpret_cast<const char*>(bytes), size_t(size));
        result->mapped = std::move(file);
        return result;
    }
    result->owned = file->readAll();
    if (file->error() != QFileDevice::NoError || result->owned.size() != size)
        throw IOException(QFileInfo(path).fileName() + " could not be read whole: " + file->errorString());
    result->text = std::string_view(result->owned.constData(), size_t(result->owned.size()));
    return result;
}

void StoreText::keep() {
    if (!mapped) return;
    owned = QByteArray(text.data(), qsizetype(text.size()));
    text = std::string_view(owned.constData(), size_t(owned.size()));
    mapped.reset();
}
