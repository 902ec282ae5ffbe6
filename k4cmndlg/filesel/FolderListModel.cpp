#include "k4cmndlg/filesel/FolderListModel.h"

#include <unordered_map>
#include <vector>

#include "k4cmndlg/frame/Text.h"

namespace k4cmn {

namespace {

int AlignmentOf(int column) {
    const Qt::Alignment side = column == FolderRows::kSize ? Qt::AlignRight : Qt::AlignLeft;
    return static_cast<int>(side | Qt::AlignVCenter);
}

}  // namespace

FolderListModel::FolderListModel(FolderRows& rows, QObject* parent)
    : QAbstractTableModel(parent), m_rows(rows) {}

void FolderListModel::Refill(const std::function<void()>& fill) {
    beginResetModel();
    fill();
    m_count = static_cast<int>(m_rows.Count());
    endResetModel();
}

void FolderListModel::Reorder(const std::function<void()>& sort) {
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<std::string> paths;
    for (const QModelIndex& index : before)
        paths.push_back(m_rows.Path(static_cast<std::size_t>(index.row())));
    sort();
    std::unordered_map<std::string, int> places;
    if (!before.isEmpty()) {
        for (int row = 0; row < m_count; ++row)
            places.emplace(m_rows.Path(static_cast<std::size_t>(row)), row);
    }
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i)
        after.push_back(index(places.at(paths[static_cast<std::size_t>(i)]), before[i].column()));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

int FolderListModel::Append(const std::function<int()>& add) {
    const int row = add();
    if (row < 0)
        return row;
    beginInsertRows({}, m_count, m_count);
    ++m_count;
    endInsertRows();
    return row;
}

void FolderListModel::RowChanged(int row) {
    Q_EMIT dataChanged(index(row, 0), index(row, FolderRows::kColumnCount - 1));
}

int FolderListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_count;
}

int FolderListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : FolderRows::kColumnCount;
}

QVariant FolderListModel::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (!index.isValid() || row >= m_rows.Count())
        return {};
    switch (role) {
        case Qt::DisplayRole:
            return ToQt(m_rows.Text(row, index.column()));
        case Qt::DecorationRole:
            return index.column() == FolderRows::kName && imageOf
                       ? QVariant(imageOf(m_rows.Path(row)))
                       : QVariant();
        case Qt::TextAlignmentRole:
            return AlignmentOf(index.column());
        case Qt::UserRole:
            return index.row();
        default:
            return {};
    }
}

QVariant FolderListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= FolderRows::kColumnCount)
        return {};
    if (role == Qt::DisplayRole)
        return ToQt(FolderRows::kHeadings[static_cast<std::size_t>(section)]);
    if (role == Qt::TextAlignmentRole)
        return AlignmentOf(section);
    return {};
}

Qt::ItemFlags FolderListModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    return QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
}

}  // namespace k4cmn
