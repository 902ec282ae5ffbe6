#pragma once

#include <QBrush>
#include <QLabel>
#include <cstdint>
#include <memory>

#include "k4cmndlg/k4cmndlg_export.h"

/// A static text that can show black on white.
///
/// Before it paints itself the control asks OnChildNotify() for its colours, as its parent would
/// pass the question back to it, with the painter as the device context. Rich text and pictures
/// keep their own colours; white stands behind them too.
///
/// Ownership: as any control, its parent's. Threads: the user interface thread.
class K4CMNDLG_EXPORT CK4CmnStatic : public QLabel {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CK4CmnStatic)

 public:
    explicit CK4CmnStatic(QWidget* parent = nullptr);
    ~CK4CmnStatic() override;

    /// Dynamic creation: a control without a parent, the caller's.
    static std::unique_ptr<CK4CmnStatic> CreateObject();

    /// 1 to show black on white, 0 for the platform's colours. Whoever changes it on a control that
    /// is seen has it painted anew, by update().
    int m_bWhiteBackground = 0;

    /// Solid white, for the life of the process.
    static const QBrush m_brush;

 protected:
    /// A notification that the parent passes back to the control.
    /// @param wParam the device context: a QPainter*, null for none.
    /// @param result takes the background: the address of a QBrush that outlives the control. Null
    ///               if it isn't wanted.
    /// @return 1 if handled: with m_bWhiteBackground set, every message. Else what the base says:
    ///         0.
    virtual int OnChildNotify(std::uint32_t message, std::uintptr_t wParam, std::intptr_t lParam,
                              std::intptr_t* result);

    void paintEvent(QPaintEvent* event) override;

 private:
    void PaintText(QPainter& painter);
};
