#include "k4cmndlg/signctl/CK4CmnDlgDimmingCtrl.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <array>

#include "k4cmndlg/clients/CK4CmnSS.h"
#include "k4cmndlg/frame/CDataExchange.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "ui_Dimming.h"

using k4cmn::DimmingSettings;
using k4cmn::PlainMessage;
using k4cmn::WindowPrompt;

namespace {

constexpr std::uint32_t kTemplate = 176;
constexpr int kLevelTicks = 32;
constexpr int kOffsetTicks = 16;

std::array<QRadioButton*, 4> Radios(const Ui::DimmingDialog& ui) {
    return {ui.manual, ui.photocell, ui.remotePhotocell, ui.scheduled};
}

void SetRange(QSlider* slider, int lower, int upper, int ticks) {
    slider->setRange(lower, upper);
    slider->setTickInterval(ticks);
    slider->setPageStep(ticks);
}

}  // namespace

CK4CmnDlgDimmingCtrl::CK4CmnDlgDimmingCtrl(const std::string& service, const std::string& sign,
                                           QWidget* parent)
    : CK4CmnDlgBase(kTemplate, parent),
      m_ui(std::make_unique<Ui::DimmingDialog>()),
      m_service(service),
      m_sign(sign),
      m_shownName(service + "\\" + sign) {
    m_ui->setupUi(this);
    // On the ground of the dialog, so that the name doesn't look like something to type over.
    QPalette ground = m_ui->signName->palette();
    ground.setBrush(QPalette::Base, ground.window());
    m_ui->signName->setPalette(ground);
    for (QRadioButton* radio : Radios(*m_ui))
        connect(radio, &QRadioButton::clicked, this, &CK4CmnDlgDimmingCtrl::OnRadio);
    for (QSlider* slider : {m_ui->level, m_ui->offset})
        connect(slider, &QSlider::valueChanged, this, [this] { ShowApplyButton(true); });
    connect(m_ui->apply, &QPushButton::clicked, this, &CK4CmnDlgDimmingCtrl::OnApply);
}

CK4CmnDlgDimmingCtrl::~CK4CmnDlgDimmingCtrl() = default;

int CK4CmnDlgDimmingCtrl::OnInitDialog() {
    m_settings = {};
    CK4CmnDlgBase::OnInitDialog();
    m_apply = m_ui->apply;
    SetRange(m_ui->level, K4_DIM_LEVEL_MIN, K4_DIM_LEVEL_MAX, kLevelTicks);
    SetRange(m_ui->offset, K4_DIM_OFFSET_MIN, K4_DIM_OFFSET_MAX, kOffsetTicks);

    tag_K4_SIGN_DIM_MODE mode = K4_SIGN_DIM_MANUAL_0;
    std::int32_t level = 0;
    std::int32_t offset = 0;
    CK4CmnSS client;
    if (client.GetSignConfig(m_service, m_sign, nullptr, nullptr, nullptr, nullptr, &mode, &level,
                             &offset)) {
        m_settings = DimmingSettings::FromSign(mode, level, offset);
        UpdateData(false);
    } else {
        WindowPrompt(this).Ask(PlainMessage(client.GetLastError()));
    }
    DimmingSelect();
    ShowApplyButton(false);
    return 1;
}

void CK4CmnDlgDimmingCtrl::DoDataExchange(CDataExchange* pDX) {
    CK4CmnDlgBase::DoDataExchange(pDX);
    DDX_Text(pDX, m_ui->signName, m_shownName);
    DDX_Radio(pDX, {m_ui->manual, m_ui->photocell, m_ui->remotePhotocell, m_ui->scheduled},
              m_settings.radio);
    DDX_Slider(pDX, m_ui->level, m_settings.level);
    DDX_Slider(pDX, m_ui->offset, m_settings.offset);
}

void CK4CmnDlgDimmingCtrl::OnRadio() {
    DimmingSelect();
    ShowApplyButton(true);
}

void CK4CmnDlgDimmingCtrl::DimmingSelect() {
    UpdateData(true);
    const auto enable = [](std::initializer_list<QWidget*> group, bool on) {
        for (QWidget* control : group)
            control->setEnabled(on);
    };
    enable({m_ui->manualCaption, m_ui->level, m_ui->manualLow, m_ui->manualHigh},
           m_settings.radio == DimmingSettings::kManual);
    enable({m_ui->photocellCaption, m_ui->offset, m_ui->photocellLow, m_ui->photocellHigh},
           m_settings.radio == DimmingSettings::kPhotocell);
    // The four buttons are one stop of the Tab key, at the one that is on, as soon as one is.
    for (QRadioButton* radio : Radios(*m_ui)) {
        const bool stop = m_settings.radio < 0 || radio->isChecked();
        radio->setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

void CK4CmnDlgDimmingCtrl::ShowApplyButton(bool enable) {
    if (!m_apply)
        return;
    // A button that is disabled while it has the focus hands it to the next one, which is Cancel.
    if (!enable && focusWidget() == m_apply)
        m_ui->ok->setFocus();
    m_apply->setEnabled(enable);
}

void CK4CmnDlgDimmingCtrl::ApplySettings() {
    UpdateData(true);
    const auto command = m_settings.ModeAndValue();
    if (!command)
        return;
    CK4CmnSS client;
    if (client.SetDimming(m_service, m_sign, command->mode, command->value))
        ShowApplyButton(false);
    else
        WindowPrompt(this).Ask(PlainMessage(client.GetLastError()));
}

void CK4CmnDlgDimmingCtrl::OnApply() {
    if (UpdateData(true))
        ApplySettings();
}

void CK4CmnDlgDimmingCtrl::OnOK() {
    OnApply();
    EndDialog(IDOK);
}
