#include "suite/printing/PdfSurface.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QPageSize>
#include <algorithm>
#include <filesystem>
#include <functional>

#include "tests/suite/platform/OrdinaryUser.h"
#include "tests/suite/printing/PdfReader.h"
#include "tests/suite/sequence/FullDisk.h"
#include "tests/support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using k4cmn::PrintFont;
using k4suite::PdfSurface;
using k4test::PdfReader;
using testing::ElementsAre;

constexpr double kPoints = 72;
constexpr int kDots = 400;
constexpr double kPitch = 4.57;  // points, on an A4 page with margins of 10 mm

class Pdf : public testing::Test {
 protected:
    std::string Path(const std::string& name = "report.pdf") { return (folder / name).string(); }
    /// Everything that lies in the folder.
    std::vector<std::string> Present() {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder.Path()))
            names.push_back(entry.path().filename().string());
        return names;
    }
    /// Prints texts below each other on one page, 20 units apart.
    std::string Print(const std::vector<std::string>& texts, const std::string& path) {
        PdfSurface surface(path);
        surface.StartDocument("K4FileManager");
        surface.StartPage();
        int y = 40;
        for (const std::string& text : texts)
            surface.DrawText(40, y += 20, text, PrintFont::Plain);
        surface.EndPage();
        surface.EndDocument();
        EXPECT_EQ(surface.IsPrinted(), surface.Problem().empty());
        return surface.Problem();
    }

    k4test::TempFolder folder;
};

TEST_F(Pdf, HasTheTextsAndTheName) {
    EXPECT_EQ(Print({"one    two", "three"}, Path()), "");
    const PdfReader reader(Path());
    EXPECT_THAT(reader.Lines(1, kPitch), ElementsAre("one    two", "three"));
    EXPECT_EQ(reader.Title(), "K4FileManager");
    EXPECT_EQ(reader.PageCount(), 1);
    EXPECT_THAT(reader.Fonts(), ElementsAre(testing::HasSubstr("LiberationMono")));
    EXPECT_THAT(Present(), ElementsAre("report.pdf"));
}

TEST_F(Pdf, TextsOfAnyScriptStandAsTheyAre) {
    const std::vector<std::string> texts = {
        "Größe && R&D &File", "Ωμέγα", "Жёлтый", "<b>no</b>", "100%s \\ / \"", "file office ff fi"};
    EXPECT_EQ(Print(texts, Path()), "");
    EXPECT_EQ(PdfReader(Path()).Lines(1, kPitch), texts);
}

TEST_F(Pdf, ATextIsOneLineWhateverIsInIt) {
    EXPECT_EQ(
        Print({"a\nb\tc\rd", "e\u2028f\u2029g", std::string("h\0i", 3), "\xff\xfe", ""}, Path()),
        "");
    const std::vector<std::string> lines = PdfReader(Path()).Lines(1, kPitch);
    ASSERT_GE(lines.size(), 3u);
    EXPECT_EQ(lines[0], "a b c d");
    EXPECT_EQ(lines[1], "e f g");
    EXPECT_EQ(lines[2], "h i");
}

TEST_F(Pdf, ARowWiderThanThePageEndsAtItsEdge) {
    std::string wide;
    for (int i = 0; i < 60; ++i)
        wide += std::to_string(1000 + i) + " ";
    EXPECT_EQ(Print({wide, "next"}, Path()), "");
    const std::vector<std::string> lines = PdfReader(Path()).Lines(1, kPitch);
    ASSERT_EQ(lines.size(), 2u) << "it goes to no line of its own";
    EXPECT_TRUE(wide.starts_with(lines[0].substr(0, lines[0].size() - 4))) << lines[0];
    EXPECT_GT(lines[0].size(), 110u) << "up to the margin and into it";
    EXPECT_EQ(lines[1], "next");
}

TEST_F(Pdf, EachPageHasItsOwn) {
    PdfSurface surface(Path());
    surface.StartDocument("two");
    for (const char* text : {"first", "second", "third"}) {
        surface.StartPage();
        surface.DrawText(40, 40, text, PrintFont::Plain);
        surface.EndPage();
    }
    surface.EndDocument();
    const PdfReader reader(Path());
    EXPECT_EQ(reader.PageCount(), 3);
    EXPECT_THAT(reader.Lines(1, kPitch), ElementsAre("first"));
    EXPECT_THAT(reader.Lines(2, kPitch), ElementsAre("second"));
    EXPECT_THAT(reader.Lines(3, kPitch), ElementsAre("third"));
}

// Where things stand ---------------------------------------------------------------------------

