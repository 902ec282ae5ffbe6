#pragma once

#include <QCursor>
#include <QFont>
#include <QLabel>
#include <QRgb>
#include <cstdint>
#include <memory>
#include <string>

#include "k4cmndlg/k4cmndlg_export.h"

/// A text that opens a link when it is clicked on.
///
/// A link without a text of its own shows its URL; one without a URL opens its text. Both are
/// settled when the control is attached to its window: when it is first shown, or Attach() is
/// called. From then on the control is sized to its text (SetAutoSize), underlined (SetUnderline),
/// has a cursor of its own and a tool tip with the URL.
///
/// Fitting follows the alignment: Qt::AlignVCenter shrinks from above and below, otherwise the top
/// stays; Qt::AlignHCenter shrinks from both sides, Qt::AlignRight keeps the right edge, otherwise
/// the left edge stays. A control that begins its life has Qt::AlignLeft and Qt::AlignTop.
///
/// The Tab key reaches it, and Enter or the space bar opens it.
///
/// Ownership: as any control, its parent's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnHyperLink : public QLabel {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnHyperLink)

 public:
    /// The hover colour that stands for the system's highlight colour.
    static constexpr std::int64_t kHighlight = -1;

    explicit CK4CmnHyperLink(QWidget* parent = nullptr);
    explicit CK4CmnHyperLink(const QString& text, QWidget* parent = nullptr);
    ~CK4CmnHyperLink() override;

    /// What is opened.
    void SetURL(const std::string& url);
    std::string GetURL() const { return m_strURL; }

    /// The colours of a link not yet visited, of a visited one, and of one under the mouse.
    /// @param hover -1 (kHighlight) for the system's highlight colour, else a QRgb value.
    void SetColours(QRgb link, QRgb visited, std::int64_t hover = kHighlight);
    QRgb GetLinkColour() const { return m_crLink; }
    QRgb GetVisitedColour() const { return m_crVisited; }
    QRgb GetHoverColour() const { return m_crHover; }

    /// Shows the link as visited (not 0) or as not yet visited (0), as a click does by itself: it
    /// is visited when it could be opened.
    void SetVisited(int visited = 1);
    /// Not 0 for a visited link.
    int GetVisited() const { return m_bVisited; }

    /// The cursor over the control. Without one, a pointing hand is taken when it is attached.
    void SetLinkCursor(const QCursor& cursor);
    /// The cursor; the plain arrow while there is none.
    QCursor GetLinkCursor() const;

    /// Underlines the text (not 0) or not (0), at once if the control is attached, and when it will
    /// be. It begins underlined.
    void SetUnderline(int underline = 1);
    /// Not 0 if the text is underlined.
    int GetUnderline() const { return m_bUnderline; }

    /// Sizes the control to its text, at once if it is attached, and when it will be.
    void SetAutoSize(int autoSize = 1);
    int GetAutoSize() const { return m_bAdjustToFit; }

    /// 1 while the mouse is over the control.
    int IsOverControl() const { return m_bOverControl; }
    /// The colour that the text has now.
    QRgb TextColour() const;

    /// The control has got its window. Runs once, by itself when the control is first shown.
    void Attach();

    /// Opens the link, as a click does.
    void Click();

 protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    void MakeFont();
    void AdjustToFit();
    void LeaveControl();
    void ReportError(std::uint32_t code);

    QRgb m_crLink = qRgb(0, 0, 190);
    QRgb m_crVisited = qRgb(0, 0, 190);
    QRgb m_crHover;
    int m_bOverControl = 0;
    int m_bVisited = 0;
    int m_bUnderline = 1;
    int m_bAdjustToFit = 1;
    std::string m_strURL;
    QFont m_font;
    std::unique_ptr<QCursor> m_hLinkCursor;
    // There is no m_toolTip: the toolkit's widget holds its tool tip itself.
    bool m_attached = false;
    bool m_pressed = false;
};
