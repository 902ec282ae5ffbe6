#include <utility>

#include "k4cmndlg/filesel/FileSelector.h"
#include "k4cmndlg/filestore/StoreFolders.h"

namespace k4cmn {

int FileSelector::GetTreeSelections() {
    m_tree.ClearMark();
    m_place.server.clear();
    m_place.signType.clear();
    m_place.library.clear();
    const FileTreeItem* const selected = m_tree.Selected();
    if (!selected)
        return 0;
    const FileTreeItem* const above = selected->Parent();
    const FileTreeItem* const top = above ? above->Parent() : nullptr;
    const FileTreeItem* const signType = top ? above : above ? selected : nullptr;
    m_place.server = (top ? top : above ? above : selected)->Text();
    if (signType)
        m_place.signType = FileTree::SignTypeOf(signType->Text());
    if (top)
        m_place.library = selected->Text();
    if (m_place.server.empty())
        return 0;
    m_view->ShowPath(m_place.DisplayPath());
    return top || LiesAtServerRoot(m_place.fileExtension) ? 1 : 0;
}

void FileSelector::FillTreeListCtrls(std::string server, std::string signType, std::string library,
                                     std::string file) {
    m_tree.AddAllServerItems();
    if (FileTreeItem* const serverItem = m_tree.FindServer(server)) {
        if (LiesAtServerRoot(m_place.fileExtension)) {
            m_tree.Select(serverItem);
        } else {
            m_tree.Expand(*serverItem);
            if (FileTreeItem* const signItem = FileTree::FindSignType(*serverItem, signType)) {
                m_tree.Expand(*signItem);
                if (FileTreeItem* const item = FileTree::FindLibrary(*signItem, library))
                    m_tree.Select(item);
            }
        }
    }
    SelectNamedRow(file);
    if (GetTreeSelections() && GetFileSelection() && GetExtSelection())
        m_view->ShowPath(LibraryFolder(m_place));
}

void FileSelector::SelectNamedRow(const std::string& file) {
    if (const auto row = m_rows.Find(file))
        m_view->SelectRow(*row);
}

void FileSelector::UpOneLevel() {
    m_tree.Up();
}

void FileSelector::ToggleSignFilter() {
    GetTreeSelections();
    FileTreeFilter& filter = m_tree.filter;
    const bool isSignType = !m_place.signType.empty() && m_place.signType != kNoSignType;
    filter.onlyCurrent = !filter.onlyCurrent && isSignType;
    if (filter.onlyCurrent)
        filter.currentSign = m_place.signType;
    m_view->ShowFilter(filter.onlyCurrent);
    FillTreeListCtrls(m_place.server, m_place.signType, m_place.library, m_place.file);
}

}  // namespace k4cmn
