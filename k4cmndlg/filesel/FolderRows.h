#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "k4cmndlg/filestore/contracts/StoreAccess.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// The rows of the file list control: the files of one folder, with the system's names of their
/// kinds and a sort of their own. Plain records; texts are made when somebody asks.
class K4CMNCORE_EXPORT FolderRows {
 public:
    enum Column { kName, kSize, kType, kModified, kColumnCount };
    static constexpr std::array<const char*, kColumnCount> kHeadings{"Name", "Size", "Type",
                                                                     "Modified"};

    /// Lists a folder anew and sorts it as it was sorted last. Remembers both arguments, whatever
    /// comes of it.
    /// @param extensions between ";"; "*" stands for all files. Case doesn't count.
    /// @param withDetails whether the rows get texts beside their names: they do in the view
    ///        "Details". In the other views they begin in the order of their names.
    /// @return 1, or 0 with no rows if the folder can't be read.
    int Refresh(const std::string& folder, const std::string& extensions, bool withDetails);
    /// The same again with what is remembered.
    int RefreshAgain(bool withDetails);

    /// The order of the views without columns: ascending by name. What was sorted by, and in which
    /// direction, stays.
    void OrderByName();

    /// Gives a row the texts beside its name. @param status of the row's file.
    void ShowDetails(std::size_t row, const FileStatus& status);
    /// Removes all rows, and nothing else.
    void Clear() { m_rows.clear(); }
    /// Adds a file at the end. @return its row, or -1 if its status can't be read.
    int AddItem(const std::string& path, bool withDetails);

    /// Sorts by the text of a column, without regard to case, in the present direction. Sizes and
    /// dates are texts too.
    void SortColumnEx(int column);
    /// A click on a column's heading: turns the direction, then sorts.
    void ClickColumn(int column);

    int SortColumn() const { return m_sortColumn; }
    int SortAscending() const { return m_ascending; }
    const std::string& Folder() const { return m_folder; }
    const std::string& Extensions() const { return m_extensions; }

    std::size_t Count() const { return m_rows.size(); }
    /// The text of a row in a column.
    std::string Text(std::size_t row, int column) const;
    std::string Path(std::size_t row) const;

    /// What stands between ";", without empty pieces.
    static std::vector<std::string> SplitExtensions(std::string_view extensions);
    /// What follows the last dot of a name, or the empty text.
    static std::string_view ExtensionOf(std::string_view name);
    /// Whether the list has the extension, or "*". The empty one is admitted by "*" alone.
    static int IsValidExt(std::string_view extension, const std::vector<std::string>& list);

 private:
    struct Row {
        std::string path;
        std::size_t nameAt;  ///< where the name begins in the path
        bool hasDetails;
        std::uint64_t size;
        std::int64_t modified;
    };

    void Order(int column, bool ascending);

    std::vector<Row> m_rows;
    std::string m_folder;
    std::string m_extensions;
    int m_ascending = 1;
    int m_sortColumn = kName;
};

/// @name The views of the file list control.
/// @{
enum class ListView { Details, List, SmallIcons, LargeIcons };

/// An entry of its menu "&View".
struct ListViewEntry {
    ListView view;
    const char* text;
    int command;
};
/// In the order of the menu.
inline constexpr std::array<ListViewEntry, 4> kListViewEntries{{
    {ListView::LargeIcons, "Lar&ge Icon", 1176},
    {ListView::SmallIcons, "&Small Icon", 1177},
    {ListView::List, "&List", 1178},
    {ListView::Details, "&Details", 1179},
}};
inline constexpr char kListViewMenuText[] = "&View";
inline constexpr char kListRefreshText[] = "&Refresh";
inline constexpr int kListRefreshCommand = 1175;

/// The view of a mode: 0 details, 1 list, 2 small icons, and large icons for any other value.
K4CMNCORE_EXPORT ListView ListViewOfMode(int mode);
/// The command of the entry that is checked: of a value that is no mode, that of "&Details".
K4CMNCORE_EXPORT int CheckedListViewCommand(int mode);
/// @}

}  // namespace k4cmn
