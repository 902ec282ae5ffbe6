#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "k4cmndlg/filesel/FileTree.h"

namespace k4cmn {

/// What a person has set in the fields of the file selection dialog.
struct FileSelectorFields {
    int fileTypeIndex = 0;       ///< in the combo box "File Types:"; -1: no entry is selected
    std::string fileName;        ///< the File Name field
    int lastModifiedIndex = -1;  ///< in the combo box "Last Modified:"
};

/// The window of the file selection dialog, as its logic sees it. It shows the tree (as a
/// FileTreeView), the rows, and the fields. Called on the thread of the logic.
///
/// What the logic selects counts like what a person selects: for a change of the tree's selection
/// the logic does what follows by itself, and for each change of the selected rows the window calls
/// FileSelector::ListChanged(). Replacing the rows is no such change.
class FileSelectorView : public FileTreeView {
 public:
    /// Reads the fields.
    /// @return whether they pass their checks; if one doesn't, the person has been told, and
    ///         `fields` is as it was.
    virtual bool ReadControls(FileSelectorFields& fields) = 0;
    /// The text of the File Name field, unchecked.
    virtual std::string FileNameText() = 0;
    /// The text that the combo box "File Types:" shows.
    virtual std::string FileTypesText() = 0;
    /// The rows that are selected, in ascending order.
    virtual std::vector<std::size_t> SelectedRows() = 0;

    /// Shows other rows. Another number of rows ends the selection; the same number, as after a
    /// sort, keeps it at its positions. @param withColumns the columns are to be made anew as well.
    virtual void RowsChanged(bool withColumns) = 0;
    /// Selects one row and scrolls it into view.
    virtual void SelectRow(std::size_t row) = 0;
    /// Begins the editing of a row's label.
    virtual void EditRow(std::size_t row) = 0;
    virtual void ShowFields(const FileSelectorFields& fields) = 0;
    virtual void ShowFileName(const std::string& name) = 0;
    /// Replaces the entries of the combo box "File Types:".
    virtual void ShowFileTypes(const std::vector<std::string>& names) = 0;
    virtual void ShowPath(const std::string& path) = 0;
    virtual void ShowTitle(const std::string& title) = 0;
    /// Shows whether "Show Only Current Sign Type" is pressed.
    virtual void ShowFilter(bool isOn) = 0;
    /// The file of the selected row is another one; for an open properties sheet.
    virtual void FileTaken() = 0;
    /// Shows the wait cursor. Calls nest. @param wait whether it begins or ends.
    virtual void Wait(bool wait) = 0;
    /// Runs the dialog "Create Library".
    /// @param signFolder shown above the field. @param name shown in it, and what was typed.
    /// @return whether it ended with OK.
    virtual bool AskLibraryName(const std::string& signFolder, std::string& name) = 0;
};

}  // namespace k4cmn
