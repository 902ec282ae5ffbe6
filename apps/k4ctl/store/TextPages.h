#pragma once

#include <string>
#include <utility>
#include <vector>

#include "k4cmndlg/filelist/contracts/PrintSurface.h"

namespace k4ctl {

/// A printed document as lines of plain text: those of a page in the order of their height on it.
class TextPages final : public k4cmn::PrintSurface {
 public:
    void StartDocument(const std::string&) override {}
    void StartPage() override;
    void DrawText(int x, int y, const std::string& text, k4cmn::PrintFont font) override;
    void DrawTextAtBottom(const k4cmn::PrintRectangle& rectangle, const std::string& text,
                          k4cmn::PrintFont font) override;
    void EndPage() override {}
    void EndDocument() override {}

    /// All lines; an empty one between two pages.
    std::vector<std::string> Lines() const;

 private:
    using Page = std::vector<std::pair<int, std::string>>;  ///< height from the top, and text

    std::vector<Page> m_pages;
};

}  // namespace k4ctl
