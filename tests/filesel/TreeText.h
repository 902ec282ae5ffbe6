#pragma once

#include <string>

#include "k4cmndlg/filesel/FileTreeItem.h"

namespace k4test {

/// What stands below an item as text, one line an item: blanks for its level, image, text.
inline std::string TreeText(const k4cmn::FileTreeItem& item, const std::string& blanks = {}) {
    std::string text;
    for (const auto& child : item.Children())
        text += blanks + std::to_string(child->Image()) + ":" + child->Text() + "\n" +
                TreeText(*child, blanks + " ");
    return text;
}

}  // namespace k4test
