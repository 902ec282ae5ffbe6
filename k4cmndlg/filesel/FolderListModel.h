#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <functional>
#include <string>

#include "k4cmndlg/filesel/FolderRows.h"
#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

/// FolderRows as the toolkit's views take them. Texts and images are made when a view asks. The
/// data of Qt::UserRole is a row's index.
/// Threads: the user interface thread.
class K4CMNDLG_EXPORT FolderListModel final : public QAbstractTableModel {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FolderListModel)

 public:
    /// @param rows must outlive the model.
    FolderListModel(FolderRows& rows, QObject* parent);

    /// Gives the image of a file by its path.
    std::function<QIcon(const std::string& path)> imageOf;

    /// Fills the rows anew: there are none that the views know from before.
    void Refill(const std::function<void()>& fill);
    /// Changes the order of the rows; what is selected stays so.
    void Reorder(const std::function<void()>& sort);
    /// Adds at the most one row, at the end. @param add returns its row, or -1.
    int Append(const std::function<int()>& add);
    /// The texts of a row are other ones.
    void RowChanged(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
    FolderRows& m_rows;
    int m_count = 0;  ///< of rows that the views know of
};

}  // namespace k4cmn
