#include "k4cmndlg/filesel/FileListModel.h"

#include "k4cmndlg/filelist/ListLooks.h"
#include "k4cmndlg/frame/Text.h"

namespace k4cmn {

FileListModel::FileListModel(QObject* parent) : QAbstractTableModel(parent) {}

void FileListModel::SetRows(const FileRows* rows) {
    beginResetModel();
    m_rows = rows;
    m_count = rows ? static_cast<int>(rows->Rows().size()) : 0;
    endResetModel();
}

void FileListModel::SetImages(const FileImages& images) {
    m_images = images;
    if (m_count > 0 && !m_columns.empty())
        Q_EMIT dataChanged(index(0, 0), index(m_count - 1, 0), {Qt::DecorationRole});
}

void FileListModel::RowsChanged() {
    const int count = m_rows ? static_cast<int>(m_rows->Rows().size()) : 0;
    if (count != m_count) {
        beginResetModel();
        m_count = count;
        endResetModel();
    } else if (m_count > 0 && !m_columns.empty()) {
        Q_EMIT dataChanged(index(0, 0), index(m_count - 1, columnCount() - 1));
    }
}

void FileListModel::MakeColumns() {
    std::vector<FileColumn> columns = FileColumns();
    if (columns.size() == m_columns.size()) {
        m_columns = std::move(columns);
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
        return;
    }
    beginResetModel();
    m_columns = std::move(columns);
    endResetModel();
}

int FileListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_count;
}

int FileListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant FileListModel::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    // The rows may be other ones already, and not yet told of.
    if (!index.isValid() || !m_rows || row >= m_rows->Rows().size())
        return {};
    const int column = index.column();
    switch (role) {
        case Qt::DisplayRole:
            return ToQt(m_rows->Text(row, column));
        case Qt::EditRole:
            return column == FileRows::kName ? QVariant(ToQt(m_rows->Text(row, column)))
                                             : QVariant();
        case Qt::DecorationRole:
            return column == FileRows::kName ? QVariant(m_images.At(m_rows->Image())) : QVariant();
        case Qt::TextAlignmentRole:
            return AlignmentOf(m_columns[static_cast<std::size_t>(column)]);
        default:
            return {};
    }
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    return HeadingData(m_columns, section, orientation, role);
}

Qt::ItemFlags FileListModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    return index.column() == FileRows::kName ? flags | Qt::ItemIsEditable : flags;
}

}  // namespace k4cmn
