#include "k4cmndlg/filelist/RowSelection.h"

#include <QPersistentModelIndex>
#include <algorithm>

namespace k4cmn {

RowSelection::RowSelection(QAbstractItemModel* model, QObject* parent)
    : QItemSelectionModel(model, parent) {}

std::vector<std::size_t> RowSelection::Rows() const {
    std::vector<std::size_t> rows;
    for (const QItemSelectionRange& range : selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(static_cast<std::size_t>(row));
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void RowSelection::setCurrentIndex(const QModelIndex& index, SelectionFlags command) {
    const QPersistentModelIndex first(index.siblingAtColumn(0));
    // The toolkit's own way is the other way round, and goes on with an index that those who are
    // told of the selection may have made invalid.
    QItemSelectionModel::setCurrentIndex(first, NoUpdate);
    select(first, command);
}

void RowSelection::select(const QModelIndex& index, SelectionFlags command) {
    select(QItemSelection(index, index), command);
}

void RowSelection::select(const QItemSelection& selection, SelectionFlags command) {
    if (command != SelectionFlags(NoUpdate))
        QItemSelectionModel::select(selection, command | QItemSelectionModel::Rows);
}

}  // namespace k4cmn
