#pragma once

#include <QWidget>

#include "k4cmndlg/k4cmndlg_export.h"

namespace k4cmn {

/// The lower border of a window without a frame, by which it is made higher and lower.
/// Ownership: the parent's. Threads: the user interface thread.
class K4CMNDLG_EXPORT BottomGrip final : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BottomGrip)

 public:
    /// @param window whose lower border it is.
    explicit BottomGrip(QWidget* window);
    ~BottomGrip() override;

    QSize sizeHint() const override;

 Q_SIGNALS:
    /// The border is dragged to where the window would be so high.
    void Dragged(int height);

 protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    bool m_isDragged = false;
    int m_offset = 0;  ///< from the pointer to the window's end
};

}  // namespace k4cmn
