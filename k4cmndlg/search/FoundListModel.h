#pragma once

#include <QAbstractTableModel>
#include <QVariant>
#include <vector>

#include "k4cmndlg/filelist/FileImages.h"
#include "k4cmndlg/k4cmndlg_export.h"
#include "k4cmndlg/search/FoundRows.h"

namespace k4cmn {

/// FoundRows as the toolkit's views take them; texts are made when a view asks.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT FoundListModel final : public QAbstractTableModel {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FoundListModel)

 public:
    explicit FoundListModel(QObject* parent);

    /// @param rows must outlive the model, or be taken away by null.
    void SetRows(const FoundRows* rows);
    /// Shows what the rows hold now. Another number of rows makes them new ones for the views.
    void RowsChanged();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
    const FoundRows* m_rows = nullptr;
    int m_count = 0;  ///< of rows that the views know of
    const std::vector<FileColumn> m_columns = FoundColumns();
    const FileImages m_images;
};

}  // namespace k4cmn
