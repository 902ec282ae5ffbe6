#include "k4cmndlg/filesel/FileTree.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "k4cmndlg/clients/ReplyFields.h"
#include "k4cmndlg/filesel/LocalSigns.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/FileLocation.h"
#include "k4cmndlg/filestore/FindNames.h"
#include "k4cmndlg/filestore/contracts/CK4Registry.h"
#include "k4cmndlg/filestore/contracts/Drives.h"

namespace k4cmn {

namespace {

constexpr char kLocalService[] = "Local";
constexpr std::string_view kPaletteWord = "Palette";

bool IsInside(const FileTreeItem* item, const FileTreeItem& above) {
    while (item && item != &above)
        item = item->Parent();
    return item != nullptr;
}

}  // namespace

/// A change below an item, told to the view as one, however many steps it has.
class FileTree::Change {
 public:
    Change(FileTree& tree, const FileTreeItem& parent) : m_tree(tree), m_parent(parent) {
        if (m_tree.m_changes++ == 0 && m_tree.m_view)
            m_tree.m_view->AboutToChange(m_parent);
    }
    ~Change() {
        if (--m_tree.m_changes > 0 || !m_tree.m_view)
            return;
        m_tree.m_view->Changed(m_parent);
        if (std::exchange(m_tree.m_selectionIsNew, false))
            m_tree.m_view->SelectionChanged();
    }
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;

 private:
    FileTree& m_tree;
    const FileTreeItem& m_parent;
};

FileTree::FileTree(ConnectedEntries* entries)
    : m_entries(entries),
      m_root(std::make_unique<FileTreeItem>(nullptr, std::string(), kNoticeImage)) {}

FileTree::~FileTree() = default;

// Adding -------------------------------------------------------------------------------------

FileTreeItem* FileTree::Add(FileTreeItem& parent, std::string text, int image) {
    const Change change(*this, parent);
    parent.m_children.push_back(std::make_unique<FileTreeItem>(&parent, std::move(text), image));
    return parent.m_children.back().get();
}

FileTreeItem* FileTree::AddServerItem(int index, std::string_view name) {
    // While the tree is filled, what the view knows of it is no longer there.
    const FileTreeItem* first = m_view && m_changes == 0 ? m_view->FirstVisible() : nullptr;
    const FileTreeItem& above = first ? *first->m_parent : *m_root;
    const auto& beside = above.m_children;
    // From the first visible item on, as the ones above it are out of sight.
    auto at = std::find_if(beside.begin(), beside.end(),
                           [&](const auto& item) { return !first || item.get() == first; });
    for (; at != beside.end(); ++at) {
        if (IsSameWithoutCase((*at)->m_text, name))
            return nullptr;
    }
    const Change change(*this, *m_root);
    FileTreeItem* const server = Add(*m_root, std::string(name), kServerImage);
    server->m_data = index;
    return server;
}

FileTreeItem* FileTree::AddSignTypeItem(FileTreeItem& parent, std::string text) {
    return Add(parent, std::move(text), kSignTypeImage);
}

FileTreeItem* FileTree::AddLibraryItem(FileTreeItem& parent, std::string text) {
    return Add(parent, std::move(text), kLibraryImage);
}

// Filling ------------------------------------------------------------------------------------

/// Adds servers to an emptied tree, each with its placeholder, and numbers them.
class FileTree::ServerFilling {
 public:
    explicit ServerFilling(FileTree& tree) : m_tree(tree) {}

    void AddDrives() {
        for (const std::string& root : Provided<Drives>::Current().RemovableRoots())
            Add(std::string_view(root).substr(0, root.size() - (root.ends_with('\\') ? 1 : 0)));
    }
    bool AddServers(const std::string* service, const std::string* entry) {
        std::vector<std::string> servers;
        if (!CK4Registry::GetRegistryServers(servers, service, entry))
            return false;
        for (const std::string& server : servers)
            Add(server);
        return true;
    }
    void AddOtherServices() {
        std::vector<std::string> services;
        CK4Registry::GetRegistryServices(services);
        for (const std::string& service : services) {
            if (!IsSameWithoutCase(service, kLocalService))
                AddServers(&service, nullptr);
        }
    }
    void AddConnectedEntries(ConnectedEntries& connected) {
        std::string reply;
        if (!connected.Read(reply))
            return;
        ReplyTokens entries(reply, "\n\t");
        for (std::string_view token; entries.Next(token);) {
            const std::string entry(token);
            std::vector<std::string> services;
            CK4Registry::GetRegistryServices(services, &entry);
            for (const std::string& service : services)
                AddServers(&service, &entry);
        }
    }

 private:
    void Add(std::string_view name) {
        if (FileTreeItem* server = m_tree.AddServerItem(m_index, name)) {
            m_tree.Add(*server, {}, kSignTypeImage);
            ++m_index;
        }
    }

