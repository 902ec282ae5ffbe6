#include "k4cmndlg/filesel/properties/CK4CmnPPFileInfo.h"

#include "k4cmndlg/filesel/properties/CK4CmnPSProperties.h"
#include "k4cmndlg/filesel/properties/SequenceTexts.h"
#include "k4cmndlg/filestore/SignNames.h"
#include "k4cmndlg/frame/FieldLooks.h"
#include "k4cmndlg/frame/Text.h"
#include "ui_FileInfoPage.h"

using k4cmn::ToQt;

namespace {

constexpr std::uint32_t kTemplate = 201;

}  // namespace

CK4CmnPPFileInfo::CK4CmnPPFileInfo()
    : CPropertyPage(kTemplate), m_ui(std::make_unique<Ui::FileInfoPage>()) {
    m_ui->setupUi(this);
    k4cmn::PutOnGround(m_ui->fileName);
    // Numbers are shown with a blank before them; names begin where numbers do.
    const int blank = fontMetrics().horizontalAdvance(QLatin1Char(' '));
    for (QLabel* name : {m_ui->pixelTech, m_ui->colorTech, m_ui->previewOnly})
        name->setIndent(blank);
}

CK4CmnPPFileInfo::~CK4CmnPPFileInfo() = default;

void CK4CmnPPFileInfo::OnSetActive() {
    CPropertyPage::OnSetActive();
    Fill();
}

void CK4CmnPPFileInfo::Fill() {
    auto* sheet = static_cast<CK4CmnPSProperties*>(GetSheet());
    const CK4CmnSeqFileProperties& record = *sheet->GetFileProperties();
    m_ui->fileName->SetPath(ToQt(record.filePath));
    m_ui->frameSize->setText(ToQt(k4cmn::FrameSizeText(record.rows, record.columns)));
    m_ui->pixelTech->setText(ToQt(k4cmn::PixelLongName(record.pixel)));
    m_ui->colorTech->setText(ToQt(k4cmn::ColorShortName(record.color)));
    m_ui->duration->setText(ToQt(k4cmn::DurationText(sheet->GetDuration())));
    m_ui->frames->setText(ToQt(k4cmn::FrameCountText(record.frameCount)));
    m_ui->previewOnly->setVisible(record.previewOnly != 0);
}
