#pragma once

#include <string>

namespace k4cmn {

/// The fonts of a printed page, of weight 200, roman family. kPrintFontHeight is the height of the
/// whole cell of the first two, and the size of the third one, whose cell is somewhat higher.
enum class PrintFont {
    Plain,       ///< kPrintFontFace
    Underlined,  ///< the same with a line below
    Serif,       ///< kPrintSerifFace, whose characters have widths of their own
};
inline constexpr char kPrintFontFace[] = "Courier New";
inline constexpr char kPrintSerifFace[] = "Times New Roman";
inline constexpr int kPrintFontHeight = 16;
inline constexpr int kPrintFontWeight = 200;

/// A rectangle of a page.
struct PrintRectangle {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool operator==(const PrintRectangle&) const = default;
};

/// Where a document is printed. A page has kPageUnits logical units in the shorter of its two
/// directions and as many to the same length in the other; the origin is the top left corner of
/// what can be printed.
///
/// Order: StartDocument(); StartPage(), drawing, EndPage() for each page; EndDocument(). An object
/// that goes before that leaves the document unfinished, and the printing makes of it what it does
/// with such ones. One thread.
class PrintSurface {
 public:
    static constexpr int kPageUnits = 1000;

    virtual ~PrintSurface() = default;

    virtual void StartDocument(const std::string& name) = 0;
    virtual void StartPage() = 0;
    /// Draws a text whose baseline begins at a point.
    virtual void DrawText(int x, int y, const std::string& text, PrintFont font) = 0;
    /// Draws a text on one line from a rectangle's left, at its bottom. It isn't cut at the
    /// rectangle's edges, and "&" stands for itself.
    virtual void DrawTextAtBottom(const PrintRectangle& rectangle, const std::string& text,
                                  PrintFont font) = 0;
    virtual void EndPage() = 0;
    virtual void EndDocument() = 0;
};

}  // namespace k4cmn
