#include "suite/printing/PrintFace.h"

#include <gmock/gmock.h>

#include <QBuffer>
#include <QFontDatabase>
#include <QPdfWriter>
#include <algorithm>

#include "suite/printing/PaintDocument.h"
#include "tests/suite/printing/PdfReader.h"
#include "tests/support/TempFolder.h"

namespace {

using k4cmn::PrintFont;

constexpr int kDots = 300;

TEST(PrintFace, CharactersAreAllAsWideAsEachOther) {
    const QString face = k4suite::PrintFace();
    EXPECT_TRUE(QFontDatabase::isFixedPitch(face)) << face.toStdString();
    EXPECT_EQ(face, QStringLiteral("Liberation Mono"))
        << "the face that the package list has for it";
}

TEST(PrintFace, OfTheSerifFontIsARomanOne) {
    const QString face = k4suite::PrintSerifFace();
    EXPECT_FALSE(QFontDatabase::isFixedPitch(face)) << face.toStdString();
    EXPECT_EQ(face, QStringLiteral("Liberation Serif"))
        << "the face that the package list has for it";
}

/// The columns of a page that have ink between two heights, in dots.
std::vector<int> InkedColumns(const QImage& page, int top, int bottom) {
    std::vector<int> columns;
    for (int x = 0; x < page.width(); ++x)
        for (int y = top; y < bottom; ++y)
            if (page.constScanLine(y)[x] < 128) {
                columns.push_back(x);
                break;
            }
    return columns;
}

TEST(PrintFace, OfADifferentKindStillGivesColumnsBelowEachOther) {
    const k4test::TempFolder folder;
    const std::string path = (folder / "columns.pdf").string();
    QPdfWriter writer(QString::fromStdString(path));
    writer.setResolution(1200);
    k4suite::PrintedDocument document;
    document.pages.push_back(
        {{0, 100, k4suite::TextFoot::Baseline, "iiiiiiiiii|", PrintFont::Plain},
         {0, 200, k4suite::TextFoot::Baseline, "nnnnnnnnnn|", PrintFont::Plain},
         {0, 300, k4suite::TextFoot::Baseline, "e\u0301\u0416\u00e9\u03b1ninini|",
          PrintFont::Plain}});
    ASSERT_TRUE(k4suite::PaintDocument(writer, document, QStringLiteral("DejaVu Sans")));
    const QImage page = k4test::PdfReader(path).Picture(1, kDots);
    ASSERT_FALSE(page.isNull());
    std::vector<int> lastColumns;
    for (const int third : {0, 1, 2}) {
        const double unit = page.width() / 1000.0;
        const int middle = static_cast<int>(((third + 1) * 100 - 4) * unit);
        const std::vector<int> columns = InkedColumns(page, middle, middle + 40);
        ASSERT_FALSE(columns.empty());
        lastColumns.push_back(columns.back());
    }
    EXPECT_NEAR(lastColumns[0], lastColumns[1], 1);
    EXPECT_NEAR(lastColumns[0], lastColumns[2], 1);
}

}  // namespace
