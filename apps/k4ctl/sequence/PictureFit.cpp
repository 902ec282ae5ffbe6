#include "apps/k4ctl/sequence/PictureFit.h"

#include <algorithm>

namespace k4ctl {
namespace {

/// `whole` parts of `of`, rounded, 1 at least.
int Part(std::int64_t whole, std::int64_t numerator, std::int64_t denominator) {
    return static_cast<int>(
        std::max<std::int64_t>(1, (whole * numerator + denominator / 2) / denominator));
}

/// The largest size of a shape inside of another one.
QSize Inside(const QSize& outer, const QSize& shape) {
    const std::int64_t byWidth = std::int64_t{outer.width()} * shape.height();
    const std::int64_t byHeight = std::int64_t{outer.height()} * shape.width();
    if (byWidth <= byHeight) {
        return {outer.width(), Part(outer.width(), shape.height(), shape.width())};
    }
    return {Part(outer.height(), shape.width(), shape.height()), outer.height()};
}

QRect Centred(const QSize& outer, const QSize& inner, int unit) {
    const auto start = [unit](int whole, int part) { return (whole - part) / 2 / unit * unit; };
    return {QPoint(start(outer.width(), inner.width()), start(outer.height(), inner.height())),
            inner};
}

QImage Scaled(const QImage& picture, const QSize& size) {
    if (picture.size() == size) {
        return picture;
    }
    const int factor = size.width() / picture.width();
    const bool isWhole = factor >= 1 && size == picture.size() * factor;
    return picture.scaled(size, Qt::IgnoreAspectRatio,
                          isWhole ? Qt::FastTransformation : Qt::SmoothTransformation);
}

}  // namespace

FitPlan PlanFit(const QSize& picture, const QSize& sign, Fit fit, int unit) {
    switch (fit) {
        case Fit::Crop:
            return {Centred(picture, Inside(picture, sign), 1), QRect(QPoint(0, 0), sign)};
        case Fit::Stretch:
            return {QRect(QPoint(0, 0), picture), QRect(QPoint(0, 0), sign)};
        default:
            return {QRect(QPoint(0, 0), picture), Centred(sign, Inside(sign, picture), unit)};
    }
}

k4suite::Lamps FittedLamps(const QImage& picture, const QSize& sign, Fit fit, int unit) {
    k4suite::Lamps lamps(static_cast<std::uint32_t>(sign.height()),
                         static_cast<std::uint32_t>(sign.width()));
    const FitPlan plan = PlanFit(picture.size(), sign, fit, unit);
    // Premultiplied colors are those on black.
    const QImage shown =
        Scaled(picture.copy(plan.part).convertToFormat(QImage::Format_ARGB32_Premultiplied),
               plan.place.size());
    for (int row = 0; row < shown.height(); ++row) {
        const auto* line = reinterpret_cast<const QRgb*>(shown.constScanLine(row));
        for (int column = 0; column < shown.width(); ++column) {
            lamps.At(static_cast<std::uint32_t>(plan.place.top() + row),
                     static_cast<std::uint32_t>(plan.place.left() + column)) = {
                static_cast<std::uint8_t>(qRed(line[column])),
                static_cast<std::uint8_t>(qGreen(line[column])),
                static_cast<std::uint8_t>(qBlue(line[column]))};
        }
    }
    return lamps;
}

}  // namespace k4ctl
