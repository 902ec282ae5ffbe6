#include "k4cmndlg/search/FoundListModel.h"

#include "k4cmndlg/filelist/ListLooks.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/search/SearchTypes.h"

namespace k4cmn {

namespace {

std::vector<std::string> Extensions() {
    return {kSearchExtensions.begin(), kSearchExtensions.end()};
}

}  // namespace

FoundListModel::FoundListModel(QObject* parent)
    : QAbstractTableModel(parent), m_images(Extensions()) {}

void FoundListModel::SetRows(const FoundRows* rows) {
    beginResetModel();
    m_rows = rows;
    m_count = rows ? static_cast<int>(rows->Count()) : 0;
    endResetModel();
}

void FoundListModel::RowsChanged() {
    const int count = m_rows ? static_cast<int>(m_rows->Count()) : 0;
    if (count != m_count) {
        beginResetModel();
        m_count = count;
        endResetModel();
    } else if (m_count > 0) {
        Q_EMIT dataChanged(index(0, 0), index(m_count - 1, columnCount() - 1));
    }
}

int FoundListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_count;
}

int FoundListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant FoundListModel::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    // The rows may be other ones already, and not yet told of.
    if (!index.isValid() || !m_rows || row >= m_rows->Count())
        return {};
    const int column = index.column();
    switch (role) {
        case Qt::DisplayRole:
            return ToQt(m_rows->Text(row, column));
        case Qt::DecorationRole:
            return column == FoundRows::kName ? QVariant(m_images.At(m_rows->Image(row)))
                                              : QVariant();
        case Qt::TextAlignmentRole:
            return AlignmentOf(m_columns[static_cast<std::size_t>(column)]);
        default:
            return {};
    }
}

QVariant FoundListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    return HeadingData(m_columns, section, orientation, role);
}

Qt::ItemFlags FoundListModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    return QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
}

}  // namespace k4cmn
