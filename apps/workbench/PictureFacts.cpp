#include "apps/workbench/PictureFacts.h"

#include <QColor>

namespace workbench {

double MeanBrightness(const QImage& picture) {
    if (picture.isNull())
        return 0;
    double sum = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            sum += qGray(picture.pixel(x, y));
    return sum / (static_cast<double>(picture.width()) * picture.height());
}

Difference DifferentPixels(const QImage& one, const QImage& other, const QRect& rect) {
    Difference difference;
    const bool comparable = one.size() == other.size();
    for (int y = 0; y < other.height(); ++y)
        for (int x = 0; x < other.width(); ++x) {
            if (comparable && one.pixel(x, y) == other.pixel(x, y))
                continue;
            ++(rect.contains(x, y) ? difference.inside : difference.outside);
        }
    return difference;
}

}  // namespace workbench
