#include "apps/k4ctl/store/TextPages.h"

#include <algorithm>

namespace k4ctl {

void TextPages::StartPage() {
    m_pages.emplace_back();
}

void TextPages::DrawText(int, int y, const std::string& text, k4cmn::PrintFont) {
    m_pages.back().emplace_back(y, text);
}

void TextPages::DrawTextAtBottom(const k4cmn::PrintRectangle& rectangle, const std::string& text,
                                 k4cmn::PrintFont) {
    m_pages.back().emplace_back(rectangle.bottom, text);
}

std::vector<std::string> TextPages::Lines() const {
    std::vector<std::string> lines;
    for (Page page : m_pages) {
        std::stable_sort(page.begin(), page.end(), [](const auto& one, const auto& other) {
            return one.first < other.first;
        });
        if (!lines.empty()) {
            lines.emplace_back();
        }
        for (auto& [height, text] : page) {
            lines.push_back(std::move(text));
        }
    }
    return lines;
}

}  // namespace k4ctl
