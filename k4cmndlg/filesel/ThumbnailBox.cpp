#include "k4cmndlg/filesel/ThumbnailBox.h"

#include <QPainter>

namespace k4cmn {

namespace {

constexpr int kFrame = 3;  // what a framed box has more than the thumbnail, in width and in height
constexpr int kProblemMargin = 4;

}  // namespace

ThumbnailBox::ThumbnailBox(QWidget* parent) : QWidget(parent) {
    setFixedSize(m_place.size());
}

int ThumbnailBox::SetBoxedThumbnail(const ThumbnailSize& size) {
    const int growth = size.height - minimumHeight();
    m_isFramed = false;
    m_place = {BoxedThumbnailLeft(size), 0, size.width, size.height};
    setFixedSize(kThumbnailBox, size.height);
    update();
    return growth;
}

void ThumbnailBox::SetFramedThumbnail(const ThumbnailSize& size) {
    m_isFramed = true;
    setFixedSize(size.width + kFrame, size.height + kFrame);
    m_place = Inside();
    update();
}

QRect ThumbnailBox::Inside() const {
    return m_isFramed ? rect().adjusted(1, 1, -1, -1) : rect();
}

void ThumbnailBox::ShowPicture(const QImage& picture) {
    Show(picture, {}, false);
}

void ThumbnailBox::ShowWords(const QString& words, const QPoint& place) {
    m_wordsPlace = place;
    Show({}, words, false);
}

void ThumbnailBox::ShowProblem(const QString& words) {
    Show({}, words, true);
}

void ThumbnailBox::Clear() {
    Show({}, {}, false);
}

void ThumbnailBox::Show(const QImage& picture, const QString& words, bool isProblem) {
    m_picture = picture;
    m_scaled = {};
    m_words = words;
    m_isProblem = isProblem;
    // As rich text, a long one is wrapped.
    setToolTip(words.isEmpty() ? words : QStringLiteral("<qt>%1</qt>").arg(words.toHtmlEscaped()));
    setAccessibleDescription(words);
    update();
}

const QImage& ThumbnailBox::Scaled(const QSize& pixels) {
    if (m_scaled.size() == pixels)
        return m_scaled;
    // Lamps stay sharp where they are enlarged; none is lost where they are too many.
    if (pixels.width() < m_picture.width() || pixels.height() < m_picture.height())
        // With all colors between those of the lamps, of which the picture may have but two.
        m_scaled = m_picture.convertToFormat(QImage::Format_RGB32)
                       .scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    else
        m_scaled = m_picture.scaled(pixels);
    return m_scaled;
}

void ThumbnailBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_isFramed)
        painter.fillRect(rect(), palette().color(QPalette::Mid));
    if (HasPicture()) {
        painter.drawImage(m_place, Scaled(m_place.size() * devicePixelRatio()));
        return;
    }
    painter.fillRect(Inside(), Qt::white);
    painter.setPen(Qt::black);
    painter.setClipRect(Inside());
    if (m_isProblem) {
        const QMargins margins(kProblemMargin, kProblemMargin, kProblemMargin, kProblemMargin);
        painter.drawText(Inside().marginsRemoved(margins), Qt::AlignCenter | Qt::TextWordWrap,
                         m_words);
    } else {
        painter.drawText(m_wordsPlace + QPoint(0, painter.fontMetrics().ascent()), m_words);
    }
}

}  // namespace k4cmn
