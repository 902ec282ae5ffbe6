#pragma once

#include <array>

namespace preview {

/// The sizes of a lamp that a picture can be fixed at, in units of the window.
inline constexpr std::array<int, 6> kZooms{1, 2, 4, 8, 16, 32};
/// The zoom that makes the picture fit.
inline constexpr int kFit = 0;

/// The next larger zoom.
/// @param zoom     the present one, kFit among them.
/// @param lampSize how large a lamp is drawn now, which counts where the picture fits.
/// @return the present one if there is no larger one.
int LargerZoom(int zoom, double lampSize);
/// The next smaller zoom; as LargerZoom().
int SmallerZoom(int zoom, double lampSize);

}  // namespace preview
