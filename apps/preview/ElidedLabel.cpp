#include "apps/preview/ElidedLabel.h"

#include <QPainter>

#include "k4cmndlg/frame/PathField.h"

namespace preview {

ElidedLabel::ElidedLabel(const char* name, Kind kind) : m_kind(kind) {
    setObjectName(QLatin1String(name));
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ElidedLabel::SetWords(const QString& text) {
    if (text == this->text())
        return;
    setText(text);
    setToolTip(text.isEmpty() ? text : QStringLiteral("<qt>%1</qt>").arg(text.toHtmlEscaped()));
}

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().horizontalAdvance(QStringLiteral("MMM…")), QLabel::sizeHint().height()};
}

QRect ElidedLabel::Room() const {
    return contentsRect().adjusted(margin(), margin(), -margin(), -margin());
}

QString ElidedLabel::Shown() const {
    return m_kind == Kind::Path ? k4cmn::ElidedPath(text(), fontMetrics(), Room().width())
                                : fontMetrics().elidedText(text(), Qt::ElideRight, Room().width());
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(Room(), static_cast<int>(alignment()) | Qt::TextSingleLine, Shown());
}

}  // namespace preview
