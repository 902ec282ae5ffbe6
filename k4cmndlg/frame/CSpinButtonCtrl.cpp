#include "k4cmndlg/frame/CSpinButtonCtrl.h"

#include <QEvent>
#include <QKeyEvent>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "k4cmndlg/frame/FieldNumber.h"
#include "k4cmndlg/frame/Text.h"

namespace {

constexpr int kFirstRepeat = 400;  // milliseconds until a held arrow begins to step on
constexpr int kNextRepeat = 50;    // and between its steps from then on

/// The direction of a key; 0 for a key that isn't one of the spin's.
int DirectionOf(const QKeyEvent& key) {
    if (key.modifiers() & ~Qt::KeypadModifier)
        return 0;
    return key.key() == Qt::Key_Up ? 1 : key.key() == Qt::Key_Down ? -1 : 0;
}

}  // namespace

CSpinButtonCtrl::CSpinButtonCtrl(QWidget* parent)
    : QWidget(parent),
      m_up(MakeArrow(Qt::UpArrow, 1)),
      m_down(MakeArrow(Qt::DownArrow, -1)),
      m_repeat(new QTimer(this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_up);
    column->addWidget(m_down);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    // As high as an edit field, so that the two stand as one control.
    setMinimumHeight(fontMetrics().height() + 6);
    connect(m_repeat, &QTimer::timeout, this, [this] {
        m_repeat->start(kNextRepeat);
        Step();
    });
    NameArrows();
    EnableArrows();
}

CSpinButtonCtrl::~CSpinButtonCtrl() = default;

QToolButton* CSpinButtonCtrl::MakeArrow(Qt::ArrowType arrow, int direction) {
    auto* button = new QToolButton(this);
    button->setArrowType(arrow);
    button->setFocusPolicy(Qt::NoFocus);
    button->setFixedWidth(fontMetrics().height() + 2);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    connect(button, &QToolButton::pressed, this, [this, direction] { PressArrow(direction); });
    connect(button, &QToolButton::released, this, &CSpinButtonCtrl::Release);
    return button;
}

void CSpinButtonCtrl::SetBuddy(QLineEdit* buddy) {
    Release();
    if (m_buddy)
        m_buddy->removeEventFilter(this);
    m_buddy = buddy;
    if (buddy)
        buddy->installEventFilter(this);
    NameArrows();
    EnableArrows();
}

void CSpinButtonCtrl::NameArrows() {
    const QString field = m_buddy ? m_buddy->accessibleName() : QString();
    m_up->setAccessibleName(tr("%1 up").arg(field).trimmed());
    m_down->setAccessibleName(tr("%1 down").arg(field).trimmed());
}

void CSpinButtonCtrl::EnableArrows() {
    const bool usable = m_buddy && m_buddy->isEnabled() && !m_buddy->isReadOnly();
    if (!usable)
        Release();
    m_up->setEnabled(usable);
    m_down->setEnabled(usable);
}

void CSpinButtonCtrl::SetRange(std::int32_t lower, std::int32_t upper) {
    m_lower = lower;
    m_upper = upper;
}

void CSpinButtonCtrl::SetAccel(std::vector<Accel> accel) {
    m_accel = std::move(accel);
}

void CSpinButtonCtrl::SetPos(std::int16_t position) {
    if (!m_buddy)
        return;
    const std::int32_t inside = k4cmn::SpinTarget(position, 0, m_lower, m_upper);
    const QString text = QString::number(inside);
    if (m_buddy->text() != text)
        m_buddy->setText(text);
}

std::int32_t CSpinButtonCtrl::GetPos() const {
    return m_buddy ? k4cmn::LeadingNumber(k4cmn::FromQt(m_buddy->text())) : 0;
}

void CSpinButtonCtrl::Press(int direction) {
    m_direction = direction;
    m_heldSince = k4cmn::Provided<k4cmn::Clock>::Current().Now();
    Step();
}

void CSpinButtonCtrl::PressArrow(int direction) {
    if (m_buddy)
        m_buddy->setFocus(Qt::MouseFocusReason);
    m_repeat->start(kFirstRepeat);
    Press(direction);
}

void CSpinButtonCtrl::Release() {
    m_repeat->stop();
    m_direction = 0;
}

void CSpinButtonCtrl::Step() {
    if (!m_buddy || m_direction == 0)
        return;
    const auto held = k4cmn::Provided<k4cmn::Clock>::Current().Now() - m_heldSince;
    const std::int32_t position = GetPos();
    const std::int32_t delta = m_direction * k4cmn::SpinStep(m_accel, held.count());
    bool cancelled = false;
    Q_EMIT DeltaPos(position, delta, &cancelled);
    if (!cancelled) {
        const std::int32_t target = k4cmn::SpinTarget(position, delta, m_lower, m_upper);
        SetPos(static_cast<std::int16_t>(target));
    }
    if (m_buddy)
        m_buddy->selectAll();
}

bool CSpinButtonCtrl::HandleKey(QEvent* event) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const int direction = DirectionOf(key);
    if (direction == 0 || !m_up->isEnabled())
        return false;
    if (event->type() == QEvent::KeyRelease) {
        if (!key.isAutoRepeat())
            Release();
    } else if (key.isAutoRepeat() && m_direction == direction) {
        Step();
    } else {
        Press(direction);
    }
    return true;
}

bool CSpinButtonCtrl::eventFilter(QObject* watched, QEvent* event) {
    // A field that is being destroyed is none any more, and still tells of its end.
    const auto* field = qobject_cast<QLineEdit*>(watched);
    if (!field || field != m_buddy)
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            if (HandleKey(event))
                return true;
            break;
        case QEvent::FocusOut:
            Release();
            break;
        case QEvent::EnabledChange:
        case QEvent::ReadOnlyChange:
            EnableArrows();
            break;
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}
