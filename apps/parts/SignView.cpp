#include "apps/parts/SignView.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTextOption>
#include <algorithm>
#include <cmath>

namespace parts {

namespace {

constexpr int kCase = 10;          // the sign's case around its lamps, in units of the window
constexpr int kWall = 10;          // the wall that is seen around the case
constexpr int kRoundLampFrom = 4;  // below this pitch, in pixels, a lamp is a plain square
constexpr double kLampOfPitch = 0.9;
constexpr int kMaskEdge = 128;      // the holes of many lamps are drawn at once
constexpr QRgb kOff = 0xFF1E1F22;   // a lamp that is off
constexpr QRgb kFace = 0xFF101113;  // what is between the lamps

int Brightness(QRgb color) {
    return std::max({qRed(color), qGreen(color), qBlue(color)});
}

}  // namespace

SignView::SignView(QWidget* parent) : QWidget(parent) {
    setAccessibleName(tr("Picture of the sign"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QColor SignView::AroundColor() {
    return {46, 52, 60};
}

void SignView::SetPicture(const QImage& picture) {
    const bool otherSize = picture.size() != m_picture.size();
    m_picture = picture;
    m_lamps = {};
    m_words.clear();
    setAccessibleDescription({});
    if (otherSize)
        updateGeometry();
    update();
}

void SignView::SetWords(const QString& words) {
    m_picture = {};
    m_lamps = {};
    m_words = words;
    setAccessibleDescription(words);
    updateGeometry();
    update();
}

void SignView::SetZoom(int pixelsOfLamp) {
    if (pixelsOfLamp == m_zoom)
        return;
    m_zoom = pixelsOfLamp;
    updateGeometry();
    update();
}

int SignView::FixedPitch() const {
    return std::max(1, static_cast<int>(std::lround(m_zoom * devicePixelRatioF())));
}

QSize SignView::sizeHint() const {
    if (m_zoom == 0 || m_picture.isNull())
        return {720, 320};
    const double scale = devicePixelRatioF();
    const int pitch = FixedPitch();
    const auto side = [&](int lamps) {
        return static_cast<int>(std::ceil(lamps * pitch / scale)) + 2 * (kCase + kWall);
    };
    return {side(m_picture.width()), side(m_picture.height())};
}

SignView::Face SignView::FaceNow() const {
    if (m_picture.isNull())
        return {};
    const double scale = devicePixelRatioF();
    const auto pixels = [&](int units) { return static_cast<int>(std::lround(units * scale)); };
    const QSize whole(pixels(width()), pixels(height()));
    const int around = 2 * (pixels(kCase) + pixels(kWall));
    Face face;
    QSize size;
    if (m_zoom != 0) {
        face.pitch = FixedPitch();
        size = m_picture.size() * face.pitch;
    } else {
        const QSize room = (whole - QSize(around, around)).expandedTo({1, 1});
        size = m_picture.size().scaled(room, Qt::KeepAspectRatio).expandedTo({1, 1});
        face.pitch = size.width() / m_picture.width();
        if (face.pitch >= 1)
            size = m_picture.size() * face.pitch;
    }
    face.place = {(whole.width() - size.width()) / 2, (whole.height() - size.height()) / 2,
                  size.width(), size.height()};
    return face;
}

double SignView::LampSize() const {
    if (m_picture.isNull())
        return 0;
    return FaceNow().place.width() / devicePixelRatioF() / m_picture.width();
}

QPointF SignView::LampAt(const QPointF& point) const {
    const double size = LampSize();
    if (size <= 0)
        return {};
    return (point - QPointF(FaceNow().place.topLeft()) / devicePixelRatioF()) / size;
}

QPointF SignView::PointOf(const QPointF& lamp) const {
    return lamp * LampSize() + QPointF(FaceNow().place.topLeft()) / devicePixelRatioF();
}

void SignView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), AroundColor());
    if (m_picture.isNull()) {
        PaintWords(painter);
        return;
    }
    // From here on in the screen's pixels, so that lamps are alike at any scale.
    const double scale = devicePixelRatioF();
    painter.scale(1 / scale, 1 / scale);
    const Face face = FaceNow();
    const int around = static_cast<int>(std::lround(kCase * scale));
    painter.fillRect(face.place.adjusted(-around, -around, around, around), QColor(kFace));
    const QRectF exposed(event->rect());
    PaintLamps(painter, face,
               QRectF(exposed.topLeft() * scale, exposed.size() * scale).toAlignedRect());
}

void SignView::PaintWords(QPainter& painter) const {
    QTextOption option(Qt::AlignCenter);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QFont larger = font();
    larger.setPointSizeF(larger.pointSizeF() * 1.15);
    painter.setFont(larger);
    painter.setPen(QColor(220, 224, 230));
    painter.drawText(QRectF(rect().adjusted(16, 16, -16, -16)), m_words, option);
}

void SignView::PaintLamps(QPainter& painter, const Face& face, const QRect& exposed) {
    if (face.pitch < 1) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(face.place, m_picture);
        return;
    }
    const int pitch = face.pitch;
    const QRect seen = exposed.intersected(face.place).translated(-face.place.topLeft());
    if (seen.isEmpty())
        return;
    // Whole lamps alone: what is cut off is left to the painter.
    const QRect lamps(QPoint(seen.left() / pitch, seen.top() / pitch),
                      QPoint(seen.right() / pitch, seen.bottom() / pitch));
    const QRect place(face.place.topLeft() + lamps.topLeft() * pitch, lamps.size() * pitch);
    if (pitch < kRoundLampFrom) {
        painter.drawImage(place, m_picture, lamps);
        return;
    }
    painter.drawImage(place, Lamps(), lamps);
    painter.drawTiledPixmap(place, Mask(pitch));
}

const QImage& SignView::Lamps() {
    if (!m_lamps.isNull())
        return m_lamps;
    m_lamps = m_picture.convertToFormat(QImage::Format_RGB32);
    for (int row = 0; row < m_lamps.height(); ++row) {
        auto* line = reinterpret_cast<QRgb*>(m_lamps.scanLine(row));
        std::replace_if(
            line, line + m_lamps.width(),
            [](QRgb color) { return Brightness(color) <= Brightness(kOff); }, kOff);
    }
    return m_lamps;
}

const QPixmap& SignView::Mask(int pitch) {
    if (m_maskPitch == pitch)
        return m_mask;
    const int lamps = std::max(1, kMaskEdge / pitch);
    QImage mask(lamps * pitch, lamps * pitch, QImage::Format_ARGB32_Premultiplied);
    mask.fill(QColor(kFace));
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    const double gap = pitch * (1 - kLampOfPitch);
    for (int row = 0; row < lamps; ++row) {
        for (int column = 0; column < lamps; ++column) {
            painter.drawEllipse(
                QRectF(column * pitch + gap / 2, row * pitch + gap / 2, pitch - gap, pitch - gap));
        }
    }
    painter.end();
    m_mask = QPixmap::fromImage(mask);
    m_maskPitch = pitch;
    return m_mask;
}

}  // namespace parts
