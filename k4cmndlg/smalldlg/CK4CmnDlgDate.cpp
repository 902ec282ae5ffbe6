#include "k4cmndlg/smalldlg/CK4CmnDlgDate.h"

#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QWhatsThis>

#include "k4cmndlg/frame/DialogFrame.h"
#include "k4cmndlg/frame/contracts/HelpSystem.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "k4cmndlg/smalldlg/contracts/K4CalendarCtrl.h"
#include "ui_Date.h"

using k4cmn::HelpSystem;
using k4cmn::Provided;
using k4cmn::WindowPrompt;

namespace {

constexpr std::uint32_t kTemplate = 116;
constexpr int kCalendar = 1145;
constexpr int kFarthestStart = 2000;

/// Reads a piece of the date; one that is missing is told of. @return whether it is there.
bool Read(int& piece, int chosen, const char* missing, QWidget* dialog) {
    piece = chosen;
    if (piece != 0)
        return true;
    WindowPrompt(dialog).Ask({missing, "Date Error"});
    return false;
}

int Start(int coordinate) {
    return coordinate > kFarthestStart ? 0 : coordinate;
}

/// The last part of a control that the Tab key stops at: the control itself if it has no parts.
QWidget* LastStop(QWidget* control) {
    QWidget* last = control;
    for (QWidget* part = control->nextInFocusChain(); control->isAncestorOf(part);
         part = part->nextInFocusChain()) {
        if ((part->focusPolicy() & Qt::TabFocus) && !part->focusProxy())
            last = part;
    }
    return last;
}

}  // namespace

CK4CmnDlgDate::CK4CmnDlgDate(QWidget* parent)
    : CDialog(kTemplate, parent), m_ui(std::make_unique<Ui::DateDialog>()) {
    m_ui->setupUi(this);
}

CK4CmnDlgDate::~CK4CmnDlgDate() = default;

int CK4CmnDlgDate::Create() {
    if (HasWindow())
        return 0;
    setParent(nullptr, windowFlags());
    return CDialog::Create();
}

void CK4CmnDlgDate::SetStartLocation(int x, int y) {
    m_x = x;
    m_y = y;
}

void CK4CmnDlgDate::SetStartDate(int day, int month, int year) {
    m_day = day;
    m_month = month;
    m_year = year;
}

void CK4CmnDlgDate::ShowFailure(QWidget* parent) {
    WindowPrompt(parent).Ask(
        {"Failed to create Date dialog.\n\nCheck to make sure the file MSCAL.OCX is in the "
         "\\WinNT\\System32 directory.",
         "Dialog Error"});
}

int CK4CmnDlgDate::OnCreate() {
    if (CDialog::OnCreate() == -1)
        return -1;
    if (m_calendar)
        return 0;
    m_calendar = Provided<k4cmn::Calendars>::Current().Create(this);
    if (!m_calendar)
        return -1;
    m_calendar->setProperty("controlId", kCalendar);
    m_ui->calendarPlace->addWidget(m_calendar);
    setTabOrder(LastStop(m_calendar), m_ui->ok);
    setTabOrder(m_ui->ok, m_ui->cancel);
    connect(m_calendar, &K4CalendarCtrl::DblClick, this, &CK4CmnDlgDate::OnDblClick);
    // The layout's size was taken without it.
    adjustSize();
    return 0;
}

int CK4CmnDlgDate::OnInitDialog() {
    CDialog::OnInitDialog();
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    m_calendar->SetDay(m_day);
    m_calendar->SetMonth(m_month);
    m_calendar->SetYear(m_year);
    m_x = Start(m_x);
    m_y = Start(m_y);
    setWindowFlag(Qt::WindowStaysOnTopHint);
    move(m_x, m_y);
    m_calendar->setFocus();
    return 0;
}

void CK4CmnDlgDate::OnOK() {
    if (Read(m_day, m_calendar->GetDay(), "A day must be selected.", this) &&
        Read(m_month, m_calendar->GetMonth(), "A month must be selected.", this) &&
        Read(m_year, m_calendar->GetYear(), "A year must be selected.", this))
        CDialog::OnOK();
}

void CK4CmnDlgDate::OnDblClick() {
    if (QGuiApplication::keyboardModifiers() & Qt::ControlModifier)
        m_calendar->AboutBox();
    else
        OnOK();
}

bool CK4CmnDlgDate::event(QEvent* event) {
    if (!OnHelpRequest(*event))
        return CDialog::event(event);
    event->accept();
    return true;
}

bool CK4CmnDlgDate::OnHelpRequest(QEvent& event) {
    switch (event.type()) {
        case QEvent::KeyPress:
            return OnHelpKey(static_cast<QKeyEvent&>(event));
        case QEvent::QueryWhatsThis:
            return ControlAround(childAt(static_cast<QHelpEvent&>(event).pos())) != nullptr;
        case QEvent::WhatsThis:
            QWhatsThis::leaveWhatsThisMode();
            return AskHelp(ControlAround(childAt(static_cast<QHelpEvent&>(event).pos())));
        default:
            return false;
    }
}

bool CK4CmnDlgDate::OnHelpKey(const QKeyEvent& key) {
    if (key.key() != Qt::Key_F1)
        return false;
    if (key.modifiers() == Qt::ShiftModifier) {
        QWhatsThis::enterWhatsThisMode();
        return true;
    }
    return key.modifiers() == Qt::NoModifier && AskHelp(ControlAround(focusWidget()));
}

QWidget* CK4CmnDlgDate::ControlAround(QWidget* part) const {
    while (part && part != this && !part->property("controlId").isValid())
        part = part->parentWidget();
    return part != this ? part : nullptr;
}

bool CK4CmnDlgDate::AskHelp(QWidget* control) {
    if (!control)
        return false;
    HelpSystem& system = Provided<HelpSystem>::Current();
    system.WinHelp(control, system.HelpFilePath(), k4cmn::HELP_CONTEXTPOPUP,
                   k4cmn::GetWindowContextHelpId(control));
    return true;
}
