#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <vector>

#include "k4cmndlg/frame/SpinSteps.h"
#include "k4cmndlg/frame/contracts/Clock.h"
#include "k4cmndlg/k4cmndlg_export.h"

class QTimer;
class QToolButton;

/// The toolkit's up-down control: two arrows beside an edit field (its buddy) whose number they
/// change. While an arrow is held it steps on, and the step grows with the time held, which the
/// installed Clock tells. The Up and Down keys in the buddy do the same, a held key counting as a
/// held arrow. A press on an arrow gives the buddy the focus, and a step leaves its text selected.
///
/// The position is the buddy's number: it is read from the buddy at each step and written to it,
/// as a change of the program (QLineEdit::textChanged, not textEdited). While the buddy is disabled
/// or read-only the arrows are disabled and its keys do nothing.
/// Ownership: the buddy belongs to the dialog. Threads: the user interface thread.
class K4CMNDLG_EXPORT CSpinButtonCtrl : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CSpinButtonCtrl)

 public:
    /// One speed: from so many seconds held on, a click makes this step.
    using Accel = k4cmn::SpinAccel;

    explicit CSpinButtonCtrl(QWidget* parent = nullptr);
    ~CSpinButtonCtrl() override;

    /// Joins the spin to a field, which gets the keys and the arrows from now on. The field that it
    /// had before is let go as it stands: it keeps its text and gets its keys back for itself. A
    /// step that is being held ends.
    /// @param buddy null leaves the spin without a field, its arrows disabled, until the next call.
    /// A field that is deleted leaves it without one too: its arrows then do nothing.
    void SetBuddy(QLineEdit* buddy);
    /// The bounds of SetPos(), both inside.
    void SetRange(std::int32_t lower, std::int32_t upper);
    std::int32_t Lower() const { return m_lower; }
    std::int32_t Upper() const { return m_upper; }
    /// The speeds, in ascending order of seconds, the first from 0 seconds on.
    void SetAccel(std::vector<Accel> accel);
    const std::vector<Accel>& GetAccel() const { return m_accel; }

    /// Moves to a position, held inside the range, and writes it to the buddy. The position is a
    /// signed word of 16 bits.
    void SetPos(std::int16_t position);
    /// The buddy's number: an optional sign and the digits behind it, 0 without digits.
    std::int32_t GetPos() const;

 Q_SIGNALS:
    /// A click is about to move the position by a signed step. A handler that sets the position
    /// itself sets *cancel.
    void DeltaPos(int position, int delta, bool* cancel);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QToolButton* MakeArrow(Qt::ArrowType arrow, int direction);
    void NameArrows();
    void EnableArrows();
    bool HandleKey(QEvent* event);
    void Press(int direction);
    void PressArrow(int direction);
    void Release();
    void Step();

    QToolButton* m_up;
    QToolButton* m_down;
    QTimer* m_repeat;
    k4cmn::Clock::TimePoint m_heldSince;
    QPointer<QLineEdit> m_buddy;
    std::int32_t m_lower = 0;
    std::int32_t m_upper = 100;
    std::vector<Accel> m_accel{{0, 1}};
    int m_direction = 0;
};
