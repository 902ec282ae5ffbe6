#include "k4cmndlg/search/FoundListReport.h"

namespace k4cmn {

namespace {

constexpr char kDocument[] = "K4FileManager";
constexpr char kTitle[] = "Results of file search ";
constexpr int kLeft = 40;
constexpr int kTop = 40;
constexpr std::size_t kLinesOfAPage = 54;

}  // namespace

void PrintFoundList(const FoundRows& rows, PrintSurface& surface, RowLabelSize label) {
    surface.StartDocument(kDocument);
    surface.StartPage();
    surface.DrawText(kLeft, kTop, kTitle, PrintFont::Serif);
    PrintRectangle line{kLeft, kTop, kLeft + label.width, kTop + label.height};
    const int pitch = label.height + 1;
    const std::size_t count = rows.Count();
    std::size_t limit = kLinesOfAPage;
    for (std::size_t row = 0; row < count; ++row) {
        if (count > limit) {
            surface.EndPage();
            surface.StartPage();
            limit += kLinesOfAPage;
        }
        line.top += pitch;
        line.bottom += pitch;
        const std::string& path = rows.Row(row).path;
        if (!path.empty())
            surface.DrawTextAtBottom(line, path, PrintFont::Serif);
    }
    surface.EndPage();
    surface.EndDocument();
}

}  // namespace k4cmn
