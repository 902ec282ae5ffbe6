#pragma once

#include <QItemSelectionModel>
#include <cstddef>
#include <vector>

#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

/// A selection of whole rows, whichever view and column it comes from. The current place, too, is
/// in the first column, where labels are edited.
///
/// What is told of a new selection may change the model: by then the selection has done its work.
class K4CMNDLG_EXPORT RowSelection final : public QItemSelectionModel {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RowSelection)

 public:
    RowSelection(QAbstractItemModel* model, QObject* parent);

    /// The selected rows at the top level, in ascending order.
    std::vector<std::size_t> Rows() const;

    void setCurrentIndex(const QModelIndex& index, SelectionFlags command) override;
    void select(const QModelIndex& index, SelectionFlags command) override;
    void select(const QItemSelection& selection, SelectionFlags command) override;
};

}  // namespace k4cmn
