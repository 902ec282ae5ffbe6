#include "suite/printing/DocumentSurface.h"

#include <algorithm>

namespace k4suite {

using k4cmn::PrintFont;

void DocumentSurface::StartDocument(const std::string& name) {
    if (m_stage != Stage::New)
        return;
    m_document.name = name;
    m_stage = Stage::Open;
}

void DocumentSurface::StartPage() {
    if (m_stage != Stage::Open)
        return;
    m_document.pages.emplace_back();
    m_stage = Stage::OnPage;
}

void DocumentSurface::DrawText(int x, int y, const std::string& text, PrintFont font) {
    Add({x, y, TextFoot::Baseline, text, font});
}

void DocumentSurface::DrawTextAtBottom(const k4cmn::PrintRectangle& rectangle,
                                       const std::string& text, PrintFont font) {
    Add({rectangle.left, rectangle.bottom, TextFoot::Bottom, text, font});
}

void DocumentSurface::EndPage() {
    if (m_stage == Stage::OnPage)
        m_stage = Stage::Open;
}

void DocumentSurface::EndDocument() {
    if (m_stage != Stage::Open && m_stage != Stage::OnPage)
        return;
    m_problem = PrintChosen();
    m_stage = m_problem.empty() ? Stage::Printed : Stage::Failed;
    if (!m_problem.empty() && m_tell)
        m_tell(m_problem);
}

std::string DocumentSurface::PrintChosen() {
    if (m_only) {
        const int count = static_cast<int>(m_document.pages.size());
        const int first = std::max(m_only->first, 1);
        const int last = std::min(m_only->second, count);
        if (first > last)
            return "The document doesn't have the chosen pages.";
        m_document.pages = {m_document.pages.begin() + first - 1, m_document.pages.begin() + last};
    }
    return Print(m_document);
}

void DocumentSurface::OnlyPages(int first, int last) {
    m_only = {first, last};
}

void DocumentSurface::WhenItFails(std::function<void(const std::string&)> tell) {
    m_tell = std::move(tell);
}

void DocumentSurface::Add(PrintedText text) {
    if (m_stage == Stage::OnPage)
        m_document.pages.back().push_back(std::move(text));
}

}  // namespace k4suite
