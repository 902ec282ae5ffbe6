#include "suite/signservice/PictureFit.h"

#include <algorithm>

namespace k4suite {

namespace {

struct Size {
    std::uint32_t rows;
    std::uint32_t columns;
};

/// A length in the proportion of two others, 1 at least.
std::uint32_t Scaled(std::uint32_t length, std::uint32_t to, std::uint32_t from) {
    return std::max(1U, static_cast<std::uint32_t>(std::uint64_t{length} * to / from));
}

/// The size that a picture has on a sign.
Size SizeOnSign(const Lamps& picture, const Size& sign) {
    const Size own{picture.Rows(), picture.Columns()};
    if (own.rows <= sign.rows && own.columns <= sign.columns)
        return own;
    const bool isRowsTighter =
        std::uint64_t{sign.rows} * own.columns < std::uint64_t{sign.columns} * own.rows;
    return isRowsTighter ? Size{sign.rows, Scaled(own.columns, sign.rows, own.rows)}
                         : Size{Scaled(own.rows, sign.columns, own.columns), sign.columns};
}

/// Where something begins that stands in the middle, at an even place.
std::uint32_t MiddlePlace(std::uint32_t length, std::uint32_t onto) {
    return (onto - length) / 2 & ~1U;
}

/// The old place that a new one shows.
std::uint32_t NearestOf(std::uint32_t at, std::uint32_t from, std::uint32_t to) {
    return static_cast<std::uint32_t>(std::uint64_t{at} * from / to);
}

}  // namespace

Lamps Fitted(const Lamps& picture, std::uint32_t rows, std::uint32_t columns) {
    if (picture.Rows() == rows && picture.Columns() == columns)
        return picture;
    Lamps fitted(rows, columns);
    if (picture.All().empty())
        return fitted;
    const Size size = SizeOnSign(picture, {rows, columns});
    const std::uint32_t top = MiddlePlace(size.rows, rows);
    const std::uint32_t left = MiddlePlace(size.columns, columns);
    for (std::uint32_t row = 0; row < size.rows; ++row) {
        const std::uint32_t from = NearestOf(row, picture.Rows(), size.rows);
        for (std::uint32_t column = 0; column < size.columns; ++column)
            fitted.At(top + row, left + column) =
                picture.At(from, NearestOf(column, picture.Columns(), size.columns));
    }
    return fitted;
}

}  // namespace k4suite
