#pragma once

#include <QPoint>
#include <QScrollArea>

namespace parts {
class SignView;
}

namespace preview {

/// The picture of a sign with its zoom: as large as there is room, or with lamps of a fixed size
/// and scroll bars. Ctrl and the wheel zoom at the pointer; the mouse drags the picture; Ctrl and
/// the arrow keys scroll.
class PictureArea final : public QScrollArea {
    Q_OBJECT

 public:
    explicit PictureArea(QWidget* parent = nullptr);

    parts::SignView& View() { return *m_view; }
    void SetPicture(const QImage& picture);
    void SetWords(const QString& words);

    /// The size of a lamp, of kZooms, or kFit.
    int Zoom() const;
    void SetZoom(int zoom);
    void ZoomIn();
    void ZoomOut();

    QSize sizeHint() const override { return {720, 360}; }
    QSize minimumSizeHint() const override { return {180, 90}; }

 Q_SIGNALS:
    void ZoomChanged(int zoom);

 protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

 private:
    void ZoomAt(const QPoint& point, int zoom);
    void Arrange();
    void Scroll(const QPoint& by);

    parts::SignView* m_view;
    QPoint m_dragged;
    int m_wheel = 0;  ///< of a step that isn't whole yet
};

}  // namespace preview
