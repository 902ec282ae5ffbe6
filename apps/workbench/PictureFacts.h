#pragma once

#include <QImage>
#include <QRect>

namespace workbench {

/// The mean value of all pixels, 0 to 255.
double MeanBrightness(const QImage& picture);

/// How many pixels of two pictures differ, inside and outside of a rectangle. Pictures of different
/// sizes differ everywhere.
struct Difference {
    int inside = 0;
    int outside = 0;
};
Difference DifferentPixels(const QImage& one, const QImage& other, const QRect& rect);

}  // namespace workbench
