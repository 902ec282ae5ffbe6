#include "k4cmndlg/filesel/properties/CK4CmnPPThumbnail.h"

#include <QRegularExpressionValidator>
#include <QSignalBlocker>
#include <algorithm>
#include <chrono>
#include <limits>

#include "k4cmndlg/filesel/properties/CK4CmnPSProperties.h"
#include "k4cmndlg/filesel/properties/FrameImage.h"
#include "k4cmndlg/filesel/properties/FramePicture.h"
#include "k4cmndlg/frame/CDataExchange.h"
#include "k4cmndlg/frame/FieldLooks.h"
#include "k4cmndlg/frame/FieldNumber.h"
#include "k4cmndlg/frame/SpinSteps.h"
#include "k4cmndlg/frame/Text.h"
#include "ui_ThumbnailPage.h"

using k4cmn::FrameResult;

namespace {

constexpr std::uint32_t kTemplate = 203;
constexpr std::chrono::milliseconds kWait(50);
constexpr int kBoxTop = 70;
constexpr int kBelowLabel = 4;
constexpr QPoint kWordsPlace(1, 1);

CK4CmnPSProperties& SheetOf(const CPropertyPage& page) {
    return *static_cast<CK4CmnPSProperties*>(page.GetSheet());
}

/// A number of frames or of one, held to what a field can be read as.
std::int32_t Signed(std::uint32_t number) {
    constexpr std::uint32_t kHighest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(number, kHighest));
}

}  // namespace

CK4CmnPPThumbnail::CK4CmnPPThumbnail()
    : CPropertyPage(kTemplate), m_ui(std::make_unique<Ui::ThumbnailPage>()) {
    m_ui->setupUi(this);
    m_wait.setSingleShot(true);
    m_wait.setInterval(kWait);
    connect(&m_wait, &QTimer::timeout, this, &CK4CmnPPThumbnail::Fill);

    QLineEdit* field = m_ui->frame;
    k4cmn::FitToText(field, QStringLiteral("000000"));
    field->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("\\d*")), this));
    connect(field, &QLineEdit::textChanged, this, &CK4CmnPPThumbnail::OnFrameChanged);
    m_ui->frameSpin->SetBuddy(field);
    // The spin's own positions are signed words, and there may be more frames than these hold.
    connect(m_ui->frameSpin, &CSpinButtonCtrl::DeltaPos, this,
            [this](int position, int step, bool* cancel) {
                *cancel = true;
                const std::int32_t next =
                    k4cmn::SpinTarget(position, step, 1, Within(m_frameCount));
                m_ui->frame->setText(QString::number(next));
            });
}

CK4CmnPPThumbnail::~CK4CmnPPThumbnail() = default;

void CK4CmnPPThumbnail::OnSetActive() {
    CPropertyPage::OnSetActive();
    m_filled = false;
    m_wait.start();
}

int CK4CmnPPThumbnail::OnKillActive() {
    const int mayGo = CPropertyPage::OnKillActive();
    if (mayGo)
        Leave();
    return mayGo;
}

void CK4CmnPPThumbnail::OnDestroy() {
    Leave();
    CPropertyPage::OnDestroy();
}

void CK4CmnPPThumbnail::Leave() {
    m_wait.stop();
    m_filled = false;
    m_ui->box->Clear();
}

void CK4CmnPPThumbnail::Refill() {
    if (m_wait.isActive())
        m_filled = false;
    else
        Fill();
}

void CK4CmnPPThumbnail::Fill() {
    m_wait.stop();
    FillFields();
    m_ui->box->Clear();
    PlaceBox();
    DrawFrame(m_thumbnail);
}

void CK4CmnPPThumbnail::FillFields() {
    CK4CmnPSProperties& sheet = SheetOf(*this);
    const CK4CmnSeqFileProperties& record = *sheet.GetFileProperties();
    m_frameCount = Signed(record.frameCount);
    const bool isThere = record.thumbnailFrame >= 1 && record.thumbnailFrame <= record.frameCount;
    m_thumbnail = isThere ? Signed(record.thumbnailFrame) : 1;
    m_filled = true;
    const QSignalBlocker quiet(m_ui->frame);
    m_ui->frame->setText(QString::number(m_thumbnail));
    m_ui->frameCount->setText(QString::number(m_frameCount));
    m_ui->frameSpin->SetRange(1, Within(m_frameCount));
    m_ui->frame->setEnabled(!sheet.IsReadOnly());
    m_ui->frameSpin->setEnabled(!sheet.IsReadOnly());
}

std::int32_t CK4CmnPPThumbnail::Within(std::int32_t number) const {
    return std::max(1, std::min(number, m_frameCount));
}

void CK4CmnPPThumbnail::OnFrameChanged() {
    if (!IsActive() || !m_filled)
        return;
    QLineEdit* field = m_ui->frame;
    const std::int32_t number = k4cmn::LeadingNumber(k4cmn::FromQt(field->text()));
    const std::int32_t within = Within(number);
    if (within != number) {
        const QSignalBlocker quiet(field);
        field->setText(QString::number(within));
    }
    DrawFrame(within);
}

void CK4CmnPPThumbnail::DoDataExchange(CDataExchange* pDX) {
    CPropertyPage::DoDataExchange(pDX);
    if (!pDX->Saving())
        return;
    if (!m_filled)
        FillFields();
    CK4CmnPSProperties& sheet = SheetOf(*this);
    const std::int32_t number = Within(k4cmn::LeadingNumber(k4cmn::FromQt(m_ui->frame->text())));
    sheet.SetModifiedFlag(number != m_thumbnail ? 1 : 0);
    if (number == m_thumbnail)
        return;
    m_thumbnail = number;
    sheet.GetFileProperties()->thumbnailFrame = static_cast<std::uint32_t>(number);
}

void CK4CmnPPThumbnail::DrawFrame(std::int32_t number) {
    CK4SequenceFile* file = SheetOf(*this).GetFilePtr();
    if (!file)
        return;
    const int frame = number == 0 ? 1 : number;
    k4cmn::FramePicture picture;
    switch (picture.Convert(*file, frame, true)) {
        case FrameResult::Picture:
            m_ui->box->ShowPicture(k4cmn::ImageOf(picture));
            break;
        case FrameResult::NonGraphic:
            m_ui->box->ShowWords(QStringLiteral("Non Graphic Frame"), kWordsPlace);
            break;
        case FrameResult::Unreadable:
            m_ui->box->ShowProblem(k4cmn::ToQt(picture.words));
            break;
        case FrameResult::NoFrame:
            // A frame that the file has by its count, and can't give: the file says why.
            if (frame <= file->FrameCount())
                m_ui->box->ShowProblem(k4cmn::ToQt(file->GetPtrToErrorString()));
            break;
    }
}

void CK4CmnPPThumbnail::PlaceBox() {
    const CK4CmnSeqFileProperties& record = *SheetOf(*this).GetFileProperties();
    k4cmn::ThumbnailBox* box = m_ui->box;
    box->SetFramedThumbnail(k4cmn::PageThumbnail(record.rows, record.columns));
    const int belowLabel = m_ui->thumbnailCaption->geometry().bottom() + 1 + kBelowLabel;
    box->move((width() - box->width()) / 2, std::max(kBoxTop, belowLabel));
}

void CK4CmnPPThumbnail::resizeEvent(QResizeEvent* event) {
    CPropertyPage::resizeEvent(event);
    if (m_filled)
        PlaceBox();
}
