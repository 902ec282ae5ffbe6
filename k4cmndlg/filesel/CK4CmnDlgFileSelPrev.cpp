#include "k4cmndlg/filesel/CK4CmnDlgFileSelPrev.h"

#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <algorithm>

#include "k4cmndlg/filesel/FileListOwner.h"
#include "k4cmndlg/filesel/properties/CompressionLevels.h"
#include "k4cmndlg/filesel/properties/KeywordText.h"
#include "k4cmndlg/frame/FieldLooks.h"
#include "k4cmndlg/frame/FieldNumber.h"
#include "k4cmndlg/frame/SpinSteps.h"
#include "k4cmndlg/frame/Text.h"
#include "ui_FileProperties.h"

using k4cmn::FromQt;
using k4cmn::PreviewEdits;
using k4cmn::ToQt;

namespace {

constexpr int kLastFrame = 9999;  // of the spin, before there is a sequence
constexpr int kMaxTyped = static_cast<int>(k4cmn::kMaxSequenceText);

/// Keeps a field to what can be typed. A text that is longer already can only become shorter.
void LimitTo(QLineEdit* edit, qsizetype length) {
    const int most = std::max(kMaxTyped, static_cast<int>(length));
    if (edit->maxLength() == most)
        return;
    // This sets the field's text once more, and the cursor behind it.
    const int cursor = edit->cursorPosition();
    edit->setMaxLength(most);
    edit->setCursorPosition(cursor);
}

/// Shows a text from its beginning; one that is longer than what can be typed is shown whole.
void ShowText(QLineEdit* edit, const std::string& text) {
    const QString shown = ToQt(text);
    LimitTo(edit, shown.size());
    edit->setText(shown);
    edit->setCursorPosition(0);
}

QString FrameNumber(int frame) {
    return QString::number(frame);
}

}  // namespace

CK4CmnDlgFileSelPrev::CK4CmnDlgFileSelPrev(QWidget* parent)
    : CK4CmnDlgBase(kTemplate, parent),
      m_ui(std::make_unique<Ui::FilePropertiesDialog>()),
      m_parentWindow(parent) {
    m_ui->setupUi(this);
    m_title = windowTitle();
    SetUpControls();
    AlignTexts();
}

CK4CmnDlgFileSelPrev::~CK4CmnDlgFileSelPrev() {
    DestroyWindow();
}

void CK4CmnDlgFileSelPrev::SetUpControls() {
    for (const k4cmn::CompressionLevel& entry : k4cmn::kCompressionLevels)
        m_ui->compression->addItem(ToQt(entry.name));
    m_ui->compression->setCurrentIndex(-1);
    m_ui->keywords->setMaxLength(kMaxTyped);
    m_ui->notes->SetMaxLength(kMaxTyped);
    k4cmn::PutOnGround(m_ui->fileName);
    k4cmn::PutOnGround(m_ui->frameCount);
    for (QLineEdit* number : {m_ui->thumbnailFrame, m_ui->frameCount})
        k4cmn::FitToText(number, QStringLiteral("000000"));
    const QRegularExpression digits(QStringLiteral("\\d*"));
    m_ui->thumbnailFrame->setValidator(new QRegularExpressionValidator(digits, this));

    CSpinButtonCtrl* spin = m_ui->thumbnailFrameSpin;
    spin->SetBuddy(m_ui->thumbnailFrame);
    spin->SetRange(1, kLastFrame);
    // A spin's own position is too narrow for the frames that a file may have.
    connect(spin, &CSpinButtonCtrl::DeltaPos, this, [this, spin](int frame, int step, bool* done) {
        const int target = k4cmn::SpinTarget(frame, step, spin->Lower(), spin->Upper());
        m_ui->thumbnailFrame->setText(FrameNumber(target));
        *done = true;
    });

    using Pane = CK4CmnDlgFileSelPrev;
    connect(m_ui->keywords, &QLineEdit::textEdited, this,
            [this](const QString& text) { LimitTo(m_ui->keywords, text.size()); });
    connect(m_ui->keywords, &QLineEdit::textChanged, this, &Pane::OnChanged);
    connect(m_ui->notes, &QPlainTextEdit::textChanged, this, &Pane::OnChanged);
    connect(m_ui->thumbnailFrame, &QLineEdit::textChanged, this, &Pane::OnThumbnailFrame);
    connect(m_ui->compression, &QComboBox::currentIndexChanged, this, &Pane::OnCompression);
}