/// The rectangle of a page that has ink, in its units.
struct Ink {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

Ink InkOf(const QImage& page, const QPageLayout& layout) {
    int left = page.width();
    int top = page.height();
    int right = -1;
    int bottom = -1;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x)
            if (page.constScanLine(y)[x] < 128) {
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = y;
            }
    const QRectF printable = layout.paintRect(QPageLayout::Point);
    const double unit = std::min(printable.width(), printable.height()) / 1000;
    const auto across = [&](int x) { return (x * kPoints / kDots - printable.left()) / unit; };
    const auto down = [&](int y) { return (y * kPoints / kDots - printable.top()) / unit; };
    return {across(left), down(top), across(right + 1), down(bottom + 1)};
}

/// The ink of one text.
Ink Drawn(const std::string& path, const QPageLayout& layout,
          const std::function<void(k4cmn::PrintSurface&)>& draw) {
    PdfSurface surface(path, layout);
    surface.StartDocument("x");
    surface.StartPage();
    draw(surface);
    surface.EndPage();
    surface.EndDocument();
    EXPECT_EQ(surface.Problem(), "");
    const QImage page = PdfReader(path).Picture(1, kDots);
    EXPECT_FALSE(page.isNull());
    return InkOf(page, layout);
}

// In units: a dot of the picture, and across a letter's own margins too.
constexpr double kClose = 0.8;
constexpr double kAcross = 1.5;

struct LayoutRow {
    const char* name;
    QPageSize::PageSizeId size;
    QPageLayout::Orientation orientation;
};

class PdfPlaces : public testing::TestWithParam<LayoutRow> {
 protected:
    QPageLayout Layout() const {
        return QPageLayout(QPageSize(GetParam().size), GetParam().orientation,
                           QMarginsF(30, 60, 45, 20), QPageLayout::Point);
    }
    k4test::TempFolder folder;
};

TEST_P(PdfPlaces, ATextStandsOnItsBaseline) {
    const Ink ink = Drawn((folder / "a.pdf").string(), Layout(), [](k4cmn::PrintSurface& surface) {
        surface.DrawText(100, 200, "HH", PrintFont::Plain);
    });
    EXPECT_NEAR(ink.left, 100, kAcross);
    EXPECT_NEAR(ink.bottom, 200, kClose);
    EXPECT_NEAR(ink.right, 100 + 2 * 0.6 * 16 / 1.133, kAcross)
        << "two characters of a 16 unit cell";
}

TEST_P(PdfPlaces, TheOriginIsTheCornerOfWhatCanBePrinted) {
    const Ink ink = Drawn((folder / "a.pdf").string(), Layout(), [](k4cmn::PrintSurface& surface) {
        surface.DrawText(0, 0, "HH", PrintFont::Plain);
        surface.DrawText(1000 - 17, 980, "HH", PrintFont::Plain);
    });
    EXPECT_NEAR(ink.left, 0, kAcross);
    EXPECT_NEAR(ink.top, -9.3, kClose) << "the letters stand above the corner, in the margin";
    EXPECT_NEAR(ink.right, 1000, kAcross);
    EXPECT_NEAR(ink.bottom, 980, kClose);
}

TEST_P(PdfPlaces, ATextAtTheBottomHasItsLowestLettersInTheRectangle) {
    const k4cmn::PrintRectangle place{100, 150, 110, 200};
    const auto draw = [&](const std::string& text) {
        return Drawn((folder / "a.pdf").string(), Layout(), [&](k4cmn::PrintSurface& surface) {
            surface.DrawTextAtBottom(place, text, PrintFont::Plain);
        });
    };
    const Ink low = draw("gjpqyWWWW");
    EXPECT_LE(low.bottom, 200);
    EXPECT_GT(low.bottom, 197);
    EXPECT_GE(low.top, 200 - 16);
    EXPECT_NEAR(low.left, 100, kAcross);
    EXPECT_GT(low.right, 150) << "not cut at the rectangle's edge";
    const double descent = 16 * 0.3003 / 1.1328;
    EXPECT_NEAR(draw("HH").bottom, 200 - descent, kClose);
}

TEST_P(PdfPlaces, TheUnderlinedFontHasALineBelowTheText) {
    const auto draw = [&](PrintFont font) {
        return Drawn((folder / "a.pdf").string(), Layout(), [&](k4cmn::PrintSurface& surface) {
            surface.DrawText(100, 200, "H   H", font);
        });
    };
    const Ink plain = draw(PrintFont::Plain);
    const Ink underlined = draw(PrintFont::Underlined);
    EXPECT_NEAR(underlined.top, plain.top, 0.1);
    EXPECT_NEAR(underlined.right, plain.right, kAcross) << "the same width";
    EXPECT_GT(underlined.bottom, 200.5);
    EXPECT_LT(underlined.bottom, 204);
}

