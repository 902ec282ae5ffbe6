#pragma once

#include <algorithm>

namespace k4cmn {

/// The band between the tree and the list of the file selection dialog, which a mouse moves. All
/// values are pixels of the dialog's client area.
struct SplitterBand {
    static constexpr int kWidth = 3;   ///< between the tree and the list
    static constexpr int kLeast = 15;  ///< the least width that a drag leaves to either

    int treeLeft = 0;
    int treeRight = 0;
    int treeTop = 0;
    int treeBottom = 0;
    int listLeft = 0;
    int listRight = 0;

    constexpr bool Holds(int x, int y) const {
        return x >= treeRight && x <= listLeft && y >= treeTop && y <= treeBottom;
    }

    /// Where a drag to x takes the tree's right edge.
    constexpr int EdgeAt(int x) const {
        const int least = treeLeft + kLeast;
        return std::max(least, std::min(x, listRight - kLeast));
    }
    /// Whether a drag to x reaches a limit, and so is over.
    constexpr bool EndsAt(int x) const { return x <= treeLeft + kLeast || x >= listRight - kLeast; }

    /// Fits the list to the tree. @param edge the tree's right edge; 0 keeps it.
    constexpr void Adjust(int edge) {
        if (edge != 0)
            treeRight = edge;
        listLeft = treeRight + kWidth;
    }
};

}  // namespace k4cmn
