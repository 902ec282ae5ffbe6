#include "suite/quicktree/QuickTree.h"

#include <algorithm>
#include <utility>

#include "k4cmndlg/filelist/RowOrder.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/FileTypes.h"
#include "k4cmndlg/filestore/FindNames.h"
#include "k4cmndlg/filestore/StoreFolders.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "k4cmndlg/filestore/contracts/StoreAccess.h"

namespace k4suite {

using k4cmn::FileTree;
using k4cmn::FileTreeItem;
using k4cmn::IsSameWithoutCase;

namespace {

QuickTreeKind KindOf(const FileTreeItem& item) {
    switch (item.Image()) {
        case k4cmn::kServerImage:
            return QuickTreeKind::Server;
        case k4cmn::kSignTypeImage:
            return QuickTreeKind::SignType;
        case k4cmn::kLibraryImage:
            return QuickTreeKind::Library;
        default:
            return QuickTreeKind::Notice;
    }
}

void Add(QuickTree::Nodes& nodes, QuickTreeNode& above, std::string text, QuickTreeKind kind,
         FileTreeItem* item = nullptr) {
    auto node = std::make_unique<QuickTreeNode>();
    node->parent = &above;
    node->text = std::move(text);
    node->kind = kind;
    node->row = static_cast<int>(nodes.size());
    node->item = item;
    nodes.push_back(std::move(node));
}

/// Whether a name is that of a file of the store, at a server's root or in a library.
bool IsStoreFile(std::string_view name, bool isAtRoot) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos)
        return false;
    static const std::vector<std::string> kExtensions = k4cmn::ExtensionsOf(K4_FILE_TYPE_ALL);
    return std::any_of(kExtensions.begin(), kExtensions.end(), [&](const std::string& extension) {
        return k4cmn::LiesAtServerRoot(extension) == isAtRoot &&
               IsSameWithoutCase(name.substr(dot + 1), extension);
    });
}

/// Adds the files of a folder, which has '\' at its end.
void AddFiles(QuickTree::Nodes& nodes, QuickTreeNode& above, const std::string& folder,
              bool isAtRoot) {
    std::vector<std::string> names;
    k4cmn::FindNames(names, folder + "*.*", 0);
    std::erase_if(names, [&](const std::string& name) { return !IsStoreFile(name, isAtRoot); });
    // Of names that differ in nothing but case, the order of their bytes stays.
    std::sort(names.begin(), names.end());
    nodes.reserve(nodes.size() + names.size());
    for (const std::size_t at : k4cmn::OrderByText(names, true))
        Add(nodes, above, std::move(names[at]), QuickTreeKind::File);
}

constexpr bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

/// How much of a path's beginning an item stands for, with the separator behind it; 0 if it doesn't
/// stand for it. The item's text has so many separators as what it stands for, but a letter's other
/// case may be longer.
std::size_t Covers(std::string_view component, std::string_view path) {
    auto separators = std::count_if(component.begin(), component.end(), IsSeparator);
    std::size_t end = 0;
    while (end < path.size() && (!IsSeparator(path[end]) || separators-- > 0))
        ++end;
    if (component.empty() || !IsSameWithoutCase(component, path.substr(0, end)))
        return 0;
    while (end < path.size() && IsSeparator(path[end]))
        ++end;
    return end;
}

/// What a path has in an item's place.
std::string ComponentOf(const QuickTreeNode& node) {
    switch (node.kind) {
        case QuickTreeKind::SignType:
            return std::string(FileTree::SignTypeOf(node.text)) + std::string(k4cmn::kSignEnding);
        case QuickTreeKind::Library:
            return node.text + std::string(k4cmn::kLibraryEnding);
        case QuickTreeKind::Notice:
            return {};
        default:
            return node.text;
    }
}

}  // namespace

// Items --------------------------------------------------------------------------------------

bool QuickTreeNode::CanBeOpened() const {
    return kind == QuickTreeKind::Server || kind == QuickTreeKind::SignType ||
           kind == QuickTreeKind::Library;
}

bool QuickTreeNode::IsInside(const QuickTreeNode& other) const {
    const QuickTreeNode* node = this;
    while (node && node != &other)
        node = node->parent;
    return node != nullptr;
}

QuickTree::QuickTree() {
    m_root.isRead = true;
}

QuickTree::~QuickTree() = default;

// Reading ------------------------------------------------------------------------------------

void QuickTree::ConfineTo(std::uint32_t rows, std::uint32_t columns, tag_K4_SIGN_COLOR color,
                          tag_K4_PIXEL_TECH pixel) {
    m_folders.filter.onlyCurrent = true;
    m_folders.filter.currentSign = CK4Files().BuildSign(rows, columns, color, pixel, 0);
}

QuickTree::Nodes QuickTree::Mirror(QuickTreeNode& above, const FileTreeItem& from) {
    Nodes nodes;
    for (const auto& item : from.Children())
        Add(nodes, above, item->Text(), KindOf(*item), item.get());
    return nodes;
}

QuickTree::Nodes QuickTree::ReadServers(bool& isComplete) {
    isComplete = m_folders.AddAllServerItems() != 0;
    return Mirror(m_root, m_folders.Root());
}

QuickTree::Nodes QuickTree::ReadBelow(QuickTreeNode& node) {
    Nodes nodes;
    if (node.kind == QuickTreeKind::Library) {
        AddFiles(nodes, node, PathOf(node) + "\\", false);
        if (nodes.empty())
            Add(nodes, node, "No Files", QuickTreeKind::Notice);
    } else if (node.item) {
        m_folders.Expand(*node.item);
        nodes = Mirror(node, *node.item);
        if (node.kind == QuickTreeKind::Server && !m_folders.filter.onlyCurrent)
            AddFiles(nodes, node, k4cmn::ServerFolder(node.text), true);
    }
    return nodes;
}

// Paths --------------------------------------------------------------------------------------

std::string QuickTree::PathOf(const QuickTreeNode& node) {
    const std::string component = ComponentOf(node);
    const bool isBelow = node.parent && node.parent->parent;
    return isBelow && !component.empty() ? PathOf(*node.parent) + "\\" + component : component;
}

QuickTreeNode* QuickTree::Next(const QuickTreeNode& node, std::string_view& rest) {
    QuickTreeNode* best = nullptr;
    std::size_t covered = 0;
    for (const auto& child : node.children) {
        const std::string component = ComponentOf(*child);
        const std::size_t length = Covers(component, rest);
        // Of two servers, the one that says more; of two names that differ in case, the one that
        // the path has.
        if (length > covered || (length > 0 && length == covered && rest.starts_with(component))) {
            best = child.get();
            covered = length;
        }
    }
    rest.remove_prefix(covered);
    return best;
}

bool QuickTree::IsOnDisk(const QuickTreeNode& node, std::string_view rest) {
    const std::string above = PathOf(node);
    const std::string_view component = rest.substr(0, rest.find_first_of("\\/"));
    return !above.empty() && k4cmn::Provided<k4cmn::StoreAccess>::Current().GetStatus(
                                 above + "\\" + std::string(component), nullptr);
}

}  // namespace k4suite
