#include "k4cmndlg/search/CK4CmnDlgFindSize.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <initializer_list>
#include <utility>

#include "k4cmndlg/frame/CDataExchange.h"
#include "k4cmndlg/frame/CSpinButtonCtrl.h"
#include "k4cmndlg/frame/FieldLooks.h"
#include "k4cmndlg/frame/LocalTime.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/search/DatePieces.h"
#include "k4cmndlg/search/EnterFinds.h"
#include "k4cmndlg/search/SizePageControls.h"
#include "k4cmndlg/smalldlg/CK4CmnDlgDate.h"
#include "ui_FindSizePage.h"

namespace {

constexpr std::uint32_t kTemplate = 114;
constexpr int kMostSize = 32767;
constexpr int kLeastSpan = 1;
constexpr int kMostSpan = 999;
constexpr const char* kRelations[] = {"any", "at least", "at most"};

void SetUpNumber(QLineEdit* field, CSpinButtonCtrl* spin, const char* widest) {
    k4cmn::TakeDigitsAlone(field);
    k4cmn::FitToText(field, QLatin1String(widest));
    spin->SetBuddy(field);
}

/// Moves a number of days or months. @return false if it was refused: the window, and the number
/// with it, may have gone with the message.
bool ExchangeSpan(CDataExchange* pDX, QLineEdit* field, int& span) {
    DDX_Text(pDX, field, span);
    if (pDX->Ok())
        DDV_MinMaxInt(pDX, span, kLeastSpan, kMostSpan);
    return pDX->Ok();
}

/// The position of the button that is on; -1 if none is.
int ChosenOf(std::initializer_list<const QRadioButton*> buttons) {
    int position = 0;
    for (const QRadioButton* button : buttons) {
        if (button->isChecked())
            return position;
        ++position;
    }
    return -1;
}

}  // namespace

CK4CmnDlgFindSize::CK4CmnDlgFindSize()
    : CPropertyPage(kTemplate), m_ui(std::make_unique<Ui::FindSizePage>()) {
    m_ui->setupUi(this);
    for (const char* relation : kRelations)
        m_ui->relation->addItem(QLatin1String(relation));
    SetUpNumber(m_ui->size, m_ui->sizeSpin, "0000000000");
    SetUpNumber(m_ui->months, m_ui->monthSpin, "00000");
    SetUpNumber(m_ui->days, m_ui->daySpin, "00000");
    m_first.edit = m_ui->firstDate;
    m_last.edit = m_ui->lastDate;
    for (Date* date : {&m_first, &m_last}) {
        k4cmn::FitToText(date->edit, QStringLiteral("00/00/00000"));
        connect(date->edit, &QLineEdit::textChanged, this, [this, date] { OnChangeDate(*date); });
    }
    connect(m_ui->relation, &QComboBox::currentIndexChanged, this,
            &CK4CmnDlgFindSize::EnableControls);
    for (QRadioButton* filter : {m_ui->allFiles, m_ui->modified})
        connect(filter, &QRadioButton::clicked, this, &CK4CmnDlgFindSize::EnableControls);
    for (QRadioButton* mode : {m_ui->between, m_ui->duringMonths, m_ui->duringDays})
        connect(mode, &QRadioButton::clicked, this, &CK4CmnDlgFindSize::OnDateMode);
    new k4cmn::EnterFinds(*this);  // the page's
}

CK4CmnDlgFindSize::~CK4CmnDlgFindSize() {
    // The toolkit has more to do in an edit whose change has the calendar open.
    for (const Date& date : {m_first, m_last}) {
        if (!date.isTelling)
            continue;
        date.edit->setParent(nullptr);
        date.edit->deleteLater();
    }
}

