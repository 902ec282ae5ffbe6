#include "k4cmndlg/filesel/properties/CK4CmnDlgFileProp.h"

#include <QPointer>
#include <utility>

#include "k4cmndlg/filestore/Characters.h"
#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"
#include "k4cmndlg/frame/Format.h"
#include "k4cmndlg/frame/WaitCursor.h"
#include "k4cmndlg/frame/WindowMessage.h"
#include "k4cmndlg/frame/WindowMessages.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"

using k4cmn::MessageButtons;
using k4cmn::MessageIcon;
using k4cmn::WindowPrompt;

namespace {

std::unique_ptr<CK4SequenceFile> NewSequence() {
    return k4cmn::Provided<k4cmn::SequenceLibrary>::Current().Create();
}

/// Whether a file can be opened for reading and writing.
int IsWritable(const std::string& path) {
    const k4cmn::WaitCursor wait;
    return NewSequence()->Open(path, K4_OPEN_READWRITE);
}

/// Whether a record's text goes into a file: not where the file has one that the record can't hold,
/// and nobody entered another.
bool ReplacesText(const std::string& text, const char* inFile) {
    return !text.empty() || k4cmn::CharacterCount(inFile) <= CK4CmnSeqFileProperties::kMaxText;
}

}  // namespace

CK4CmnDlgFileProp::CK4CmnDlgFileProp(std::uint32_t captionId, QWidget* parent, int firstPage,
                                     DIALOG_MODE mode)
    : CK4CmnPSProperties(captionId, parent, firstPage, mode) {}

CK4CmnDlgFileProp::CK4CmnDlgFileProp(const std::string& caption, QWidget* parent, int firstPage,
                                     DIALOG_MODE mode)
    : CK4CmnPSProperties(caption, parent, firstPage, mode) {}

CK4CmnDlgFileProp::~CK4CmnDlgFileProp() {
    CK4CmnDlgFileProp::DestroyWindow();
    CloseSeq();
}

int CK4CmnDlgFileProp::ShowFileProperties(const std::string& path) {
    // Changes go with the window that they were made in.
    if (HasWindow() || m_fileOpen) {
        ReadPage();
        if (MustSave() && !SaveFile())
            return 0;
    }
    if (path.empty())
        return 0;
    SetModifiedFlag(0);
    m_unsaved = false;
    SetWritable(IsWritable(path));
    SetCurFilePath(path);
    const QPointer<CK4CmnDlgFileProp> self(this);
    if (!OpenSeq(path, K4_OPEN_READ)) {
        if (self)
            CloseProperties(0);
        return 0;
    }
    // The former file's texts must not stay where those of this one are too long.
    *GetFileProperties() = {};
    GetSeqFileInfo(GetFileProperties(), GetCurFilePath());
    return ShowModeless();
}

bool CK4CmnDlgFileProp::MustSave() const {
    const bool isUnsaved = m_unsaved && !IsReadOnly();
    return (HasChanges() || isUnsaved) && !GetCurFilePath().empty();
}

bool CK4CmnDlgFileProp::ReadPage() {
    const bool passed = ReadActivePage();
    if (m_unsaved)
        SetModifiedFlag(1);
    return passed;
}

bool CK4CmnDlgFileProp::Open(const std::string& path, K4OpenFlags flags) {
    CloseSeq();
    const k4cmn::WaitCursor wait;
    m_sequence = NewSequence();
    m_fileOpen = m_sequence->Open(path, flags);
    if (m_fileOpen)
        SetFile(m_sequence.get(), true);
    return m_fileOpen != 0;
}

int CK4CmnDlgFileProp::OpenSeq(const std::string& path, K4OpenFlags flags) {
    if (path.empty())
        return 0;
    if (Open(path, flags))
        return 1;
    const std::string words = k4cmn::Format("Error opening Sequence: %s\n", path.c_str());
    // Without a window of its own the sheet speaks for its parent.
    WindowPrompt(HasWindow() ? this : GetParentWindow())
        .Ask({words, {}, MessageButtons::Ok, MessageIcon::Stop});
    return 0;
}

