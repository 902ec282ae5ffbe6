#include <gmock/gmock.h>

#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/search/FoundListReport.h"
#include "suite/printing/PdfSurface.h"
#include "tests/suite/printing/PdfReader.h"
#include "tests/support/TempFolder.h"

namespace {

using k4cmn::Format;
using k4test::PdfReader;
using testing::ElementsAre;

constexpr double kPitch = 3;  // points

/// The results of a search as a real file.
class PdfFoundList : public testing::Test {
 protected:
    PdfReader Print(const std::vector<std::string>& paths) {
        std::vector<k4cmn::FoundFileRow> files;
        for (std::size_t i = 0; i < paths.size(); ++i)
            files.push_back({Format("%06zu", i), paths[i], 0, 0, 0});
        k4cmn::FoundRows rows;
        rows.Add(files);
        k4suite::PdfSurface surface(path);
        k4cmn::PrintFoundList(rows, surface, {120, 17});
        EXPECT_TRUE(surface.IsPrinted()) << surface.Problem();
        return PdfReader(path);
    }

    k4test::TempFolder folder;
    const std::string path = (folder / "found.pdf").string();
};

TEST_F(PdfFoundList, ReadsAsItWasDrawn) {
    const std::string library = "A:\\7x80.Mono1.LED.Sign\\Default.Lib\\";
    const PdfReader reader = Print({library + "a.SQ4", library + "Größe & Ω.SQ4"});
    EXPECT_EQ(reader.Title(), "K4FileManager");
    EXPECT_EQ(reader.PageCount(), 1);
    EXPECT_THAT(reader.Lines(1, kPitch), ElementsAre("Results of file search", library + "a.SQ4",
                                                     library + "Größe & Ω.SQ4"));
    EXPECT_THAT(reader.Fonts(), testing::Contains(testing::HasSubstr("Serif")));
}

TEST_F(PdfFoundList, OfAnEmptyListHasTheTitleAlone) {
    const PdfReader reader = Print({});
    EXPECT_EQ(reader.PageCount(), 1);
    EXPECT_THAT(reader.Lines(1, kPitch), ElementsAre("Results of file search"));
}

TEST_F(PdfFoundList, Of200RowsBreaksThePageBeforeTheFirstThree) {
    std::vector<std::string> paths;
    for (int i = 0; i < 200; ++i)
        paths.push_back(Format("A:\\s%03d.SQ4", i));
    const PdfReader reader = Print(paths);
    ASSERT_EQ(reader.PageCount(), 4);
    EXPECT_THAT(reader.Lines(1, kPitch), ElementsAre("Results of file search"));
    EXPECT_THAT(reader.Lines(2, kPitch), ElementsAre("A:\\s000.SQ4"));
    EXPECT_THAT(reader.Lines(3, kPitch), ElementsAre("A:\\s001.SQ4"));
    const std::vector<std::string> last = reader.Lines(4, kPitch);
    ASSERT_GT(last.size(), 50u);
    EXPECT_LT(last.size(), 198u) << "the page ends before the lines do";
    for (std::size_t line = 0; line < last.size(); ++line)
        EXPECT_EQ(last[line], Format("A:\\s%03zu.SQ4", line + 2));
}

}  // namespace