TEST_P(PdfPlaces, TheSerifFontHasASizeAndWidthsOfItsOwn) {
    const auto draw = [&](const std::string& text) {
        return Drawn((folder / "a.pdf").string(), Layout(), [&](k4cmn::PrintSurface& surface) {
            surface.DrawTextAtBottom({100, 184, 110, 200}, text, PrintFont::Serif);
        });
    };
    const Ink low = draw("gjpqyWWWW");
    EXPECT_LE(low.bottom, 200);
    EXPECT_GT(low.bottom, 196);
    EXPECT_GE(low.top, 184);
    EXPECT_NEAR(low.left, 100, kAcross);
    EXPECT_GT(low.right, 150) << "not cut at the rectangle's edge";
    EXPECT_LT(draw("iiiiiiii").right, draw("mmmmmmmm").right - 30);
    constexpr double kWidthOfM = 0.7778;  // of the size
    EXPECT_NEAR(draw(std::string(40, 'm')).right, 100 + 40 * kWidthOfM * 16, kAcross);
}

INSTANTIATE_TEST_SUITE_P(
    Pages, PdfPlaces,
    testing::Values(LayoutRow{"A4Upright", QPageSize::A4, QPageLayout::Portrait},
                    LayoutRow{"A4Across", QPageSize::A4, QPageLayout::Landscape},
                    LayoutRow{"LetterUpright", QPageSize::Letter, QPageLayout::Portrait},
                    LayoutRow{"A6Across", QPageSize::A6, QPageLayout::Landscape}),
    [](const auto& row) { return row.param.name; });

// What becomes of the file -----------------------------------------------------------------------

TEST_F(Pdf, OfAnUnfinishedDocumentLeavesNothing) {
    for (const int ended : {0, 1}) {
        PdfSurface surface(Path());
        surface.StartDocument("x");
        surface.StartPage();
        surface.DrawText(40, 40, "text", PrintFont::Plain);
        if (ended)
            surface.EndPage();
        EXPECT_TRUE(Present().empty()) << "nothing is there before the end";
    }
    EXPECT_TRUE(Present().empty());
    folder.Write("report.pdf", "the one before");
    {
        PdfSurface surface(Path());
        surface.StartDocument("x");
        surface.StartPage();
    }
    EXPECT_TRUE(folder.Read("report.pdf") == "the one before");
}

TEST_F(Pdf, ReplacesTheOneThatWasThere) {
    folder.Write("report.pdf", std::string(100'000, 'x'));
    EXPECT_EQ(Print({"new"}, Path()), "");
    EXPECT_THAT(PdfReader(Path()).Lines(1, kPitch), ElementsAre("new"));
    EXPECT_THAT(Present(), ElementsAre("report.pdf"));
}

TEST_F(Pdf, AFileOfAnyNameIsMade) {
    for (const char* name : {"-Übersicht & Ω\n.pdf", "no extension", " "}) {
        EXPECT_EQ(Print({"text"}, Path(name)), "") << name;
        EXPECT_EQ(folder.Read(name).substr(0, 5), "%PDF-") << name;
    }
}

struct BadTarget {
    std::string path;
    const char* words;
};

TEST_F(Pdf, WhereItCantBeWrittenItSaysWhy) {
    fs::create_directory(folder / "folder");
    folder.Write("file", "x");
    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
    const BadTarget kTargets[] = {
        {"", "No such file or directory"},
        {std::string("a\0b", 3), "No such file or directory"},
        {Path("none/report.pdf"), "No such file or directory"},
        {Path("folder"), "Is a directory"},
        {Path("file/report.pdf"), "Not a directory"},
        {Path("pipe"), "Invalid argument"},
        {Path(std::string(300, 'x')), "File name too long"},
    };
    for (const BadTarget& target : kTargets)
        EXPECT_EQ(Print({"text"}, target.path), target.words) << target.path;
    EXPECT_EQ(Present().size(), 3u);
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
}

TEST_F(Pdf, AFolderThatNobodyMayWriteInKeepsWhatItHas) {
    folder.Write("report.pdf", "the one before");
    const k4test::OrdinaryUser user(folder.Path());
    fs::permissions(folder.Path(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(Print({"text"}, Path()), "Permission denied");
    EXPECT_EQ(Print({"text"}, Path("other.pdf")), "Permission denied");
    EXPECT_TRUE(folder.Read("report.pdf") == "the one before");
    fs::permissions(folder.Path(), fs::perms::owner_all);
}

TEST_F(Pdf, AFullDiskLeavesNothingHalfWritten) {
    folder.Write("report.pdf", "the one before");
    for (const std::uint64_t size : {0, 1, 100, 3000}) {
        const k4test::FullDisk disk(size);
        EXPECT_EQ(Print({"text"}, Path()), "File too large") << size;
    }
    std::vector<std::string> many;
    std::uint32_t number = 1;
    for (int i = 0; i < 20'000; ++i)
        many.push_back(std::to_string(number = number * 1664525 + 1013904223));
    {
        const k4test::FullDisk disk(20'000);
        EXPECT_EQ(Print(many, Path()), "File too large") << "with more than a buffer's worth";
    }
    EXPECT_TRUE(folder.Read("report.pdf") == "the one before");
    EXPECT_THAT(Present(), ElementsAre("report.pdf"));
}

}  // namespace