int CK4CmnDlgFindSize::OnInitDialog() {
    m_sizeRelation = k4cmn::SIZE_ANY;
    m_dateFilter = k4cmn::DATE_ALL_FILES;
    m_dateMode = k4cmn::DATE_BETWEEN;
    CPropertyPage::OnInitDialog();
    m_ui->sizeSpin->SetRange(0, kMostSize);
    m_ui->monthSpin->SetRange(kLeastSpan, kMostSpan);
    m_ui->daySpin->SetRange(kLeastSpan, kMostSpan);
    const std::int64_t now = k4cmn::SecondsNow();
    m_firstDate = k4cmn::DayOf(now - k4cmn::kFirstDateBeforeToday);
    m_lastDate = k4cmn::DayOf(now);
    for (Date* date : {&m_first, &m_last}) {
        date->guard = 0;
        ShowDate(*date);
    }
    EnableControls();
    return 1;
}

void CK4CmnDlgFindSize::DoDataExchange(CDataExchange* pDX) {
    CPropertyPage::DoDataExchange(pDX);
    DDX_CBIndex(pDX, m_ui->relation, m_sizeRelation);
    DDX_Text(pDX, m_ui->size, m_size);
    // The window may have gone with the message.
    if (!pDX->Ok())
        return;
    DDX_Radio(pDX, {m_ui->allFiles, m_ui->modified}, m_dateFilter);
    DDX_Radio(pDX, {m_ui->between, m_ui->duringMonths, m_ui->duringDays}, m_dateMode);
    if (ExchangeSpan(pDX, m_ui->days, m_days))
        ExchangeSpan(pDX, m_ui->months, m_months);
}

void CK4CmnDlgFindSize::EnableControls() {
    const k4cmn::SizePageControls usable = k4cmn::UsableControls(
        m_ui->relation->currentIndex(), ChosenOf({m_ui->allFiles, m_ui->modified}),
        ChosenOf({m_ui->between, m_ui->duringMonths, m_ui->duringDays}));
    const std::pair<QWidget*, bool> controls[] = {{m_ui->size, usable.size},
                                                  {m_ui->sizeSpin, usable.size},
                                                  {m_ui->between, usable.dateModes},
                                                  {m_ui->duringMonths, usable.dateModes},
                                                  {m_ui->duringDays, usable.dateModes},
                                                  {m_ui->firstDate, usable.dates},
                                                  {m_ui->lastDate, usable.dates},
                                                  {m_ui->months, usable.months},
                                                  {m_ui->days, usable.days}};
    for (const auto& [control, isUsable] : controls)
        control->setEnabled(isUsable);
}

void CK4CmnDlgFindSize::OnDateMode() {
    // It turns the other one off.
    m_ui->modified->setChecked(true);
    EnableControls();
}

// Dates --------------------------------------------------------------------------------------

void CK4CmnDlgFindSize::ShowDate(Date& date) {
    const QString text = k4cmn::ToQt(k4cmn::DateText(this->*date.day));
    // A text that is written counts as a change, be it the same text.
    if (date.edit->text() == text)
        OnChangeDate(date);
    else
        date.edit->setText(text);
}

void CK4CmnDlgFindSize::OnChangeDate(Date& date) {
    date.guard = date.guard == 0 ? 1 : 0;
    if (date.guard != 0)
        return;
    const QPointer<CK4CmnDlgFindSize> self(this);
    date.isTelling = true;
    PickDate(date);
    if (self)
        date.isTelling = false;
}

void CK4CmnDlgFindSize::PickDate(Date& date) {
    const QPoint place = date.edit->mapToGlobal(QPoint(0, date.edit->height()));
    k4cmn::CalendarDay& day = this->*date.day;
    // Not on the stack: a window that goes takes its dialogs along.
    const QPointer<CK4CmnDlgDate> dialog = new CK4CmnDlgDate(this);
    dialog->SetStartLocation(place.x(), place.y());
    dialog->SetStartDate(day.day, day.month, day.year);
    const int result = dialog->DoModal();
    if (!dialog)
        return;
    const k4cmn::CalendarDay picked{dialog->GetDay(), dialog->GetMonth(), dialog->GetYear()};
    delete dialog.data();
    if (result == -1)
        CK4CmnDlgDate::ShowFailure(this);
    if (result != IDOK)
        return;
    day = picked;
    ShowDate(date);
}
