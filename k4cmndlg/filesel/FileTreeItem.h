#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "k4cmndlg/filelist/ImagePositions.h"

namespace k4cmn {

/// An item of the file tree: a text and an image. How many items stand above it says what it is,
/// and its text gives the value. Owned by the item above it; FileTree makes and removes items.
class FileTreeItem {
 public:
    FileTreeItem(FileTreeItem* parent, std::string text, int image)
        : m_parent(parent), m_text(std::move(text)), m_image(image) {}
    FileTreeItem(const FileTreeItem&) = delete;
    FileTreeItem& operator=(const FileTreeItem&) = delete;

    const std::string& Text() const { return m_text; }
    int Image() const { return m_image; }
    /// Of a server the running number of its adding, else 0. Nothing in here reads it.
    int Data() const { return m_data; }
    bool IsExpanded() const { return m_isExpanded; }

    /// The item above; null for a server (and for the root, which isn't shown).
    FileTreeItem* Parent() const { return m_parent && m_parent->m_parent ? m_parent : nullptr; }
    const std::vector<std::unique_ptr<FileTreeItem>>& Children() const { return m_children; }

 private:
    friend class FileTree;

    FileTreeItem* const m_parent;  ///< the root for a server, null for the root
    const std::string m_text;
    const int m_image;
    int m_data = 0;
    bool m_isExpanded = false;
    std::vector<std::unique_ptr<FileTreeItem>> m_children;
};

}  // namespace k4cmn
