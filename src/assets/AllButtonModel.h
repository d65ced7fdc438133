#pragma once
#include <QAbstractTableModel>
#include <QStringList>

// The rows of "All Button Pictures": Folder, B_ID, Button, cut from the audit's "Pnn*name" entries
// only when a row is shown, so that ten thousand pictures cost one string each.
class AllButtonModel : public QAbstractTableModel {
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    void setRows(QStringList rows);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QStringList entries;
};
