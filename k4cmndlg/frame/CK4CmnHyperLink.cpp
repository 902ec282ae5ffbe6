#include "k4cmndlg/frame/CK4CmnHyperLink.h"

#include <QApplication>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <exception>

#include "k4cmndlg/frame/HyperLinkAccess.h"
#include "k4cmndlg/frame/LinkOpening.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/frame/WaitCursor.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "k4cmndlg/frame/contracts/Shell.h"

namespace {

QRgb HighlightColour() {
    return QGuiApplication::palette().color(QPalette::Highlight).rgb();
}

/// The text's rectangle inside a larger one, by the control's alignment.
QRect FittedRect(const QRect& rect, const QSize& text, Qt::Alignment alignment) {
    QRect fitted(rect.topLeft(), text);
    if (alignment & Qt::AlignVCenter)
        fitted.moveTop(rect.top() + (rect.height() - text.height()) / 2);
    if (alignment & Qt::AlignHCenter)
        fitted.moveLeft(rect.left() + (rect.width() - text.width()) / 2);
    else if (alignment & Qt::AlignRight)
        fitted.moveRight(rect.right());
    return fitted;
}

}  // namespace

CK4CmnHyperLink::CK4CmnHyperLink(QWidget* parent) : QLabel(parent), m_crHover(HighlightColour()) {
    k4cmn::InstallHyperLinkAccess();
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

CK4CmnHyperLink::CK4CmnHyperLink(const QString& text, QWidget* parent) : CK4CmnHyperLink(parent) {
    setText(text);
}

CK4CmnHyperLink::~CK4CmnHyperLink() = default;

void CK4CmnHyperLink::SetURL(const std::string& url) {
    m_strURL = url;
    if (m_attached)
        setToolTip(k4cmn::ToQt(m_strURL));
}

void CK4CmnHyperLink::SetColours(QRgb link, QRgb visited, std::int64_t hover) {
    m_crLink = link;
    m_crVisited = visited;
    m_crHover = hover == kHighlight ? HighlightColour() : static_cast<QRgb>(hover);
    update();
}

void CK4CmnHyperLink::SetVisited(int visited) {
    m_bVisited = visited;
    update();
}

void CK4CmnHyperLink::SetLinkCursor(const QCursor& cursor) {
    m_hLinkCursor = std::make_unique<QCursor>(cursor);
    setCursor(cursor);
}

QCursor CK4CmnHyperLink::GetLinkCursor() const {
    return m_hLinkCursor ? *m_hLinkCursor : QCursor();
}

void CK4CmnHyperLink::SetUnderline(int underline) {
    m_bUnderline = underline;
    if (m_attached)
        MakeFont();
}

void CK4CmnHyperLink::SetAutoSize(int autoSize) {
    m_bAdjustToFit = autoSize;
    AdjustToFit();
}

QRgb CK4CmnHyperLink::TextColour() const {
    if (m_bOverControl)
        return m_crHover;
    return m_bVisited ? m_crVisited : m_crLink;
}

void CK4CmnHyperLink::Attach() {
    if (m_attached)
        return;
    m_attached = true;
    if (m_strURL.empty())
        m_strURL = k4cmn::FromQt(text());
    if (text().isEmpty())
        setText(k4cmn::ToQt(m_strURL));
    MakeFont();
    AdjustToFit();
    if (!m_hLinkCursor)
        SetLinkCursor(QCursor(Qt::PointingHandCursor));
    setToolTip(k4cmn::ToQt(m_strURL));
}

void CK4CmnHyperLink::MakeFont() {
    m_font = font();
    m_font.setUnderline(m_bUnderline != 0);
    setFont(m_font);
}

void CK4CmnHyperLink::AdjustToFit() {
    if (!m_bAdjustToFit || !m_attached)
        return;
    const QSize size = QFontMetrics(m_font).size(0, text());
    setGeometry(FittedRect(geometry(), size, alignment()));
}

void CK4CmnHyperLink::Click() try {
    const QPointer<CK4CmnHyperLink> self(this);
    const k4cmn::WaitCursor wait;
    const std::uint32_t code = k4cmn::OpenLink(m_strURL);
    if (!self)
        return;
    m_bVisited = code > k4cmn::kLastOpenError ? 1 : 0;
    if (m_bVisited)
        SetVisited(1);
    else
        ReportError(code);
} catch (const std::exception&) {
    // The failure couldn't be shown, and there is nobody else to tell.
}

void CK4CmnHyperLink::ReportError(std::uint32_t code) {
    LeaveControl();  // a message can't be answered while the mouse is captured here
    update();        // it may have been visited before
    QApplication::beep();
    // The wait isn't over, but over the message the mouse is as it always is.
    QApplication::changeOverrideCursor(Qt::ArrowCursor);
    k4cmn::WindowPrompt(window()).Ask(k4cmn::PlainMessage(k4cmn::OpenErrorMessage(code)));
}

void CK4CmnHyperLink::LeaveControl() {
    if (!m_bOverControl)
        return;
    m_bOverControl = 0;
    releaseMouse();
    update();
}

bool CK4CmnHyperLink::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::Polish: {
            const bool handled = QLabel::event(event);
            Attach();
            return handled;
        }
        // The mouse may go without a move being seen here, where the platform doesn't let a control
        // capture it, or a message comes up in front.
        case QEvent::Leave:
        case QEvent::Hide:
        case QEvent::WindowBlocked:
        case QEvent::WindowDeactivate:
            LeaveControl();
            break;
        default:
            break;
    }
    return QLabel::event(event);
}

void CK4CmnHyperLink::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            Click();
            break;
        default:
            QLabel::keyPressEvent(event);
    }
}

void CK4CmnHyperLink::mouseMoveEvent(QMouseEvent* event) {
    QLabel::mouseMoveEvent(event);
    if (m_bOverControl) {
        if (!rect().contains(event->position().toPoint()))
            LeaveControl();
        return;
    }
    m_bOverControl = 1;
    update();
    grabMouse();
}

void CK4CmnHyperLink::mousePressEvent(QMouseEvent* event) {
    m_pressed = event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
    event->accept();
}

void CK4CmnHyperLink::mouseReleaseEvent(QMouseEvent* event) {
    const bool clicked = m_pressed && event->button() == Qt::LeftButton &&
                         rect().contains(event->position().toPoint());
    m_pressed = false;
    event->accept();
    if (clicked)
        Click();
}

void CK4CmnHyperLink::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawFrame(&painter);
    QPalette colours = palette();
    if (isEnabled())
        colours.setColor(QPalette::WindowText, QColor(TextColour()));
    style()->drawItemText(&painter, contentsRect(),
                          static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())),
                          colours, isEnabled(), text(), QPalette::WindowText);
    if (!hasFocus())
        return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}
