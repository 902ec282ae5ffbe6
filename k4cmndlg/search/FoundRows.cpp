#include "k4cmndlg/search/FoundRows.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "k4cmndlg/filelist/ImagePositions.h"
#include "k4cmndlg/filelist/RowOrder.h"
#include "k4cmndlg/filelist/TextOrder.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/frame/LibraryStrings.h"
#include "k4cmndlg/frame/LocalTime.h"
#include "k4cmndlg/search/SearchTypes.h"

namespace k4cmn {

namespace {

using Order = std::vector<std::size_t>;

template <class Value>
void Reorder(std::vector<Value>& values, const Order& order) {
    std::vector<Value> reordered;
    reordered.reserve(values.size());
    for (const std::size_t row : order)
        reordered.push_back(std::move(values[row]));
    values = std::move(reordered);
}

/// The name of a deleted file, as a row shows it, without its case.
std::string DeletedName(std::string_view path) {
    constexpr std::size_t kDotAndExtension = 4;
    const std::string_view file = path.substr(path.find_last_of('\\') + 1);
    return WithoutCase(WithoutLastCharacters(file, kDotAndExtension));
}

}  // namespace

std::vector<FileColumn> FoundColumns() {
    return ColumnsOf(IDS_FOUND_COLUMNS, FoundRows::kSize);
}

// Filling ------------------------------------------------------------------------------------

void FoundRows::Clear() {
    m_rows.clear();
    m_images.clear();
    m_isSortedByName = true;
}

void FoundRows::Add(std::vector<FoundFileRow> rows) {
    if (rows.empty())
        return;
    for (const FoundFileRow& row : rows)
        m_images.push_back(kFirstFileImage + row.type);
    m_rows.insert(m_rows.end(), std::make_move_iterator(rows.begin()),
                  std::make_move_iterator(rows.end()));
    m_isSortedByName = false;
}

void FoundRows::SortAdded() const {
    if (m_isSortedByName)
        return;
    const Order order = OrderOfTexts(ValuesOf<std::string_view>(&FoundFileRow::name), true);
    Reorder(m_rows, order);
    Reorder(m_images, order);
    m_isSortedByName = true;
}

// Reading ------------------------------------------------------------------------------------

std::vector<std::string> FoundRows::Paths() const {
    SortAdded();
    return ValuesOf<std::string>(&FoundFileRow::path);
}

std::size_t FoundRows::Count() const {
    return m_rows.size();
}

const FoundFileRow& FoundRows::Row(std::size_t row) const {
    SortAdded();
    return m_rows[row];
}

std::string FoundRows::Text(std::size_t row, int column) const {
    const FoundFileRow& file = Row(row);
    switch (column) {
        case kName:
            return file.name;
        case kFolder:
            return file.path;
        case kSize:
            return SizeText(file.size);
        case kType:
            return FoundTypeName(file.type);
        case kModified:
            return TimeText(kModifiedFormat, LocalTime(file.modified));
        default:
            return {};
    }
}

int FoundRows::Image(std::size_t row) const {
    SortAdded();
    return m_images[row];
}

template <class Value, class Source>
std::vector<Value> FoundRows::ValuesOf(Source FoundFileRow::*value) const {
    std::vector<Value> values;
    values.reserve(m_rows.size());
    for (const FoundFileRow& row : m_rows)
        values.emplace_back(row.*value);
    return values;
}

// Sorting ------------------------------------------------------------------------------------

void FoundRows::SortColumn(int column) {
    if (column < kName || column >= kColumnCount)
        return;
    SortAdded();
    m_sortAscending = m_sortAscending ? 0 : 1;
    if (column == kModified && !m_sortAscending)
        std::reverse(m_rows.begin(), m_rows.end());  // what OrderByDate() tells
    else
        Reorder(m_rows, OrderOf(column));
}

std::vector<std::size_t> FoundRows::OrderOf(int column) const {
    const bool ascending = m_sortAscending != 0;
    switch (column) {
        case kSize:
            return OrderBySize(ValuesOf<std::uint64_t>(&FoundFileRow::size), ascending);
        case kModified:
            return OrderByTime(ValuesOf<std::int64_t>(&FoundFileRow::modified));
        case kFolder:
            return OrderOfTexts(ValuesOf<std::string_view>(&FoundFileRow::path), ascending);
        case kType: {
            std::vector<std::string_view> names;
            names.reserve(m_rows.size());
            for (const FoundFileRow& row : m_rows)
                names.emplace_back(FoundTypeName(row.type));
            return OrderOfTexts(names, ascending);
        }
        default:
            return OrderOfTexts(ValuesOf<std::string_view>(&FoundFileRow::name), ascending);
    }
}

// Deleting -----------------------------------------------------------------------------------

void FoundRows::RemoveDeleted(const std::vector<std::string>& paths) {
    SortAdded();
    std::unordered_set<std::string> deleted;
    for (const std::string& path : paths)
        deleted.insert(DeletedName(path));
    std::size_t kept = 0;
    const auto keep = [&](std::size_t row) {
        if (kept != row) {
            m_rows[kept] = std::move(m_rows[row]);
            m_images[kept] = m_images[row];
        }
        ++kept;
    };
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        if (!deleted.contains(WithoutCase(m_rows[row].name)))
            keep(row);
        else if (++row < m_rows.size())
            keep(row);
    }
    m_rows.resize(kept);
    m_images.resize(kept);
}

}  // namespace k4cmn
