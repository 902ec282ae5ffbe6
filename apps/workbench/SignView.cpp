#include "apps/workbench/SignView.h"

#include <QPainter>
#include <algorithm>

namespace workbench {

namespace {

constexpr int kFrame = 10;         // the sign's case around its lamps, in pixels
constexpr int kRoundLampFrom = 4;  // below this pitch, in pixels, a lamp is a plain square

}  // namespace

SignView::SignView(QWidget* parent) : QWidget(parent) {
    setAccessibleName(tr("Picture of the sign"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SignView::SetPicture(const QImage& picture) {
    m_picture = picture;
    m_words.clear();
    update();
}

void SignView::SetWords(const QString& words) {
    m_picture = {};
    m_words = words;
    update();
}

void SignView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(46, 52, 60));
    if (m_picture.isNull()) {
        painter.setPen(QColor(220, 224, 230));
        painter.drawText(rect().adjusted(16, 16, -16, -16), Qt::AlignCenter | Qt::TextWordWrap,
                         m_words);
        return;
    }
    const QSize room = size() - QSize(4 * kFrame, 4 * kFrame);
    QSize face = m_picture.size().scaled(room, Qt::KeepAspectRatio);
    const int pitch = face.width() / m_picture.width();
    if (pitch >= 1)
        face = m_picture.size() * pitch;
    const QRect at(QPoint((width() - face.width()) / 2, (height() - face.height()) / 2), face);
    painter.fillRect(at.adjusted(-kFrame, -kFrame, kFrame, kFrame), QColor(16, 17, 19));
    PaintLamps(painter, at);
}

void SignView::PaintLamps(QPainter& painter, const QRect& face) const {
    const int pitch = face.width() / m_picture.width();
    if (pitch < kRoundLampFrom) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform, pitch < 1);
        painter.drawImage(face, m_picture);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QColor off(30, 31, 34);
    const int lamp = std::max(pitch - 1, 3);
    for (int row = 0; row < m_picture.height(); ++row) {
        const auto* line = reinterpret_cast<const QRgb*>(m_picture.constScanLine(row));
        for (int column = 0; column < m_picture.width(); ++column) {
            const QColor color(line[column]);
            painter.setBrush(color.value() > off.value() ? color : off);
            painter.drawEllipse(face.left() + column * pitch, face.top() + row * pitch, lamp, lamp);
        }
    }
}

}  // namespace workbench
