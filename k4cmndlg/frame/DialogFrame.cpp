#include "k4cmndlg/frame/DialogFrame.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QWhatsThis>

#include "k4cmndlg/frame/DialogPlace.h"
#include "k4cmndlg/frame/HelpDecision.h"
#include "k4cmndlg/frame/contracts/HelpSystem.h"

namespace k4cmn {

namespace {

/// Whether the Tab key reaches a control now. A part that hands the focus on is none of its own.
bool IsTabStop(const QWidget* control, const QWidget* dialog) {
    return (control->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && !control->focusProxy() &&
           control->isEnabled() && control->isVisibleTo(dialog) && control->window() == dialog;
}

/// Whether an event is a press of the F1 key with exactly these modifiers.
bool IsF1(const QEvent& event, Qt::KeyboardModifiers modifiers) {
    if (event.type() != QEvent::KeyPress)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_F1 && key.modifiers() == modifiers;
}

/// The F1 key, a click with the question mark tool, a right click.
bool IsHelpRequest(const QEvent& event) {
    return event.type() == QEvent::WhatsThis || event.type() == QEvent::ContextMenu ||
           IsF1(event, Qt::NoModifier);
}

/// Whether a control has an id that isn't just the mark of a label or group frame.
bool HasOwnId(const QWidget* control) {
    const std::uint32_t id = GetWindowContextHelpId(control);
    return id != 0 && (id & 0xFFFF) != kStaticControl;
}

/// The control behind another one: its buddy, else the next in tab order; null if there is none.
QWidget* NextInTabOrder(QWidget* control, const QWidget* dialog) {
    if (const auto* label = qobject_cast<QLabel*>(control)) {
        if (label->buddy() && IsTabStop(label->buddy(), dialog))
            return label->buddy();
    }
    QWidget* next = control->nextInFocusChain();
    while (next && next != control && (next == dialog || !IsTabStop(next, dialog)))
        next = next->nextInFocusChain();
    return next;
}

}  // namespace

DialogFrame::DialogFrame(std::uint32_t resourceId, QWidget* parent, std::uint32_t helpOffset,
                         PlaceMemory memory)
    : CDialog(resourceId, parent),
      m_helpOffset(helpOffset),
      m_place(memory == PlaceMemory::On ? std::make_unique<DialogPlace>() : nullptr) {
    setWindowFlag(Qt::WindowContextHelpButtonHint);
}

DialogFrame::~DialogFrame() = default;

int DialogFrame::OnCreate() {
    if (CDialog::OnCreate() == -1)
        return -1;
    if (m_place)
        m_place->Restore(*this);
    // Requests for help are seen before the controls see them: many have menus of their own.
    qApp->installEventFilter(this);
    return 0;
}

void DialogFrame::OnDestroy() {
    qApp->removeEventFilter(this);
    CDialog::OnDestroy();
    if (m_place)
        m_place->Save(*this);
}

int DialogFrame::OnInitDialog() {
    CDialog::OnInitDialog();
    SetWindowContextHelpId(this, ResourceId() + kDialogHelpBase);
    return 1;
}

void DialogFrame::OnDlgHelp() {
    DefaultWinHelp();
}

void DialogFrame::DefaultWinHelp() {
    const HelpCommand help = DialogHelp(GetWindowContextHelpId(this));
    HelpSystem& system = Provided<HelpSystem>::Current();
    system.WinHelp(this, system.HelpFilePath(), help.command, help.data + m_helpOffset);
}

void DialogFrame::ShowPopup(QWidget* window, std::uint32_t contextId) {
    HelpSystem& system = Provided<HelpSystem>::Current();
    system.WinHelp(window, system.HelpFilePath(), HELP_CONTEXTPOPUP, contextId + m_helpOffset);
}

int DialogFrame::OnHelpInfo(HelpRequest* request) {
    if (!request->isWindow || !request->window)
        return 0;
    const HelpTarget target{request->window == this, request->contextId,
                            GetWindowContextHelpId(this)};
    const HelpDecision decision = DecideHelpInfo(target, [&] {
        QWidget* next = NextInTabOrder(request->window, this);
        return NextControl{next != nullptr, next == request->window,
                           GetWindowContextHelpId(ControlAround(next))};
    });
    request->contextId = decision.contextId;
    if (decision.kind == HelpDecision::Kind::Popup)
        ShowPopup(request->window, decision.contextId);
    else
        DefaultWinHelp();
    return 1;
}

int DialogFrame::OnContextMenu(QWidget* window, const QPoint&) {
    QWidget* next = nullptr;
    const HelpTarget target{window == this, GetWindowContextHelpId(window),
                            GetWindowContextHelpId(this)};
    const HelpDecision decision = DecideContextMenu(m_bRightClickHelp != 0, target, [&] {
        next = ControlAround(NextInTabOrder(window, this));
        return NextControl{next != nullptr, next == window, GetWindowContextHelpId(next)};
    });
    switch (decision.kind) {
        case HelpDecision::Kind::Platform:
            return 0;
        case HelpDecision::Kind::Dialog:
            DefaultWinHelp();
            return 1;
        case HelpDecision::Kind::Popup:
            ShowPopup(decision.onNext ? next : window, decision.contextId);
            return 1;
    }
    return 0;
}

QWidget* DialogFrame::ControlAround(QWidget* part) {
    if (GetWindowContextHelpId(part) != 0)
        return part;
    // A frame around controls is marked like a label, but they are no parts of it: what follows it
    // says nothing about them.
    QWidget* control = part;
    while (control && control != this && !HasOwnId(control))
        control = control->parentWidget();
    // A control without any id asks for itself: what it has is no help of its own.
    return control && control != this ? control : part;
}

bool DialogFrame::Ask(QWidget* control, QEvent* event) {
    QWidget* asked = ControlAround(control);
    if (event->type() == QEvent::ContextMenu)
        return OnContextMenu(asked, static_cast<QContextMenuEvent*>(event)->globalPos()) != 0;
    HelpRequest request{asked, GetWindowContextHelpId(asked), true};
    const bool handled = OnHelpInfo(&request) != 0;
    if (handled && event->type() == QEvent::WhatsThis)
        QWhatsThis::leaveWhatsThisMode();
    return handled;
}

void DialogFrame::PassOn() {
    // The platform now offers the same event to the control and its parents, one by one. They have
    // been asked for already.
    m_passedOn = true;
    QMetaObject::invokeMethod(
        this, [this] { m_passedOn = false; }, Qt::QueuedConnection);
}

bool DialogFrame::eventFilter(QObject* watched, QEvent* event) {
    const bool isQuery = event->type() == QEvent::QueryWhatsThis;
    const bool isTool = IsF1(*event, Qt::ShiftModifier);
    if (!isQuery && !isTool && !IsHelpRequest(*event))
        return false;
    if (!watched->isWidgetType() || static_cast<QWidget*>(watched)->window() != this)
        return false;
    if (isTool)
        QWhatsThis::enterWhatsThisMode();
    // Everything in the dialog has help, if only that of the dialog.
    bool handled = isQuery || isTool;
    if (!handled && !m_passedOn) {
        handled = Ask(static_cast<QWidget*>(watched), event);
        if (!handled)
            PassOn();
    }
    if (handled)
        event->accept();
    return handled;
}

}  // namespace k4cmn
