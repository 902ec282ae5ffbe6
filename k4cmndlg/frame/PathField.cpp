#include "k4cmndlg/frame/PathField.h"

#include <QPainter>
#include <QStyleOptionFrame>
#include <algorithm>

namespace k4cmn {

namespace {

/// The toolkit keeps so much free on each side of a field's text.
constexpr int kBeside = 2;

/// Where the name begins, with the separator before it.
qsizetype NameOf(const QString& path) {
    return std::max(
        {path.lastIndexOf(QLatin1Char('\\')), path.lastIndexOf(QLatin1Char('/')), qsizetype{0}});
}

}  // namespace

QString ElidedPath(const QString& path, const QFontMetrics& font, int width) {
    if (font.horizontalAdvance(path) <= width)
        return path;
    const QString name = path.mid(NameOf(path));
    const int room = width - font.horizontalAdvance(name);
    if (room < font.horizontalAdvance(QChar(0x2026)))
        return font.elidedText(path, Qt::ElideMiddle, width);
    return font.elidedText(path.first(NameOf(path)), Qt::ElideMiddle, room) + name;
}

PathField::PathField(QWidget* parent) : QLineEdit(parent) {
    setReadOnly(true);
}

void PathField::SetPath(const QString& path) {
    setText(path);
    end(false);
    setToolTip(path.isEmpty() ? path : QStringLiteral("<qt>%1</qt>").arg(path.toHtmlEscaped()));
}

QRect PathField::Room() const {
    QStyleOptionFrame option;
    initStyleOption(&option);
    return style()
        ->subElementRect(QStyle::SE_LineEditContents, &option, this)
        .marginsRemoved(textMargins())
        .adjusted(kBeside, 0, -kBeside, 0);
}

QString PathField::Shown() const {
    return hasFocus() ? text() : ElidedPath(text(), fontMetrics(), Room().width());
}

void PathField::paintEvent(QPaintEvent* event) {
    const QString shown = Shown();
    if (shown == text()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QStyleOptionFrame option;
    initStyleOption(&option);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(Room(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

}  // namespace k4cmn
