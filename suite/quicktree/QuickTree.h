#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "k4cmndlg/filesel/FileTree.h"
#include "k4cmndlg/filesel/RemoteEntries.h"
#include "k4cmndlg/filestore/SignTypes.h"

namespace k4suite {

/// What an item of the quick tree stands for.
enum class QuickTreeKind : std::uint8_t { Notice, Server, SignType, Library, File };

/// An item of the quick tree. Owned by the item above it; QuickTree makes them.
struct QuickTreeNode {
    QuickTreeNode* parent = nullptr;  ///< the invisible root for a server
    std::string text;                 ///< as it is shown; of a file its name with the extension
    QuickTreeKind kind = QuickTreeKind::Notice;
    bool isRead = false;  ///< what stands below it has been read
    int row = 0;          ///< its place among the items beside it
    std::vector<std::unique_ptr<QuickTreeNode>> children;
    k4cmn::FileTreeItem* item = nullptr;  ///< of a server or sign type, where it is read from

    /// Whether there is something below it, or may be.
    bool CanBeOpened() const;
    /// Whether it is the other item, or stands anywhere below it.
    bool IsInside(const QuickTreeNode& other) const;
};

/// The quick tree without its looks: the servers of the file selection dialog's tree, below them
/// the sign types of their signs and the scripts and download lists that lie at their roots, the
/// libraries, and in these the other files of the store. What is no file of the store isn't shown,
/// and neither are the sign types of palettes. What stands below an item is read when it is opened,
/// each time anew; where nothing is found, a notice says so.
///
/// Servers are in the dialog's order, everything else by name without regard to case, files behind
/// folders. One thread.
class QuickTree {
 public:
    using Nodes = std::vector<std::unique_ptr<QuickTreeNode>>;

    QuickTree();
    ~QuickTree();

    /// The invisible item above the servers.
    QuickTreeNode& Root() { return m_root; }

    /// From now on reads only that sign type, and no files at the servers' roots.
    void ConfineTo(std::uint32_t rows, std::uint32_t columns, tag_K4_SIGN_COLOR color,
                   tag_K4_PIXEL_TECH pixel);

    /// Reads the servers, for the root. @param isComplete false if those of this system can't be
    /// read; then only the removable drives are there.
    Nodes ReadServers(bool& isComplete);
    /// Reads what stands below an item that can be opened. Items that were read for it before lose
    /// the place that they were read from, and go.
    Nodes ReadBelow(QuickTreeNode& node);

    /// The path of an item as the store composes it; empty for a notice and for the root.
    static std::string PathOf(const QuickTreeNode& node);
    /// The item below another one that a path leads to next, case not counting unless two differ in
    /// nothing else.
    /// @param rest what the path has left: all of it at the root. The part that the item stands for
    ///        is cut off.
    /// @return null if no such item is there.
    static QuickTreeNode* Next(const QuickTreeNode& node, std::string_view& rest);
    /// Whether the disk has what a path leads to next from an item, shown or not.
    static bool IsOnDisk(const QuickTreeNode& node, std::string_view rest);

 private:
    Nodes Mirror(QuickTreeNode& above, const k4cmn::FileTreeItem& from);

    k4cmn::RemoteEntries m_entries;
    k4cmn::FileTree m_folders{&m_entries};
    QuickTreeNode m_root;
};

}  // namespace k4suite
