#include "assets/AllButtonModel.h"

namespace {
const QStringList kHeaders{"Folder", "B_ID", "Button"};
}

void AllButtonModel::setRows(QStringList rows) {
    beginResetModel();
    entries = std::move(rows);
    endResetModel();
}

int AllButtonModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(entries.size());
}

int AllButtonModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(kHeaders.size());
}

QVariant AllButtonModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid() || index.row() >= entries.size()) return {};
    const QString& entry = entries[index.row()];
    switch (index.column()) {
    case 0:
        return entry.left(3);
    case 1:
        return entry.mid(4, 2);
    case 2:
        return entry.mid(4);
    default:
        return {};
    }
}

QVariant AllButtonModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= kHeaders.size())
        return {};
    return kHeaders[section];
}
