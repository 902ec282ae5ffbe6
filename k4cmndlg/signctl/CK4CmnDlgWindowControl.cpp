#include "k4cmndlg/signctl/CK4CmnDlgWindowControl.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <algorithm>

#include "k4cmndlg/clients/CK4CmnSS.h"
#include "k4cmndlg/frame/CDataExchange.h"
#include "k4cmndlg/frame/CSpinButtonCtrl.h"
#include "k4cmndlg/frame/FieldLooks.h"
#include "k4cmndlg/frame/FieldNumber.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "ui_WindowControl.h"

using k4cmn::CriticalSectionLock;
using k4cmn::PlainMessage;
using k4cmn::WindowPlacing;
using k4cmn::WindowPrompt;

namespace {

constexpr std::uint32_t kTemplate = 107;
constexpr std::uint32_t kLockWait = 750;  // milliseconds

// Control ids: window k, from 1, has each of these plus k.
constexpr int kEnable = 1014;
constexpr int kWindowSign = 1022;
constexpr int kRow = 1030;
constexpr int kColumn = 1038;
constexpr int kRowSpin = 1046;
constexpr int kColumnSpin = 1054;

QValidator* Matching(const char* pattern, QObject* parent) {
    return new QRegularExpressionValidator(QRegularExpression(QLatin1String(pattern)), parent);
}

}  // namespace

CK4CmnDlgWindowControl::CK4CmnDlgWindowControl(const std::string& service, const std::string& sign,
                                               QWidget* parent)
    : CK4CmnDlgBase(kTemplate, parent),
      m_ui(std::make_unique<Ui::WindowControlDialog>()),
      m_digits(Matching("\\d*", this)),
      m_signedDigits(Matching("-?\\d*", this)),
      m_service(service),
      m_sign(sign) {
    m_ui->setupUi(this);
    SetUpLines();
    connect(m_ui->apply, &QPushButton::clicked, this, &CK4CmnDlgWindowControl::OnApply);
}

CK4CmnDlgWindowControl::~CK4CmnDlgWindowControl() = default;

template <class Control>
Control* CK4CmnDlgWindowControl::Item(int controlId) const {
    return qobject_cast<Control*>(GetDlgItem(controlId));
}

void CK4CmnDlgWindowControl::SetUpLines() {
    int k = 0;
    for (Line& line : m_lines) {
        ++k;
        line = {Item<QCheckBox>(kEnable + k), Item<QComboBox>(kWindowSign + k),
                Item<QLineEdit>(kRow + k),    Item<CSpinButtonCtrl>(kRowSpin + k),
                Item<QLineEdit>(kColumn + k), Item<CSpinButtonCtrl>(kColumnSpin + k)};
        SetUpField(line.row, line.rowSpin);
        SetUpField(line.column, line.columnSpin);
    }
}

void CK4CmnDlgWindowControl::SetUpField(QLineEdit* edit, CSpinButtonCtrl* spin) {
    k4cmn::FitToText(edit, QStringLiteral("-00000"));
    edit->installEventFilter(this);

    spin->SetBuddy(edit);
    connect(spin, &CSpinButtonCtrl::DeltaPos, this, [spin](int position, int step, bool* cancel) {
        spin->SetPos(WindowPlacing::NextPosition(position, step));
        *cancel = true;
    });
}

int CK4CmnDlgWindowControl::OnInitDialog() {
    if (!ReadWindows())
        return 1;
    CK4CmnDlgBase::OnInitDialog();
    SetBounds();
    FillWindowSigns();
    UpdateData(false);
    return 1;
}

bool CK4CmnDlgWindowControl::ReadWindows() {
    m_placing = {};
    m_signs.clear();
    const CriticalSectionLock lock(CK4CmnSS::m_cs, kLockWait);
    if (!lock.IsLocked()) {
        WindowPrompt(this).Ask(PlainMessage("Error getting window config. Sign service locked."));
        EndDialog(IDCANCEL);
        return false;
    }
    CK4CmnSS client;
    if (!client.ConnectService(m_service)) {
        WindowPrompt(this).Ask(PlainMessage(client.GetLastError()));
        EndDialog(IDCANCEL);
        return false;
    }
    client.GetSignConfig(m_sign, &m_placing.rows, &m_placing.columns, &m_placing.color, nullptr,
                         nullptr, nullptr, nullptr);
    client.GetSignList(m_signs);
    std::uint32_t number = 0;
    for (WindowPlacing::Window& window : m_placing.windows) {
        client.GetWindowState(m_sign, ++number, &window.enabled, &window.row, &window.column,
                              &window.windowSign);
        // A reply that lacks the size leaves these, which keep the lower bounds at 1.
        std::uint32_t rows = 0;
        std::uint32_t columns = 7;
        if (client.GetSignConfig(window.windowSign, &rows, &columns, nullptr, nullptr, nullptr,
                                 nullptr, nullptr))
            window.SetSize(rows, columns);
    }
    return true;
}