int CK4CmnDlgFileSelPrev::Create(std::uint32_t templateId, QWidget* parent) {
    if (templateId != kTemplate || m_stands)
        return 0;
    if (parent) {
        setParent(parent, Qt::Widget);
        // A child stands where its parent puts it, and not in the middle of the screen.
        if (!testAttribute(Qt::WA_Moved))
            move(0, 0);
    } else if (!isWindow()) {
        setParent(m_parentWindow, Qt::Dialog | Qt::WindowContextHelpButtonHint);
        setAttribute(Qt::WA_Moved, false);
    }
    return CDialog::Create();
}

int CK4CmnDlgFileSelPrev::OnCreate() {
    // A child has no place of its own, and the window around it hears the requests for help.
    if (!isWindow())
        return CDialog::OnCreate();
    // The place is that of the window, not one of each file that it has shown.
    const QString title = windowTitle();
    setWindowTitle(m_title);
    const int result = CK4CmnDlgBase::OnCreate();
    setWindowTitle(title);
    return result;
}

int CK4CmnDlgFileSelPrev::OnInitDialog() {
    CK4CmnDlgBase::OnInitDialog();
    m_stands = 1;
    return 1;
}

void CK4CmnDlgFileSelPrev::AlignTexts() {
    QLabel* const captions[] = {m_ui->fileNameLabel,  m_ui->frameSizeLabel, m_ui->pixelTechLabel,
                                m_ui->colorTechLabel, m_ui->durationLabel,  m_ui->framesLabel,
                                m_ui->thumbnailLabel};
    int widest = 0;
    for (const QLabel* caption : captions)
        widest = std::max(widest, caption->sizeHint().width());
    for (QLabel* caption : captions)
        caption->setMinimumWidth(widest);
    // The other facts begin with a blank.
    const QFontMetrics font = m_ui->duration->fontMetrics();
    m_ui->pixelTech->setIndent(font.horizontalAdvance(QLatin1Char(' ')));
    m_ui->colorTech->setIndent(font.horizontalAdvance(QLatin1Char(' ')));
    // Room for what usually stands there, so that the window keeps its width from file to file.
    m_ui->duration->setMinimumWidth(font.horizontalAdvance(QStringLiteral(" 9999.99 Seconds")));
}

void CK4CmnDlgFileSelPrev::OnDestroy() {
    setWindowTitle(m_title);
    CK4CmnDlgBase::OnDestroy();
    m_stands = 0;
    m_ready = 0;
    m_fileOpen = 0;
    m_sequence.reset();
}

void CK4CmnDlgFileSelPrev::OnOK() {
    Leave(IDOK);
}

void CK4CmnDlgFileSelPrev::OnCancel() {
    OnClose();
}

void CK4CmnDlgFileSelPrev::OnClose() {
    Leave(IDCANCEL);
}

void CK4CmnDlgFileSelPrev::Leave(int result) {
    // The dialog that is told of the closing may close the window once more.
    if (m_leaving)
        return;
    m_leaving = 1;
    if (m_changed || m_compressionChanged)
        SaveKeyWords(1);
    if (m_owner)
        m_owner->ShowFilesList();
    const QPointer<CK4CmnDlgFileSelPrev> self(this);
    if (m_owner && m_ownFile)
        m_owner->PropertiesButtonPressed();
    if (!self)
        return;
    m_leaving = 0;
    const bool isModeless = !isModal();
    EndDialog(result);
    if (self && isModeless)
        DestroyWindow();
}

