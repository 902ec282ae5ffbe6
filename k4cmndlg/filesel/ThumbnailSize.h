#pragma once

#include <algorithm>
#include <cstdint>

namespace k4cmn {

/// The size at which a thumbnail is drawn, in the window's units.
struct ThumbnailSize {
    int width = 0;
    int height = 0;

    bool operator==(const ThumbnailSize&) const = default;
};

/// The edge of the box that a preview pane's thumbnail fits.
inline constexpr int kThumbnailBox = 256;

/// The preview pane's thumbnail: the longer side fills the box, the other one keeps the sign's
/// proportion. Small signs are enlarged, and no side is ever less than 1.
/// @param rows, columns of the sign, 1 at least; without lamps the size is empty.
constexpr ThumbnailSize BoxedThumbnail(std::uint32_t rows, std::uint32_t columns) {
    if (rows == 0 || columns == 0)
        return {};
    const auto scaled = [](std::uint32_t side, std::uint32_t longer) {
        return std::max(1, static_cast<int>(std::uint64_t{side} * kThumbnailBox / longer));
    };
    if (columns > rows)
        return {kThumbnailBox, scaled(rows, columns)};
    return {scaled(columns, rows), kThumbnailBox};
}

/// How far a thumbnail's left edge lies from that of its box.
constexpr int BoxedThumbnailLeft(const ThumbnailSize& size) {
    return (kThumbnailBox - size.width) / 2;
}

/// The properties page's thumbnail: twice the sign, at most 320 by 176, without regard to
/// proportion.
constexpr ThumbnailSize PageThumbnail(std::uint32_t rows, std::uint32_t columns) {
    return {static_cast<int>(std::min<std::uint64_t>(std::uint64_t{columns} * 2, 320)),
            static_cast<int>(std::min<std::uint64_t>(std::uint64_t{rows} * 2, 176))};
}

}  // namespace k4cmn
