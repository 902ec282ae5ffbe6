#include "k4cmndlg/filesel/FileSelector.h"
#include "k4cmndlg/filestore/FileNameRules.h"
#include "k4cmndlg/frame/LocalTime.h"

namespace k4cmn {

void FileSelector::ClearRows() {
    m_rows.Clear();
    m_view->RowsChanged(false);
}

int FileSelector::ShowFilesList() {
    ClearRows();
    if (!ReadControls())
        return 0;
    // Both, whatever the first gives: whether a server alone is a place depends on the file type
    // that was read last.
    const bool isPlace = GetTreeSelections() != 0;
    const bool isExtension = GetExtSelection() != 0;
    if (!isPlace || !isExtension)
        return 0;
    m_rows.Fill(m_place, TypeNameOfPlural(m_view->FileTypesText()),
                kFirstFileImage + m_fileTypeIndex,
                LastModifiedFilter(m_lastModifiedIndex, SecondsNow()));
    m_view->RowsChanged(true);
    SelectNamedRow(m_place.file);
    return 1;
}

int FileSelector::GetListFile() {
    m_place.file.clear();
    m_view->ShowFileName({});
    if (!ReadControls())
        return 0;
    const std::vector<std::size_t> selected = m_view->SelectedRows();
    if (selected.empty() || selected.front() >= m_rows.Rows().size())
        return 0;
    m_place.file = m_rows.Rows()[selected.front()].name;
    m_view->ShowFileName(m_place.file);
    m_view->FileTaken();
    return 1;
}

void FileSelector::ListChanged() {
    if (GetListFile())
        GetFileSelection();
}

void FileSelector::ClickColumn(int column) {
    m_sortAscending = m_sortAscending ? 0 : 1;
    m_rows.Sort(column, m_sortAscending != 0);
    m_view->RowsChanged(false);
    // The selection stays at its positions, where other files are now; a typed name stays too.
    if (!m_view->SelectedRows().empty())
        ListChanged();
}

void FileSelector::FileTypeChanged() {
    if (!ReadControls()) {
        ClearRows();
        return;
    }
    GetExtSelection();
    m_tree.filter.palettes = m_place.fileExtension == "SP4";
    GetTreeSelections();
    FillTreeListCtrls(m_place.server, m_place.signType, m_place.library, m_place.file);
    ShowFilesList();
}

int FileSelector::GetFileSelection() {
    m_fileWithExtension.clear();
    if (!ReadControls())
        return 0;
    const bool isExtension = GetExtSelection() != 0;
    m_place.file = WithoutTrailingSpace(m_place.file);
    if (!isExtension || !CanTakeOverFileName(m_place.file))
        return 0;
    m_fileWithExtension = m_place.file + "." + m_place.fileExtension;
    return 1;
}

int FileSelector::GetExtSelection() {
    m_place.fileExtension.clear();
    if (m_fileTypeIndex < 0 || static_cast<std::size_t>(m_fileTypeIndex) >= m_extensions.size())
        return 0;
    m_place.fileExtension = m_extensions[static_cast<std::size_t>(m_fileTypeIndex)];
    return 1;
}

}  // namespace k4cmn
