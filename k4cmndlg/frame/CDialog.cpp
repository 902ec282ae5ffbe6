#include "k4cmndlg/frame/CDialog.h"

#include <QAbstractButton>
#include <QLayout>
#include <QPointer>
#include <QPushButton>
#include <QVariant>

#include "k4cmndlg/frame/CDataExchange.h"
#include "k4cmndlg/frame/WindowMessage.h"

CDialog::CDialog(std::uint32_t resourceId, QWidget* parent)
    : QDialog(parent), m_resourceId(resourceId) {}

CDialog::~CDialog() = default;

int CDialog::DoModal() {
    const QPointer<CDialog> self(this);
    if (!Create())
        return -1;
    // Opening may have shown messages, and the dialog may have been deleted meanwhile.
    if (self && !m_ended)
        Run();
    if (!self)
        return IDCANCEL;
    const int result = m_result;
    DestroyWindow();
    return result;
}

void CDialog::Run() {
    // An EndDialog() that comes while the window is being shown is too early for the event loop,
    // which isn't there yet: it is made good when the loop has begun.
    m_starting = true;
    const auto started = [this] {
        m_starting = false;
        if (m_ended)
            QDialog::done(m_result);
    };
    QMetaObject::invokeMethod(this, started, Qt::QueuedConnection);
    exec();
}

int CDialog::Create() {
    if (m_created)
        return 0;
    m_ended = false;
    m_result = IDCANCEL;
    TakeLayoutSize();
    const QPointer<CDialog> self(this);
    if (OnCreate() == -1)
        return 0;
    if (!self)
        return 1;
    m_created = true;
    WireStandardButtons();
    OnInitDialog();
    return 1;
}

void CDialog::TakeLayoutSize() {
    ensurePolished();
    if (layout())
        layout()->activate();
    if (!testAttribute(Qt::WA_Resized))
        adjustSize();
    if (testAttribute(Qt::WA_Moved))
        return;
    // The place that the window would be shown at, known already now. It is no place of its own:
    // a window that grows before it is shown is centred once more.
    adjustPosition(parentWidget());
    setAttribute(Qt::WA_Moved, false);
}

void CDialog::DestroyWindow() {
    const QPointer<CDialog> self(this);
    hide();
    if (self)
        Destroyed();
}

void CDialog::Destroyed() {
    if (!m_created)
        return;
    m_created = false;
    OnDestroy();
}

void CDialog::EndDialog(int result) {
    m_ended = true;
    m_result = result;
    if (isVisible() && !m_starting)
        QDialog::done(result);
}

QWidget* CDialog::GetDlgItem(int controlId) const {
    const QList<QWidget*> controls = findChildren<QWidget*>();
    for (QWidget* control : controls) {
        const QVariant id = control->property("controlId");
        if (id.isValid() && id.toInt() == controlId)
            return control;
    }
    return nullptr;
}

bool CDialog::UpdateData(bool saveAndValidate) {
    CDataExchange exchange(this, saveAndValidate);
    DoDataExchange(&exchange);
    return exchange.Ok();
}

int CDialog::OnCreate() {
    return 0;
}

int CDialog::OnInitDialog() {
    UpdateData(false);
    return 1;
}

void CDialog::OnDestroy() {}

void CDialog::DoDataExchange(CDataExchange*) {}

void CDialog::OnOK() {
    if (UpdateData(true))
        EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

void CDialog::OnDlgHelp() {}

std::intptr_t CDialog::OnWindowMessage(std::uint32_t, std::uintptr_t, std::intptr_t) {
    return 0;
}

void CDialog::accept() {
    OnOK();
}

void CDialog::reject() {
    const QWidget* cancel = GetDlgItem(IDCANCEL);
    if (!cancel || cancel->isEnabled())
        OnCancel();
}

bool CDialog::event(QEvent* event) {
    if (k4cmn::WindowMessage* message = k4cmn::WindowMessage::From(event)) {
        message->result = OnWindowMessage(message->number, message->wParam, message->lParam);
        return true;
    }
    return QDialog::event(event);
}

void CDialog::WireStandardButtons() {
    const auto wire = [this](int id, void (CDialog::*handler)()) {
        auto* button = qobject_cast<QAbstractButton*>(GetDlgItem(id));
        if (button)
            connect(button, &QAbstractButton::clicked, this, handler, Qt::UniqueConnection);
        return button;
    };
    if (auto* ok = qobject_cast<QPushButton*>(wire(IDOK, &CDialog::OnOK)))
        ok->setDefault(true);
    wire(IDCANCEL, &CDialog::OnCancel);
    wire(IDHELP, &CDialog::OnDlgHelp);
}
