#include "suite/signservice/PictureFit.h"

#include <gtest/gtest.h>

#include <ostream>

namespace {

using namespace k4suite;

/// A picture whose lamps all differ.
Lamps Distinct(std::uint32_t rows, std::uint32_t columns) {
    Lamps picture(rows, columns);
    for (std::uint32_t row = 0; row < rows; ++row)
        for (std::uint32_t column = 0; column < columns; ++column)
            picture.At(row, column) = {static_cast<std::uint8_t>(row + 1),
                                       static_cast<std::uint8_t>(column + 1), 255};
    return picture;
}

struct Row {
    const char* what;
    std::uint32_t rows, columns;          ///< of the picture
    std::uint32_t signRows, signColumns;  ///< of the sign
    std::uint32_t top, left;              ///< where the picture stands then
    std::uint32_t height, width;          ///< how large it is
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.what;
}

class PictureFit : public testing::TestWithParam<Row> {};

TEST_P(PictureFit, StandsInTheMiddleWithTheRestDark) {
    const Row& row = GetParam();
    const Lamps picture = Distinct(row.rows, row.columns);
    const Lamps fitted = Fitted(picture, row.signRows, row.signColumns);
    ASSERT_EQ(fitted.Rows(), row.signRows);
    ASSERT_EQ(fitted.Columns(), row.signColumns);
    for (std::uint32_t r = 0; r < row.signRows; ++r)
        for (std::uint32_t c = 0; c < row.signColumns; ++c) {
            const bool inside = r >= row.top && r < row.top + row.height && c >= row.left &&
                                c < row.left + row.width;
            ASSERT_EQ(fitted.At(r, c) != Rgb{}, inside) << r << " " << c;
            if (!inside)
                continue;
            const Rgb& expected = picture.At((r - row.top) * row.rows / row.height,
                                             (c - row.left) * row.columns / row.width);
            ASSERT_EQ(fitted.At(r, c), expected) << r << " " << c;
        }
}

INSTANTIATE_TEST_SUITE_P(Rows, PictureFit,
                         testing::Values(Row{"TheSameSize", 8, 16, 8, 16, 0, 0, 8, 16},
                                         Row{"ASmallerOneLampForLamp", 8, 16, 16, 40, 4, 12, 8, 16},
                                         Row{"AnEvenPlace", 8, 16, 11, 22, 0, 2, 8, 16},
                                         Row{"AnEvenPlaceForOddOnes", 7, 17, 16, 24, 4, 2, 7, 17},
                                         Row{"TooHigh", 32, 16, 16, 40, 0, 16, 16, 8},
                                         Row{"TooWide", 8, 80, 16, 40, 6, 0, 4, 40},
                                         Row{"TooHighAndTooWide", 64, 192, 16, 64, 0, 8, 16, 48},
                                         Row{"TooHighAndFarTooWide", 20, 200, 16, 40, 6, 0, 4, 40},
                                         Row{"HalfTheSize", 16, 80, 8, 40, 0, 0, 8, 40},
                                         Row{"ALineOnALine", 1, 100, 1, 10, 0, 0, 1, 10},
                                         Row{"NeverToNothing", 1, 200, 16, 10, 6, 0, 1, 10},
                                         Row{"OneLamp", 1, 1, 7, 16, 2, 6, 1, 1}),
                         [](const auto& row) { return std::string(row.param.what); });

TEST(PictureFit, AnEmptyPictureIsDark) {
    EXPECT_EQ(Fitted(Lamps(), 2, 3), Lamps(2, 3));
}

}  // namespace
