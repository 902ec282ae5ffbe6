#include "k4cmndlg/filesel/properties/CK4CmnPPAdvanced.h"

#include <algorithm>
#include <utility>

#include "k4cmndlg/filesel/properties/CK4CmnPSProperties.h"
#include "k4cmndlg/filesel/properties/CharacterLimit.h"
#include "k4cmndlg/filesel/properties/CompressionLevels.h"
#include "k4cmndlg/filesel/properties/KeywordText.h"
#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/frame/CDataExchange.h"
#include "k4cmndlg/frame/Text.h"
#include "ui_AdvancedPage.h"

using k4cmn::kCompressionLevels;
using k4cmn::kMaxSequenceText;

namespace {

constexpr std::uint32_t kTemplate = 202;

CK4CmnPSProperties& SheetOf(const CPropertyPage& page) {
    return *static_cast<CK4CmnPSProperties*>(page.GetSheet());
}

/// The entry of a level; that of "None" for a level without one.
int IndexOf(tag_K4_COMPRESS_TYPE level) {
    const auto found = std::find_if(
        kCompressionLevels.begin(), kCompressionLevels.end(),
        [level](const k4cmn::CompressionLevel& entry) { return entry.level == level; });
    return found == kCompressionLevels.end() ? 0
                                             : static_cast<int>(found - kCompressionLevels.begin());
}

QString Shown(const std::string& text) {
    return k4cmn::ToQt(k4cmn::FirstCharacters(text, kMaxSequenceText));
}

}  // namespace

CK4CmnPPAdvanced::CK4CmnPPAdvanced()
    : CPropertyPage(kTemplate), m_ui(std::make_unique<Ui::AdvancedPage>()) {
    m_ui->setupUi(this);
    for (const k4cmn::CompressionLevel& entry : kCompressionLevels)
        m_ui->compression->addItem(QLatin1String(entry.name));
    k4cmn::LimitCharacters(m_ui->keywords, kMaxSequenceText);
    k4cmn::LimitCharacters(m_ui->notes, kMaxSequenceText);
}

CK4CmnPPAdvanced::~CK4CmnPPAdvanced() = default;

void CK4CmnPPAdvanced::OnSetActive() {
    CPropertyPage::OnSetActive();
    Fill();
}

void CK4CmnPPAdvanced::Fill() {
    CK4CmnPSProperties& sheet = SheetOf(*this);
    const CK4CmnSeqFileProperties& record = *sheet.GetFileProperties();
    ShowKeyWords();
    m_ui->notes->setPlainText(Shown(record.notes));
    m_knownNotes = Notes();
    m_knownCompression = IndexOf(record.compression);
    m_ui->compression->setCurrentIndex(m_knownCompression);
    const bool enabled = !sheet.IsReadOnly();
    m_ui->compression->setEnabled(enabled);
    m_ui->keywords->setEnabled(enabled);
    m_ui->notes->setEnabled(enabled);
}

void CK4CmnPPAdvanced::ShowKeyWords() {
    m_ui->keywords->setText(Shown(SheetOf(*this).GetFileProperties()->keywords));
    m_ui->keywords->home(false);
    m_knownKeywords = m_ui->keywords->text();
}

QString CK4CmnPPAdvanced::Notes() const {
    // Not the plain text, in which some blanks become others.
    QString text = m_ui->notes->document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'))
        .replace(QChar::LineSeparator, QLatin1Char('\n'));
}

void CK4CmnPPAdvanced::DoDataExchange(CDataExchange* pDX) {
    CPropertyPage::DoDataExchange(pDX);
    if (!pDX->Saving())
        return;
    CK4CmnSeqFileProperties& record = *SheetOf(*this).GetFileProperties();
    ReadText(m_ui->keywords->text(), m_knownKeywords, record.keywords);
    ReadText(Notes(), m_knownNotes, record.notes);
    ReadCompression();
}

void CK4CmnPPAdvanced::ReadText(const QString& now, QString& known, std::string& text) {
    const std::string wanted = k4cmn::FromQt(now);
    if (std::exchange(known, now) == now || k4cmn::IsSameWithoutCase(wanted, text))
        return;
    SheetOf(*this).SetModifiedFlag(1);
    text = wanted;
}

void CK4CmnPPAdvanced::ReadCompression() {
    const int index = m_ui->compression->currentIndex();
    if (index < 0 || std::exchange(m_knownCompression, index) == index)
        return;
    tag_K4_COMPRESS_TYPE& level = SheetOf(*this).GetFileProperties()->compression;
    const tag_K4_COMPRESS_TYPE wanted = kCompressionLevels[static_cast<std::size_t>(index)].level;
    if (level == wanted)
        return;
    SheetOf(*this).SetModifiedFlag(1);
    level = wanted;
}
