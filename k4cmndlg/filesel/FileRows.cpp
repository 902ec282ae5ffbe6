#include "k4cmndlg/filesel/FileRows.h"

#include <algorithm>
#include <utility>

#include "k4cmndlg/filelist/RowOrder.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/FindNames.h"
#include "k4cmndlg/filestore/contracts/StoreAccess.h"
#include "k4cmndlg/frame/LibraryStrings.h"
#include "k4cmndlg/frame/LocalTime.h"

namespace k4cmn {

std::vector<FileColumn> FileColumns() {
    return ColumnsOf(IDS_FILE_COLUMNS, FileRows::kSize);
}

std::string ListPattern(const FileLocation& place) {
    const bool isBelowServer = !place.signType.empty() || !place.library.empty();
    if (LiesAtServerRoot(place.fileExtension) && isBelowServer)
        return {};
    return FilePattern(place);
}

void FileRows::Fill(const FileLocation& place, std::string_view typeName, int image,
                    const LastModifiedFilter& filter) {
    m_rows.clear();
    m_typeName = typeName;
    m_image = image;
    const std::string pattern = ListPattern(place);
    std::vector<std::string> names;
    if (pattern.empty() || !FindNames(names, pattern, 0))
        return;
    const std::string folder = pattern.substr(0, pattern.find_last_of('\\') + 1);
    const auto all = Provided<StoreAccess>::Current().StatusIn(folder, names);
    const std::size_t ending = place.fileExtension.size() + 1;
    m_rows.reserve(names.size());
    for (std::size_t i = 0; i < names.size() && i < all.size(); ++i) {
        if (!all[i] || !filter.Passes(all[i]->modified))
            continue;
        std::string& name = names[i];
        name.resize(name.size() - std::min(name.size(), ending));
        m_rows.push_back({std::move(name), all[i]->size, all[i]->modified});
    }
    Sort(kName, true);
}

std::string FileRows::Text(std::size_t row, int column) const {
    switch (column) {
        case kName:
            return m_rows[row].name;
        case kSize:
            return SizeText(m_rows[row].size);
        case kType:
            return m_typeName;
        case kModified:
            return TimeText(kModifiedFormat, LocalTime(m_rows[row].modified));
        default:
            return {};
    }
}

std::optional<std::size_t> FileRows::Find(std::string_view name) const {
    const auto row = std::find_if(m_rows.begin(), m_rows.end(),
                                  [&](const FileRow& candidate) { return candidate.name == name; });
    if (row == m_rows.end())
        return std::nullopt;
    return static_cast<std::size_t>(row - m_rows.begin());
}

void FileRows::Sort(int column, bool ascending) {
    if (column < kName || column >= kColumnCount || column == kType)
        return;  // all rows have one type
    if (column == kModified && !ascending) {
        std::reverse(m_rows.begin(), m_rows.end());  // what OrderByDate() tells
        return;
    }
    std::vector<FileRow> sorted;
    sorted.reserve(m_rows.size());
    for (const std::size_t row : OrderOf(column, ascending))
        sorted.push_back(std::move(m_rows[row]));
    m_rows = std::move(sorted);
}

template <class Value>
std::vector<Value> FileRows::ValuesOf(Value FileRow::*value) const {
    std::vector<Value> values;
    values.reserve(m_rows.size());
    for (const FileRow& row : m_rows)
        values.push_back(row.*value);
    return values;
}

std::vector<std::size_t> FileRows::OrderOf(int column, bool ascending) const {
    switch (column) {
        case kSize:
            return OrderBySize(ValuesOf(&FileRow::size), ascending);
        case kModified:
            return OrderByTime(ValuesOf(&FileRow::modified));
        default:
            return OrderByText(ValuesOf(&FileRow::name), ascending);
    }
}

std::vector<std::size_t> FileRows::Order(const std::vector<std::string>& texts, int column,
                                         bool ascending) {
    return column == kModified ? OrderByDate(texts, ascending) : OrderByText(texts, ascending);
}

}  // namespace k4cmn
