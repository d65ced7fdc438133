#pragma once
// What the window tests share: the program's parts, Qt's test and widget modules, and helpers.
#include "common/Program.h"
#include "help/HelpLabels.h"
#include "palette_window/MainMenuBar.h"
#include "palette_window/cnBut.h"
#include "palette_window/winMain.h"
#include "store/ZOR.h"
#include "util/AppGlobals.h"
#include "util/Clock.h"

#include <QtTest>
#include <QtWidgets>

inline const QString kFamily =
    QStringLiteral("👨‍👩‍👧"); // one character a user sees, of eight 16-bit units

// One key that types `text`, as the Mac's character viewer types an emoji.
inline void type(QWidget* field, const QString& text) {
    QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, text);
    QApplication::sendEvent(field, &key);
}

// Whether a label shows its text within its width: whole, or cut with "…" and whole in its tooltip.
inline QString fitted(const QLabel* label, const QString& text) {
    if (QFontMetrics(label->font()).horizontalAdvance(label->text()) > label->contentsRect().width())
        return "wider than the label";
    if (label->text() == text && label->toolTip().isEmpty()) return "whole";
    return label->text().endsWith("…") && label->toolTip() == text ? "cut, whole in its tooltip" : "lost";
}

inline QByteArray picture(int width, int height, QColor colour = Qt::red, const char* format = "PNG") {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

// A PNG whose header is whole and whose body stops halfway.
inline QByteArray cutShort() {
    QImage noise(64, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            noise.setPixel(x, y, qRgb(x * 37 % 256, y * 91 % 256, (x * y) % 256));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    noise.save(&buffer, "PNG");
    return bytes.left(bytes.size() / 2);
}

// The part of a picture that is not transparent.
inline QRect opaquePart(const QImage& image) {
    QRect opaque;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) == 255) opaque |= QRect(x, y, 1, 1);
    return opaque;
}

// A value as qDebug() prints it, for the message of a check that QCOMPARE does not fit.
template <class T> QByteArray printed(const T& value) {
    QString text;
    QDebug(&text).nospace() << value;
    return text.toUtf8();
}

inline QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A saved store as lines: "LastPaletteIndex=0" of the head, "P00 numRows=3" of a palette,
// "P00 05 Tip=Hi" of a button. Whole, so that a change nobody asked for shows.
inline QStringList storeLines(const QString& path) {
    const QJsonArray all = QJsonDocument::fromJson(readAll(path)).array();
    QStringList out;
    for (qsizetype e = 0; e < all.size(); ++e) {
        const qsizetype p = (e - 1) / 101, i = (e - 1) % 101;
        const QString where = e == 0 ? QString() : QString::asprintf("P%02d ", int(p)) +
                                                        (i == 100 ? QString() : QString::asprintf("%02d ", int(i)));
        const QJsonObject o = all[e].toObject();
        for (auto it = o.begin(); it != o.end(); ++it)
            out << where + it.key() + '=' + it.value().toVariant().toString();
    }
    return out;
}

// The lines of `now` that `before` has not: what the user keeps of a sequence.
inline QStringList changes(const QStringList& before, const QStringList& now) {
    const QSet<QString> old(before.begin(), before.end());
    QStringList out;
    for (const QString& line : now)
        if (!old.contains(line)) out << line;
    return out;
}

// The names in a folder, hidden ones too, in order.
inline QStringList namesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                  QDir::Name);
}

// Every file under a folder by content (links by their target), with where it lies: taken before an
// action, it tells after it whether anything the user had is gone or changed.
using HomeFiles = QMap<QByteArray, QStringList>;
inline HomeFiles snapshot(const QString& root) {
    HomeFiles files;
    QDirIterator it(root, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories); // it does not follow links into folders
    while (it.hasNext()) {
        const QFileInfo info(it.next());
        QFile file(info.filePath());
        if (info.isSymLink() || (info.isFile() && file.open(QIODevice::ReadOnly)))
            files[info.isSymLink() ? "link:" + info.symLinkTarget().toUtf8() : "file:" + file.readAll()]
                << info.filePath();
    }
    return files;
}

// The files of `before` that no longer exist byte for byte anywhere under `root`.
inline QStringList lostSince(const HomeFiles& before, const QString& root) {
    const HomeFiles now = snapshot(root);
    QStringList out;
    for (auto it = before.cbegin(); it != before.cend(); ++it)
        if (now.value(it.key()).size() < it.value().size()) out << it.value();
    return out;
}

// A click on the middle of a list's row.
inline void pressRow(QTreeWidget* list, int row) {
    list->scrollToItem(list->topLevelItem(row)); // the 100th of a long list too
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->topLevelItem(row)).center());
}

// Each row's cells in `columns` joined by '|'; a cell's tag, if any, follows it after a ':'.
inline QStringList rows(const QAbstractItemView* list, const QList<int>& columns = {0}) {
    QStringList out;
    for (int r = 0; r < list->model()->rowCount(); ++r) {
        QStringList cells;
        for (int c : columns) {
            const QModelIndex cell = list->model()->index(r, c);
            const QString tag = cell.data(Qt::UserRole).toString();
            cells << cell.data().toString() + (tag.isEmpty() ? "" : ':' + tag);
        }
        out << cells.join('|');
    }
    return out;
}

template <class Window> std::unique_ptr<Window> opened() {
    auto window = std::make_unique<Window>();
    window->Event_Opening();
    return window;
}