void CK4CmnDlgFileSelPrev::keyPressEvent(QKeyEvent* event) {
    // Of a child, the window around it may be one that knows nothing of help.
    if (!isWindow() && event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier) {
        QWidget* focused = focusWidget() ? focusWidget() : this;
        k4cmn::HelpRequest request{focused, k4cmn::GetWindowContextHelpId(focused), true};
        OnHelpInfo(&request);
        return;
    }
    CK4CmnDlgBase::keyPressEvent(event);
}

void CK4CmnDlgFileSelPrev::SetWritable(bool writable) {
    m_ui->keywords->setReadOnly(!writable);
    m_ui->notes->setReadOnly(!writable);
    m_ui->thumbnailFrame->setReadOnly(!writable);
    m_ui->compression->setEnabled(writable);
}

void CK4CmnDlgFileSelPrev::ShowPreviewOnly(bool previewOnly) {
    m_ui->previewOnly->setVisible(previewOnly);
    if (!m_ownFile && !previewOnly)
        return;
    QWidget* const controls[] = {m_ui->thumbnailFrameLabel, m_ui->thumbnailFrame,
                                 m_ui->thumbnailFrameSpin, m_ui->ofLabel, m_ui->frameCount};
    for (QWidget* control : controls)
        control->setEnabled(!previewOnly);
}

void CK4CmnDlgFileSelPrev::ShowFacts() {
    const auto show = [](const QLabel* caption, QLabel* label, const std::string& text) {
        label->setText(ToQt(text));
        label->setAccessibleName(caption->text() + label->text());
    };
    show(m_ui->frameSizeLabel, m_ui->frameSize, m_facts.frameSize);
    show(m_ui->pixelTechLabel, m_ui->pixelTech, m_facts.pixelTech);
    show(m_ui->colorTechLabel, m_ui->colorTech, m_facts.colorTech);
    show(m_ui->durationLabel, m_ui->duration, m_facts.duration);
    show(m_ui->framesLabel, m_ui->frames, m_facts.frames);
    m_ui->fileName->setText(ToQt(m_fileOpen ? k4cmn::PreviewFileName(m_path) : std::string()));
    m_ui->frameCount->setText(m_fileOpen ? FrameNumber(m_frameCount) : QString());
}

void CK4CmnDlgFileSelPrev::ShowEdits() {
    const int wasReady = m_ready;
    m_ready = 0;
    ShowText(m_ui->keywords, m_edits.keywords);
    if (m_ui->notes->Text() != m_edits.notes)
        m_ui->notes->SetText(m_edits.notes);
    m_ui->thumbnailFrame->setText(m_fileOpen ? FrameNumber(m_edits.thumbnailFrame) : QString());
    m_ui->compression->setCurrentIndex(m_fileOpen ? m_edits.compression : -1);
    m_ready = wasReady;
}

PreviewEdits CK4CmnDlgFileSelPrev::ReadEdits() const {
    PreviewEdits edits;
    edits.keywords = FromQt(m_ui->keywords->text());
    edits.notes = m_ui->notes->Text();
    edits.thumbnailFrame = k4cmn::LeadingNumber(FromQt(m_ui->thumbnailFrame->text()));
    edits.compression = m_ui->compression->currentIndex();
    edits.compressionChanged = m_compressionChanged != 0;
    return edits;
}

void CK4CmnDlgFileSelPrev::OnChanged() {
    if (m_ready && m_fileOpen)
        m_changed = 1;
}

void CK4CmnDlgFileSelPrev::OnCompression() {
    if (m_ready && m_fileOpen)
        m_compressionChanged = 1;
}

void CK4CmnDlgFileSelPrev::OnThumbnailFrame() {
    if (!m_ready || !m_fileOpen)
        return;
    m_changed = 1;
    const int frame = k4cmn::LeadingNumber(FromQt(m_ui->thumbnailFrame->text()));
    Frame2DIB(frame == 0 ? 1 : frame);
    UpdateThumbPicture();
}
