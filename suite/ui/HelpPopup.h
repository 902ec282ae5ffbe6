#pragma once

#include <QFrame>

namespace k4suite {

/// A small window with a text at a control. The next click or key closes it, and it deletes itself.
class HelpPopup final : public QFrame {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(HelpPopup)

 public:
    /// Shows a text, in Markdown, below a control, or above it where the screen ends; without a
    /// control at the mouse.
    static void ShowAt(QWidget* control, const QString& markdown);

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

 private:
    HelpPopup(QWidget* control, const QString& markdown);
    void PlaceAt(const QRect& control);
};

}  // namespace k4suite
