#pragma once
#include <QColor>
#include <QLabel>
#include <QPixmap>
#include <QStyledItemDelegate>

class QAbstractItemModel;
class QTreeView;
class QTreeWidget;

// Small controls that both asset windows build the same way.
namespace AssetControls {

// A list box of one or more columns; headers empty means no header.
QTreeWidget* listBox(QWidget* parent, const char* name, const QStringList& headers, const QRect& geometry);
// The same list box over a model, for lists too long to hold an item a row; the model names the columns.
QTreeView* listView(QWidget* parent, const char* name, QAbstractItemModel* model, const QRect& geometry);
QLabel* Label(QWidget* parent, const char* name, const QString& text, const QRect& geometry);

// Fills a cell whose tag (the string under Qt::UserRole) is the colour's word with that colour;
// the painting looks at nothing else.
class TagPainter : public QStyledItemDelegate {
public:
    TagPainter(QString word, QColor colour, QObject* parent)
        : QStyledItemDelegate(parent), word(std::move(word)), colour(colour) {}
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    QString word;
    QColor colour;
};

} // namespace AssetControls

// A 64 x 64 canvas that shows its backdrop picture, centred; an empty backdrop clears it.
class cnPicture : public QWidget {
    Q_OBJECT
public:
    explicit cnPicture(QWidget* parent = nullptr);
    void setBackdrop(const QPixmap& picture);
    const QPixmap& backdrop() const { return picture; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap picture;
};
