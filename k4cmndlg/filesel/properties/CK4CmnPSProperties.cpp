#include "k4cmndlg/filesel/properties/CK4CmnPSProperties.h"

#include <QPushButton>
#include <algorithm>

#include "k4cmndlg/filesel/properties/SequenceDuration.h"
#include "k4cmndlg/filestore/PathParts.h"
#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/HelpDecision.h"
#include "k4cmndlg/frame/StringTable.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"

namespace {

// The sheet's own buttons, in pixels.
constexpr int kButtonWidth = 60;
constexpr int kButtonHeight = 20;
constexpr int kGap = 7;    // between buttons, and to the right edge
constexpr int kBelow = 3;  // under the buttons
constexpr int kAbove = 4;  // over them, in the room that a modeless sheet grows by
// What a button's text needs around it.
constexpr int kTextMargin = 16;
constexpr int kTextFrame = 4;

constexpr std::uint32_t kSheet = 200;  // the sheet's number for its help
constexpr int kApply = 3;              // id of the Apply button

/// The size of the buttons: the usual one, or what the font needs for the longest text.
QSize UserButtonSize(const QPushButton* longest) {
    const QFontMetrics font = longest->fontMetrics();
    return {std::max(kButtonWidth, font.horizontalAdvance(longest->text()) + kTextMargin),
            std::max(kButtonHeight, font.height() + kTextFrame)};
}

}  // namespace

CK4CmnPSProperties::CK4CmnPSProperties(std::uint32_t captionId, QWidget* parent, int firstPage,
                                       DIALOG_MODE mode)
    : CK4CmnPSProperties(k4cmn::LoadString(captionId), parent, firstPage, mode) {}

CK4CmnPSProperties::CK4CmnPSProperties(const std::string& caption, QWidget* parent, int firstPage,
                                       DIALOG_MODE mode)
    : CPropertySheet(caption, parent, firstPage), m_parent(parent), m_mode(mode) {
    AddPage(&m_fileInfo);
    AddPage(&m_thumbnail);
    AddPage(&m_advanced);
    // A window that goes takes the sheet along before a guarded pointer to it is cleared.
    if (parent)
        connect(parent, &QObject::destroyed, this, [this] { m_parent.clear(); });
}

CK4CmnPSProperties::~CK4CmnPSProperties() {
    CPropertySheet::DestroyWindow();
}

int CK4CmnPSProperties::OnInitDialog() {
    CPropertySheet::OnInitDialog();
    k4cmn::SetWindowContextHelpId(this, kSheet + k4cmn::kDialogHelpBase);
    HideStandardButtons();
    CreateUserButtons();
    if (m_mode == MODELESS)
        SetMargin(0, kAbove + UserButtonSize(m_cancel).height() + kBelow);
    else
        UpdateAllPages();
    return 1;
}

void CK4CmnPSProperties::CreateUserButtons() {
    if (m_ok)
        return;
    const auto create = [this](const QString& text, int id, void (CK4CmnPSProperties::*command)()) {
        auto* button = new QPushButton(text, this);
        button->setFont(font());
        button->setAccessibleName(text);
        button->setProperty("controlId", id);
        k4cmn::SetWindowContextHelpId(button, kSheet << 16 | static_cast<std::uint32_t>(id));
        connect(button, &QPushButton::clicked, this, command);
        return button;
    };
    // In the order in which the eye and the Tab key meet them.
    m_ok = create(tr("OK"), IDOK, &CK4CmnPSProperties::OnOK);
    m_cancel = create(tr("Cancel"), IDCANCEL, &CK4CmnPSProperties::OnCancel);
    m_apply = create(tr("Apply"), kApply, &CK4CmnPSProperties::OnApply);
    m_ok->setDefault(true);
    PlaceUserButtons();
}

void CK4CmnPSProperties::PlaceUserButtons() {
    if (!m_ok)
        return;
    const QSize size = UserButtonSize(m_cancel);
    const int top = height() - kBelow - size.height();
    int right = width() - kGap;
    for (QPushButton* button : {m_apply, m_cancel, m_ok}) {
        button->setGeometry(right - size.width(), top, size.width(), size.height());
        right -= size.width() + kGap;
    }
}

void CK4CmnPSProperties::resizeEvent(QResizeEvent* event) {
    CPropertySheet::resizeEvent(event);
    PlaceUserButtons();
}