    FileTree& m_tree;
    int m_index = 0;
};

int FileTree::AddAllServerItems() {
    const Change change(*this, *m_root);
    RemoveChildren(*m_root);
    ServerFilling filling(*this);
    filling.AddDrives();
    if (!filling.AddServers(nullptr, nullptr))
        return 0;
    filling.AddOtherServices();
    if (m_entries)
        filling.AddConnectedEntries(*m_entries);
    if (m_root->m_children.empty())
        Add(*m_root, "No Servers", kNoticeImage);
    return 1;
}

int FileTree::AddAllSignTypeItems(FileTreeItem& server) {
    const Change change(*this, server);
    const std::vector<std::string> folders =
        FolderNames(SignTypePattern(server.m_text), kSignEnding);
    const LocalSigns signs;
    for (const std::string& name : folders) {
        if (filter.onlyCurrent && name != filter.currentSign)
            continue;
        if ((name.find(kPaletteWord) != std::string::npos) != filter.palettes)
            continue;
        FileTreeItem* const item =
            AddSignTypeItem(server, filter.palettes ? name : name + signs.NamesBehind(name));
        Add(*item, {}, kLibraryImage);
    }
    if (server.m_children.empty())
        Add(server, "No signs", kNoticeImage);
    return 1;
}

int FileTree::AddAllLibraryItems(FileTreeItem& signType) {
    if (!signType.Parent())
        return 0;
    const Change change(*this, signType);
    const std::string sign(SignTypeOf(signType.m_text));
    const std::vector<std::string> libraries =
        FolderNames(LibraryPattern(signType.Parent()->m_text, sign), kLibraryEnding);
    for (const std::string& library : libraries)
        AddLibraryItem(signType, library);
    if (libraries.empty())
        Add(signType, "No Libraries", kNoticeImage);
    return 1;
}

int FileTree::DeleteAllChildItems(FileTreeItem& item) {
    RemoveChildren(item);
    return 1;
}

void FileTree::RefillLibraries(FileTreeItem& signType) {
    const Change change(*this, signType);
    const bool wasExpanded = signType.m_isExpanded;
    RemoveChildren(signType);
    AddAllLibraryItems(signType);
    Sort(signType);
    signType.m_isExpanded = wasExpanded;
}

void FileTree::RemoveChildren(FileTreeItem& item) {
    const Change change(*this, item);
    FileTreeItem* const heir = &item == m_root.get() ? nullptr : &item;
    const bool isAbove = heir == nullptr || (m_selected != &item && IsInside(m_selected, item));
    if (m_selected && isAbove) {
        m_selected = heir;
        m_selectionIsNew = true;
    }
    if (m_marked && (heir == nullptr || (m_marked != &item && IsInside(m_marked, item))))
        m_marked = nullptr;
    item.m_children.clear();
    item.m_isExpanded = false;
}

// Opening and closing ------------------------------------------------------------------------

namespace {

bool IsBefore(const std::unique_ptr<FileTreeItem>& one,
              const std::unique_ptr<FileTreeItem>& other) {
    return IsLessWithoutCase(one->Text(), other->Text());
}

bool IsSorted(const FileTreeItem& parent) {
    return std::is_sorted(parent.Children().begin(), parent.Children().end(), IsBefore);
}

}  // namespace

// What the view does when it is told comes last: it may be anything, and no item may be left then.

void FileTree::Expand(FileTreeItem& item) {
    if (item.m_children.empty())
        return;
    FileTreeItem* const above = item.Parent();
    const Change change(*this, above && !IsSorted(*above) ? *above : item);
    if (above)
        Sort(*above);
    RemoveChildren(item);
    if (above)
        AddAllLibraryItems(item);
    else
        AddAllSignTypeItems(item);
    Sort(item);
    item.m_isExpanded = true;
}

void FileTree::Collapse(FileTreeItem& item) {
    item.m_isExpanded = false;
    FileTreeItem* const above = item.Parent();
    std::optional<Change> change;
    if (above && !IsSorted(*above))
        change.emplace(*this, *above);
    else if (!IsSorted(item))
        change.emplace(*this, item);
    if (above)
        Sort(*above);
    Sort(item);
    if (m_selected != &item && IsInside(m_selected, item))
        Select(&item);
}

void FileTree::Sort(FileTreeItem& parent) {
    if (IsSorted(parent))
        return;
    const Change change(*this, parent);
    std::stable_sort(parent.m_children.begin(), parent.m_children.end(), IsBefore);
}

// Selection ----------------------------------------------------------------------------------

void FileTree::Select(FileTreeItem* item) {
    if (item == m_selected)
        return;
    m_selected = item;
    if (m_changes > 0)
        m_selectionIsNew = true;
    else if (m_view)
        m_view->SelectionChanged();
}

FileTreeItem* FileTree::Up() {
    if (!m_selected)
        return nullptr;
    if (FileTreeItem* above = m_selected->Parent())
        Select(above);
    // Last, since what follows a selection clears the mark.
    m_marked = m_selected;
    if (m_view)
        m_view->MarkChanged();
    return m_marked;
}

void FileTree::ClearMark() {
    if (std::exchange(m_marked, nullptr) && m_view)
        m_view->MarkChanged();
}

// Finding ------------------------------------------------------------------------------------

std::string_view FileTree::SignTypeOf(std::string_view text) {
    return text.substr(0, text.find(' '));
}

namespace {

template <class TextOf>
FileTreeItem* Find(const FileTreeItem& above, std::string_view wanted, const TextOf& textOf) {
    for (const auto& item : above.Children()) {
        if (IsSameWithoutCase(textOf(item->Text()), wanted))
            return item.get();
    }
    return nullptr;
}

}  // namespace

FileTreeItem* FileTree::FindServer(std::string_view server) const {
    return Find(*m_root, server, [](std::string_view text) { return text; });
}

FileTreeItem* FileTree::FindSignType(const FileTreeItem& server, std::string_view signType) {
    return Find(server, signType, SignTypeOf);
}

FileTreeItem* FileTree::FindLibrary(const FileTreeItem& signType, std::string_view library) {
    return Find(signType, library, [](std::string_view text) { return text; });
}

}  // namespace k4cmn
