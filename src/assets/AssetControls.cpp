#include "assets/AssetControls.h"

#include <QHeaderView>
#include <QPainter>
#include <QTreeWidget>

namespace {
void setUp(QTreeView* list, const char* name, const QRect& geometry) {
    list->setObjectName(QString::fromLatin1(name));
    list->setGeometry(geometry);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->header()->setSectionsMovable(false);
    list->header()->setStretchLastSection(true);
    list->setSortingEnabled(false);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
}
} // namespace

QTreeWidget* AssetControls::listBox(QWidget* parent, const char* name, const QStringList& headers,
                                    const QRect& geometry) {
    auto* list = new QTreeWidget(parent);
    setUp(list, name, geometry);
    list->setColumnCount(std::max<int>(1, int(headers.size())));
    list->setHeaderLabels(headers);
    list->setHeaderHidden(headers.isEmpty());
    return list;
}

QTreeView* AssetControls::listView(QWidget* parent, const char* name, QAbstractItemModel* model,
                                   const QRect& geometry) {
    auto* list = new QTreeView(parent);
    setUp(list, name, geometry);
    list->setModel(model);
    return list;
}

QLabel* AssetControls::Label(QWidget* parent, const char* name, const QString& text, const QRect& geometry) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setGeometry(geometry);
    label->setTextFormat(Qt::PlainText);
    return label;
}

void AssetControls::TagPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const {
    if (index.isValid() && index.data(Qt::UserRole).toString() == word)
        painter->fillRect(option.rect, colour);
    QStyledItemDelegate::paint(painter, option, index);
}

cnPicture::cnPicture(QWidget* parent) : QWidget(parent) {
    setFixedSize(64, 64);
}

void cnPicture::setBackdrop(const QPixmap& backdrop) {
    picture = backdrop;
    repaint(); // at once, as the window asks
}

void cnPicture::paintEvent(QPaintEvent*) {
    QPainter g(this);
    g.fillRect(rect(), Qt::white);
    g.setPen(QColor(0xC0, 0xC0, 0xC0));
    g.drawRect(rect().adjusted(0, 0, -1, -1));
    if (picture.isNull()) return;
    const QPixmap shown = picture.width() > width() || picture.height() > height()
                              ? picture.scaled(size(), Qt::KeepAspectRatio, Qt::SmoothTransformation)
                              : picture;
    g.drawPixmap((width() - shown.width()) / 2, (height() - shown.height()) / 2, shown);
}
