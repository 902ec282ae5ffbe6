// CK4CmnDlgFileSelPrev: which sequence is shown, reading it and saving it.

#include <QLayout>
#include <vector>

#include "k4cmndlg/filesel/CK4CmnDlgFileSelPrev.h"
#include "k4cmndlg/filesel/FileListOwner.h"
#include "k4cmndlg/filesel/ThumbnailSize.h"
#include "k4cmndlg/filesel/properties/FrameImage.h"
#include "k4cmndlg/filesel/properties/SequenceDuration.h"
#include "k4cmndlg/filestore/contracts/SequenceLibrary.h"
#include "k4cmndlg/frame/Text.h"
#include "k4cmndlg/frame/WaitCursor.h"
#include "k4cmndlg/frame/contracts/MessagePresenter.h"
#include "ui_FileProperties.h"

using k4cmn::FrameResult;
using k4cmn::PreviewEdits;
using k4cmn::PreviewFacts;
using k4cmn::WindowPrompt;

namespace {

// Where the words "Non Graphic Frame" stand, from the middle of the sign and in its lamps.
constexpr int kWordsLeft = 20;
constexpr int kWordsAbove = 8;

std::unique_ptr<CK4SequenceFile> NewSequence() {
    return k4cmn::Provided<k4cmn::SequenceLibrary>::Current().Create();
}

}  // namespace

void CK4CmnDlgFileSelPrev::AttachSequence(CK4SequenceFile* file, const std::string& path) {
    if (!m_ownFile) {
        SavePending();
        m_fileOpen = 0;
    }
    m_attached = file;
    m_attachedPath = path;
}

void CK4CmnDlgFileSelPrev::UpdateSelection(const std::string& path) {
    const std::string wanted = path;
    // Saved as what it has been shown as; this may lead here again, by way of the list.
    SavePending();
    m_ownFile = 1;
    BeginSelection(wanted);
    SetWritable(!wanted.empty() && CanWrite());
    m_sequence = NewSequence();
    if (!wanted.empty() && OpenFile(wanted))
        TakeSequence();
    EndSelection();
}

void CK4CmnDlgFileSelPrev::UpdateSelection() {
    SavePending();
    m_ownFile = 0;
    BeginSelection(m_attachedPath);
    m_sequence.reset();
    const int isOpen = OpenFile({});
    SetWritable(isOpen != 0);
    if (isOpen)
        TakeSequence();
    EndSelection();
}

void CK4CmnDlgFileSelPrev::SavePending() {
    if (!m_changed && !m_compressionChanged)
        return;
    SaveKeyWords(0);
    m_changed = 0;
    m_compressionChanged = 0;
}

void CK4CmnDlgFileSelPrev::BeginSelection(const std::string& path) {
    m_ready = 0;
    m_fileOpen = 0;
    m_path = path;
    m_facts = {};
    m_edits = {};
    m_frameCount = 0;
    m_picture.Clear();
    m_palette.clear();
    m_image = {};
    setWindowTitle(path.empty() ? m_title : k4cmn::ToQt(k4cmn::PreviewTitle(path)));
    m_ui->previewOnly->hide();
}

int CK4CmnDlgFileSelPrev::OpenFile(const std::string& path) {
    if (!path.empty() && !Open(path, K4_OPEN_READ))
        return 0;
    CK4SequenceFile* file = path.empty() ? Sequence() : m_sequence.get();
    return file && file->SosData() && file->RiffHdr() ? 1 : 0;
}

int CK4CmnDlgFileSelPrev::Open(const std::string& path, K4OpenFlags flags) {
    if (!m_sequence)
        m_sequence = NewSequence();
    {
        const k4cmn::WaitCursor wait;
        if (m_sequence->Open(path, flags))
            return 1;
    }
    WindowPrompt(this).Ask({"Error opening Sequence: \n" + path,
                            {},
                            k4cmn::MessageButtons::Ok,
                            k4cmn::MessageIcon::Stop});
    return 0;
}

bool CK4CmnDlgFileSelPrev::CanWrite() const {
    const k4cmn::WaitCursor wait;
    return NewSequence()->Open(m_path, K4_OPEN_READWRITE) != 0;
}

