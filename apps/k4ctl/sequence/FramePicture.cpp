#include "apps/k4ctl/sequence/FramePicture.h"

#include <algorithm>
#include <cstring>

namespace k4ctl {
namespace {

QRgb ColorOf(const RGBQUAD& entry) {
    return qRgb(entry.rgbRed, entry.rgbGreen, entry.rgbBlue);
}

template <class Pixel>
void EnlargeLine(const uchar* from, int width, int scale, int lit, uchar* to) {
    const auto* pixels = reinterpret_cast<const Pixel*>(from);
    auto* out = reinterpret_cast<Pixel*>(to);
    for (int column = 0; column < width; ++column, out += scale) {
        std::fill_n(out, lit, pixels[column]);
    }
}

}  // namespace

FramePictures::FramePictures(const tag_K4_SOS_FRM& start)
    : m_start(start), m_conversion(static_cast<tag_K4_PIXEL_TECH>(start.pixel)) {}

QImage FramePictures::Of(std::span<const std::uint8_t> bulbs) {
    constexpr int kDepth = 8;
    K4ImageHeader header{};
    // Lines take 4 bytes a pixel at most.
    m_pixels.resize(std::size_t{m_start.rows} * m_start.columns * 4);
    if (!m_conversion.Bulb2DIB(bulbs.data(), bulbs.size(), m_start.rows, m_start.columns,
                               static_cast<tag_K4_SIGN_COLOR>(m_start.color), &header,
                               m_pixels.data(), m_pixels.size(), kDepth)) {
        return {};
    }
    const bool indexed = header.bmiHeader.biBitCount == 8;
    QImage picture(m_start.columns, m_start.rows,
                   indexed ? QImage::Format_Indexed8 : QImage::Format_RGB32);
    if (indexed && !picture.isNull()) {
        picture.setColorCount(static_cast<int>(header.bmiHeader.biClrUsed));
        for (int index = 0; index < picture.colorCount(); ++index) {
            picture.setColor(index, ColorOf(header.bmiColors[index]));
        }
    }
    const auto lineBytes = static_cast<std::size_t>(picture.bytesPerLine());
    for (int row = 0; row < picture.height(); ++row) {
        std::memcpy(picture.scanLine(row),
                    m_pixels.data() + static_cast<std::size_t>(row) * lineBytes, lineBytes);
    }
    return picture;
}

QImage Enlarged(const QImage& picture, int scale) {
    if (scale <= 1 || picture.isNull()) {
        return picture;
    }
    const bool indexed = picture.format() == QImage::Format_Indexed8;
    const QImage source = indexed ? picture : picture.convertToFormat(QImage::Format_RGB32);
    QImage large(source.size() * scale, source.format());
    if (large.isNull()) {
        return large;
    }
    large.setColorTable(source.colorTable());
    large.fill(indexed ? 0U : qRgb(0, 0, 0));
    const int lit = scale >= kGapScale ? scale - 1 : scale;
    for (int row = 0; row < source.height(); ++row) {
        uchar* first = large.scanLine(row * scale);
        (indexed ? EnlargeLine<std::uint8_t>
                 : EnlargeLine<QRgb>)(source.constScanLine(row), source.width(), scale, lit, first);
        for (int line = 1; line < lit; ++line) {
            std::memcpy(large.scanLine(row * scale + line), first,
                        static_cast<std::size_t>(large.bytesPerLine()));
        }
    }
    return large;
}

}  // namespace k4ctl
