#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "k4cmndlg/filelist/ColumnTexts.h"
#include "k4cmndlg/k4cmncore_export.h"
#include "k4cmndlg/search/SearchSink.h"

namespace k4cmn {

/// The columns of the results, from the text of resource number 103.
K4CMNCORE_EXPORT std::vector<FileColumn> FoundColumns();

/// The rows of the search dialog's results: plain records, whose texts are made when somebody asks.
/// Rows are kept in ascending order of their names as they are added, whatever the case; equal ones
/// in the order of their adding. Rows that SortColumn() has brought into another order come back
/// into that of their names when others are added.
///
/// A row's image stays at its position when the rows are sorted: it belongs to the file that was
/// listed there. A view keeps its selection at the rows' positions too.
///
/// Adding is cheap: what was added comes to its place when somebody looks, so that many batches
/// cost one sort. So reading isn't for two threads at a time either.
class K4CMNCORE_EXPORT FoundRows final : public SearchSink {
 public:
    enum Column { kName, kFolder, kSize, kType, kModified, kColumnCount };

    std::vector<std::string> Paths() const override;
    void Clear() override;
    void Add(std::vector<FoundFileRow> rows) override;

    std::size_t Count() const;
    const FoundFileRow& Row(std::size_t row) const;
    /// The text of a row in a column.
    std::string Text(std::size_t row, int column) const;
    /// The image at a row: that of the file type of the file that was added there, as
    /// ImagePositions.h counts images. One of an unknown type has that of a library, on purpose.
    int Image(std::size_t row) const;

    /// Flips the direction, which is 1 at first, for all columns alike, and sorts by a column, as
    /// RowOrder.h tells. A number that is no column does nothing.
    void SortColumn(int column);
    int SortAscending() const { return m_sortAscending; }

    /// Removes the rows of deleted files, by their names alone: also one of the same name in
    /// another library goes. The row behind a removed one is passed over. All of this is on
    /// purpose. A removed row takes its image along.
    /// @param paths of the files; the last 4 characters of each are its extension.
    void RemoveDeleted(const std::vector<std::string>& paths);

 private:
    void SortAdded() const;
    std::vector<std::size_t> OrderOf(int column) const;
    template <class Value, class Source>
    std::vector<Value> ValuesOf(Source FoundFileRow::*value) const;

    mutable std::vector<FoundFileRow> m_rows;
    mutable std::vector<int> m_images;     ///< by position
    mutable bool m_isSortedByName = true;  ///< unless something was added since
    int m_sortAscending = 1;
};

}  // namespace k4cmn