void CK4CmnDlgFileSelPrev::TakeSequence() {
    CK4SequenceFile& file = *Sequence();
    m_fileOpen = 1;
    m_rows = file.SosData()->rows;
    m_columns = file.SosData()->columns;
    m_edits = PreviewEdits::Of(file);
    m_frameCount = file.FrameCount();
    m_ui->thumbnailFrameSpin->SetRange(1, std::max(m_frameCount, 1));
    Frame2DIB(m_edits.thumbnailFrame);
    ShowPreviewOnly(file.IsPreviewOnly() != 0);
    LoadSequenceInfo();
}

void CK4CmnDlgFileSelPrev::EndSelection() {
    ShowFacts();
    ShowEdits();
    if (m_fileOpen)
        TakeThumbnailSize();
    UpdateThumbPicture();
    m_changed = 0;
    m_compressionChanged = 0;
    m_ready = 1;
    m_ui->keywords->setFocus();
}

void CK4CmnDlgFileSelPrev::LoadSequenceInfo() {
    // A sequence that its owner has closed meanwhile has no record.
    if (!m_fileOpen || !Sequence()->SosData())
        return;
    const std::uint64_t milliseconds = CalcDuration({}, 0);
    m_facts = PreviewFacts::Of(*Sequence()->SosData(), m_frameCount, milliseconds);
}

std::uint64_t CK4CmnDlgFileSelPrev::CalcDuration(const std::string& path, int depth) {
    if (!m_fileOpen)
        return 0;
    const k4cmn::WaitCursor wait;
    k4cmn::SequenceDuration duration(*Sequence(), m_path, m_ownFile != 0);
    return duration.CalcDuration(path, depth);
}

void CK4CmnDlgFileSelPrev::Frame2DIB(int frame) {
    if (!m_fileOpen || m_picture.Convert(*Sequence(), frame, false) == FrameResult::NoFrame)
        return;
    BuildColorTable();
    m_image = ImageOf(m_picture, m_palette);
    m_picture.pixels = std::vector<std::uint8_t>();
}

void CK4CmnDlgFileSelPrev::BuildColorTable() {
    if (m_palette.isEmpty())
        m_palette = PaletteOf(m_picture);
}

void CK4CmnDlgFileSelPrev::TakeThumbnailSize() {
    const int before = height();
    const int growth = m_ui->thumbnail->SetBoxedThumbnail(k4cmn::BoxedThumbnail(m_rows, m_columns));
    if (!m_stands || isMaximized())
        return;
    // A window that has its smallest size grows by itself as soon as it is laid out.
    layout()->activate();
    resize(width(), before + growth);
}

void CK4CmnDlgFileSelPrev::UpdateThumbPicture() {
    if (m_picture.IsValid()) {
        m_ui->thumbnail->ShowPicture(m_image);
    } else if (!m_picture.words.empty()) {
        m_ui->thumbnail->ShowProblem(k4cmn::ToQt(m_picture.words));
    } else {
        // Without a file too: then at the place of the sign that was shown last.
        m_ui->thumbnail->ShowWords(QStringLiteral("Non Graphic Frame"),
                                   {m_columns / 2 - kWordsLeft, m_rows / 2 - kWordsAbove});
    }
}

int CK4CmnDlgFileSelPrev::SaveKeyWords(int final) {
    if (m_ownFile) {
        if (m_sequence)
            m_sequence->Close();
        m_fileOpen = 0;
        if (!Open(m_path, K4_OPEN_READWRITE))
            return 0;
        m_fileOpen = 1;
    }
    if (!m_fileOpen)
        return 0;
    m_edits = ReadEdits();
    const bool isSaved = m_edits.SaveTo(*Sequence()) != 0;
    const std::string words = Sequence()->GetPtrToErrorString();
    ShowEdits();
    if (m_ownFile) {
        m_sequence->Close();
        m_fileOpen = 0;
    }
    if (!isSaved) {
        WindowPrompt(this).Ask(k4cmn::PlainMessage(words));
        return 0;
    }
    m_changed = 0;
    m_compressionChanged = 0;
    if (m_owner && m_ownFile && !final)
        m_owner->GetListFile();
    if (m_owner && m_ownFile)
        m_owner->ShowFilesList();
    return 1;
}
