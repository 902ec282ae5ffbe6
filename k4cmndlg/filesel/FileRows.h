#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "k4cmndlg/filelist/ColumnTexts.h"
#include "k4cmndlg/filesel/LastModifiedFilter.h"
#include "k4cmndlg/filestore/FileLocation.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The columns of the file selection dialog's list, from the text of resource number 102.
K4CMNCORE_EXPORT std::vector<FileColumn> FileColumns();

/// The pattern of the files that the list shows at a place. Empty, so that nothing is shown, for
/// scripts and download lists anywhere below a server.
K4CMNCORE_EXPORT std::string ListPattern(const FileLocation& place);

/// One file in the list.
struct FileRow {
    std::string name;           ///< without its extension: the row's text
    std::uint64_t size = 0;     ///< bytes
    std::int64_t modified = 0;  ///< seconds since 1970 (UTC)

    bool operator==(const FileRow&) const = default;
};

/// The rows of the file selection dialog's list: plain records, whose texts are made when somebody
/// asks. All rows have one type and one image, so that an image "stays at its row" whatever is
/// sorted; a view keeps its selection at the rows' positions too.
class K4CMNCORE_EXPORT FileRows {
 public:
    enum Column { kName, kSize, kType, kModified, kColumnCount };

    void Clear() { m_rows.clear(); }

    /// Lists the files of a place, by name, at the cost of one look at each. No file is opened; one
    /// that is gone in the meantime is left out.
    /// @param place      its File doesn't count.
    /// @param typeName   for the column "Type".
    /// @param image      of every row.
    void Fill(const FileLocation& place, std::string_view typeName, int image,
              const LastModifiedFilter& filter);

    const std::vector<FileRow>& Rows() const { return m_rows; }
    int Image() const { return m_image; }
    /// The text of a row in a column.
    std::string Text(std::size_t row, int column) const;
    /// The row of that name, in exact case.
    std::optional<std::size_t> Find(std::string_view name) const;

    /// Sorts by a column, as RowOrder.h tells.
    void Sort(int column, bool ascending);
    /// The order of rows by their texts in a column: for each new place the row that comes there.
    static std::vector<std::size_t> Order(const std::vector<std::string>& texts, int column,
                                          bool ascending);

 private:
    template <class Value>
    std::vector<Value> ValuesOf(Value FileRow::*value) const;
    std::vector<std::size_t> OrderOf(int column, bool ascending) const;

    std::vector<FileRow> m_rows;
    std::string m_typeName;
    int m_image = 0;
};

}  // namespace k4cmn
