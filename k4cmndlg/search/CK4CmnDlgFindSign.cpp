#include "k4cmndlg/search/CK4CmnDlgFindSign.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>

#include "k4cmndlg/filestore/SignLimits.h"
#include "k4cmndlg/filestore/SignNames.h"
#include "k4cmndlg/filestore/contracts/CK4Files.h"
#include "k4cmndlg/frame/CDataExchange.h"
#include "k4cmndlg/frame/CSpinButtonCtrl.h"
#include "k4cmndlg/frame/FieldNumber.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/search/EnterFinds.h"
#include "k4cmndlg/search/SignFault.h"
#include "k4cmndlg/signctl/SizeField.h"
#include "k4cmndlg/signctl/SizeRules.h"
#include "ui_FindSignPage.h"

using k4cmn::kMaxSignColumns;
using k4cmn::kMaxSignRows;
using k4cmn::kMinSignColumns;
using k4cmn::kMinSignRows;
using k4cmn::SignField;

namespace {

constexpr std::uint32_t kTemplate = 113;

QString Shown(std::string_view name) {
    return k4cmn::ToQt(std::string(name));
}

/// Rounds the number in a field. One that the rule leaves keeps its text.
void Round(QLineEdit* field, std::uint32_t (*rule)(std::uint32_t)) {
    const std::uint32_t typed = k4cmn::ParseUnsigned(k4cmn::FromQt(field->text())).value_or(0);
    if (const std::uint32_t rounded = rule(typed); rounded != typed)
        field->setText(QString::number(rounded));
}

}  // namespace

CK4CmnDlgFindSign::CK4CmnDlgFindSign()
    : CPropertyPage(kTemplate), m_ui(std::make_unique<Ui::FindSignPage>()) {
    m_ui->setupUi(this);
    for (int color = 0; color < k4cmn::kSignColorCount; ++color)
        m_ui->color->addItem(Shown(k4cmn::ColorSearchName(static_cast<tag_K4_SIGN_COLOR>(color))));
    for (int pixel = 1; pixel <= k4cmn::kPixelTechCount; ++pixel)
        m_ui->pixel->addItem(Shown(k4cmn::PixelLongName(static_cast<tag_K4_PIXEL_TECH>(pixel))));
    k4cmn::SetUpSizeField(m_ui->rows, m_ui->rowSpin, k4cmn::NextMultiplePinned);
    k4cmn::SetUpSizeField(m_ui->columns, m_ui->columnSpin, k4cmn::NextMultiplePinned);
    m_ui->rows->installEventFilter(this);
    m_ui->columns->installEventFilter(this);
    connect(m_ui->enable, &QCheckBox::clicked, this, &CK4CmnDlgFindSign::OnEnable);
    new k4cmn::EnterFinds(*this);  // the page's
}

CK4CmnDlgFindSign::~CK4CmnDlgFindSign() = default;

int CK4CmnDlgFindSign::OnInitDialog() {
    m_enabled = 0;
    m_rows = kMinSignRows;
    m_columns = kMinSignColumns;
    m_colorIndex = 0;
    m_pixelIndex = 0;
    m_ui->enable->setChecked(false);
    m_ui->rowSpin->SetRange(kMinSignRows, kMaxSignRows);
    m_ui->rowSpin->SetAccel({k4cmn::kSignRowSpeeds.begin(), k4cmn::kSignRowSpeeds.end()});
    m_ui->columnSpin->SetRange(kMinSignColumns, kMaxSignColumns);
    m_ui->columnSpin->SetAccel({k4cmn::kSignColumnSpeeds.begin(), k4cmn::kSignColumnSpeeds.end()});
    EnableControls();
    return CPropertyPage::OnInitDialog();
}

void CK4CmnDlgFindSign::EnableControls() {
    for (QWidget* control :
         {static_cast<QWidget*>(m_ui->rows), static_cast<QWidget*>(m_ui->columns),
          static_cast<QWidget*>(m_ui->color), static_cast<QWidget*>(m_ui->pixel)})
        control->setEnabled(m_enabled != 0);
}

void CK4CmnDlgFindSign::OnEnable() {
    // Its own state is turned over. What the box shows isn't asked.
    m_enabled = m_enabled == 0 ? 1 : 0;
    EnableControls();
}

void CK4CmnDlgFindSign::DoDataExchange(CDataExchange* pDX) {
    CPropertyPage::DoDataExchange(pDX);
    if (!k4cmn::ExchangeSignSize(pDX, m_ui->rows, m_rows, m_ui->columns, m_columns))
        return;
    DDX_CBIndex(pDX, m_ui->color, m_colorIndex);
    DDX_CBIndex(pDX, m_ui->pixel, m_pixelIndex);
    if (pDX->Saving())
        CheckSign(pDX);
}

void CK4CmnDlgFindSign::CheckSign(CDataExchange* pDX) {
    const tag_K4_SIGN_COLOR color = CK4Files::IntToColorTech(m_colorIndex);
    const tag_K4_PIXEL_TECH pixel = CK4Files::IntToPixelTech(m_pixelIndex + 1);
    const auto fault = k4cmn::FindSignFault(m_rows, m_columns, color, pixel);
    if (!fault || fault->field == SignField::Technologies) {
        m_color = color;
        m_pixel = pixel;
    }
    if (!fault)
        return;
    if (fault->field == SignField::Rows)
        pDX->PrepareControl(m_ui->rows);
    else if (fault->field == SignField::Columns)
        pDX->PrepareControl(m_ui->columns);
    else
        pDX->PrepareControl(m_ui->color);
    pDX->Fail(fault->words);
}

bool CK4CmnDlgFindSign::eventFilter(QObject* watched, QEvent* event) {
    // The menu of a field takes the focus only for as long as it is open.
    if (event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
        if (watched == m_ui->rows)
            Round(m_ui->rows, k4cmn::RoundedSignRows);
        else if (watched == m_ui->columns)
            Round(m_ui->columns, k4cmn::RoundedSignColumns);
    }
    return CPropertyPage::eventFilter(watched, event);
}