void CK4CmnDlgWindowControl::SetBounds() {
    const auto set = [this](QLineEdit* edit, CSpinButtonCtrl* spin, std::int32_t number, int lower,
                            int upper, const WindowPlacing::Speeds& speeds) {
        // A number that the sign reports below its bound can be edited like any other.
        edit->setValidator(std::min(lower, number) < 0 ? m_signedDigits : m_digits);
        spin->SetRange(lower, upper);
        spin->SetAccel({speeds.begin(), speeds.end()});
    };
    for (std::size_t k = 0; k < m_lines.size(); ++k) {
        const Line& line = m_lines[k];
        const WindowPlacing::Window& window = m_placing.windows[k];
        set(line.row, line.rowSpin, window.row, window.rowMinimum, m_placing.RowMaximum(),
            m_placing.RowSpeeds());
        set(line.column, line.columnSpin, window.column, window.columnMinimum,
            m_placing.ColumnMaximum(), WindowPlacing::ColumnSpeeds());
    }
}

void CK4CmnDlgWindowControl::FillWindowSigns() {
    QStringList entries;
    for (const std::string& entry : WindowPlacing::WindowSignEntries(m_signs))
        entries.append(k4cmn::ToQt(entry));
    for (const Line& line : m_lines) {
        line.windowSign->clear();
        line.windowSign->addItems(entries);
        line.windowSign->setEnabled(false);
    }
}

void CK4CmnDlgWindowControl::DoDataExchange(CDataExchange* pDX) {
    CK4CmnDlgBase::DoDataExchange(pDX);
    for (std::size_t k = 0; k < m_lines.size(); ++k) {
        const Line& line = m_lines[k];
        WindowPlacing::Window& window = m_placing.windows[k];
        DDX_Check(pDX, line.enable, window.enabled);
        DDX_CBString(pDX, line.windowSign, window.windowSign);
        DDX_Text(pDX, line.row, window.row);
        DDV_MinMaxInt(pDX, window.row, window.rowMinimum, m_placing.RowMaximum());
        DDX_Text(pDX, line.column, window.column);
        DDV_MinMaxInt(pDX, window.column, window.columnMinimum, m_placing.ColumnMaximum());
    }
    if (!pDX->Saving())
        return;
    if (const auto fault = m_placing.FindFault()) {
        const Line& line = m_lines[fault->window];
        pDX->PrepareControl(fault->inRow ? line.row : line.column);
        pDX->Fail(fault->words);
    }
}

bool CK4CmnDlgWindowControl::eventFilter(QObject* watched, QEvent* event) {
    // The menu of a field takes the focus only for as long as it is open.
    if (event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
        FieldLeft(watched);
    return CK4CmnDlgBase::eventFilter(watched, event);
}

void CK4CmnDlgWindowControl::FieldLeft(const QObject* field) {
    const auto rewrite = [](QLineEdit* edit, const auto& rule) {
        const std::int32_t number = k4cmn::LeadingNumber(k4cmn::FromQt(edit->text()));
        if (const std::int32_t ruled = rule(number); ruled != number)
            edit->setText(QString::number(ruled));
    };
    for (const Line& line : m_lines) {
        if (field == line.row)
            rewrite(line.row, [this](std::int32_t row) { return m_placing.SnapRow(row); });
        else if (field == line.column)
            rewrite(line.column, WindowPlacing::SnapColumn);
    }
}

void CK4CmnDlgWindowControl::OnApply() {
    if (UpdateData(true))
        ApplySettings();
}

void CK4CmnDlgWindowControl::OnOK() {
    if (!UpdateData(true))
        return;
    ApplySettings();
    EndDialog(IDOK);
}

void CK4CmnDlgWindowControl::ApplySettings() {
    const CriticalSectionLock lock(CK4CmnSS::m_cs, kLockWait);
    if (!lock.IsLocked()) {
        WindowPrompt(this).Ask(PlainMessage("Error applying settings. Sign service locked."));
        return;
    }
    CK4CmnSS client;
    if (!client.ConnectService(m_service)) {
        WindowPrompt(this).Ask(PlainMessage(client.GetLastError()));
        return;
    }
    std::uint32_t number = 0;
    for (const WindowPlacing::Window& window : m_placing.windows)
        client.SetWindowState(m_sign, ++number, window.enabled, window.row, window.column,
                              window.windowSign);
}