void CK4CmnDlgFileProp::CloseSeq() {
    SetFile(nullptr, true);
    if (m_sequence)
        m_sequence->Close();
    m_sequence.reset();
    m_fileOpen = 0;
}

int CK4CmnDlgFileProp::SaveFile() {
    const QPointer<CK4CmnDlgFileProp> self(this);
    m_unsaved = true;
    if (!OpenSeq(GetCurFilePath(), K4_OPEN_READWRITE)) {
        if (self)
            SaveFailed();
        return 0;
    }
    NormaliseKeyWords();
    if (!WriteRecord()) {
        const std::string words = m_sequence->GetPtrToErrorString();
        SaveFailed();
        WindowPrompt(this).Ask({words, {}, MessageButtons::Ok, MessageIcon::Exclamation});
        return 0;
    }
    CloseSeq();
    m_unsaved = false;
    SetModifiedFlag(0);
    TellSaved();
    return 1;
}

bool CK4CmnDlgFileProp::WriteRecord() {
    const CK4CmnSeqFileProperties& record = *GetFileProperties();
    CK4SequenceFile& file = *m_sequence;
    if (ReplacesText(record.keywords, file.GetPtrToKeywords()) &&
        !file.SetKeywordsString(record.keywords))
        return false;
    if (ReplacesText(record.notes, file.GetPtrToComments()) &&
        !file.SetCommentsString(record.notes))
        return false;
    file.RiffHdr()->compressionLevel = static_cast<std::uint32_t>(record.compression);
    file.SosData()->thumbnailFrame = static_cast<std::uint16_t>(record.thumbnailFrame);
    return file.Save() != 0;
}

void CK4CmnDlgFileProp::SaveFailed() {
    // For the page with the picture. That the file can't be had has been said, or will be.
    Open(GetCurFilePath(), K4_OPEN_READ);
}

void CK4CmnDlgFileProp::TellSaved() {
    QWidget* parent = GetParentWindow();
    k4cmn::PostWindowMessage(parent, k4cmn::WM_GET_LIST_FILE);
    k4cmn::PostWindowMessage(parent, k4cmn::WM_SHOW_FILES_LIST);
}

void CK4CmnDlgFileProp::OnApply() {
    ReadPage();
    // Open again for reading, for the page with the picture.
    if (MustSave() && SaveFile())
        Open(GetCurFilePath(), K4_OPEN_READ);
}

void CK4CmnDlgFileProp::OnOK() {
    if (ReadPage())
        CloseProperties(1);
}

void CK4CmnDlgFileProp::OnCancel() {
    ReadPage();
    const QPointer<CK4CmnDlgFileProp> self(this);
    const bool keeps = MustSave() && AskToKeepChanges();
    if (!self)
        return;
    if (keeps) {
        CloseProperties(1);
        return;
    }
    SetModifiedFlag(0);
    m_unsaved = false;
    CloseSeq();
    CK4CmnPSProperties::CloseProperties(0);
}

void CK4CmnDlgFileProp::CloseProperties(int formatKeyWords) {
    if (MustSave() && !SaveFile())
        return;
    CK4CmnPSProperties::CloseProperties(formatKeyWords);
}

void CK4CmnDlgFileProp::DestroyWindow() {
    if (!HasWindow())
        return;
    const QPointer<CK4CmnDlgFileProp> self(this);
    if (!std::exchange(m_telling, true)) {
        k4cmn::SendWindowMessage(GetParentWindow(), k4cmn::WM_PROPERTIES_GONE,
                                 reinterpret_cast<std::uintptr_t>(this));
        // The parent may have deleted the sheet.
        if (!self)
            return;
    }
    m_telling = false;
    CK4CmnPSProperties::DestroyWindow();
    if (self)
        CloseSeq();
}
