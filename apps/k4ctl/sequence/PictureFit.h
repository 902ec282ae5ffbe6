#pragma once

#include <QImage>
#include <cstdint>

#include "suite/lamps/Lamps.h"

namespace k4ctl {

/// How a picture of another shape fills a sign.
enum class Fit {
    Scale,    ///< all of it, in its proportion, on black
    Crop,     ///< all of the sign, in its proportion; what hangs over is cut off
    Stretch,  ///< all of both
};

/// The part of a picture that a sign shows, and where.
struct FitPlan {
    QRect part;   ///< of the picture
    QRect place;  ///< on the sign
};

/// @param picture, sign sizes that aren't empty.
/// @param unit    the lamps of a picture's unit in each direction: the place is a multiple of it.
FitPlan PlanFit(const QSize& picture, const QSize& sign, Fit fit, int unit);

/// Makes the lamps of a sign of a picture. What is transparent shows the dark behind it. A picture
/// that is enlarged by a whole number keeps its edges; any other scaling is smooth.
k4suite::Lamps FittedLamps(const QImage& picture, const QSize& sign, Fit fit, int unit);

}  // namespace k4ctl
