#include "k4cmndlg/frame/CK4CmnStatic.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>

#include "k4cmndlg/frame/WindowMessages.h"

const QBrush CK4CmnStatic::m_brush{QColor(255, 255, 255), Qt::SolidPattern};

CK4CmnStatic::CK4CmnStatic(QWidget* parent) : QLabel(parent) {}

CK4CmnStatic::~CK4CmnStatic() = default;

std::unique_ptr<CK4CmnStatic> CK4CmnStatic::CreateObject() {
    return std::make_unique<CK4CmnStatic>();
}

int CK4CmnStatic::OnChildNotify(std::uint32_t, std::uintptr_t wParam, std::intptr_t,
                                std::intptr_t* result) {
    if (m_bWhiteBackground == 0)
        return 0;
    if (auto* context = reinterpret_cast<QPainter*>(wParam)) {
        context->setPen(Qt::black);
        context->setBackground(Qt::white);
    }
    if (result)
        *result = reinterpret_cast<std::intptr_t>(&m_brush);
    return 1;
}

void CK4CmnStatic::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        std::intptr_t brush = 0;
        const bool coloured =
            OnChildNotify(k4cmn::WM_CTLCOLORSTATIC, reinterpret_cast<std::uintptr_t>(&painter),
                          reinterpret_cast<std::intptr_t>(this), &brush) != 0;
        if (coloured && brush)
            painter.fillRect(rect(), *reinterpret_cast<const QBrush*>(brush));
        const bool isPlain = textFormat() == Qt::PlainText ||
                             (textFormat() == Qt::AutoText && !Qt::mightBeRichText(text()));
        if (coloured && isPlain && !text().isEmpty()) {
            PaintText(painter);
            return;
        }
    }
    QLabel::paintEvent(event);
}

void CK4CmnStatic::PaintText(QPainter& painter) {
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, painter.pen().color());
    drawFrame(&painter);
    const int gap = margin() + std::max(indent(), 0);
    int flags = static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())) |
                Qt::TextExpandTabs;
    if (wordWrap())
        flags |= Qt::TextWordWrap;
    if (buddy())
        flags |= Qt::TextShowMnemonic;
    style()->drawItemText(&painter, contentsRect().adjusted(gap, margin(), -gap, -margin()), flags,
                          colours, true, text(), QPalette::WindowText);
}
