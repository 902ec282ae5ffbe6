#include "k4cmndlg/search/FoundListReport.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "k4cmndlg/frame/Format.h"

namespace {

using k4cmn::Format;
using k4cmn::FoundRows;
using k4cmn::PrintFont;
using testing::ElementsAre;

constexpr k4cmn::RowLabelSize kLabel{60, 17};

/// Writes down what is drawn, a line each.
class Surface final : public k4cmn::PrintSurface {
 public:
    void StartDocument(const std::string& name) override { lines.push_back("document " + name); }
    void StartPage() override { lines.emplace_back("page"); }
    void DrawText(int x, int y, const std::string& text, PrintFont font) override {
        EXPECT_EQ(font, PrintFont::Serif);
        lines.push_back(Format("%d,%d ", x, y) + text);
    }
    void DrawTextAtBottom(const k4cmn::PrintRectangle& rectangle, const std::string& text,
                          PrintFont font) override {
        EXPECT_EQ(font, PrintFont::Serif);
        lines.push_back(Format("%d,%d-%d,%d ", rectangle.left, rectangle.top, rectangle.right,
                               rectangle.bottom) +
                        text);
    }
    void EndPage() override { lines.emplace_back("end of page"); }
    void EndDocument() override { lines.emplace_back("end"); }

    std::vector<std::string> lines;
};

FoundRows Rows(int count) {
    std::vector<k4cmn::FoundFileRow> files;
    for (int i = 0; i < count; ++i)
        files.push_back({Format("%06d", i), Format("A:\\%d.SQ4", i), 0, 0, 0});
    FoundRows rows;
    rows.Add(files);
    return rows;
}

std::vector<std::string> Printed(const FoundRows& rows) {
    Surface surface;
    k4cmn::PrintFoundList(rows, surface, kLabel);
    return surface.lines;
}

/// The number of the row before which each further page begins.
std::vector<int> Breaks(const std::vector<std::string>& lines) {
    std::vector<int> breaks;
    int row = 0;
    for (std::size_t i = 3; i < lines.size(); ++i) {
        if (lines[i] == "page") {
            EXPECT_EQ(lines[i - 1], "end of page");
            breaks.push_back(row);
        }
        row += lines[i].find(".SQ4") != std::string::npos ? 1 : 0;
    }
    return breaks;
}

TEST(FoundListReport, OfAnEmptyListIsTheTitleAlone) {
    EXPECT_THAT(Printed(Rows(0)),
                ElementsAre("document K4FileManager", "page", "40,40 Results of file search ",
                            "end of page", "end"));
}

TEST(FoundListReport, HasThePathOfEachRowOnALine) {
    EXPECT_THAT(Printed(Rows(3)),
                ElementsAre("document K4FileManager", "page", "40,40 Results of file search ",
                            "40,58-100,75 A:\\0.SQ4", "40,76-100,93 A:\\1.SQ4",
                            "40,94-100,111 A:\\2.SQ4", "end of page", "end"));
}

TEST(FoundListReport, PrintsRowsInTheOrderOfTheList) {
    FoundRows rows = Rows(2);
    rows.SortColumn(FoundRows::kName);
    const std::vector<std::string> lines = Printed(rows);
    EXPECT_EQ(lines[3], "40,58-100,75 A:\\1.SQ4");
    EXPECT_EQ(lines[4], "40,76-100,93 A:\\0.SQ4");
}

TEST(FoundListReport, ARowWithoutAPathLeavesItsLineEmpty) {
    FoundRows rows;
    rows.Add({{"a", "A:\\a", 0, 0, 0}, {"b", "", 0, 0, 0}, {"c", "A:\\c & d", 0, 0, 0}});
    EXPECT_THAT(Printed(rows),
                ElementsAre("document K4FileManager", "page", "40,40 Results of file search ",
                            "40,58-100,75 A:\\a", "40,94-100,111 A:\\c & d", "end of page", "end"));
}

TEST(FoundListReport, BreaksPagesByTheNumberOfAllRows) {
    const std::pair<int, std::vector<int>> kBreaks[] = {
        {54, {}},         {55, {0}},        {108, {0}},       {109, {0, 1}},      {162, {0, 1}},
        {163, {0, 1, 2}}, {200, {0, 1, 2}}, {216, {0, 1, 2}}, {217, {0, 1, 2, 3}}};
    for (const auto& [count, breaks] : kBreaks)
        EXPECT_EQ(Breaks(Printed(Rows(count))), breaks) << count;
}

TEST(FoundListReport, LinesGoOnDownwardOverAllPages) {
    const std::vector<std::string> lines = Printed(Rows(200));
    EXPECT_EQ(lines.size(), 3u + 3 * 2 + 200 + 2);
    EXPECT_EQ(lines[2], "40,40 Results of file search ");
    EXPECT_EQ(lines[5], "40,58-100,75 A:\\0.SQ4");
    EXPECT_EQ(lines[8], "40,76-100,93 A:\\1.SQ4");
    EXPECT_EQ(lines[11], "40,94-100,111 A:\\2.SQ4");
    EXPECT_EQ(lines[12], "40,112-100,129 A:\\3.SQ4");
    EXPECT_EQ(lines[208], Format("40,%d-100,%d A:\\199.SQ4", 40 + 200 * 18, 57 + 200 * 18));
}

TEST(FoundListReport, ManyRowsAreNoTrouble) {
    const std::vector<std::string> lines = Printed(Rows(100'000));
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "page"), 1852);
    EXPECT_EQ(Breaks(lines).back(), 1850);
}

TEST(FoundListReport, TakesAnyLabel) {
    Surface surface;
    k4cmn::PrintFoundList(Rows(2), surface, {0, 0});
    EXPECT_EQ(surface.lines[3], "40,41-40,41 A:\\0.SQ4");
    EXPECT_EQ(surface.lines[4], "40,42-40,42 A:\\1.SQ4");
}

}  // namespace