int CK4CmnPSProperties::ShowFileProperties(CK4SequenceFile* file, CK4CmnSeqFileProperties* record) {
    if (!file || !record)
        return 0;
    SetFile(file, false);
    m_path = record->filePath;
    m_current = *record;
    m_modified = 0;
    return ShowModeless();
}

int CK4CmnPSProperties::ShowModeless() {
    TakeReadOnly();
    if (m_mode != MODELESS)
        return 1;
    const bool isNew = !HasWindow();
    if (isNew && !Create())
        return 0;
    UpdateAllPages();
    if (isNew)
        show();
    return 1;
}

void CK4CmnPSProperties::UpdateAllPages() {
    SetTitle(m_path);
    TakeReadOnly();
    m_saved = m_current;
    switch (GetActiveIndex()) {
        case GENERAL_PAGE:
            m_fileInfo.Fill();
            break;
        case THUMBNAIL_PAGE:
            m_thumbnail.Refill();
            break;
        case ADVANCED_PAGE:
            m_advanced.Fill();
            break;
        default:
            break;
    }
}

void CK4CmnPSProperties::SetTitle(const std::string& path) {
    if (path.empty())
        return;
    const k4cmn::PathParts parts = k4cmn::SplitPath(path);
    const std::string title =
        k4cmn::Format("Properties for %s", (parts.name + parts.extension).c_str());
    setWindowTitle(k4cmn::ToQt(title));
}

void CK4CmnPSProperties::SetFile(CK4SequenceFile* file, bool byPath) {
    m_file = file;
    m_byPath = byPath;
}

std::uint64_t CK4CmnPSProperties::GetDuration() const {
    return m_file ? k4cmn::SequenceDuration(*m_file, m_path, m_byPath).Milliseconds() : 0;
}

void CK4CmnPSProperties::SetReadOnly(int readOnly) {
    m_readOnlyWish = readOnly;
    TakeReadOnly();
}

void CK4CmnPSProperties::TakeReadOnly() {
    m_readOnly = m_readOnlyWish || !m_writable || m_current.previewOnly ? 1 : 0;
}

void CK4CmnPSProperties::FormatKeyWords(const std::string&, std::string*) {}

int CK4CmnPSProperties::GetSeqFileInfo(CK4CmnSeqFileProperties* record,
                                       const std::string& path) const {
    const tag_K4_SOS_FRM* start = m_file ? m_file->SosData() : nullptr;
    if (!start || !record)
        return 0;
    record->SetFileProperties(
        start->rows, start->columns, static_cast<tag_K4_SIGN_COLOR>(start->color),
        static_cast<tag_K4_PIXEL_TECH>(start->pixel),
        static_cast<tag_K4_COMPRESS_TYPE>(m_file->RiffHdr()->compressionLevel),
        m_file->IsPreviewOnly(), m_file->FrameCount(), start->thumbnailFrame,
        m_file->GetPtrToKeywords(), m_file->GetPtrToComments(), path);
    return 1;
}

void CK4CmnPSProperties::CloseProperties(int formatKeyWords) {
    const QPointer<CK4CmnPSProperties> self(this);
    Close(formatKeyWords && !m_dropped ? IDOK : IDCANCEL);
    // A parent that is told of the end may have deleted the sheet.
    if (self && formatKeyWords)
        m_current.FormatKeyWords();
}

void CK4CmnPSProperties::OnOK() {
    if (ReadActivePage())
        CloseProperties(1);
}

void CK4CmnPSProperties::OnCancel() {
    ReadActivePage();
    const QPointer<CK4CmnPSProperties> self(this);
    const bool keeps = HasChanges() && AskToKeepChanges();
    if (!self)
        return;
    if (!keeps && m_modified) {
        m_current = m_saved;
        m_modified = 0;
    }
    m_dropped = !keeps;
    CloseProperties(1);
    if (self)
        m_dropped = false;
}

bool CK4CmnPSProperties::AskToKeepChanges() {
    const k4cmn::Message question{"Do you wish to save the changes to the file properties?",
                                  {},
                                  k4cmn::MessageButtons::YesNo,
                                  k4cmn::MessageIcon::Exclamation};
    return k4cmn::WindowPrompt(this).Ask(question) == k4cmn::MessageAnswer::Yes;
}

void CK4CmnPSProperties::OnApply() {
    if (ReadActivePage())
        NormaliseKeyWords();
}

void CK4CmnPSProperties::NormaliseKeyWords() {
    m_current.FormatKeyWords();
    if (GetActiveIndex() == ADVANCED_PAGE)
        m_advanced.ShowKeyWords();
}
