#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "k4cmndlg/filesel/ConnectedEntries.h"
#include "k4cmndlg/filesel/FileTreeItem.h"
#include "k4cmndlg/k4cmncore_export.h"

namespace k4cmn {

/// What shows a file tree, as the tree sees it. Inside AboutToChange() the tree may be read alone;
/// inside the others it may be asked for anything, also to be filled anew.
class FileTreeView {
 public:
    virtual ~FileTreeView() = default;

    /// The items below `parent` are about to change: none of them may be held any longer.
    virtual void AboutToChange(const FileTreeItem& parent) = 0;
    /// They have changed.
    virtual void Changed(const FileTreeItem& parent) = 0;
    /// Another item is selected, or none is.
    virtual void SelectionChanged() = 0;
    /// Another item is marked, or none is.
    virtual void MarkChanged() {}
    /// The first item that can be seen; null for the first of all.
    virtual const FileTreeItem* FirstVisible() const { return nullptr; }
};

/// Which sign types the tree shows.
struct FileTreeFilter {
    bool onlyCurrent = false;  ///< "show only current sign type"
    std::string currentSign;   ///< the sign type that stays then, without ".Sign"
    bool palettes = false;     ///< the folders of palettes instead of the others
};

/// The three-level tree of the file selection dialog: servers, the sign types found on each, the
/// libraries of each. It holds nothing but texts and images, and reads the disk when an item is
/// opened: until then a placeholder stands below it. Where nothing is found, a notice says so.
///
/// Level 0 stays in the order of its filling; the other levels are sorted by text, without regard
/// to case, when an item is expanded or collapsed.
///
/// An item that goes while it is selected, or gets out of sight by closing one above it, hands the
/// selection to that one.
///
/// Pointers to items are valid until the items below their parent change. One thread.
class K4CMNCORE_EXPORT FileTree {
 public:
    /// @param entries the connected phone book entries, null for none; must outlive the tree.
    explicit FileTree(ConnectedEntries* entries = nullptr);
    ~FileTree();
    FileTree(const FileTree&) = delete;
    FileTree& operator=(const FileTree&) = delete;

    /// What shows the tree, null for nothing; must outlive the tree or be taken away.
    void SetView(FileTreeView* view) { m_view = view; }

    FileTreeFilter filter;

    /// The invisible item above the servers.
    const FileTreeItem& Root() const { return *m_root; }

    /// Adds a server at the end of level 0, unless an item beside the first visible one has that
    /// text, case not counting.
    /// @return the new item, or null for a duplicate.
    FileTreeItem* AddServerItem(int index, std::string_view name);
    FileTreeItem* AddSignTypeItem(FileTreeItem& parent, std::string text);
    FileTreeItem* AddLibraryItem(FileTreeItem& parent, std::string text);
    /// Empties the tree and refills level 0: removable drives, the servers of this system, those of
    /// its other services, those of connected phone book entries.
    /// @return 1, or 0 if the servers of this system can't be read; then only the drives are there.
    int AddAllServerItems();
    /// Adds the sign types of a server by the filter, each with the names of the local signs that
    /// have it (not for palettes). @return 1.
    int AddAllSignTypeItems(FileTreeItem& server);
    /// Adds the libraries of a sign type.
    /// @return 1, or 0 with nothing changed if the item has no parent.
    int AddAllLibraryItems(FileTreeItem& signType);
    /// Removes what stands below an item. @return 1.
    int DeleteAllChildItems(FileTreeItem& item);
    /// Reads the libraries of a sign type anew, sorted. It stays open or closed as it is.
    void RefillLibraries(FileTreeItem& signType);

    /// Opens an item: reads what stands below it anew, and sorts. An item with nothing below it
    /// can't be opened.
    void Expand(FileTreeItem& item);
    /// Closes an item, and sorts.
    void Collapse(FileTreeItem& item);

    FileTreeItem* Selected() const { return m_selected; }
    /// @param item null selects none.
    void Select(FileTreeItem* item);

    /// Selects the item above the selected one, or leaves that selected if there is none, and marks
    /// it. @return the item, null if none is selected.
    FileTreeItem* Up();
    /// The item that Up() marked; null if there is none.
    FileTreeItem* Marked() const { return m_marked; }
    void ClearMark();

    /// The item of that text among those of level 0, case not counting; null if there is none.
    FileTreeItem* FindServer(std::string_view server) const;
    /// The item below a server whose text is that sign type and anything behind a blank.
    static FileTreeItem* FindSignType(const FileTreeItem& server, std::string_view signType);
    static FileTreeItem* FindLibrary(const FileTreeItem& signType, std::string_view library);

    /// The sign type in an item's text: what stands before the first blank.
    static std::string_view SignTypeOf(std::string_view text);

 private:
    class Change;
    class ServerFilling;

    FileTreeItem* Add(FileTreeItem& parent, std::string text, int image);
    void RemoveChildren(FileTreeItem& item);
    void Sort(FileTreeItem& parent);

    ConnectedEntries* const m_entries;
    FileTreeView* m_view = nullptr;
    const std::unique_ptr<FileTreeItem> m_root;
    FileTreeItem* m_selected = nullptr;
    FileTreeItem* m_marked = nullptr;
    int m_changes = 0;              ///< how many changes are under way, one inside the other
    bool m_selectionIsNew = false;  ///< to be told when they are over
};

}  // namespace k4cmn
