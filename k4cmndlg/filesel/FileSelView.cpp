#include "k4cmndlg/filesel/FileSelView.h"

#include <QSignalBlocker>
#include <algorithm>
#include <array>

#include "k4cmndlg/filesel/CreateLibraryDialog.h"
#include "k4cmndlg/filesel/LastModifiedFilter.h"
#include "k4cmndlg/filestore/FileNameRules.h"
#include "k4cmndlg/filestore/FileTypes.h"
#include "k4cmndlg/frame/CDataExchange.h"
#include "k4cmndlg/frame/FieldLooks.h"
#include "k4cmndlg/frame/Text.h"
#include "ui_FileSelection.h"

namespace k4cmn {

namespace {

constexpr int kMostLetters = static_cast<int>(kMaxFileNameLength);

void Exchange(CDataExchange* pDX, QComboBox* combo, int& index) {
    if (!pDX->Ok())
        return;
    pDX->PrepareControl(combo);
    if (pDX->Saving()) {
        index = combo->currentIndex();
        return;
    }
    const QSignalBlocker quiet(combo);
    combo->setCurrentIndex(index);
}

}  // namespace

FileSelView::FileSelView(CDialog& dialog, Ui::FileSelectionDialog& ui)
    : m_dialog(&dialog), m_ui(&ui) {
    PutOnGround(ui.path);
    QObject::connect(ui.fileName, &QLineEdit::textChanged, &dialog, [this] { LimitFileName(); });
}

FileSelView::~FileSelView() = default;

void FileSelView::ShowTemplate() {
    ShowFileTypes(PluralNamesOf(K4_FILE_TYPE_ALL));
    m_ui->detailsView->setChecked(true);
    m_ui->properties->setChecked(false);
}

bool FileSelView::IsEditing() const {
    if (!m_ui)
        return false;
    const QList<QLineEdit*> editors = m_ui->list->findChildren<QLineEdit*>();
    return std::any_of(editors.begin(), editors.end(),
                       [](const QLineEdit* editor) { return editor->isVisible(); });
}

// Fields -------------------------------------------------------------------------------------

void FileSelView::Exchange(CDataExchange* pDX) {
    if (pDX->Loading()) {
        // A longer text that the program sets isn't cut: it is refused when it is read.
        const auto length = static_cast<int>(ToQt(m_fields.fileName).size());
        m_ui->fileName->setMaxLength(std::max(kMostLetters, length));
    }
    k4cmn::Exchange(pDX, m_ui->fileTypes, m_fields.fileTypeIndex);
    k4cmn::Exchange(pDX, m_ui->lastModified, m_fields.lastModifiedIndex);
    DDX_Text(pDX, m_ui->fileName, m_fields.fileName);
    DDV_MaxChars(pDX, m_fields.fileName, kMaxFileNameLength);
}

/// Brings the field's own limit back while a text that is too long is shortened.
void FileSelView::LimitFileName() {
    if (!m_ui)
        return;
    QLineEdit& field = *m_ui->fileName;
    const int most = std::max(kMostLetters, static_cast<int>(field.text().size()));
    if (field.maxLength() <= most)
        return;
    const int cursor = field.cursorPosition();
    field.setMaxLength(most);
    field.setCursorPosition(cursor);
}

bool FileSelView::IsFileNameTooLong() const {
    return m_ui->fileName->text().size() > kMostLetters;
}

bool FileSelView::ReadControls(FileSelectorFields& fields) {
    if (!m_ui)
        return false;
    if (IsFileNameTooLong()) {
        PostRefusal();
        return false;
    }
    if (!m_dialog->UpdateData(true))
        return false;
    fields = m_fields;
    return true;
}

void FileSelView::PostRefusal() {
    if (m_isRefusalPosted)
        return;
    m_isRefusalPosted = true;
    const auto refuse = [this] {
        m_isRefusalPosted = false;
        // By now it may be another text, or nobody is there to read the words.
        if (m_ui && m_dialog->isVisible() && IsFileNameTooLong())
            m_dialog->UpdateData(true);
    };
    QMetaObject::invokeMethod(m_dialog, refuse, Qt::QueuedConnection);
}

std::string FileSelView::FileNameText() {
    return m_ui ? FromQt(m_ui->fileName->text()) : std::string();
}

std::string FileSelView::FileTypesText() {
    return m_ui ? FromQt(m_ui->fileTypes->currentText()) : std::string();
}

void FileSelView::ShowFields(const FileSelectorFields& fields) {
    m_fields = fields;
    if (m_ui)
        m_dialog->UpdateData(false);
}

void FileSelView::ShowFileName(const std::string& name) {
    if (!m_ui)
        return;
    const QSignalBlocker quiet(m_ui->fileName);
    const QString text = ToQt(name);
    m_ui->fileName->setMaxLength(std::max(kMostLetters, static_cast<int>(text.size())));
    m_ui->fileName->setText(text);
}

void FileSelView::ShowFileTypes(const std::vector<std::string>& names) {
    if (!m_ui)
        return;
    const QSignalBlocker quiet(m_ui->fileTypes);
    m_ui->fileTypes->clear();
    for (const std::string& name : names)
        m_ui->fileTypes->addItem(ToQt(name));
}

void FileSelView::ShowPath(const std::string& path) {
    if (m_ui)
        m_ui->path->setText(ToQt(path));
}

void FileSelView::ShowTitle(const std::string& title) {
    if (m_ui)
        m_dialog->setWindowTitle(ToQt(title));
}

void FileSelView::ShowFilter(bool isOn) {
    if (!m_ui)
        return;
    const QSignalBlocker quiet(m_ui->signFilter);
    m_ui->signFilter->setChecked(isOn);
}

// The list -----------------------------------------------------------------------------------

std::vector<std::size_t> FileSelView::SelectedRows() {
    return m_ui ? m_ui->list->SelectedRows() : std::vector<std::size_t>();
}

void FileSelView::RowsChanged(bool withColumns) {
    if (m_ui)
        m_ui->list->RowsChanged(withColumns);
}

void FileSelView::SelectRow(std::size_t row) {
    if (m_ui)
        m_ui->list->SelectRow(row);
}

void FileSelView::EditRow(std::size_t row) {
    if (m_ui)
        m_ui->list->EditRow(row);
}

void FileSelView::FileTaken() {
    if (!m_ui || m_isTakenPosted)
        return;
    m_isTakenPosted = true;
    const auto tell = [this] {
        m_isTakenPosted = false;
        if (m_ui && fileTaken)
            fileTaken();
    };
    QMetaObject::invokeMethod(m_dialog, tell, Qt::QueuedConnection);
}

// The tree -----------------------------------------------------------------------------------

void FileSelView::AboutToChange(const FileTreeItem& parent) {
    if (m_ui)
        m_ui->tree->AboutToChange(parent);
}

void FileSelView::Changed(const FileTreeItem& parent) {
    if (m_ui)
        m_ui->tree->Changed(parent);
}

void FileSelView::SelectionChanged() {
    if (m_ui)
        m_ui->tree->SelectionChanged();
}

void FileSelView::MarkChanged() {
    if (m_ui)
        m_ui->tree->MarkChanged();
}

const FileTreeItem* FileSelView::FirstVisible() const {
    return m_ui ? m_ui->tree->FirstVisible() : nullptr;
}

// The rest -----------------------------------------------------------------------------------

void FileSelView::Wait(bool wait) {
    if (wait)
        m_waits.push_back(std::make_unique<WaitCursor>());
    else if (!m_waits.empty())
        m_waits.pop_back();
}

bool FileSelView::AskLibraryName(const std::string& signFolder, std::string& name) {
    if (!m_ui || !m_dialog->isVisible())
        return false;
    // Not on the stack: a window that goes takes its dialogs along.
    const QPointer<CreateLibraryDialog> dialog =
        new CreateLibraryDialog(signFolder, name, m_dialog);
    const bool isOk = dialog->DoModal() == IDOK && dialog;
    if (isOk)
        name = dialog->Name();
    delete dialog.data();
    // A window that has ended meanwhile makes nothing any more.
    return isOk && m_ui && m_dialog->isVisible();
}

}  // namespace k4cmn
