#include "k4cmndlg/filesel/properties/FrameImage.h"

#include <algorithm>
#include <cstdlib>
#include <span>

#include "k4cmndlg/filesel/properties/FramePicture.h"

namespace k4cmn {

namespace {

QImage::Format FormatOf(int bitsOfPixel) {
    switch (bitsOfPixel) {
        case 1:
            return QImage::Format_Mono;
        case 8:
            return QImage::Format_Indexed8;
        default:
            return QImage::Format_RGB32;
    }
}

/// Fills the byte that a bitmap leaves 0 and the toolkit wants full, or a picture that is drawn
/// into another one is transparent there.
void MakeOpaque(QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::for_each(line, line + image.width(), [](QRgb& pixel) { pixel |= 0xFF000000; });
    }
}

}  // namespace

QList<QRgb> PaletteOf(const FramePicture& picture) {
    const std::uint16_t bits = picture.header.bmiHeader.biBitCount;
    QList<QRgb> palette;
    if (!picture.IsValid() || bits > 8)
        return palette;
    for (const RGBQUAD& color : std::span(picture.header.bmiColors).first(std::size_t{1} << bits))
        palette.append(qRgb(color.rgbRed, color.rgbGreen, color.rgbBlue));
    return palette;
}

QImage ImageOf(const FramePicture& picture) {
    return ImageOf(picture, PaletteOf(picture));
}

QImage ImageOf(const FramePicture& picture, const QList<QRgb>& palette) {
    if (!picture.IsValid())
        return {};
    const BITMAPINFOHEADER& header = picture.header.bmiHeader;
    const int rows = std::abs(header.biHeight);
    const qsizetype lineBytes = (qsizetype{header.biWidth} * header.biBitCount + 31) / 32 * 4;
    QImage image(picture.pixels.data(), header.biWidth, rows, lineBytes,
                 FormatOf(header.biBitCount));
    if (header.biBitCount <= 8)
        image.setColorTable(palette);
    image = header.biHeight < 0 ? image.copy() : image.mirrored();
    if (header.biBitCount > 8)
        MakeOpaque(image);
    return image;
}

}  // namespace k4cmn
