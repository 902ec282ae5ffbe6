#pragma once

#include <QWidget>

namespace k4cmn {

/// The band between two panes, which a person drags with the mouse or moves by the arrow keys. It
/// moves nothing by itself: it tells where it is wanted.
/// Ownership: the parent's. Threads: the user interface thread.
class SplitterHandle final : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SplitterHandle)

 public:
    explicit SplitterHandle(QWidget* parent);
    ~SplitterHandle() override;

    /// Ends a drag; it takes another press of the button to begin the next one.
    void EndDrag() { m_isDragging = false; }

 Q_SIGNALS:
    /// The mouse drags it. @param x where to, in the coordinates of the parent.
    void Dragged(int x);
    /// A key moves it by so many pixels.
    void Stepped(int by);
    /// The mouse has left it with no button held, or the focus has.
    void Left();

 protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    bool m_isDragging = false;
};

}  // namespace k4cmn
