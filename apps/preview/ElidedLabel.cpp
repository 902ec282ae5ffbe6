#include "apps/preview/ElidedLabel.h"

#include <QPainter>

namespace preview {

ElidedLabel::ElidedLabel(const char* name) {
    setObjectName(QLatin1String(name));
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ElidedLabel::SetWords(const QString& text) {
    if (text == this->text())
        return;
    setText(text);
    setToolTip(text.toHtmlEscaped());
}

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().horizontalAdvance(QStringLiteral("MMM…")), QLabel::sizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect room = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, room.width());
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(room, static_cast<int>(alignment()) | Qt::TextSingleLine, shown);
}

}  // namespace preview
