#pragma once

#include <QAbstractTableModel>
#include <QVariant>
#include <vector>

#include "k4cmndlg/filelist/FileImages.h"
#include "k4cmndlg/filesel/FileRows.h"
#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

/// FileRows as the toolkit's views take them; texts are made when a view asks. A row's label can be
/// edited; what comes of it is for others to decide.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT FileListModel final : public QAbstractTableModel {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FileListModel)

 public:
    explicit FileListModel(QObject* parent);

    /// @param rows must outlive the model, or be taken away by null.
    void SetRows(const FileRows* rows);
    void SetImages(const FileImages& images);
    /// Shows what the rows hold now. Another number of rows makes them new ones for the views.
    void RowsChanged();
    /// Makes the columns anew. Until the first time there are none.
    void MakeColumns();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
    const FileRows* m_rows = nullptr;
    int m_count = 0;  ///< of rows that the views know of
    std::vector<FileColumn> m_columns;
    FileImages m_images;
};

}  // namespace k4cmn
